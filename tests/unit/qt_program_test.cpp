#include "app/program.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QListWidget>
#include <QTest>
#include <QToolButton>
#include <QWidget>
#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/recording_media_device.h"
#include "platform/recording_midi_port.h"
#include "platform/scripted_dialogs.h"
#include "platform/settings_store.h"
#include "platform/virtual_time.h"
#include "temporary_folder.h"

namespace melvane {
namespace {

class QtProgramTest : public testing::Test {
 protected:
    QtProgramTest() {
        time.serveToolkit = [] { QCoreApplication::processEvents(); };
        store.write("Form3", "False");
        program->start();
    }
    ~QtProgramTest() override {
        if (program) program->window().unload();
        std::filesystem::current_path(before);
    }

    static bool isShown(const char* name) {
        for (const QWidget* const window : QApplication::topLevelWidgets()) {
            if (window->objectName() == name && window->isVisible()) return true;
        }
        return false;
    }
    /// Null where there is none.
    static QWidget* windowNamed(const char* name) {
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (window->objectName() == name) return window;
        }
        return nullptr;
    }
    static int windowsNamed(const char* name) {
        const auto windows = QApplication::topLevelWidgets();
        return static_cast<int>(
            std::ranges::count_if(windows, [&](const QWidget* one) { return one->objectName() == name; }));
    }

    std::filesystem::path before = std::filesystem::current_path();
    test::TemporaryFolder folder;
    VirtualTime time;
    RecordingMidiPort port{time};
    RecordingMediaDevice media{time};
    BareDesktop desktop;
    MemorySettingsStore store;
    ScriptedDialogs dialogs{time};
    Outside outside{time,    time,  port,    media,
                    desktop, store, dialogs, Directories{folder.path(), folder.path()}};
    std::unique_ptr<Program> program = std::make_unique<Program>(outside);
};

TEST_F(QtProgramTest, PreparingMakesTheWindowsOfAPlaybackAndShowsNone) {
    EXPECT_EQ(windowsNamed("Form2"), 0);
    port.log().take();
    const auto stored = store.all();
    int turns = 0;
    while (program->prepareWindow()) ++turns;
    EXPECT_EQ(turns, 5);
    for (const char* const name : {"Form2", "Form3", "Form5", "Wiz", "Help"}) {
        EXPECT_EQ(windowsNamed(name), 1) << name;
        EXPECT_FALSE(isShown(name)) << name;
    }
    EXPECT_EQ(port.log().take(), std::vector<std::string>{});
    EXPECT_EQ(store.all(), stored);
    EXPECT_FALSE(program->studio().shell.Form3Open);
    EXPECT_FALSE(program->studio().shell.Form2Open);
    EXPECT_FALSE(program->studio().shell.WizardOpen);
    EXPECT_FALSE(program->studio().Form5.loaded);
    EXPECT_EQ(windowsNamed("frmsynth"), 0);
}

TEST_F(QtProgramTest, APreparedWindowOpensAsAnyOther) {
    while (program->prepareWindow()) {
    }
    program->engine().toolbar.Cmd2_Click(9);
    EXPECT_TRUE(isShown("Form2"));
    EXPECT_TRUE(program->studio().shell.Form2Open);
    EXPECT_EQ(windowsNamed("Form2"), 1);
}

TEST_F(QtProgramTest, TheHelpComesAMomentLaterAndOnce) {
    program->engine().menus.Cmdhelp_Click();
    program->engine().menus.Cmdhelp_Click();
    EXPECT_FALSE(isShown("Help"));
    time.waitUntil(time.counter() + time.frequency() / 100);
    EXPECT_TRUE(isShown("Help"));
    EXPECT_EQ(windowsNamed("Help"), 1);
    program->engine().menus.Cmdhelp_Click();
    time.waitUntil(time.counter() + time.frequency() / 100);
    EXPECT_EQ(windowsNamed("Help"), 1);
}

TEST_F(QtProgramTest, TheHelpButtonOfAWindowAndF1OpenTheHelpAtItsTopic) {
    const std::array<std::pair<const char*, const char*>, 8> headings{
        {{"Form2", "Editing"},
         {"Form3", "Setting up channels and the score"},
         {"Form5", "Single notes"},
         {"FrmInst", "Single notes"},
         {"frmsynth", "Keyboard"},
         {"Record", "Recorder"},
         {"frmLog", "Recorder"},
         {"Wiz", "Tutorial"}}};
    using Ask = void (*)(QWidget&);
    for (const auto& [name, heading] : headings) {
        for (const Ask ask : {Ask{[](QWidget& it) { it.findChild<QToolButton*>("imgTitleHelp")->click(); }},
                              Ask{[](QWidget& it) { QTest::keyClick(&it, Qt::Key_F1); }}}) {
            program->toolWindows().showWindow(name);
            QWidget* const window = windowNamed(name);
            ASSERT_NE(window, nullptr) << name;
            window->activateWindow();
            QCoreApplication::processEvents();
            ask(*window);
            time.waitUntil(time.counter() + time.frequency() / 10);
            QCoreApplication::processEvents();
            QWidget* const help = windowNamed("Help");
            ASSERT_NE(help, nullptr) << name;
            EXPECT_EQ(help->findChild<QListWidget*>()->currentItem()->text(), heading) << name;
            EXPECT_TRUE(help->isVisible()) << name;
            EXPECT_EQ(QApplication::activeWindow(), help) << name;
            help->close();
            window->hide();  // one of them keeps the others from answering
        }
    }
}

TEST_F(QtProgramTest, NoPartOfAWindowBecomesASystemsWindowWhenTheHelpComes) {
    program->toolWindows().showWindow("Form2");
    windowNamed("Form2")->activateWindow();
    QCoreApplication::processEvents();
    program->engine().menus.Cmdhelp_Click();
    time.waitUntil(time.counter() + time.frequency() / 10);
    ASSERT_TRUE(isShown("Help"));
    for (const char* const name : {"form1", "Form2", "Help"}) {
        for (const QWidget* const part : windowNamed(name)->findChildren<QWidget*>()) {
            EXPECT_TRUE(part->isWindow() || part->internalWinId() == 0)
                << part->objectName().toStdString() << " of " << name;
        }
    }
}

TEST_F(QtProgramTest, AHelpThatIsAboutToComeEndsWithTheProgram) {
    program->engine().menus.Cmdhelp_Click();
    program.reset();
    time.waitUntil(time.counter() + time.frequency());
    EXPECT_EQ(windowsNamed("Help"), 0);
}

}  // namespace
}  // namespace melvane
