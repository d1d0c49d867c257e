#pragma once
#include <cstdint>
#include <span>

namespace melvane {

/// Frames a second of everything the program plays and records, and its channels (left, right).
inline constexpr int soundRate = 44100;
inline constexpr std::size_t soundChannels = 2;

/// Something that sounds. Called in the audio callback: it must not allocate, lock, wait or touch a file.
class SoundSource {
 public:
    virtual ~SoundSource() = default;
    /// Adds its sound to `interleaved` (left, right, left ...). `moment` is the Clock counter of the first
    /// frame.
    virtual void mix(std::span<float> interleaved, std::int64_t moment) noexcept = 0;
};

/// Something that hears the finished mix. Called in the audio callback, under the same conditions.
class SoundTap {
 public:
    virtual ~SoundTap() = default;
    /// Values may lie outside -1 to 1. The blocks follow each other without a gap while the output stays the
    /// same.
    virtual void hear(std::span<const float> interleaved, std::int64_t moment) noexcept = 0;
};

}  // namespace melvane
