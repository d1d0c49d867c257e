#include "core/strip_view.h"

#include "core/qt_column_lines.h"

namespace melvane {

namespace {

constexpr int columnWidth = Page::columnWidth;
constexpr int markBottom = 9, cellBottom = 16, cursorBottom = 26;  // pixels

void paintGround(PixelPainter& pixels, const Studio& studio, QSize size, const QColor& ground) {
    pixels.box(0, 0, size.width() - 1, size.height() - 1, ground);
    paintColumnGrid(pixels, size.width(), size.height());
    paintBarLines(pixels, studio, size.width(), size.height());
}

}  // namespace

void paintSelectorStrip(QPainter& painter, const Studio& studio, QSize size) {
    PixelPainter pixels(painter);
    paintGround(pixels, studio, size, surface_colours::paper);
}

void paintPolyStrip(QPainter& painter, const Studio& studio, QSize size, const QColor& mark) {
    PixelPainter pixels(painter);
    paintGround(pixels, studio, size, toQt(studio.form1.LblTrk.backColour()));
    const auto& page = studio.page;
    for (int column = 0; column <= page.PageColumns; ++column) {
        if (studio.score.chordOf(studio.tracks.CurrentTrack, page.FirstColumn + column) <= 0) continue;
        const int x = column * columnWidth;
        pixels.box(x + 1, 0, x + columnWidth - 1, markBottom, mark);
    }
}

SelectorStripView::SelectorStripView(const Studio& studio, QWidget* parent) : StripView(studio, parent) {
    setObjectName("Pic2a");
    setAccessibleName("Note selector");
    setToolTip("Note Selector");
}

void SelectorStripView::drawSelectorCursor(int column, Colour colour) {
    cursor_ = {column + studio().page.FirstColumn, colour};
    redraw();
}

void SelectorStripView::paintSurface(QPainter& painter, QSize size) {
    paintSelectorStrip(painter, studio(), size);
    if (!cursor_) return;
    const int x = (cursor_->column - studio().page.FirstColumn) * columnWidth;
    PixelPainter(painter).frame(x + 1, 0, x + columnWidth - 1, cursorBottom, 1, toQt(cursor_->colour));
}

PolyStripView::PolyStripView(const Studio& studio, QWidget* parent) : StripView(studio, parent) {
    setObjectName("Pic3");
    setAccessibleName("Polynote selector");
    setToolTip("Polinote Selector");
}

void PolyStripView::paintSurface(QPainter& painter, QSize size) {
    paintPolyStrip(painter, studio(), size, palette().color(QPalette::WindowText));
}

void PolyStripView::fillPolyCell(int x, Colour colour) {
    drawOn([&](QPainter& painter) {
        PixelPainter pixels(painter);
        pixels.box(x + 1, 0, x + columnWidth - 1, cellBottom, toQt(colour));
    });
}

}  // namespace melvane
