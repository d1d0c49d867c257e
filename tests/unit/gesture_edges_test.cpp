#include "note_entry_fixture.h"

namespace melvane::test {
namespace {

using Cells = std::vector<int>;

constexpr int selecting = 2;
constexpr int page = 100;  // the first column of a later page

/// Gestures at the last pixel, the last column and the last round of what they are allowed.
class GestureEdgesTest : public NoteEntryTest {
 protected:
    void SetUp() override {
        NoteEntryTest::SetUp();
        margin = studio.form1.MusicBox.width() - 24;
    }
    void moveTo(double X, int button = left) { engine.entry.MusicBox_MouseMove(button, 0, X, y(3)); }
    void pressBeat(int column, int button = left) {
        engine.tableau.Beatbox_MouseDown(button, 0, x(column), 14);
    }
    void moveBeat(double X) { engine.tableau.Beatbox_MouseMove(left, 0, X, 14); }
    void releaseBeat(int column) { engine.tableau.Beatbox_MouseUp(left, 0, x(column), 14); }
    int bar() const { return studio.form1.HScroll1.value(); }

    double margin = 0;
    Drag& drag = studio.drag;
    Playback& player = studio.player;
};

TEST_F(GestureEdgesTest, TheMarginBeginsOnePixelBehindItsWidth) {
    const int before = bar();
    press(3, 3);
    moveTo(margin);
    EXPECT_EQ(bar(), before);
    EXPECT_TRUE(drag.MouseIsDown) << "the note is still in hand";
    moveTo(margin + 1);
    EXPECT_EQ(bar(), before + 1);
    EXPECT_FALSE(drag.MouseIsDown);
    EXPECT_EQ(studio.form1.MusicBox.tip(), "Scroll ahead ");
}

TEST_F(GestureEdgesTest, TheRightButtonsMarginIsTheSame) {
    const int before = bar();
    press(3, 3, right);
    moveTo(margin, right);
    EXPECT_EQ(bar(), before);
    moveTo(margin + 1, right);
    EXPECT_EQ(bar(), before + 5);
    EXPECT_EQ(studio.form1.MusicBox.tip(), "Scroll to next page");
}

TEST_F(GestureEdgesTest, TheSelectionsMarginIsTheSame) {
    studio.selection.EditMode = selecting;
    const int before = bar();
    press(3, 3);
    moveTo(margin);
    EXPECT_EQ(bar(), before);
    moveTo(margin + 1);
    EXPECT_EQ(bar(), before + 1);
}

TEST_F(GestureEdgesTest, ASelectionOfALaterPageIsPlayedFromThePagesStart) {
    studio.selection.EditMode = selecting;
    studio.page.FirstColumn = page;
    press(4, 3);
    EXPECT_EQ(player.PlayRangeStart, page);
    release(9, 3);
    EXPECT_EQ(player.PlayRangeEnd, page + 9);
    player.PlayRangeStart = 0;
    studio.selection.SelStart = -1;
    pressBeat(5);
    EXPECT_EQ(player.PlayRangeStart, page);
}

TEST_F(GestureEdgesTest, ASelectingDragServesWhatIsDue) {
    studio.selection.EditMode = selecting;
    press(4, 3);
    int served = 0;
    time.at(0, [&] {
        ++served;
        EXPECT_EQ(surfaces.calls.back(), "band 4 9") << "the band is there by then";
    });
    move(9, 3);
    EXPECT_EQ(served, 1);
    time.at(0, [&] { ++served; });
    move(9, 3);
    EXPECT_EQ(served, 1) << "nothing is drawn and nothing served for the same column";
}

TEST_F(GestureEdgesTest, ADragOnTheTableauEndsInsideThePageAndNotBeforeItsPress) {
    for (const int mode : {0, selecting}) {
        studio.selection.EditMode = static_cast<Int16>(mode);
        pressBeat(4);
        moveBeat(x(9));
        EXPECT_EQ(drag.DragEndColumn, 9) << mode;
        moveBeat(x(2));
        EXPECT_EQ(drag.DragEndColumn, 4) << mode;
        moveBeat(5000);
        EXPECT_EQ(drag.DragEndColumn, studio.page.PageColumns) << mode;
        releaseBeat(4);
    }
}

TEST_F(GestureEdgesTest, AScoreThatEndsBeforeItsStartLosesTheHeadAlone) {
    write(0, 3, first + 3, 4);
    write(8, 3, first + 1, 4);
    studio.score.NumNotes = -1;
    press(3, 3, right);
    EXPECT_EQ(cells(0, 2, 7), (Cells{-1, -1, 1003 + first, 1003 + first, 1003 + first, -1}));
    pressBeat(3, right);
    EXPECT_EQ(cells(8, 2, 7), (Cells{-1, -1, 1001 + first, 1001 + first, 1001 + first, -1}));
}

}  // namespace
}  // namespace melvane::test
