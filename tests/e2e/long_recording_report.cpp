#include "long_recording_report.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

#include "onset_finder.h"

namespace melvane::e2e {

namespace {

constexpr std::size_t probe = 2048;            // frames that are compared at a time
constexpr std::size_t endOfChord = 8000;       // frames behind the onset, within the sounding columns
constexpr std::ptrdiff_t furthestOnset = 300;  // frames by which the finder may miss an onset
constexpr double sameWave = 0.95;              // correlation
constexpr double stillSameWave = 0.7;          // what ebbs away is less alike
constexpr std::ptrdiff_t sameFrames = 2;
// A distance is known to the synthesizer's grid of 64 frames at both ends.
constexpr double shortestDistance = 3.0;  // milliseconds

double correlation(const float* one, const float* other) {
    double product = 0.0, energyOfOne = 0.0, energyOfOther = 0.0;
    for (std::size_t at = 0; at < probe; ++at) {
        const double a = static_cast<double>(one[at]), b = static_cast<double>(other[at]);
        product += a * b;
        energyOfOne += a * a;
        energyOfOther += b * b;
    }
    const double energy = std::sqrt(energyOfOne * energyOfOther);
    return energy > 0.0 ? product / energy : 0.0;
}

struct Match {
    std::ptrdiff_t place = 0;
    double likeness = -1.0;
};

/// Where the stretch of `exact` from `wanted` on is in `played`, near `about`.
Match findAgain(std::span<const float> exact, std::size_t wanted, std::span<const float> played,
                std::ptrdiff_t about, std::ptrdiff_t furthest) {
    Match best;
    if (wanted + probe > exact.size()) return best;
    const std::ptrdiff_t last = static_cast<std::ptrdiff_t>(played.size() - probe);
    for (std::ptrdiff_t place = std::max<std::ptrdiff_t>(0, about - furthest);
         place <= std::min(last, about + furthest); ++place) {
        const double likeness = correlation(exact.data() + wanted, played.data() + place);
        if (likeness > best.likeness) best = {place, likeness};
    }
    return best;
}

/// The places of the chords in the recording, in frames, as exactly as their waveforms tell.
std::vector<double> compareChords(LongRecordingReport& report, std::span<const float> played,
                                  std::span<const float> exact, const std::vector<std::size_t>& onsets,
                                  const std::vector<std::size_t>& exactOnsets) {
    std::vector<double> places;
    for (std::size_t at = 0; at < std::min(onsets.size(), exactOnsets.size()); ++at) {
        const auto onset = static_cast<std::ptrdiff_t>(onsets[at]);
        const Match begin = findAgain(exact, exactOnsets[at], played, onset, furthestOnset);
        const bool known = begin.likeness > sameWave;
        places.push_back(static_cast<double>(known ? begin.place : onset));
        if (!known) continue;
        ++report.compared;
        const std::ptrdiff_t end = begin.place + static_cast<std::ptrdiff_t>(endOfChord);
        const Match found = findAgain(exact, exactOnsets[at] + endOfChord, played, end, sameFrames);
        if (found.likeness < stillSameWave) ++report.broken;
    }
    return places;
}

void measureDistances(LongRecordingReport& report, const std::vector<double>& places,
                      const std::vector<std::size_t>& exactOnsets, double framesAMillisecond) {
    const std::size_t count = places.size();
    if (count < 2) return;
    std::vector<double> late;
    for (std::size_t at = 0; at < count; ++at) {
        const double exact = static_cast<double>(exactOnsets[at] - exactOnsets.front());
        late.push_back((places[at] - places.front() - exact) / framesAMillisecond);
    }
    double squares = 0.0;
    const double steps = static_cast<double>(count - 1);
    report.drift = late.back();
    for (std::size_t at = 1; at < count; ++at) {
        const double error = late[at] - late[at - 1];
        report.longest = std::max(report.longest, error);
        report.shortest = std::max(report.shortest, -error);
        squares += error * error;
        const double steady = report.drift * static_cast<double>(at) / steps;
        report.fromStraight = std::max(report.fromStraight, std::abs(late[at] - steady));
    }
    report.deviation = std::sqrt(squares / steps);
    report.seconds = (places.back() - places.front()) / framesAMillisecond / 1000;
}

}  // namespace

LongRecordingReport compareRecordings(std::span<const float> played, std::span<const float> exact, int rate) {
    LongRecordingReport report;
    const auto onsets = sound_test::findOnsets(played, rate);
    const auto exactOnsets = sound_test::findOnsets(exact, rate);
    report.onsets = static_cast<int>(onsets.size());
    report.exactOnsets = static_cast<int>(exactOnsets.size());
    if (played.size() < probe) return report;
    const auto places = compareChords(report, played, exact, onsets, exactOnsets);
    measureDistances(report, places, exactOnsets, rate / 1000.0);
    return report;
}

bool isWhole(const LongRecordingReport& report, int chords) {
    return report.onsets == chords && report.exactOnsets == chords && report.compared == chords &&
           report.broken == 0 && report.shortest < shortestDistance;
}

void print(const LongRecordingReport& report, int chords) {
    std::printf("%.1f s recorded, %d chords: %d onsets recorded, %d rendered\n", report.seconds, chords,
                report.onsets, report.exactOnsets);
    std::printf("chords found by their waveform: %d, broken ones among them: %d\n", report.compared,
                report.broken);
    std::printf(
        "distance of neighbours: standard deviation %.3f ms, too short by at most %.2f ms, too long by "
        "at most %.2f ms\n",
        report.deviation, report.shortest, report.longest);
    std::printf(
        "last onset later by %.2f ms (%.1f in a million); largest deviation from a steady drift %.2f ms\n",
        report.drift, report.seconds > 0 ? report.drift * 1000 / report.seconds : 0.0, report.fromStraight);
}

}  // namespace melvane::e2e
