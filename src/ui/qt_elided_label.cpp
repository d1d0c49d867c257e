#include "ui/qt_elided_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyleOption>
#include <QToolTip>
#include <algorithm>

namespace melvane {

namespace {

constexpr int readoutPadding = 7;  // pixels, the style sheet's padding and edge

}  // namespace

int ElidedLabel::padding() const { return property("readout").toBool() ? readoutPadding : 0; }

QRect ElidedLabel::textRoom() const { return rect().adjusted(padding(), 0, -padding(), 0); }

void ElidedLabel::setRoomFor(const QString& text) {
    roomFor_ = text;
    updateGeometry();
}

QSize ElidedLabel::sizeHint() const {
    const int wanted = roomFor_.isEmpty() ? 0 : fontMetrics().horizontalAdvance(roomFor_) + 2 * padding() + 1;
    return {std::max(minimumWidth(), wanted), QLabel::sizeHint().height()};
}

QString ElidedLabel::shownText() const {
    return fontMetrics().elidedText(text(), Qt::ElideRight, textRoom().width());
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QStyleOption look;
    look.initFrom(this);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_Widget, &look, &painter, this);
    painter.setPen(look.palette.color(QPalette::WindowText));
    painter.drawText(textRoom(), static_cast<int>(alignment()), shownText());
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || shownText() == text()) return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
    return true;
}

}  // namespace melvane
