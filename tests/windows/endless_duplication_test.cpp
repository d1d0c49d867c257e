#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include "platform/media_error.h"
#include "platform/qt_event_loop.h"
#include "platform/recording_midi_port.h"
#include "platform/scripted_dialogs.h"
#include "platform/settings_store.h"
#include "platform/virtual_time.h"
#include "shell/editing_toolbar_window.h"
#include "shell/engine.h"
#include "shell/main_window.h"
#include "ui/floating_windows_window.h"
#include "unit/temporary_folder.h"

namespace melvane::test {

/// "Duplicate notes" with copies at no distance from each other, in the toolkit's own loop and in real time.
class EndlessDuplication : public testing::Test {
 protected:
    EndlessDuplication() {
        floatingWindows.list(ToolWindows::Window::editing, "Form2", [this] {
            toolbar = new Form2(studio, engine.editing, &window);
            return toolbar;
        });
        window.attach(engine);
        engine.startUp.Form_Load();
        window.show();
        engine.toolbar.Cmd2_Click(9);
        loop.runQueue();
        engine.editing.Cmd2_Click(11);
        field("Text5", "0");
        field("Text4", "0");
        studio.score.NoteArray.set(0, 0, 50);
        studio.selection.InsertPosition = copy;
        studio.clipboard.ClipLength = 0;
    }
    ~EndlessDuplication() override {
        toolbar->close();
        window.hide();
    }

    void field(const char* name, const char* text) {
        auto* const box = toolbar->findChild<QLineEdit*>(name);
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, text);
    }
    void press(QWidget& in, const char* name) {
        QTest::mouseClick(in.findChild<QAbstractButton*>(name), Qt::LeftButton);
    }
    int copied() const { return studio.score.noteCell(0, copy); }
    /// Twice the copy is taken away, and comes again while the events go on; then `last` runs.
    void afterTwoRounds(std::function<void()> last, int rounds = 2) {
        QTimer::singleShot(1, &window, [=, this] {
            EXPECT_EQ(copied(), 50);
            EXPECT_NE(studio.form1.StatusText.text(), "");
            EXPECT_EQ(studio.selection.InsertPosition, copy) << "it is not over";
            ++turns;
            if (rounds == 0) return last();
            studio.score.NoteArray.set(0, copy, cell::empty);
            afterTwoRounds(last, rounds - 1);
        });
    }

    static constexpr int copy = 20;
    TemporaryFolder folder;
    SteadyClock clock;
    QtEventLoop loop{clock};
    VirtualTime unused;
    RecordingMidiPort port{clock};
    NoMediaDevice media;
    BareDesktop desktop;
    MemorySettingsStore store;
    ScriptedDialogs dialogs{unused};
    Studio studio;
    form1 window{studio};
    FloatingWindows floatingWindows;
    Outside outside{clock,   loop,  port,    media,
                    desktop, store, dialogs, Directories{folder.path(), MELVANE_RESOURCES}};
    Engine engine{studio, outside, window, window, floatingWindows};
    Form2* toolbar = nullptr;
    int turns = 0;
};

TEST_F(EndlessDuplication, TheUserGoesOnAndStopEndsIt) {
    afterTwoRounds([this] { press(*toolbar, "ImgPic(7)"); });
    press(*toolbar, "ImgPic(17)");
    EXPECT_EQ(turns, 3);
    EXPECT_EQ(studio.selection.InsertPosition, 0) << "it came to its end";
    EXPECT_EQ(studio.form1.StatusText.text(), "");
    EXPECT_FALSE(loop.ended());
    EXPECT_EQ(copied(), 50);
}

TEST_F(EndlessDuplication, TheMainToolbarsStopEndsItToo) {
    afterTwoRounds([this] { press(window, "ImgPic(6)"); });
    press(*toolbar, "ImgPic(17)");
    EXPECT_EQ(turns, 3);
    EXPECT_EQ(studio.selection.InsertPosition, 0);
}

TEST_F(EndlessDuplication, ClosingTheProgramEndsIt) {
    afterTwoRounds([this] { press(window, "imgTitleClose"); });
    press(*toolbar, "ImgPic(17)");
    EXPECT_EQ(turns, 3);
    EXPECT_TRUE(loop.ended());
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(studio.selection.InsertPosition, copy) << "its last steps are left out";
}

}  // namespace melvane::test
