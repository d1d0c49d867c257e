#include "program_fixture.h"

namespace melvane::test {
namespace {

using Lines = std::vector<std::string>;
using StartUpTest = ProgramTest;

TEST_F(StartUpTest, AFirstRunHasTheDefaults) {
    engine.startUp.Form_Load();
    EXPECT_EQ(studio.score.NumNotes, 1000);
    EXPECT_EQ(studio.page.LineHeight, 8);
    EXPECT_EQ(studio.score.BeatsPerMeasure, 4);
    EXPECT_EQ(studio.score.Tempo, 100);
    EXPECT_TRUE(studio.form1.Beatbox.visible());
    EXPECT_TRUE(studio.shell.Form3Open);
    EXPECT_EQ(studio.instruments.MelodyInstrument, 24);
    EXPECT_EQ(studio.instruments.PercussionInstrument, 128);
    EXPECT_EQ(studio.form1.Text5.text(), "Nylon Guitar");
    EXPECT_TRUE(studio.tracks.TrackActive[0]);
    EXPECT_TRUE(studio.tracks.TrackVisible[1]);
    EXPECT_FALSE(studio.shell.Busy);
    EXPECT_EQ(studio.player.PlayStopWatch, 1);
    EXPECT_EQ(studio.tracks.TrackVolume[11], 127);
    EXPECT_EQ(studio.tracks.TrackVolume[12], 0);
}

TEST_F(StartUpTest, TheFirstGeometryIsAPageOfFortyColumns) {
    engine.startUp.Form_Load();
    EXPECT_EQ(studio.page.PageColumns, 39);
    EXPECT_EQ(studio.page.PageRows, 8);
    EXPECT_EQ(studio.page.FirstRow, 42);
    EXPECT_EQ(studio.page.LastRow, 50);
}

TEST_F(StartUpTest, StoredValuesAreTakenAndDamagedOnesPassedOver) {
    store.write("NUMNOTES", "200");
    store.write("Line_Height", "twelve");
    store.write("Beats per measure", "3");
    store.write("Percussion", "False");
    store.write("Form3", "false");
    store.write("Playing position", "nonsense");
    engine.startUp.Form_Load();
    EXPECT_EQ(studio.score.NoteArray.lastColumn(), 200);
    EXPECT_EQ(studio.page.LineHeight, 8);
    EXPECT_EQ(studio.score.BeatsPerMeasure, 3);
    EXPECT_FALSE(studio.form1.Beatbox.visible());
    EXPECT_FALSE(studio.shell.Form3Open);
    EXPECT_TRUE(studio.player.ShowPlayingPosition);
}

TEST_F(StartUpTest, SettingsOfAnyContentDoNoHarm) {
    for (const char* text : {"", "-1", "0", "99999999999999999999", "2000000000", "2147483647", "-2147483648",
                             "-32769", "\x01\xff", "1e9", "nan", "true"}) {
        for (const char* key :
             {"Intrumentval", "Intrumentval2", "NumNotes", "Beats per measure", "Line_Height",
              "Show_Sharp_guides", "Devices", "form1 left", "form1 Width", "XPInterface"}) {
            store.write(key, text);
        }
        Studio other;
        Engine second(other, outside, surfaces, frame, toolWindows);
        second.startUp.Form_Load();
        second.startUp.Form_Activate();
        second.page.Form_Resize();
        EXPECT_FALSE(other.shell.Busy) << text;
    }
}

TEST_F(StartUpTest, ANarrowWindowIsRepairedAndStoredAtOnce) {
    store.write("form1 Width", "2000");
    engine.startUp.Form_Load();
    EXPECT_EQ(frame.at, (WindowPlace{500, 500, 1280 * 15 - 1001, 1024 * 15 - 1001}));
    EXPECT_EQ(store.read("form1 width"), std::to_string(1280 * 15 - 1001));
    EXPECT_EQ(store.read("form1 left"), "500");
}

TEST_F(StartUpTest, AWideEnoughWindowKeepsItsPlace) {
    store.write("form1 left", "1500");
    store.write("form1 Width", "9000");
    engine.startUp.Form_Load();
    EXPECT_EQ(frame.at, (WindowPlace{1500, 200, 9000, 1024 * 15 - 400}));
    EXPECT_EQ(store.read("form1 top"), std::nullopt);
}

TEST_F(StartUpTest, TheSongsFolderIsMadeAndTheMediaFolderIsNot) {
    engine.startUp.Form_Load();
    EXPECT_TRUE(std::filesystem::is_directory(folder.path() / "Songs"));
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "media"));
}

TEST_F(StartUpTest, NoDeviceIsNoFailureOfTheStart) {
    port.setDevices(0);
    engine.startUp.Form_Load();
    EXPECT_TRUE(dialogs.takeBoxes().empty());
    EXPECT_EQ(store.read("Devices"), "-1");
    EXPECT_FALSE(studio.shell.Busy);
}

TEST_F(StartUpTest, AtTheFirstRunTheListStoresDeviceZero) {
    engine.startUp.Form_Load();
    EXPECT_EQ(store.read("Devices"), "0");
    sent();
    engine.startUp.Form_Activate();
    EXPECT_EQ(sent(), (Lines{"reset", "close", "open 0 0", "C9 00 00", "B0 00 00", "B0 20 00", "C0 18 00",
                             "close", "open 0 0", "C9 00 00"}));
}

