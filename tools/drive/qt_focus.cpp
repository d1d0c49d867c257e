#include "drive/qt_focus.h"

#include <QApplication>
#include <QEvent>

namespace melvane::drive {

FocusKeeper::FocusKeeper() { qApp->installEventFilter(this); }

bool FocusKeeper::eventFilter(QObject* watched, QEvent* event) {
    const bool activation =
        event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate;
    if (!activation || event == own_) return QObject::eventFilter(watched, event);
    const auto* widget = qobject_cast<QWidget*>(watched);
    return widget != nullptr && widget->isWindow();
}

void FocusKeeper::send(QWidget& window, bool active) {
    QEvent event(active ? QEvent::WindowActivate : QEvent::WindowDeactivate);
    own_ = &event;
    QCoreApplication::sendEvent(&window, &event);
    own_ = nullptr;
}

void FocusKeeper::moveTo(QWidget* window) {
    QPointer<QWidget> before = front_;
    front_ = window;
    if (before != nullptr && before != window) send(*before, false);
    if (front_ == nullptr) return;
    front_->activateWindow();
    send(*front_, true);
}

}  // namespace melvane::drive
