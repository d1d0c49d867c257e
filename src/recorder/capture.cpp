#include "recorder/capture.h"

#include <filesystem>

#include "core/names.h"
#include "platform/files.h"
#include "recorder/capture_formats.h"
#include "recorder/recorder_paths.h"

namespace melvane {

void Capture::StartTrackRecording() {
    studio_.recorder.StopRequested = false;
    parts_.panic.Command32_Click();
    toBeSaved_ = true;
    const CaptureFormat format = captureFormat(studio_.Record.cbxFormat.text());
    if (const auto opened = parts_.mci.CaptureOpen(); opened.code != 0) {
        addReason(opened);
        parts_.dialogs.messageBox(BoxKind::critical, "Melvane", "Error opening waveaudio");
    }
    if (const auto set = parts_.mci.CaptureSet(format); set.code != 0) {
        addReason(set);
        parts_.log.show("Error setting recording paramaters");
        CloseCap();
        return;
    }
    parts_.mci.CaptureRecord();
}

/// What the device says of a failure stands in the log alone.
void Capture::addReason(const MciCommands::Answer& answer) {
    if (answer.code != 0 && !answer.text.empty()) parts_.log.add(answer.text);
}

void Capture::CloseCap() {
    const bool closed = parts_.mci.CaptureCloseOld() == MciCommands::success;
    parts_.log.show(closed ? "Closed" : "Error: Can't close recording device. Try restarting Melvane");
}

void Capture::stop() {
    const auto stopped = parts_.mci.CaptureStop();
    parts_.log.showAndAdd(stopped.code == 0 ? "Recording Stopped!" : "Stopping recording failed!");
    addReason(stopped);
}

void Capture::saveCheck() {
    const bool can = parts_.mci.CaptureCanSave().starts_with("true");
    parts_.log.showAndAdd(can ? "File Can be saved" : "File Cannot be saved");
    Recordcontrol2();
    parts_.mci.MciCloseAll();
    toBeSaved_ = false;
}

void Capture::Recordcontrol2() {
    save();
    discard();
    studio_.Record.Label8.set({});
}

/// A stop without a capture leaves the file that the last one made. A folder that was removed meanwhile is
/// made anew, so that the recording is not lost.
void Capture::save() {
    auto& Record = studio_.Record;
    const std::string& path = Record.InputPath.text();
    if (toBeSaved_ && !path.empty() && fileExists(path)) removeFile(path);
    std::error_code failed;
    const auto folder = std::filesystem::path(path).parent_path();
    if (toBeSaved_ && !folder.empty()) std::filesystem::create_directories(folder, failed);
    if (const auto saved = parts_.mci.CaptureSaveTo(path); saved.code != 0) {
        parts_.log.showAndAdd("File was NOT saved");
        addReason(saved);
        return;
    }
    Record.Text6.set(path);
    parts_.log.showAndAdd("File was saved as " + path);
}

void Capture::discard() {
    const auto deleted = parts_.mci.CaptureDelete();
    parts_.log.showAndAdd(
        (deleted.code == 0 ? "Recording buffer Deleted! " : "Deleting Recording buffer failed!") +
        deleted.text);
    const auto closed = parts_.mci.CaptureClose();
    parts_.log.showAndAdd(closed.code == 0 ? "Recording Closed " : "Closing Recording  failed! ");
}

void Capture::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("Record", "StartTrackRecording", this, &Capture::StartTrackRecording);
    operations.add("Record", "CloseCap", this, &Capture::CloseCap);
    operations.add("Record", "Recordcontrol2", this, &Capture::Recordcontrol2);
}

}  // namespace melvane
