#include "core/qt_note_pictures.h"

#include <QPainter>
#include <cmath>

namespace melvane {

namespace {

// Logical pixels. A circle "at (5, 5)" has its centre in the middle of that pixel.
constexpr double centre = 5.5;
constexpr double headRadius = 5, ringRadius = 6.5;
constexpr double headLine = 1.1,
                 ringLine = 2.3;  // with what it takes to cover the pixels of the circle fully
constexpr int headMargin = 1, ringMargin = 3;
constexpr int cell = 11;

void drawHead(QPainter& painter, const QColor& colour) {
    painter.setPen(QPen(Qt::black, headLine));
    painter.setBrush(colour);
    painter.drawEllipse(QPointF(centre, centre), headRadius, headRadius);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawEllipse(QPointF(3.5, 3.5), 1.4, 1.4);
}

void drawRing(QPainter& painter, const QColor& colour) {
    painter.setPen(QPen(colour, ringLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QPointF(centre, centre), ringRadius, ringRadius);
}

}  // namespace

template <class Draw>
const QImage& NotePictures::kept(Pictures& pictures, double ratio, const QColor& colour, int margin,
                                 Draw draw) {
    auto& picture = pictures[{colour.rgb(), static_cast<int>(std::lround(ratio * 64))}];
    if (!picture.isNull()) return picture;
    const int side = static_cast<int>(std::ceil((cell + 2 * margin) * ratio));
    picture = QImage(side, side, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(ratio, ratio);
    painter.translate(margin, margin);
    draw(painter, colour);
    return picture;
}

void NotePictures::head(PixelPainter& pixels, int x, int y, const QColor& colour) {
    pixels.picture(x - headMargin, y - headMargin,
                   kept(heads_, pixels.ratio(), colour, headMargin, drawHead));
}

void NotePictures::ring(PixelPainter& pixels, int x, int y, const QColor& colour) {
    pixels.picture(x - ringMargin, y - ringMargin,
                   kept(rings_, pixels.ratio(), colour, ringMargin, drawRing));
}

void NotePictures::draggedNote(PixelPainter& pixels, int x, int lastX, int y, const QColor& colour) {
    pixels.box(x + 1, y + 4, lastX + 10, y + 7, colour);
    head(pixels, x, y, colour);
}

}  // namespace melvane
