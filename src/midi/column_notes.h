#pragma once
#include "core/song_walk.h"
#include "core/studio.h"
#include "midi/sounding.h"

namespace melvane {

struct NameTables;

/// The notes of a playback: what each column starts, holds and ends on the tracks that are not hidden.
class ColumnNotes {
 public:
    ColumnNotes(Studio& studio, Sounding& sounding) : studio_(studio), sounding_(sounding) {}

    /// Before the first column: nothing sounds, no instrument is in force.
    void forgetPlayedCells();
    /// Plays PlayColumn.
    void PlayNotes();
    /// Ends what the last column left sounding.
    void stopVisibleNotes();
    /// findSongEnd().
    void FindSongEnd() { findSongEnd(studio_); }

    void listNames(NameTables& tables);

 private:
    void playTrack(int track);
    void changeSound(int track, int previous, int current);

    Studio& studio_;
    Sounding& sounding_;
};

}  // namespace melvane
