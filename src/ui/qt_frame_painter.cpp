#include "ui/qt_frame_painter.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include "ui/frame_geometry.h"
#include "ui/qt_style.h"

namespace melvane {

namespace {

constexpr QColor titleTop(0x2B, 0x5C, 0x8A), titleBottom(0x1F, 0x47, 0x6D);
constexpr QColor light(0xF7, 0xF7, 0xF7), shade(0xA0, 0xA0, 0xA0), dark(0x6B, 0x6B, 0x6B);

/// The ring between the window's outline and its inside, `from` to `to` pixels from the outline.
QPainterPath ring(QSize window, double from, double to, double diameter) {
    const auto outline = [&](double inset) {
        QPainterPath path;
        const double round = std::max(0.0, diameter / 2.0 - inset);
        path.addRoundedRect(QRectF(QPointF(0, 0), QSizeF(window)).adjusted(inset, inset, -inset, -inset),
                            round, round);
        return path;
    };
    return outline(from).subtracted(outline(to));
}

/// A bevel one pixel wide: what looks up and left in one colour, the rest in the other.
void paintBevel(QPainter& painter, QSize window, double inset, double diameter, QColor upper, QColor lower) {
    const QPainterPath path = ring(window, inset, inset + 1, diameter);
    QPainterPath upperHalf;
    upperHalf.moveTo(0, 0);
    upperHalf.lineTo(window.width(), 0);
    upperHalf.lineTo(window.width() - frameThickness, frameThickness);
    upperHalf.lineTo(frameThickness, window.height() - frameThickness);
    upperHalf.lineTo(0, window.height());
    upperHalf.closeSubpath();
    painter.fillPath(path.intersected(upperHalf), upper);
    painter.fillPath(path.subtracted(upperHalf), lower);
}

}  // namespace

void paintFrameEdges(QPainter& painter, QSize window, FrameLook look, int cornerDiameter) {
    painter.setRenderHint(QPainter::Antialiasing);
    if (look == FrameLook::flat) {
        painter.fillPath(ring(window, 0, frameThickness, cornerDiameter), titleBottom);
        return;
    }
    painter.fillPath(ring(window, 0, frameThickness, cornerDiameter), palette::ground);
    paintBevel(painter, window, 0, cornerDiameter, shade, dark);
    paintBevel(painter, window, 1, cornerDiameter, light, shade);
    paintBevel(painter, window, frameThickness - 1, cornerDiameter, shade, light);
}

void paintTitleGround(QPainter& painter, QSize bar, FrameLook look) {
    QLinearGradient slope(0, 0, 0, bar.height());
    if (look == FrameLook::flat) {
        slope.setColorAt(0, titleTop);
        slope.setColorAt(1, titleBottom);
        painter.fillRect(QRect(QPoint(0, 0), bar), slope);
        return;
    }
    slope.setColorAt(0, palette::ground.lighter(112));
    slope.setColorAt(0.5, palette::ground);
    slope.setColorAt(1, palette::ground.darker(112));
    painter.fillRect(QRect(QPoint(0, 0), bar), slope);
    painter.fillRect(0, bar.height() - 2, bar.width(), 1, shade);
    painter.fillRect(0, bar.height() - 1, bar.width(), 1, light);
}

}  // namespace melvane
