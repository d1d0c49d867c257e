#include "ui/qt_window_place.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
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

int pixelsOfTwips(double twips) { return qRound(std::clamp(twips / twipsAPixel, -32000.0, 32000.0)); }

}  // namespace melvane
