#include "ui/qt_window_place.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <algorithm>

#include "core/main_frame.h"

namespace melvane {

void placeOnScreen(QWidget& window, QPoint corner) {
    const QScreen* const there = QGuiApplication::screenAt(corner);
    const QWidget* const owner = window.parentWidget();
    const QScreen* const screen = there != nullptr   ? there
                                  : owner != nullptr ? owner->screen()
                                                     : window.screen();
    const QRect room = screen->availableGeometry();
    const QSize spare = (room.size() - window.frameGeometry().size()).expandedTo(QSize(0, 0));
    window.move(std::clamp(corner.x(), room.left(), room.left() + spare.width()),
                std::clamp(corner.y(), room.top(), room.top() + spare.height()));
}

WId systemHandle(const QWidget& widget) {
    QCoreApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    return widget.winId();
}

void putBeforeActiveWindow(QWidget& window) {
    const QWidget* const front = QApplication::activeWindow();
    if (front == nullptr || front == &window || front->windowHandle() == nullptr) return;
    systemHandle(window);
    window.windowHandle()->setTransientParent(front->windowHandle());
}

int pixelsOfTwips(double twips) { return qRound(std::clamp(twips / twipsAPixel, -32000.0, 32000.0)); }

}  // namespace melvane
