#include "core/grid.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/note_names.h"

namespace melvane {
namespace {

TEST(Grid, AScoreOfAThousandHasAThousandAndOneColumns) {
    Grid grid(1000);
    EXPECT_EQ(grid.row(0).size(), 1001U);
    EXPECT_TRUE(grid.contains(15, 1000));
    EXPECT_FALSE(grid.contains(0, 1001));
}

TEST(Grid, NothingOutOfRangeIsFoundOrWritten) {
    Grid grid(3, -1);
    const Grid before = grid;
    grid.set(0, 4, 5);
    grid.set(0, -1, 5);
    grid.set(-1, 0, 5);
    grid.set(16, 0, 5);
    grid.set(0, 0, 40000);
    EXPECT_EQ(grid, before);
    EXPECT_EQ(grid.find(0, 4), std::nullopt);
    EXPECT_EQ(grid.get(16, 0, 9), 9);
    EXPECT_TRUE(grid.row(16).empty());
}

TEST(Grid, AResizeKeepsWhatFitsAndFillsWithZero) {
    Grid grid(2, -1);
    grid.set(5, 2, 67);
    grid.resize(4);
    EXPECT_EQ(grid.get(5, 2, 0), 67);
    EXPECT_EQ(grid.get(5, 3, 99), 0);
    grid.resize(1);
    EXPECT_EQ(grid.lastColumn(), 1);
    EXPECT_EQ(grid.get(5, 1, 0), -1);
}

TEST(Grid, ANegativeSizeLeavesTheGrid) {
    Grid grid(2, -1);
    const Grid before = grid;
    grid.resize(-5);
    EXPECT_EQ(grid, before);
}

TEST(Grid, TheContinuationOfTheTopRowIsAThousand) {
    EXPECT_TRUE(cell::isContinuation(1000));
    EXPECT_FALSE(cell::isContinuation(999));
    EXPECT_TRUE(cell::isStart(999));
    EXPECT_TRUE(cell::isEmpty(-7));
    EXPECT_EQ(cell::row(1000), 0);
    EXPECT_EQ(cell::row(1067), 67);
}

TEST(NoteNames, RowsBearTheirOctaveAndStep) {
    const auto names = buildNoteNames();
    EXPECT_EQ(names[67], "5C");
    EXPECT_EQ(names[0], "10G");
    EXPECT_EQ(names[127], "0C");
    EXPECT_EQ(nameOfRow(names, 128), "");
    EXPECT_EQ(nameOfRow(names, -1), "");
    EXPECT_TRUE(isSharp(names[66]));
}

TEST(NoteNames, TheLetterOfACellAgreesWithTheRows) {
    const auto names = buildNoteNames();
    for (int row = 0; row < 128; ++row) {
        EXPECT_TRUE(names[static_cast<std::size_t>(row)].ends_with(NoteName(row))) << row;
        EXPECT_EQ(NoteName(1000 + std::max(row, 1)), NoteName(std::max(row, 1)));
    }
    EXPECT_EQ(NoteName(8), "B");
    EXPECT_EQ(NoteName(19), "C");
    // A continuation of the top row is taken for row 1000.
    EXPECT_NE(NoteName(1000), NoteName(0));
}

}  // namespace
}  // namespace melvane
