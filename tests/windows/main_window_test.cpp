#include <QAbstractButton>
#include <QLabel>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

#include "main_window_fixture.h"

namespace melvane::test {

using MainWindow = MainWindowTest;

TEST_F(MainWindow, ThePageFollowsTheWindowsSize) {
    for (const QSize size : {QSize(1280, 720), QSize(1600, 1000), QSize(1003, 777)}) {
        resizeTo(size.width(), size.height());
        EXPECT_EQ(studio.form1.client.width(), size.width());
        EXPECT_EQ(studio.page.PageColumns, (size.width() - 70) / 12 - 1);
        EXPECT_EQ(tablet().width(), size.width() - 70);
        EXPECT_EQ(tablet().x(), 50);
        EXPECT_EQ(studio.form1.MusicBox.height(), tablet().height());
        EXPECT_EQ(studio.page.LastColumn, studio.page.FirstColumn + studio.page.PageColumns);
        EXPECT_EQ(find<QScrollBar>("HScroll1")->pageStep(), studio.page.PageColumns + 1);
        EXPECT_EQ(find<QScrollBar>("VScroll1")->pageStep(), studio.page.PageRows + 1);
    }
}

TEST_F(MainWindow, ThePagesRowsCoverTheTablet) {
    for (const char* const height : {"4", "5", "8", "12", "17"}) {
        studio.Form3.Text3.set(height);
        engine.page.Form_Resize();
        EXPECT_GE((studio.page.PageRows + 1) * studio.page.LineHeight, tablet().height()) << height;
    }
}

TEST_F(MainWindow, NoBlankRowsShowInATallWindow) {
    for (const int height : {720, 1000, 1053, 1373}) {
        for (const char* const rows : {"6", "8", "12"}) {
            studio.Form3.Text3.set(rows);
            resizeTo(1280, height);
            engine.page.Form_Resize();
            const auto& page = studio.page;
            EXPECT_GE((page.PageRows + 1) * page.LineHeight, tablet().height()) << height << ' ' << rows;
            const double expected = find("Picmain")->height() / (page.LineHeight / 12.0 * 16) + 12;
            EXPECT_NEAR(page.PageRows, expected, 0.5) << height << ' ' << rows;
            const int stripsEnd = find("Pic3")->mapTo(&window, QPoint(0, 17)).y();
            EXPECT_EQ(find("Beatbox")->mapTo(&window, QPoint(0, 0)).y(), stripsEnd + 4)
                << height << ' ' << rows;
            EXPECT_GE(find("Beatbox")->height(), 60);
            EXPECT_EQ(studio.form1.MusicBox.height(), tablet().height());
        }
    }
}

TEST_F(MainWindow, AWindowThatComesBackIsLaidOut) {
    window.showMinimized();
    QCoreApplication::processEvents();
    EXPECT_TRUE(studio.shell.Minimised);
    studio.form1.Beatbox.setHeight(96);
    window.showNormal();
    QCoreApplication::processEvents();
    EXPECT_FALSE(studio.shell.Minimised);
    EXPECT_EQ(find("Beatbox")->height(), 96);
}

TEST_F(MainWindow, TheWindowHasTheProgramsIcon) {
    const QIcon emblem = window.windowIcon();
    for (const int side : {16, 48, 256}) EXPECT_EQ(emblem.actualSize({side, side}), QSize(side, side));
}

TEST_F(MainWindow, TheToolbarsGroupsStandEightPixelsApart) {
    const auto buttonPlace = [this](int index) {
        return find(("Cmd2(" + std::to_string(index) + ")").c_str())->parentWidget()->geometry();
    };
    for (int index = 1; index < 15; ++index) {
        const QRect left = buttonPlace(index - 1), right = buttonPlace(index);
        const bool beginsGroup = std::ranges::count(std::array{3, 4, 8, 12, 14}, index) > 0;
        EXPECT_EQ(right.left() - left.right() - 1, beginsGroup ? 8 : 0) << index;
    }
}

/// Presses at the left end, moves to x and releases there.
void drag(QWidget& widget, Qt::MouseButton button, int x) {
    QTest::mousePress(&widget, button, {}, QPoint(1, 12));
    const QPointF to(x, 12);
    QMouseEvent move(QEvent::MouseMove, to, widget.mapToGlobal(to), Qt::NoButton, button, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &move);
    QTest::mouseRelease(&widget, button, {}, to.toPoint());
}

TEST_F(MainWindow, ANoteEffectIsSetByDragWheelAndKeys) {
    auto* const track = find("LblReverb");
    ASSERT_TRUE(track->isEnabled());
    QTest::mouseClick(track, Qt::LeftButton, {}, QPoint(track->width() / 2, 12));
    EXPECT_EQ(studio.form1.T3.text(), "0") << "a press alone moves nothing";
    drag(*track, Qt::LeftButton, track->width() / 2);
    const int middle = std::stoi(studio.form1.T3.text());
    EXPECT_NEAR(middle, 64, 2);
    QTest::keyClick(track, Qt::Key_Right);
    EXPECT_EQ(studio.form1.T3.text(), std::to_string(middle + 1));
    QTest::keyClick(track, Qt::Key_Down);
    EXPECT_EQ(studio.form1.T3.text(), std::to_string(middle));
    drag(*track, Qt::LeftButton, track->width() - 1);
    EXPECT_EQ(studio.form1.T3.text(), "128") << "the whole way";
    drag(*track, Qt::RightButton, 20);
    EXPECT_EQ(studio.form1.T3.text(), "0");
    EXPECT_EQ(find<QLabel>("T3")->text(), "0");
}

TEST_F(MainWindow, TheInstrumentOfANoteIsWithinReachWhileEffectsAreOn) {
    for (const char* const name : {"CmdInst", "Combo3", "Text5"})
        EXPECT_FALSE(find(name)->isEnabled()) << name;
    QTest::mouseClick(find("Check1"), Qt::LeftButton, {}, QPoint(6, 12));
    for (const char* const name : {"CmdInst", "Combo3", "Text5"})
        EXPECT_TRUE(find(name)->isEnabled()) << name;
}

TEST_F(MainWindow, TheSurfacesColumnsStandInLine) {
    for (const char* const name : {"Pic2a", "Pic3", "HScroll1", "Beatbox"}) {
        EXPECT_EQ(find(name)->mapTo(&window, QPoint(0, 0)).x(), tablet().mapTo(&window, QPoint(0, 0)).x())
            << name;
        EXPECT_EQ(find(name)->width(), tablet().width()) << name;
    }
    EXPECT_EQ(tablet().mapTo(&window, QPoint(0, 0)).x(), 50);
    EXPECT_EQ(find("PicX")->geometry().left(), window.edgeWidth());
    EXPECT_EQ(find("PicX")->width(), 50 - window.edgeWidth());
}

TEST_F(MainWindow, TheTabletTakesTheRoomOfAClosedTableau) {
    const int before = tablet().height();
    QTest::mouseClick(find("Check2"), Qt::LeftButton);
    EXPECT_FALSE(studio.form1.Beatbox.visible());
    EXPECT_EQ(tablet().height(), before + 60 + 4);
    studio.form1.Beatbox.setHeight(36);
    studio.form1.Beatbox.setVisible(true);
    EXPECT_TRUE(studio.form1.Check2.ticked());
    EXPECT_EQ(tablet().height(), before + 24);
}

TEST_F(MainWindow, AWindowStoredOutsideTheScreenComesBackOntoIt) {
    for (const WindowPlace stored :
         {WindowPlace{-90000, -90000, 12000, 9000}, WindowPlace{300000, 300000, 12000, 9000},
          WindowPlace{0, 0, 1e9, 1e9}, WindowPlace{1e300, -1e300, 1, 1}}) {
        window.setPlace(stored);
        QCoreApplication::processEvents();
        EXPECT_TRUE(QRect(0, 0, 1600, 1000).contains(window.frameGeometry())) << stored.left;
    }
}

TEST_F(MainWindow, PlacesAreCountedInTwips) {
    window.setPlace({150, 300, 1200 * 15, 800 * 15});
    EXPECT_EQ(window.pos(), QPoint(10, 20));
    EXPECT_EQ(window.size(), QSize(1200, 800));
    EXPECT_EQ(window.place(), (WindowPlace{150, 300, 18000, 12000}));
    EXPECT_EQ(window.screenWidth(), 1600 * 15);
}

TEST_F(MainWindow, ClosingUnloadsTheProgramOnce) {
    port.log().take();
    window.close();
    window.close();
    int closes = 0;
    for (const auto& line : port.log().take()) closes += line.ends_with(" close") ? 1 : 0;
    EXPECT_EQ(closes, 1);
    EXPECT_TRUE(time.ended());
    EXPECT_EQ(store.read("Percussion"), "True");
}

TEST_F(MainWindow, ComingToTheFrontActivatesTheProgramOnce) {
    port.log().take();
    engine.startUp.Form_Activate();
    const auto expected = port.log().take();
    ASSERT_FALSE(expected.empty());
    QEvent activated(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&window, &activated);
    EXPECT_EQ(port.log().take(), expected);
}

TEST_F(MainWindow, TheArrowKeysScrollTheTablet) {
    const int row = studio.page.FirstRow;
    QTest::keyClick(&tablet(), Qt::Key_Right);
    QTest::keyClick(&tablet(), Qt::Key_Right);
    QTest::keyClick(&tablet(), Qt::Key_Left);
    EXPECT_EQ(studio.page.FirstColumn, 1);
    QTest::keyClick(&tablet(), Qt::Key_End);
    EXPECT_EQ(studio.page.LastColumn, studio.score.NumNotes - 1);
    QTest::keyClick(&tablet(), Qt::Key_Home);
    EXPECT_EQ(studio.page.FirstColumn, 0);
    QTest::keyClick(&tablet(), Qt::Key_Down);
    EXPECT_EQ(studio.page.FirstRow, row + 2) << "the first move after a resize jumps by one";
    QTest::keyClick(&tablet(), Qt::Key_Up);
    EXPECT_EQ(studio.page.FirstRow, row + 1);
}

TEST_F(MainWindow, TheWheelScrollsRowsAndWithShiftColumns) {
    const auto turn = [this](int angle, Qt::KeyboardModifiers keys) {
        const QPointF at(100, 100);
        QWheelEvent event(at, tablet().mapToGlobal(at), {}, QPoint(0, angle), Qt::NoButton, keys,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&tablet(), &event);
    };
    const int row = studio.page.FirstRow;
    turn(-120, Qt::NoModifier);
    EXPECT_EQ(studio.page.FirstRow, row + 3 + 1);
    turn(-120, Qt::ShiftModifier);
    EXPECT_EQ(studio.page.FirstColumn, 3);
    turn(-20, Qt::ShiftModifier);
    EXPECT_EQ(studio.page.FirstColumn, 3) << "half a step";
    turn(-20, Qt::ShiftModifier);
    EXPECT_EQ(studio.page.FirstColumn, 4);
}

TEST_F(MainWindow, AToolbarButtonRunsItsCommand) {
    write(0, 10, 67);
    QTest::mouseClick(find("ImgPic(0)"), Qt::LeftButton);
    EXPECT_EQ(studio.score.noteCell(0, 10), -1);
}

TEST_F(MainWindow, AToolbarButtonAppearsUnderTheMouseAndGoesWithIt) {
    const auto point = [this](const char* name, QPoint at) {
        QWidget* const widget = find(name);
        QTest::mouseMove(window.windowHandle(), widget->mapTo(&window, at));
        QCoreApplication::processEvents();
    };
    const QPoint middle(14, 14);
    EXPECT_FALSE(find("Cmd2(4)")->isVisible());
    point("ImgPic(4)", middle);
    EXPECT_TRUE(find("Cmd2(4)")->isVisible());
    point("Cmd2(4)", {2, 2});
    EXPECT_TRUE(find("Cmd2(4)")->isVisible()) << "over the button itself";
    point("ImgPic(5)", middle);
    EXPECT_FALSE(find("Cmd2(4)")->isVisible());
    EXPECT_TRUE(find("Cmd2(5)")->isVisible());
    point("toolbMenu", {2, 2});
    EXPECT_FALSE(find("Cmd2(5)")->isVisible());
    point("ImgPic(6)", middle);
    point("MusicBox", {40, 40});
    EXPECT_FALSE(find("Cmd2(6)")->isVisible());
    point("ImgPic(13)", middle);
    EXPECT_FALSE(find("Cmd2(13)")->isVisible()) << "a button that does nothing";
}

TEST_F(MainWindow, AToolbarButtonIsHiddenWhenItIsLetGo) {
    const QPoint middle = find("ImgPic(0)")->mapTo(&window, QPoint(14, 14));
    write(0, 10, 67);
    QTest::mouseMove(window.windowHandle(), middle);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, middle);
    QCoreApplication::processEvents();
    EXPECT_EQ(studio.score.noteCell(0, 10), -1);
    EXPECT_FALSE(find("Cmd2(0)")->isVisible());
}

