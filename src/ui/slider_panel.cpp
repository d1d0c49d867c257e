#include "ui/slider_panel.h"

#include <QAccessible>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "core/qt_mouse.h"
#include "ui/qt_bindings.h"
#include "ui/qt_style.h"

namespace melvane {

namespace {

constexpr int wheelNotch = 120;
constexpr int rowHeight = 24, rowSpace = 4;  // pixels

}  // namespace

SliderTrack::SliderTrack(SliderControl& control, QWidget* parent) : QWidget(parent), control_(control) {
    setFocusPolicy(Qt::StrongFocus);
    control_.pointerWidth = pointerWidth;
}

void SliderTrack::showNumber() {
    update();
    const int number = control_.number();
    if (std::exchange(told_, number) == number) return;
    QAccessibleValueChangeEvent changed(this, number);
    QAccessible::updateAccessibility(&changed);
}

void SliderTrack::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    control_.trackWidth = width();
}

void SliderTrack::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double way = width() - pointerWidth;
    const double x = way * control_.place(), middle = height() / 2.0;
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette::panelEdge);
    painter.drawRoundedRect(QRectF(0, middle - 2, width(), 4), 2, 2);
    painter.setBrush(isEnabled() ? palette::accent : palette::disabledText);
    const double origin = control_.scale().first < 0 ? way / 2 : 0;
    painter.drawRoundedRect(
        QRectF(std::min(origin, x) + pointerWidth / 2.0, middle - 2, std::abs(x - origin), 4), 2, 2);
    painter.setPen(QPen(hasFocus() ? palette::accent : palette::fieldEdge, hasFocus() ? 2 : 1));
    painter.setBrush(isEnabled() ? palette::field : palette::panel);
    painter.drawRoundedRect(QRectF(x + 1, middle - 8, pointerWidth - 2, 16), 3, 3);
}

void SliderTrack::mousePressEvent(QMouseEvent* event) {
    if (pressed) pressed(buttonMask(event->button()), event->position().x());
}

void SliderTrack::mouseMoveEvent(QMouseEvent* event) {
    if (moved) moved(buttonMask(event->buttons()), event->position().x());
}

void SliderTrack::mouseReleaseEvent(QMouseEvent* event) {
    if (released) released(buttonMask(event->button()), event->position().x());
}

void SliderTrack::wheelEvent(QWheelEvent* event) {
    wheelRest_ += event->angleDelta().y();
    const int steps = wheelRest_ / wheelNotch;
    wheelRest_ -= steps * wheelNotch;
    if (stepped && steps != 0) stepped(steps);
    event->accept();
}

void SliderTrack::keyPressEvent(QKeyEvent* event) {
    const bool up = event->key() == Qt::Key_Up || event->key() == Qt::Key_Right;
    const bool down = event->key() == Qt::Key_Down || event->key() == Qt::Key_Left;
    if (!up && !down) return QWidget::keyPressEvent(event);
    if (stepped) stepped(up ? 1 : -1);
}

SliderBox makeSlider(const SliderTexts& texts, SliderControl& slider, TextControl& value, QWidget* parent) {
    auto* const name = new QLabel(texts.name, parent);
    name->setProperty("secondary", true);
    auto* const number = new QLabel(parent);
    number->setObjectName(texts.number);
    number->setAccessibleName(texts.tip);
    number->setToolTip(texts.tip);
    number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* const track = new SliderTrack(slider, parent);
    track->setObjectName(texts.track);
    track->setAccessibleName(texts.name);
    track->setToolTip(texts.tip);
    bindShown(*track, slider, [track] { track->showNumber(); });
    bindShown(*number, value, [number, track, &value] {
        number->setText(QString::fromStdString(value.text()));
        track->showNumber();
    });
    auto* const grid = new QGridLayout;
    grid->setSpacing(rowSpace);
    for (const int line : {0, 1}) grid->setRowMinimumHeight(line, rowHeight);
    grid->addWidget(name, 0, 0);
    grid->addWidget(number, 0, 1);
    grid->addWidget(track, 1, 0, 1, 2);
    grid->setColumnMinimumWidth(1, 26);
    grid->setColumnStretch(0, 1);
    return {grid, track};
}

}  // namespace melvane
