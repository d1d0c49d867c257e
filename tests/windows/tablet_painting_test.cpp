#include "main_window_fixture.h"

namespace melvane::test {

namespace {

const QColor paper(255, 255, 255), grid(237, 237, 237), barLine(68, 204, 255), staff(128, 128, 128);
const QColor guideFill(248, 241, 231), guideOutline(224, 224, 224);
const QColor red(255, 0, 0), paleOfTwo(255, 192, 255), black(0, 0, 0);

// Row 67, "5C", is the 25th row of the page and has no guide: its first pixel row is y = 200.
constexpr int row = 67, top = 200;

/// One step of rounding is allowed to a blend.
void expectBlend(const QColor& actual, const QColor& expected) {
    EXPECT_NEAR(actual.red(), expected.red(), 1);
    EXPECT_NEAR(actual.green(), expected.green(), 1);
    EXPECT_NEAR(actual.blue(), expected.blue(), 1);
}

}  // namespace

class TabletPaintingTest : public MainWindowTest {
 protected:
    TabletPaintingTest() { studio.selection.InsertPosition = 900; }
    void showColumn(int first) { studio.form1.HScroll1.set(first + studio.page.HalfPageColumns); }
};

TEST_F(TabletPaintingTest, TheStaffStandsAtTheTrebleRows) {
    window.DrawNoteArray();
    EXPECT_EQ(studio.page.StaffY, (std::array<Int16, 5>{65, 89, 113, 145, 169}));
    for (const int y : studio.page.StaffY) {
        EXPECT_EQ(kept(6, y), staff);
        EXPECT_EQ(kept(6, y + 1), staff);
        EXPECT_NE(kept(6, y - 1), staff);
        EXPECT_NE(kept(6, y + 2), staff);
        EXPECT_EQ(kept(studio.form1.MusicBox.width() - 1, y), staff);
    }
}

TEST_F(TabletPaintingTest, ASharpRowHasAGuideOfFivePixels) {
    window.DrawNoteArray();
    constexpr int sharpTop = 192;  // row 66, "5C#"
    EXPECT_EQ(kept(6, sharpTop + 2), paper);
    EXPECT_EQ(kept(6, sharpTop + 3), guideOutline);
    for (int y = sharpTop + 4; y <= sharpTop + 6; ++y) EXPECT_EQ(kept(6, y), guideFill);
    EXPECT_EQ(kept(6, sharpTop + 7), guideOutline);
    EXPECT_EQ(kept(6, sharpTop + 8), paper);
}

TEST_F(TabletPaintingTest, WithoutSharpGuidesTheRowsStayPaper) {
    studio.page.ShowSharpGuides = 0;
    window.DrawNoteArray();
    for (int y = 192; y < 200; ++y) EXPECT_EQ(kept(6, y), paper);
}

TEST_F(TabletPaintingTest, EachColumnHasALineAndEachMeasureABarLine) {
    window.DrawNoteArray();
    for (int column = 1; column <= 8; ++column) {
        EXPECT_EQ(kept(column * 12, top), column % 4 == 0 ? barLine : grid) << column;
        EXPECT_EQ(kept(column * 12 + 1, top), paper) << column;
    }
    EXPECT_EQ(kept(48, 100), staff) << "a bar line is grey between the outer staff lines";
    EXPECT_EQ(kept(48, 60), barLine);
    EXPECT_EQ(kept(12, 100), grid);
}

TEST_F(TabletPaintingTest, ABarLineIsGreyBetweenStaffLinesInEitherOrder) {
    studio.page.StaffY = {169, 89, 113, 145, 65};
    window.DrawNoteArray();
    EXPECT_EQ(kept(48, 100), staff);
    EXPECT_EQ(kept(48, 60), barLine);
    EXPECT_EQ(kept(48, 180), barLine);
}

TEST_F(TabletPaintingTest, WithNoBeatsThereAreNoBarLines) {
    studio.score.BeatsPerMeasure = 0;
    window.DrawNoteArray();
    for (int column = 0; column < 20; ++column) EXPECT_EQ(kept(column * 12, top), grid) << column;
}

TEST_F(TabletPaintingTest, ANoteIsABarWithAHeadInItsTracksColour) {
    write(0, 10, row, 3);
    window.DrawNoteArray();
    EXPECT_EQ(kept(140, top + 3), paper);
    for (int y = top + 4; y <= top + 7; ++y) EXPECT_EQ(kept(140, y), red) << y;
    EXPECT_EQ(kept(140, top + 8), paper);
    EXPECT_EQ(kept(155, top + 5), red);
    EXPECT_EQ(kept(156, top + 5), grid);
    EXPECT_EQ(kept(125, top + 5), red);
    EXPECT_EQ(kept(125, top), black);
    EXPECT_EQ(kept(120, top + 5), black);
    EXPECT_EQ(kept(123, top + 3), paper) << "the white dot";
}

TEST_F(TabletPaintingTest, ANoteOfAnotherTrackIsPale) {
    studio.tracks.TrackActive[1] = true;
    write(1, 10, row, 2);
    window.DrawNoteArray();
    EXPECT_EQ(kept(140, top + 5), paleOfTwo);
}

TEST_F(TabletPaintingTest, AHiddenInactiveOrInvisibleTrackIsNotDrawn) {
    write(1, 10, row, 2);
    studio.tracks.TrackActive[1] = false;
    window.DrawNoteArray();
    EXPECT_EQ(kept(140, top + 5), paper);
    studio.tracks.TrackActive[1] = true;
    studio.Form3.TrackHide[1].set(true);
    window.DrawNoteArray();
    EXPECT_EQ(kept(140, top + 5), paper);
    studio.Form3.TrackHide[1].set(false);
    studio.tracks.TrackVisible[1] = false;
    window.DrawNoteArray();
    EXPECT_EQ(kept(140, top + 5), paper);
}

TEST_F(TabletPaintingTest, ALaterTrackLiesOverAnEarlierOne) {
    studio.tracks.TrackActive[1] = true;
    write(0, 10, row, 3);
    write(1, 10, row, 3);
    window.DrawNoteArray();
    EXPECT_EQ(kept(140, top + 5), paleOfTwo);
}

TEST_F(TabletPaintingTest, ANoteFromBeforeThePageShowsABarWithoutAHead) {
    write(0, 98, row, 5);
    showColumn(100);
    ASSERT_EQ(studio.page.FirstColumn, 100);
    EXPECT_EQ(kept(1, top + 5), red);
    EXPECT_EQ(kept(35, top + 5), red);
    EXPECT_NE(kept(37, top + 5), red);
    for (int x = 1; x < 11; ++x) EXPECT_EQ(kept(x, top + 1), paper) << x;
}

TEST_F(TabletPaintingTest, ANoteThatRunsOverThePageReachesTheRightEdge) {
    write(0, studio.page.LastColumn - 2, row, 10);
    window.DrawNoteArray();
    EXPECT_EQ(kept(studio.form1.MusicBox.width() - 1, top + 5), red);
}

TEST_F(TabletPaintingTest, ANoteBeyondTheLastColumnIsNotVisited) {
    write(0, studio.page.LastColumn + 1, row);
    window.DrawNoteArray();
    EXPECT_EQ(kept((studio.page.PageColumns + 1) * 12 + 4, top + 5), paper);
}

TEST_F(TabletPaintingTest, AChordNoteHasARingAroundItsHeadOnly) {
    write(0, 10, row, 4);
    studio.score.PolyArray.set(1, 10, 2);
    studio.score.PolyArray.set(1, 12, 2);
    window.DrawNoteArray();
    EXPECT_EQ(kept(125, top - 2), red);
    EXPECT_EQ(kept(118, top + 5), red);
    EXPECT_EQ(kept(125, top + 12), red);
    EXPECT_EQ(kept(149, top - 2), guideFill) << "no ring at a continuation";
}

TEST_F(TabletPaintingTest, TheSelectionIsBlendedOverItsColumns) {
    studio.selection.SelStart = 2;
    studio.selection.SelEnd = 5;
    window.DrawNoteArray();
    EXPECT_EQ(kept(23, top), paper);
    expectBlend(kept(25, top), QColor(155, 155, 255));
    expectBlend(kept(59, top), QColor(155, 155, 255));
    expectBlend(kept(60, top), QColor(144, 144, 244));
    EXPECT_EQ(kept(61, top), paper);
    expectBlend(kept(30, tablet().height() - 1), QColor(155, 155, 255));
}

TEST_F(TabletPaintingTest, ASelectionLargerThanThePageReachesBothEdges) {
    studio.selection.SelStart = 90;
    studio.selection.SelEnd = 500;
    showColumn(100);
    expectBlend(kept(1, top), QColor(155, 155, 255));
    expectBlend(kept(studio.form1.MusicBox.width() - 1, top), QColor(155, 155, 255));
}

TEST_F(TabletPaintingTest, ASelectionOutsideThePageIsNotShown) {
    studio.selection.SelStart = 90;
    studio.selection.SelEnd = 99;
    showColumn(100);
    EXPECT_EQ(kept(1, top), paper);
}

TEST_F(TabletPaintingTest, TheInsertionMarkerIsThreePixelsUpToItsColumn) {
    studio.selection.InsertPosition = 5;
    window.DrawNoteArray();
    EXPECT_EQ(kept(57, top), paper);
    expectBlend(kept(58, top), QColor(255, 155, 155));
    expectBlend(kept(59, top), QColor(255, 155, 155));
    expectBlend(kept(60, top), QColor(244, 144, 144));
    EXPECT_EQ(kept(61, top), paper);
}

TEST_F(TabletPaintingTest, APageAboveTheFirstRowHasNoStaff) {
    write(0, 10, 5);
    studio.page.FirstRow = -10;
    engine.page.DrawSideBar();
    window.DrawNoteArray();
    for (const int y : studio.page.StaffY) EXPECT_NE(kept(6, y), staff);
    EXPECT_EQ(kept(125, 15 * 8 + 5), red);
}

TEST_F(TabletPaintingTest, WithRowsOfNoHeightAllNotesStandAtTheTop) {
    write(0, 10, row);
    studio.page.LineHeight = 0;
    window.DrawNoteArray();
    EXPECT_EQ(kept(125, 5), red);
}

TEST_F(TabletPaintingTest, RowsOfAnOddHeightAreDrawnToTheirPixel) {
    write(0, 10, 50, 2);
    studio.Form3.Text3.set("5");
    engine.page.Form_Resize();
    ASSERT_EQ(studio.page.LineHeight, 5);
    EXPECT_EQ(kept(140, (50 - studio.page.FirstRow) * 5 + 4), red);
}

// Run a second time with twice the pixels (CMakeLists.txt).
TEST_F(TabletPaintingTest, TheSurfaceHasAsManyPixelsAsTheScreen) {
    const double ratio = std::max(1.0, qEnvironmentVariable("QT_SCALE_FACTOR").toDouble());
    const QImage& picture = tablet().picture();
    EXPECT_EQ(picture.devicePixelRatio(), ratio);
    EXPECT_EQ(picture.size(), tablet().size() * ratio);
}

TEST_F(TabletPaintingTest, TwiceThePixelsGiveTheSamePictureOnlySharper) {
    write(0, 10, row, 3);
    constexpr QSize size(300, 300);
    TabletPainter painter;
    QImage picture(size * 2, QImage::Format_RGB32);
    picture.setDevicePixelRatio(2);
    QPainter onPicture(&picture);
    painter.paint(onPicture, studio, size);
    onPicture.end();
    EXPECT_EQ(picture.pixelColor(96, 400), barLine);
    EXPECT_EQ(picture.pixelColor(97, 400), barLine);
    EXPECT_EQ(picture.pixelColor(98, 400), paper);
    EXPECT_EQ(picture.pixelColor(280, 407), paper);
    EXPECT_EQ(picture.pixelColor(280, 408), red);
    EXPECT_EQ(picture.pixelColor(280, 415), red);
    EXPECT_EQ(picture.pixelColor(280, 416), paper);
    EXPECT_EQ(picture.pixelColor(250, 410), red);
}

}  // namespace melvane::test
