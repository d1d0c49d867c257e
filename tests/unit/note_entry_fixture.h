#pragma once
#include "program_fixture.h"

namespace melvane::test {

using Lines = std::vector<std::string>;

/// Mouse buttons.
inline constexpr int left = 1, right = 2, middle = 4;

/// The tablet of a page of 41 columns, with gestures on its cells.
class NoteEntryTest : public ProgramTest {
 protected:
    void SetUp() override {
        start();
        studio.form1.MusicBox.setWidth(12 * 42);
        first = studio.page.FirstRow;
        surfaces.calls.clear();
    }
    /// The middle of a cell of the page.
    static double x(int column) { return column * 12 + 6; }
    double y(int row) const { return row * studio.page.LineHeight + studio.page.LineHeight / 2.0; }
    void press(int column, int row, int button = left) {
        engine.entry.MusicBox_MouseDown(button, 0, x(column), y(row));
    }
    void move(int column, int row, int button = left) {
        engine.entry.MusicBox_MouseMove(button, 0, x(column), y(row));
    }
    void release(int column, int row, int button = left) {
        engine.entry.MusicBox_MouseUp(button, 0, x(column), y(row));
    }
    void draw(int column, int lastColumn, int row) {
        press(column, row);
        move(lastColumn, row);
        release(lastColumn, row);
    }
    std::vector<int> cells(int track, int from, int to) const {
        std::vector<int> found;
        for (int column = from; column <= to; ++column) found.push_back(studio.score.noteCell(track, column));
        return found;
    }
    int first = 0;
};

}  // namespace melvane::test
