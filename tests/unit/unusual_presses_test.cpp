#include "note_entry_fixture.h"

namespace melvane::test {
namespace {

using Cells = std::vector<int>;

class UnusualPressesTest : public NoteEntryTest {
 protected:
    void pressAt(double X, double Y, int button = left) { engine.entry.MusicBox_MouseDown(button, 0, X, Y); }
    void releaseAt(double X, double Y, int button = left) { engine.entry.MusicBox_MouseUp(button, 0, X, Y); }
    void pressTableau(double X, double Y, int button = left) {
        engine.tableau.Beatbox_MouseDown(button, 0, X, Y);
    }
    void releaseTableau(double X, double Y, int button = left) {
        engine.tableau.Beatbox_MouseUp(button, 0, X, Y);
    }
    bool empty(int track) const {
        return std::ranges::all_of(studio.score.NoteArray.row(track), [](int value) { return value == -1; });
    }
};

TEST_F(UnusualPressesTest, LeftOfTheGridNothingIsWritten) {
    write(0, 0, 60, 4);
    for (const int button : {left, right, middle}) {
        pressAt(-30, 26, button);
        releaseAt(40, 26, button);
    }
    EXPECT_EQ(cells(0, 0, 4), (Cells{60, 1060, 1060, 1060, -1}));
    pressTableau(-30, 14);
    releaseTableau(40, 14);
    EXPECT_TRUE(empty(8));
}

TEST_F(UnusualPressesTest, AboveTheTopRowNothingIsWritten) {
    studio.page.FirstRow = 0;
    pressAt(30, -30);
    releaseAt(30, -30);
    EXPECT_TRUE(empty(0));
    pressTableau(30, -30);
    releaseTableau(30, -30);
    EXPECT_TRUE(empty(8));
}

TEST_F(UnusualPressesTest, BeyondTheEndOfTheScoreNothingIsWritten) {
    engine.score.resizeGrids(20);
    press(18, 3);
    release(30, 3);
    EXPECT_EQ(cells(0, 17, 21), (Cells{-1, first + 3, 1003 + first, 1003 + first, -1}));
    press(25, 3);
    release(30, 3);
    press(25, 3, right);
    release(25, 3, right);
    EXPECT_EQ(cells(0, 20, 21), (Cells{1003 + first, -1}));
    engine.selector.Pic2a_MouseDown(right, 0, 25 * 12, 5);
    EXPECT_EQ(studio.form1.LblNote.text(), "26");
}

TEST_F(UnusualPressesTest, FarOutsideNothingHappens) {
    for (const double far : {-1e9, 1e9, 1e300}) {
        pressAt(far, far);
        engine.entry.MusicBox_MouseMove(left, 0, far, far);
        releaseAt(far, far);
        pressTableau(far, far);
        engine.tableau.Beatbox_MouseMove(left, 0, far, far);
        releaseTableau(far, far);
    }
    for (const int track : {0, 8}) EXPECT_TRUE(empty(track));
}

TEST_F(UnusualPressesTest, TheOtherButtonInADragDoesItsOwnWork) {
    write(0, 6, first + 9, 2, 5);
    press(2, 3);
    press(7, 9, right);
    EXPECT_EQ(cells(0, 6, 7), (Cells{-1, -1})) << "erased in the middle of the drag";
    release(7, 9, right);
    EXPECT_FALSE(studio.drag.MouseIsDown) << "any release ends a drag";
    release(9, 3);
    EXPECT_TRUE(empty(0));
}

TEST_F(UnusualPressesTest, WithBothButtonsHeldTheLeftOneCounts) {
    write(0, 6, first + 9, 2, 5);
    press(2, 3);
    surfaces.calls.clear();
    move(7, 9, left + right);
    EXPECT_EQ(surfaces.count("bar 2 7 3"), 1U);
    EXPECT_EQ(cells(0, 6, 7), (Cells{first + 9, 1009 + first})) << "nothing is erased";
    release(7, 3);
    EXPECT_EQ(cells(0, 2, 8),
              (Cells{first + 3, 1003 + first, 1003 + first, 1003 + first, 1003 + first, 1003 + first, -1}));
}

TEST_F(UnusualPressesTest, TheMiddleButtonDrawsNothing) {
    press(2, 3, middle);
    EXPECT_TRUE(studio.drag.MouseIsDown);
    move(5, 3, middle);
    release(5, 3, middle);
    EXPECT_TRUE(empty(0));
    EXPECT_FALSE(studio.drag.MouseIsDown);
    EXPECT_TRUE(sent().empty());
}

TEST_F(UnusualPressesTest, ASecondPressForgetsTheFirst) {
    press(2, 3);
    press(10, 5);
    release(12, 5);
    EXPECT_EQ(cells(0, 2, 4), (Cells{-1, -1, -1}));
    EXPECT_EQ(cells(0, 10, 12), (Cells{first + 5, 1005 + first, 1005 + first}));
    release(14, 5);
    EXPECT_EQ(studio.score.noteCell(0, 13), -1);
}

TEST_F(UnusualPressesTest, AReleaseDuringAPlaybackLeavesTheDragInHand) {
    press(2, 3);
    studio.player.Playing = true;
    move(4, 3);
    release(4, 3);
    EXPECT_TRUE(empty(0));
    press(9, 3);
    EXPECT_EQ(studio.drag.DragColumn, 2) << "a press is no press meanwhile";
    studio.player.Playing = false;
    release(4, 3);
    EXPECT_EQ(cells(0, 2, 5), (Cells{first + 3, 1003 + first, 1003 + first, -1}));
}

TEST_F(UnusualPressesTest, ADragFromTheTabletToTheTableauWritesOnce) {
    press(2, 3);
    pressTableau(30, 14);
    releaseTableau(54, 14);
    EXPECT_TRUE(empty(0)) << "the press on the tableau has taken the drag over";
    EXPECT_EQ(cells(8, 1, 5), (Cells{-1, first + 1, 1001 + first, 1001 + first, -1}));
    release(4, 3);
    EXPECT_TRUE(empty(0));
}

TEST_F(UnusualPressesTest, APageScrolledInTheMiddleOfADragIsTheReleases) {
    press(2, 3);
    studio.page.FirstColumn = 50;
    studio.page.FirstRow = static_cast<Int16>(first + 4);
    release(4, 3);
    EXPECT_EQ(cells(0, 2, 4), (Cells{-1, -1, -1}));
    EXPECT_EQ(cells(0, 52, 55), (Cells{first + 7, 1007 + first, 1007 + first, -1}));
}

TEST_F(UnusualPressesTest, RowsWithoutAHeightWriteOnTheRowBefore) {
    press(2, 3);
    release(2, 3);
    studio.page.LineHeight = 0;
    pressAt(90, 26);
    releaseAt(90, 26);
    EXPECT_EQ(studio.score.noteCell(0, 7), first + 3);
}

TEST_F(UnusualPressesTest, TheNumberOfPercussionChannelsGoesDownWithTheTrack) {
    const auto countAfter = [this](int track) {
        engine.channels.Label8_Click(track);
        return studio.score.PercussionCount;
    };
    EXPECT_EQ(countAfter(12), 4);
    EXPECT_EQ(countAfter(10), 2);
    EXPECT_EQ(countAfter(3), 2) << "a melody track leaves it";
    EXPECT_EQ(countAfter(8), 1);
    EXPECT_EQ(countAfter(11), 3);
    studio.tracks.CurrentTrack = 8;
    pressTableau(30, 14);
    EXPECT_EQ(studio.score.PercussionCount, 1) << "a press does so too";
}

}  // namespace
}  // namespace melvane::test
