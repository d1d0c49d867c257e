#pragma once
#include "core/studio.h"

namespace melvane {

/// The header and the track of tempo and meter, bytes 1 to 41, which is the byte in hand afterwards.
void writeMidiHead(Studio& studio);

/// Bytes 27 to 29: microseconds a quarter note. A tempo of 0 leaves them, and so does each byte that does not
/// fit, as the first of a tempo below 4.
void writeMidiTempo(Studio& studio);

/// The length of the track in hand, in the four bytes before its data, the highest first.
void writeTrackLength(MidiExportState& state);

}  // namespace melvane
