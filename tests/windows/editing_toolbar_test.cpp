#include "shell/editing_toolbar_window.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "main_window_fixture.h"
#include "ui/qt_style.h"

namespace melvane::test {

class EditingToolbarWindow : public MainWindowTest {
 protected:
    EditingToolbarWindow() {
        floatingWindows.list(ToolWindows::Window::editing, "Form2", [this] {
            toolbar = new Form2(studio, engine.editing, &window);
            toolbar->useSettings(engine.settings);
            return toolbar;
        });
        engine.toolbar.Cmd2_Click(9);
        QCoreApplication::processEvents();
        // A test before this one may have ended with a button down, which would go on into each movement.
        for (const auto held : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
            QTest::mouseRelease(toolbar->windowHandle(), held, {}, {2, 2});
        }
    }
    ~EditingToolbarWindow() override { toolbar->close(); }

    template <class Widget = QWidget>
    Widget* part(const QString& name) {
        auto* const widget = toolbar->findChild<Widget*>(name);
        EXPECT_NE(widget, nullptr) << name.toStdString();
        return widget;
    }
    QWidget* button(int index) { return part(QStringLiteral("Cmd2(%1)").arg(index)); }
    QWidget* picture(int index) { return part(QStringLiteral("ImgPic(%1)").arg(index)); }
    QImage drawn(int index) { return picture(index)->grab().toImage(); }
    /// Moves the mouse to the middle of `widget`, over whatever lies there.
    void point(QWidget& widget) {
        const QPoint at = widget.mapTo(toolbar, widget.rect().center());
        QTest::mouseMove(toolbar->windowHandle(), at);
        QCoreApplication::processEvents();
    }
    void press(int index) {
        point(*picture(index));
        QTest::mouseClick(toolbar->windowHandle(), Qt::LeftButton, {},
                          picture(index)->mapTo(toolbar, picture(index)->rect().center()));
        QCoreApplication::processEvents();
    }

