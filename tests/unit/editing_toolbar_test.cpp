#include "shell/editing_toolbar_commands.h"

#include "program_fixture.h"

namespace melvane::test {
namespace {

using Lines = std::vector<std::string>;

class EditingToolbarTest : public ProgramTest {
 protected:
    void SetUp() override { start(); }
    void load() {
        studio.Form2.place.width = 7000;
        studio.Form2.place.height = 3000;
        engine.editing.Form_Load();
    }
    void press(int index) { engine.editing.Cmd2_Click(index); }
    const std::string& picture(std::size_t index) { return studio.Form2.ImgPic[index].picture(); }

    EditingControls& toolbar = studio.Form2;
};

TEST_F(EditingToolbarTest, AFirstStartPlacesItRightOfTheMiddleAboveTheBottom) {
    load();
    EXPECT_EQ(toolbar.place.left, 1280 * 15 / 2 - 3500 + 200);
    EXPECT_EQ(toolbar.place.top, 1024 * 15 - 3000 - 700);
}

TEST_F(EditingToolbarTest, AStoredPlaceIsTakenAndATextThatIsNoNumberIsNone) {
    store.write("form2 left", "-75");
    store.write("form2 top", "top");
    load();
    EXPECT_EQ(toolbar.place.left, -75);
    EXPECT_EQ(toolbar.place.top, 1024 * 15 - 3000 - 700);
}

TEST_F(EditingToolbarTest, APlaceBeyondAllNumbersIsNotStored) {
    store.write("form2 left", "99999999999");
    load();
    EXPECT_EQ(toolbar.place.left, 99999999999.0);
    engine.editing.Form_Unload();
    EXPECT_EQ(store.read("form2 left"), "99999999999");
    EXPECT_EQ(store.read("form2 top"), "11660");
}

TEST_F(EditingToolbarTest, LoadingFillsTheFieldsWithoutTheRuleBetweenThem) {
    store.write("Beats", "40");
    store.write("Repeat", "7");
    load();
    EXPECT_EQ(toolbar.Text5.text(), "40");
    EXPECT_EQ(toolbar.Text4.text(), "7");
    EXPECT_EQ(toolbar.Text3.text(), "60");
    EXPECT_EQ(toolbar.Text1.text(), "1");
    EXPECT_EQ(studio.duplicate.DuplicateBeats, 40);
    EXPECT_EQ(studio.duplicate.DuplicateRepeat, 7);
    EXPECT_EQ(studio.duplicate.DuplicateNotes, 60);
}

TEST_F(EditingToolbarTest, LoadingTakesTheValuesOfTextsThatDidNotChange) {
    studio.duplicate.DuplicateNotes = 5;
    load();
    EXPECT_EQ(studio.duplicate.DuplicateNotes, 60);
}

TEST_F(EditingToolbarTest, LoadingReadsThePositionToggleAndShowsIt) {
    store.write("Playing position", "False");
    load();
    EXPECT_FALSE(studio.player.ShowPlayingPosition);
    EXPECT_EQ(picture(9), toolbar.ImgLine[1].picture());
    EXPECT_TRUE(studio.shell.Form2Open);
}

TEST_F(EditingToolbarTest, LoadingTicksTheOneTrackButtonWithoutStoringIt) {
    studio.selection.CopyonlyOneTrack = true;
    load();
    EXPECT_TRUE(toolbar.Check3.ticked());
    EXPECT_EQ(toolbar.Check3.tip(), "Edit Selected Track Only");
    EXPECT_EQ(store.read("CopyonlyOneTrack"), std::nullopt);
}

TEST_F(EditingToolbarTest, BeatsFallsWithRepeat) {
    load();
    toolbar.Text4.userPut(Value("5"));
    EXPECT_EQ(toolbar.Text5.text(), "5");
    EXPECT_EQ(studio.duplicate.DuplicateRepeat, 5);
    EXPECT_EQ(studio.duplicate.DuplicateBeats, 5);
}

TEST_F(EditingToolbarTest, BeatsCannotBeRaisedAboveRepeat) {
    load();
    toolbar.Text5.userPut(Value("20"));
    EXPECT_EQ(toolbar.Text5.text(), "12");
    EXPECT_EQ(studio.duplicate.DuplicateBeats, 12);
}

TEST_F(EditingToolbarTest, TheTextOfRepeatIsTakenAsItStands) {
    load();
    toolbar.Text4.userPut(Value("5 x"));
    EXPECT_EQ(toolbar.Text5.text(), "5 x");
    EXPECT_EQ(studio.duplicate.DuplicateBeats, 5);
}

TEST_F(EditingToolbarTest, AFieldTakesThreeCharactersOfAnyKind) {
    load();
    toolbar.Text3.userPut(Value("98765"));
    EXPECT_EQ(toolbar.Text3.text(), "987");
    EXPECT_EQ(studio.duplicate.DuplicateNotes, 987);
    toolbar.Text3.userPut(Value("4\u00e4\u266a5"));
    EXPECT_EQ(toolbar.Text3.text(), "4\u00e4\u266a");
    EXPECT_EQ(studio.duplicate.DuplicateNotes, 4);
    store.write("Spaces", "123456");
    load();
    EXPECT_EQ(toolbar.Text1.text(), "123");
}

TEST_F(EditingToolbarTest, ATextThatIsNoNumberCountsAsZero) {
    load();
    for (const char* const text : {"", "x", "-", "."}) {
        toolbar.Text3.userPut(Value("9"));
        toolbar.Text3.userPut(Value(text));
        EXPECT_EQ(studio.duplicate.DuplicateNotes, 0) << text;
    }
}

TEST_F(EditingToolbarTest, EachSpinBarWritesItsOwnField) {
    load();
    toolbar.VScroll4.userPut(Value(45LL));
    EXPECT_EQ(toolbar.Text4.text(), "45");
    toolbar.VScroll3.userPut(Value(44LL));
    EXPECT_EQ(toolbar.Text5.text(), "44");
    toolbar.VScroll2.userPut(Value(43LL));
    EXPECT_EQ(toolbar.Text3.text(), "43");
    EXPECT_EQ(studio.duplicate.DuplicateNotes, 43);
    EXPECT_EQ(studio.duplicate.DuplicateRepeat, 45);
    EXPECT_EQ(studio.duplicate.DuplicateBeats, 44);
}

TEST_F(EditingToolbarTest, TheSpinBarsHaveTheirGreatestValueAtTheTop) {
    EXPECT_EQ(toolbar.VScroll2.minimum(), 99);
    EXPECT_EQ(toolbar.VScroll2.maximum(), 0);
    EXPECT_EQ(toolbar.VScroll2.largeChange(), 10);
    for (const auto* const bar : {&toolbar.VScroll3, &toolbar.VScroll4}) {
        EXPECT_EQ(bar->minimum(), 60);
        EXPECT_EQ(bar->maximum(), 0);
        EXPECT_EQ(bar->largeChange(), 4);
    }
    EXPECT_FALSE(toolbar.VScroll3.userPut(Value(61LL)));
    EXPECT_FALSE(toolbar.VScroll3.userPut(Value(-1LL)));
}

TEST_F(EditingToolbarTest, ATypedFieldDoesNotMoveItsSpinBar) {
    load();
    toolbar.Text3.userPut(Value("3"));
    EXPECT_EQ(toolbar.VScroll2.value(), 60);
    toolbar.VScroll2.userPut(Value(61LL));
    EXPECT_EQ(toolbar.Text3.text(), "61");
}

TEST_F(EditingToolbarTest, EditSelectedTrackOnlyIsStoredAtTheClick) {
    load();
    toolbar.Check3.userPut(Value(true));
    EXPECT_TRUE(studio.selection.CopyonlyOneTrack);
    EXPECT_EQ(store.read("CopyonlyOneTrack"), "True");
    toolbar.Check3.userPut(Value(false));
    EXPECT_FALSE(studio.selection.CopyonlyOneTrack);
    EXPECT_EQ(store.read("CopyonlyOneTrack"), "False");
    EXPECT_EQ(toolbar.Check3.tip(), "Edit All Tracks");
}

/// A store that tells in which order it was written.
class LoggingStore final : public SettingsStore {
 public:
    Lines written;
    std::optional<std::string> read(const std::string&) const override { return std::nullopt; }
    void write(const std::string& key, const std::string& value) override {
        written.push_back(key + "=" + value);
    }
};

TEST_F(EditingToolbarTest, UnloadingStoresPlaceFieldsAndPositionToggleInThisOrder) {
    LoggingStore log;
    Settings settings(log);
    EditingToolbarCommands commands(studio, {settings, frame, engine.toolbar, engine.player, engine.tools,
                                             engine.blocks, engine.duplication});
    commands.Form_Load();
    toolbar.place = {150, 300, 7000, 3000};
    toolbar.Text3.userPut(Value("a"));
    toolbar.Text1.userPut(Value("2"));
    commands.Cmd2_Click(10);
    EXPECT_TRUE(log.written.empty());
    commands.Form_Unload();
    EXPECT_EQ(log.written, (Lines{"form2 left=150", "form2 top=300", "Notes=a", "Repeat=12", "Beats=12",
                                  "Spaces=2", "Playing position=True"}));
    EXPECT_FALSE(studio.shell.Form2Open);
}

TEST_F(EditingToolbarTest, OpenAndSaveHideTheOpenToolWindowsMeanwhile) {
    load();
    studio.shell.WizardOpen = true;
    studio.shell.RecorderOpen = true;
    studio.shell.Form3Open = studio.Form3.loaded = true;
    for (const int index : {2, 3}) {
        toolWindows.calls.clear();
        press(index);
        EXPECT_EQ(toolWindows.calls,
                  (Lines{"hide 0", "hide 1", "hide 2", "hide 3", "show 0", "show 1", "show 2", "show 3"}))
            << index;
        EXPECT_EQ(dialogs.takeFileDialogs().size(), 1U) << index;
    }
}

TEST_F(EditingToolbarTest, TheFirstButtonClearsAllNotes) {
    load();
    write(0, 3, 60);
    press(1);
    EXPECT_EQ(studio.score.NoteArray.get(0, 3, 0), -1);
    EXPECT_TRUE(dialogs.takeFileDialogs().empty());
}

TEST_F(EditingToolbarTest, PauseSetsTheRequestWhetherOrNotItPlays) {
    load();
    press(6);
    EXPECT_TRUE(studio.player.PauseRequested);
    EXPECT_FALSE(studio.player.Playing);
}

TEST_F(EditingToolbarTest, PlaySelectionLeavesPlayingCleared) {
    load();
    write(0, 1, 60);
    studio.player.PlayRangeEnd = 2;
    bool played = false;
    time.at(60, [&] { played = studio.player.Playing && studio.player.PlayingSelection; });
    press(5);
    EXPECT_TRUE(played);
    EXPECT_FALSE(studio.player.Playing);
    studio.player.PlayRangeEnd = 0;
    press(5);
    EXPECT_FALSE(studio.player.Playing);
}

TEST_F(EditingToolbarTest, StopEndsAPlayback) {
    load();
    write(0, 100, 60);
    time.at(500, [this] { press(7); });
    press(4);
    EXPECT_FALSE(studio.player.Playing);
    EXPECT_LT(studio.player.PlayColumn, 10);
}

TEST_F(EditingToolbarTest, TheSwitchGoesToSelectAndBack) {
    load();
    const auto expectState = [&](bool selects) {
        EXPECT_EQ(toolbar.EditToolState, selects ? 0 : 1);
        EXPECT_EQ(studio.selection.EditMode, selects ? 2 : 0);
        const auto& art = selects ? toolbar.Imgdown : toolbar.Imgup;
        EXPECT_EQ(picture(11), art.picture());
        EXPECT_EQ(toolbar.Cmd2[11].picture(), art.picture());
        for (std::size_t index = 12; index <= 17; ++index) {
            const auto& bank = selects ? toolbar.ImgPicy : toolbar.ImgPicx;
            EXPECT_EQ(picture(index), bank[index].picture()) << index;
            EXPECT_EQ(toolbar.Cmd2[index].picture(), bank[index].picture()) << index;
            EXPECT_EQ(toolbar.ImgPic[index].enabled(), selects) << index;
        }
        for (std::size_t index = 1; index <= 11; ++index)
            EXPECT_TRUE(toolbar.ImgPic[index].enabled()) << index;
        for (const TextControl* const text :
             {&toolbar.Text1, &toolbar.Text3, &toolbar.Text4, &toolbar.Text5}) {
            EXPECT_EQ(text->enabled(), selects);
            EXPECT_EQ(text->backColour(), selects ? (Colour{255, 255, 255}) : (Colour{207, 207, 207}));
        }
        for (const auto& label : toolbar.Label6) EXPECT_EQ(label.enabled(), selects);
        EXPECT_EQ(toolbar.Picture2.enabled(), selects);
        EXPECT_EQ(toolbar.Check1.enabled(), selects);
        EXPECT_EQ(toolbar.VScroll3.enabled(), selects);
        EXPECT_TRUE(toolbar.Check3.enabled());
    };
    expectState(false);
    press(11);
    expectState(true);
    press(11);
    expectState(false);
}

TEST_F(EditingToolbarTest, ClosingPutsThePencilBackInHand) {
    load();
    press(11);
    engine.editing.Form_QueryUnload();
    EXPECT_EQ(studio.selection.EditMode, 0);
    engine.editing.Form_Unload();
    load();
    EXPECT_EQ(toolbar.EditToolState, 1);
    EXPECT_FALSE(toolbar.ImgPic[12].enabled());
    EXPECT_FALSE(toolbar.Text4.enabled());
}

TEST_F(EditingToolbarTest, OpeningAnewFindsBoxesAndBarsAtRestAndTheFieldsAsStored) {
    load();
    press(11);
    toolbar.Check1.userPut(Value(false));
    toolbar.VScroll4.userPut(Value(20LL));
    engine.editing.Form_Unload();
    load();
    EXPECT_TRUE(toolbar.Check1.ticked());
    EXPECT_EQ(toolbar.VScroll4.value(), 28);
    EXPECT_EQ(toolbar.Text4.text(), "20");
}

struct Boxes {
    bool melody, percussion;
    int first, last;
};

class DuplicateChannels : public EditingToolbarTest, public testing::WithParamInterface<Boxes> {};

TEST_P(DuplicateChannels, TheBoxesNameTheRange) {
    load();
    toolbar.Check2.set(GetParam().melody);
    toolbar.Check1.set(GetParam().percussion);
    press(17);
    EXPECT_EQ(studio.duplicate.ToolbarFirstChannel, GetParam().first);
    EXPECT_EQ(studio.duplicate.ToolbarLastChannel, GetParam().last);
}

INSTANTIATE_TEST_SUITE_P(Boxes, DuplicateChannels,
                         testing::Values(Boxes{true, true, 0, 12}, Boxes{true, false, 0, 7},
                                         Boxes{false, true, 8, 12}, Boxes{false, false, 8, 7}));

TEST_F(EditingToolbarTest, DuplicationStartsAtThePositionAndReturnsToTheStart) {
    load();
    write(0, 0, 60);
    toolbar.Text4.userPut(Value("4"));
    toolbar.Text3.userPut(Value("8"));
    studio.selection.InsertPosition = 4;
    press(17);
    for (const int column : {0, 4, 8, 12}) EXPECT_EQ(studio.score.NoteArray.get(0, column, -1), 60) << column;
    EXPECT_EQ(studio.score.NoteArray.get(0, 16, -1), 60) << "one column more than the motif";
    EXPECT_EQ(studio.score.NoteArray.get(0, 20, -1), -1);
    EXPECT_EQ(studio.selection.InsertPosition, 0);
}

TEST_F(EditingToolbarTest, ANumberWithoutAButtonDoesNothing) {
    load();
    write(0, 3, 60);
    surfaces.calls.clear();
    for (const int index : {-1, 0, 18, 32767, -32768}) press(index);
    EXPECT_EQ(studio.score.NoteArray.get(0, 3, 0), 60);
    EXPECT_TRUE(surfaces.calls.empty());
    EXPECT_TRUE(sent().empty());
}

TEST_F(EditingToolbarTest, OnlyTheNeighboursOfTheButtonUnderTheMouseAreHidden) {
    load();
    auto& pictures = engine.editing.pictures;
    const auto shown = [this] {
        std::vector<int> indices;
        for (std::size_t index = 1; index <= 17; ++index) {
            if (toolbar.Cmd2[index].visible()) indices.push_back(static_cast<int>(index));
        }
        return indices;
    };
    EXPECT_TRUE(shown().empty());
    pictures.ImgPic_MouseMove(4, 0, 0, 3, 3);
    pictures.ImgPic_MouseMove(9, 0, 0, 3, 3);
    EXPECT_EQ(shown(), (std::vector{4, 9}));
    pictures.ImgPic_MouseMove(5, 0, 0, 3, 3);
    EXPECT_EQ(shown(), (std::vector{5, 9}));
    pictures.Cmd2_MouseUp(5, 1, 0, 3, 3);
    EXPECT_EQ(shown(), (std::vector{9}));
    pictures.ImgPic_MouseMove(1, 0, 0, 3, 3);
    pictures.ImgPic_MouseMove(17, 0, 0, 3, 3);
    pictures.hideButtons();
    EXPECT_TRUE(shown().empty());
    for (const int index : {-5, 0, 18, 99}) pictures.ImgPic_MouseMove(index, 0, 0, 3, 3);
    EXPECT_TRUE(shown().empty());
}

TEST_F(EditingToolbarTest, DrawingTakesTheEditingButtonsFromUnderTheMouse) {
    load();
    press(11);
    engine.editing.pictures.ImgPic_MouseMove(13, 0, 0, 3, 3);
    press(11);
    EXPECT_FALSE(toolbar.Cmd2[13].visible());
}

TEST_F(EditingToolbarTest, TheRepeatKeyChangesTheTogglesPicture) {
    load();
    engine.toolbar.toggleLoop();
    EXPECT_EQ(picture(10), toolbar.ImgLoop[1].picture());
    engine.toolbar.toggleLoop();
    EXPECT_EQ(picture(10), toolbar.ImgLoop[2].picture());
}

TEST_F(EditingToolbarTest, WhatHasNoActionLeavesTheScoreAlone) {
    load();
    write(0, 3, 60, 2);
    surfaces.calls.clear();
    for (auto* const idle : {&toolbar.TransposeBut[0], &toolbar.TransposeBut[1], &toolbar.Command7}) {
        EXPECT_TRUE(idle->userPut(Value(1LL)));
    }
    EXPECT_EQ(studio.score.NoteArray.get(0, 3, 0), 60);
    EXPECT_EQ(studio.score.NoteArray.get(0, 4, 0), 1060);
    EXPECT_TRUE(surfaces.calls.empty());
}

TEST_F(EditingToolbarTest, AmongTheToolWindowsTheOneInFrontIsMarked) {
    studio.shell.Form3Active = studio.shell.WizActive = studio.shell.RecordActive = true;
    engine.editing.Form_Activate();
    EXPECT_TRUE(studio.shell.Form2Active);
    EXPECT_FALSE(studio.shell.Form3Active || studio.shell.WizActive || studio.shell.RecordActive);
}

}  // namespace
}  // namespace melvane::test
