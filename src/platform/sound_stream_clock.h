#pragma once
#include <cstddef>
#include <cstdint>

namespace melvane {

/// Tells at which moment of the clock each block of an output's stream begins. Outputs ask for blocks in
/// bursts; the stream itself runs evenly. So the moments advance by the frames alone, and lean slowly towards
/// the time at which blocks are asked for. A lasting jump (the output lost some time) is followed. One
/// thread.
class StreamClock {
 public:
    /// `frequency`: counter ticks a second.
    explicit StreamClock(std::int64_t frequency) : ticksPerFrame_(ticksIn(frequency)) {}

    /// `now`: counter at which the next `frames` frames are asked for. Returns the counter of the first of
    /// them.
    std::int64_t next(std::int64_t now, std::size_t frames);

 private:
    static double ticksIn(std::int64_t frequency);
    void startAnew(std::int64_t now);

    double ticksPerFrame_;
    std::int64_t origin_ = 0;   ///< counter
    double expected_ = 0.0;     ///< ticks after origin_
    std::uint64_t blocks_ = 0;  ///< since the last start
    unsigned astray_ = 0;       ///< blocks in a row that came far from where they were expected
};

}  // namespace melvane
