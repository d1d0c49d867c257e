#include "drive/qt_menus.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPointer>

namespace melvane::drive {

namespace {

/// The entries of a menu and of the menus inside it, in reading order.
void collect(const QMenu& menu, QList<QAction*>& entries) {
    for (QAction* entry : menu.actions()) {
        if (entry->isSeparator() || !entry->isVisible()) continue;
        entries.push_back(entry);
        if (entry->menu() != nullptr) collect(*entry->menu(), entries);
    }
}

MenuEntry shown(const QAction& entry) {
    QString caption = entry.text().section('\t', 0, 0);
    caption.remove('&');
    return {caption.toStdString(), entry.isChecked(), entry.isEnabled()};
}

/// As the user does it: the entry is marked and the Return key pressed, so that whoever waits for the menu is
/// told.
void press(QMenu& menu, QAction& entry) {
    if (!menu.actions().contains(&entry)) {
        entry.trigger();
        menu.close();
        return;
    }
    menu.setActiveAction(&entry);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(&menu, &key);
}

}  // namespace

MenuWatcher::MenuWatcher(ScriptedMenus& menus) : menus_(menus) { qApp->installEventFilter(this); }

bool MenuWatcher::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show) {
        auto* menu = qobject_cast<QMenu*>(watched);
        const bool inner = menu != nullptr && qobject_cast<QMenu*>(menu->parentWidget()) != nullptr;
        if (menu != nullptr && !inner) answer(*menu);
    }
    return QObject::eventFilter(watched, event);
}

void MenuWatcher::answer(QMenu& menu) {
    QList<QAction*> entries;
    collect(menu, entries);
    std::vector<MenuEntry> shownEntries;
    for (const QAction* entry : entries) shownEntries.push_back(shown(*entry));
    const auto chosen = menus_.choose(menu.objectName().toStdString(), shownEntries);
    const QPointer<QAction> entry = chosen ? entries[static_cast<qsizetype>(*chosen)] : nullptr;
    // The menu is still on its way up; it is answered from its own loop.
    QMetaObject::invokeMethod(
        &menu,
        [&menu, entry] {
            if (entry != nullptr)
                press(menu, *entry);
            else
                menu.close();
        },
        Qt::QueuedConnection);
}

}  // namespace melvane::drive
