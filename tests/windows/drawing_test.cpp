#include <QTest>

#include "core/strip_view.h"
#include "core/tableau_view.h"
#include "main_window_fixture.h"

namespace melvane::test {

namespace {

const QColor paper(255, 255, 255), red(255, 0, 0), black(0, 0, 0), grid(237, 237, 237);
const QColor yellow(255, 255, 0), blue(0, 0, 255), buttonFace(207, 207, 207);

// Row 67 of the score is the 25th of the page, 8 pixels a row.
constexpr int row = 67, pageRow = 25, top = 200;

QPoint cellMiddle(int column, int y) { return {column * 12 + 6, y}; }

}  // namespace

class DrawingTest : public MainWindowTest {
 protected:
    DrawingTest() {
        EXPECT_EQ(studio.page.FirstRow + pageRow, row);
        QApplication::setActiveWindow(&window);
    }
    TableauView& tableau() { return *find<TableauView>("Beatbox"); }
    QColor onTableau(int x, int y) { return pixel(tableau().picture(), x, y); }
    int cellAt(int track, int column) { return studio.score.noteCell(track, column); }

    static void drag(QWidget& surface, QPoint to, Qt::MouseButtons buttons = Qt::LeftButton) {
        QMouseEvent event(QEvent::MouseMove, to, surface.mapToGlobal(QPointF(to)), Qt::NoButton, buttons, {});
        QCoreApplication::sendEvent(&surface, &event);
    }
    static void hover(QWidget& surface, QPoint to) { drag(surface, to, Qt::NoButton); }
    static void press(QWidget& surface, QPoint at, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(&surface, button, {}, at);
    }
    static void release(QWidget& surface, QPoint at, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseRelease(&surface, button, {}, at);
    }
};

TEST_F(DrawingTest, APressShowsTheHeadAndTheReleaseWritesTheNote) {
    press(tablet(), cellMiddle(10, top + 3));
    EXPECT_EQ(kept(125, top + 6), red);
    EXPECT_EQ(kept(125, top), black);
    EXPECT_EQ(kept(123, top + 3), paper) << "the white dot";
    EXPECT_EQ(kept(134, top + 5), paper) << "no bar yet";
    EXPECT_EQ(cellAt(0, 10), -1) << "a note is written by the release";
    release(tablet(), cellMiddle(10, top + 3));
    EXPECT_EQ(cellAt(0, 10), row);
    EXPECT_EQ(cellAt(0, 11), -1);
}

TEST_F(DrawingTest, ADragShowsTheBarInTheColourOfTheTrack) {
    press(tablet(), cellMiddle(10, top + 3));
    drag(tablet(), cellMiddle(14, top + 90));
    for (int y = top + 4; y <= top + 7; ++y) EXPECT_EQ(kept(160, y), red) << y;
    EXPECT_EQ(kept(140, top + 3), paper);
    EXPECT_EQ(kept(140, top + 8), paper);
    EXPECT_EQ(kept(14 * 12 + 10, top + 5), red);
    EXPECT_EQ(kept(14 * 12 + 11, top + 5), paper);
    EXPECT_EQ(kept(125, top), black) << "the head stands before the bar";
    release(tablet(), cellMiddle(14, top + 90));
    EXPECT_EQ(cellAt(0, 10), row) << "the row of the press wins";
    for (int column = 11; column <= 14; ++column) EXPECT_EQ(cellAt(0, column), 1000 + row) << column;
    EXPECT_EQ(cellAt(0, 15), -1);
}

TEST_F(DrawingTest, ADragRepaintsOnlyItsStrip) {
    studio.Form3.Text3.set("12");
    engine.page.Form_Resize();
    QCoreApplication::processEvents();
    struct Watch : QObject {
        QRect painted;
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Paint) painted |= static_cast<QPaintEvent*>(event)->rect();
            return false;
        }
    } watch;
    press(tablet(), cellMiddle(10, 125));
    QCoreApplication::processEvents();
    tablet().installEventFilter(&watch);
    drag(tablet(), cellMiddle(14, 125));
    QCoreApplication::processEvents();
    tablet().removeEventFilter(&watch);
    ASSERT_FALSE(watch.painted.isEmpty());
    EXPECT_GE(watch.painted.top(), 116);
    EXPECT_LE(watch.painted.bottom(), 136);
    release(tablet(), cellMiddle(14, 125));
}

