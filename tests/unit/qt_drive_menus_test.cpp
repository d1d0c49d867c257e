#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QMenu>

#include "drive/qt_menus.h"

namespace melvane::drive {
namespace {

class DriveMenusTest : public testing::Test {
 protected:
    DriveMenusTest() {
        menu.setObjectName("mnupopup2");
        play = menu.addAction("&Play\tF5");
        menu.addSeparator();
        inner.setTitle("Interface");
        menu.addMenu(&inner);
        stylized = inner.addAction("3D stylized");
        stylized->setCheckable(true);
        stylized->setChecked(true);
        exit = menu.addAction("Exit");
        exit->setEnabled(false);
    }

    ScriptedMenus menus;
    MenuWatcher watcher{menus};
    QMenu menu, inner{&menu};
    QAction *play, *stylized, *exit;
};

TEST_F(DriveMenusTest, APopupIsWrittenDownWithItsInnerEntriesAndClosesAtOnce) {
    EXPECT_EQ(menu.exec(), nullptr);
    EXPECT_EQ(menus.take(),
              (std::vector<std::string>{"menu mnupopup2", "Play", "Interface", "*3D stylized", "-Exit"}));
    EXPECT_FALSE(menu.isVisible());
}

TEST_F(DriveMenusTest, ThePickedEntryIsTheMenusAnswer) {
    menus.queuePick("Play");
    EXPECT_EQ(menu.exec(), play);
    EXPECT_EQ(menu.exec(), nullptr) << "the queue is empty again";
}

TEST_F(DriveMenusTest, AnEntryOfAnInnerMenuCanBePicked) {
    int triggered = 0;
    QObject::connect(stylized, &QAction::triggered, [&] { ++triggered; });
    menus.queuePick("3D stylized");
    menu.exec();
    EXPECT_EQ(triggered, 1);
    EXPECT_FALSE(stylized->isChecked());
}

TEST_F(DriveMenusTest, ADisabledEntryIsNotTriggered) {
    int triggered = 0;
    QObject::connect(exit, &QAction::triggered, [&] { ++triggered; });
    menus.queuePick("Exit");
    EXPECT_EQ(menu.exec(), nullptr);
    EXPECT_EQ(triggered, 0);
}

TEST_F(DriveMenusTest, AMenuThatIsOnlyPoppedUpIsAnsweredFromTheQueueOfEvents) {
    int triggered = 0;
    QObject::connect(play, &QAction::triggered, [&] { ++triggered; });
    menus.queuePick("Play");
    menu.popup({0, 0});
    EXPECT_EQ(triggered, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(triggered, 1);
    EXPECT_FALSE(menu.isVisible());
}

}  // namespace
}  // namespace melvane::drive
