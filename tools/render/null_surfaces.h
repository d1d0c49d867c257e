#pragma once
#include <functional>

#include "core/surfaces.h"

namespace melvane {

/// Pictures that nobody sees. The play cursor is the one sign of life: it comes once a column.
class NullSurfaces final : public Surfaces {
 public:
    std::function<void()> columnPlayed;

    void DrawNoteArray() override {}
    void clearTablet() override {}
    void GetRow(int) override {}
    void PutRow(int) override {}
    void GetColumn(int) override {}
    void PutColumn(int) override {}
    void GetBox() override {}
    void PutBox() override {}
    void drawPlayCursor(int) override {
        if (columnPlayed) columnPlayed();
    }
    void setPointer(Area, DrawingPointer) override {}
    void drawHead(Area, int, int) override {}
    void drawDraggedNote(Area, int, int, int) override {}
    void drawSelectionLine(int) override {}
    void drawSelectionBand(int, int) override {}
    void markTestedNote(int, int, int, int) override {}
    void drawSelectorCursor(int, Colour) override {}
    void drawChordRing(int, int, Colour) override {}
    void DrawBeatArray() override {}
    void DrawSideBar() override {}
    void DrawTopBar() override {}
    void DrawSelectorGrid() override {}
    void DrawBarStrip() override {}
    void DrawPolyStrip() override {}
    void fillPolyCell(int, Colour) override {}
    void focusTablet() override {}
    void focusTableau() override {}
};

}  // namespace melvane
