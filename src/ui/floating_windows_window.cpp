#include "ui/floating_windows_window.h"

#include <QPixmap>
#include <utility>

namespace melvane {

void FloatingWindows::list(std::optional<Window> kind, std::string name, Make make) {
    entries_.push_back({kind, std::move(name), std::move(make), nullptr, false});
}

QWidget* FloatingWindows::loaded(Window kind) const {
    for (const auto& entry : entries_) {
        if (entry.kind == kind && entry.window) return entry.window;
    }
    return nullptr;
}

namespace {

void showBehind(QWidget& window) {
    window.setAttribute(Qt::WA_ShowWithoutActivating, true);
    window.show();
    window.setAttribute(Qt::WA_ShowWithoutActivating, false);
}

}  // namespace

void FloatingWindows::setShown(Window window, bool shown) {
    QWidget* const widget = loaded(window);
    if (widget == nullptr) return;
    if (shown)
        showBehind(*widget);
    else
        widget->hide();
}

void FloatingWindows::letGo() {
    heldBack_ = false;
    for (auto& entry : entries_) {
        if (entry.window && entry.waits) showBehind(*entry.window);
        entry.waits = false;
    }
}

bool FloatingWindows::prepare(const char* name) {
    for (auto& entry : entries_) {
        if (entry.name != name || entry.window) continue;
        entry.window = entry.make();
        entry.window->grab();
        return true;
    }
    return false;
}

void FloatingWindows::setEnabled(Window window, bool enabled) {
    if (QWidget* const widget = loaded(window)) widget->setEnabled(enabled);
}

bool FloatingWindows::showWindow(const char* name) {
    for (auto& entry : entries_) {
        if (entry.name != name) continue;
        if (!entry.window) entry.window = entry.make();
        entry.waits = heldBack_;
        if (heldBack_) return true;
        if (entry.window->isVisible()) entry.window->raise();
        entry.window->show();
        return true;
    }
    return false;
}

void FloatingWindows::unloadWindow(const char* name) {
    for (auto& entry : entries_) {
        if (entry.name == name && entry.window) entry.window->close();
    }
}

void FloatingWindows::unloadAll() {
    for (auto& entry : entries_) {
        if (entry.window) entry.window->close();
    }
}

}  // namespace melvane
