#include "shell/tested_note_view.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "core/qt_column_lines.h"
#include "core/shown_notes.h"
#include "core/tested_note.h"
#include "ui/qt_accessibility.h"
#include "ui/qt_style.h"

namespace melvane {

namespace {

// Pixels.
constexpr int columnWidth = Page::columnWidth;
constexpr int noteHeight = 52, selectorHeight = 27, polynoteHeight = 17;
constexpr int bandHeight = 4, rowStep = 4, headHeight = 11, markBottom = 9;

QColor paleColour(const Tracks& tracks, int track) {
    const auto at = static_cast<std::size_t>(track);
    return at < tracks.TrackPaleColor.size() ? toQt(tracks.TrackPaleColor[at]) : Qt::lightGray;
}

}  // namespace

TestedColumnsView::TestedColumnsView(const Studio& studio, AreaControl& area, int height, QWidget* parent)
    : QWidget(parent), studio_(studio), area_(area) {
    setFixedHeight(height);
    setProperty(spokenAsPicture, true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void TestedColumnsView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PixelPainter pixels(painter);
    paintColumns(pixels);
}

void TestedColumnsView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    area_.setWidth(width());
    area_.setHeight(height());
}

void TestedColumnsView::mousePressEvent(QMouseEvent* event) {
    if (!mouse.pressed) return QWidget::mousePressEvent(event);
    mouse.pressed(buttonMask(event->button()), shiftMask(*event), event->position().x(),
                  event->position().y());
}

void TestedColumnsView::mouseMoveEvent(QMouseEvent* event) {
    if (!mouse.moved) return QWidget::mouseMoveEvent(event);
    mouse.moved(buttonMask(event->buttons()), shiftMask(*event), event->position().x(),
                event->position().y());
}

void TestedColumnsView::mouseReleaseEvent(QMouseEvent* event) {
    if (!mouse.released) return QWidget::mouseReleaseEvent(event);
    mouse.released(buttonMask(event->button()), shiftMask(*event), event->position().x(),
                   event->position().y());
}

void TestedColumnsView::paintGround(PixelPainter& pixels, const QColor& ground) const {
    pixels.box(0, 0, width() - 1, height() - 1, ground);
    paintColumnGrid(pixels, width(), height());
    paintBarLines(pixels, studio_.score, firstColumn(), width(), height());
}

TestedNoteView::TestedNoteView(Studio& studio, QWidget* parent)
    : TestedColumnsView(studio, studio.Form5.Pt1, noteHeight, parent) {
    setObjectName("Pt1");
    setAccessibleName("The note among its neighbours");
    setToolTip("The note among its neighbours; double click to close");
}

/// Four pixels a row, with the note under inspection on the middle line.
void TestedNoteView::paintColumns(PixelPainter& pixels) {
    paintGround(pixels, surface_colours::paper);
    const auto& channel = studio().Form5.LblTrk;
    pixels.box(0, 0, width() - 1, bandHeight - 1, toQt(channel.backColour()));
    const auto column = inspectedColumn(studio());
    const int value = column ? studio().score.noteCell(track(), *column) : cell::empty;
    if (cell::isEmpty(value)) return;
    const int middle = bandHeight + (height() - bandHeight - headHeight) / 2;
    const int last = firstColumn() + width() / columnWidth;
    const QColor pale = paleColour(studio().tracks, track());
    walkShownNotes(studio().score, firstColumn(), last, track(), [&](const ShownNote& note) {
        const int y = middle + (note.row - cell::row(value)) * rowStep;
        if (y < bandHeight || y + headHeight > height()) return;
        const bool tested = *column >= note.column && *column <= note.lastColumn;
        const QColor colour = tested ? toQt(channel.backColour()) : pale;
        const int x = leftOf(note.column);
        if (note.hasChord) pictures_.ring(pixels, x, y, colour);
        pixels.box(x + 2, y + 4, leftOf(note.lastColumn) + columnWidth - 1, y + 7, colour);
        if (note.hasHead) pictures_.head(pixels, x, y, colour);
    });
}

TestedSelectorView::TestedSelectorView(Studio& studio, QWidget* parent)
    : TestedColumnsView(studio, studio.Form5.Pic2a, selectorHeight, parent) {
    setObjectName("Pic2a");
    setAccessibleName("Note Selector");
    setToolTip("Note Selector");
    setCursor(Qt::PointingHandCursor);
}

void TestedSelectorView::paintColumns(PixelPainter& pixels) {
    paintGround(pixels, surface_colours::paper);
    const auto column = inspectedColumn(studio());
    if (!column) return;
    const int x = leftOf(*column);
    pixels.frame(x + 1, 0, x + columnWidth - 1, selectorHeight - 1, 1,
                 toQt(studio().Form5.LblTrk.backColour()));
}

TestedPolynotesView::TestedPolynotesView(Studio& studio, QWidget* parent)
    : TestedColumnsView(studio, studio.Form5.Pic3, polynoteHeight, parent) {
    setObjectName("Pic3");
    setAccessibleName("Polinote Selector");
    setToolTip("Polinote Selector");
    setCursor(Qt::PointingHandCursor);
}

void TestedPolynotesView::paintColumns(PixelPainter& pixels) {
    paintGround(pixels, toQt(studio().Form5.LblTrk.backColour()));
    for (int x = 0; x < width(); x += columnWidth) {
        if (studio().score.chordOf(track(), firstColumn() + x / columnWidth) <= 0) continue;
        pixels.box(x + 1, 0, x + columnWidth - 1, markBottom, palette::text);
    }
}

}  // namespace melvane
