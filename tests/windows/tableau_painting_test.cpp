#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "core/qt_tableau_painter.h"

namespace melvane::test {
namespace {

const QColor paper(255, 255, 255), barLine(68, 204, 255);
constexpr int height = 60;  // five rows

class TableauPaintingTest : public testing::Test {
 protected:
    TableauPaintingTest() {
        auto& score = studio.score;
        score.NoteArray.create(score.NumNotes, cell::empty);
        score.PolyArray.create(score.NumNotes);
        studio.page.FirstRow = 40;
        studio.page.LastColumn = 39;
        for (int track = 8; track <= lastTrackNumber; ++track)
            studio.tracks.TrackActive[static_cast<std::size_t>(track)] = true;
        studio.tracks.CurrentTrack = 8;
    }
    void write(int track, int column, int row, int length = 1) {
        for (int at = column; at < column + length; ++at) {
            studio.score.NoteArray.set(track, at, at == column ? row : cell::continuation + row);
        }
    }
    QImage painted() {
        QImage image(40 * 12, height, QImage::Format_RGB32);
        QPainter painter(&image);
        painter_.paint(painter, studio, image.size());
        return image;
    }
    static QColor colour(const Colour& of) { return QColor(of.red, of.green, of.blue); }

    Studio studio;
    TableauPainter painter_;
};

TEST_F(TableauPaintingTest, OnlyBarLinesStandOnTheGround) {
    const QImage image = painted();
    for (int column = 0; column < 40; ++column) {
        EXPECT_EQ(image.pixelColor(column * 12, 50), column % 4 == 0 ? barLine : paper) << column;
    }
    studio.score.BeatsPerMeasure = 0;
    EXPECT_EQ(painted().pixelColor(48, 50), paper);
}

TEST_F(TableauPaintingTest, ABeatStandsInItsLaneInTheCurrentColour) {
    write(8, 2, 42, 2);
    const QImage image = painted();
    EXPECT_EQ(image.pixelColor(2 * 12 + 20, 24 + 5), colour(studio.tracks.TrackColor[8]));
    EXPECT_EQ(image.pixelColor(3 * 12 + 11, 24 + 7), colour(studio.tracks.TrackColor[8]));
    EXPECT_EQ(image.pixelColor(3 * 12 + 11, 24 + 8), paper);
    EXPECT_EQ(image.pixelColor(2 * 12 + 5, 24), QColor(0, 0, 0));
}

TEST_F(TableauPaintingTest, AnotherChannelIsPaleAndAHiddenOneIsNotThere) {
    write(10, 2, 42, 2);
    EXPECT_EQ(painted().pixelColor(2 * 12 + 20, 24 + 5), colour(studio.tracks.TrackPaleColor[10]));
    studio.Form3.TrackHide[10].set(true);
    EXPECT_EQ(painted().pixelColor(2 * 12 + 20, 24 + 5), paper);
    studio.Form3.TrackHide[10].set(false);
    studio.tracks.TrackActive[10] = false;
    EXPECT_EQ(painted().pixelColor(2 * 12 + 20, 24 + 5), paper);
}

TEST_F(TableauPaintingTest, ABeatBelowStandsOnTheLastRowAndOneAboveIsOutOfSight) {
    write(8, 2, 90, 2);
    write(8, 6, 20, 2);
    const QImage image = painted();
    EXPECT_EQ(image.pixelColor(2 * 12 + 20, height - 12 + 5), colour(studio.tracks.TrackColor[8]));
    for (int y = 0; y < height; ++y) EXPECT_EQ(image.pixelColor(6 * 12 + 20, y), paper) << y;
}

TEST_F(TableauPaintingTest, ABeatFromBeforeThePageIsABarWithoutAHead) {
    write(8, 2, 42, 4);
    studio.page.FirstColumn = 4;
    studio.page.LastColumn = 43;
    const QImage image = painted();
    EXPECT_EQ(image.pixelColor(5, 24 + 5), colour(studio.tracks.TrackColor[8]));
    EXPECT_EQ(image.pixelColor(5, 24), paper);
}

TEST_F(TableauPaintingTest, SelectionAndMarkerShowOnTheTabletOnly) {
    const QImage before = painted();
    studio.selection.SelStart = 1;
    studio.selection.SelEnd = 9;
    studio.selection.InsertPosition = 5;
    EXPECT_EQ(painted(), before);
}

}  // namespace
}  // namespace melvane::test
