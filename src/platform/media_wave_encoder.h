#pragma once
#include <cstdint>
#include <memory>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "platform/media_wave_format.h"
#include "platform/sound_resampler.h"

namespace melvane {

/// Makes the bytes of a recording of the program's sound. 16 bits at 44.1 kHz in stereo are the samples that
/// a rendering into a file has; one channel is the mean of both; 8 bits are dithered with noise of triangular
/// distribution, 2 steps wide. One thread.
class WaveEncoder {
 public:
    /// A format that is recorded.
    explicit WaveEncoder(const WaveFormat& format);

    /// Appends the bytes of these stereo frames at soundRate, whole frames only. The last piece, which may be
    /// empty, brings what was held back for resampling; then a new stream begins.
    void encode(std::span<const float> stereo, bool isLast, std::string& bytes);
    const WaveFormat& format() const { return format_; }

 private:
    std::span<const float> inChannels(std::span<const float> stereo);
    std::span<const float> inRate(std::span<const float> sound, bool isLast);
    std::uint8_t dithered(float value);

    WaveFormat format_;
    std::unique_ptr<Resampler> resampler_;  ///< null at soundRate
    std::vector<float> mono_, resampled_;
    std::vector<std::int16_t> samples_;
    std::minstd_rand noise_;
};

}  // namespace melvane
