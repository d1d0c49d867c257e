#include "files/score_files.h"

#include <filesystem>

#include "core/names.h"
#include "files/sng_writer.h"
#include "platform/files.h"
#include "platform/text.h"

namespace melvane {

namespace {

constexpr int midiFilter = 1;
constexpr Int16 sampleInstrument = 24;

/// The file that a kept path means, which may be in lower case: file and folder are found without regard to
/// case.
std::string keptPath(const std::string& path) {
    std::string found = findNoCase(path);
    if (fileExists(found)) return found;
    const std::filesystem::path whole(path);
    if (!whole.has_parent_path()) return path;
    return (std::filesystem::path(findNoCase(whole.parent_path().string())) / whole.filename()).string();
}

}  // namespace

void ScoreFiles::mSaveAs_Click() {
    const auto choice = dialogs_.saveFile(
        {"Save music file", "Midi(*.mid)|*.mid|score(*.sng)|*.sng", directories_.songs().string(), {}});
    if (choice.path.empty()) return;
    auto& name = studio_.score.SaveFileName;
    name = answeredPath(choice.path);
    if (choice.filterIndex != midiFilter) {
        name = withEnding(name, ".sng");
        SaveSongFile();
        return;
    }
    name = withEnding(name, ".mid");
    if (MidiFile) MidiFile();
}

void ScoreFiles::Command33_Click() {
    const auto choice = dialogs_.openFile(
        {"Open Score File", "Score Files (*.sng) |*.sng|", directories_.songs().string(), {}});
    if (choice.path.empty()) return;
    auto& score = studio_.score;
    score.SaveFileName = lowerCase(trimmed(choice.path));
    // The kept path is lower case whatever the file's name is.
    const std::string found = findNoCase(trimmed(choice.path));
    if (score.SaveFileName.empty() || !files_.FileExists(found)) return;
    score.ScoreFileName = score.SaveFileName;
    OpenPoliFile(found);
}

void ScoreFiles::SaveSongFile() {
    const std::string path = keptPath(studio_.score.SaveFileName);
    const bool replaces = files_.FileExists(path);
    write(path, writeSng(studio_));
    if (replaces) files_.waitForFileSystem();
    studio_.score.MaxUsedColumn = 0;
}

void ScoreFiles::SaveSongFileShort() { write(keptPath(studio_.score.SaveFileName), writeSngShort(studio_)); }

void ScoreFiles::SaveTempSong() {
    const auto path = (directories_.program / "temp.sng").string();
    const bool replaces = files_.FileExists(path);
    write(path, writeSngShort(studio_));
    if (replaces) files_.waitForFileSystem();
}

void ScoreFiles::write(const std::string& path, const std::string& text) {
    if (const auto failure = writeFileWhole(path, text)) {
        dialogs_.messageBox(BoxKind::exclamation, "Melvane", "The score was not saved. " + *failure);
    }
}

bool ScoreFiles::read(const std::string& path, const SngManner& manner) {
    score_.ClearNoteArrays();
    const auto text = readFile(findNoCase(path));
    if (!text) {
        studio_.form1.StatusText.set("The score could not be read: " + path);
        return false;
    }
    readSng(*text, studio_, manner);
    studio_.form1.StatusText.set({});
    return true;
}

void ScoreFiles::OpenPoliFile(const std::string& path) {
    read(path, openPoliFile);
    showTempo();
    showFromStart();
}

void ScoreFiles::OpenFile(const std::string& path) {
    if (read(path, openFile)) studio_.instruments.MelodyInstrument = sampleInstrument;
    showTempo();
    showFromStart();
}

void ScoreFiles::OpenSegment(const std::string& path) {
    read(path, openSegment);
    showFromStart();
}

void ScoreFiles::showTempo() {
    studio_.shell.Busy = true;
    studio_.Form3.TempoLabel.set(std::to_string(studio_.score.Tempo));
    studio_.shell.Busy = false;
}

void ScoreFiles::showFromStart() {
    auto& page = studio_.page;
    page.FirstColumn = 0;
    page.LastColumn = page.PageColumns;
    studio_.selection.InsertPosition = 0;
    page_.followPage();
    surfaces_.DrawNoteArray();
    surfaces_.DrawBeatArray();
}

void ScoreFiles::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("form1", "mSaveAs_Click", this, &ScoreFiles::mSaveAs_Click);
    operations.add("form1", "Command34_Click", this, &ScoreFiles::Command34_Click);
    operations.add("form1", "Command33_Click", this, &ScoreFiles::Command33_Click);
    operations.add("form1", "SaveSongFile", this, &ScoreFiles::SaveSongFile);
    operations.add("form1", "SaveSongFileShort", this, &ScoreFiles::SaveSongFileShort);
    operations.add("form1", "SaveTempSong", this, &ScoreFiles::SaveTempSong);
    operations.add("form1", "OpenPoliFile", this, &ScoreFiles::OpenPoliFile);
    operations.add("form1", "OpenFile", this, &ScoreFiles::OpenFile);
    operations.add("form1", "OpenSegment", this, &ScoreFiles::OpenSegment);
}

}  // namespace melvane
