#include "platform/sound_stream_clock.h"

#include <algorithm>
#include <cmath>

#include "platform/sound_source.h"

namespace melvane {

namespace {

// The first blocks only fill the output's buffer and say nothing about its pace.
constexpr std::uint64_t fillingBlocks = 8;
// How slowly the moments lean towards the asking times, once settled.
constexpr double leanSeconds = 5.0;
// A block this far off is astray; this many in a row mean that the stream has jumped.
constexpr double astraySeconds = 0.060;
constexpr unsigned astrayBlocks = 8;

}  // namespace

double StreamClock::ticksIn(std::int64_t frequency) { return static_cast<double>(frequency) / soundRate; }

void StreamClock::startAnew(std::int64_t now) {
    origin_ = now;
    expected_ = 0.0;
    blocks_ = 0;
    astray_ = 0;
}

std::int64_t StreamClock::next(std::int64_t now, std::size_t frames) {
    if (blocks_ < fillingBlocks) {
        const std::uint64_t blocks = blocks_;
        startAnew(now);
        blocks_ = blocks;
    }
    ++blocks_;

    const double second = ticksPerFrame_ * soundRate;
    const double length = static_cast<double>(frames) * ticksPerFrame_;
    const double error = static_cast<double>(now - origin_) - expected_;
    const bool isAstray = std::abs(error) > astraySeconds * second;
    astray_ = isAstray ? astray_ + 1 : 0;
    if (astray_ >= astrayBlocks) {
        startAnew(now);
        expected_ = length;
        return now;
    }
    if (!isAstray && blocks_ > fillingBlocks) {
        const double settled = static_cast<double>(blocks_ - fillingBlocks + 1);
        expected_ += error * std::max(1.0 / settled, length / (leanSeconds * second));
    }
    const double moment = expected_;
    expected_ += length;
    return origin_ + std::llround(moment);
}

}  // namespace melvane
