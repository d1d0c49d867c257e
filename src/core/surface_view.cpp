#include "core/surface_view.h"

#include <QFocusEvent>
#include <QMouseEvent>
#include <array>
#include <cmath>

#include "core/mouse_buttons.h"
#include "core/qt_pointers.h"

namespace melvane {

SurfaceView::SurfaceView(QWidget* parent) : QWidget(parent) { setAttribute(Qt::WA_OpaquePaintEvent); }

/// A surface without a tip of its own does not show that of the panel around it.
bool SurfaceView::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && toolTip().isEmpty()) return true;
    return QWidget::event(event);
}

int SurfaceView::device(int logical) const {
    return static_cast<int>(std::lround(logical * devicePixelRatioF()));
}

bool SurfaceView::fits() const {
    return picture_.size() == QSize(device(width()), device(height())) &&
           picture_.devicePixelRatio() == devicePixelRatioF();
}

void SurfaceView::redraw() {
    if (width() <= 0 || height() <= 0) {
        picture_ = QImage();
        return;
    }
    if (!fits()) {
        picture_ = QImage(device(width()), device(height()), QImage::Format_RGB32);
        picture_.setDevicePixelRatio(devicePixelRatioF());
    }
    QPainter painter(&picture_);
    paintSurface(painter, size());
    painter.end();
    surfaceRedrawn();
    update();
}

const QImage& SurfaceView::picture() {
    if (!fits()) redraw();
    return picture_;
}

QImage& SurfaceView::pixels() {
    picture();
    return picture_;
}

void SurfaceView::setPointer(DrawingPointer pointer) {
    static constexpr std::array shapes{Qt::UpArrowCursor, Qt::BitmapCursor, Qt::ArrowCursor, Qt::CrossCursor};
    const auto shape = shapes[static_cast<std::size_t>(pointer)];
    if (shape == cursor().shape() && testAttribute(Qt::WA_SetCursor)) return;
    setCursor(pointer == DrawingPointer::pencil ? pencilPointer() : QCursor(shape));
}

void SurfaceView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawImage(0, 0, picture());
    paintOver(painter);
    if (!reachedByKeyboard_ || !hasFocus()) return;
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void SurfaceView::mousePressEvent(QMouseEvent* event) {
    if (!mouse.pressed) return QWidget::mousePressEvent(event);
    held_ = buttonMask(event->buttons());
    const QPointF at = event->position();
    mouse.pressed(buttonMask(event->button()), shiftMask(*event), at.x(), at.y());
}

void SurfaceView::mouseMoveEvent(QMouseEvent* event) {
    if (!mouse.moved) return QWidget::mouseMoveEvent(event);
    const QPointF at = event->position();
    letGo(held_ & ~buttonMask(event->buttons()), shiftMask(*event), at);
    mouse.moved(buttonMask(event->buttons()), shiftMask(*event), at.x(), at.y());
}

void SurfaceView::mouseReleaseEvent(QMouseEvent* event) {
    if (!mouse.released) return QWidget::mouseReleaseEvent(event);
    const QPointF at = event->position();
    held_ &= ~buttonMask(event->button());
    mouse.released(buttonMask(event->button()), shiftMask(*event), at.x(), at.y());
}

/// A menu that opened meanwhile has had the releases; they are made up for, so that no drag and no note
/// hangs.
void SurfaceView::letGo(int buttons, int shift, QPointF at) {
    held_ &= ~buttons;
    for (const int button : {mouse::left, mouse::right, mouse::middle}) {
        if ((buttons & button) != 0 && mouse.released) mouse.released(button, shift, at.x(), at.y());
    }
}

void SurfaceView::focusInEvent(QFocusEvent* event) {
    reachedByKeyboard_ = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    QWidget::focusInEvent(event);
    const bool windowCameBack =
        event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
    if (gotFocus && !windowCameBack) gotFocus();
}

void SurfaceView::focusOutEvent(QFocusEvent* event) {
    reachedByKeyboard_ = false;
    QWidget::focusOutEvent(event);
}

}  // namespace melvane
