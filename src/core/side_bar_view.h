#pragma once
#include "core/studio.h"
#include "core/surface_view.h"

namespace melvane {

/// Size of the row names in points, for a row height in pixels.
int rowNamePoints(int lineHeight);

/// Paints the names of the page's rows; `size` in logical pixels.
void paintSideBar(QPainter& painter, const Studio& studio, QSize size, const QFont& font,
                  const QColor& ground, const QColor& text);

/// The side bar, PicX, left of the tablet.
class SideBarView : public SurfaceView {
    Q_OBJECT

 public:
    SideBarView(const Studio& studio, QWidget* parent);

 protected:
    void paintSurface(QPainter& painter, QSize size) override;

 private:
    const Studio& studio_;
};

}  // namespace melvane
