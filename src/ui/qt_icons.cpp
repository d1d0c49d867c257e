#include "ui/qt_icons.h"

#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

#include "ui/qt_style.h"

namespace melvane {

namespace {

constexpr int iconSide = 24;
constexpr double ratios[] = {1, 1.25, 1.5, 2, 3};

QPixmap rendered(const QByteArray& drawing, double ratio) {
    const int side = static_cast<int>(iconSide * ratio);
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    QSvgRenderer(drawing).render(&painter, QRectF(0, 0, side, side));
    painter.end();
    picture.setDevicePixelRatio(ratio);
    return picture;
}

/// The drawing with its ink, and where asked its filled area too, in another colour.
QByteArray recoloured(QByteArray drawing, const QColor& ink, const QColor& filled) {
    drawing.replace("#1171C5", filled.name().toLatin1());
    return drawing.replace("#1E2329", ink.name().toLatin1());
}

constexpr double emblemSizes[] = {16, 24, 32, 48, 64, 128, 256};  // pixels

QByteArray drawing(const QString& name) {
    QFile file(":/icons/" + name + ".svg");
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray disabledDrawing(const QByteArray& resting) {
    return recoloured(resting, palette::disabledText, QColor(0xB4, 0xB9, 0xBE));
}

}  // namespace

QIcon icon(const QString& name) {
    const QByteArray resting = drawing(name);
    if (resting.isEmpty()) return {};
    const QByteArray hovered = recoloured(resting, palette::accent.darker(125), palette::accent);
    const QByteArray disabled = disabledDrawing(resting);
    QIcon icon;
    for (const double ratio : ratios) {
        icon.addPixmap(rendered(resting, ratio), QIcon::Normal);
        icon.addPixmap(rendered(hovered, ratio), QIcon::Active);
        icon.addPixmap(rendered(disabled, ratio), QIcon::Disabled);
    }
    return icon;
}

QIcon disabledIcon(const QString& name) {
    const QByteArray disabled = disabledDrawing(drawing(name));
    QIcon icon;
    for (const double ratio : ratios) {
        for (const auto mode : {QIcon::Normal, QIcon::Active, QIcon::Disabled}) {
            icon.addPixmap(rendered(disabled, ratio), mode);
        }
    }
    return icon;
}

QIcon iconInOneColour(const QString& name, const QColor& colour) {
    const QByteArray coloured = recoloured(drawing(name), colour, colour);
    QIcon icon;
    for (const double ratio : ratios) icon.addPixmap(rendered(coloured, ratio));
    return icon;
}

QIcon programIcon() {
    const QByteArray emblem = drawing("emblem");
    QIcon icon;
    for (const double size : emblemSizes) {
        QPixmap picture = rendered(emblem, size / iconSide);
        picture.setDevicePixelRatio(1);
        icon.addPixmap(picture);
    }
    return icon;
}

}  // namespace melvane
