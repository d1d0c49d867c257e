#pragma once
#include "core/studio.h"

/// What every walk over the score has in common, whether it plays, edits or writes a file.
namespace melvane {

/// What a cell does on its track: 0 rest, 1 start, 2 sustain.
constexpr Int16 playedState(int cellValue) {
    if (cell::isContinuation(cellValue)) return 2;
    return cell::isStart(cellValue) ? Int16{1} : Int16{0};
}

/// SongEndColumn becomes one past the last used column of the tracks that are not hidden; 0 for a score that
/// is empty or has notes in column 0 alone. A track that ends just one column after the longest before it
/// does not count.
void findSongEnd(Studio& studio);

}  // namespace melvane
