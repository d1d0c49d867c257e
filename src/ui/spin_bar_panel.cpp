#include "ui/spin_bar_panel.h"

#include <QMouseEvent>
#include <QPainter>

#include "ui/qt_bindings.h"
#include "ui/qt_style.h"

namespace melvane {

namespace {

const QColor raised(0xF0, 0xF0, 0xF0), pressed(0xC3, 0xD3, 0xE2), idle(0xDA, 0xDA, 0xDA),
    idleEdge(0xB8, 0xBC, 0xC0);
constexpr double arrowWidth = 7, arrowHeight = 3.5;  // pixels

}  // namespace

SpinBar::SpinBar(ScrollControl& bar, QWidget* parent) : QAbstractSlider(parent) {
    setFixedSize(barWidth, barHeight);
    setFocusPolicy(Qt::TabFocus);
    setOrientation(Qt::Vertical);
    bindShown(*this, bar, [this, &bar] {
        setRange(std::min(bar.minimum(), bar.maximum()), std::max(bar.minimum(), bar.maximum()));
        setPageStep(bar.largeChange());
        setValue(bar.value());
    });
    connect(this, &QAbstractSlider::valueChanged, this,
            [&bar](int value) { bar.userPut(Value(static_cast<long long>(value))); });
}

QRect SpinBar::half(bool upper) const {
    const int middle = height() / 2;
    return upper ? QRect(0, 0, width(), middle) : QRect(0, middle, width(), height() - middle);
}

void SpinBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF edge = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(QPen(isEnabled() ? palette::fieldEdge : idleEdge, 1));
    painter.setBrush(isEnabled() ? raised : idle);
    painter.drawRoundedRect(edge, 3, 3);
    paintHalf(painter, true);
    paintHalf(painter, false);
    if (!hasFocus()) return;
    painter.setPen(QPen(palette::accent, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
}

void SpinBar::paintHalf(QPainter& painter, bool upper) const {
    const QRectF area = QRectF(half(upper)).adjusted(1.5, 1.5, -1.5, -1.5);
    const bool down = held_ == (upper ? SliderSingleStepAdd : SliderSingleStepSub);
    if (down) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(pressed);
        painter.drawRoundedRect(area, 2, 2);
    }
    const double tip = upper ? -arrowHeight / 2 : arrowHeight / 2;
    const QPointF middle = area.center();
    const QPointF arrow[] = {middle + QPointF(-arrowWidth / 2, -tip), middle + QPointF(0, tip),
                             middle + QPointF(arrowWidth / 2, -tip)};
    QPen pen(isEnabled() ? palette::text : palette::disabledText, 1.5);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(arrow, 3);
}

void SpinBar::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    held_ = half(true).contains(event->position().toPoint()) ? SliderSingleStepAdd : SliderSingleStepSub;
    triggerAction(held_);
    setRepeatAction(held_);
    update();
}

void SpinBar::mouseReleaseEvent(QMouseEvent*) {
    held_ = SliderNoAction;
    setRepeatAction(SliderNoAction);
    update();
}

void SpinBar::changeEvent(QEvent* event) {
    QAbstractSlider::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) update();
}

}  // namespace melvane
