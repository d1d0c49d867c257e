#include "synth/key_schemes.h"

#include <filesystem>

#include "core/names.h"
#include "platform/files.h"
#include "platform/text.h"

namespace melvane {

namespace {

constexpr const char* keyEnding = ".key";
constexpr const char* filter = "Keys(*.key)|*.key";
constexpr const char* defaultName = "keyboard.key";
constexpr const char* firstScheme = "004.key";
constexpr std::array<const char*, 4> schemes{firstScheme, "german.key", "french.key", "spanish.key"};

std::string fileNameOf(const std::string& path) {
    const auto separator = path.find_last_of("/\\");
    return separator == std::string::npos ? path : path.substr(separator + 1);
}

void remember(std::string& folder, const std::string& path) {
    const std::filesystem::path whole(path);
    if (whole.has_parent_path()) folder = whole.parent_path().string();
}

}  // namespace

KeySchemes::KeySchemes(Studio& studio, Parts parts) : studio_(studio), parts_(parts) {
    auto& synth = studio_.frmsynth;
    for (int index = 0; index < Keyboard::keys; ++index) {
        auto& label = synth.NoteX[static_cast<std::size_t>(index)];
        label.setEnabled(false);
        label.acted = [this, index] { NoteX_Change(index); };
    }
    showDefault();
    synth.Check1.acted = [this] { Check1_Click(); };
    synth.CmdEd.acted = [this] { CmdEd_Click(); };
    synth.Command1.acted = [this] { Command1_Click(); };
    synth.Command6.acted = [this] { Command6_Click(); };
    auto& keyboard = studio_.keyboard;
    keyboard.OpenFolder = keyboard.SaveFolder = parts_.directories.songs().string();
}

std::string KeySchemes::besideProgram(const std::string& name) const {
    return (parts_.directories.program / name).string();
}

void KeySchemes::installSchemes() {
    for (const char* name : schemes) {
        const std::string target = besideProgram(name);
        if (parts_.files.FileExists(target)) continue;
        const auto bytes = readFile((parts_.directories.resources / "keys" / name).string());
        if (bytes) parts_.files.WriteBytesFile(target, *bytes);
    }
}

void KeySchemes::showDefault() {
    auto& synth = studio_.frmsynth;
    for (std::size_t key = 0; key < synth.NoteX.size(); ++key) synth.NoteX[key].set(defaultKeyLabels()[key]);
    synth.Label3.set(defaultName);
}

void KeySchemes::loadAtStart() {
    const std::string kept = parts_.settings.GetSetting("keyfile", "None");
    if (parts_.files.FileExists(kept)) {
        if (kept.ends_with(keyEnding)) OpenKeyScheme(kept);
        return;
    }
    const std::string first = besideProgram(firstScheme);
    if (parts_.files.FileExists(first)) OpenKeyScheme(first);
}

void KeySchemes::storeAtEnd() {
    parts_.settings.SaveSetting("keyfile", besideProgram(studio_.frmsynth.Label3.text()));
}

void KeySchemes::OpenKeyScheme(const std::string& path) {
    const KeyLabels labels = readKeySchemeFile(path);
    for (std::size_t key = 0; key < labels.size(); ++key) {
        studio_.frmsynth.NoteX[key].set(labels[key]);
        parts_.loop.Idle();
    }
    studio_.frmsynth.Label3.set(fileNameOf(path));
}

void KeySchemes::SaveKeyScheme(const std::string& path) {
    KeyLabels labels;
    for (std::size_t key = 0; key < labels.size(); ++key) labels[key] = studio_.frmsynth.NoteX[key].text();
    writeFileWhole(path, keySchemeText(labels));
}

void KeySchemes::Command1_Click() {
    auto& folder = studio_.keyboard.OpenFolder;
    const std::string path =
        answeredPath(parts_.dialogs.openFile({"Open keyboard scheme", filter, folder, {}}).path);
    if (path.empty()) return;
    remember(folder, path);
    if (parts_.files.FileExists(path)) OpenKeyScheme(path);
}

void KeySchemes::Command6_Click() {
    auto& folder = studio_.keyboard.SaveFolder;
    const std::string path =
        answeredPath(parts_.dialogs.saveFile({"Save keyboard scheme", filter, folder, {}}).path);
    if (path.empty()) return;
    remember(folder, path);
    SaveKeyScheme(withEnding(path, keyEnding));
}

void KeySchemes::Check1_Click() {
    for (KeyLabel& label : studio_.frmsynth.NoteX) label.setEnabled(studio_.frmsynth.Check1.ticked());
}

void KeySchemes::CmdEd_Click() {
    studio_.frmsynth.Check1.set(!studio_.frmsynth.Check1.ticked());
    Check1_Click();
}

void KeySchemes::NoteX_Change(int) { studio_.keyboard.forgetKeyTexts(); }

void KeySchemes::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("frmsynth", "OpenKeyScheme", this, &KeySchemes::OpenKeyScheme);
    operations.add("frmsynth", "SaveKeyScheme", this, &KeySchemes::SaveKeyScheme);
    operations.add("frmsynth", "Command1_Click", this, &KeySchemes::Command1_Click);
    operations.add("frmsynth", "Command6_Click", this, &KeySchemes::Command6_Click);
    operations.add("frmsynth", "Check1_Click", this, &KeySchemes::Check1_Click);
    operations.add("frmsynth", "CmdEd_Click", this, &KeySchemes::CmdEd_Click);
    operations.add("frmsynth", "NoteX_Change", this, &KeySchemes::NoteX_Change);
}

}  // namespace melvane
