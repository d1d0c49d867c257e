#include "recorder/audio_player.h"

#include <cmath>

#include "core/names.h"
#include "recorder/mp3_header.h"
#include "recorder/recording_buttons.h"

namespace melvane {

namespace {

constexpr const char* alias = MciCommands::player;

std::int64_t wholeNumberOf(const std::string& text) {
    return narrowed<std::int64_t>(std::trunc(leadingNumber(text))).value_or(0);
}

}  // namespace

// Opening

std::string AudioPlayer::open(const std::string& file, const std::string& name) {
    return parts_.mci.MciOpenMedia(pictureWindow ? pictureWindow() : 0, name, file, MciCommands::playerType);
}

void AudioPlayer::OpenMP3(const std::string& file, const std::string& name) {
    const bool opened = open(file, name) == MciCommands::success;
    if (opened) {
        showHeader(file);
        auto& recorder = studio_.recorder;
        recorder.MediaFrameRate = std::to_string(parts_.mci.MciFrameRate(name));
        recorder.MediaFrames = std::to_string(parts_.mci.MciFrames(name));
        recorder.MediaSeconds = std::to_string(parts_.mci.MciMilliseconds(name) / 1000);
        recorder.OpenMediaFile = file;
    }
    parts_.log.showAndAdd(opened ? "File Opened" : "Error: Can't open this file. Try another file.");
}

void AudioPlayer::OpenMpegFile(const std::string& file) { open(file, alias); }

void AudioPlayer::showHeader(const std::string& file) {
    const auto bytes = firstBytes(file);
    const Mp3Header header = bytes ? readMp3Header(*bytes) : Mp3Header{};
    auto& Record = studio_.Record;
    Record.lblKhz.set(header.kilohertz);
    Record.lblbitrate.set(header.kilobits);
    Record.lblmode.set(header.mode);
}

// Playing

void AudioPlayer::PlayMP3() {
    auto& Record = studio_.Record;
    Record.Status.set({});
    const std::string result = parts_.mci.MciPlay(alias, "0", "0");
    if (result != MciCommands::success) {
        parts_.log.showAndAdd(result);
        return;
    }
    studio_.recorder.PlayerStopped = false;
    Record.Picture5.setVisible(true);
    studio_.recorder.StopRequested = false;
    parts_.log.add("Started playing file");
    while (step()) waitHalfASecond();
}

bool AudioPlayer::step() {
    if (parts_.loop.ended()) return false;
    if (isAtEnd()) {
        showEnd();
        return false;
    }
    if (studio_.recorder.StopRequested) {
        parts_.log.show("Cancelled");
        return false;
    }
    const std::int64_t position = parts_.mci.MciPosition(alias);
    if (position >= 0) {
        showPosition(position);
        return true;
    }
    studio_.Record.Status.set({});
    parts_.log.add("Finished playing file");
    return false;
}

/// A length that was not known is asked for again.
bool AudioPlayer::isAtEnd() {
    auto& frames = studio_.recorder.MediaFrames;
    std::int64_t length = wholeNumberOf(frames);
    const bool asks = length == 0;
    const bool atEnd = parts_.mci.MciIsAtEnd(alias, length);
    if (asks) frames = std::to_string(length);
    return atEnd;
}

void AudioPlayer::showEnd() {
    auto& Record = studio_.Record;
    Record.L2.setWidth(Record.P2.width());
    Record.Status.set({});
    StopMP3();
    CloseMP3();
}

void AudioPlayer::showPosition(std::int64_t position) {
    auto& recorder = studio_.recorder;
    auto& Record = studio_.Record;
    recorder.MediaPosition = std::to_string(position);
    const auto frames = static_cast<double>(wholeNumberOf(recorder.MediaFrames));
    if (frames > 0) {
        const auto reached = static_cast<double>(position);
        Record.Status.set(percentText(reached, frames));
        Record.L2.setWidth(static_cast<int>(std::min(reached / frames, 1.0) * Record.P2.width()));
    }
    const std::int64_t rate = wholeNumberOf(recorder.MediaFrameRate);
    if (rate <= 0) return;
    const std::int64_t seconds = position / rate;
    recorder.MediaTimeSeconds = std::to_string(seconds);
    Record.lblTime.set(minutesText(seconds));
}

void AudioPlayer::refresh() {
    const std::int64_t position = parts_.mci.MciPosition(alias);
    if (position < 0)
        studio_.Record.Status.set({});
    else
        showPosition(position);
    if (isAtEnd()) waitHalfASecond();
}

void AudioPlayer::waitHalfASecond() {
    parts_.loop.waitUntil(parts_.clock.counter() + parts_.clock.frequency() / 2);
}

// Pausing and stopping

void AudioPlayer::PauseMP3() {
    parts_.log.show(parts_.mci.MciPause(alias) == MciCommands::success ? "Paused" : "Playing");
}

void AudioPlayer::ResumeMP3() {
    if (parts_.mci.MciResume(alias) == MciCommands::success) parts_.log.show("Playing");
}

void AudioPlayer::togglePause() {
    auto& paused = studio_.player.PauseRequested;
    if (!paused) {
        PauseMP3();
        paused = true;
        return;
    }
    ResumeMP3();
    paused = false;
    studio_.Record.Picture5.setVisible(true);
}

void AudioPlayer::StopMP3() {
    auto& Record = studio_.Record;
    for (TextControl* const text :
         {&Record.Status, &Record.lblbitrate, &Record.lblKhz, &Record.lblmode, &Record.lblTime})
        text->set({});
    studio_.recorder.PlayerStopped = true;
    const bool stopped = parts_.mci.MciStop(alias) == MciCommands::success;
    parts_.log.showAndAdd(stopped ? "Music Stopped" : "Music File was previously stopped.");
}

void AudioPlayer::CloseMP3() {
    const bool closed = parts_.mci.MciClose(alias) == MciCommands::success;
    parts_.log.showAndAdd(closed ? "Music File closed." : "Music File was previously closed.");
    enableUnlessRecording(studio_);
}

void AudioPlayer::PlayNext() {
    StopMP3();
    CloseMP3();
}

void AudioPlayer::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("Record", "OpenMP3", this, &AudioPlayer::OpenMP3);
    operations.add("Record", "OpenMpegFile", this, &AudioPlayer::OpenMpegFile);
    operations.add("Record", "PlayMP3", this, &AudioPlayer::PlayMP3);
    operations.add("Record", "PauseMP3", this, &AudioPlayer::PauseMP3);
    operations.add("Record", "ResumeMP3", this, &AudioPlayer::ResumeMP3);
    operations.add("Record", "StopMP3", this, &AudioPlayer::StopMP3);
    operations.add("Record", "CloseMP3", this, &AudioPlayer::CloseMP3);
    operations.add("Record", "PlayNext", this, &AudioPlayer::PlayNext);
    operations.add("Record", "convertTime", &convertTime);
}

}  // namespace melvane
