#pragma once
#include "core/grid.h"

/// Stretches of a grid's tracks: copied, filled, mirrored and mended. Tracks and columns may lie anywhere;
/// cells that a grid does not have are passed over.
namespace melvane {

/// Columns `first` to `last`, both included; none when `last` lies before `first`.
struct Columns {
    int first = 0, last = -1;
};

/// Each cell of `columns` on `toTrack` takes the cell that stands `shift` columns to the right of it (to the
/// left when negative) on `fromTrack`. Both may be the same track: everything is read before it is written.
void copyColumns(const Grid& from, int fromTrack, Grid& to, int toTrack, Columns columns, int shift);

/// The same inside one track, cell by cell from the last column to the first: with a `shift` to the right a
/// cell takes what was written a moment ago, so that the last columns repeat themselves to the left.
void repeatColumnsBackwards(Grid& grid, int track, Columns columns, int shift);

void fillColumns(Grid& grid, int track, Columns columns, std::int16_t value);

/// A continuation of a note at `column` becomes a start of the same row.
void makeStart(Grid& notes, int track, int column);

/// Turns `columns` of a track round in time: each takes the cell at the mirrored column, its instrument with
/// it. Every cell of a note becomes a start.
void mirrorColumns(Grid& notes, Grid& instruments, int track, Columns columns);

}  // namespace melvane
