#include "chord_finder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <sstream>

#include "onset_finder.h"

namespace melvane::e2e {

namespace {

constexpr double settled = 0.04, listened = 0.19;  // seconds after an onset, within the sounding columns
constexpr double clearly = 3.0;                    // a note that sounds, beside a semitone that does not
constexpr int lowestKey = 55, highestKey = 90;     // among which the loudest is looked for

double pitchOf(int key) { return 440.0 * std::exp2((key - 69.0) / 12.0); }

bool holds(const Chord& chord, int key) { return std::ranges::find(chord, key) != chord.end(); }

/// Whether the key stands on an overtone of the chord, which may be louder than what it belongs to.
bool isOvertone(const Chord& chord, int key) {
    constexpr std::array distances{12, 19, 24, 28, 31};
    return std::ranges::any_of(distances, [&](int distance) { return holds(chord, key - distance); });
}

int loudestKey(std::span<const float> sound, int rate, const Chord& chord) {
    int loudest = lowestKey;
    double level = 0.0;
    for (int key = lowestKey; key <= highestKey; ++key) {
        const double found = levelAt(sound, rate, pitchOf(key));
        if (found <= level || isOvertone(chord, key)) continue;
        level = found;
        loudest = key;
    }
    return loudest;
}

}  // namespace

double levelAt(std::span<const float> sound, int rate, double hertz) {
    const double size = static_cast<double>(sound.size());
    const double turn = 2.0 * std::numbers::pi * hertz / rate;
    const double factor = 2.0 * std::cos(turn);
    double before = 0.0, last = 0.0, window = 0.0;
    for (std::size_t at = 0; at < sound.size(); ++at) {
        const double weight =
            0.5 - 0.5 * std::cos(2.0 * std::numbers::pi * (static_cast<double>(at) + 0.5) / size);
        const double next = weight * static_cast<double>(sound[at]) + factor * last - before;
        before = last;
        last = next;
        window += weight;
    }
    const double power = before * before + last * last - factor * before * last;
    return window > 0.0 ? 2.0 * std::sqrt(std::max(power, 0.0)) / window : 0.0;
}

std::string chordFault(std::span<const float> sound, int rate, const Chord& chord) {
    std::ostringstream fault;
    for (const int key : chord) {
        const double level = levelAt(sound, rate, pitchOf(key));
        for (const int beside : {key - 1, key + 1}) {
            const double other = levelAt(sound, rate, pitchOf(beside));
            if (!holds(chord, beside) && level < clearly * other)
                fault << "key " << key << " has " << level << ", key " << beside << " " << other << "; ";
        }
    }
    if (const int loudest = loudestKey(sound, rate, chord); !holds(chord, loudest))
        fault << "key " << loudest << " is the loudest";
    return fault.str();
}

std::string chordFaults(std::span<const float> sound, int rate, const std::vector<Chord>& chords) {
    const auto onsets = sound_test::findOnsets(sound, rate);
    std::ostringstream faults;
    if (onsets.size() != chords.size()) {
        faults << onsets.size() << " onsets of " << chords.size();
        return faults.str();
    }
    const auto wait = static_cast<std::size_t>(settled * rate),
               count = static_cast<std::size_t>(listened * rate);
    for (std::size_t at = 0; at < chords.size(); ++at) {
        if (onsets[at] + wait + count > sound.size()) return "the last chord is not whole";
        const std::string fault = chordFault(sound.subspan(onsets[at] + wait, count), rate, chords[at]);
        if (!fault.empty()) faults << "chord " << at << ": " << fault << '\n';
    }
    return faults.str();
}

std::string distanceFaults(std::span<const float> sound, int rate, const std::vector<double>& moments,
                           double each) {
    const auto onsets = sound_test::findOnsets(sound, rate);
    std::ostringstream faults;
    if (onsets.size() != moments.size()) faults << onsets.size() << " onsets of " << moments.size() << "; ";
    for (std::size_t at = 1; at < std::min(onsets.size(), moments.size()); ++at) {
        const double found = static_cast<double>(onsets[at] - onsets[at - 1]) / rate;
        const double expected = moments[at] - moments[at - 1];
        if (std::abs(found - expected) > each)
            faults << "onset " << at << " comes after " << found << " s for " << expected << "; ";
    }
    return faults.str();
}

double meanDistance(std::span<const float> sound, int rate) {
    return sound_test::spacingOf(sound_test::findOnsets(sound, rate), rate).mean / 1000;
}

std::string tuneFaults(std::span<const float> sound, int rate, const Tune& tune,
                       const ExpectedSpacing& spacing) {
    std::string faults = chordFaults(sound, rate, tune.chords) +
                         distanceFaults(sound, rate, tune.moments(spacing.seconds), spacing.each);
    const double mean = meanDistance(sound, rate);
    if (std::abs(mean - spacing.seconds) > spacing.onAverage)
        faults += "chords stand " + std::to_string(mean) + " s apart";
    return faults;
}

int chordsInOrder(std::span<const float> sound, int rate, const std::vector<Chord>& chords) {
    const auto wait = static_cast<std::size_t>(settled * rate),
               count = static_cast<std::size_t>(listened * rate);
    int found = 0;
    auto next = chords.begin();
    for (const std::size_t onset : sound_test::findOnsets(sound, rate)) {
        if (onset + wait + count > sound.size()) break;
        const auto stretch = sound.subspan(onset + wait, count);
        const auto heard = std::find_if(
            next, chords.end(), [&](const Chord& chord) { return chordFault(stretch, rate, chord).empty(); });
        if (heard == chords.end()) continue;
        ++found;
        next = heard + 1;
    }
    return found;
}

}  // namespace melvane::e2e
