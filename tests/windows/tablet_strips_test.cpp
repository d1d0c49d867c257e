#include "main_window_fixture.h"

namespace melvane::test {

namespace {

const QColor paper(255, 255, 255), cursor(255, 192, 192);

}  // namespace

class TabletStripsTest : public MainWindowTest {
 protected:
    TabletStripsTest() {
        write(0, 2, 47, 3);
        write(0, 7, 52, 2);
        window.DrawNoteArray();
        before = tablet().picture().copy();
    }
    bool sameAsBefore(QRect area) { return tablet().picture().copy(area) == before.copy(area); }
    bool isBlank(QRect area) {
        const QImage part = tablet().picture().copy(area);
        QImage blank(part.size(), part.format());
        blank.fill(Qt::white);
        return part == blank;
    }

    QImage before;
};

TEST_F(TabletStripsTest, ARowStripIsPutBackFifteenPixelsHigh) {
    const int width = tablet().width();
    window.GetRow(5);
    window.clearTablet();
    window.PutRow(5);
    EXPECT_TRUE(sameAsBefore({0, 60, width, 15}));
    EXPECT_TRUE(isBlank({0, 0, width, 60}));
    EXPECT_TRUE(isBlank({0, 75, width, 100}));
}

TEST_F(TabletStripsTest, AColumnStripIsPutBackThirteenPixelsWide) {
    const int height = tablet().height();
    window.GetColumn(3);
    window.clearTablet();
    window.PutColumn(3);
    EXPECT_TRUE(sameAsBefore({36, 0, 13, height}));
    EXPECT_TRUE(isBlank({0, 0, 36, height}));
    EXPECT_TRUE(isBlank({49, 0, 100, height}));
}

TEST_F(TabletStripsTest, ASavedRowCanBePutElsewhere) {
    window.GetRow(3);
    window.PutRow(10);
    const int width = tablet().width();
    EXPECT_EQ(tablet().picture().copy(0, 120, width, 15), before.copy(0, 36, width, 15));
    EXPECT_TRUE(sameAsBefore({0, 0, width, 120}));
}

TEST_F(TabletStripsTest, TheWholeTabletIsPutBack) {
    window.GetBox();
    window.clearTablet();
    EXPECT_FALSE(sameAsBefore(before.rect()));
    window.PutBox();
    EXPECT_TRUE(sameAsBefore(before.rect()));
}

TEST_F(TabletStripsTest, StripsOutsideTheTabletChangeNothing) {
    window.GetRow(1000);
    window.PutRow(-3);
    window.GetColumn(-2);
    window.PutColumn(30000);
    EXPECT_TRUE(sameAsBefore(before.rect()));
}

TEST_F(TabletStripsTest, TheCursorIsOnTheScreenButNotInTheKeptPicture) {
    window.GetColumn(4);
    window.drawPlayCursor(4);
    for (int x = 48; x <= 51; ++x) EXPECT_EQ(seen(x, 10), cursor) << x;
    EXPECT_NE(seen(47, 10), cursor);
    EXPECT_NE(seen(52, 10), cursor);
    EXPECT_EQ(seen(48, tablet().height() - 1), cursor);
    EXPECT_TRUE(sameAsBefore(before.rect()));
}

TEST_F(TabletStripsTest, PuttingTheColumnBackRemovesTheCursor) {
    window.GetColumn(4);
    window.drawPlayCursor(4);
    window.PutColumn(4);
    EXPECT_EQ(tablet().screenPicture(), before);
}

TEST_F(TabletStripsTest, ARepaintRemovesTheCursor) {
    window.drawPlayCursor(4);
    window.DrawNoteArray();
    EXPECT_EQ(tablet().screenPicture(), before);
}

TEST_F(TabletStripsTest, AChordRingIsPaintedAndWipedAroundTheHead) {
    window.drawChordRing(2, 5, Colour{255, 0, 0});
    EXPECT_EQ(kept(29, 38), QColor(255, 0, 0));
    EXPECT_EQ(kept(29, 45), pixel(before, 29, 45)) << "the head stays";
    window.drawChordRing(2, 5, Colour{255, 255, 255});
    EXPECT_EQ(kept(29, 38), paper);
}

TEST_F(TabletStripsTest, DuringAPlaybackTheTabletIsDisabledButNotGrey) {
    bool enabled = true;
    QImage screen;
    write(0, 40, 50, 10);
    time.at(700, [&] {
        enabled = tablet().isEnabled();
        screen = tablet().grab().toImage();
    });
    engine.player.PlayAndStop_Click(0);
    ASSERT_FALSE(screen.isNull());
    EXPECT_FALSE(enabled);
    EXPECT_EQ(screen.pixelColor(30, 12), paper);
    int cursorPixels = 0;
    for (int x = 0; x < screen.width(); ++x) cursorPixels += screen.pixelColor(x, 12) == cursor ? 1 : 0;
    EXPECT_EQ(cursorPixels, 4);
    EXPECT_TRUE(tablet().isEnabled()) << "after the playback";
}

TEST_F(TabletStripsTest, APlaybackTakesTheFocusAndGivesItBack) {
    write(0, 40, 50, 10);
    tablet().setFocus();
    bool somewhere = true;
    time.at(700, [&] { somewhere = window.focusWidget() != nullptr; });
    engine.player.PlayAndStop_Click(0);
    EXPECT_FALSE(somewhere) << "a neighbour has it meanwhile";
    EXPECT_EQ(window.focusWidget(), &tablet());
}

}  // namespace melvane::test
