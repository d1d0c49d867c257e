#pragma once
#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace melvane::sound_test {

/// Frames at which a sound begins: where the level rises above a quarter of the loudest, after it had stayed
/// below an eighth of it for 15 ms, and within 20 ms of leaving that silence.
std::vector<std::size_t> findOnsets(std::span<const float> sound, int rate);

/// The fundamental in hertz by autocorrelation, 50 to 2000 Hz; 0 when there is none.
double findPitch(std::span<const float> sound, int rate);

/// Mean and standard deviation of the distances between neighbours, in milliseconds.
struct Spacing {
    double mean = 0.0;
    double deviation = 0.0;
    double largestError = 0.0;  ///< from the mean
};
Spacing spacingOf(const std::vector<std::size_t>& onsets, int rate);

/// Empty when the sound has one onset a key, and after each the key's pitch within one in a hundred; else
/// what is wrong.
std::string pitchFaults(std::span<const float> sound, int rate, std::span<const int> keys);

}  // namespace melvane::sound_test
