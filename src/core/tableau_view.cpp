#include "core/tableau_view.h"

namespace melvane {

namespace {

constexpr int columnWidth = Page::columnWidth, rowHeight = Page::tableauRow;

}  // namespace

TableauView::TableauView(const Studio& studio, QWidget* parent) : SurfaceView(parent), studio_(studio) {
    setObjectName("Beatbox");
    setAccessibleName("Percussion tableau");
    setToolTip("Percussion Tableau");
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setPointer(DrawingPointer::upArrow);
}

void TableauView::drawHead(int column, int row) {
    drawOn([&](QPainter& painter) {
        PixelPainter pixels(painter);
        painter_.pictures().head(pixels, column * columnWidth, row * rowHeight,
                                 toQt(studio_.tracks.CurrentTrackColor));
    });
}

void TableauView::drawDraggedNote(int column, int lastColumn, int row) {
    drawOn([&](QPainter& painter) {
        PixelPainter pixels(painter);
        painter_.pictures().draggedNote(pixels, column * columnWidth, lastColumn * columnWidth,
                                        row * rowHeight, toQt(studio_.tracks.CurrentTrackColor));
    });
}

}  // namespace melvane
