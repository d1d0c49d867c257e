#include "core/grid_blocks.h"

#include <gtest/gtest.h>

#include <numeric>

namespace melvane {
namespace {

using Cells = std::vector<std::int16_t>;

Cells cellsOf(const Grid& grid, int track) {
    const auto row = grid.row(track);
    return {row.begin(), row.end()};
}

/// Columns 0 to 7 of track 2 hold 0 to 7.
Grid counted() {
    Grid grid(7, -5);
    std::iota(grid.row(2).begin(), grid.row(2).end(), std::int16_t{0});
    return grid;
}

TEST(GridBlocks, CopyingMovesCellsWithinATrackInEitherDirection) {
    Grid grid = counted();
    copyColumns(grid, 2, grid, 2, {1, 5}, 2);
    EXPECT_EQ(cellsOf(grid, 2), (Cells{0, 3, 4, 5, 6, 7, 6, 7}));
    grid = counted();
    copyColumns(grid, 2, grid, 2, {3, 7}, -3);
    EXPECT_EQ(cellsOf(grid, 2), (Cells{0, 1, 2, 0, 1, 2, 3, 4}));
}

TEST(GridBlocks, CopyingPassesOverWhatEitherGridDoesNotHave) {
    const Grid source = counted();
    Grid target(4, -1);
    copyColumns(source, 2, target, 9, {-3, 100}, 5);
    EXPECT_EQ(cellsOf(target, 9), (Cells{5, 6, 7, -1, -1}));
    copyColumns(source, 2, target, 9, {-3, 100}, -2);
    EXPECT_EQ(cellsOf(target, 9), (Cells{5, 6, 0, 1, 2}));
    const Grid before = target;
    copyColumns(source, 2, target, 9, {3, 2}, 0);
    copyColumns(source, 16, target, 9, {0, 4}, 0);
    copyColumns(source, 2, target, -1, {0, 4}, 0);
    copyColumns(source, 2, target, 9, {0, 4}, 1'000'000);
    copyColumns(Grid(), 2, target, 9, {0, 4}, 0);
    EXPECT_EQ(target, before);
}

TEST(GridBlocks, RepeatingBackwardsWritesOverWhatItReadsNext) {
    Grid grid = counted();
    repeatColumnsBackwards(grid, 2, {1, 7}, 2);
    EXPECT_EQ(cellsOf(grid, 2), (Cells{0, 7, 6, 7, 6, 7, 6, 7}));
    repeatColumnsBackwards(grid, 2, {-9, 99}, 3);
    EXPECT_EQ(cellsOf(grid, 2), (Cells{6, 7, 7, 6, 7, 7, 6, 7}));
    const Grid before = grid;
    repeatColumnsBackwards(grid, -1, {0, 7}, 2);
    EXPECT_EQ(grid, before);
}

TEST(GridBlocks, FillingStaysInsideTheTrack) {
    Grid grid = counted();
    fillColumns(grid, 2, {6, 99}, 64);
    fillColumns(grid, 2, {-9, 0}, 65);
    fillColumns(grid, 2, {5, 4}, 66);
    fillColumns(grid, 99, {0, 7}, 67);
    EXPECT_EQ(cellsOf(grid, 2), (Cells{65, 1, 2, 3, 4, 5, 64, 64}));
    EXPECT_EQ(cellsOf(grid, 1), Cells(8, -5));
    EXPECT_EQ(cellsOf(grid, 3), Cells(8, -5));
}

TEST(GridBlocks, OnlyAContinuationBecomesAStart) {
    Grid grid(3, 1000);
    makeStart(grid, 0, 0);
    grid.set(0, 1, 999);
    makeStart(grid, 0, 1);
    grid.set(0, 2, -1);
    makeStart(grid, 0, 2);
    makeStart(grid, 0, 4);
    EXPECT_EQ(cellsOf(grid, 0), (Cells{0, 999, -1, 1000}));
}

TEST(GridBlocks, MirroringMakesEveryCellOfANoteAStart) {
    Grid notes(5, -1), instruments(5, 0);
    std::ranges::copy(Cells{40, 1040, -1, 50, -2, 60}, notes.row(0).begin());
    std::ranges::copy(Cells{1, 2, 3, 4, 5, 6}, instruments.row(0).begin());
    mirrorColumns(notes, instruments, 0, {0, 4});
    EXPECT_EQ(cellsOf(notes, 0), (Cells{-1, 50, -1, 40, 40, 60}));
    EXPECT_EQ(cellsOf(instruments, 0), (Cells{5, 4, 3, 2, 1, 6}));
}

TEST(GridBlocks, AColumnWhoseMirrorLiesOutsideStaysAsItIs) {
    Grid notes(3, -1), instruments(3, 0);
    std::ranges::copy(Cells{40, 41, 42, 43}, notes.row(0).begin());
    mirrorColumns(notes, instruments, 0, {1, 5});
    EXPECT_EQ(cellsOf(notes, 0), (Cells{40, 41, 42, 43}));
    mirrorColumns(notes, instruments, 0, {0, 4});
    EXPECT_EQ(cellsOf(notes, 0), (Cells{40, 43, 42, 41}));
}

}  // namespace
}  // namespace melvane
