#include "onset_finder.h"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace melvane::sound_test {

namespace {

constexpr float onsetShare = 0.25F;
constexpr float quietShare = 0.125F;
constexpr double quietSeconds = 0.015;
constexpr double longestRiseSeconds = 0.020;
constexpr double lowestPitch = 50.0;
constexpr double highestPitch = 2000.0;
// A period this much as good as the best is taken when it is shorter: multiples of a period fit as well.
constexpr double goodEnough = 0.93;

std::size_t framesIn(double seconds, int rate) { return static_cast<std::size_t>(seconds * rate); }

double correlation(std::span<const float> sound, std::size_t lag) {
    double product = 0.0;
    double energy = 0.0;
    for (std::size_t i = 0; i + lag < sound.size(); ++i) {
        const double a = sound[i];
        const double b = sound[i + lag];
        product += a * b;
        energy += 0.5 * (a * a + b * b);
    }
    return energy > 0.0 ? product / energy : 0.0;
}

/// Where the parabola through three neighbouring values has its top, as an offset from the middle one.
double topOffset(double before, double middle, double after) {
    const double bend = before - 2.0 * middle + after;
    return bend < 0.0 ? 0.5 * (before - after) / bend : 0.0;
}

}  // namespace

std::vector<std::size_t> findOnsets(std::span<const float> sound, int rate) {
    float loudest = 0.0F;
    for (const float value : sound) loudest = std::max(loudest, std::abs(value));
    std::vector<std::size_t> onsets;
    if (loudest == 0.0F) return onsets;

    const std::size_t quietFrames = framesIn(quietSeconds, rate);
    const std::size_t riseFrames = framesIn(longestRiseSeconds, rate);
    std::size_t quiet = quietFrames;  // silent frames in a row
    std::size_t quietEnd = 0;         // the end of the last silence that was long enough
    bool awaitsOnset = true;
    for (std::size_t i = 0; i < sound.size(); ++i) {
        const float level = std::abs(sound[i]);
        quiet = level < quietShare * loudest ? quiet + 1 : 0;
        if (quiet >= quietFrames) {
            quietEnd = i;
            awaitsOnset = true;
        }
        if (level <= onsetShare * loudest || !awaitsOnset) continue;
        if (i - quietEnd <= riseFrames) onsets.push_back(i);
        awaitsOnset = false;
    }
    return onsets;
}

double findPitch(std::span<const float> sound, int rate) {
    const auto shortest = static_cast<std::size_t>(rate / highestPitch);
    const auto longest = std::min(static_cast<std::size_t>(rate / lowestPitch), sound.size() / 2);
    std::vector<double> match(longest + 2, 0.0);
    double best = 0.0;
    for (std::size_t lag = shortest; lag <= longest; ++lag) {
        match[lag] = correlation(sound, lag);
        best = std::max(best, match[lag]);
    }
    for (std::size_t lag = shortest + 1; lag < longest; ++lag) {
        const bool isTop = match[lag] >= match[lag - 1] && match[lag] >= match[lag + 1];
        if (!isTop || best <= 0.0 || match[lag] < goodEnough * best) continue;
        const double period =
            static_cast<double>(lag) + topOffset(match[lag - 1], match[lag], match[lag + 1]);
        return rate / period;
    }
    return 0.0;
}

Spacing spacingOf(const std::vector<std::size_t>& onsets, int rate) {
    Spacing spacing;
    if (onsets.size() < 2) return spacing;
    std::vector<double> steps;
    for (std::size_t i = 1; i < onsets.size(); ++i) {
        steps.push_back(1000.0 * static_cast<double>(onsets[i] - onsets[i - 1]) / rate);
    }
    const double count = static_cast<double>(steps.size());
    for (const double step : steps) spacing.mean += step / count;
    for (const double step : steps) {
        const double error = step - spacing.mean;
        spacing.deviation += error * error / count;
        spacing.largestError = std::max(spacing.largestError, std::abs(error));
    }
    spacing.deviation = std::sqrt(spacing.deviation);
    return spacing;
}

std::string pitchFaults(std::span<const float> sound, int rate, std::span<const int> keys) {
    constexpr std::size_t settled = 1500, listened = 4000;  // frames
    const auto onsets = findOnsets(sound, rate);
    std::ostringstream faults;
    if (onsets.size() != keys.size()) {
        faults << onsets.size() << " onsets of " << keys.size();
        return faults.str();
    }
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (onsets[i] + settled + listened > sound.size()) return "the last note is not whole";
        const double expected = 440.0 * std::exp2((keys[i] - 69.0) / 12.0);
        const double heard = findPitch(sound.subspan(onsets[i] + settled, listened), rate);
        if (std::abs(heard - expected) > expected * 0.01) {
            faults << "key " << keys[i] << ": " << heard << " Hz for " << expected << "; ";
        }
    }
    return faults.str();
}

}  // namespace melvane::sound_test
