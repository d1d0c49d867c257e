#pragma once
#include "core/studio.h"

namespace melvane {

/// A run of cells of one note, as far as the page shows it.
struct ShownNote {
    int column = 0;      ///< of the score; FirstColumn - 1 for a note that enters from the left
    int lastColumn = 0;  ///< of the score; at most one past LastColumn
    int row = 0;         ///< of the score
    bool hasHead = false;
    bool hasChord = false;
};

/// Calls `show(ShownNote)` for each note of `track` (0 to 15) that reaches into the page, from the left. Only
/// the columns of the page and the one before it are looked at, however long the score is.
template <class Show>
void walkShownNotes(const Score& score, const Page& page, int track, Show&& show) {
    const int last = page.LastColumn;
    for (int column = page.FirstColumn - 1; column <= last; ++column) {
        const int value = score.noteCell(track, column);
        if (cell::isEmpty(value)) continue;
        int end = column;
        while (end <= last && cell::isContinuation(score.noteCell(track, end + 1))) ++end;
        const bool isStart = cell::isStart(value);
        show(ShownNote{column, end, cell::row(value), isStart, isStart && score.chordOf(track, column) >= 1});
        column = end;
    }
}

}  // namespace melvane
