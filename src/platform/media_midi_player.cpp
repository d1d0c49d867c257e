#include "platform/media_midi_player.h"

#include <algorithm>

namespace melvane {

MidiPlayer::MidiPlayer(MidiSequence sequence, Synthesizer& synthesizer, const Clock& clock,
                       double delaySeconds)
    : sequence_(std::move(sequence)),
      synthesizer_(synthesizer),
      position_(clock, delaySeconds),
      ticksPerFrame_(static_cast<double>(clock.frequency()) / soundRate) {}

bool MidiPlayer::start(std::int64_t from, std::int64_t to) {
    if (synthesizer_.feed() != nullptr) return false;
    opening_ = {};
    const auto isBefore = [from](const MidiSequence::Event& event) { return event.frame < from; };
    const auto first = std::ranges::partition_point(sequence_.events, isBefore);
    for (auto event = sequence_.events.begin(); event != first; ++event) {
        if (const auto message = decodeShortMessage(event->packed)) opening_.hear(*message);
    }
    next_ = static_cast<std::size_t>(first - sequence_.events.begin());
    block_ = end_ = from;
    to_ = to;
    endedChannels_ = 0;
    position_.startAt(from);
    synthesizer_.setFeed(this);
    return true;
}

void MidiPlayer::halt() {
    if (synthesizer_.feed() == this) synthesizer_.setFeed(nullptr);
    position_.startAt(position_.rendered());
}

void MidiPlayer::beginBlock(std::size_t frames, std::int64_t moment) noexcept {
    playedInBlock_ = 0;
    block_ = end_;
    end_ = std::min(block_ + static_cast<std::int64_t>(frames), to_);
    if (end_ == block_) return;
    const double ticks = static_cast<double>(end_ - block_) * ticksPerFrame_;
    position_.publish(end_, moment + std::llround(ticks));
}

std::optional<MessageFeed::Due> MidiPlayer::next() noexcept {
    if (playedInBlock_ == mostABlock) return std::nullopt;
    if (next_ == sequence_.events.size() || sequence_.events[next_].frame >= end_) return nextBehindEnd();
    ++playedInBlock_;
    const std::int64_t frame = std::max<std::int64_t>(sequence_.events[next_].frame - block_, 0);
    return Due{static_cast<std::size_t>(frame), messageAt(next_++)};
}

/// Behind the last frame of a sequence lie the ends of its last notes; those that it left out are added.
std::optional<MessageFeed::Due> MidiPlayer::nextBehindEnd() noexcept {
    if (block_ < to_) return std::nullopt;
    ++playedInBlock_;
    if (to_ == sequence_.length && next_ < sequence_.events.size()) return Due{0, messageAt(next_++)};
    constexpr int channels = 16;
    if (endedChannels_ == 2 * channels) return std::nullopt;
    const auto channel = static_cast<std::uint8_t>(endedChannels_ % channels);
    const std::uint8_t controller =
        endedChannels_++ < channels ? midi_controller::sustain : midi_controller::allNotesOff;
    return Due{0,
               {.kind = message_kind::controlChange,
                .channel = channel,
                .first = controller,
                .second = 0,
                .length = 3}};
}

ShortMessage MidiPlayer::messageAt(std::size_t event) const noexcept {
    return decodeShortMessage(sequence_.events[event].packed).value_or(ShortMessage{});
}

}  // namespace melvane
