#include "recorder/recording_run.h"

#include <exception>
#include <filesystem>

#include "core/names.h"
#include "platform/files.h"
#include "platform/text.h"
#include "recorder/recorder_paths.h"
#include "recorder/recording_buttons.h"

namespace melvane {

namespace {

/// True while it lives.
class Raised {
 public:
    explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
    ~Raised() { flag_ = false; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

 private:
    bool& flag_;
};

bool isFolder(const std::string& path) {
    std::error_code failed;
    return std::filesystem::is_directory(path, failed);
}

}  // namespace

RecordingRun::RecordingRun(Studio& studio, Parts parts) : studio_(studio), parts_(parts) {
    studio_.Record.CmdrecordSNG.acted = [this] { CmdrecordSNG_Click(); };
    studio_.Record.CmdStopRecording.acted = [this] { CmdStopRecording_Click(); };
}

void RecordingRun::CmdrecordSNG_Click() {
    if (running_) return;
    saveWhatIsLeft();
    if (!studio_.Record.Optsourcemid.ticked()) return RecordWav();
    parts_.log.show("Recording source is 'File'. Opening File...");
    checkSource();
}

/// A capture that goes on without a run is not lost to the next one.
void RecordingRun::saveWhatIsLeft() {
    if (parts_.capture.isToBeSaved()) CmdStopRecording_Click();
}

/// What is shown may have led to another choice.
void RecordingRun::checkSource() {
    if (!studio_.Record.Optsourcesng.ticked()) return RecordWavFromMid();
    parts_.log.show("Recording source is 'Notes'...");
    CmdrecordSNG_Click();
}

// The run

void RecordingRun::RecordWav() {
    if (running_) return;
    saveWhatIsLeft();
    const Raised raised(running_);
    if (takeSongsFolder()) run();
}

void RecordingRun::RecordWavFromMid() {
    if (running_) return;
    saveWhatIsLeft();
    const Raised raised(running_);
    if (studio_.Record.Optsourcemid.ticked() && !hasMidiFile()) {
        parts_.log.show("You must enter a File Name to start recording");
        return cancel();
    }
    try {
        run();
    } catch (const std::exception&) {
        if (studio_.Record.Optsourcemid.ticked()) {
            parts_.audio.StopMP3();
            parts_.audio.CloseMP3();
        }
        parts_.log.show("An error occurred.");
        cancel();
    }
}

void RecordingRun::cancel() {
    parts_.log.show("Recording Cancelled");
    EnableRecording(studio_.Record);
}

/// The folder is made when it is missing, then found anew beside the program.
bool RecordingRun::takeSongsFolder() {
    auto& folder = studio_.recorder.SongsDir;
    std::error_code failed;
    if (!folder.empty() && !isFolder(folder)) std::filesystem::create_directory(folder, failed);
    folder = shortPath(parts_.directories.songs().string());
    if (isFolder(folder)) return true;
    parts_.log.show("Can't find input directory. Recording Cancelled");
    return false;
}

bool RecordingRun::hasMidiFile() {
    const auto& file = studio_.Record.Text6;
    if (!endsWithNoCase(file.text(), ".mid")) parts_.dialogs.openMidiFile();
    return endsWithNoCase(file.text(), ".mid") && fileExists(file.text());
}

void RecordingRun::run() {
    const std::int32_t closings = studio_.recorder.closings;
    const std::string file = studio_.Record.Text6.text();
    takeName();
    if (closedSince(closings) || parts_.loop.ended()) return;
    begin();
    if (closedSince(closings) || parts_.loop.ended()) return;
    const bool isOver = playSource(file);
    if (isOver && !closedSince(closings)) finish();
}

void RecordingRun::takeName() {
    auto& Record = studio_.Record;
    const auto& folder = studio_.recorder.SongsDir;
    const std::string name = names_.next(folder, parts_.clock.counter());
    removeFile(name);
    parts_.log.show("\nRecording to a Temp file: " + name);
    Record.InputPath.set(name);
    Record.Text6.set(name);
    Record.OutPutPath.set(withOtherEnding(name, ".mp3"));
    parts_.loop.runQueue();
    removeFile(name);
}

void RecordingRun::begin() {
    auto& Record = studio_.Record;
    studio_.player.RecordingSong = true;
    studio_.recorder.StopRequested = false;
    Record.Label8.set("Recording");
    parts_.log.show("Recording");
    Record.Status.set({});
    followPosition();
    DisableRecording(Record);
    parts_.capture.StartTrackRecording();
}

void RecordingRun::followPosition() {
    const bool shown = studio_.Record.Check4.ticked();
    studio_.player.ShowPlayingPosition = shown;
    if (studio_.shell.Form2Open) studio_.Form2.chkgraphics.set(shown);
    if (showPlayingPosition) showPlayingPosition();
}

/// False when the capture goes on after it: until the stop is pressed, or until a score that was paused comes
/// to its end.
bool RecordingRun::playSource(const std::string& file) {
    auto& Record = studio_.Record;
    if (Record.Optsourcesng.ticked()) {
        parts_.log.add("Started playing notes");
        parts_.player.PlayAndStop_Click(0);
        if (studio_.player.PauseRequested && parts_.capture.isToBeSaved()) return false;
    } else if (Record.Optsourcemid.ticked()) {
        parts_.audio.OpenMP3(file, MciCommands::player);
        parts_.audio.PlayMP3();
    } else if (Record.Optsourcekeyboard.ticked()) {
        if (showKeyboard) showKeyboard();
        return false;
    }
    return true;
}

void RecordingRun::finish() {
    if (parts_.loop.ended()) return;
    finishCapture();
    studio_.player.Playing = false;
    studio_.recorder.StopRequested = true;
    studio_.Record.Label8.set({});
    if (studio_.Record.Check2.ticked()) parts_.encoding.AutoEncode();
}

/// A source that ended by itself, or never began, has not called the stop; that of a MIDI file is called
/// twice.
void RecordingRun::finishCapture() {
    for (int stops = 0; stops < 2 && parts_.capture.isToBeSaved(); ++stops) CmdStopRecording_Click();
}

bool RecordingRun::closedSince(std::int32_t closings) const { return studio_.recorder.closings != closings; }

// The stop

void RecordingRun::CmdStopRecording_Click() {
    auto& Record = studio_.Record;
    DisableRecording(Record);
    studio_.player.Playing = false;
    studio_.recorder.StopRequested = true;
    studio_.player.RecordingSong = false;
    parts_.capture.stop();
    if (Record.Optsourcemid.ticked() && !studio_.recorder.PlayerStopped) {
        parts_.audio.StopMP3();
        parts_.audio.CloseMP3();
        if (!parts_.capture.isToBeSaved()) return;
        // The run comes for the second stop, which stays in the user's reach meanwhile; without a run nobody
        // comes.
        if (running_) return DisableRecording(Record);
    }
    parts_.capture.saveCheck();
    EnableRecording(Record);
    Record.Label8.set({});
    parts_.log.show("Recording Stopped!");
}

void RecordingRun::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("Record", "CmdrecordSNG_Click", this, &RecordingRun::CmdrecordSNG_Click);
    operations.add("Record", "RecordWav", this, &RecordingRun::RecordWav);
    operations.add("Record", "RecordWavFromMid", this, &RecordingRun::RecordWavFromMid);
    operations.add("Record", "CmdStopRecording_Click", this, &RecordingRun::CmdStopRecording_Click);
}

}  // namespace melvane