TEST_F(DrawingTest, ThePointerIsAPencilOnlyWhileANoteIsDrawn) {
    EXPECT_EQ(tablet().cursor().shape(), Qt::UpArrowCursor);
    press(tablet(), cellMiddle(10, top));
    EXPECT_EQ(tablet().cursor().shape(), Qt::BitmapCursor);
    EXPECT_FALSE(tablet().cursor().pixmap().toImage().allGray()) << "the drawing has its colour";
    release(tablet(), cellMiddle(10, top));
    EXPECT_EQ(tablet().cursor().shape(), Qt::UpArrowCursor);
}

TEST_F(DrawingTest, ARightPressErasesTheNote) {
    write(0, 10, row, 4);
    window.DrawNoteArray();
    EXPECT_EQ(kept(125, top), black);
    press(tablet(), cellMiddle(12, top + 3), Qt::RightButton);
    release(tablet(), cellMiddle(12, top + 3), Qt::RightButton);
    for (int column = 10; column < 14; ++column) EXPECT_EQ(cellAt(0, column), -1) << column;
    EXPECT_EQ(kept(125, top), paper);
}

TEST_F(DrawingTest, ASelectionIsABandWithALineAtItsMovingEnd) {
    write(0, 7, row);
    window.DrawNoteArray();
    studio.selection.EditMode = 2;
    press(tablet(), cellMiddle(5, top));
    EXPECT_EQ(kept(60, top), blue);
    EXPECT_EQ(kept(60, tablet().height() - 1), blue);
    drag(tablet(), cellMiddle(9, top));
    EXPECT_EQ(kept(108, top), blue);
    EXPECT_EQ(kept(108, tablet().height() - 1), blue);
    EXPECT_EQ(kept(63, top), buttonFace);
    EXPECT_EQ(kept(107, tablet().height() - 1), buttonFace);
    EXPECT_EQ(kept(59, top), paper) << "left of the press";
    EXPECT_EQ(kept(109, top), paper) << "right of the moving end";
    EXPECT_EQ(kept(89, top + 6), QColor(207, 0, 0)) << "the note shows through";
    drag(tablet(), cellMiddle(6, top));
    EXPECT_EQ(kept(72, top), blue);
    EXPECT_EQ(kept(76, top), paper) << "what the band covered is put back";
    release(tablet(), cellMiddle(9, top));
    EXPECT_EQ(studio.selection.SelStart, 5);
    EXPECT_EQ(studio.selection.SelEnd, 9);
}

TEST_F(DrawingTest, TheBandFollowsOverTheMarginOntoTheNextPage) {
    studio.selection.EditMode = 2;
    write(0, studio.page.PageColumns + 3, row, 3);
    press(tablet(), cellMiddle(5, top));
    const QPoint margin(tablet().width() - 3, top);
    for (int moves = 0; moves < 4; ++moves) drag(tablet(), margin);
    EXPECT_EQ(studio.page.FirstColumn, 4);
    const int shown = (studio.page.PageColumns + 3 - 4) * 12;
    EXPECT_EQ(kept(shown + 5, top + 6), QColor(207, 0, 0)) << "the new page lies under the band";
    drag(tablet(), cellMiddle(9, top));
    EXPECT_EQ(kept(shown + 5, top + 6), red) << "and comes back where the band has gone";
    release(tablet(), cellMiddle(9, top));
    EXPECT_EQ(studio.selection.SelStart, 5);
    EXPECT_EQ(studio.selection.SelEnd, 13);
}

TEST_F(DrawingTest, EachToolHasItsPointer) {
    engine.tools.FunctionBut_Click(2);
    EXPECT_EQ(tablet().cursor().shape(), Qt::CrossCursor);
    engine.tools.FunctionBut_Click(0);
    EXPECT_EQ(tablet().cursor().shape(), Qt::ArrowCursor);
    press(tablet(), cellMiddle(10, top));
    EXPECT_EQ(tablet().cursor().shape(), Qt::BitmapCursor);
    release(tablet(), cellMiddle(10, top));
    EXPECT_EQ(tablet().cursor().shape(), Qt::UpArrowCursor);
}

