#include "platform/media_capture.h"

#include <utility>

#include "platform/media_error.h"

namespace melvane {

MediaCapture::MediaCapture(const CaptureSources& sources, std::uint64_t mostBytes,
                           std::vector<std::string> folders)
    : sources_(sources), writer_(mostBytes, std::move(folders)) {}

MediaCapture::~MediaCapture() {
    if (isRecording_) closeSource();
}

MediaDevice::Answer MediaCapture::act(const MediaCommand& command) {
    switch (command.verb) {
        case MediaVerb::setWaveFormat:
            return setFormat(command.format);
        case MediaVerb::record:
            return record();
        case MediaVerb::stop:
            return stop();
        case MediaVerb::canSave:
            return {0, "true"};
        case MediaVerb::save:
            return save(command.path);
        case MediaVerb::erase:
            return erase();
        case MediaVerb::length:
        case MediaVerb::position:
            return length();
        default:
            return answerOf(MediaError::wrongKind);
    }
}

MediaDevice::Answer MediaCapture::setFormat(const WaveFormat& format) {
    const bool isFree = !isRecording_ && writer_.frames() == 0;
    if (!isFree || !isRecorded(format)) return answerOf(MediaError::formatRefused);
    writer_.setFormat(format);
    return {};
}

MediaDevice::Answer MediaCapture::record() {
    if (isRecording_) return {};
    recordFailure_ = openSource();
    if (recordFailure_.code != 0) return recordFailure_;
    writer_.start();
    isRecording_ = true;
    return {};
}

MediaDevice::Answer MediaCapture::openSource() {
    if (!sources_.soundsElsewhere()) {
        if (!sources_.mix.isFree()) return answerOf(MediaError::inUse);
        sources_.mix.setRing(&writer_.ring());
        return {};
    }
    input_ = std::make_unique<CaptureInput>(sources_.openInput, sources_.pace);
    if (input_->isOpenInTime()) {
        input_->feed(&writer_.ring());
        return {};
    }
    input_.reset();
    return answerOf(MediaError::noInput);
}

void MediaCapture::closeSource() {
    if (input_) {
        input_->close();
        dropInput();
    }
    sources_.mix.letGo(writer_.ring());
}

/// Its closing is not waited for.
void MediaCapture::dropInput() {
    const auto troubles = input_->troubles();
    troubles_.wasLost = troubles_.wasLost || troubles.wasLost;
    troubles_.neverOpened = troubles_.neverOpened || troubles.neverOpened;
    troubles_.missing += troubles.missing;
    troubles_.overruns += troubles.overruns;
    input_.reset();
}

void MediaCapture::turnToMix() {
    input_->feed(nullptr);
    sources_.mix.setRing(&writer_.ring());
}

void MediaCapture::expectFile() {
    const bool hasMix = sources_.mix.isFree() || sources_.mix.feeds(writer_.ring());
    turnsToMix_ = isRecording_ && input_ && hasMix;
    if (turnsToMix_) turnToMix();
}

void MediaCapture::noteFile(bool plays) {
    if (!std::exchange(turnsToMix_, false)) return;
    if (plays) {
        dropInput();
    } else {
        input_->feed(&writer_.ring(), &sources_.mix);
    }
}

void MediaCapture::noteOutput() {
    if (!isRecording_) return;
    const bool elsewhere = sources_.soundsElsewhere();
    if (elsewhere && !input_) {
        input_ = std::make_unique<CaptureInput>(sources_.openInput, sources_.pace);
        input_->feed(&writer_.ring(), &sources_.mix);
    } else if (!elsewhere && input_) {
        expectFile();
        noteFile(true);
    }
}

MediaDevice::Answer MediaCapture::stop() {
    if (!std::exchange(isRecording_, false)) return recordFailure_;
    closeSource();
    writer_.finish();
    const Answer faults = writer_.faults();
    return faults.code == 0 ? inputFaults() : faults;
}

MediaDevice::Answer MediaCapture::inputFaults() const {
    if (troubles_.wasLost) {
        const double missing = std::chrono::duration<double>(troubles_.missing).count();
        return answerOf(MediaError::inputLost, missingSeconds(missing));
    }
    if (troubles_.neverOpened) return answerOf(MediaError::noInput);
    if (troubles_.overruns > 0) {
        return answerOf(MediaError::inputOverran, "Times: " + std::to_string(troubles_.overruns));
    }
    return {};
}

/// An empty file would pass for the recording that could not be begun.
MediaDevice::Answer MediaCapture::save(const std::string& path) {
    if (path.empty()) return answerOf(MediaError::noFile);
    if (recordFailure_.code != 0 && writer_.frames() == 0) {
        return answerOf(MediaError::notSaved, recordFailure_.text);
    }
    return writer_.save(path);
}

MediaDevice::Answer MediaCapture::erase() {
    writer_.clear();
    troubles_ = {};
    recordFailure_ = {};
    return {};
}

/// In milliseconds.
MediaDevice::Answer MediaCapture::length() const {
    return {0, std::to_string(writer_.frames() * 1000 / static_cast<unsigned>(writer_.format().rate))};
}

}  // namespace melvane
