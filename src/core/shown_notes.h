#pragma once
#include <utility>

#include "core/studio.h"

namespace melvane {

/// A run of cells of one note, as far as the page shows it.
struct ShownNote {
    int column = 0;      ///< of the score; one before the first for a note that enters from the left
    int lastColumn = 0;  ///< of the score; at most one past the last
    int row = 0;         ///< of the score
    bool hasHead = false;
    bool hasChord = false;
};

/// Calls `show(ShownNote)` for each note of `track` (0 to 15) that reaches into the columns `first` to `last`
/// of the score, from the left. Only these and the one before them are looked at, however long the score is.
template <class Show>
void walkShownNotes(const Score& score, int first, int last, int track, Show&& show) {
    for (int column = first - 1; column <= last; ++column) {
        const int value = score.noteCell(track, column);
        if (cell::isEmpty(value)) continue;
        int end = column;
        while (end <= last && cell::isContinuation(score.noteCell(track, end + 1))) ++end;
        const bool isStart = cell::isStart(value);
        show(ShownNote{column, end, cell::row(value), isStart, isStart && score.chordOf(track, column) >= 1});
        column = end;
    }
}

/// Those of the page.
template <class Show>
void walkShownNotes(const Score& score, const Page& page, int track, Show&& show) {
    walkShownNotes(score, page.FirstColumn, page.LastColumn, track, std::forward<Show>(show));
}

}  // namespace melvane
