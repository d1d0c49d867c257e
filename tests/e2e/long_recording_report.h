#pragma once
#include <span>

namespace melvane::e2e {

/// How a recording in real time stands beside the exact rendering of the same score. Times in milliseconds.
///
/// The player waits for each column anew, so a column that comes late makes all that follow late, and none
/// comes early: a distance that is shorter than it should be is sound that was lost. Sound that was lost or
/// doubled within a chord moves its end against its beginning.
struct LongRecordingReport {
    double seconds = 0;  ///< from the first onset to the last, as recorded
    int onsets = 0, exactOnsets = 0;
    int compared = 0;         ///< chords found again in the recording, by their waveform
    int broken = 0;           ///< of these, those whose end does not stand where their beginning tells
    double shortest = 0;      ///< the most by which a distance of neighbours is too short
    double longest = 0;       ///< the most by which one is too long
    double deviation = 0;     ///< standard deviation of the distances from the exact ones
    double drift = 0;         ///< how much later than it should the last onset comes
    double fromStraight = 0;  ///< the most by which an onset stands off a steady drift
};

LongRecordingReport compareRecordings(std::span<const float> played, std::span<const float> exact, int rate);

/// Whether every chord is there, unbroken, and nothing between them was lost.
bool isWhole(const LongRecordingReport& report, int chords);

void print(const LongRecordingReport& report, int chords);

}  // namespace melvane::e2e