TEST_F(DrawingTest, ANoteUnderTestIsMarkedInYellow) {
    window.markTestedNote(88, top - 10, 110, top + 12);
    for (const int x : {86, 89, 108, 111}) EXPECT_EQ(kept(x, top), yellow) << x;
    for (const int x : {85, 90, 107, 112}) EXPECT_NE(kept(x, top), yellow) << x;
    for (const int y : {top - 12, top - 9, top + 10, top + 13}) EXPECT_EQ(kept(100, y), yellow) << y;
    EXPECT_NE(kept(100, top - 13), yellow);
    EXPECT_NE(kept(100, top + 14), yellow);
}

TEST_F(DrawingTest, TheMarkOfANoteUnderTestGoesFromThePressToTheRelease) {
    studio.Form5.window.setVisible(true);
    press(tablet(), cellMiddle(10, top + 3));
    drag(tablet(), cellMiddle(14, top + 60));
    release(tablet(), cellMiddle(14, top + 60));
    // Its line runs around (114, 193) to (184, 215).
    for (const int x : {112, 115, 182, 185}) EXPECT_EQ(kept(x, top + 14), yellow) << x;
    for (const int x : {111, 116, 181, 186}) EXPECT_NE(kept(x, top + 8), yellow) << x;
    for (const int y : {top - 9, top - 6, top + 13, top + 16}) EXPECT_EQ(kept(150, y), yellow) << y;
    for (const int y : {top - 10, top - 5, top + 12, top + 17}) EXPECT_NE(kept(150, y), yellow) << y;
}

TEST_F(DrawingTest, ADragToTheLeftIsMarkedToo) {
    studio.Form5.window.setVisible(true);
    press(tablet(), cellMiddle(10, top + 3));
    drag(tablet(), cellMiddle(6, top + 3));
    release(tablet(), cellMiddle(6, top + 3));
    for (const int x : {86, 115}) EXPECT_EQ(kept(x, top + 3), yellow) << x;
    EXPECT_EQ(kept(100, top - 8), yellow);
}

TEST_F(DrawingTest, ThePointerIsAPencilWhileABeatIsDragged) {
    studio.instruments.PercussionInstrument = 140;
    EXPECT_EQ(tableau().cursor().shape(), Qt::UpArrowCursor);
    press(tableau(), {126, 18});
    drag(tableau(), {150, 18});
    EXPECT_EQ(tableau().cursor().shape(), Qt::BitmapCursor);
    release(tableau(), {150, 18});
    EXPECT_EQ(tableau().cursor().shape(), Qt::UpArrowCursor);
}

TEST_F(DrawingTest, APlaybackKeepsTheMouseOffTheTablet) {
    write(0, 40, 50, 10);
    time.at(700, [&] {
        press(tablet(), cellMiddle(10, top));
        release(tablet(), cellMiddle(10, top));
    });
    engine.player.PlayAndStop_Click(0);
    EXPECT_EQ(cellAt(0, 10), -1);
    press(tablet(), cellMiddle(10, top));
    release(tablet(), cellMiddle(10, top));
    EXPECT_EQ(cellAt(0, 10), row) << "after the playback";
}

TEST_F(DrawingTest, APressOnTheTableauWritesABeat) {
    studio.instruments.PercussionInstrument = 140;
    studio.page.FirstRow = 40;
    press(tableau(), {10 * 12 + 6, 18});
    EXPECT_EQ(onTableau(125, 12 + 6), toQt(studio.tracks.CurrentTrackColor));
    EXPECT_EQ(onTableau(125, 12), black);
    drag(tableau(), {12 * 12 + 6, 18});
    EXPECT_EQ(onTableau(12 * 12 + 10, 12 + 5), toQt(studio.tracks.CurrentTrackColor));
    EXPECT_EQ(onTableau(12 * 12 + 11, 12 + 5), paper);
    release(tableau(), {12 * 12 + 6, 18});
    EXPECT_EQ(studio.tracks.CurrentTrack, 8);
    EXPECT_EQ(cellAt(8, 10), 41);
    EXPECT_EQ(cellAt(8, 12), 1041);
    EXPECT_EQ(cellAt(8, 13), -1);
}

TEST_F(DrawingTest, TheFocusChoosesBetweenMelodyAndPercussion) {
    tableau().setFocus(Qt::TabFocusReason);
    EXPECT_EQ(studio.tracks.CurrentTrack, 8);
    tablet().setFocus(Qt::TabFocusReason);
    EXPECT_EQ(studio.tracks.CurrentTrack, 0);
}

