#pragma once
#include <QObject>

#include "drive/scripted_menus.h"

class QAction;
class QMenu;

namespace melvane::drive {

/// Sees every popup menu of the application as it opens, writes it down and picks the queued entry.
class MenuWatcher : public QObject {
 public:
    explicit MenuWatcher(ScriptedMenus& menus);

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void answer(QMenu& menu);

    ScriptedMenus& menus_;
};

}  // namespace melvane::drive
