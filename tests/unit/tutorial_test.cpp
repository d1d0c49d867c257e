#include "tutorial_fixture.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

namespace melvane::test {
namespace {

/// How many numbers the operation takes: one that gets more than any does nothing but say so.
int numbersOf(const OperationTable& operations, const LessonAction& action) {
    const std::vector<Value> tooMany(LessonAction::mostNumbers + 2, Value(0LL));
    const std::string told = operations.call(action.window, action.name, tooMany).error;
    int count = -1;
    return std::sscanf(told.c_str(), "takes %d arguments", &count) == 1 ? count : -1;
}

/// Whether the action's names are ones of the program, and an operation takes so many numbers.
bool isKnown(const NameTables& tables, const LessonAction& action) {
    const std::string name = action.name;
    const auto& operations = tables.operations;
    switch (action.kind) {
        case LessonAction::Kind::call:
            return operations.has(action.window, name) && numbersOf(operations, action) == action.count;
        case LessonAction::Kind::put: {
            const int index = action.numbers[1];
            const auto member = index == lesson::noIndex ? std::nullopt : std::optional(index);
            return tables.controls.find(action.window, name, member) != nullptr;
        }
        case LessonAction::Kind::show:
            return std::ranges::any_of(operations.names(),
                                       [window = action.window + std::string(".")](const auto& it) {
                                           return it.starts_with(window);
                                       });
        case LessonAction::Kind::stroke:
            return operations.has("form1", name + "_MouseDown") && operations.has("form1", name + "_MouseUp");
        default:
            return true;
    }
}

TEST_F(TutorialTest, EveryActionOfEveryStepHasAnOperationOrAControlToActOn) {
    int checked = 0;
    for (const Lesson* const lesson : lessons()) {
        for (const auto& step : lesson->steps) {
            for (const auto& action : step.actions) {
                EXPECT_TRUE(isKnown(engine.tables, action)) << action.window << "." << action.name;
                checked += action.kind == LessonAction::Kind::none ? 0 : 1;
            }
        }
    }
    EXPECT_GT(checked, 200);
}

TEST_F(TutorialTest, EverySampleOfEveryStepComesWithTheProgram) {
    int samples = 0;
    for (const Lesson* const lesson : lessons()) {
        for (const auto& step : lesson->steps) {
            for (const auto& action : step.actions) {
                if (!action.opensSample()) continue;
                ++samples;
                EXPECT_TRUE(std::filesystem::exists(outside.directories.media() / action.name))
                    << action.name;
            }
        }
    }
    EXPECT_GE(samples, 10);
}

TEST_F(TutorialTest, EveryStepHasATipWithoutAnEmptyLine) {
    for (const Lesson* const lesson : lessons()) {
        for (const auto& step : lesson->steps) {
            ASSERT_NE(step.tip[0], nullptr) << step.caption;
            bool over = false;
            for (const char* const line : step.tip) {
                EXPECT_FALSE(over && line != nullptr) << step.caption;
                over = over || line == nullptr;
                EXPECT_FALSE(line != nullptr && *line == 0) << step.caption;
            }
        }
    }
}

/// What a step leaves behind.
struct Left {
    std::vector<std::vector<int>> cells, instruments, chords, effects;
    int currentTrack, editMode, tempo, selStart, selEnd;
    bool operator==(const Left&) const = default;
};

class EveryLessonTest : public TutorialTest, public testing::WithParamInterface<int> {
 protected:
    Left left() const {
        Left all{};
        for (int track = 0; track <= lastTrackNumber; ++track) {
            all.cells.push_back(cells(track, 200));
            auto& instruments = all.instruments.emplace_back();
            auto& chords = all.chords.emplace_back();
            auto& effects = all.effects.emplace_back();
            for (int column = 0; column <= 200; ++column) {
                instruments.push_back(studio.score.InstArray.get(track, column, 0));
                chords.push_back(studio.score.chordOf(track, column));
                for (const auto grid : {&Score::VolumeArray, &Score::ModArray, &Score::PanArray,
                                        &Score::ReverbArray, &Score::ChorusArray}) {
                    effects.push_back((studio.score.*grid).get(track, column, 0));
                }
            }
        }
        all.currentTrack = studio.tracks.CurrentTrack;
        all.editMode = studio.selection.EditMode;
        all.tempo = studio.score.Tempo;
        all.selStart = studio.selection.SelStart;
        all.selEnd = studio.selection.SelEnd;
        return all;
    }
    /// What each step of the lesson leaves, done in their order from an empty score, each `times` in a row.
    std::vector<Left> doAll(bool withTips, int times = 1) {
        setTips(withTips);
        engine.toolbar.Cmd2_Click(0);
        engine.channels.Label8_Click(0);
        std::vector<Left> all;
        for (int step = 0; step < stepCount(GetParam()); ++step) {
            for (int run = 0; run < times; ++run) {
                engine.tutorial.click(GetParam(), step);
                all.push_back(left());
            }
        }
        return all;
    }
};

TEST_P(EveryLessonTest, TipsChangeNothingAboutWhatTheStepsDo) {
    doAll(false);  // an instrument that is picked, and a tempo, outlive a cleared score
    const auto without = doAll(false);
    EXPECT_TRUE(tips.empty());
    const auto with = doAll(true);
    EXPECT_EQ(tips.size(), without.size());
    ASSERT_EQ(with.size(), without.size());
    for (std::size_t step = 0; step < with.size(); ++step) {
        EXPECT_TRUE(with[step] == without[step])
            << lessons()[static_cast<std::size_t>(GetParam())]->labels << step;
    }
}

TEST_P(EveryLessonTest, AStepThatIsDoneTwiceInARowLeavesTheSameWithTipsAsWithout) {
    doAll(false, 2);
    const auto without = doAll(false, 2);
    const auto with = doAll(true, 2);
    EXPECT_EQ(tips.size(), without.size()) << "the second time is explained too";
    ASSERT_EQ(with.size(), without.size());
    for (std::size_t at = 0; at < with.size(); ++at) {
        EXPECT_TRUE(with[at] == without[at])
            << lessons()[static_cast<std::size_t>(GetParam())]->labels << at / 2 << ", time " << at % 2 + 1;
    }
}

TEST_P(EveryLessonTest, ATipTellsTheLinesOfItsStepAndHowToGoOn) {
    doAll(true);
    const auto& steps = lessons()[static_cast<std::size_t>(GetParam())]->steps;
    ASSERT_EQ(tips.size(), steps.size());
    for (std::size_t step = 0; step < steps.size(); ++step) {
        EXPECT_TRUE(tips[step].starts_with(std::string(steps[step].tip[0]) + "\n")) << tips[step];
        EXPECT_TRUE(
            tips[step].ends_with("\nClose this window to continue. (Double-click on it or click the X "
                                 "button).This step will then be performed automatically."))
            << tips[step];
    }
}

TEST_P(EveryLessonTest, NoNoteSoundsAfterTheLastStepAndNoButtonIsDown) {
    doAll(false);
    EXPECT_FALSE(studio.player.Playing);
    EXPECT_FALSE(studio.drag.MouseIsDown);
    EXPECT_FALSE(studio.shell.Busy);
    int sounding = 0;
    for (const auto& line : sent()) {
        if (line == "reset") sounding = 0;
        if (line.starts_with("9") && !line.ends_with(" 00")) ++sounding;
        if (line.starts_with("8") || (line.starts_with("9") && line.ends_with(" 00"))) --sounding;
    }
    EXPECT_LE(sounding, 0);
}

INSTANTIATE_TEST_SUITE_P(Lessons, EveryLessonTest, testing::Range(0, static_cast<int>(lessons().size())),
                         [](const auto& parameter) {
                             return std::string(lessons()[static_cast<std::size_t>(parameter.param)]->labels);
                         });

TEST_F(TutorialTest, AStepOfAClosedWindowOrWithoutAnIndexDoesNothing) {
    setTips(false);
    write(0, 0, 60);
    const int none = static_cast<int>(lessons().size());
    for (const auto& [lesson, step] : {std::pair{-1, 0}, {none, 0}, {0, -1}, {0, stepCount(0)}}) {
        engine.tutorial.click(lesson, step);
        engine.tutorial.mark(lesson, step);
    }
    engine.tutorial.FrameStep_MouseMove(none);
    engine.tutorial.Form_Unload();
    engine.tutorial.click(0, 0);
    EXPECT_EQ(studio.score.noteCell(0, 0), 60);
}

TEST_F(TutorialTest, TheNotesOfAStepComeHalfASecondApartAndSoundMeanwhile) {
    setTips(false);
    const auto before = time.tickCount();
    engine.tutorial.click(lessonIndex("L1E"), 0);
    EXPECT_EQ(time.tickCount() - before, 7 * 500) << "four presses and three pauses";
    EXPECT_EQ(cells(0, 12), (std::vector{54, 1054, -1, 52, 1052, -1, 50, 1050, -1, 54, 1054, 1054, -1}));
}

TEST_F(TutorialTest, TheSampleToBeRecordedTakesThePlaceOfTheUsersFile) {
    setTips(false);
    const auto sample = outside.directories.media() / "333.mid";
    const std::string own = (folder.path() / "own.mid").string();
    ASSERT_TRUE(engine.fileOperations.WriteBytesFile(own, "MThd"));
    std::filesystem::remove(sample);
    studio.Record.Text6.set(own);
    studio.Record.Optsourcesng.userPut(1LL);
    engine.tutorial.click(lessonIndex("L1R"), 7);
    EXPECT_EQ(studio.Record.Text6.text(), sample.string());
    EXPECT_TRUE(std::filesystem::exists(sample));
    EXPECT_TRUE(studio.Record.Optsourcemid.ticked());
    EXPECT_FALSE(studio.Record.Optsourcesng.ticked());
}

TEST_F(TutorialTest, NotesAreDrawnOnTheSameRowsWhateverTheLineSpacing) {
    setTips(false);
    for (const int height : {5, 8, 13, 16}) {
        studio.page.LineHeight = static_cast<Int16>(height);
        engine.page.Form_Resize();
        const int top = studio.page.FirstRow;
        engine.tutorial.click(lessonIndex("L1E"), 0);
        EXPECT_EQ(studio.score.noteCell(0, 0), top + 12) << height;
        EXPECT_EQ(studio.score.noteCell(0, 6), top + 8) << height;
    }
}

TEST_F(TutorialTest, TheTipStandsBesideTheWindowAtTheHeightOfTheStep) {
    studio.Wiz.place = {1000, 2000, 6000, 5000};
    engine.tutorial.labelTop = [](int lesson, int step) { return 100.0 * lesson + 10 * step; };
    engine.tutorial.click(1, 3);
    EXPECT_EQ(studio.frminfo.besideLeft, 1000);
    EXPECT_EQ(studio.frminfo.besideWidth, 6000);
    EXPECT_EQ(studio.frminfo.top, 2130);
}

TEST_F(TutorialTest, ATipIsModalForAtLeastItsSecond) {
    const auto before = time.tickCount();
    engine.tutorial.click(0, 2);
    EXPECT_EQ(time.tickCount() - before, 1000);
    EXPECT_EQ(studio.tracks.CurrentTrack, 1);
    EXPECT_EQ(std::ranges::count(toolWindows.calls, "load frminfo"), 1);
}

TEST_F(TutorialTest, ThePlaceOfAFirstStartIsAtTheRightOfTheScreen) {
    studio.Wiz.place = {0, 0, 6000, 5000};
    engine.tutorial.Form_Load();
    EXPECT_EQ(studio.Wiz.place.left, 1280 * twipsAPixel - 6000);
    EXPECT_EQ(studio.Wiz.place.top, 1500);
    studio.Wiz.place.left = 123.75;
    engine.tutorial.Form_Unload();
    EXPECT_EQ(store.read("Wiz left"), "124");
    EXPECT_EQ(store.read("Wiz top"), "1500");
    engine.tutorial.Form_Load();
    EXPECT_EQ(studio.Wiz.place.left, 124);
}

TEST_F(TutorialTest, LoadingTakesNoTimeEvenOverOldSamples) {
    const auto before = time.tickCount();
    engine.tutorial.Form_Load();
    EXPECT_EQ(time.tickCount(), before);
    EXPECT_TRUE(std::filesystem::exists(outside.directories.media() / "104.sng"));
}

TEST_F(TutorialTest, FileDialogsHideTheWindowMeanwhile) {
    toolWindows.calls.clear();
    engine.toolbar.Cmd2_Click(1);
    EXPECT_EQ(toolWindows.calls, (std::vector<std::string>{"hide 3", "show 3"}));
}

TEST_F(TutorialTest, TheWindowMarksItselfAsTheActiveOne) {
    studio.shell.Form2Active = true;
    engine.tutorial.Form_Activate();
    EXPECT_TRUE(studio.shell.WizActive);
    EXPECT_FALSE(studio.shell.Form2Active);
}

TEST_F(TutorialTest, AStepBeginsInTheProgramsFolder) {
    setTips(false);
    std::filesystem::current_path(std::filesystem::temp_directory_path());
    engine.tutorial.click(0, 2);
    EXPECT_TRUE(std::filesystem::equivalent(std::filesystem::current_path(), folder.path()));
}

TEST_F(TutorialTest, WithoutASampleFolderAStepPassesOn) {
    setTips(false);
    std::filesystem::remove_all(outside.directories.media());
    ASSERT_TRUE(engine.fileOperations.WriteBytesFile(outside.directories.media().string(), "in the way"));
    engine.tutorial.click(0, 1);
    EXPECT_EQ(cells(0, 3), (std::vector{-1, -1, -1, -1}));
    EXPECT_EQ(studio.tracks.CurrentTrack, 0);
}

}  // namespace
}  // namespace melvane::test
