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
            if (command.path.empty()) return answerOf(MediaError::noFile);
            return writer_.save(command.path);
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
    const bool fromInput = sources_.soundsElsewhere();
    if (!fromInput && !sources_.mix.isFree()) return answerOf(MediaError::inUse);
    writer_.start();
    if (!fromInput) {
        sources_.mix.setRing(&writer_.ring());
    } else if (!openInput()) {
        return answerOf(MediaError::noInput);
    }
    isRecording_ = true;
    return {};
}

bool MediaCapture::openInput() {
    inputTap_->setRing(&writer_.ring());
    input_ = openInputInTime(sources_.openInput, inputTap_, sources_.inputPatience);
    if (!input_) inputTap_->setRing(nullptr);
    return input_ != nullptr;
}

void MediaCapture::closeSource() {
    if (!input_) {
        sources_.mix.setRing(nullptr);
        return;
    }
    inputTap_->setRing(nullptr);
    inputWasLost_ = inputWasLost_ || input_->isLost();
    closeInputInTime(std::move(input_), sources_.inputPatience);
    input_.reset();
}

void MediaCapture::noteFilePlays() {
    if (!isRecording_ || !input_ || !sources_.mix.isFree()) return;
    closeSource();
    sources_.mix.setRing(&writer_.ring());
}

MediaDevice::Answer MediaCapture::stop() {
    if (!std::exchange(isRecording_, false)) return {};
    closeSource();
    writer_.finish();
    const Answer faults = writer_.faults();
    return faults.code == 0 && inputWasLost_ ? answerOf(MediaError::inputLost) : faults;
}

MediaDevice::Answer MediaCapture::erase() {
    writer_.clear();
    inputWasLost_ = false;
    return {};
}

/// In milliseconds.
MediaDevice::Answer MediaCapture::length() const {
    return {0, std::to_string(writer_.frames() * 1000 / static_cast<unsigned>(writer_.format().rate))};
}

}  // namespace melvane