TEST_F(StartUpTest, ComingToTheFrontEndsAPlayback) {
    engine.startUp.Form_Load();
    studio.player.Playing = true;
    engine.startUp.Form_Activate();
    EXPECT_FALSE(studio.player.Playing);
}

TEST_F(StartUpTest, ComingToTheFrontWhileBusyPaintsTheStripsOfChannelOne) {
    engine.startUp.Form_Load();
    studio.shell.Busy = true;
    studio.Form3.TxBeats.set("7");
    surfaces.calls.clear();
    engine.startUp.Form_Activate();
    EXPECT_FALSE(studio.shell.Busy);
    EXPECT_EQ(studio.score.BeatsPerMeasure, 7);
    EXPECT_EQ(surfaces.count("DrawPolyStrip"), 2U);
}

TEST_F(StartUpTest, TheEndStoresThePlaceAndRemovesTheSamples) {
    engine.startUp.Form_Load();
    frame.at = {150, 300, 7000, 5000};
    studio.form1.Beatbox.setVisible(false);
    engine.fileOperations.InstallMediaFiles();
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "media" / "104a.sng"));
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "media" / "204.sng"));
    sent();
    engine.startUp.Form_Unload();
    EXPECT_EQ(sent(), (Lines{"close"}));
    EXPECT_EQ(store.read("form1 left"), "150");
    EXPECT_EQ(store.read("form1 Height"), "5000");
    EXPECT_EQ(store.read("Percussion"), "False");
    EXPECT_TRUE(std::filesystem::is_empty(folder.path() / "media"));
    EXPECT_TRUE(time.ended());
    EXPECT_EQ(toolWindows.calls.back(), "unloadAll");
}

TEST_F(StartUpTest, WhileTheProgramClosesItsWindowIsHiddenAndTheScoreWhole) {
    engine.startUp.Form_Load();
    engine.fileOperations.InstallMediaFiles();
    studio.score.NoteArray.set(0, 3, 60);
    std::optional<int> cell;
    bool hidden = false;
    time.at(500, [&] {
        cell = studio.score.noteCell(0, 3);
        hidden = frame.hidden;
    });
    engine.startUp.Form_Unload();
    EXPECT_EQ(cell, 60);
    EXPECT_TRUE(hidden);
    EXPECT_EQ(studio.score.noteCell(0, 3), cell::empty);
}

TEST_F(StartUpTest, ASampleThatIsThereIsNotOverwrittenButDeletedAtTheEnd) {
    const auto mine = folder.make("media/101.sng", "mine");
    engine.fileOperations.InstallMediaFiles();
    EXPECT_EQ(std::filesystem::file_size(mine), 4U);
    engine.fileOperations.RemoveMediaFiles();
    EXPECT_FALSE(std::filesystem::exists(mine));
}

TEST_F(StartUpTest, DeletingAFileWaitsAndNeedsNoFile) {
    engine.fileOperations.DeleteFileAndWait(folder.file("new"));
    EXPECT_FALSE(std::filesystem::exists(folder.file("new")));
    EXPECT_EQ(time.tickCount(), 200);
    engine.fileOperations.DeleteFileAndWait(folder.file("no/such/folder"));
    EXPECT_EQ(time.tickCount(), 200);
}

TEST_F(StartUpTest, ASecondInstanceIsToldOf) {
    EXPECT_FALSE(engine.startUp.IsAlreadyRunning());
    engine.startUp.anotherInstanceRuns = [] { return true; };
    EXPECT_TRUE(engine.startUp.IsAlreadyRunning());
    EXPECT_EQ(dialogs.takeBoxes(), (Lines{"box information \"Melvane\" \"Melvane is already running.\""}));
}

TEST_F(StartUpTest, TheKeyboardNeedsADevice) {
    port.setDevices(0);
    engine.startUp.OpenKeyboardWindow();
    EXPECT_EQ(dialogs.takeBoxes().size(), 1U);
    EXPECT_TRUE(toolWindows.calls.empty());
    port.setDevices(1);
    engine.startUp.OpenKeyboardWindow();
    EXPECT_EQ(toolWindows.calls, (Lines{"load frmsynth"}));
}

TEST_F(StartUpTest, APauseIsOnlyAskedOfAPlayback) {
    start();
    engine.toolbar.pause();
    EXPECT_FALSE(studio.player.PauseRequested);
    studio.player.Playing = true;
    engine.toolbar.pause();
    EXPECT_TRUE(studio.player.PauseRequested);
    engine.toolbar.toggleLoop();
    EXPECT_TRUE(studio.player.LoopSong);
    engine.toolbar.toggleLoop();
    EXPECT_FALSE(studio.player.LoopSong);
}

TEST_F(StartUpTest, ToolWindowsStandAsideForFileDialogs) {
    start();
    studio.shell.Form2Open = studio.shell.WizardOpen = true;
    toolWindows.calls.clear();
    engine.toolbar.Cmd2_Click(1);
    EXPECT_EQ(toolWindows.calls, (Lines{"hide 0", "hide 3", "show 0", "show 3"}));
    engine.toolbar.Cmd2_Click(13);
    EXPECT_EQ(toolWindows.calls.size(), 4U);
}

}  // namespace
}  // namespace melvane::test
