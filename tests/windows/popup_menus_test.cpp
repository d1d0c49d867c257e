#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QToolButton>

#include "shell/help_window.h"
#include "shell/popup_menus_window.h"
#include "windows/main_window_fixture.h"

namespace melvane {
namespace {

class PopupMenusTest : public test::MainWindowTest {
 protected:
    static QMenu* openMenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
    static QAction* entry(const QMenu& menu, const QString& caption) {
        for (QAction* const action : menu.actions()) {
            if (action->text() == caption) return action;
        }
        return nullptr;
    }
    static void choose(const QString& caption) {
        QMenu* const menu = openMenu();
        ASSERT_NE(menu, nullptr);
        QAction* const action = entry(*menu, caption);
        ASSERT_NE(action, nullptr) << caption.toStdString();
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
        QCoreApplication::processEvents();
    }

    Frmmenu menus{studio, engine.menus, &window};
};

TEST_F(PopupMenusTest, AToolbarButtonOpensItsMenuAndReturns) {
    QTest::mouseClick(find<QToolButton>("ImgPic(3)"), Qt::LeftButton);
    ASSERT_NE(openMenu(), nullptr);
    EXPECT_EQ(openMenu()->objectName(), "mnupopup5");
    EXPECT_TRUE(studio.Frmmenu.loaded);
    EXPECT_TRUE(entry(*openMenu(), "Erase on Right-click")->isChecked());
    openMenu()->close();
    QCoreApplication::processEvents();
    EXPECT_FALSE(studio.Frmmenu.loaded);
}

TEST_F(PopupMenusTest, AClickOnAnEntryRunsItAndChangesTheButtonsPicture) {
    auto* const button = find<QToolButton>("ImgPic(3)");
    const QImage before = button->icon().pixmap(24, 24).toImage();
    QTest::mouseClick(button, Qt::LeftButton);
    choose("Set Polynotes on Right-Click");
    EXPECT_EQ(studio.selection.RightClickMode, 2);
    EXPECT_EQ(button->toolTip(), "Set Polynotes on right-click");
    const QImage chords = button->icon().pixmap(24, 24).toImage();
    EXPECT_NE(chords, before);
    EXPECT_FALSE(studio.Frmmenu.loaded);
    engine.menus.mnuMenu_Click();
    const QImage menu = button->icon().pixmap(24, 24).toImage();
    EXPECT_NE(menu, before);
    EXPECT_NE(menu, chords);
    engine.menus.mnuerase_Click();
    EXPECT_EQ(button->icon().pixmap(24, 24).toImage(), before);
}

TEST_F(PopupMenusTest, ARightPressOnABarePartOpensTheMenuOfTheProgram) {
    for (const char* const bare : {"toolbMenu", "Picmain", "Picture11"}) {
        QWidget* const widget = find(bare);
        EXPECT_EQ(widget->toolTip(), "Right click for menu") << bare;
        QTest::mousePress(widget, Qt::RightButton, {}, {widget->width() - 2, 1});
        ASSERT_NE(openMenu(), nullptr) << bare;
        EXPECT_EQ(openMenu()->objectName(), "mnupopup2");
        openMenu()->close();
        QCoreApplication::processEvents();
    }
}

TEST_F(PopupMenusTest, TheInterfaceMenuHasTheTwoLooks) {
    engine.menus.openProgramMenu();
    ASSERT_NE(openMenu(), nullptr);
    const QMenu* const looks = entry(*openMenu(), "Interface")->menu();
    ASSERT_NE(looks, nullptr);
    EXPECT_FALSE(entry(*looks, "3D stylized")->isChecked());
    EXPECT_TRUE(entry(*looks, "XP style")->isChecked());
    entry(*looks, "3D stylized")->trigger();
    openMenu()->close();
    QCoreApplication::processEvents();
    EXPECT_EQ(store.read("XPInterface"), "False");
}

// A song that plays from a menu serves the queue, in which the menu's end lies.
TEST_F(PopupMenusTest, AnEntryIsDoneOutsideTheClickThatChoseIt) {
    QTest::mouseClick(find<QToolButton>("ImgPic(3)"), Qt::LeftButton);
    QMenu* const menu = openMenu();
    ASSERT_NE(menu, nullptr);
    QAction* const chords = entry(*menu, "Set Polynotes on Right-Click");
    ASSERT_NE(chords, nullptr);
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(chords).center());
    EXPECT_EQ(studio.selection.RightClickMode, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(studio.selection.RightClickMode, 2);
}

TEST_F(PopupMenusTest, TheTabletsMenuWorksOnTheSelectionBeforeItGoes) {
    write(0, 3, 60);
    engine.tools.FunctionBut_Click(2);
    studio.selection.SelStart = studio.selection.SelEnd = 3;
    QTest::mousePress(&tablet(), Qt::RightButton, {}, {200, 40});
    choose("Copy selection");
    EXPECT_EQ(studio.clipboard.ClipNoteArray.get(0, 0, -1), 60);
    EXPECT_EQ(studio.selection.SelStart, -1);
    EXPECT_EQ(studio.selection.InsertPosition, 0);
}

TEST_F(PopupMenusTest, LettingGoOfThePressThatOpenedAMenuChoosesNothing) {
    write(0, 3, 60);
    studio.selection.RightClickMode = 1;
    QTest::mousePress(&tablet(), Qt::RightButton, {}, {300, 40});
    QMenu* const menu = openMenu();
    ASSERT_NE(menu, nullptr);
    const QPoint first = menu->actionGeometry(menu->actions().first()).center();
    QTest::mouseMove(menu, first);
    QTest::mouseRelease(menu, Qt::RightButton, {}, first);
    QCoreApplication::processEvents();
    EXPECT_TRUE(menu->isVisible());
    EXPECT_EQ(studio.score.noteCell(0, 3), 60);
    menu->close();
    QCoreApplication::processEvents();
}

TEST_F(PopupMenusTest, ADragThatAMenuInterruptedEndsAtTheNextMove) {
    studio.selection.RightClickMode = 1;
    QTest::mousePress(&tablet(), Qt::LeftButton, {}, {30, 40});
    QTest::mousePress(&tablet(), Qt::RightButton, {}, {30, 40});
    ASSERT_NE(openMenu(), nullptr);
    openMenu()->close();
    QCoreApplication::processEvents();
    EXPECT_TRUE(studio.drag.MouseIsDown);
    QMouseEvent move(QEvent::MouseMove, QPointF(40, 40), tablet().mapToGlobal(QPointF(40, 40)), Qt::NoButton,
                     Qt::NoButton, {});
    QCoreApplication::sendEvent(&tablet(), &move);
    EXPECT_FALSE(studio.drag.MouseIsDown);
    EXPECT_GE(studio.score.noteCell(0, 2), 0);
}

TEST_F(PopupMenusTest, LinesPartTheEntries) {
    engine.menus.openTabletMenu({});
    ASSERT_NE(openMenu(), nullptr);
    QStringList shown;
    for (const QAction* const action : openMenu()->actions()) {
        shown << (action->isSeparator() ? QString("-") : action->text());
    }
    EXPECT_EQ(shown.join("|").toStdString(),
              "Clear All|-|Cut selection|Copy selection|Paste (insert)|Paste (overwrite)|-|Open File|Save "
              "as|Save|-|Cancel");
    openMenu()->close();
    QCoreApplication::processEvents();
}

class HelpWindowTest : public testing::Test {
 protected:
    Studio studio;
    HelpWindow help{studio, nullptr};
    QListWidget& topics = *help.findChild<QListWidget*>();
    QTextBrowser& page = *help.findChild<QTextBrowser*>();
};

TEST_F(HelpWindowTest, EveryTopicHasAHeadingAndAText) {
    ASSERT_GE(topics.count(), 8);
    for (int row = 0; row < topics.count(); ++row) {
        topics.setCurrentRow(row);
        const QString heading = topics.item(row)->text();
        EXPECT_FALSE(heading.isEmpty());
        EXPECT_TRUE(page.toPlainText().startsWith(heading)) << heading.toStdString();
        EXPECT_GT(page.toPlainText().size(), 150) << heading.toStdString();
    }
}

TEST_F(HelpWindowTest, EveryLinkLeadsToATopic) {
    int links = 0;
    for (int row = 0; row < topics.count(); ++row) {
        topics.setCurrentRow(row);
        for (QTextBlock block = page.document()->begin(); block.isValid(); block = block.next()) {
            for (auto part = block.begin(); !part.atEnd(); ++part) {
                const QString target = part.fragment().charFormat().anchorHref();
                if (target.isEmpty()) continue;
                ++links;
                EXPECT_TRUE(QFile::exists(":/help/" + target)) << target.toStdString();
            }
        }
    }
    EXPECT_GE(links, 4);
}

TEST_F(HelpWindowTest, ASearchLeavesTheTopicsThatHaveAllItsWords) {
    auto& words = *help.findChild<QLineEdit*>("words");
    const auto left = [this] {
        QStringList shown;
        for (int row = 0; row < topics.count(); ++row) {
            if (!topics.item(row)->isHidden()) shown << topics.item(row)->text();
        }
        return shown;
    };
    const int all = topics.count();
    words.setText("metroNOME");
    EXPECT_TRUE(left().contains("Keyboard"));
    EXPECT_LT(left().size(), all);
    EXPECT_EQ(topics.currentItem()->text(), left().first());
    EXPECT_FALSE(page.extraSelections().isEmpty());
    words.setText("soundfont  cursor nowhere-to-be-found");
    EXPECT_TRUE(left().isEmpty());
    EXPECT_TRUE(page.toPlainText().isEmpty());
    words.clear();
    EXPECT_EQ(left().size(), all);
    EXPECT_TRUE(page.extraSelections().isEmpty());
    words.setText("metronome");
    help.showTopic("60-playing.md");
    EXPECT_EQ(topics.currentItem()->text(), "Playing");
    EXPECT_TRUE(words.text().isEmpty());
}

TEST_F(HelpWindowTest, FindsWhatSomebodyMayLookFor) {
    for (const char* const word : {"loop", "rewind", "transpose", "mute", "exit", "line spacing", "Songs",
                                   "strumming", "Esc", "delete", "undo", "WAV", "MP3", "key scheme", "tempo",
                                   "silence", "synthesizer", "sound card", "copy"}) {
        help.findChild<QLineEdit*>("words")->setText(word);
        EXPECT_FALSE(page.toPlainText().isEmpty()) << word;
    }
}

TEST_F(HelpWindowTest, ItsTextCanBeSelectedAndNotDraggedAway) {
    help.show();
    page.selectAll();
    const QPoint middle = page.viewport()->rect().center();
    QTest::mousePress(page.viewport(), Qt::LeftButton, Qt::ShiftModifier, middle);
    EXPECT_TRUE(page.textCursor().hasSelection());
    QTest::mouseRelease(page.viewport(), Qt::LeftButton, Qt::ShiftModifier, middle);
    page.selectAll();
    QTest::mousePress(page.viewport(), Qt::LeftButton, {}, middle);
    EXPECT_FALSE(page.textCursor().hasSelection());
    QTest::mouseMove(page.viewport(), middle + QPoint(0, 40));
    QTest::mouseRelease(page.viewport(), Qt::LeftButton, {}, middle + QPoint(0, 40));
    EXPECT_TRUE(page.textCursor().hasSelection());
}

TEST_F(HelpWindowTest, ALinkOpensItsTopic) {
    Q_EMIT page.anchorClicked(QUrl("60-playing.md"));
    EXPECT_EQ(topics.currentItem()->text(), "Playing");
    help.showTopic("none.md");
    EXPECT_EQ(topics.currentItem()->text(), "Playing");
}

}  // namespace
}  // namespace melvane
