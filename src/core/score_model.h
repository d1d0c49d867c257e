#pragma once
#include "core/sounder.h"
#include "core/studio.h"
#include "core/surfaces.h"

namespace melvane {

class QuickCompose;
struct NameTables;

/// The operations on the whole score: making and resizing the grids, and the clears. There is no undo beside
/// them.
class ScoreModel {
 public:
    ScoreModel(Studio& studio, Surfaces& surfaces, Sounder& sounder, QuickCompose& panel)
        : studio_(studio), surfaces_(surfaces), sounder_(sounder), panel_(panel) {}

    /// Makes all grids, the clipboard's too, for columns 0 to NumNotes.
    void createGrids();
    /// Gives the score columns 0 to `lastColumn` with the contents kept; new columns hold 0, not the empty
    /// values. A negative number is stored in NumNotes and leaves the grids as they are. The value grids of
    /// the clipboard stay.
    void resizeGrids(int lastColumn);

    /// Notes, their instruments and their chords, on tracks 0 to 12.
    void ClearNoteArrays();
    void ClearPolies();
    /// The whole score. With the Setup toolbar closed Tempo stays.
    void ClearAll();
    /// All chords, effects and velocities; the notes stay, and every cell of tracks 0 to 12 gets
    /// MelodyInstrument.
    void ClearEffects();
    /// An empty score with the percussion in front.
    void CmdBeatactivate();
    /// The blank tablet of the tutorial; velocities and effects stay.
    void mNew_Click();

    void listNames(NameTables& tables);

 private:
    void forgetPosition();
    void resetCounts();
    void resetEffects();
    void resetSetupToolbar();
    void returnToStart();
    void showFromStart(int track);
    void pressChannel(int track);

    Studio& studio_;
    Surfaces& surfaces_;
    Sounder& sounder_;
    QuickCompose& panel_;
};

}  // namespace melvane
