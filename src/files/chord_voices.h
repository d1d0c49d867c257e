#pragma once
#include "core/chords.h"
#include "core/studio.h"

namespace melvane {

/// The chords of a score as notes on tracks of their own, for the time of an export.
///
/// Three oddities are kept: the chord is looked for one column to the right, so that the voices are copies of
/// the cell before the chord's note; a step is added to a row, so that voices lie below their root; and the
/// voices of two tracks overwrite each other, and whatever stands on the tracks that they take.
class ChordVoices {
 public:
    ChordVoices(Studio& studio, Chords& chords) : studio_(studio), chords_(chords) {}

    /// Writes the voices of one cell to three higher tracks, when `track` may have chords and one stands
    /// there.
    void makeFrom(int track, int column);
    /// Empties the tracks that voices may have taken, from the first to the one after the score's end, when
    /// any was made since the last clean-up. A score without chords keeps every cell.
    void cleanUp();

 private:
    void makeVoice(int root, int voice, int column, int step);

    Studio& studio_;
    Chords& chords_;
    bool made_ = false;
};

}  // namespace melvane
