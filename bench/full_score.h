#pragma once
#include <memory>

#include "core/studio.h"

namespace melvane::bench {

/// A studio whose 13 tracks hold a note in every column 0 to `lastColumn`, with values in every grid.
inline std::unique_ptr<Studio> fullStudio(int lastColumn) {
    auto studio = std::make_unique<Studio>();
    auto& score = studio->score;
    score.NumNotes = lastColumn;
    for (Grid* grid : {&score.NoteArray, &score.InstArray, &score.VolumeArray, &score.ModArray,
                       &score.PanArray, &score.ReverbArray, &score.ChorusArray, &score.PolyArray}) {
        grid->create(lastColumn);
    }
    for (int track = 0; track <= lastTrackNumber; ++track) {
        for (int column = 0; column <= lastColumn; ++column) {
            const int row = 30 + (track * 7 + column / 2 * 5) % 60;
            score.NoteArray.set(track, column, column % 2 == 0 ? row : 1000 + row);
            score.InstArray.set(track, column, isMelodyTrack(track) ? track * 5 : 128 + track);
            score.VolumeArray.set(track, column, 60 + column % 60);
            score.ModArray.set(track, column, column % 20);
            score.PanArray.set(track, column, 20 + column % 90);
            score.ReverbArray.set(track, column, column % 128);
            score.ChorusArray.set(track, column, column % 64);
            score.PolyArray.set(track, column, column % 8);
        }
    }
    return studio;
}

}  // namespace melvane::bench
