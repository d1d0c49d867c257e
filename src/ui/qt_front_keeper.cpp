#include "ui/qt_front_keeper.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <QWindow>

namespace melvane {

namespace {

bool standsByItself(const QWidget& window) {
    const QWindow* const handle = window.isWindow() ? window.windowHandle() : nullptr;
    return handle != nullptr && window.windowType() == Qt::Window && handle->transientParent() == nullptr;
}

}  // namespace

FrontKeeper::FrontKeeper(QWidget& floating) : QObject(&floating), floating_(floating) {
    qApp->installEventFilter(this);
}

bool FrontKeeper::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::WindowActivate && watched->isWidgetType() && floating_.isVisible()) {
        auto& active = static_cast<QWidget&>(*watched);
        if (standsByItself(active)) putBefore(active);
    }
    return false;
}

/// The system hears of it when a window is shown.
void FrontKeeper::putBefore(QWidget& active) {
    QWindow* const handle = floating_.windowHandle();
    if (handle->transientParent() == active.windowHandle()) return;
    floating_.hide();
    handle->setTransientParent(active.windowHandle());
    floating_.setAttribute(Qt::WA_ShowWithoutActivating, true);
    floating_.show();
    floating_.setAttribute(Qt::WA_ShowWithoutActivating, false);
    active.activateWindow();  // where a window that is shown gets the focus all the same
}

}  // namespace melvane
