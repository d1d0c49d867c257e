#pragma once
#include <vector>

#include "core/grid_pairs.h"
#include "program_fixture.h"

namespace melvane::test {

using Cells = std::vector<int>;

class BlockEditingTest : public ProgramTest {
 protected:
    void SetUp() override { start(); }
    Cells cells(int track, int from, int to) const { return read(studio.score.NoteArray, track, from, to); }
    static Cells read(const Grid& grid, int track, int from, int to) {
        Cells found;
        for (int column = from; column <= to; ++column) found.push_back(grid.get(track, column, -99));
        return found;
    }
    void select(int from, int to) {
        studio.selection.SelStart = static_cast<Int16>(from);
        studio.selection.SelEnd = static_cast<Int16>(to);
    }
    void hide(int track, bool hidden = true) {
        studio.Form3.TrackHide[static_cast<std::size_t>(track)].set(hidden);
    }
    void resize(int lastColumn) { engine.score.resizeGrids(lastColumn); }
    BlockEditing& blocks = engine.blocks;
    Selection& selection = studio.selection;
    Clipboard& clip = studio.clipboard;
};

}  // namespace melvane::test
