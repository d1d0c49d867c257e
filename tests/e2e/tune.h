#pragma once
#include <string>
#include <vector>

namespace melvane::e2e {

/// MIDI keys that sound together, 60 or above: nothing below could be told apart by the finder of chords.
using Chord = std::vector<int>;

/// Music that a measurement can follow: each chord sounds for two columns and rests for one, so that every
/// onset stands alone, and no chord is that before it.
struct Tune {
    static constexpr int columnsAChord = 3;

    static constexpr int squareLead = 80, piano = 0;

    /// By how much a busy machine may wake the program late at a chord, and by how much the chords may stand
    /// further apart for it on the average, in seconds. A chord lost or doubled changes a distance by a whole
    /// spacing, another tempo each of them.
    static constexpr double latestChord = 0.2, lateOnAverage = 0.03;

    std::vector<Chord> chords;
    int instrument = squareLead;
    int tempo = 100;

    /// Between two onsets, in seconds, as the studio plays a score, and as a MIDI file tells it.
    double playedSpacing() const { return columnsAChord * 13.8 / tempo; }
    double exportedSpacing() const { return columnsAChord * 15.0 / tempo; }
    /// When each chord begins, if they stand so far apart.
    std::vector<double> moments(double spacing) const;
    int columns() const { return columnsAChord * static_cast<int>(chords.size()); }

    /// As the text of a score file, each voice of the chords on a channel of its own.
    std::string asScore() const;
};

/// `count` chords of two voices, whose levels stay.
Tune makeTune(int count);

/// `count` single notes whose waveform is the same each time one is struck.
Tune makeSteadyTune(int count);

}  // namespace melvane::e2e