TEST_F(DrawingTest, ARightPressThatEnlargesTheTableauMakesRoomForIt) {
    const int before = tableau().height();
    studio.instruments.PercussionInstrument = 140;
    press(tableau(), {500, 20}, Qt::RightButton);
    release(tableau(), {500, 84}, Qt::RightButton);
    EXPECT_EQ(tableau().height(), 96);
    EXPECT_GT(tableau().height(), before);
}

TEST_F(DrawingTest, HoveringOverTheTableauTellsTheInstrumentWithoutALayout) {
    studio.instruments.PercussionInstrument = 140;
    press(tableau(), {126, 18});
    release(tableau(), {126, 18});
    const QImage before = tablet().picture().copy();
    window.clearTablet();
    hover(tableau(), {126, 18});
    EXPECT_FALSE(tableau().toolTip().isEmpty());
    EXPECT_NE(tablet().picture(), before) << "the tablet was painted anew";
    hover(tableau(), {300, 18});
    EXPECT_TRUE(tableau().toolTip().isEmpty());
}

TEST_F(DrawingTest, HoveringOverANoteTellsItsNameAndInstrument) {
    press(tablet(), cellMiddle(10, top + 3));
    release(tablet(), cellMiddle(10, top + 3));
    hover(tablet(), cellMiddle(10, top + 3));
    EXPECT_TRUE(tablet().toolTip().contains(" -  ")) << tablet().toolTip().toStdString();
    hover(tablet(), cellMiddle(30, top + 3));
    EXPECT_TRUE(tablet().toolTip().isEmpty());
}

TEST_F(DrawingTest, TheNoteSelectorShowsItsCursorAndTheNote) {
    write(0, 4, row);
    auto& strip = *find<SelectorStripView>("Pic2a");
    press(strip, {4 * 12 + 7, 10});
    for (const int x : {49, 59}) {
        EXPECT_EQ(pixel(strip.picture(), x, 0), red);
        EXPECT_EQ(pixel(strip.picture(), x, 26), red);
    }
    EXPECT_EQ(pixel(strip.picture(), 54, 13), paper);
    EXPECT_EQ(studio.form1.LblNote.text(), "5");
    EXPECT_EQ(studio.form1.LblNoteName.text(), "C");
    drag(strip, {5 * 12 + 7, 10});
    EXPECT_EQ(pixel(strip.picture(), 61, 26), red);
    EXPECT_NE(pixel(strip.picture(), 49, 26), red);
    release(strip, {5 * 12 + 7, 10});
    EXPECT_EQ(studio.form1.LblNote.text(), "6");
}

TEST_F(DrawingTest, TheSelectorsCursorStaysOnItsColumnUntilTheNextPress) {
    auto& strip = *find<SelectorStripView>("Pic2a");
    press(strip, {10 * 12 + 7, 10});
    release(strip, {10 * 12 + 7, 10});
    auto& bar = studio.form1.HScroll1;
    bar.set(bar.value() + 4);
    for (const int x : {73, 83}) EXPECT_EQ(pixel(strip.picture(), x, 26), red) << x;
    EXPECT_NE(pixel(strip.picture(), 121, 26), red) << "it does not stay on the screen's column";
    engine.channels.Label8_Click(2);
    resizeTo(1200, 700);
    EXPECT_EQ(pixel(strip.picture(), 73, 26), red) << "a repaint keeps it";
    bar.set(bar.value() + 20);
    EXPECT_NE(pixel(strip.picture(), 1, 26), red);
    bar.set(bar.value() - 24);
    EXPECT_EQ(pixel(strip.picture(), 121, 26), red);
    press(strip, {20 * 12 + 7, 10});
    EXPECT_NE(pixel(strip.picture(), 121, 26), red);
    EXPECT_EQ(pixel(strip.picture(), 241, 26), toQt(studio.tracks.TrackColor[2]));
}

TEST_F(DrawingTest, HoveringOverAStripReachesItsHandler) {
    auto& strip = *find<PolyStripView>("Pic3");
    std::vector<int> buttons;
    strip.mouse.moved = [&](int button, int, double, double) { buttons.push_back(button); };
    EXPECT_TRUE(strip.hasMouseTracking());
    hover(strip, {40, 5});
    drag(strip, {52, 5}, Qt::LeftButton | Qt::RightButton);
    EXPECT_EQ(buttons, (std::vector{0, 3}));
}

}  // namespace melvane::test
