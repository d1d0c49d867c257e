#pragma once
#include <span>
#include <vector>

#include "core/grid_blocks.h"
#include "core/grid_pairs.h"
#include "core/studio.h"

/// What the operations on whole columns are made of: the tracks they work on, and cells between the score and
/// the clipboard. Nothing here draws. All eight grids travel by the same track and column, so the values that
/// lie beside their note's cell move as neighbours of that cell. Tracks 13 to 15 are never touched.
namespace melvane {

struct TrackRange {
    int first = 0, last = lastTrackNumber;
};

/// The tracks of `range`, as far as they exist, that are not hidden.
std::vector<int> visibleTracks(const Studio& studio, TrackRange range = {});
/// The current track alone with "Edit Selected Track Only", whatever `range` says; otherwise the tracks of
/// `range`. A hidden track is never among them.
std::vector<int> editedTracks(const Studio& studio, TrackRange range = {});

/// NumNotes; far beyond either end the nearest million counts.
int lastScoreColumn(const Studio& studio);

/// ClipNoteArray and ClipInstArray get the score's size, every cell 0.
void eraseClipNotes(Studio& studio);
/// The other six get the score's size and keep what fits.
void resizeClipValues(Studio& studio);
/// `columns` of the edited tracks of `range` go to the clipboard, from offset 0 on.
void copyCellsToClip(Studio& studio, Columns columns, TrackRange range, std::span<const GridPair> pairs);
/// The same with all eight grids of all tracks. A copy of one track alone is remembered in ClipTrack, also
/// when that track is hidden.
void copyToClip(Studio& studio, Columns columns);
/// A clip that begins in the middle of a note begins with a note, on all tracks of `range`.
void mendClipStart(Studio& studio, TrackRange range = {});
/// What is left of a note at `column` becomes a note of its own, on the tracks of `range` that are not
/// hidden.
void mendNotes(Studio& studio, int column, TrackRange range = {});

}  // namespace melvane