    Form2* toolbar = nullptr;
};

TEST_F(EditingToolbarWindow, TheMainToolbarOpensIt) {
    EXPECT_TRUE(toolbar->isVisible());
    EXPECT_TRUE(toolbar->loaded());
    EXPECT_EQ(toolbar->windowTitle(), "Editing Toolbar");
}

TEST_F(EditingToolbarWindow, TheButtonAppearsUnderTheMouseAndGoesWithIt) {
    EXPECT_FALSE(button(4)->isVisible());
    point(*picture(4));
    EXPECT_TRUE(button(4)->isVisible());
    point(*button(4));
    EXPECT_TRUE(button(4)->isVisible()) << "over the button itself";
    point(*picture(5));
    EXPECT_FALSE(button(4)->isVisible());
    EXPECT_TRUE(button(5)->isVisible());
    const QWidget& ground = *part("ToolbCompose");
    QTest::mouseMove(toolbar->windowHandle(), ground.mapTo(toolbar, QPoint(ground.width() - 3, 20)));
    EXPECT_FALSE(button(5)->isVisible());
}

TEST_F(EditingToolbarWindow, AButtonBeyondTheNeighboursStaysUntilTheGroundIsTouched) {
    point(*picture(4));
    point(*picture(9));
    EXPECT_TRUE(button(4)->isVisible());
    point(*part("Label6(0)"));
    EXPECT_FALSE(button(4)->isVisible());
    EXPECT_FALSE(button(9)->isVisible());
}

TEST_F(EditingToolbarWindow, AMouseThatLeavesTheWindowLeavesNoButton) {
    point(*picture(4));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(toolbar, &leave);
    EXPECT_FALSE(button(4)->isVisible());
}

TEST_F(EditingToolbarWindow, APictureLiesInTheMiddleOfItsButtonAndALittleAbove) {
    for (int index = 1; index <= 17; ++index) {
        const QRect whole = button(index)->geometry(), inside = picture(index)->geometry();
        EXPECT_EQ(inside.left(), whole.left() + (whole.width() - inside.width()) * 5 / 10) << index;
        EXPECT_EQ(inside.top(), whole.top() + (whole.height() - inside.height()) * 4 / 10) << index;
    }
}

TEST_F(EditingToolbarWindow, APressActsAndHidesTheButton) {
    write(0, 3, 60);
    point(*picture(1));
    QTest::mousePress(button(1), Qt::LeftButton);
    EXPECT_TRUE(button(1)->isVisible());
    EXPECT_EQ(studio.score.NoteArray.get(0, 3, 0), 60);
    QTest::mouseRelease(button(1), Qt::LeftButton);
    EXPECT_FALSE(button(1)->isVisible());
    EXPECT_EQ(studio.score.NoteArray.get(0, 3, 0), -1);
}

TEST_F(EditingToolbarWindow, AnyMouseButtonThatComesUpHidesTheButton) {
    write(0, 3, 60);
    for (const auto mouse : {Qt::RightButton, Qt::MiddleButton}) {
        point(*picture(4));
        point(*picture(1));
        QTest::mousePress(button(1), mouse);
        EXPECT_TRUE(button(1)->isVisible());
        QTest::mouseRelease(button(1), mouse);
        EXPECT_FALSE(button(1)->isVisible());
    }
    // Dragged off the button: it stays until the mouse button comes up, and nothing is done.
    point(*picture(4));
    point(*picture(1));
    QTest::mousePress(button(1), Qt::LeftButton);
    QTest::mouseMove(button(1), {-20, 4});
    EXPECT_TRUE(button(1)->isVisible());
    QTest::mouseRelease(button(1), Qt::LeftButton, {}, {-20, 4});
    EXPECT_FALSE(button(1)->isVisible());
    EXPECT_EQ(studio.score.NoteArray.get(0, 3, 0), 60);
}

TEST_F(EditingToolbarWindow, AFieldIsWhiteWhileItCanBeTypedInto) {
    const auto ground = [this](const char* name) {
        auto* const field = part<QLineEdit>(name);
        return field->grab().toImage().pixelColor(field->width() - 4, field->height() / 2);
    };
    for (const char* const name : {"Text1", "Text3", "Text4", "Text5"}) {
        EXPECT_EQ(ground(name), palette::ground) << name;
    }
    press(11);
    for (const char* const name : {"Text1", "Text3", "Text4", "Text5"}) {
        EXPECT_EQ(ground(name), QColor(Qt::white)) << name;
    }
}

TEST_F(EditingToolbarWindow, ThePressOfAFingerNeedsNoHover) {
    QTest::mouseClick(picture(10), Qt::LeftButton);
    EXPECT_TRUE(studio.player.LoopSong);
}

TEST_F(EditingToolbarWindow, TogglesChangeTheirPictures) {
    for (const int index : {9, 10, 11}) {
        const QImage before = drawn(index);
        press(index);
        EXPECT_NE(drawn(index), before) << index;
        press(index);
        point(*part("Label6(0)"));
        EXPECT_EQ(drawn(index), before) << index;
    }
}

TEST_F(EditingToolbarWindow, WhileDrawingTheEditingButtonsDoNotAppear) {
    point(*picture(13));
    EXPECT_FALSE(button(13)->isVisible());
    EXPECT_FALSE(picture(13)->isEnabled());
    EXPECT_FALSE(part("Text4")->isEnabled());
    EXPECT_FALSE(part("VScroll4")->isEnabled());
    EXPECT_FALSE(part("Check1")->isEnabled());
    EXPECT_FALSE(part("Label6(1)")->isEnabled());
    const QImage disabled = drawn(13);
    press(11);
    EXPECT_EQ(studio.selection.EditMode, 2);
    point(*picture(13));
    EXPECT_TRUE(button(13)->isVisible());
    EXPECT_TRUE(part("Text4")->isEnabled());
    EXPECT_TRUE(part("Label6(1)")->isEnabled());
    EXPECT_NE(drawn(13), disabled);
}

TEST_F(EditingToolbarWindow, AFieldIsTypedInto) {
    press(11);
    auto* const repeat = part<QLineEdit>("Text4");
    repeat->setFocus();
    repeat->selectAll();
    QTest::keyClicks(repeat, "5678");
    EXPECT_EQ(repeat->text(), "567");
    EXPECT_EQ(studio.duplicate.DuplicateRepeat, 567);
    repeat->selectAll();
    QTest::keyClicks(repeat, "5");
    EXPECT_EQ(part<QLineEdit>("Text5")->text(), "5");
}

TEST_F(EditingToolbarWindow, ABeatsFieldThatIsTypedTooHighFallsBack) {
    press(11);
    auto* const beats = part<QLineEdit>("Text5");
    beats->selectAll();
    QTest::keyClicks(beats, "20");
    EXPECT_EQ(beats->text(), "12");
}

TEST_F(EditingToolbarWindow, AnArrowOfASpinBarMovesByOne) {
    press(11);
    auto* const bar = part<QAbstractSlider>("VScroll2");
    QTest::mouseClick(bar, Qt::LeftButton, {}, {9, 4});
    EXPECT_EQ(part<QLineEdit>("Text3")->text(), "61");
    QTest::mouseClick(bar, Qt::LeftButton, {}, {9, 20});
    QTest::mouseClick(bar, Qt::LeftButton, {}, {9, 20});
    EXPECT_EQ(part<QLineEdit>("Text3")->text(), "59");
    QTest::mouseClick(bar, Qt::RightButton, {}, {9, 20});
    EXPECT_EQ(part<QLineEdit>("Text3")->text(), "59");
}

TEST_F(EditingToolbarWindow, TheKeysMoveASpinBar) {
    press(11);
    auto* const bar = part<QAbstractSlider>("VScroll2");
    bar->setFocus();
    QTest::keyClick(bar, Qt::Key_Up);
    EXPECT_EQ(studio.duplicate.DuplicateNotes, 61);
    QTest::keyClick(bar, Qt::Key_PageUp);
    EXPECT_EQ(studio.duplicate.DuplicateNotes, 71);
    QTest::keyClick(bar, Qt::Key_Down);
    EXPECT_EQ(studio.duplicate.DuplicateNotes, 70);
    QTest::keyClick(bar, Qt::Key_Home);
    EXPECT_EQ(studio.duplicate.DuplicateNotes, 0);
    QTest::keyClick(bar, Qt::Key_End);
    EXPECT_EQ(studio.duplicate.DuplicateNotes, 99);
}

TEST_F(EditingToolbarWindow, TheTracksButtonShowsBothOfItsStates) {
    auto* const tracks = part<QAbstractButton>("Check3");
    const auto before = tracks->icon().pixmap(24).toImage();
    tracks->click();
    EXPECT_TRUE(studio.selection.CopyonlyOneTrack);
    EXPECT_EQ(tracks->toolTip(), "Edit Selected Track Only");
    EXPECT_NE(tracks->icon().pixmap(24).toImage(), before);
    tracks->click();
    EXPECT_FALSE(studio.selection.CopyonlyOneTrack);
    EXPECT_EQ(tracks->toolTip(), "Edit All Tracks");
}

TEST_F(EditingToolbarWindow, TheKeyboardReachesEveryPartInReadingOrder) {
    press(11);
    std::vector<std::string> reached;
    QWidget* const first = picture(1);
    first->setFocus();
    do {
        reached.push_back(QApplication::focusWidget()->objectName().toStdString());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    } while (QApplication::focusWidget() != first && reached.size() < 60);
    std::vector<std::string> wanted;
    for (int index = 1; index <= 15; ++index) wanted.push_back("ImgPic(" + std::to_string(index) + ")");
    for (const char* const name :
         {"Check3", "Text3", "VScroll2", "Text4", "VScroll4", "Text5", "VScroll3", "Check2", "Check1",
          "ImgPic(17)", "Text1", "ImgPic(16)", "imgTitleClose"}) {
        wanted.emplace_back(name);
    }
    EXPECT_EQ(reached, wanted);
}

TEST_F(EditingToolbarWindow, ItOpensWithTheFocusOnPlay) {
    ASSERT_NE(toolbar->focusWidget(), nullptr);
    EXPECT_EQ(toolbar->focusWidget()->objectName(), "ImgPic(4)");
}

TEST_F(EditingToolbarWindow, TheBlankKeyPressesTheButtonWithTheFocus) {
    picture(10)->setFocus();
    QTest::keyClick(picture(10), Qt::Key_Space);
    EXPECT_TRUE(studio.player.LoopSong);
}

TEST_F(EditingToolbarWindow, TheKeysOfTheMainWindowGoOnWorking) {
    toolbar->activateWindow();
    QCoreApplication::processEvents();
    ASSERT_EQ(QApplication::activeWindow(), toolbar);
    QTest::keyClick(picture(4), Qt::Key_F8);
    EXPECT_TRUE(studio.player.LoopSong);
    press(11);
    part("Text3")->setFocus();
    QTest::keyClick(part("Text3"), Qt::Key_F8);
    EXPECT_FALSE(studio.player.LoopSong);
}

TEST_F(EditingToolbarWindow, EverythingThatIsPressedHasANameThatIsSpoken) {
    for (const QAbstractButton* const widget : toolbar->findChildren<QAbstractButton*>()) {
        const std::string name = widget->objectName().toStdString();
        EXPECT_FALSE(widget->accessibleName().isEmpty() && widget->text().isEmpty() && widget->isVisible())
            << name;
        EXPECT_TRUE(!widget->toolTip().isEmpty() || name == "Cmd2(7)" || name == "ImgPic(7)" ||
                    !widget->isVisible())
            << name;
    }
    EXPECT_EQ(picture(7)->accessibleName(), "Stop playing");
    for (const char* const name : {"Text1", "Text3", "Text4", "Text5", "VScroll2", "VScroll3", "VScroll4"}) {
        EXPECT_FALSE(part(name)->accessibleName().isEmpty()) << name;
        EXPECT_FALSE(part(name)->toolTip().isEmpty()) << name;
    }
}

TEST_F(EditingToolbarWindow, EveryPictureIsDrawn) {
    for (int index = 1; index <= 17; ++index) {
        for (QWidget* const widget : {picture(index), button(index)}) {
            EXPECT_FALSE(qobject_cast<QAbstractButton*>(widget)->icon().isNull())
                << widget->objectName().toStdString();
        }
    }
    for (const char* const name : {"TransposeBut(0)", "TransposeBut(1)", "Command7", "Check3"}) {
        EXPECT_FALSE(part<QAbstractButton>(name)->icon().isNull()) << name;
    }
}

TEST_F(EditingToolbarWindow, WhatHasNoActionIsShownDisabled) {
    for (const char* const name : {"TransposeBut(0)", "TransposeBut(1)", "Command7"}) {
        EXPECT_TRUE(part(name)->isVisible()) << name;
        EXPECT_FALSE(part(name)->isEnabled()) << name;
    }
}

TEST_F(EditingToolbarWindow, NothingIsCutOrOverlapsWithALargerFontToo) {
    const QFont usual = QApplication::font();
    for (const int larger : {0, 1, 4}) {
        QFont font = usual;
        font.setPointSize(usual.pointSize() + larger);
        QApplication::setFont(font);
        QCoreApplication::processEvents();
        for (const char* const name : {"Label6(0)", "Label6(1)", "Label6(2)", "Label6(3)", "Check1", "Check2",
                                       "Text1", "Text3", "Picture2", "ToolbCompose", "toolbEdit"}) {
            const QWidget& widget = *part(name);
            EXPECT_GE(widget.width(), widget.minimumSizeHint().width()) << name << larger;
            EXPECT_GE(widget.height(), widget.minimumSizeHint().height()) << name << larger;
            const QRect place(widget.mapTo(toolbar, QPoint(0, 0)), widget.size());
            EXPECT_TRUE(toolbar->rect().adjusted(4, 4, -4, -4).contains(place)) << name << larger;
        }
        for (const char* const name : {"Text1", "Text3", "Text4", "Text5"}) {
            const auto* const field = part<QLineEdit>(name);
            EXPECT_LE(field->fontMetrics().horizontalAdvance("999") + 12, field->width()) << name << larger;
        }
    }
    QApplication::setFont(usual);
}

TEST_F(EditingToolbarWindow, ItIsMovedByItsBackground) {
    const QPoint before = toolbar->pos();
    auto* const ground = part("toolbEdit");
    const QPoint bare = ground->mapTo(toolbar, QPoint(ground->width() / 2 + 90, 20));
    QTest::mousePress(toolbar->windowHandle(), Qt::LeftButton, {}, bare);
    QTest::mouseMove(toolbar->windowHandle(), bare + QPoint(-40, -30));
    QCoreApplication::processEvents();
    QTest::mouseRelease(toolbar->windowHandle(), Qt::LeftButton, {}, bare);
    EXPECT_EQ(toolbar->pos(), before + QPoint(-40, -30));
    EXPECT_EQ(studio.Form2.place.left, toolbar->x() * 15.0);
}

TEST_F(EditingToolbarWindow, EveryGroundMovesIt) {
    for (const char* const name : {"ToolbCompose", "toolbEdit", "Picture2", "Picture5", "Picture6"}) {
        auto* const ground = part(name);
        QPoint bare;
        for (int x = ground->width() - 2; x > 0 && bare.isNull(); --x) {
            if (ground->childAt(x, ground->height() / 2) == nullptr) bare = {x, ground->height() / 2};
        }
        ASSERT_FALSE(bare.isNull()) << name;
        const QPoint before = toolbar->pos(), at = ground->mapTo(toolbar, bare);
        QTest::mousePress(toolbar->windowHandle(), Qt::LeftButton, {}, at);
        QTest::mouseMove(toolbar->windowHandle(), at + QPoint(-8, -6));
        QCoreApplication::processEvents();
        QTest::mouseRelease(toolbar->windowHandle(), Qt::LeftButton, {}, at);
        EXPECT_EQ(toolbar->pos(), before + QPoint(-8, -6)) << name;
    }
}

TEST_F(EditingToolbarWindow, ClosingStoresItsPlaceAndOpeningTakesIt) {
    press(11);
    toolbar->move(120, 90);
    toolbar->close();
    EXPECT_FALSE(studio.shell.Form2Open);
    EXPECT_EQ(studio.selection.EditMode, 0);
    EXPECT_EQ(store.read("form2 left"), "1800");
    EXPECT_EQ(store.read("form2 top"), "1350");
    toolbar->move(0, 0);
    floatingWindows.showWindow("Form2");
    EXPECT_EQ(toolbar->pos(), QPoint(120, 90));
    EXPECT_FALSE(picture(12)->isEnabled());
}

TEST_F(EditingToolbarWindow, AStoredPlaceBeyondTheScreenIsMovedOntoIt) {
    toolbar->close();
    store.write("form2 left", "30000");
    store.write("form2 top", "-3000");
    floatingWindows.showWindow("Form2");
    EXPECT_EQ(toolbar->x() + toolbar->width(), 1600);
    EXPECT_EQ(toolbar->y(), 0);
}

TEST_F(EditingToolbarWindow, ItIsHiddenWhileADialogIsOpenAndNothingIsLoadedAnew) {
    press(11);
    studio.Form2.Text3.userPut(Value("33"));
    engine.toolbar.setToolWindows(false);
    EXPECT_FALSE(toolbar->isVisible());
    EXPECT_TRUE(toolbar->loaded());
    engine.toolbar.setToolWindows(true);
    EXPECT_TRUE(toolbar->isVisible());
    EXPECT_EQ(part<QLineEdit>("Text3")->text(), "33");
    EXPECT_EQ(studio.Form2.EditToolState, 0);
}

TEST_F(EditingToolbarWindow, TheEndOfTheProgramStoresTheFields) {
    studio.Form2.Text3.set("44");
    engine.startUp.Command3_Click();
    EXPECT_EQ(store.read("Notes"), "44");
    EXPECT_FALSE(studio.shell.Form2Open);
}

}  // namespace melvane::test
