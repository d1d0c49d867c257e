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
            return {0, std::to_string(toUnits(sound_->length()))};
        case MediaVerb::position:
            return {0, std::to_string(toUnits(sound_->position()))};
        default:
            return answerOf(MediaError::wrongKind);
    }
}

/// A begun frame counts as one of the length, so that only the end of the sound is the end in frames.
std::int64_t MediaPlayer::toUnits(std::int64_t soundFrames) const {
    if (!inFrames_) return soundFrames * 1000 / soundRate;
    const bool isEnd = soundFrames == sound_->length();
    return (soundFrames * framesASecond + (isEnd ? soundRate - 1 : 0)) / soundRate;
}

/// The first frame of the sound at that moment, so that its position is that moment; at most two seconds
/// behind the end.
std::int64_t MediaPlayer::soundFrame(std::int64_t units) const {
    const std::int64_t unitsASecond = inFrames_ ? framesASecond : 1000;
    const std::int64_t most = (sound_->length() / soundRate + 2) * unitsASecond;
    return (std::min(units, most) * soundRate + unitsASecond - 1) / unitsASecond;
}

/// The length as it is told may lie before the end by a part of a unit, and means the end.
std::int64_t MediaPlayer::endFrame(std::int64_t units) const {
    const std::int64_t length = sound_->length();
    return units >= toUnits(length) ? length : std::min(soundFrame(units), length);
}

MediaDevice::Answer MediaPlayer::play(const MediaCommand& command) {
    if (command.from.value_or(0) < 0 || command.to.value_or(0) < 0) return answerOf(MediaError::outOfRange);
    const std::int64_t length = sound_->length();
    const std::int64_t from = command.from ? soundFrame(*command.from) : sound_->position();
    const std::int64_t to = command.to ? endFrame(*command.to) : length;
    const bool isInside = from <= length && from <= to;
    return isInside ? start(from, to) : answerOf(MediaError::outOfRange);
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
