#pragma once
#include <QWidget>

#include "shell/popup_menus.h"

class QMenu;

namespace melvane {

/// The window of the popup menus. It is never shown itself: a menu opens at the pointer, or under the button
/// that has the keyboard's focus.
class Frmmenu : public QWidget, public PopupView {
    Q_OBJECT
    /// Loaded, as a window that is never shown tells it.
    Q_PROPERTY(bool loaded READ isLoaded)

 public:
    Frmmenu(Studio& studio, PopupMenus& menus, QWidget* owner);

    void show(const Popup& popup, std::function<void()> closed) override;
    /// Loads it at most.
    void setVisible(bool visible) override;
    bool isLoaded() const { return studio_.Frmmenu.loaded; }

 protected:
    void closeEvent(QCloseEvent* event) override;

 private:
    void addEntries(QMenu& menu, std::span<const PopupEntry> entries);
    QPoint place() const;

    Studio& studio_;
    PopupMenus& menus_;
    QWidget* owner_;
    void (PopupMenus::*chosen_)() = nullptr;  // of the menu that is closing
};

}  // namespace melvane
