#include "platform/media_sound_file_player.h"

#include <algorithm>
#include <array>

namespace melvane {

namespace {

// Read before the sound begins; the rest comes while it sounds.
constexpr std::size_t headStartFrames = soundRate / 4;

}  // namespace

SoundFilePlayer::SoundFilePlayer(std::unique_ptr<AudioReader> reader, SoundVoices& voices, const Clock& clock,
                                 double delaySeconds)
    : reader_(std::move(reader)),
      voices_(voices),
      position_(clock, delaySeconds),
      ticksPerFrame_(static_cast<double>(clock.frequency()) / soundRate) {}

bool SoundFilePlayer::start(std::int64_t from, std::int64_t to) {
    worker_.between([&] {
        reader_->seek(from);
        read_.clear();
        readUsed_ = 0;
        unread_ = to - from;
        isRead_ = false;
        ring_.clear();
        readAhead(headStartFrames);
    });
    to_ = to;
    position_.startAt(from);
    if (!voices_.add(*this)) return false;
    worker_.start();
    return true;
}

void SoundFilePlayer::halt() {
    voices_.remove(*this);
    worker_.stop();
    position_.startAt(position_.rendered());
}

void SoundFilePlayer::readAhead() { readAhead(ringFrames); }

void SoundFilePlayer::readAhead(std::size_t frames) {
    const std::size_t enough = ring_.room() - std::min(ring_.room(), frames * soundChannels);
    while (!isRead_ && ring_.room() > enough) {
        if (readUsed_ == read_.size()) {
            read_.clear();
            readUsed_ = 0;
            const bool goesOn = reader_->read(read_);
            if (read_.empty() && !goesOn) unread_ = 0;
        }
        const auto wanted = static_cast<std::size_t>(unread_) * soundChannels;
        const auto left = std::span<const float>(read_).subspan(readUsed_);
        const std::size_t taken = ring_.push(left.first(std::min(left.size(), wanted)));
        readUsed_ += taken;
        unread_ -= static_cast<std::int64_t>(taken / soundChannels);
        if (unread_ == 0) isRead_ = true;
    }
}

void SoundFilePlayer::mix(std::span<float> interleaved, std::int64_t moment) noexcept {
    std::array<float, mixFrames * soundChannels> sound;  // NOLINT: filled as far as it is used
    std::size_t done = 0;
    const bool wasRead = isRead_;
    while (done < interleaved.size()) {
        const auto rest = interleaved.subspan(done);
        const std::size_t count = ring_.pop(std::span(sound).first(std::min(rest.size(), sound.size())));
        if (count == 0) break;
        for (std::size_t at = 0; at < count; ++at) rest[at] += sound[at];
        done += count;
    }
    const std::size_t frames = done / soundChannels;
    if (frames == 0 && !wasRead) return;
    const std::int64_t now = position_.rendered() + static_cast<std::int64_t>(frames);
    const bool isEnd = wasRead && done < interleaved.size();
    // At the end nothing follows, so the moment stays that of the last sound.
    if (isEnd && position_.rendered() == to_) return;
    position_.publish(isEnd ? to_ : now, moment + std::llround(static_cast<double>(frames) * ticksPerFrame_));
}

}  // namespace melvane
