#include "platform/audio_file_samples.h"

#include <algorithm>
#include <cmath>

namespace melvane {

namespace {

std::int16_t sampleOf(float value) {
    if (std::isnan(value)) return 0;
    const float scaled = std::clamp(value * 32767.0F, -32768.0F, 32767.0F);
    return static_cast<std::int16_t>(std::lrint(scaled));
}

}  // namespace

void appendSamples(std::span<const float> values, std::vector<std::int16_t>& samples) {
    samples.reserve(samples.size() + values.size());
    for (const float value : values) samples.push_back(sampleOf(value));
}

}  // namespace melvane
