#include "ui/framed_window.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include "windows/main_window_fixture.h"

namespace melvane {
namespace {

class FramedWindowTest : public testing::Test {
 protected:
    FramedWindowTest() {
        window.useSettings(settings);
        window.resize(400, 300);
        window.show();
        QCoreApplication::processEvents();
    }
    QWidget* part(const char* name, int index) {
        return window.findChild<QWidget*>(QString("%1(%2)").arg(name).arg(index));
    }
    QColor pixel(int x, int y) { return window.grab().toImage().pixelColor(x, y); }
    void drag(int grip, QPoint by) {
        window.Resizer_MouseDown(grip, 1, 0, 3, 3);
        window.Resizer_MouseUp(grip, 1, 0, 3 + by.x(), 3 + by.y());
    }

    MemorySettingsStore store;
    Settings settings{store};
    Studio studio;
    FramedWindow window{studio, {"Form2", "A tool", {true, true, true}}, nullptr};
};

TEST_F(FramedWindowTest, HasNoFrameOfTheSystems) {
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(window.findChild<QLabel*>("lblTitle")->text(), "A tool");
}

TEST_F(FramedWindowTest, EveryStripAndGripStandsInItsPlace) {
    const auto strips = edgeStrips(400, 300);
    const auto grips = resizeGrips(400, 300);
    for (int at = 0; at < frameParts; ++at) {
        const auto& strip = strips[static_cast<std::size_t>(at)];
        const auto& grip = grips[static_cast<std::size_t>(at)];
        EXPECT_EQ(part("Winedge", at)->geometry(), QRect(strip.left, strip.top, strip.width, strip.height));
        EXPECT_EQ(part("Resizer", at)->geometry(), QRect(grip.left, grip.top, grip.width, grip.height));
        EXPECT_TRUE(part("Winedge", at)->isVisible());
        EXPECT_TRUE(part("Resizer", at)->isVisible());
    }
}

TEST_F(FramedWindowTest, AGripChangesTheWindowOnlyWhenItIsLetGo) {
    QWidget& grip = *part("Resizer", bottomRightCorner);
    QTest::mousePress(&grip, Qt::LeftButton, {}, {4, 4});
    QTest::mouseMove(&grip, {54, 34});
    EXPECT_EQ(window.size(), QSize(400, 300));
    QTest::mouseRelease(&grip, Qt::LeftButton, {}, {54, 34});
    EXPECT_EQ(window.size(), QSize(450, 330));
}

TEST_F(FramedWindowTest, ARightPressOnAGripDoesNothing) {
    window.Resizer_MouseDown(rightSide, 2, 0, 3, 3);
    window.Resizer_MouseUp(rightSide, 2, 0, 60, 3);
    EXPECT_EQ(window.size(), QSize(400, 300));
}

TEST_F(FramedWindowTest, AReleaseWithoutAPressDoesNothing) {
    window.Resizer_MouseUp(rightSide, 1, 0, 60, 3);
    window.Resizer_MouseDown(9, 1, 0, 0, 0);
    window.Resizer_MouseUp(9, 1, 0, 60, 3);
    EXPECT_EQ(window.size(), QSize(400, 300));
}

TEST_F(FramedWindowTest, TheLeftSideMovesTheWindowAndKeepsItsRightEdge) {
    const QRect before = window.geometry();
    drag(leftSide, {-40, 25});
    EXPECT_EQ(window.geometry(), before.adjusted(-40, 0, 0, 0));
}

TEST_F(FramedWindowTest, TheFloorsHold) {
    drag(bottomRightCorner, {-1000, -1000});
    EXPECT_EQ(window.size(), QSize(57, 90));
}

TEST_F(FramedWindowTest, TheLookFollowsTheSettingAtTheNextResize) {
    EXPECT_EQ(pixel(200, 299), QColor(0x1F, 0x47, 0x6D));
    store.write("XPInterface", "False");
    EXPECT_EQ(pixel(200, 299), QColor(0x1F, 0x47, 0x6D));
    window.resize(401, 300);
    QCoreApplication::processEvents();
    EXPECT_EQ(pixel(200, 297), QColor(207, 207, 207));
    store.write("XPInterface", "True");
    window.ApplySkin();
    EXPECT_EQ(pixel(200, 299), QColor(0x1F, 0x47, 0x6D));
}

TEST_F(FramedWindowTest, ASettingThatIsNoTruthValueLeavesItFlat) {
    store.write("XPInterface", "perhaps");
    window.ApplySkin();
    EXPECT_EQ(pixel(200, 299), QColor(0x1F, 0x47, 0x6D));
}

TEST_F(FramedWindowTest, MaximisedItHidesEdgesAndGripsAndOffersToRestore) {
    auto* const button = window.findChild<QToolButton*>("imgTitleMaxRestore");
    const auto picture = [&] { return button->icon().pixmap(16, 16).toImage(); };
    const auto held = [&](const char* name) {
        return window.findChild<QToolButton*>(name)->icon().pixmap(16, 16).toImage();
    };
    EXPECT_EQ(picture(), held("imgTitleMaximize"));
    EXPECT_NE(held("imgTitleMaximize"), held("imgTitleRestore"));
    QTest::mouseClick(button, Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.isMaximized());
    EXPECT_EQ(studio.shell.WindowState, 2);
    EXPECT_EQ(picture(), held("imgTitleRestore"));
    for (int at = 0; at < frameParts; ++at) {
        EXPECT_FALSE(part("Winedge", at)->isVisible());
        EXPECT_FALSE(part("Resizer", at)->isVisible());
    }
    EXPECT_EQ(window.client()->geometry().bottom(), window.height() - 1);

    QTest::mouseClick(button, Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_FALSE(window.isMaximized());
    EXPECT_EQ(studio.shell.WindowState, 0);
    EXPECT_EQ(picture(), held("imgTitleMaximize"));
    EXPECT_EQ(window.size(), QSize(400, 300));
    EXPECT_TRUE(part("Winedge", 0)->isVisible());
}

TEST_F(FramedWindowTest, ADoubleClickOnTheTitleMaximises) {
    QTest::mouseDClick(window.findChild<QWidget*>("lblTitle"), Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.isMaximized());
}

TEST_F(FramedWindowTest, TheTitleButtonsMinimiseAndClose) {
    QTest::mouseClick(window.findChild<QToolButton*>("imgTitleMinimize"), Qt::LeftButton);
    EXPECT_TRUE(window.isMinimized());
    EXPECT_EQ(studio.shell.WindowState, 1);
    window.showNormal();
    QTest::mouseClick(window.findChild<QToolButton*>("imgTitleClose"), Qt::LeftButton);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(FramedWindowTest, HelpActsOnlyWhereThereIsHelp) {
    auto* const button = window.findChild<QToolButton*>("imgTitleHelp");
    EXPECT_FALSE(button->isEnabled());
    int asked = 0;
    window.setHelp([&] { ++asked; });
    EXPECT_TRUE(button->isEnabled());
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(asked, 1);
}

TEST_F(FramedWindowTest, ABarePartCarriesTheWindow) {
    // No system stands by to take the move, so the window follows the mouse itself.
    const QPoint before = window.pos();
    QTest::mousePress(&window, Qt::LeftButton, {}, {200, 150});
    QTest::mouseMove(&window, {230, 170});
    QTest::mouseRelease(&window, Qt::LeftButton, {}, {230, 170});
    EXPECT_EQ(window.pos(), before + QPoint(30, 20));
}

TEST_F(FramedWindowTest, TheTitleAndItsBarCarryTheWindow) {
    for (const char* const name : {"lblTitle", "TopBar"}) {
        QWidget& bar = *window.findChild<QWidget*>(name);
        const QPoint before = window.pos();
        QTest::mousePress(&bar, Qt::LeftButton, {}, {40, 10});
        QTest::mouseMove(&bar, {50, 25});
        QTest::mouseRelease(&bar, Qt::LeftButton, {}, {50, 25});
        EXPECT_EQ(window.pos(), before + QPoint(10, 15)) << name;
    }
}

TEST_F(FramedWindowTest, TheGroundIsTheDesignsGrey) {
    QPalette other = window.palette();
    other.setColor(QPalette::Window, Qt::green);
    window.setPalette(other);
    window.LayoutResizers(false);
    EXPECT_EQ(window.palette().color(QPalette::Window), QColor(207, 207, 207));
}

TEST_F(FramedWindowTest, TheLastStateIsOneForAllWindows) {
    FramedWindow other(studio, {"Form3", "Another", {true, true, false}}, nullptr);
    other.show();
    window.showMaximized();
    QCoreApplication::processEvents();
    EXPECT_EQ(studio.shell.WindowState, 2);
    other.showMinimized();
    QCoreApplication::processEvents();
    EXPECT_EQ(studio.shell.WindowState, 1);
}

TEST_F(FramedWindowTest, AMaximisedWindowIsNotCarried) {
    window.showMaximized();
    QCoreApplication::processEvents();
    const QPoint before = window.pos();
    QTest::mousePress(&window, Qt::LeftButton, {}, {200, 150});
    QTest::mouseMove(&window, {230, 170});
    QTest::mouseRelease(&window, Qt::LeftButton, {}, {230, 170});
    EXPECT_EQ(window.pos(), before);
}

TEST_F(FramedWindowTest, TheTabKeyReachesTheTitleButtonsAfterTheContents) {
    FramedWindow other(studio, {"Form3", "Another", {true, true, false}}, nullptr);
    auto* const first = new QPushButton(other.client());
    auto* const last = new QPushButton(other.client());
    other.resize(300, 200);
    other.show();
    QCoreApplication::processEvents();
    first->setFocus();
    const auto tab = [&] {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        return QApplication::focusWidget();
    };
    EXPECT_EQ(tab(), last);
    EXPECT_EQ(tab()->objectName(), "imgTitleMinimize");
    EXPECT_EQ(tab()->objectName(), "imgTitleMaxRestore");
    EXPECT_EQ(tab()->objectName(), "imgTitleClose");
    EXPECT_EQ(tab(), first);
}

using MainWindowFrame = test::MainWindowTest;

TEST_F(MainWindowFrame, ThePageStandsStillWhileAnEdgeIsInHand) {
    window.Resizer_MouseDown(rightSide, 1, 0, 2, 2);
    EXPECT_TRUE(studio.shell.Resizing);
    const int before = studio.page.FirstColumn;
    studio.form1.HScroll1.set(studio.form1.HScroll1.value() + 5);
    EXPECT_EQ(studio.page.FirstColumn, before);
    const int row = studio.page.FirstRow;
    studio.form1.VScroll1.set(studio.form1.VScroll1.value() + 5);
    engine.page.Form_Resize();
    EXPECT_EQ(studio.page.FirstRow, row);
    EXPECT_TRUE(studio.shell.Resizing);
    window.Resizer_MouseUp(rightSide, 1, 0, -118, 2);
    EXPECT_FALSE(studio.shell.Resizing);
    EXPECT_EQ(window.width(), 1160);
    EXPECT_EQ(studio.page.PageColumns, (1160 - 70) / 12 - 1);
}

TEST_F(MainWindowFrame, TheCloseButtonEndsTheProgram) {
    QTest::mouseClick(find<QToolButton>("imgTitleClose"), Qt::LeftButton);
    EXPECT_TRUE(time.ended());
}

TEST_F(MainWindowFrame, NothingOfTheContentsLiesUnderAnEdge) {
    for (const char* const name : {"PicX", "MusicBox", "VScroll1", "HScroll1", "Pic2a", "Pic3", "Beatbox"}) {
        const QWidget& widget = *find(name);
        const QRect place(widget.mapTo(&window, QPoint(0, 0)), widget.size());
        EXPECT_GE(place.left(), frameThickness) << name;
        EXPECT_LE(place.right(), window.width() - 1 - frameThickness) << name;
        EXPECT_LE(place.bottom(), window.height() - 1 - frameThickness) << name;
    }
}

}  // namespace
}  // namespace melvane
