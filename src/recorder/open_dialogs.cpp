#include "recorder/open_dialogs.h"

#include "core/names.h"
#include "platform/text.h"
#include "recorder/recording_buttons.h"

namespace melvane {

/// A capture that is not saved yet is not closed with the rest: it would be lost.
void OpenDialogs::closeOthers() {
    if (!parts_.capture.isToBeSaved()) parts_.mci.MciCloseAll();
}

/// False when there is nothing new in Text6.
bool OpenDialogs::choose(const char* title, const char* filter) {
    parts_.mci.MciClose(MciCommands::player);
    closeOthers();
    auto& recorder = studio_.recorder;
    recorder.AudioFolder = recorder.SongsDir;
    const auto choice = parts_.dialogs.openFile({title, filter, recorder.AudioFolder, {}});
    const std::string path = answeredPath(choice.path);
    if (path.empty()) return false;
    studio_.Record.Text6.set(shortPath(path));
    return true;
}

bool OpenDialogs::openFile() {
    constexpr const char* filter = "Midi, score, wav, mp3(*.sng;*.mid;*.wav;*mp3)|*.sng;*.mid;*.wav;*mp3";
    if (!choose("Open File", filter)) return false;
    auto& Record = studio_.Record;
    const bool isScore = endsWithNoCase(Record.Text6.text(), "sng");
    chooseSource(Record, isScore ? Record.Optsourcesng : Record.Optsourcemid);
    if (!isScore) return true;
    parts_.files.OpenPoliFile(Record.Text6.text());
    parts_.output.CloseMidi();
    return true;
}

void OpenDialogs::openMidiFile() {
    if (choose("Open MIDI File", "Midi(*.mid)|*.mid"))
        chooseSource(studio_.Record, studio_.Record.Optsourcemid);
}

void OpenDialogs::C4_Click() {
    if (!openFile()) return;
    auto& Record = studio_.Record;
    const std::string& path = Record.Text6.text();
    if (endsWithNoCase(path, "sng")) {
        parts_.files.OpenFile(path);
        chooseSource(Record, Record.Optsourcesng);
    } else if (endsWithNoCase(path, "mid")) {
        chooseSource(Record, Record.Optsourcemid);
    }
}

void OpenDialogs::listNames(NameTables& tables) {
    tables.operations.add("Record", "C4_Click", this, &OpenDialogs::C4_Click);
}

}  // namespace melvane
