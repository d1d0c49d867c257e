#include "shell/popup_menus.h"

#include "unit/program_fixture.h"

namespace melvane {
namespace {

class PopupMenusTest : public test::ProgramTest {
 protected:
    PopupMenusTest() { start(); }
    std::vector<std::string> windowCalls() { return std::exchange(toolWindows.calls, {}); }
    void write(int column, int row) { studio.score.NoteArray.set(0, column, row); }
    int cell(int column) const { return studio.score.noteCell(0, column); }
};

using Calls = std::vector<std::string>;

TEST_F(PopupMenusTest, TheMenusAreLoadedAtTheStartWithTheMarksOfTheLook) {
    EXPECT_TRUE(studio.Frmmenu.loaded);
    EXPECT_TRUE(studio.Frmmenu.mnuXP.ticked());
    EXPECT_FALSE(studio.Frmmenu.mnu3D.ticked());
}

TEST_F(PopupMenusTest, EntriesShowTheirWindows) {
    windowCalls();
    engine.menus.mnuSetup_Click();
    engine.menus.mnuEdittool_Click();
    engine.menus.mnuRecordtool_Click();
    engine.menus.mnuTutorial_Click();
    EXPECT_EQ(windowCalls(), (Calls{"load Form3", "load Form2", "load Record", "load Wiz"}));
}

TEST_F(PopupMenusTest, ToolbarButtonsShowTheirWindows) {
    windowCalls();
    engine.toolbar.Cmd2_Click(9);
    engine.toolbar.Cmd2_Click(10);
    engine.toolbar.Cmd2_Click(11);
    EXPECT_EQ(windowCalls(), (Calls{"load Form2", "load Record", "load Wiz"}));
    engine.toolbar.Cmd2_Click(14);
    EXPECT_EQ(windowCalls(), (Calls{"load frmsynth"}));
    engine.toolbar.Cmd2_Click(13);
    engine.toolbar.Cmd2_Click(15);
    engine.toolbar.Cmd2_Click(-1);
    EXPECT_EQ(windowCalls(), Calls{});
}

TEST_F(PopupMenusTest, TheTipWindowGoesBeforeTheMenusOfModeAndHelp) {
    Calls& calls = toolWindows.calls;
    engine.toolbar.openMenu = [&](int button) { calls.push_back("menu " + std::to_string(button)); };
    windowCalls();
    engine.toolbar.Cmd2_Click(3);
    EXPECT_EQ(windowCalls(), (Calls{"unload frminfo", "menu 3"}));
    engine.toolbar.Cmd2_Click(8);
    EXPECT_EQ(windowCalls(), (Calls{"menu 8"}));
    engine.toolbar.Cmd2_Click(12);
    EXPECT_EQ(windowCalls(), (Calls{"unload frminfo", "menu 12"}));
}

TEST_F(PopupMenusTest, TheSetupToolbarIsShownAndHidden) {
    windowCalls();
    studio.shell.Form3Open = true;
    engine.menus.mnuSetupToolBar_Click();
    EXPECT_EQ(windowCalls(), (Calls{"hide 1"}));
    EXPECT_FALSE(studio.shell.Form3Open);
    engine.menus.mnuSetupToolBar_Click();
    EXPECT_EQ(windowCalls(), (Calls{"load Form3"}));
}

TEST_F(PopupMenusTest, HelpFromItsMenuHidesTheToolWindowsAndEndsInFront) {
    Calls& calls = toolWindows.calls;
    studio.shell.Form3Open = true;
    engine.menus.showHelp = [&] { calls.emplace_back("help"); };
    windowCalls();
    engine.menus.mnuHelpfile_Click();
    EXPECT_EQ(windowCalls(), (Calls{"hide 1", "help", "show 1", "help"}));
    engine.menus.mnuHelp_Click();
    EXPECT_EQ(windowCalls(), (Calls{"help"}));
}

TEST_F(PopupMenusTest, ThePasteEntriesInsertAndOverwrite) {
    write(2, 60);
    studio.selection.SelStart = studio.selection.SelEnd = 2;
    engine.menus.mnuCopy_Click();
    write(5, 70);
    studio.selection.InsertPosition = 5;
    engine.menus.mnuPasteInsert_Click();
    EXPECT_EQ(cell(5), 60);
    EXPECT_EQ(cell(6), 70);
    studio.selection.InsertPosition = 6;
    engine.menus.mnuPasteoverwrite_Click();
    EXPECT_EQ(cell(6), 60);
    EXPECT_EQ(cell(7), -1);
}

TEST_F(PopupMenusTest, CutTakesTheSelectionOut) {
    write(2, 60);
    write(3, 61);
    studio.selection.SelStart = studio.selection.SelEnd = 2;
    engine.menus.mnuCut_Click();
    EXPECT_EQ(cell(2), 61);
}

TEST_F(PopupMenusTest, ExitClosesThePortAndTheMainWindow) {
    sent();
    engine.menus.mnuExit_Click();
    EXPECT_TRUE(frame.unloaded);
    const auto messages = sent();
    ASSERT_FALSE(messages.empty());
    EXPECT_EQ(messages.back(), "close");
}

TEST_F(PopupMenusTest, TheButtonsForSoundAndPlaceDoTheirOwnWork) {
    studio.page.FirstColumn = 24;
    engine.toolbar.Cmd2_Click(4);
    EXPECT_EQ(studio.page.FirstColumn, 0);
    sent();
    engine.toolbar.Cmd2_Click(7);
    const auto silence = sent();
    ASSERT_FALSE(silence.empty());
    EXPECT_EQ(silence.front(), "reset");
    write(1, 60);
    write(30, 60);
    bool played = false;
    time.startTimer(300, [&] {
        played = studio.player.Playing;
        engine.toolbar.Cmd2_Click(6);
    });
    engine.toolbar.Cmd2_Click(5);
    EXPECT_TRUE(played);
    EXPECT_LT(studio.player.PlayColumn, 30);
}

TEST_F(PopupMenusTest, AnUnsetViewClosesAMenuAtOnce) {
    int closed = 0;
    engine.menus.openTabletMenu([&] { ++closed; });
    EXPECT_EQ(closed, 1);
    EXPECT_FALSE(studio.Frmmenu.loaded);
}

}  // namespace
}  // namespace melvane
