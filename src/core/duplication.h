#pragma once
#include "core/block_editing.h"
#include "core/clip_blocks.h"
#include "platform/event_loop.h"

namespace melvane {

/// "Duplicate notes": the start of the score laid along it again and again from InsertPosition. "Beats" says
/// how much of the start, "Repeat" how far apart the copies begin, "Notes" how far their starts may run.
/// Channels are tracks, 0 to 12; a first one above the last is an empty range.
class Duplication {
 public:
    Duplication(Studio& studio, Surfaces& surfaces, BlockEditing& blocks, EventLoop& loop)
        : studio_(studio), surfaces_(surfaces), blocks_(blocks), loop_(loop) {}

    /// The channels that the boxes "Melody" and "Percussion" name: ToolbarFirstChannel to ToolbarLastChannel.
    void takeToolbarChannels();
    /// The whole operation: the motif, the pattern and its copies.
    void CopyNotes(int firstChannel, int lastChannel);
    /// The motif: the first DuplicateBeats columns to the clipboard and from there to InsertPosition.
    void Command6_Click();
    /// The copies of the clip. A distance of 0 never gets on: it serves events until the program closes or
    /// stop is pressed.
    void DuplicateCycles(int firstChannel, int lastChannel);

    void listNames(NameTables& tables);

 private:
    void takePattern(TrackRange channels);
    void layCopy(int first, TrackRange channels);
    void layUntilStopped(int first, TrackRange channels);

    Studio& studio_;
    Surfaces& surfaces_;
    BlockEditing& blocks_;
    EventLoop& loop_;
};

}  // namespace melvane
