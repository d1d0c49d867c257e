// How long a full repaint of a large, full tablet takes, and whether it depends on the length of the score.
// Prints the medians and their ratio; answers 1 when a limit is passed.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

#include "core/qt_tablet_painter.h"
#include "core/studio.h"

namespace {

constexpr QSize tabletSize(1920, 1080);
constexpr int warmUps = 20, rounds = 200;
constexpr double mostMilliseconds = 4, mostRatio = 1.2;

/// Eight tracks with a note in every column, shown from the middle of the score.
void fill(melvane::Studio& studio, int lastColumn) {
    auto& score = studio.score;
    score.NumNotes = lastColumn;
    score.NoteArray.create(lastColumn, melvane::cell::empty);
    score.PolyArray.create(lastColumn);
    for (int track = 0; track < 8; ++track) {
        const auto at = static_cast<std::size_t>(track);
        studio.tracks.TrackActive[at] = studio.tracks.TrackVisible[at] = true;
        for (int column = 0; column <= lastColumn; ++column) {
            score.NoteArray.set(track, column, 44 + track * 10 + column % 9);
        }
    }
    auto& page = studio.page;
    page.LineHeight = 12;
    page.FirstRow = 40;
    page.PageRows = 87;
    page.PageColumns = tabletSize.width() / melvane::Page::columnWidth - 1;
    page.FirstColumn = static_cast<melvane::Int16>(lastColumn / 2);
    page.LastColumn = static_cast<melvane::Int16>(page.FirstColumn + page.PageColumns);
    page.SharpRowFlags.assign(128, false);
    for (std::size_t row = 0; row < 128; row += 2) page.SharpRowFlags[row] = true;
    page.StaffY = {200, 240, 280, 320, 360};
}

double medianMilliseconds(int lastColumn) {
    melvane::Studio studio;
    fill(studio, lastColumn);
    melvane::TabletPainter painter;
    QImage surface(tabletSize, QImage::Format_RGB32);
    std::vector<double> times;
    for (int round = 0; round < warmUps + rounds; ++round) {
        const auto before = std::chrono::steady_clock::now();
        QPainter onSurface(&surface);
        painter.paint(onSurface, studio, tabletSize);
        onSurface.end();
        const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - before;
        if (round >= warmUps) times.push_back(took.count());
    }
    std::ranges::nth_element(times, times.begin() + rounds / 2);
    return times[rounds / 2];
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const double shortScore = medianMilliseconds(1000);
    const double longScore = medianMilliseconds(30000);
    const double ratio = longScore / shortScore;
    std::printf(
        "repaint of %d x %d, 8 full tracks: 1000 columns %.3f ms, 30000 columns %.3f ms, ratio %.3f\n",
        tabletSize.width(), tabletSize.height(), shortScore, longScore, ratio);
    const bool good = shortScore <= mostMilliseconds && longScore <= mostMilliseconds && ratio <= mostRatio;
    if (!good) std::printf("limits: %.1f ms and a ratio of %.1f\n", mostMilliseconds, mostRatio);
    return good ? 0 : 1;
}
