#include "platform/media_player.h"

#include <algorithm>

#include "platform/media_error.h"
#include "platform/sound_source.h"

namespace melvane {

MediaDevice::Answer MediaPlayer::act(const MediaCommand& command) {
    switch (command.verb) {
        case MediaVerb::play:
            return play(command);
        case MediaVerb::pause:
            if (state_ == State::playing) halt(State::paused);
            return {};
        case MediaVerb::resume:
            return resume();
        case MediaVerb::stop:
            halt(State::stopped);
            return {};
        case MediaVerb::setTimeFormat:
            inFrames_ = command.inFrames;
            return {};
        case MediaVerb::length:
            return inUnits(sound_->length());
        case MediaVerb::position:
            return inUnits(sound_->position());
        default:
            return answerOf(MediaError::wrongKind);
    }
}

/// A begun frame counts as one of the length, so that only the end of the sound is the end in frames.
MediaDevice::Answer MediaPlayer::inUnits(std::int64_t soundFrames) const {
    if (!inFrames_) return {0, std::to_string(soundFrames * 1000 / soundRate)};
    const bool isEnd = soundFrames == sound_->length();
    return {0, std::to_string((soundFrames * framesASecond + (isEnd ? soundRate - 1 : 0)) / soundRate)};
}

/// The frame of the sound at that moment; at most two seconds behind its end.
std::int64_t MediaPlayer::soundFrame(std::int64_t units) const {
    const std::int64_t unitsASecond = inFrames_ ? framesASecond : 1000;
    const std::int64_t most = (sound_->length() / soundRate + 2) * unitsASecond;
    return std::min(units, most) * soundRate / unitsASecond;
}

MediaDevice::Answer MediaPlayer::play(const MediaCommand& command) {
    const std::int64_t length = sound_->length();
    const std::int64_t from = command.from ? soundFrame(*command.from) : sound_->position();
    const std::int64_t to = command.to ? std::min(soundFrame(*command.to), length) : length;
    const bool isInside = from <= length && from <= to;
    const bool isNegative = command.from.value_or(0) < 0 || command.to.value_or(0) < 0;
    return isInside && !isNegative ? start(from, to) : answerOf(MediaError::outOfRange);
}

MediaDevice::Answer MediaPlayer::start(std::int64_t from, std::int64_t to) {
    halt(State::stopped);
    if (!sound_->start(from, to)) return answerOf(MediaError::inUse);
    end_ = to;
    state_ = State::playing;
    return {};
}

MediaDevice::Answer MediaPlayer::resume() {
    return state_ == State::paused ? start(sound_->position(), end_) : Answer{};
}

void MediaPlayer::halt(State state) {
    if (state_ == State::playing) sound_->halt();
    state_ = state;
}

}  // namespace melvane
