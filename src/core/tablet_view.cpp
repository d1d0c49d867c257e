#include "core/tablet_view.h"

#include <QKeyEvent>
#include <QWheelEvent>
#include <algorithm>
#include <limits>

namespace melvane {

namespace {

constexpr int columnWidth = Page::columnWidth;
constexpr int savedRowStep = 12, savedRowHeight = 15, savedColumnWidth = 13;  // pixels
constexpr int cursorWidth = 4;                                                // x to x + 3
constexpr int noteHeight = 12, noteMargin = 2;                                // around a head and a bar
constexpr int wheelNotch = 120, stepsANotch = 3;
constexpr int toTheEnd = std::numeric_limits<Int16>::max();

}  // namespace

TabletView::TabletView(const Studio& studio, QWidget* parent) : SurfaceView(parent), studio_(studio) {
    setObjectName("MusicBox");
    setAccessibleName("Music tablet");
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setPointer(DrawingPointer::upArrow);
}

void TabletView::paintSurface(QPainter& painter, QSize size) { painter_.paint(painter, studio_, size); }

void TabletView::clearTablet() {
    cursorColumn_.reset();
    drawOn([this](QPainter& painter) { painter.fillRect(rect(), surface_colours::paper); });
}

QImage& TabletView::swapScreen() {
    const QImage& tablet = picture();
    if (swapScreen_.size() != tablet.size()) swapScreen_ = QImage(tablet.size(), tablet.format());
    return swapScreen_;
}

QRect TabletView::rowStrip(int y) const { return {0, device(y), device(width()), device(savedRowHeight)}; }

QRect TabletView::columnStrip(int x) const {
    return {device(x), 0, device(savedColumnWidth), device(height())};
}

void TabletView::GetRow(int row) {
    copyPixels(swapScreen(), {0, 0}, picture(), rowStrip(row * savedRowStep));
}

void TabletView::PutRow(int row) {
    const QImage& saved = swapScreen();
    copyPixels(pixels(), {0, device(row * savedRowStep)}, saved, rowStrip(0));
    update(0, row * savedRowStep, width(), savedRowHeight);
}

void TabletView::GetColumn(int column) {
    copyPixels(swapScreen(), {0, 0}, picture(), columnStrip(column * columnWidth));
}

void TabletView::PutColumn(int column) {
    const QImage& saved = swapScreen();
    copyPixels(pixels(), {device(column * columnWidth), 0}, saved, columnStrip(0));
    if (cursorColumn_ == column) cursorColumn_.reset();
    update(column * columnWidth, 0, savedColumnWidth, height());
}

void TabletView::GetBox() { copyPixels(swapScreen(), {0, 0}, picture(), picture().rect()); }

void TabletView::PutBox() {
    const QImage& saved = swapScreen();
    copyPixels(pixels(), {0, 0}, saved, saved.rect());
    update();
}

void TabletView::drawPlayCursor(int column) {
    if (cursorColumn_) update(*cursorColumn_ * columnWidth, 0, savedColumnWidth, height());
    cursorColumn_ = column;
    update(column * columnWidth, 0, savedColumnWidth, height());
}

void TabletView::paintOver(QPainter& painter) {
    if (!cursorColumn_) return;
    PixelPainter pixels(painter);
    const int x = *cursorColumn_ * columnWidth;
    pixels.box(x, 0, x + cursorWidth - 1, height() - 1, surface_colours::playCursor);
}

QImage TabletView::screenPicture() {
    QImage screen = picture();
    if (screen.isNull()) return screen;
    QPainter painter(&screen);
    paintOver(painter);
    return screen;
}

void TabletView::drawChordRing(int column, int row, Colour colour) {
    drawOn([&](QPainter& painter) { painter_.paintChordRing(painter, studio_, column, row, colour); });
}

void TabletView::drawHead(int column, int row) {
    const QPoint corner(column * columnWidth, row * studio_.page.LineHeight);
    const QRect around(corner, QSize(columnWidth, noteHeight));
    drawOn(around.adjusted(-noteMargin, -noteMargin, noteMargin, noteMargin), [&](QPainter& painter) {
        PixelPainter pixels(painter);
        painter_.pictures().head(pixels, corner.x(), corner.y(), toQt(studio_.tracks.CurrentTrackColor));
    });
}

void TabletView::drawDraggedNote(int column, int lastColumn, int row) {
    const QPoint corner(column * columnWidth, row * studio_.page.LineHeight);
    const QRect around(corner, QSize((lastColumn - column + 1) * columnWidth, noteHeight));
    drawOn(around.adjusted(-noteMargin, -noteMargin, noteMargin, noteMargin), [&](QPainter& painter) {
        PixelPainter pixels(painter);
        painter_.pictures().draggedNote(pixels, corner.x(), lastColumn * columnWidth, corner.y(),
                                        toQt(studio_.tracks.CurrentTrackColor));
    });
}

void TabletView::drawSelectionLine(int column) {
    const int x = column * columnWidth;
    drawOn({x, 0, 1, height()}, [&](QPainter& painter) {
        PixelPainter(painter).verticalLine(x, 0, height() - 1, surface_colours::selectionEdge);
    });
}

/// Notes under the bar show through, darker.
void TabletView::drawSelectionBand(int column, int lastColumn) {
    const int x = column * columnWidth, edge = lastColumn * columnWidth;
    drawOn({x, 0, edge - x + 1, height()}, [&](QPainter& painter) {
        PixelPainter(painter).box(x, 0, edge - 1, height() - 1, surface_colours::selectionBand);
    });
    drawSelectionLine(lastColumn);
}

void TabletView::markTestedNote(QRect box) {
    // A line of 4 pixels lies from 2 before its way to 1 behind it.
    const auto [left, right] = std::minmax({box.left(), box.right()});
    const auto [top, bottom] = std::minmax({box.top(), box.bottom()});
    const QRect outside(QPoint(left - 2, top - 2), QPoint(right + 1, bottom + 1));
    drawOn(outside, [&](QPainter& painter) {
        PixelPainter(painter).frame(outside.left(), outside.top(), outside.right(), outside.bottom(), 4,
                                    surface_colours::testedNote);
    });
}

void TabletView::wheelEvent(QWheelEvent* event) {
    const QPoint angle = event->angleDelta();
    const bool sideways = (event->modifiers() & Qt::ShiftModifier) != 0 || angle.y() == 0;
    wheelRest_ -= angle.y() != 0 ? angle.y() : angle.x();
    const int steps = wheelRest_ * stepsANotch / wheelNotch;
    wheelRest_ -= steps * wheelNotch / stepsANotch;
    if (steps != 0) sideways ? Q_EMIT columnsWanted(steps) : Q_EMIT rowsWanted(steps);
    event->accept();
}

void TabletView::keyPressEvent(QKeyEvent* event) {
    const auto& page = studio_.page;
    switch (event->key()) {
        case Qt::Key_Up:
            return rowsWanted(-1);
        case Qt::Key_Down:
            return rowsWanted(1);
        case Qt::Key_PageUp:
            return rowsWanted(-page.HalfPageRows);
        case Qt::Key_PageDown:
            return rowsWanted(page.HalfPageRows);
        case Qt::Key_Left:
            return columnsWanted(-1);
        case Qt::Key_Right:
            return columnsWanted(1);
        case Qt::Key_Home:
            return columnsWanted(-toTheEnd);
        case Qt::Key_End:
            return columnsWanted(toTheEnd);
        default:
            QWidget::keyPressEvent(event);
    }
}

}  // namespace melvane
