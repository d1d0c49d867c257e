#include <QLabel>
#include <QMouseEvent>

#include "core/side_bar_view.h"
#include "core/strip_view.h"
#include "core/tableau_view.h"
#include "main_window_fixture.h"
#include "shell/top_bar_panel.h"

namespace melvane::test {

namespace {

const QColor paper(255, 255, 255), grid(237, 237, 237), barLine(68, 204, 255), red(255, 0, 0);
const QColor mark(0x1E, 0x23, 0x29);

}  // namespace

class SurroundingsTest : public MainWindowTest {
 protected:
    QColor on(const char* surface, int x, int y) {
        return pixel(find<SurfaceView>(surface)->picture(), x, y);
    }
    QLabel* number(int index) { return find<QLabel>(("TopBar(" + std::to_string(index) + ")").c_str()); }
};

TEST_F(SurroundingsTest, TheBarNumbersStandOverTheirColumns) {
    EXPECT_EQ(number(0)->text(), "1");
    EXPECT_EQ(number(0)->x(), 32);
    EXPECT_EQ(number(1)->text(), "5");
    EXPECT_EQ(number(1)->x(), 32 + 48);
    EXPECT_EQ(number(0)->width(), 48);
    const int columnLeft = tablet().mapTo(&window, QPoint(48, 0)).x();
    EXPECT_EQ(number(1)->mapTo(&window, QPoint(0, 0)).x(), columnLeft);
}

TEST_F(SurroundingsTest, AtMostThirteenBarsAreNumbered) {
    EXPECT_FALSE(number(12)->isHidden());
    EXPECT_EQ(number(12)->text(), "49");
    studio.score.BeatsPerMeasure = 32;
    window.DrawNoteArray();
    EXPECT_EQ(number(3)->text(), "97");
    EXPECT_TRUE(number(4)->isHidden());
}

TEST_F(SurroundingsTest, TheBarNumbersFollowThePage) {
    studio.form1.HScroll1.set(studio.form1.HScroll1.value() + 6);
    EXPECT_EQ(number(0)->text(), "9");
    EXPECT_EQ(number(0)->x(), 32 + 24);
}

TEST_F(SurroundingsTest, NumbersOfShortBarsDoNotRunTogether) {
    studio.score.BeatsPerMeasure = 1;
    studio.form1.HScroll1.set(studio.form1.HScroll1.value() + 400);
    EXPECT_EQ(number(0)->width(), 12);
    EXPECT_EQ(number(1)->text(), "402") << "the labels keep their bars";
    const auto* const bar = static_cast<const TopBarPanel*>(number(0)->parentWidget());
    const auto numbers = bar->shownNumbers();
    ASSERT_GE(numbers.size(), 4U);
    for (std::size_t at = 1; at < numbers.size(); ++at) {
        EXPECT_GE(numbers[at].left() - numbers[at - 1].right(), 4) << at;
    }
    EXPECT_GT(numbers[0].width(), 12) << "a number is shown whole";
}

TEST_F(SurroundingsTest, RowNamesKeepTheirLettersInLine) {
    EXPECT_EQ(printedRowName("6F"), "6   F");
    EXPECT_EQ(printedRowName("10C"), "10  C");
    EXPECT_EQ(printedRowName("5C#"), "       5C#");
    EXPECT_EQ(printedRowName(""), "");
}

TEST_F(SurroundingsTest, RowNamesShrinkWithTheRows) {
    EXPECT_EQ(rowNamePoints(9), 7);
    EXPECT_EQ(rowNamePoints(8), 6);
    EXPECT_EQ(rowNamePoints(6), 6);
    EXPECT_EQ(rowNamePoints(5), 5);
}

TEST_F(SurroundingsTest, SharpRowsStandOnWhiteWhileTheyHaveTheRoom) {
    const int right = find("PicX")->width() - 2;
    EXPECT_EQ(on("PicX", right, 192 + 2), paper);
    EXPECT_NE(on("PicX", right, 200 + 4), paper);
    studio.Form3.Text3.set("5");
    engine.page.Form_Resize();
    for (int y = 0; y < find("PicX")->height(); ++y) EXPECT_NE(on("PicX", right, y), paper) << y;
}

TEST_F(SurroundingsTest, ANameThatHasNoRoomUnderTheLastRowsIsLeftOut) {
    const auto painted = [this](int height) {
        QImage picture(50, height, QImage::Format_RGB32);
        QPainter painter(&picture);
        paintSideBar(painter, studio, picture.size(), QFont("DejaVu Sans"), grid, mark);
        painter.end();
        return picture;
    };
    // Rows of 8 pixels: 20 of them and the upper part of one more.
    EXPECT_EQ(painted(165).copy(0, 0, 50, 162), painted(162));
    for (int x = 0; x < 50; ++x) EXPECT_EQ(painted(165).pixelColor(x, 164), grid) << x;
    EXPECT_NE(painted(170).copy(0, 0, 50, 165), painted(165));
}

TEST_F(SurroundingsTest, TheSelectorHasTheTabletsColumns) {
    EXPECT_EQ(on("Pic2a", 12, 10), grid);
    EXPECT_EQ(on("Pic2a", 48, 10), barLine);
    EXPECT_EQ(on("Pic2a", 13, 10), paper);
}

TEST_F(SurroundingsTest, ThePolynoteStripMarksChordsOnTheChannelsColour) {
    studio.score.PolyArray.set(1, 3, 1);
    window.DrawPolyStrip();
    EXPECT_EQ(on("Pic3", 30, 5), red);
    for (const int x : {37, 47}) {
        EXPECT_EQ(on("Pic3", x, 0), mark);
        EXPECT_EQ(on("Pic3", x, 9), mark);
        EXPECT_EQ(on("Pic3", x, 10), red);
    }
    EXPECT_EQ(on("Pic3", 36, 5), grid);
    EXPECT_EQ(on("Pic3", 48, 5), barLine);
}

TEST_F(SurroundingsTest, AFilledPolynoteCellLeavesItsEdgesFree) {
    window.fillPolyCell(24, Colour{0, 0, 255});
    EXPECT_EQ(on("Pic3", 25, 0), QColor(0, 0, 255));
    EXPECT_EQ(on("Pic3", 35, 16), QColor(0, 0, 255));
    EXPECT_EQ(on("Pic3", 24, 8), grid);
    EXPECT_EQ(on("Pic3", 36, 8), grid);
}

TEST_F(SurroundingsTest, ASweepOverThePolynoteStripGivesTheNoteItsChord) {
    write(0, 4, 50, 3);
    studio.form1.Combo3.set(2);
    const auto send = [strip = find("Pic3")](QEvent::Type type, double x) {
        const bool move = type == QEvent::MouseMove, up = type == QEvent::MouseButtonRelease;
        QMouseEvent event(type, {x, 5}, strip->mapToGlobal(QPointF(x, 5)),
                          move ? Qt::NoButton : Qt::LeftButton, up ? Qt::NoButton : Qt::LeftButton, {});
        QCoreApplication::sendEvent(strip, &event);
    };
    send(QEvent::MouseButtonPress, 50);
    send(QEvent::MouseMove, 64);
    send(QEvent::MouseButtonRelease, 64);
    EXPECT_EQ(studio.score.PolyArray.get(1, 4, -1), 2);
    EXPECT_EQ(kept((4 * 12) + 5, (50 - studio.page.FirstRow) * 8 - 2), red) << "the ring";
}

TEST_F(SurroundingsTest, PercussionStandsOnTheTableauInRowsOfTwelve) {
    studio.tracks.TrackActive[8] = true;
    write(8, 2, studio.page.FirstRow + 1, 2);
    window.DrawBeatArray();
    const QColor pale(255, 192, 192);
    EXPECT_EQ(on("Beatbox", 40, 12 + 4), pale);
    EXPECT_EQ(on("Beatbox", 40, 12 + 3), paper);
    EXPECT_EQ(on("Beatbox", 29, 12 + 5), pale);
    EXPECT_EQ(on("Beatbox", 29, 12), QColor(0, 0, 0));
    EXPECT_EQ(on("Beatbox", 48, 30), barLine);
    EXPECT_EQ(on("Beatbox", 12, 30), paper) << "there is no column grid";
}

TEST_F(SurroundingsTest, ABeatBelowTheTableauStandsOnItsLastRow) {
    studio.tracks.TrackActive[8] = true;
    write(8, 2, studio.page.FirstRow + 40, 2);
    window.DrawBeatArray();
    const int lastRow = find("Beatbox")->height() - 12;
    EXPECT_EQ(on("Beatbox", 40, lastRow + 5), QColor(255, 192, 192));
}

}  // namespace melvane::test
