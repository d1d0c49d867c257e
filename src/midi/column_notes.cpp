#include "midi/column_notes.h"

#include "core/names.h"

namespace melvane {

void ColumnNotes::forgetPlayedCells() {
    for (std::size_t track = 0; track <= lastTrackNumber; ++track) {
        studio_.player.LastPlayedCell[track] = -1;
        studio_.player.LastPlayedInstrument[track] = -1;
    }
}

void ColumnNotes::PlayNotes() {
    for (int track = 0; track <= lastTrackNumber; ++track) {
        if (!studio_.isHidden(track)) playTrack(track);
    }
}

void ColumnNotes::playTrack(int track) {
    auto& player = studio_.player;
    const auto& score = studio_.score;
    const auto at = static_cast<std::size_t>(track);
    studio_.tracks.LastTrack = static_cast<Int16>(track);
    const int previous = player.LastPlayedCell[at];
    const int column = player.PlayColumn;
    const int current = score.noteCell(track, column);
    player.PreviousCellState = playedState(previous);
    player.CurrentCellState = playedState(current);
    // Without the shift that StartNote has: this is the value that notes of tracks not selected sound with.
    if (const auto velocity = score.VolumeArray.find(track, column))
        studio_.tracks.TrackVolume[at] = *velocity;
    const bool starts = cell::isStart(current);
    const int instrument = score.InstArray.get(track, column, 0);
    if (starts && instrument != player.LastPlayedInstrument[at])
        sounding_.ChangeInstrument(instrument, track);
    changeSound(track, previous, current);
    player.LastPlayedCell[at] = static_cast<Int16>(current);
    if (starts) player.LastPlayedInstrument[at] = static_cast<Int16>(instrument);
}

/// A sustaining cell changes nothing, whatever row it names and whatever came before.
void ColumnNotes::changeSound(int track, int previous, int current) {
    if (cell::isContinuation(current)) return;
    if (!cell::isEmpty(previous)) sounding_.StopNote(cell::row(previous));
    if (cell::isStart(current)) sounding_.StartNote(current, track);
}

void ColumnNotes::stopVisibleNotes() {
    for (int track = 0; track <= lastTrackNumber; ++track) {
        if (studio_.isHidden(track)) continue;
        studio_.tracks.LastTrack = static_cast<Int16>(track);
        const int last = studio_.player.LastPlayedCell[static_cast<std::size_t>(track)];
        if (!cell::isEmpty(last)) sounding_.StopNote(cell::row(last));
    }
}

void ColumnNotes::listNames(NameTables& tables) {
    tables.operations.add("form1", "PlayNotes", this, &ColumnNotes::PlayNotes);
    tables.operations.add("form1", "FindSongEnd", this, &ColumnNotes::FindSongEnd);
}

}  // namespace melvane
