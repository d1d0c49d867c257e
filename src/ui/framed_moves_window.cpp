// How a framed window is moved and sized with the mouse, and where it may stand.
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QWindow>
#include <algorithm>

#include "core/mouse_buttons.h"
#include "core/qt_mouse.h"
#include "ui/framed_window.h"
#include "ui/qt_window_place.h"

namespace melvane {

namespace {

constexpr std::array<Qt::Edges, frameParts> gripEdges{
    Qt::TopEdge | Qt::LeftEdge,  Qt::Edges(Qt::LeftEdge),        Qt::BottomEdge | Qt::LeftEdge,
    Qt::Edges(Qt::BottomEdge),   Qt::BottomEdge | Qt::RightEdge, Qt::Edges(Qt::RightEdge),
    Qt::TopEdge | Qt::RightEdge, Qt::Edges(Qt::TopEdge)};

}  // namespace

// The mouse

void FramedWindow::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) barePress_ = event->position().toPoint();
}

/// The system takes the window at the first movement, so that a double click stays one.
void FramedWindow::mouseMoveEvent(QMouseEvent* event) {
    const QPoint cursor = event->globalPosition().toPoint();
    if (carriedAt_) return moveWith(cursor);
    const QPoint pulled = barePress_ ? event->position().toPoint() - *barePress_ : QPoint();
    if (pulled.isNull() || !event->buttons().testFlag(Qt::LeftButton)) return;
    if (placesItself() && !isMaximized()) move(pos() + pulled);
    DragWindow();
    barePress_.reset();
    if (carriedAt_) moveWith(cursor);
}

void FramedWindow::mouseReleaseEvent(QMouseEvent*) {
    barePress_.reset();
    carriedAt_.reset();
}

void FramedWindow::moveWith(QPoint cursor) { move(cursor - *carriedAt_); }

bool FramedWindow::eventFilter(QObject* watched, QEvent* event) {
    const bool pressed = event->type() == QEvent::MouseButtonPress;
    if (pressed || event->type() == QEvent::MouseButtonRelease) {
        const auto grip = std::ranges::find(Resizer_, watched);
        if (grip != Resizer_.end()) {
            const auto& mouse = static_cast<QMouseEvent&>(*event);
            const int index = static_cast<int>(grip - Resizer_.begin());
            const auto handler = pressed ? &FramedWindow::Resizer_MouseDown : &FramedWindow::Resizer_MouseUp;
            (this->*handler)(index, buttonMask(mouse.button()), shiftMask(mouse), mouse.position().x(),
                             mouse.position().y());
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

// Moving and sizing

bool FramedWindow::placesItself() const { return !QGuiApplication::platformName().startsWith("wayland"); }

void FramedWindow::moveOntoScreen(double left, double top) {
    placeOnScreen(*this, {pixelsOfTwips(left), pixelsOfTwips(top)});
}

WindowPlace FramedWindow::placeInTwips() const {
    constexpr double unit = twipsAPixel;
    return {x() * unit, y() * unit, width() * unit, height() * unit};
}

void FramedWindow::placeWholly(const WindowPlace& place) {
    const QPoint corner(pixelsOfTwips(place.left), pixelsOfTwips(place.top));
    const QScreen* const there = QGuiApplication::screenAt(corner);
    const QRect room = (there != nullptr ? there : screen())->availableGeometry();
    const QSize frame = frameGeometry().size() - size();
    const QSize most = room.size() - frame;
    const QSize wanted = QSize(pixelsOfTwips(place.width), pixelsOfTwips(place.height))
                             .expandedTo(minimumSize())
                             .boundedTo(most);
    resize(wanted);
    move(std::clamp(corner.x(), room.left(), room.left() + most.width() - wanted.width()),
         std::clamp(corner.y(), room.top(), room.top() + most.height() - wanted.height()));
}

double FramedWindow::roomWidth() const { return screen()->availableGeometry().width() * double{twipsAPixel}; }
double FramedWindow::roomHeight() const {
    return screen()->availableGeometry().height() * double{twipsAPixel};
}

void FramedWindow::DragWindow() {
    if (isMaximized() || windowHandle() == nullptr) return;
    if (!windowHandle()->startSystemMove() && placesItself() && barePress_) carriedAt_ = barePress_;
}

void FramedWindow::Resizer_MouseDown(int index, int button, int, double X, double Y) {
    if (index < 0 || index >= frameParts || button != mouse::left) return;
    const auto at = static_cast<std::size_t>(index);
    if (!placesItself() && windowHandle() != nullptr) {
        windowHandle()->startSystemResize(gripEdges[at]);
        return;
    }
    setResizing(true);
    gripPress_ = Resizer_[at]->mapToGlobal(QPointF(X, Y)).toPoint();
}

void FramedWindow::Resizer_MouseUp(int index, int, int, double X, double Y) {
    if (!resizing_ || index < 0 || index >= frameParts) return;
    setResizing(false);
    const QPoint cursor = Resizer_[static_cast<std::size_t>(index)]->mapToGlobal(QPointF(X, Y)).toPoint();
    ResizeFromGrip(gripPress_.x(), gripPress_.y(), cursor.x(), cursor.y(), index);
}

void FramedWindow::ResizeFromGrip(int startX, int startY, int endX, int endY, int index) {
    const auto twips = [](int pixels) { return double{twipsAPixel} * pixels; };
    const auto pixels = [](double measure) { return static_cast<int>(measure / twipsAPixel); };
    const WindowPlace now{twips(x()), twips(y()), twips(width()), twips(height())};
    const WindowPlace place = resizedByGrip(now, index, endX - startX, endY - startY);
    setGeometry(pixels(place.left), pixels(place.top), pixels(place.width), pixels(place.height));
    layOutFrame(isMaximized());
    if (loop_ != nullptr) loop_->Idle();
}

}  // namespace melvane
