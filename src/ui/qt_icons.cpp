#include "ui/qt_icons.h"

#include <QCoreApplication>
#include <QFile>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>
#include <algorithm>
#include <utility>

#include "ui/qt_style.h"

namespace melvane {

namespace {

constexpr int programSizes[] = {16, 24, 32, 48, 64, 128, 256};  // pixels

/// What a drawing's ink and its filled area are to become; nothing leaves them as they are drawn.
struct Inks {
    QColor ink, filled;
};
const Inks asDrawn{};

Inks hovered() { return {palette::accent.darker(125), palette::accent}; }
Inks disabled() { return {palette::disabledText, QColor(0xB4, 0xB9, 0xBE)}; }

QString fileOf(const QString& name) { return ":/icons/" + name + ".svg"; }

QByteArray drawing(const QString& name, const Inks& inks) {
    QFile file(fileOf(name));
    if (!file.open(QIODevice::ReadOnly)) return {};
    QByteArray drawn = file.readAll();
    if (inks.filled.isValid()) drawn.replace("#1171C5", inks.filled.name().toLatin1());
    if (inks.ink.isValid()) drawn.replace("#1E2329", inks.ink.name().toLatin1());
    return drawn;
}

QPixmap rendered(const QByteArray& drawn, int side) {
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    QSvgRenderer(drawn).render(&painter, QRectF(0, 0, side, side));
    return picture;
}

/// Every picture that was asked for, until the application ends.
QHash<QString, QPixmap>& pictures() {
    static QHash<QString, QPixmap> kept;
    static const bool cleared = [] {
        qAddPostRoutine([] { pictures().clear(); });
        return true;
    }();
    static_cast<void>(cleared);
    return kept;
}

/// `side` in pixels of the screen.
QPixmap pictureOf(const QString& name, const Inks& inks, int side) {
    const QString key = name + inks.ink.name() + inks.filled.name() + QString::number(side);
    auto& kept = pictures();
    if (const auto found = kept.constFind(key); found != kept.constEnd()) return *found;
    const QPixmap picture = rendered(drawing(name, inks), side);
    kept.insert(key, picture);
    return picture;
}

/// A drawing that is rendered when it is shown, once for each size and state.
class DrawnIcon final : public QIconEngine {
 public:
    DrawnIcon(QString name, const Inks& normal, const Inks& active, const Inks& off)
        : name_(std::move(name)), normal_(normal), active_(active), off_(off) {}

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
        const Inks& inks = mode == QIcon::Disabled ? off_ : mode == QIcon::Active ? active_ : normal_;
        return pictureOf(name_, inks, std::min(size.width(), size.height()));
    }
    void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State state) override {
        const double ratio = painter->device()->devicePixelRatio();
        QPixmap picture = pixmap((QSizeF(area.size()) * ratio).toSize(), mode, state);
        picture.setDevicePixelRatio(ratio);
        const QSizeF spare = QSizeF(area.size()) - picture.deviceIndependentSize();
        painter->drawPixmap(area.topLeft() + QPointF(spare.width() / 2, spare.height() / 2), picture);
    }
    QIconEngine* clone() const override { return new DrawnIcon(*this); }

 private:
    QString name_;
    Inks normal_, active_, off_;
};

QIcon drawnIcon(const QString& name, const Inks& normal, const Inks& active, const Inks& off) {
    return QFile::exists(fileOf(name)) ? QIcon(new DrawnIcon(name, normal, active, off)) : QIcon();
}

}  // namespace

QIcon icon(const QString& name) { return drawnIcon(name, asDrawn, hovered(), disabled()); }

QIcon disabledIcon(const QString& name) { return drawnIcon(name, disabled(), disabled(), disabled()); }

QIcon iconInOneColour(const QString& name, const QColor& colour) {
    const Inks one{colour, colour};
    return drawnIcon(name, one, one, one);
}

QIcon programIcon() {
    const QByteArray drawn = drawing("program", asDrawn);
    QIcon icon;
    for (const int size : programSizes) icon.addPixmap(rendered(drawn, size));
    return icon;
}

}  // namespace melvane
