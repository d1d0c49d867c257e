#include "shell/qt_dialogs.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>

#include "platform/clock.h"
#include "platform/qt_event_loop.h"
#include "unit/temporary_folder.h"

namespace melvane {
namespace {

class QtDialogsTest : public testing::Test {
 protected:
    /// Calls `act` on each window of the kind once it is shown, one call for one window.
    template <class Window, class Act>
    void whenShown(Act act) {
        QTimer::singleShot(5, &owner, [this, act] {
            if (auto* window = qobject_cast<Window*>(QApplication::activeModalWidget()))
                act(*window);
            else
                whenShown<Window>(act);
        });
    }
    void typeName(const std::string& name) {
        whenShown<QFileDialog>([name](QFileDialog& dialog) {
            dialog.findChild<QLineEdit*>()->setText(QString::fromStdString(name));
            static_cast<QDialog&>(dialog).findChild<QLineEdit*>()->setFocus();
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    }
    void press(QMessageBox::StandardButton button) {
        whenShown<QMessageBox>([button](QMessageBox& box) { box.button(button)->click(); });
    }
    FileQuestion scoreQuestion() const {
        return {"Save music file", "Midi(*.mid)|*.mid|score(*.sng)|*.sng", folder.path().string(), {}};
    }

    test::TemporaryFolder folder;
    SteadyClock clock;
    QtEventLoop loop{clock};
    QtDialogs dialogs{loop};
    QObject owner;
};

TEST(ToolkitFilters, PairsOfNameAndPatternBecomeEntries) {
    EXPECT_EQ(toolkitFilters("Midi(*.mid)|*.mid|score(*.sng)|*.sng"),
              QStringList({"Midi (*.mid)", "score (*.sng)"}));
    EXPECT_EQ(toolkitFilters("Score Files (*.sng) |*.sng|"), QStringList({"Score Files (*.sng)"}));
    EXPECT_EQ(toolkitFilters("Sound|*.wav; *.mp3|All|*.*"), QStringList({"Sound (*.wav *.mp3)", "All (*)"}));
    EXPECT_EQ(toolkitFilters(""), QStringList());
}

TEST_F(QtDialogsTest, TheTypedNameIsAnsweredWithoutAnEnding) {
    typeName("waltz");
    const FileChoice choice = dialogs.saveFile(scoreQuestion());
    EXPECT_EQ(choice.path, folder.file("waltz"));
    EXPECT_EQ(choice.filterIndex, 1);
}

TEST_F(QtDialogsTest, TheChosenFilterIsCountedFromOne) {
    whenShown<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Save music file");
        dialog.selectNameFilter(dialog.nameFilters().at(1));
        dialog.findChild<QLineEdit*>()->setText("waltz");
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    EXPECT_EQ(dialogs.saveFile(scoreQuestion()).filterIndex, 2);
}

TEST_F(QtDialogsTest, ACancelledDialogAnswersNoPath) {
    whenShown<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(dialogs.openFile(scoreQuestion()).path, "");
}

TEST_F(QtDialogsTest, TheNextDialogOpensInTheFolderOfTheLastChoice) {
    const std::string path = folder.make("deep/tune.sng");
    FileQuestion question{"Open Score File", "Score Files (*.sng) |*.sng|", {}, {}};
    typeName(path);
    EXPECT_EQ(dialogs.openFile(question).path, path);
    QString shown;
    whenShown<QFileDialog>([&shown](QFileDialog& dialog) {
        shown = dialog.directory().absolutePath();
        dialog.reject();
    });
    dialogs.openFile(question);
    EXPECT_EQ(shown.toStdString(), folder.file("deep"));
}

TEST_F(QtDialogsTest, ACallerThatAsksItselfIsLeftToIt) {
    folder.make("waltz.mid", "old");
    typeName("waltz.mid");
    FileQuestion question = scoreQuestion();
    question.callerAsks = true;
    EXPECT_EQ(dialogs.saveFile(question).path, folder.file("waltz.mid"));
}

TEST_F(QtDialogsTest, AFileThatTheCompletedNameWouldReplaceIsAskedFor) {
    folder.make("waltz.mid", "old");
    typeName("waltz");
    QTimer::singleShot(50, &owner, [this] {
        press(QMessageBox::No);
        typeName("polka");
    });
    EXPECT_EQ(dialogs.saveFile(scoreQuestion()).path, folder.file("polka"));
    typeName("waltz");
    QTimer::singleShot(50, &owner, [this] { press(QMessageBox::Yes); });
    EXPECT_EQ(dialogs.saveFile(scoreQuestion()).path, folder.file("waltz"));
}

TEST_F(QtDialogsTest, ABoxShowsItsTextAndAnswersTheButton) {
    whenShown<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.text(), "Melvane is <already> running.");
        EXPECT_EQ(box.windowTitle(), "Melvane");
        EXPECT_EQ(box.icon(), QMessageBox::Information);
        box.button(QMessageBox::Ok)->click();
    });
    EXPECT_EQ(dialogs.messageBox(BoxKind::information, "Melvane", "Melvane is <already> running."),
              BoxAnswer::ok);
    press(QMessageBox::Yes);
    EXPECT_EQ(dialogs.messageBox(BoxKind::question, "t", "q", BoxButtons::yesNo), BoxAnswer::yes);
    press(QMessageBox::No);
    EXPECT_EQ(dialogs.messageBox(BoxKind::question, "t", "q", BoxButtons::yesNo), BoxAnswer::no);
    press(QMessageBox::Cancel);
    EXPECT_EQ(dialogs.messageBox(BoxKind::plain, "t", "q", BoxButtons::okCancel), BoxAnswer::cancel);
}

TEST_F(QtDialogsTest, ABoxThatIsClosedAnswersItsHarmlessButton) {
    whenShown<QMessageBox>([](QMessageBox& box) { box.close(); });
    EXPECT_EQ(dialogs.messageBox(BoxKind::question, "t", "q", BoxButtons::yesNo), BoxAnswer::no);
    whenShown<QMessageBox>([](QMessageBox& box) { box.close(); });
    EXPECT_EQ(dialogs.messageBox(BoxKind::question, "t", "q", BoxButtons::okCancel), BoxAnswer::cancel);
    whenShown<QMessageBox>([](QMessageBox& box) { box.close(); });
    EXPECT_EQ(dialogs.messageBox(BoxKind::critical, "t", "q"), BoxAnswer::ok);
}

TEST_F(QtDialogsTest, TheEndOfTheProcessCancelsAnOpenDialog) {
    whenShown<QFileDialog>([this](QFileDialog&) { loop.end(); });
    EXPECT_EQ(dialogs.openFile(scoreQuestion()).path, "");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(QtDialogsTest, ADialogWhoseParentWindowGoesAwayIsCancelled) {
    auto parent = std::make_unique<QWidget>();
    parent->show();
    parent->activateWindow();
    loop.waitFor([&] { return QApplication::activeWindow() == parent.get(); });
    whenShown<QFileDialog>([&parent](QFileDialog&) { parent.reset(); });
    EXPECT_EQ(dialogs.openFile(scoreQuestion()).path, "");
}

TEST_F(QtDialogsTest, TimersGoOnUnderADialog) {
    int calls = 0;
    loop.startTimer(1, [&] {
        if (++calls == 5) QApplication::activeModalWidget()->close();
    });
    dialogs.messageBox(BoxKind::plain, "t", "q");
    EXPECT_GE(calls, 5);
}

}  // namespace
}  // namespace melvane
