#include "tutorial/tutorial_window.h"

#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>
#include <QTest>
#include <algorithm>
#include <array>

#include "main_window_fixture.h"
#include "tutorial/lessons.h"
#include "tutorial/tutorial_tip_window.h"

namespace melvane::test {
namespace {

class TutorialWindowTest : public MainWindowTest {
 protected:
    TutorialWindowTest() {
        floatingWindows.list(ToolWindows::Window::tutorial, "Wiz", [this] {
            wizard = new Wiz(studio, engine.tutorial, &window);
            wizard->useSettings(engine.settings);
            return wizard;
        });
        floatingWindows.list({}, "frminfo", [this] {
            tip = new frminfo(studio, engine.tutorial.tip, &window);
            tip->useSettings(engine.settings);
            return tip;
        });
        floatingWindows.showWindow("Wiz");
        serve();
    }
    ~TutorialWindowTest() override { std::filesystem::current_path(folderBefore_); }

    static void serve() { QCoreApplication::processEvents(); }
    template <class Widget = QPushButton>
    Widget& part(const char* name) {
        auto* const found = wizard->findChild<Widget*>(name);
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    static void moveMouse(QWidget& widget) {
        const QPoint at = widget.rect().center();
        QMouseEvent move(QEvent::MouseMove, at, widget.mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
        QCoreApplication::sendEvent(&widget, &move);
    }
    void choose(int lesson) {
        part<QListWidget>("SSTab1").setCurrentRow(lesson);
        serve();
    }
    /// Clicks a step and runs `look` a moment after its tip has come; `look` closes it.
    void clickAndLook(const char* name, std::function<void()> look) {
        time.at(1100, std::move(look));
        part(name).click();
    }

    Wiz* wizard = nullptr;
    frminfo* tip = nullptr;

 private:
    std::filesystem::path folderBefore_ = std::filesystem::current_path();
};

TEST_F(TutorialWindowTest, EveryStepIsAButtonWithItsCaptionItsTipAndAPlaceInTheTabOrder) {
    for (int lesson = 0; lesson < static_cast<int>(lessons().size()); ++lesson) {
        choose(lesson);
        const Lesson& table = *lessons()[static_cast<std::size_t>(lesson)];
        int top = -1;
        for (std::size_t step = 0; step < table.steps.size(); ++step) {
            const QString name = QStringLiteral("%1(%2)").arg(table.labels).arg(step);
            const auto* const button = wizard->findChild<QPushButton*>(name);
            ASSERT_NE(button, nullptr) << name.toStdString();
            EXPECT_EQ(button->text().toStdString(), table.steps[step].caption);
            EXPECT_EQ(button->toolTip(), "Click to perform this step");
            EXPECT_NE(button->focusPolicy() & Qt::TabFocus, 0);
            EXPECT_TRUE(button->isVisible());
            EXPECT_GE(button->width(), button->sizeHint().width()) << "cut off: " << name.toStdString();
            EXPECT_GT(button->mapTo(wizard, QPoint()).y(), top) << "in reading order";
            top = button->mapTo(wizard, QPoint()).y();
        }
    }
}

TEST_F(TutorialWindowTest, EachLessonHasItsTitleAndEndsInTheNote) {
    for (std::size_t lesson = 0; lesson < lessons().size(); ++lesson) {
        const auto* const frame = wizard->findChild<QFrame*>(QStringLiteral("FrameStep(%1)").arg(lesson));
        ASSERT_NE(frame, nullptr);
        const auto labels = frame->findChildren<QLabel*>();
        ASSERT_GE(labels.size(), 2);
        EXPECT_EQ(labels.front()->text().toStdString(), lessons()[lesson]->title);
        EXPECT_EQ(labels.back()->text(), "*Click on each step to perform the function");
    }
    EXPECT_EQ(part<QLabel>("Ltit7").text(), "Before you begin...Setup");
}

TEST_F(TutorialWindowTest, TheWindowAndItsTickHaveTheirTexts) {
    EXPECT_EQ(wizard->windowTitle(), "Melvane Wizard");
    EXPECT_EQ(part<QCheckBox>("Check1").text(), "Show Tips");
}

TEST_F(TutorialWindowTest, AHeadingPartsTheStepsThatPlayTheMidiFile) {
    choose(4);
    const auto texts = part<QFrame>("FrameStep(4)").findChildren<QLabel*>();
    const auto heading = std::ranges::find_if(
        texts, [](const QLabel* text) { return text->text() == "To play the MID file:"; });
    ASSERT_NE(heading, texts.end());
    EXPECT_TRUE((*heading)->isVisible());
    const auto topOf = [this](const QWidget& one) { return one.mapTo(wizard, QPoint()).y(); };
    EXPECT_GT(topOf(**heading), topOf(part("L1M(1)")));
    EXPECT_LT(topOf(**heading), topOf(part("L1M(2)")));
}

TEST_F(TutorialWindowTest, TheTipsHaveTheirSentences) {
    const std::array<std::pair<const char*, const char*>, 3> sentences{
        {{"L1(2)",
          "Select channels using the Setup toolbar (Button #9 on the main toolbar), which is normally always "
          "open."},
         {"L1(6)", "Now sit back and listen."},
         {"L1E(0)", "Drawing notes is an intuitive process with Melvane. "}}};
    for (const auto& [step, sentence] : sentences) {
        bool looked = false;
        clickAndLook(step, [this, sentence = sentence, &looked] {
            looked = true;
            const auto lines = tip->findChild<QLabel*>("Label1")->text().split('\n');
            EXPECT_TRUE(lines.contains(sentence)) << sentence;
            tip->close();
        });
        EXPECT_TRUE(looked) << step;
    }
}

TEST_F(TutorialWindowTest, TheListBringsALessonToTheFront) {
    auto& pages = *wizard->findChild<QStackedWidget*>();
    EXPECT_EQ(pages.currentIndex(), 0);
    choose(3);
    EXPECT_EQ(pages.currentWidget()->objectName(), "FrameStep(3)");
    EXPECT_EQ(studio.Wiz.SSTab1.index(), 3);
    studio.Wiz.SSTab1.set(5);
    EXPECT_EQ(pages.currentWidget()->objectName(), "FrameStep(5)");
}

TEST_F(TutorialWindowTest, AClickOnAStepPerformsItAtOnceWithoutTips) {
    part<QCheckBox>("Check1").click();
    EXPECT_EQ(store.read("Show tips"), "0");
    QTest::mouseClick(&part("L1(2)"), Qt::LeftButton);
    EXPECT_EQ(studio.tracks.CurrentTrack, 1);
    QTest::keyClick(&part("L1(4)"), Qt::Key_Space);
    EXPECT_EQ(studio.tracks.CurrentTrack, 8);
    EXPECT_EQ(tip, nullptr) << "no tip was made";
}

TEST_F(TutorialWindowTest, TheStepUnderTheMouseIsMarkedAlone) {
    const auto marked = [this](const char* name) { return part(name).property("marked").toBool(); };
    moveMouse(part("L1(2)"));
    EXPECT_TRUE(marked("L1(2)"));
    moveMouse(part("L1(3)"));
    EXPECT_FALSE(marked("L1(2)"));
    EXPECT_TRUE(marked("L1(3)"));
    moveMouse(part<QFrame>("FrameStep(0)"));
    EXPECT_FALSE(marked("L1(3)"));
    moveMouse(part("L1(3)"));
    QEvent left(QEvent::Leave);
    QCoreApplication::sendEvent(&part<QFrame>("FrameStep(0)"), &left);
    EXPECT_FALSE(marked("L1(3)"));
}

TEST_F(TutorialWindowTest, ATipStandsInFrontUntilItIsClosed) {
    clickAndLook("L1(2)", [this] {
        ASSERT_NE(tip, nullptr);
        EXPECT_TRUE(tip->isVisible());
        EXPECT_TRUE(tip->isModal());
        EXPECT_EQ(studio.tracks.CurrentTrack, 0);
        EXPECT_TRUE(tip->findChild<QLabel*>("Label1")->text().startsWith("Select channels using the Setup"));
        QTest::mouseDClick(tip->findChild<QLabel*>("Label1"), Qt::LeftButton);
        EXPECT_FALSE(tip->isVisible());
    });
    EXPECT_EQ(studio.tracks.CurrentTrack, 1);
}

TEST_F(TutorialWindowTest, TheXButtonTheSystemAndTheKeysCloseATip) {
    const std::array<std::function<void()>, 5> ways{
        [this] { tip->imgTitleClose_Click(); }, [this] { tip->close(); },
        [this] { QTest::keyClick(tip, Qt::Key_Escape); }, [this] { QTest::keyClick(tip, Qt::Key_Return); },
        [this] { QTest::keyClick(tip, Qt::Key_Space); }};
    for (const auto& close : ways) {
        engine.channels.Label8_Click(0);
        clickAndLook("L1(2)", [this, &close] {
            close();
            EXPECT_FALSE(tip->isVisible());
            EXPECT_FALSE(tip->loaded());
        });
        EXPECT_EQ(studio.tracks.CurrentTrack, 1);
    }
}

TEST_F(TutorialWindowTest, ATipIsAsHighAsItsTextAndTenPixels) {
    for (const char* const step : {"L1(2)", "L1(6)"}) {
        clickAndLook(step, [this] {
            const auto* const text = tip->findChild<QLabel*>("Label1");
            EXPECT_EQ(tip->client()->height(), text->heightForWidth(text->width()) + 10);
            tip->close();
        });
    }
}

TEST_F(TutorialWindowTest, ATipStandsAtTheHeightOfItsStepBesideTheWindow) {
    wizard->move(100, 120);
    serve();
    clickAndLook("L1(5)", [this] {
        EXPECT_EQ(tip->x(), wizard->x() + wizard->width());
        EXPECT_EQ(tip->y(), part("L1(5)").mapToGlobal(QPoint()).y());
        tip->close();
    });
    // Without room at the right, at the left.
    wizard->move(1600 - wizard->width(), 120);
    serve();
    clickAndLook("L1(5)", [this] {
        EXPECT_EQ(tip->x() + tip->width(), wizard->x());
        tip->close();
    });
}

TEST_F(TutorialWindowTest, ATipIsKeptOnTheScreen) {
    wizard->move(100, 1000 - wizard->height());
    choose(3);
    clickAndLook("L1E(10)", [this] {
        EXPECT_LE(tip->geometry().bottom(), 999);
        tip->close();
    });
    EXPECT_EQ(studio.shell.Form2Open, false) << "there is no such window here";
}

TEST_F(TutorialWindowTest, ClosingKeepsThePlaceAndClosesTheTip) {
    wizard->move(200, 160);
    serve();
    clickAndLook("L1(2)", [this] { wizard->close(); });
    EXPECT_FALSE(wizard->isVisible());
    EXPECT_FALSE(tip->isVisible());
    EXPECT_EQ(studio.tracks.CurrentTrack, 0) << "the step has ended";
    EXPECT_EQ(store.read("Wiz left"), "3000");
    EXPECT_EQ(store.read("Wiz top"), "2400");
    floatingWindows.showWindow("Wiz");
    EXPECT_EQ(wizard->pos(), QPoint(200, 160));
}

TEST_F(TutorialWindowTest, AStoredPlaceBesideEveryScreenIsBroughtBack) {
    wizard->close();
    store.write("Wiz left", "900000");
    store.write("Wiz top", "-900000");
    floatingWindows.showWindow("Wiz");
    serve();
    EXPECT_TRUE(QRect(0, 0, 1600, 1000).contains(wizard->geometry()));
}

TEST_F(TutorialWindowTest, APlaybackDisablesTheWindowUntilItsEnd) {
    write(0, 0, 60, 4);
    bool enabled = true;
    time.at(300, [&] { enabled = wizard->isEnabled(); });
    engine.player.PlayAndStop_Click(0);
    EXPECT_FALSE(enabled);
    EXPECT_TRUE(wizard->isEnabled());
}

TEST_F(TutorialWindowTest, AStepThatPlaysTheScoreDisablesTheWindowAndOneThatPlaysAFileDoesNot) {
    part<QCheckBox>("Check1").click();
    write(0, 0, 60, 400);
    const std::string file = (folder.path() / "mine.mid").string();
    ASSERT_TRUE(engine.fileOperations.WriteBytesFile(file, "MThd"));
    studio.Record.Text6.set(file);
    const auto enabledWhile = [this](const char* step) {
        bool enabled = !wizard->isEnabled();
        const auto before = time.tickCount();
        time.at(2000, [&] { enabled = wizard->isEnabled(); });
        part(step).click();
        EXPECT_GT(time.tickCount() - before, 5000) << step << " has played";
        EXPECT_TRUE(wizard->isEnabled());
        return enabled;
    };
    choose(4);
    EXPECT_TRUE(enabledWhile("L1M(4)"));
    choose(0);
    EXPECT_FALSE(enabledWhile("L1(6)"));
}

TEST_F(TutorialWindowTest, ItTakesTheLookAtEachLoad) {
    wizard->close();
    engine.settings.save("XPInterface", false);
    floatingWindows.showWindow("Wiz");
    EXPECT_EQ(wizard->findChild<QWidget*>("TopBar")->property("look").toString(), "stylized");
}

}  // namespace
}  // namespace melvane::test
