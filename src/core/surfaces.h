#pragma once
#include "core/controls.h"

namespace melvane {

/// The two areas on which notes are drawn.
enum class Area { tablet, tableau };
enum class DrawingPointer { upArrow, pencil, arrow, cross };

/// The pictures of the main window, as the engine works with them: surfaces that keep their pixels, painted
/// anew from the grids or saved and put back in strips. Columns and rows are those of the page, from 0. A
/// window implements it; tests record the calls. User-interface thread.
class Surfaces {
 public:
    virtual ~Surfaces() = default;

    // the tablet
    virtual void DrawNoteArray() = 0;
    virtual void clearTablet() = 0;
    /// A strip as wide as the tablet, 15 pixels high, at y = row times 12 whatever the row height is.
    virtual void GetRow(int row) = 0;
    virtual void PutRow(int row) = 0;
    /// A strip 13 pixels wide, as high as the tablet, at x = column times 12.
    virtual void GetColumn(int column) = 0;
    virtual void PutColumn(int column) = 0;
    virtual void GetBox() = 0;
    virtual void PutBox() = 0;
    /// A bar from the column's left edge to 3 pixels right of it, the full height, on the screen picture.
    virtual void drawPlayCursor(int column) = 0;
    // what a press or a drag shows until its release repaints
    virtual void setPointer(Area area, DrawingPointer pointer) = 0;
    /// The head of a note in CurrentTrackColor.
    virtual void drawHead(Area area, int column, int row) = 0;
    /// The bar of a note in hand, from `column` to `lastColumn`, then its head.
    virtual void drawDraggedNote(Area area, int column, int lastColumn, int row) = 0;
    /// The edge of a selection: a line at the column's left edge.
    virtual void drawSelectionLine(int column) = 0;
    /// A selection while the mouse draws it: a bar as high as the tablet, from the left edge of `column` to
    /// that of `lastColumn`, where the moving edge stands.
    virtual void drawSelectionBand(int column, int lastColumn) = 0;
    /// The yellow box around a note under test, in pixels; its corners may stand in any order.
    virtual void markTestedNote(int x1, int y1, int x2, int y2) = 0;
    /// Repaints the selector with its cursor in `column` of the page: the column's width less one, 27 pixels
    /// high. It stays on that column of the score, whatever is repainted, until it is drawn again.
    virtual void drawSelectorCursor(int column, Colour colour) = 0;

    /// A ring of radius 7 around the head of the note that starts at `column` on `row`.
    virtual void drawChordRing(int column, int row, Colour colour) = 0;

    // what stands around it
    virtual void DrawBeatArray() = 0;
    virtual void DrawSideBar() = 0;
    virtual void DrawTopBar() = 0;
    virtual void DrawSelectorGrid() = 0;
    virtual void DrawBarStrip() = 0;
    virtual void DrawPolyStrip() = 0;
    /// Fills the polynote strip's cell from (x + 1, 0) to (x + 11, 16); x in pixels.
    virtual void fillPolyCell(int x, Colour colour) = 0;

    virtual void focusTablet() = 0;
    virtual void focusTableau() = 0;
};

}  // namespace melvane
