#pragma once
#include "core/studio.h"
#include "files/chord_voices.h"

/// One track of a score as MIDI events, by the rules of a playback. What a walk remembers is in the state
/// before and after: the cell and the instrument played last, the column of the last event, the percussion
/// sound in force. The functions take the byte in hand and answer the next one, as those of MidiBytes do.
/// `track` from 0 to 15.
namespace melvane {

/// Columns 0 to the one before SongEndColumn.
int writeTrackColumns(Studio& studio, int track, int at, ChordVoices& voices);

/// Without its time. Velocity goes out unscaled, from one column to the right; where there is none, the
/// track's last one does.
int writeNoteOn(Studio& studio, int track, int column, int at);

/// Ends what was played last, with the percussion sound in force now. Without its time.
int writeNoteOff(Studio& studio, int track, int at);

}  // namespace melvane
