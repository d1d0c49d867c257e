#pragma once
#include <cstddef>
#include <span>

namespace melvane::e2e {

/// How well `later` follows `sound` from its beginning on, at the one delay of 0 to `mostDelay` frames that
/// fits best: 1 when they are the same but for their level.
double bestCorrelation(std::span<const float> sound, std::span<const float> later, std::size_t mostDelay);

/// The effective level of the stretches that sound; what is silent does not count.
double soundingLevel(std::span<const float> sound);

}  // namespace melvane::e2e
