#include "platform/media_player.h"

#include <algorithm>
#include <utility>

#include "platform/media_error.h"
#include "platform/sound_source.h"

namespace melvane {

MediaPlayer::MediaPlayer(MediaReading reading, MakeSound makeSound)
    : reading_(std::move(reading)), makeSound_(std::move(makeSound)) {
    settle();
}

MediaDevice::Answer MediaPlayer::act(const MediaCommand& command) {
    settle();
    if (isDamaged_) return answerOf(MediaError::damagedFile);
    return sound_ ? actRead(command) : actUnread(command);
}

void MediaPlayer::catchUp() {
    settle();
    if (sound_) sound_->catchUp();
}

// A file that is being read

void MediaPlayer::settle() {
    if (!reading_ || !reading_->isOver()) return;
    MediaContent content = reading_->take();
    reading_.reset();
    isDamaged_ = content.isEmpty();
    if (isDamaged_) {
        state_ = State::stopped;
        return;
    }
    sound_ = makeSound_(std::move(content));
    beginWhatWaits();
}

void MediaPlayer::beginWhatWaits() {
    const State wanted = std::exchange(state_, State::stopped);
    const auto waiting = std::exchange(waiting_, std::nullopt);
    if (wanted == State::stopped || !waiting) return;
    const bool unit = std::exchange(inFrames_, waitsInFrames_);
    lateFailure_ = play(*waiting);
    inFrames_ = unit;
    if (wanted == State::paused && lateFailure_.code == 0) halt(State::paused);
}

MediaDevice::Answer MediaPlayer::actUnread(const MediaCommand& command) {
    switch (command.verb) {
        case MediaVerb::play:
            if (command.from.value_or(0) < 0 || command.to.value_or(0) < 0) {
                return answerOf(MediaError::outOfRange);
            }
            waiting_ = command;
            waitsInFrames_ = inFrames_;
            state_ = State::playing;
            return {};
        case MediaVerb::pause:
            if (state_ == State::playing) state_ = State::paused;
            return {};
        case MediaVerb::resume:
            if (state_ == State::paused) state_ = State::playing;
            return {};
        case MediaVerb::stop:
            state_ = State::stopped;
            return {};
        case MediaVerb::setTimeFormat:
            inFrames_ = command.inFrames;
            return {};
        case MediaVerb::length:
            if (!guessed_) guessed_ = reading_->guessedLength();
            return {0, std::to_string(toUnits(*guessed_))};
        case MediaVerb::position:
            return {0, "0"};
        default:
            return answerOf(MediaError::wrongKind);
    }
}

// A file that has been read

MediaDevice::Answer MediaPlayer::actRead(const MediaCommand& command) {
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
            return {0, std::to_string(toUnits(length()))};
        case MediaVerb::position:
            if (lateFailure_.code != 0) return std::exchange(lateFailure_, {});
            return {0, std::to_string(toUnits(position()))};
        default:
            return answerOf(MediaError::wrongKind);
    }
}

std::int64_t MediaPlayer::length() const {
    if (guessed_) return *guessed_;
    return sound_->length();
}

/// Behind a length that was guessed the last frame before it is told until the end has come.
std::int64_t MediaPlayer::position() const {
    const std::int64_t heard = sound_->position();
    if (!guessed_) return heard;
    if (heard >= sound_->length()) return *guessed_;
    return std::clamp<std::int64_t>(*guessed_ - soundRate / framesASecond, 0, heard);
}

/// A begun frame counts as one of the length, so that only the end of the sound is the end in frames.
std::int64_t MediaPlayer::toUnits(std::int64_t soundFrames) const {
    if (!inFrames_) return soundFrames * 1000 / soundRate;
    const bool isEnd = soundFrames == (sound_ ? length() : *guessed_);
    return (soundFrames * framesASecond + (isEnd ? soundRate - 1 : 0)) / soundRate;
}

/// The first frame of the sound at that moment, so that its position is that moment; at most two seconds
/// behind the end.
std::int64_t MediaPlayer::soundFrame(std::int64_t units) const {
    const std::int64_t unitsASecond = inFrames_ ? framesASecond : 1000;
    const std::int64_t most = (length() / soundRate + 2) * unitsASecond;
    return (std::min(units, most) * soundRate + unitsASecond - 1) / unitsASecond;
}

/// The length as it is told may lie before the end by a part of a unit, and means the end.
std::int64_t MediaPlayer::endFrame(std::int64_t units) const {
    const std::int64_t end = sound_->length();
    return units >= toUnits(length()) ? end : std::min(soundFrame(units), end);
}

MediaDevice::Answer MediaPlayer::play(const MediaCommand& command) {
    if (command.from.value_or(0) < 0 || command.to.value_or(0) < 0) return answerOf(MediaError::outOfRange);
    const std::int64_t from = command.from ? soundFrame(*command.from) : sound_->position();
    const std::int64_t end = sound_->length();
    const std::int64_t to = command.to ? endFrame(*command.to) : end;
    const bool isInside = from <= length() && std::min(from, end) <= to;
    return isInside ? start(std::min(from, end), to) : answerOf(MediaError::outOfRange);
}

MediaDevice::Answer MediaPlayer::start(std::int64_t from, std::int64_t to) {
    lateFailure_ = {};
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
