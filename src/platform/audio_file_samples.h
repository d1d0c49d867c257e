#pragma once
#include <cstdint>
#include <span>
#include <vector>

namespace melvane {

/// Floats of -1 to 1 as 16-bit samples, rounded to the nearest; what lies outside is clipped, and what is no
/// number is silence.
void appendSamples(std::span<const float> values, std::vector<std::int16_t>& samples);

}  // namespace melvane
