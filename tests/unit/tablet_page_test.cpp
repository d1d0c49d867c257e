#include "program_fixture.h"

namespace melvane::test {
namespace {

using Lines = std::vector<std::string>;

class TabletPageTest : public ProgramTest {
 protected:
    void SetUp() override { start(); }
    void resize(int width, int height) {
        studio.form1.client.setWidth(width);
        studio.form1.Picmain.setHeight(height);
        engine.page.Form_Resize();
    }
};

TEST_F(TabletPageTest, TheWindowDecidesThePage) {
    resize(1000, 600);
    EXPECT_EQ(studio.page.PageColumns, 930 / 12 - 1);
    EXPECT_EQ(studio.page.PageRows, 68);
    EXPECT_EQ(studio.page.HalfPageColumns, 38);
    EXPECT_EQ(studio.page.HalfPageRows, 34);
    EXPECT_EQ(studio.page.LastColumn, studio.page.PageColumns);
    const auto& across = studio.form1.HScroll1;
    EXPECT_EQ(across.minimum(), 38);
    EXPECT_EQ(across.maximum(), 999 - (76 - 38));
    EXPECT_EQ(across.largeChange(), 77);
    EXPECT_EQ(across.value(), 38);
    EXPECT_EQ(studio.form1.VScroll1.value(), studio.page.FirstRow + 34);
    EXPECT_FALSE(studio.shell.Resizing);
    EXPECT_TRUE(studio.player.SkipCursorRestore);
}

TEST_F(TabletPageTest, TheLastPageEndsOneBeforeTheLastColumn) {
    resize(1000, 600);
    studio.form1.HScroll1.set(studio.form1.HScroll1.maximum());
    EXPECT_EQ(studio.page.LastColumn, 999);
    studio.form1.HScroll1.set(studio.form1.HScroll1.maximum() + 1);
    EXPECT_EQ(studio.page.LastColumn, 999);
}

TEST_F(TabletPageTest, AGrowingWindowKeepsThePageInsideTheScore) {
    studio.form1.HScroll1.set(studio.form1.HScroll1.maximum());
    resize(2000, 600);
    EXPECT_EQ(studio.page.LastColumn, 999);
    EXPECT_EQ(studio.page.FirstColumn, 999 - studio.page.PageColumns);
}

TEST_F(TabletPageTest, SmallRowsMayPutThePageAboveTheTop) {
    studio.Form3.Text3.set("3");
    resize(1000, 600);
    EXPECT_GT(studio.page.PageRows, 127);
    EXPECT_EQ(studio.page.LastRow, 127);
    EXPECT_LT(studio.page.FirstRow, 0);
    studio.Form3.Text3.set("0");
    resize(1000, 600);
    EXPECT_EQ(studio.page.LineHeight, 0);
}

TEST_F(TabletPageTest, TheFirstMoveDownAfterAResizeJumpsOneRowFurther) {
    resize(1000, 400);
    const int first = studio.page.FirstRow;
    studio.form1.VScroll1.set(studio.form1.VScroll1.value() + 1);
    EXPECT_EQ(studio.page.FirstRow, first + 2);
    studio.form1.VScroll1.set(studio.form1.VScroll1.value() + 1);
    EXPECT_EQ(studio.page.FirstRow, first + 3);
}

TEST_F(TabletPageTest, ScrollingWhileBusyOrResizingDoesNothing) {
    const int row = studio.page.FirstRow, column = studio.page.FirstColumn;
    studio.shell.Busy = true;
    studio.form1.VScroll1.set(studio.form1.VScroll1.value() + 1);
    EXPECT_EQ(studio.page.FirstRow, row);
    studio.shell.Busy = false;
    studio.shell.Resizing = true;
    studio.form1.HScroll1.set(studio.form1.HScroll1.value() + 1);
    EXPECT_EQ(studio.page.FirstColumn, column);
}

TEST_F(TabletPageTest, AMinimisedWindowIsNotMeasured) {
    const int columns = studio.page.PageColumns;
    studio.shell.Minimised = true;
    resize(300, 200);
    EXPECT_EQ(studio.page.PageColumns, columns);
    studio.shell.Minimised = false;
    resize(300, 200);
    EXPECT_NE(studio.page.PageColumns, columns);
}

TEST_F(TabletPageTest, AResizePaintsEverythingOnceInItsOrder) {
    surfaces.calls.clear();
    resize(1000, 600);
    EXPECT_EQ(surfaces.calls, (Lines{"DrawSideBar", "DrawSelectorGrid", "DrawBarStrip", "DrawPolyStrip",
                                     "DrawTopBar", "DrawNoteArray", "DrawBeatArray"}));
}

TEST_F(TabletPageTest, AScoreShorterThanThePageStartsLeftOfIt) {
    engine.score.resizeGrids(20);
    resize(1000, 600);
    EXPECT_EQ(studio.page.LastColumn, 19);
    EXPECT_EQ(studio.page.FirstColumn, 19 - studio.page.PageColumns);
}

TEST_F(TabletPageTest, AScrollRaisesTheCursorsFlagAlsoWithoutARedraw) {
    studio.player.SkipCursorRestore = false;
    studio.page.NoScrollRedraw = true;
    studio.form1.HScroll1.set(90);
    EXPECT_TRUE(studio.player.SkipCursorRestore);
}

TEST_F(TabletPageTest, AMoveDownPaintsNamesNotesAndBeats) {
    surfaces.calls.clear();
    studio.form1.VScroll1.set(studio.form1.VScroll1.value() + 1);
    EXPECT_EQ(surfaces.calls, (Lines{"DrawSideBar", "DrawNoteArray", "DrawBeatArray"}));
}

TEST_F(TabletPageTest, TheSideBarsTextIsWrittenWhileItIsShown) {
    engine.page.DrawSideBar();
    EXPECT_EQ(studio.form1.SideBar.text(), "");
    studio.form1.SideBar.setVisible(true);
    studio.page.FirstRow = 66;
    studio.page.PageRows = 2;
    engine.page.DrawSideBar();
    EXPECT_EQ(studio.form1.SideBar.text(), "       5C#\n5   C\n4   B");
}

TEST_F(TabletPageTest, OnALaterPageTheWalkBeginsLeftOfIt) {
    write(0, 200, 60, 2);
    studio.score.PolyArray.set(1, 201, 2);
    studio.form1.HScroll1.set(190 + studio.page.HalfPageColumns);
    ASSERT_EQ(studio.page.FirstColumn, 190);
    surfaces.calls.clear();
    engine.chords.DrawPolynote(50 + 1 + 190);
    EXPECT_GE(surfaces.count("ring 10 " + std::to_string(60 - studio.page.FirstRow) + " red"), 1U);
}

TEST_F(TabletPageTest, TheStripInFrontRepaintsTheTablet) {
    surfaces.calls.clear();
    engine.chords.Pic3_GotFocus();
    EXPECT_EQ(surfaces.calls, (Lines{"DrawNoteArray"}));
}

TEST_F(TabletPageTest, ClearingByTheToolbarOpensTheChannelAgain) {
    engine.toolbar.Cmd2_Click(0);
    EXPECT_TRUE(studio.tracks.TrackActive[0]);
    EXPECT_EQ(surfaces.calls.back(), "DrawNoteArray");
}

TEST_F(TabletPageTest, APositionFarOutsideDoesNoHarm) {
    for (const double X : {1e18, -1e18, 1e300, -50.0}) {
        engine.chords.Pic3_MouseDown(1, 0, X, 5);
        engine.chords.Pic3_MouseUp(1, 0, X, 5);
        engine.selector.Pic2a_MouseDown(2, 0, X, 5);
        engine.entry.MusicBox_MouseDown(1, 0, X, X);
        engine.entry.MusicBox_MouseUp(1, 0, X, X);
        EXPECT_EQ(engine.page.FindNoteArray(X), -1);
    }
}

TEST_F(TabletPageTest, AScrollRedrawsUnlessToldNotTo) {
    surfaces.calls.clear();
    studio.form1.HScroll1.set(100);
    EXPECT_EQ(surfaces.count("DrawNoteArray"), 1U);
    EXPECT_EQ(surfaces.count("DrawPolyStrip"), 1U);
    studio.page.NoScrollRedraw = true;
    studio.form1.HScroll1.set(101);
    EXPECT_EQ(surfaces.count("DrawNoteArray"), 1U);
    EXPECT_EQ(studio.page.FirstColumn, 101 - studio.page.HalfPageColumns);
}

TEST_F(TabletPageTest, StaffLinesKeepTheirPlaceWhenScrolledOut) {
    resize(1000, 600);
    studio.page.FirstRow = 40;
    engine.page.DrawSideBar();
    EXPECT_EQ(studio.page.StaffY,
              (std::array<Int16, 5>{10 * 8 + 1, 13 * 8 + 1, 16 * 8 + 1, 20 * 8 + 1, 23 * 8 + 1}));
    EXPECT_TRUE(studio.page.SharpRowFlags[9]);
    studio.page.FirstRow = 55;
    engine.page.DrawSideBar();
    EXPECT_EQ(studio.page.StaffY[0], 81);
    EXPECT_EQ(studio.page.StaffY[2], 9);
}

TEST_F(TabletPageTest, AtMostThirteenBarsAreNumbered) {
    Page page;
    page.PageColumns = 99;
    page.FirstColumn = 2;
    const auto labels = barLabels(page, 4);
    ASSERT_EQ(labels.size(), 13U);
    EXPECT_EQ(labels[0], (BarLabel{2 * 12 + 32, 48, "5"}));
    EXPECT_EQ(labels[12].caption, "53");
    EXPECT_TRUE(barLabels(page, 0).empty());
}

TEST_F(TabletPageTest, TheLookUnderTheCursorTakesTheCurrentTrackLast) {
    write(2, 3, 50);
    write(0, 3, 60);
    EXPECT_EQ(engine.page.FindNoteArray(40), 60);
    studio.tracks.CurrentTrack = 2;
    EXPECT_EQ(engine.page.FindNoteArray(40), 50);
    EXPECT_EQ(engine.page.FindNoteArray(0), -1);
}

TEST_F(TabletPageTest, AMarkOnThePolynoteStripSetsTheChordOfItsColumn) {
    studio.form1.Combo3.set(3);
    engine.chords.Pic3_MouseDown(2, 0, 30, 5);
    EXPECT_EQ(studio.score.chordOf(0, 2), 3);
    EXPECT_EQ(studio.score.TopPolyTrack, 1);
    EXPECT_EQ(surfaces.calls.back(), "fillPolyCell 24");
    // The distance moved is kept, and one below 2 does nothing.
    engine.chords.Pic3_MouseMove(2, 0, 31, 5);
    EXPECT_EQ(studio.score.chordOf(0, 2), 3);
    engine.chords.Pic3_MouseMove(2, 0, 31, 5);
    EXPECT_EQ(studio.score.chordOf(0, 2), 0);
}

TEST_F(TabletPageTest, ASingleNoteMarkWritesZero) {
    studio.score.PolyArray.set(1, 2, 4);
    engine.chords.Pic3_MouseDown(1, 0, 30, 5);
    EXPECT_EQ(studio.score.chordOf(0, 2), 0);
}

TEST_F(TabletPageTest, TheReleaseSpreadsTheChordAfterTheStartOverTheNote) {
    write(0, 1, 60, 3);
    studio.form1.Combo3.set(2);
    studio.score.PolyArray.set(1, 2, 2);
    surfaces.calls.clear();
    engine.chords.Pic3_MouseUp(1, 0, 0, 0);
    EXPECT_GE(surfaces.count("ring 1 " + std::to_string(60 - studio.page.FirstRow) + " red"), 2U);
    EXPECT_EQ(studio.score.chordOf(0, 1), 2);
    EXPECT_EQ(studio.score.chordOf(0, 3), 2);
    EXPECT_EQ(surfaces.calls.back(), "DrawNoteArray");
}

TEST_F(TabletPageTest, ASingleNoteMarkStillFillsItsCell) {
    surfaces.calls.clear();
    engine.chords.Pic3_MouseDown(1, 0, 30, 5);
    EXPECT_EQ(surfaces.calls, (Lines{"fillPolyCell 24"}));
}

TEST_F(TabletPageTest, ANoteWithoutAChordLosesItsRingAndItsMarks) {
    write(0, 1, 60, 2);
    studio.score.PolyArray.set(1, 1, 2);
    surfaces.calls.clear();
    engine.chords.GetNoteLength(0);
    EXPECT_EQ(surfaces.calls.front(), "ring 1 " + std::to_string(60 - studio.page.FirstRow) + " white");
    EXPECT_EQ(studio.score.chordOf(0, 1), 0);
}

TEST_F(TabletPageTest, ANoteOnTheTopRowIsPassedOver) {
    write(0, 1, 0, 3);
    studio.score.PolyArray.set(1, 2, 2);
    surfaces.calls.clear();
    engine.chords.DrawPolynote(0);
    EXPECT_TRUE(surfaces.calls.empty());
}

TEST_F(TabletPageTest, TheStripOfAPercussionTrackRaisesNoCounts) {
    studio.tracks.CurrentTrack = 8;
    studio.form1.Combo3.set(2);
    engine.chords.Pic3_MouseDown(1, 0, 30, 5);
    EXPECT_EQ(studio.score.chordOf(8, 2), 2);
    EXPECT_EQ(studio.score.TopPolyTrack, 0);
    EXPECT_EQ(studio.score.UsedTrackCount, 1);
}

TEST_F(TabletPageTest, EffectsBringTheChordWithinReach) {
    studio.form1.Check1.userPut(1LL);
    EXPECT_TRUE(studio.form1.Combo3.enabled());
    studio.form1.Check1.userPut(0LL);
    EXPECT_FALSE(studio.form1.Combo3.enabled());
    EXPECT_FALSE(studio.form1.Text5.enabled());
}

TEST_F(TabletPageTest, ChannelLabelsSelectTheirTracks) {
    EXPECT_EQ(engine.tables.controls.find("form1", "Label8", 9), nullptr);
    EXPECT_EQ(studio.form1.Label8[8].text(), "9");
    EXPECT_EQ(studio.form1.Label8[10].text(), "10");
    EXPECT_EQ(studio.form1.Label8[8].tip(), "Click to change to Channel 9");
    EXPECT_EQ(studio.form1.Label8[12].tip(), "Click to change to Channel 12");
    engine.channels.Label8_Click(11);
    EXPECT_EQ(studio.tracks.CurrentTrack, 11);
    EXPECT_TRUE(studio.tracks.TrackActive[11]);
    EXPECT_EQ(studio.score.PercussionCount, 3);
    EXPECT_EQ(studio.form1.LblTrk.text(), "11");
    EXPECT_EQ(studio.Form3.Label15.text(), "Ch #12 Volume");
    EXPECT_FALSE(studio.tracks.TrackVisible[6]);
    engine.channels.Label8_Click(6);
    EXPECT_TRUE(studio.tracks.TrackVisible[6]);
    engine.channels.Label8_Click(9);
    EXPECT_EQ(studio.tracks.CurrentTrack, 6);
    EXPECT_EQ(studio.score.UsedTrackCount, 6);
    EXPECT_EQ(studio.form1.LblTrk.backColour(), (Colour{255, 255, 0}));
}

TEST_F(TabletPageTest, ATestNoteSoundsWhileBusy) {
    studio.shell.Busy = true;
    engine.channels.TrackSel_Click(1);
    const auto lines = sentWithMoments();
    EXPECT_EQ(lines.back(), "250 81 3C 00");
    studio.shell.Busy = false;
    engine.channels.TrackSel_Click(1);
    for (const auto& line : sent()) EXPECT_NE(line[0], '9');
}

}  // namespace
}  // namespace melvane::test
