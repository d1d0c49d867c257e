#include "sound_comparison.h"

#include <algorithm>
#include <cmath>

namespace melvane::e2e {

namespace {

constexpr std::size_t stretch = 441;      // frames whose level is looked at
constexpr std::size_t probe = 1U << 14U;  // frames by which the delay is found
constexpr float silence = 0.001F;

double correlation(std::span<const float> one, std::span<const float> other) {
    const std::size_t count = std::min(one.size(), other.size());
    double product = 0.0, energyOfOne = 0.0, energyOfOther = 0.0;
    for (std::size_t at = 0; at < count; ++at) {
        const double a = static_cast<double>(one[at]), b = static_cast<double>(other[at]);
        product += a * b;
        energyOfOne += a * a;
        energyOfOther += b * b;
    }
    const double energy = std::sqrt(energyOfOne * energyOfOther);
    return energy > 0.0 ? product / energy : 0.0;
}

double energyOf(std::span<const float> sound) {
    double energy = 0.0;
    for (const float value : sound) energy += static_cast<double>(value) * static_cast<double>(value);
    return energy;
}

}  // namespace

double bestCorrelation(std::span<const float> sound, std::span<const float> later, std::size_t mostDelay) {
    const auto first = std::ranges::find_if(sound, [](float value) { return std::abs(value) > silence; });
    const auto begin = static_cast<std::size_t>(first - sound.begin());
    const auto part = sound.subspan(begin, std::min(probe, sound.size() - begin));
    double best = -1.0;
    std::size_t bestDelay = 0;
    for (std::size_t delay = 0; delay <= mostDelay && begin + delay < later.size(); ++delay) {
        const double found = correlation(part, later.subspan(begin + delay));
        if (found <= best) continue;
        best = found;
        bestDelay = delay;
    }
    return bestDelay < later.size() ? correlation(sound, later.subspan(bestDelay)) : 0.0;
}

double soundingLevel(std::span<const float> sound) {
    double energy = 0.0;
    std::size_t frames = 0;
    for (; sound.size() >= stretch; sound = sound.subspan(stretch)) {
        const double found = energyOf(sound.first(stretch));
        if (found < static_cast<double>(silence) * static_cast<double>(silence) * stretch) continue;
        energy += found;
        frames += stretch;
    }
    return frames > 0 ? std::sqrt(energy / static_cast<double>(frames)) : 0.0;
}

}  // namespace melvane::e2e
