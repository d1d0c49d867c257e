#pragma once
#include <span>
#include <string>
#include <vector>

#include "tune.h"

namespace melvane::e2e {

/// The level of one frequency in a stretch of sound, by Goertzel's filter under a Hann window; a full sine
/// has 1.
double levelAt(std::span<const float> sound, int rate, double hertz);

/// Empty when each key of the chord sounds there, much louder than the keys beside it, and no other key is
/// the loudest but an overtone; else what is wrong. `sound` is the stretch, 0.15 s at least.
std::string chordFault(std::span<const float> sound, int rate, const Chord& chord);

/// Empty when the sound has one onset for each chord, and behind each onset its chord; else what is wrong.
/// `sound` counts in `rate` frames a second: a sound that was played too slowly is told by a higher rate.
std::string chordFaults(std::span<const float> sound, int rate, const std::vector<Chord>& chords);

/// Empty when the onsets stand as far apart as `moments`, in seconds, each distance to within `each`; else
/// what is wrong.
std::string distanceFaults(std::span<const float> sound, int rate, const std::vector<double>& moments,
                           double each);

/// The mean distance of neighbouring onsets, in seconds.
double meanDistance(std::span<const float> sound, int rate);

/// How far apart the chords of a recording are to begin, in seconds, and by how much one distance and all of
/// them on the average may be off.
struct ExpectedSpacing {
    double seconds, each, onAverage;
};

/// Empty when the sound is the tune, whole and in its time; else what is wrong.
std::string tuneFaults(std::span<const float> sound, int rate, const Tune& tune,
                       const ExpectedSpacing& spacing);

/// How many of the chords are heard, each after the one before. Onsets that no chord explains are passed
/// over: a gap in a chord makes it begin twice.
int chordsInOrder(std::span<const float> sound, int rate, const std::vector<Chord>& chords);

}  // namespace melvane::e2e
