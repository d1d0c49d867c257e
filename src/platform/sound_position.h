#pragma once
#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdint>

#include "platform/clock.h"
#include "platform/sound_source.h"

namespace melvane {

/// Tells which frame of a stretch of sound is heard now, between the blocks in which it is rendered.
class SoundPosition {
 public:
    /// `delaySeconds`: from the moment of a block to its being heard.
    SoundPosition(const Clock& clock, double delaySeconds)
        : clock_(clock),
          delay_(std::llround(delaySeconds * static_cast<double>(clock.frequency()))),
          ticksPerFrame_(static_cast<double>(clock.frequency()) / soundRate) {}

    /// The stretch begins here, and nothing of it is rendered. One thread, together with heard().
    void startAt(std::int64_t frame) {
        start_ = frame;
        publish(frame, clock_.counter());
    }
    /// Rendering thread: the sound before `frame` is rendered, and ends at this moment of the stream.
    void publish(std::int64_t frame, std::int64_t endMoment) {
        turn_.fetch_add(1);
        end_ = frame;
        endMoment_ = endMoment;
        turn_.fetch_add(1);
    }
    /// Never before the start, nor behind what is rendered.
    std::int64_t heard() const {
        std::uint32_t before = 0;
        std::int64_t end = 0, endMoment = 0;
        do {
            before = turn_;
            end = end_;
            endMoment = endMoment_;
        } while (before % 2 != 0 || before != turn_);
        const double still = static_cast<double>(endMoment + delay_ - clock_.counter()) / ticksPerFrame_;
        return std::max(start_, end - std::max<std::int64_t>(0, std::llround(still)));
    }
    /// Where what is rendered ends. Any thread.
    std::int64_t rendered() const { return end_; }

 private:
    const Clock& clock_;
    const std::int64_t delay_;  ///< counter ticks
    const double ticksPerFrame_;
    std::int64_t start_ = 0;
    std::atomic<std::uint32_t> turn_{0};  ///< odd while a pair is being written
    std::atomic<std::int64_t> end_{0};
    std::atomic<std::int64_t> endMoment_{0};
};

}  // namespace melvane
