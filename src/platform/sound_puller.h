#pragma once
#include <cstdint>
#include <vector>

#include "platform/sound_mixer.h"

namespace melvane {

/// Takes the stream in real time when there is no output, and throws it away, so that the taps hear it and
/// time goes on in it: 441 frames each 10 ms, at absolute moments. One thread.
class SoundPuller {
 public:
    static constexpr std::size_t framesAtOnce = 441;
    static constexpr std::int64_t blocksASecond = 100;

    SoundPuller(SoundMixer& mixer, std::int64_t clockFrequency);

    /// Goes on where the rendered sound ends, if that is less than a second before `now`.
    void start(std::int64_t now);
    void stop() { isPulling_ = false; }
    bool isPulling() const { return isPulling_; }
    /// Renders every block that is due at `now`. Returns the counter at which the next one is due.
    std::int64_t pull(std::int64_t now);

 private:
    SoundMixer& mixer_;
    const std::int64_t frequency_;
    SoundMixer::Ticket ticket_ = 0;
    bool isPulling_ = false;
    std::int64_t origin_ = 0;  ///< counter of block 0
    std::int64_t block_ = 0;   ///< the next one, from 0
    std::vector<float> thrownAway_;
};

}  // namespace melvane
