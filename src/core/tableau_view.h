#pragma once
#include "core/qt_tableau_painter.h"
#include "core/surface_view.h"

namespace melvane {

/// The percussion tableau, Beatbox, under the tablet and in line with its columns.
class TableauView : public SurfaceView {
    Q_OBJECT

 public:
    TableauView(const Studio& studio, QWidget* parent);

    // What a press or a drag shows, in CurrentTrackColor; the next repaint wipes it. Columns of the page,
    // rows of 12 pixels.
    void drawHead(int column, int row);
    void drawDraggedNote(int column, int lastColumn, int row);

 protected:
    void paintSurface(QPainter& painter, QSize size) override { painter_.paint(painter, studio_, size); }

 private:
    const Studio& studio_;
    TableauPainter painter_;
};

}  // namespace melvane