TEST_F(MainWindow, AChannelLabelMakesItsTrackTheCurrentOne) {
    QTest::mouseClick(find("Label8(3)"), Qt::LeftButton);
    EXPECT_EQ(studio.tracks.CurrentTrack, 3);
    EXPECT_EQ(find<QLabel>("LblTrk")->text(), "4");
    EXPECT_EQ(window.findChild<QWidget*>("Label8(9)"), nullptr) << "track 9 is not offered";
}

TEST_F(MainWindow, WhatCanBeReachedHasANameATipAndItsPlaceInTheOrder) {
    std::vector<QString> order;
    for (QWidget* widget = find("ImgPic(0)"); order.size() < 200; widget = widget->nextInFocusChain()) {
        if (!order.empty() && widget->objectName() == "ImgPic(0)") break;
        if (widget->isHidden() || (widget->focusPolicy() & Qt::TabFocus) == 0 ||
            widget->objectName().startsWith("qt_"))
            continue;
        order.push_back(widget->objectName());
        const bool named = !widget->accessibleName().isEmpty() ||
                           (qobject_cast<QAbstractButton*>(widget) != nullptr &&
                            !qobject_cast<QAbstractButton*>(widget)->text().isEmpty());
        EXPECT_TRUE(named) << widget->objectName().toStdString();
        // The tablet's tip tells what is under the mouse, and is empty at rest.
        EXPECT_TRUE(widget == &tablet() || !widget->toolTip().isEmpty())
            << widget->objectName().toStdString();
    }
    std::size_t last = 0;
    for (const char* const name :
         {"ImgPic(14)", "MusicBox", "VScroll1", "HScroll1", "Pic2a", "Pic3", "Beatbox", "Label8(0)",
          "Label8(12)", "Combo3", "lblVolume", "LblChorus", "Text5", "Check1", "CmdUndo"}) {
        const auto found = std::ranges::find(order, QString(name));
        ASSERT_NE(found, order.end()) << name;
        const auto at = static_cast<std::size_t>(found - order.begin());
        EXPECT_GT(at, last) << name;
        last = at;
    }
}

/// As it goes when the button that was pressed has hidden itself and opened a window.
TEST_F(MainWindow, AToolbarButtonIsFlatWhenTheMouseHasLeftIt) {
    QWidget* const picture = find("ImgPic(9)");
    QEnterEvent enter({14, 14}, {14, 14}, picture->mapToGlobal(QPointF(14, 14)));
    QCoreApplication::sendEvent(picture, &enter);
    EXPECT_TRUE(picture->underMouse());
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(picture->parentWidget(), &leave);
    EXPECT_FALSE(picture->underMouse());
}

}  // namespace melvane::test
