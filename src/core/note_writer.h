#pragma once
#include "core/studio.h"

namespace melvane {

/// Values of a note's slot that an erased note goes back to; its velocity stays.
inline void resetEffects(Score& score, int track, int column) {
    score.ModArray.set(track, column, 0);
    score.PanArray.set(track, column, 64);
    score.ReverbArray.set(track, column, 0);
    score.ChorusArray.set(track, column, 0);
}

/// The column in which the note that covers `column` starts; `column` itself where no continuation stands.
inline int startOfNote(const Score& score, int track, int column) {
    while (cell::isContinuation(score.noteCell(track, column))) --column;
    return column;
}

/// Writes a note of the current track over columns `first` to `last`. Columns beyond the score are not
/// written; a press outside the grid, in column or row, writes nothing, and the answer is false.
bool writeNote(Studio& studio, int first, int last, int row);

/// Makes what is left of an older note behind the column `last` of the current track a note of its own.
void cutNoteBehind(Studio& studio, int last);

}  // namespace melvane
