#pragma once
#include "core/studio.h"
#include "core/surfaces.h"

namespace melvane {

struct NameTables;

/// Whole columns copied, cut, pasted, opened and turned round. A selection is a run of columns without tracks
/// of its own: each operation works on all visible tracks, or with "Edit Selected Track Only" on the current
/// one. The score keeps its length; what is moved beyond its end is lost. There is no undo, and nothing is
/// reported.
class BlockEditing {
 public:
    BlockEditing(Studio& studio, Surfaces& surfaces) : studio_(studio), surfaces_(surfaces) {}

    /// "Copy Selection": the selection goes to the clipboard and is gone from the screen.
    void copyIt();
    /// The selected columns to the clipboard. What is not copied reads as 0 in the clip's notes and
    /// instruments, and as in the clip before in the six other grids. Without a selected column only the
    /// clipboard's size and ClipLength change.
    void CopySelectedArea();
    /// "Cut Selection": copies it and closes the gap. The notes of the last columns are cleared on every
    /// visible track, whichever tracks have moved.
    void CutBut_Click();
    /// "Paste (Overwrite)": the clip at InsertPosition.
    void PasteBut_Click();
    /// "Paste (Insert)": the same behind what is opened for it.
    void PasteIntoBut_Click();
    /// The selection, or the song, backwards: notes and instruments, as single columns. The values beside
    /// them stay.
    void ReverseSelection();

    /// Moves everything from InsertPosition on `count` columns to the right and blanks the gap; chords of the
    /// moved columns come from the clipboard. 0 only splits the notes held over the position.
    void InsertSpaces(int count);
    /// "Insert # Space(s) ": as many as the toolbar's field says.
    void InsertColumnBut_Click();

    void listNames(NameTables& tables);

 private:
    void closeGap(int width);
    void clearEnd(int width);
    void moveTail(int count);
    void pasteCells(int first, int last);
    void forgetSelection();
    void draw();

    Studio& studio_;
    Surfaces& surfaces_;
};

}  // namespace melvane
