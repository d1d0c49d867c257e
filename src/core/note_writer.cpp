#include "core/note_writer.h"

namespace melvane {

bool writeNote(Studio& studio, int first, int last, int row) {
    auto& score = studio.score;
    const int track = studio.tracks.CurrentTrack;
    if (row < 0 || row >= cell::continuation || !score.NoteArray.contains(track, first)) return false;
    const int instrument = studio.tracks.TrackInstrument[static_cast<std::size_t>(track)];
    for (int column = first; column <= last; ++column) {
        score.NoteArray.set(track, column, column == first ? row : cell::continuation + row);
        score.InstArray.set(track, column, instrument);
    }
    return true;
}

void cutNoteBehind(Studio& studio, int last) {
    auto& score = studio.score;
    const int track = studio.tracks.CurrentTrack;
    const int after = score.noteCell(track, last + 1);
    if (cell::isContinuation(after)) score.NoteArray.set(track, last + 1, after - cell::continuation);
}

}  // namespace melvane
