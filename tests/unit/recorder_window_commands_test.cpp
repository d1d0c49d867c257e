#include "recorder/recorder_window_commands.h"

#include "recorder_fixture.h"

namespace melvane::test {
namespace {

using RecorderWindowCommandsTest = RecorderTest;

TEST_F(RecorderWindowCommandsTest, AFirstStartHasItsTicksAndItsFormat) {
    EXPECT_TRUE(studio.shell.RecorderOpen);
    EXPECT_TRUE(window().Check2.ticked() && window().Check3.ticked() && window().Check4.ticked());
    EXPECT_EQ(window().cbxFormat.items().size(), 5U);
    EXPECT_EQ(window().cbxFormat.text(), "44.100Hz, 16bit Stereo, 172k/sec");
    EXPECT_EQ(window().cbxFormat.items().back(), "48.000Hz, 16bit Stereo, 192k/sec");
    EXPECT_EQ(window().InputPath.text() + window().OutPutPath.text(), "TEMP.WAVTEMP.MP3");
    EXPECT_TRUE(window().Optsourcesng.ticked());
    EXPECT_FALSE(window().Text2.visible());
    EXPECT_EQ(studio.recorder.SongsDir, folder.file("Songs"));
}

TEST_F(RecorderWindowCommandsTest, ItIsPlacedInTheMiddleAThirdDownUnlessAPlaceIsStored) {
    recorder().window.Form_Unload();
    window().place = {0, 0, 6000, 7500};
    store.write("record left", "x");
    store.write("record top", "");
    recorder().window.Form_Load();
    EXPECT_EQ(window().place.left, (1280 * 15 - 6000) / 2.0);
    EXPECT_EQ(window().place.top, (1024 * 15 - 7500) / 3.0);
    window().place.left = -30;
    window().place.top = 45.4;
    recorder().window.Form_Unload();
    EXPECT_EQ(store.read("record left"), "-30");
    EXPECT_EQ(store.read("record top"), "45");
    recorder().window.Form_Load();
    EXPECT_EQ(window().place.left, -30);
}

TEST_F(RecorderWindowCommandsTest, TicksAndListsOutliveTheWindowAndTheFormatDoesNot) {
    window().Check2.set(false);
    window().Check3.set(false);
    window().Check4.set(false);
    window().Combo3.set(4);
    window().Combo4.set(5);
    window().cbxFormat.userPut(Value(1LL));
    recorder().window.Form_Unload();
    for (const char* key : {"autoencode", "Delete WAV", "Show note position"})
        EXPECT_EQ(store.read(key), "0");
    EXPECT_EQ(store.read("MP3 quality"), "4");
    EXPECT_EQ(store.read("MP3 bitrate"), "5");
    EXPECT_EQ(store.read("WAV format"), "1");
    recorder().window.Form_Load();
    EXPECT_FALSE(window().Check2.ticked() || window().Check3.ticked() || window().Check4.ticked());
    EXPECT_EQ(window().cbxFormat.index(), 3);
}

TEST_F(RecorderWindowCommandsTest, AStoredIndexThatIsNoneSelectsNothing) {
    recorder().window.Form_Unload();
    store.write("MP3 quality", "10");
    store.write("MP3 bitrate", "-7");
    recorder().window.Form_Load();
    EXPECT_EQ(window().Combo3.index(), -1);
    EXPECT_EQ(window().Combo4.text(), "");
}

TEST_F(RecorderWindowCommandsTest, ClosingItStopsAndClosesWhatIsOpenAndTheOutput) {
    sent();
    recorder().window.Form_Unload();
    EXPECT_EQ(sent(), (Lines{"close"}));
    EXPECT_EQ(commands(),
              (Lines{"\"Stop audiomp3\" -> 263 \"The device is not open.\"",
                     "\"Close audiomp3\" -> 263 \"The device is not open.\"", "\"Close All\" -> 0 \"\""}));
    EXPECT_FALSE(studio.shell.RecorderOpen);
    recorder().window.Form_Unload();
    EXPECT_EQ(commands(), Lines{});
}

TEST_F(RecorderWindowCommandsTest, EachLoadPutsTheDriverOfFilesIntoTheSystemsTable) {
    for (const char* const other : {"other.drv", "None", "mciqtz.drv "}) {
        recorder().mci.WriteMciEntry("MPEGVideo", other);
        recorder().window.Form_Unload();
        EXPECT_EQ(recorder().mci.ReadMciEntry("MPEGVideo"), other);
        recorder().window.Form_Load();
        EXPECT_EQ(desktop.readEntry("mci", "mpegvideo", ""), "mciqtz.drv");
    }
}

/// A table of drivers that counts what is written into it.
class CountingDesktop final : public DesktopWithoutEntries {
 public:
    int writes = 0;
    bool openMixer() override { return false; }
    std::vector<std::string_view> encoderFiles() const override { return {}; }
    void writeEntry(const std::string& section, const std::string& key, const std::string& value) override {
        ++writes;
        DesktopWithoutEntries::writeEntry(section, key, value);
    }
};

TEST_F(RecorderWindowCommandsTest, ADriverThatIsThereIsNotWrittenOnceMore) {
    CountingDesktop counting;
    Outside world{time,     time,  port,    media,
                  counting, store, dialogs, Directories{folder.path(), MELVANE_RESOURCES}};
    Studio other;
    Engine program(other, world, surfaces, frame, toolWindows);
    program.recorder.window.Form_Load();
    EXPECT_EQ(counting.writes, 1);
    program.recorder.window.Form_Unload();
    program.recorder.window.Form_Load();
    EXPECT_EQ(counting.writes, 1);
}

TEST_F(RecorderWindowCommandsTest, EachLoadGoesToTheProgramsFolderAndTakesTheFolderOfRecordings) {
    auto& state = studio.recorder;
    const std::string songs = folder.file("Songs");
    std::filesystem::current_path("/");
    state.OpenFolder = state.SaveFolder = state.AudioFolder = "elsewhere";
    recorder().window.Form_Load();
    EXPECT_TRUE(std::filesystem::equivalent(std::filesystem::current_path(), folder.path()));
    EXPECT_EQ((Lines{state.SongsDir, state.OpenFolder, state.SaveFolder, state.AudioFolder}),
              Lines(4, songs));
    state.SongsDir = "none";
    state.OpenFolder = state.SaveFolder = state.AudioFolder = "elsewhere";
    recorder().window.Form_Load();
    EXPECT_EQ((Lines{state.SongsDir, state.OpenFolder, state.SaveFolder, state.AudioFolder}),
              (Lines{"none", "elsewhere", "elsewhere", "elsewhere"}));
}

TEST_F(RecorderWindowCommandsTest, OneSourceIsChosenAtATime) {
    window().Optsourcekeyboard.userPut(Value(1LL));
    EXPECT_FALSE(window().Optsourcesng.ticked());
    window().Optsourcemid.userPut(Value(1LL));
    EXPECT_TRUE(window().Optsourcemid.ticked());
    EXPECT_FALSE(window().Optsourcekeyboard.ticked());
    EXPECT_EQ(window().Optsourcekeyboard.tip(), window().Optsourcemid.tip());
}

TEST_F(RecorderWindowCommandsTest, AMixerThatDoesNotStartIsToldInABox) {
    window().Command1.userPut(Value(1LL));
    EXPECT_EQ(dialogs.takeBoxes(),
              (Lines{"box exclamation \"Melvane - Error\" \"Unable to load SndVol32.exe\""}));
}

TEST_F(RecorderWindowCommandsTest, TheLogsWindowTakesTheLogWhenItIsLoaded) {
    recorder().log.add("first");
    toolWindows.calls.clear();
    window().CmdLog.userPut(Value(1LL));
    EXPECT_EQ(toolWindows.calls, (Lines{"load frmLog"}));
    recorder().window.loadLog();
    EXPECT_EQ(studio.frmLog.Text1.text(), "00:00:00  first\n");
    recorder().log.add("second");
    EXPECT_EQ(studio.frmLog.Text1.text(), "00:00:00  first\n");
    window().CmdLog.userPut(Value(1LL));
    EXPECT_EQ(studio.frmLog.Text1.text(), "00:00:00  first\n00:00:00  second\n");
}

TEST_F(RecorderWindowCommandsTest, ItMarksItselfAsTheOneInFront) {
    studio.shell.Form2Active = true;
    recorder().window.Form_Activate();
    EXPECT_TRUE(studio.shell.RecordActive);
    EXPECT_FALSE(studio.shell.Form2Active);
}

TEST_F(RecorderWindowCommandsTest, FlatButtonsComeNearWithTheirNeighboursHidden) {
    recorder().buttons.ImgR_MouseMove(1, 0, 0, 0, 0);
    recorder().buttons.ImgR_MouseMove(2, 0, 0, 0, 0);
    EXPECT_FALSE(window().Cmd2[1].visible());
    EXPECT_TRUE(window().Cmd2[2].visible());
    recorder().buttons.Cmd2_MouseUp(2, 1, 0, 0, 0);
    EXPECT_FALSE(window().Cmd2[2].visible());
    recorder().buttons.Cmd2_Click(5);
    recorder().buttons.Cmd2_Click(-1);
    EXPECT_EQ(window().Cmd2[4].tip(), "Save File As");
    EXPECT_EQ(window().ImgR[4].tip(), "Open File");
    EXPECT_EQ(window().ImgR[1].tip(), "Play from File");
}

TEST_F(RecorderWindowCommandsTest, TheProgressOfASongFillsTheBar) {
    recorder().showProgress(0.5);
    EXPECT_EQ(window().L2.width(), RecordControls::barWidth / 2);
    EXPECT_EQ(window().Status.text(), "50 %");
    recorder().showProgress(1.5);
    EXPECT_EQ(window().Status.text(), "150 %");
    recorder().showProgress(2);
    EXPECT_EQ(window().Status.text(), "150 %");
    recorder().showProgress(0);
    EXPECT_EQ(window().Status.text(), " %");
    recorder().clearProgress();
    EXPECT_EQ(window().L2.width(), 1);
}

}  // namespace
}  // namespace melvane::test
