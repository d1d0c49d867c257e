#include "platform/media_capture.h"

#include <utility>

#include "platform/media_error.h"

namespace melvane {

MediaCapture::MediaCapture(const CaptureSources& sources, std::uint64_t mostBytes)
    : sources_(sources), writer_(mostBytes) {}

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
    inputTap_ = std::make_shared<CaptureTap>();
    inputTap_->setRing(&writer_.ring());
    input_ = openInputInTime(sources_.openInput, inputTap_, sources_.inputPatience);
    if (input_) return {};
    inputTap_->setRing(nullptr);
    writer_.forgetUnwritten();
    return answerOf(MediaError::noInput);
}

void MediaCapture::closeSource() {
    if (!input_) {
        sources_.mix.setRing(nullptr);
        return;
    }
    inputTap_->setRing(nullptr);
    closeInput(sources_.inputPatience);
}

void MediaCapture::closeInput(std::chrono::milliseconds patience) {
    inputWasLost_ = inputWasLost_ || input_->isLost();
    closeInputInTime(std::move(input_), patience);
    input_.reset();
}

void MediaCapture::expectFile() {
    turnsToMix_ = isRecording_ && input_ && sources_.mix.isFree();
    if (!turnsToMix_) return;
    inputTap_->setRing(nullptr);
    sources_.mix.setRing(&writer_.ring());
}

void MediaCapture::noteFile(bool plays) {
    if (!std::exchange(turnsToMix_, false)) return;
    if (plays) {
        closeInput(std::chrono::milliseconds(0));
        return;
    }
    sources_.mix.setRing(nullptr);
    inputTap_->setRing(&writer_.ring());
}

MediaDevice::Answer MediaCapture::stop() {
    if (!std::exchange(isRecording_, false)) return recordFailure_;
    closeSource();
    writer_.finish();
    const Answer faults = writer_.faults();
    return faults.code == 0 && inputWasLost_ ? answerOf(MediaError::inputLost) : faults;
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
    inputWasLost_ = false;
    recordFailure_ = {};
    return {};
}

/// In milliseconds.
MediaDevice::Answer MediaCapture::length() const {
    return {0, std::to_string(writer_.frames() * 1000 / static_cast<unsigned>(writer_.format().rate))};
}

}  // namespace melvane
