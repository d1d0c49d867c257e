#pragma once
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

namespace melvane {

/// The format of a recording: plain samples, unsigned of 8 bits or signed of 16.
struct WaveFormat {
    int rate = 44100;  ///< frames a second
    int channels = 2;
    int bits = 16;  ///< a sample

    /// Bytes a frame.
    int alignment() const { return bits / 8 * channels; }
    int bytesPerSecond() const { return alignment() * rate; }
    bool operator==(const WaveFormat&) const = default;
};

/// Whether recordings are made in this format: 22.05 and 44.1 kHz in each combination, 48 kHz with 16 bits in
/// stereo.
bool isRecorded(const WaveFormat& format);

inline constexpr std::size_t waveHeaderSize = 44;
/// Bytes of samples; the header counts them and itself without its first 8 bytes in 32 bits.
inline constexpr std::uint64_t mostWaveData =
    std::numeric_limits<std::uint32_t>::max() - std::uint64_t{waveHeaderSize};

/// The header of a WAV file with `dataBytes` bytes of samples, at most mostWaveData.
std::string waveHeader(const WaveFormat& format, std::uint64_t dataBytes);

}  // namespace melvane
