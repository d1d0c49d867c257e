#include "ui/floating_windows_window.h"

#include <gtest/gtest.h>

#include <QEvent>

namespace melvane::test {

class FloatingWindowsTest : public testing::Test {
 protected:
    FloatingWindowsTest() {
        windows.list(ToolWindows::Window::setup, "Form3", [this] {
            ++made;
            return setup = new QWidget(&owner, Qt::Tool);
        });
    }

    QWidget owner;
    QWidget* setup = nullptr;
    int made = 0;
    FloatingWindows windows;
};

TEST_F(FloatingWindowsTest, AWindowIsMadeWhenItIsFirstShown) {
    windows.setShown(ToolWindows::Window::setup, true);
    EXPECT_EQ(made, 0);
    EXPECT_TRUE(windows.showWindow("Form3"));
    EXPECT_TRUE(windows.showWindow("Form3"));
    EXPECT_EQ(made, 1);
    EXPECT_FALSE(setup->isHidden());
}

/// Counts how often a window comes before the others.
class RaiseCounter : public QObject {
 public:
    int raises = 0;

 protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::ZOrderChange) ++raises;
        return false;
    }
};

TEST_F(FloatingWindowsTest, AShownWindowThatIsAskedForComesBeforeTheOthers) {
    windows.showWindow("Form3");
    RaiseCounter counter;
    setup->installEventFilter(&counter);
    windows.showWindow("Form3");
    EXPECT_EQ(counter.raises, 1);
    EXPECT_FALSE(setup->isHidden());
    windows.setShown(ToolWindows::Window::setup, true);
    EXPECT_EQ(counter.raises, 1) << "shown again beside a dialog, it stays in its place";
}

TEST_F(FloatingWindowsTest, AnUnknownNameShowsNothing) {
    EXPECT_FALSE(windows.showWindow("Form99"));
    EXPECT_EQ(made, 0);
}

TEST_F(FloatingWindowsTest, AnOpenWindowIsHiddenDisabledAndUnloaded) {
    windows.showWindow("Form3");
    windows.setShown(ToolWindows::Window::setup, false);
    EXPECT_TRUE(setup->isHidden());
    windows.setShown(ToolWindows::Window::setup, true);
    windows.setEnabled(ToolWindows::Window::setup, false);
    EXPECT_FALSE(setup->isEnabled());
    windows.unloadAll();
    EXPECT_TRUE(setup->isHidden());
}

TEST_F(FloatingWindowsTest, AWindowThatIsGoneIsMadeAnew) {
    windows.showWindow("Form3");
    delete setup;
    EXPECT_TRUE(windows.showWindow("Form3"));
    EXPECT_EQ(made, 2);
}

TEST_F(FloatingWindowsTest, AWindowIsPreparedOnceAndNotShown) {
    EXPECT_FALSE(windows.prepare("Form99"));
    EXPECT_TRUE(windows.prepare("Form3"));
    EXPECT_EQ(made, 1);
    EXPECT_TRUE(setup->isHidden());
    EXPECT_FALSE(windows.prepare("Form3"));
    EXPECT_TRUE(windows.showWindow("Form3"));
    EXPECT_EQ(made, 1);
    EXPECT_FALSE(setup->isHidden());
}

TEST_F(FloatingWindowsTest, AWindowHeldBackWaitsForItsOwner) {
    windows.holdBack();
    EXPECT_TRUE(windows.showWindow("Form3"));
    EXPECT_EQ(made, 1);
    EXPECT_TRUE(setup->isHidden());
    windows.letGo();
    EXPECT_FALSE(setup->isHidden());
    EXPECT_FALSE(setup->testAttribute(Qt::WA_ShowWithoutActivating));
    setup->hide();
    windows.letGo();
    EXPECT_TRUE(setup->isHidden()) << "it waits once";
}

TEST_F(FloatingWindowsTest, AWindowThatNobodyAskedForIsNotLetGo) {
    windows.holdBack();
    windows.letGo();
    EXPECT_EQ(made, 0);
    EXPECT_TRUE(windows.showWindow("Form3"));
    EXPECT_FALSE(setup->isHidden());
}

}  // namespace melvane::test
