#include <array>
#include <cstddef>
#include <filesystem>

#include "tutorial_fixture.h"

namespace melvane::test {
namespace {

/// Steps whose window or program goes while they run, or before.
class TutorialEndTest : public TutorialTest {
 protected:
    bool hasSample(const char* name) const {
        return std::filesystem::exists(outside.directories.media() / name);
    }
    /// How many files lie where the samples are put.
    std::ptrdiff_t samples() const {
        return std::distance(std::filesystem::directory_iterator(outside.directories.media()), {});
    }
    /// Ends the program, and forgets what that has drawn and sent.
    void endAndForget() {
        engine.startUp.Form_Unload();
        sent();
        surfaces.calls.clear();
    }
    void recordTheFile() { engine.tutorial.click(lessonIndex("L1R"), 8); }
};

TEST_F(TutorialEndTest, AStepThatIsClickedWhileTheProgramEndsPutsNoSampleOut) {
    setTips(false);
    int clicks = 0;
    time.at(700, [&] {  // between two of the files that are being removed
        ++clicks;
        EXPECT_FALSE(hasSample("101.sng"));
        EXPECT_TRUE(hasSample("301.sng"));
        engine.tutorial.click(lessonIndex("L1"), 1);
    });
    engine.startUp.Form_Unload();
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(samples(), 0);
    EXPECT_EQ(cells(0, 3), (std::vector{-1, -1, -1, -1}));
}

TEST_F(TutorialEndTest, AStepThatIsClickedWhileTheProgramEndsIsNotExplained) {
    bool shown = false;
    time.at(710, [&] { shown = studio.frminfo.window.visible(); });
    time.at(700, [&] { engine.tutorial.click(lessonIndex("L1"), 1); });
    engine.startUp.Form_Unload();
    EXPECT_FALSE(shown);
    EXPECT_TRUE(tips.empty());
}

TEST_F(TutorialEndTest, AStepThatPlaysDoesNotKeepTheEndWaiting) {
    setTips(false);
    engine.tutorial.click(lessonIndex("L1"), 1);
    time.at(700, [&] {
        write(0, 0, 60, 400);
        engine.tutorial.click(lessonIndex("L1"), 6);
    });
    const auto before = time.tickCount();
    engine.startUp.Form_Unload();
    EXPECT_LE(time.tickCount() - before, 12 * 200) << "twelve samples are removed";
}

TEST_F(TutorialEndTest, OpeningTheWindowWhileTheProgramEndsPutsNoSampleOut) {
    engine.tutorial.Form_Unload();
    int opened = 0;
    time.at(700, [&] {
        ++opened;
        engine.tutorial.Form_Load();
    });
    engine.startUp.Form_Unload();
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(samples(), 0);
}

TEST_F(TutorialEndTest, AStepThatTheProgramsEndOvertakesInAPausePressesNoMore) {
    setTips(false);
    time.at(700, [&] {  // the pause after the first note's release
        EXPECT_FALSE(studio.drag.MouseIsDown);
        endAndForget();
    });
    engine.tutorial.click(lessonIndex("L1E"), 0);
    EXPECT_TRUE(time.ended());
    EXPECT_EQ(surfaces.calls, std::vector<std::string>{});
    EXPECT_FALSE(studio.drag.MouseIsDown);
    EXPECT_EQ(sent(), std::vector<std::string>{});
    EXPECT_EQ(samples(), 0);
}

TEST_F(TutorialEndTest, AStepThatTheProgramsEndOvertakesBeforeItsPasteWritesNoCells) {
    setTips(false);
    engine.tutorial.click(lessonIndex("L1E"), 0);
    std::vector<int> cellsAtTheEnd;
    time.at(2200, [&] {  // the pause before the paste
        EXPECT_EQ(cells(0, 1), (std::vector{54, 1054})) << "there is something to be pasted";
        endAndForget();
        cellsAtTheEnd = cells(0, 29);
    });
    engine.tutorial.click(lessonIndex("L1E"), 8);
    ASSERT_FALSE(cellsAtTheEnd.empty());
    EXPECT_EQ(cells(0, 29), cellsAtTheEnd);
}

TEST_F(TutorialEndTest, AStepThatTheProgramsEndOvertakesMovesNoControlMore) {
    setTips(false);
    const auto values = [this] {
        return std::array{studio.form1.LblMod.value(), studio.form1.LblPan.value(),
                          studio.form1.LblReverb.value(), studio.form1.LblChorus.value()};
    };
    auto valuesAtTheEnd = values();
    const auto before = valuesAtTheEnd;
    time.at(700, [&] {
        endAndForget();
        valuesAtTheEnd = values();
    });
    engine.tutorial.click(lessonIndex("LQ1"), 6);
    EXPECT_NE(valuesAtTheEnd, before) << "the first one had moved";
    EXPECT_EQ(values(), valuesAtTheEnd);
}

TEST_F(TutorialEndTest, AStepThatTheProgramsEndOvertakesInAPressIsNotReleased) {
    setTips(false);
    time.at(1200, [&] {  // the second note is being drawn
        EXPECT_TRUE(studio.drag.MouseIsDown);
        endAndForget();
    });
    engine.tutorial.click(lessonIndex("L1E"), 0);
    EXPECT_TRUE(time.ended());
    EXPECT_EQ(sent(), std::vector<std::string>{});
    EXPECT_EQ(surfaces.calls, std::vector<std::string>{});
}

TEST_F(TutorialEndTest, TheRecordedFileIsTakenBackAtTheEndOfItsStep) {
    setTips(false);
    engine.tutorial.click(lessonIndex("L1R"), 7);
    EXPECT_TRUE(hasSample("333.mid"));
    recordTheFile();
    EXPECT_FALSE(hasSample("333.mid"));
    EXPECT_TRUE(hasSample("105.sng")) << "no other one";
}

TEST_F(TutorialEndTest, TheRecordedFileIsTakenBackAlsoWhenTheWindowIsClosedMeanwhile) {
    setTips(false);
    bool there = false;
    time.at(300, [&] {
        there = hasSample("333.mid");
        engine.tutorial.Form_Unload();
    });
    recordTheFile();
    EXPECT_TRUE(there);
    EXPECT_FALSE(studio.shell.WizardOpen);
    EXPECT_FALSE(hasSample("333.mid"));
}

TEST_F(TutorialEndTest, TheRecordedFileIsTakenBackAlsoWhenTheWindowIsClosedInTheTip) {
    time.at(5, [&] { engine.tutorial.Form_Unload(); });
    recordTheFile();
    EXPECT_FALSE(studio.shell.WizardOpen);
    EXPECT_FALSE(hasSample("333.mid"));
}

TEST_F(TutorialEndTest, TheRecordedFileIsTakenBackAlsoWhereTheProgramsEndHasLeftItLying) {
    setTips(false);
    const auto file = (outside.directories.media() / "333.mid").string();
    bool left = false;
    time.at(300, [&] {
        engine.startUp.Form_Unload();
        left = engine.fileOperations.WriteBytesFile(file, "as if a player had held it");
    });
    recordTheFile();
    EXPECT_TRUE(time.ended());
    EXPECT_TRUE(left);
    EXPECT_EQ(samples(), 0);
}

TEST_F(TutorialEndTest, AStepOfAClosedWindowTakesNothingBack) {
    setTips(false);
    engine.tutorial.Form_Unload();
    recordTheFile();
    EXPECT_TRUE(hasSample("333.mid"));
}

}  // namespace
}  // namespace melvane::test
