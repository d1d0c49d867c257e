#include "synth/performance_saving.h"

#include <filesystem>

#include "core/names.h"
#include "platform/files.h"
#include "platform/text.h"
#include "synth/performance_lists.h"

namespace melvane {

namespace {

constexpr int itemsWithoutWorth = 2, otherTracks = 12, tracks = 13, chordRows = 9;

/// A line of `count` times the same number.
std::string line(int number, int count) {
    const std::string item = std::to_string(number);
    std::string text;
    for (int at = 0; at < count; ++at) text += (at == 0 ? "" : ",") + item;
    return text + "\r\n";
}

std::string cellLine(const TextList& cells) {
    std::string text;
    for (int at = 0; at < cells.count(); ++at) text += (at == 0 ? "" : ",") + std::to_string(cells.value(at));
    return text + "\r\n";
}

}  // namespace

PerformanceSaving::PerformanceSaving(Studio& studio, Parts parts)
    : studio_(studio), dialogs_(parts.dialogs), capture_(parts.capture), directories_(parts.directories) {
    auto& synth = studio.frmsynth;
    synth.CmdRecord.acted = [this] { CmdRecord_Click(); };
    synth.Command11.acted = [this] { Command11_Click(); };
    synth.Command4.acted = [this] { Command4_Click(); };
    synth.Command10.acted = [this] { Command10_Click(); };
}

void PerformanceSaving::CmdRecord_Click() {
    if (capture_.isOn()) return;
    auto& keyboard = studio_.keyboard;
    if (keyboard.List3.count() <= itemsWithoutWorth) {
        dialogs_.messageBox(BoxKind::plain, "Melvane", "Nothing to save");
        return;
    }
    auto& folder = keyboard.ScoreFolder;
    if (folder.empty()) folder = directories_.songs().string();
    const auto choice = dialogs_.saveFile({"Save As SNG score", "SNG(*.sng)|*.sng", folder, {}});
    if (choice.path.empty()) return;
    const std::string path = withEnding(answeredPath(choice.path), ".sng");
    folder = std::filesystem::path(path).parent_path().string();
    capture_.Comp2_Click();
    Command4_Click();
    WritePerformance(path);
}

double PerformanceSaving::rate() const { return leadingNumber(studio_.frmsynth.Text12.text()); }

void PerformanceSaving::Command11_Click() {
    auto& keyboard = studio_.keyboard;
    performance::withPauses({keyboard.List1, keyboard.List3}, rate(), keyboard.List4);
}

void PerformanceSaving::Command4_Click() {
    Command11_Click();
    auto& keyboard = studio_.keyboard;
    performance::toCells(keyboard.List4, rate(), keyboard.List5);
    Command10_Click();
}

void PerformanceSaving::Command10_Click() {
    auto& keyboard = studio_.keyboard;
    performance::thinToShape(keyboard.List5, rate(), keyboard.OctaveShift);
}

std::string PerformanceSaving::scoreText() {
    auto& keyboard = studio_.keyboard;
    auto& length = keyboard.PerformanceLength;
    const int instrument = studio_.instruments.MelodyInstrument;
    length = keyboard.List5.count() - 1;
    std::string text = cellLine(keyboard.List5) + line(instrument, length + 1);
    length = keyboard.List5.count();
    for (int track = 0; track < otherTracks; ++track) text += "-1\r\n" + line(instrument, 1);
    assign(studio_.score.Tempo, leadingNumber(studio_.frmsynth.Text8.text()));
    // The one line with blanks, as in every score file.
    text += (studio_.score.Tempo < 0 ? "" : " ") + std::to_string(studio_.score.Tempo) + " \r\n";
    text += line(instrument, tracks) + "Polyphonics\r\n";
    for (int row = 0; row < chordRows; ++row) text += line(0, length + 2);
    struct Section {
        const char* title;
        int value;
    };
    for (const auto& [title, value] :
         {Section{"Volume", 127}, Section{"Modulation_Change", 0}, Section{"Pan_Change", 64},
          Section{"Reverb_Change", 0}, Section{"Chorus_Change", 0}}) {
        text += std::string(title) + "\r\n";
        for (int track = 0; track < tracks; ++track) text += line(value, length + 1);
    }
    return text;
}

void PerformanceSaving::WritePerformance(const std::string& path) {
    auto& keyboard = studio_.keyboard;
    writeFileWhole(path, scoreText());
    keyboard.PerformanceLength = 0;
    for (TextList* list : {&keyboard.List1, &keyboard.List3, &keyboard.List4, &keyboard.List5}) list->clear();
}

void PerformanceSaving::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("frmsynth", "CmdRecord_Click", this, &PerformanceSaving::CmdRecord_Click);
    operations.add("frmsynth", "Command11_Click", this, &PerformanceSaving::Command11_Click);
    operations.add("frmsynth", "Command4_Click", this, &PerformanceSaving::Command4_Click);
    operations.add("frmsynth", "Command10_Click", this, &PerformanceSaving::Command10_Click);
    operations.add("frmsynth", "WritePerformance", this, &PerformanceSaving::WritePerformance);
}

}  // namespace melvane
