#include "core/qt_pointers.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace melvane {

namespace {

constexpr int side = 24;                // logical pixels
constexpr int pointX = 2, pointY = 21;  // the pencil's point in the drawing

}  // namespace

QCursor pencilPointer() {
    const double ratio = qApp->devicePixelRatio();
    const int pixels = qRound(side * ratio);
    QPixmap picture(pixels, pixels);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    QSvgRenderer(QStringLiteral(":/icons/pencil.svg")).render(&painter, QRectF(0, 0, pixels, pixels));
    painter.end();
    picture.setDevicePixelRatio(ratio);
    return QCursor(picture, pointX, pointY);
}

}  // namespace melvane
