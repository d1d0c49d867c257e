#include "shell/popup_menus_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QMenu>
#include <QMouseEvent>
#include <functional>
#include <utility>

namespace melvane {

namespace {

/// A menu that opens at a press: letting that button go, wherever the pointer is by then, chooses nothing.
class PopupMenu : public QMenu {
 public:
    using QMenu::QMenu;

 protected:
    void mousePressEvent(QMouseEvent* event) override {
        pressed_ = true;
        QMenu::mousePressEvent(event);
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (pressed_) QMenu::mouseReleaseEvent(event);
    }

 private:
    bool pressed_ = false;
};

}  // namespace

Frmmenu::Frmmenu(Studio& studio, PopupMenus& menus, QWidget* owner)
    : QWidget(nullptr), studio_(studio), menus_(menus), owner_(owner) {
    setObjectName("Frmmenu");
    menus.view = this;
}

void Frmmenu::setVisible(bool visible) {
    if (visible && !isLoaded()) menus_.Form_Load();
}

void Frmmenu::closeEvent(QCloseEvent* event) {
    event->accept();
    menus_.Form_Unload();
}

void Frmmenu::addEntries(QMenu& menu, std::span<const PopupEntry> entries) {
    for (const auto& entry : entries) {
        if (*entry.caption == 0) {
            menu.addSeparator();
        } else if (!entry.inner.empty()) {
            addEntries(*menu.addMenu(entry.caption), entry.inner);
        } else {
            QAction* const action = menu.addAction(entry.caption);
            action->setObjectName(entry.name);
            if (entry.mark != nullptr) {
                action->setCheckable(true);
                action->setChecked((studio_.Frmmenu.*entry.mark).ticked());
            }
            if (entry.chosen == nullptr) continue;
            connect(action, &QAction::triggered, this, [this, chosen = entry.chosen] { chosen_ = chosen; });
        }
    }
}

QPoint Frmmenu::place() const {
    const auto* const button = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
    if (button != nullptr && !button->window()->geometry().contains(QCursor::pos())) {
        return button->mapToGlobal(QPoint(0, button->height()));
    }
    return QCursor::pos();
}

void Frmmenu::show(const Popup& popup, std::function<void()> closed) {
    auto* const menu = new PopupMenu(owner_);
    menu->setObjectName(popup.name);
    menu->setTitle(popup.caption);
    addEntries(*menu, popup.entries);
    // The menu goes first, out of the calls too that it is in: what was chosen may take its time, and the
    // menu would be gone when they return. What follows the menu comes behind it.
    chosen_ = nullptr;
    connect(
        menu, &QMenu::aboutToHide, this,
        [this, menu, closed] {
            menu->deleteLater();
            if (const auto chosen = std::exchange(chosen_, nullptr)) std::invoke(chosen, menus_);
            if (closed) closed();
        },
        Qt::QueuedConnection);
    menu->popup(place());
}

}  // namespace melvane
