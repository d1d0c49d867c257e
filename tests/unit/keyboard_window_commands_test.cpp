#include <filesystem>

#include "keyboard_fixture.h"

namespace melvane::test {

class KeyboardWindowCommandsTest : public KeyboardTest {
 protected:
    /// 1120 by 680 pixels on a screen of 1280 by 1024.
    KeyboardWindowCommandsTest() {
        keyboardFrame.at = {0, 0, 16800, 10200};
        synth().window.frame = &keyboardFrame;
        sent();
    }
    void load() { synth().window.Form_Load(); }

    PlainFrame keyboardFrame;
};

TEST_F(KeyboardWindowCommandsTest, ItLoadsInItsOrder) {
    store.write("Volume", "90");
    store.write("Intrumentval", "40");
    store.write("Inst Name", "Violin");
    store.write("Devices", "0");
    load();
    const auto lines = sent();
    ASSERT_EQ(lines.size(), 3U + 16 * 7 + 2);
    EXPECT_EQ(lines[0], "close");
    EXPECT_EQ(lines[1], "open 0 0");
    EXPECT_EQ(lines[2], "C9 00 00");
    EXPECT_EQ(lines[3], "C0 00 00");
    EXPECT_EQ(lines[113], "BF 01 00");
    EXPECT_EQ(lines[115], "B0 07 5A");
    EXPECT_EQ(lines[116], "C0 28 00");
    EXPECT_EQ(window().LblInstrument.text(), "Violin");
    EXPECT_TRUE(window().loaded);
}

TEST_F(KeyboardWindowCommandsTest, ADeviceThatFailsPassesItsPlaceToTheNext) {
    port.setDevices(3);
    store.write("Devices", "1");
    port.refuse(1, 1);
    load();
    const auto lines = sent();
    ASSERT_GE(lines.size(), 5U);
    EXPECT_EQ((Lines{lines.begin(), lines.begin() + 5}),
              (Lines{"close", "open 1 4", "close", "open 2 0", "C9 00 00"}));
    EXPECT_EQ(window().Combo1.index(), 2) << "the list shows what is stored";
}

TEST_F(KeyboardWindowCommandsTest, WithoutASettingTheMapperIsOpenedAndShown) {
    store = {};
    load();
    EXPECT_EQ(sent()[1], "open -1 0");
    EXPECT_EQ(window().Combo1.index(), 0);
    EXPECT_FALSE(store.read("Devices")) << "showing the list stores nothing";
}

TEST_F(KeyboardWindowCommandsTest, ItsFirstPlaceIs100And200AndAsHighAsTheScreen) {
    load();
    EXPECT_EQ(keyboardFrame.at, (WindowPlace{100, 200, 16800, 1024 * twipsAPixel}));
}

TEST_F(KeyboardWindowCommandsTest, AStoredPlaceIsTaken) {
    store.write("formS Left", "300");
    store.write("formS Top", "-40");
    store.write("formS Width", "12000");
    store.write("formS height", "8000");
    load();
    EXPECT_EQ(keyboardFrame.at, (WindowPlace{300, -40, 12000, 8000}));
}

TEST_F(KeyboardWindowCommandsTest, APlaceThatIsNoNumberLeavesTheMiddleOfTheScreen) {
    store.write("formS left", "here");
    store.write("formS top", "");
    store.write("formS height", "tall");
    load();
    EXPECT_EQ(keyboardFrame.at, (WindowPlace{(19200 - 16800) / 2.0, (15360 - 10200) / 3.0, 16800, 10200}));
}

TEST_F(KeyboardWindowCommandsTest, OneWiderThanTheScreenIsRepairedAndStored) {
    store.write("formS width", "19200");
    load();
    EXPECT_EQ(keyboardFrame.at.left, 100) << "as wide as the screen is not wider";
    store.write("formS width", "19201");
    load();
    EXPECT_EQ(keyboardFrame.at, (WindowPlace{500, 500, 19200, 15360}));
    EXPECT_EQ(store.read("formS left"), "500");
    EXPECT_EQ(store.read("formS top"), "500");
    EXPECT_EQ(store.read("formS width"), "19200");
    EXPECT_EQ(store.read("formS height"), "15360");
}

TEST_F(KeyboardWindowCommandsTest, TheSongsFolderIsMadeAndIsTheDialogs) {
    std::filesystem::remove_all(folder.path() / "Songs");
    state().OpenFolder = state().SaveFolder = state().ScoreFolder = "elsewhere";
    load();
    EXPECT_TRUE(std::filesystem::is_directory(folder.path() / "Songs"));
    EXPECT_EQ(state().OpenFolder, (folder.path() / "Songs").string());
    EXPECT_EQ(state().SaveFolder, state().OpenFolder);
    EXPECT_EQ(state().ScoreFolder, state().OpenFolder);
}

TEST_F(KeyboardWindowCommandsTest, LoadingForgetsWhatWasHeld) {
    state().HeldKeyText = "3";
    state().SpaceKeyCode = 32;
    state().KeyIsDown = true;
    load();
    EXPECT_EQ(state().HeldKeyText, "");
    EXPECT_EQ(state().SpaceKeyCode, 0);
    EXPECT_FALSE(state().KeyIsDown);
}

TEST_F(KeyboardWindowCommandsTest, TheKeysFollowTheWidthAndTheReferenceStays) {
    load();
    EXPECT_EQ(window().Text14.text(), "8700");
    window().place.width = 9450;
    synth().window.Form_Resize();
    EXPECT_EQ(window().Picture5.place().width, 8700);
    EXPECT_EQ(window().Picture1.place().width, 8400);
    EXPECT_NEAR(window().CmdKey[0].place().width, 345 * 0.86, 1e-9);
    EXPECT_EQ(window().Text14.text(), "8700");
}

TEST_F(KeyboardWindowCommandsTest, NothingFollowsBeforeTheLoad) {
    const double before = window().CmdKey[0].place().width;
    window().place.width = 30000;
    synth().window.Form_Resize();
    EXPECT_EQ(window().CmdKey[0].place().width, before);
}

TEST_F(KeyboardWindowCommandsTest, ResizingKeepsTheLabelsEnabledWhileTheyAreEdited) {
    load();
    window().Check1.userPut(true);
    synth().window.Form_Resize();
    for (const auto& label : window().NoteX) EXPECT_TRUE(label.enabled());
    window().Check1.userPut(false);
    synth().window.Form_Resize();
    for (const auto& label : window().NoteX) EXPECT_FALSE(label.enabled());
}

TEST_F(KeyboardWindowCommandsTest, ClosingStoresAndEndsTheProgramOnce) {
    load();
    window().place = {150, 300, 12000, 9000};
    sent();
    synth().window.Form_Unload();
    EXPECT_EQ(sent(), (Lines{"reset", "close"}));
    EXPECT_EQ(store.read("formS left"), "150");
    EXPECT_EQ(store.read("formS top"), "300");
    EXPECT_EQ(store.read("formS width"), "12000");
    EXPECT_EQ(store.read("formS height"), "9000");
    EXPECT_EQ(store.read("keyfile"), (folder.path() / "004.key").string());
    EXPECT_TRUE(frame.unloaded);
    EXPECT_FALSE(window().loaded);
    frame.unloaded = false;
    synth().window.Form_Unload();
    EXPECT_FALSE(frame.unloaded);
    EXPECT_TRUE(sent().empty());
}

TEST_F(KeyboardWindowCommandsTest, APlaceThatDoesNotFitIsNotStored) {
    load();
    window().place = {1e300, 0, 5, 5};
    synth().window.Form_Unload();
    EXPECT_FALSE(store.read("formS left"));
    EXPECT_EQ(store.read("formS top"), "0");
}

TEST_F(KeyboardWindowCommandsTest, ItsButtonsReachHelpAndRecorder) {
    int helps = 0, recorders = 0;
    synth().window.showHelp = [&] { ++helps; };
    synth().window.openRecorder = nullptr;
    load();
    EXPECT_FALSE(window().Cmd2[5].enabled());
    synth().window.Cmd2_Click(5);
    synth().window.openRecorder = [&] { ++recorders; };
    load();
    EXPECT_TRUE(window().Cmd2[5].enabled());
    window().Cmd2[3].userPut(1LL);
    window().Cmd2[5].userPut(1LL);
    EXPECT_EQ(helps, 1);
    EXPECT_EQ(recorders, 1);
}

TEST_F(KeyboardWindowCommandsTest, WithoutAWindowNothingBreaks) {
    synth().window.frame = nullptr;
    load();
    for (int button = -1; button < 9; ++button) {
        if (button != 6) synth().window.Cmd2_Click(button);
    }
    synth().window.Cmd4_Click(6);
    synth().window.Form_Unload();
    EXPECT_TRUE(frame.unloaded);
}

TEST_F(KeyboardWindowCommandsTest, TheScoresToolWindowsGoAndComeWithTheMainWindow) {
    studio.shell.Form2Open = studio.shell.Form3Open = true;
    toolWindows.shows = true;
    toolWindows.calls.clear();
    engine.startUp.OpenKeyboardWindow();
    EXPECT_EQ(toolWindows.calls, (Lines{"load frmsynth", "hide 0", "hide 1"}));
    toolWindows.calls.clear();
    synth().window.Cmd2_Click(6);
    EXPECT_EQ(toolWindows.calls, (Lines{"show 0", "show 1"}));
    toolWindows.calls.clear();
    synth().window.Cmd2_Click(6);
    EXPECT_TRUE(toolWindows.calls.empty());
}

TEST_F(KeyboardWindowCommandsTest, ASetupToolbarThatTheKeyboardHidesCountsAsOpenAtTheEnd) {
    studio.shell.Form3Open = true;
    toolWindows.shows = true;
    engine.startUp.OpenKeyboardWindow();
    studio.shell.Form3Open = false;  // hidden, it has lost the focus
    engine.startUp.Form_Unload();
    EXPECT_EQ(store.read("Form3"), "True");
}

}  // namespace melvane::test
