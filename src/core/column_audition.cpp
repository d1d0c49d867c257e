#include "core/column_audition.h"

#include "core/names.h"

namespace melvane {

void ColumnAudition::StopColumnNotes() {
    auto& tracks = studio_.tracks;
    const int column = studio_.page.FirstColumn + studio_.drag.PressColumn;
    for (int track = 0; track <= lastTrackNumber; ++track) {
        if (!tracks.TrackActive[static_cast<std::size_t>(track)] || studio_.isHidden(track)) continue;
        const int row = cell::row(studio_.score.noteCell(track, column));
        if (row <= 0) continue;
        tracks.LastTrack = static_cast<Int16>(track);
        sounder_.ChangeInstrument(studio_.score.InstArray.get(track, column, 0), track);
        sounder_.StopNote(row);
    }
}

void ColumnAudition::listNames(NameTables& tables) {
    tables.operations.add("form1", "StopColumnNotes", this, &ColumnAudition::StopColumnNotes);
}

}  // namespace melvane
