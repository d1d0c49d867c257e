#include "recorder/audio_player.h"

#include "recorder/mp3_header.h"
#include "recorder_fixture.h"

namespace melvane::test {
namespace {

class AudioPlayerTest : public RecorderTest {
 protected:
    std::string song() { return write("song.mp3", "\xFF\xFB\x90\x64rest"); }
    void put(const std::string& file) { window().Text6.set(file); }
    void press(std::size_t index) { window().Cmd2[index].userPut(Value(1LL)); }
    void at(int milliseconds, std::function<void()> call) { time.at(milliseconds, std::move(call)); }
};

TEST_F(AudioPlayerTest, AFileIsPlayedToItsEndWithItsPositionShown) {
    put(song());
    std::string status, shown;
    int width = 0;
    at(3600, [&] {
        status = window().Status.text();
        shown = window().lblTime.text() + " " + window().lblKhz.text() + " " + window().lblbitrate.text() +
                " " + window().lblmode.text();
        width = window().L2.width();
    });
    press(1);
    EXPECT_EQ(status, "35 %");
    EXPECT_EQ(shown, "00:03 44 128 stereo");
    EXPECT_EQ(width, RecordControls::barWidth * 35 / 100);
    EXPECT_EQ(window().L2.width(), RecordControls::barWidth);
    EXPECT_EQ(time.tickCount(), 10000);
    EXPECT_EQ(window().Status.text() + window().lblTime.text() + window().lblKhz.text(), "");
    EXPECT_EQ(logged(),
              (Lines{"File Opened", "Started playing file", "Music Stopped", "Music File closed."}));
    EXPECT_TRUE(window().Picture5.visible());
}

TEST_F(AudioPlayerTest, OpeningKeepsWhatTheDeviceSaysInWholeNumbers) {
    const std::string file = song();
    recorder().audio.OpenMP3(file, "audiomp3");
    const auto& state = studio.recorder;
    EXPECT_EQ(state.MediaFrames + " " + state.MediaSeconds + " " + state.MediaFrameRate, "300 10 30");
    EXPECT_EQ(state.OpenMediaFile, file);
    EXPECT_EQ(erbox(), "File Opened");
    recorder().audio.OpenMP3(folder.file("none.mp3"), "audiomp3");
    EXPECT_EQ(erbox(), "Error: Can't open this file. Try another file.");
    EXPECT_EQ(state.OpenMediaFile, file);
}

TEST_F(AudioPlayerTest, TheSecondsOfALengthAreCut) {
    media.setReply("status audiomp3 length", {0, "10999"});
    recorder().audio.OpenMP3(song(), "audiomp3");
    EXPECT_EQ(studio.recorder.MediaSeconds, "10");
}

TEST_F(AudioPlayerTest, ThePlainOpenSaysNothing) {
    const std::string file = song();
    recorder().audio.OpenMpegFile(file);
    EXPECT_EQ(erbox(), "");
    EXPECT_EQ(commands(), (Lines{"\"open " + file +
                                 " type MPEGVideo Alias audiomp3 parent 0 Style 1073741824\" -> 0 \"1\""}));
    EXPECT_EQ(studio.recorder.MediaFrames, "");
}

TEST_F(AudioPlayerTest, WhatIsPlayedIsToldTheWindowThatItBelongsTo) {
    const std::string file = song();
    recorder().audio.pictureWindow = [] { return std::int64_t{4294967297}; };
    recorder().audio.OpenMP3(file, "audiomp3");
    EXPECT_EQ(commands().at(0), "\"open " + file +
                                    " type MPEGVideo Alias audiomp3 parent 4294967297 Style 1073741824\" -> "
                                    "0 \"1\"");
}

TEST_F(AudioPlayerTest, AFileThatTheDeviceDoesNotTakeIsToldAndKeepsThePropertiesOfTheOneBefore) {
    recorder().audio.OpenMP3(song(), "audiomp3");
    shown();
    media.setReply("open ", {9, "It is broken."});
    recorder().audio.OpenMP3(write("b.mp3", "\xFF\xFB\xB0\xC0"), "audiomp3");
    EXPECT_EQ(shown(), (Lines{"Error: Can't open this file. Try another file."}));
    EXPECT_EQ(window().lblKhz.text() + " " + window().lblbitrate.text() + " " + window().lblmode.text(),
              "44 128 stereo");
    EXPECT_EQ(logged().back(), "Error: Can't open this file. Try another file.");
}

TEST_F(AudioPlayerTest, APlayAndItsStopTellTheirSteps) {
    put(song());
    at(2200, [this] { press(3); });
    press(1);
    EXPECT_EQ(shown(), (Lines{"File Opened", "Music Stopped", "Music File closed."}));
    press(3);
    EXPECT_EQ(shown(), (Lines{"Music File was previously stopped.", "Music File was previously closed."}));
}

TEST_F(AudioPlayerTest, APlayForgetsAPauseOfBefore) {
    put(song());
    studio.player.PauseRequested = true;
    bool during = true;
    at(700, [&] { during = studio.player.PauseRequested; });
    press(1);
    EXPECT_FALSE(during);
    studio.player.PauseRequested = true;
    put("");
    press(1);
    EXPECT_FALSE(studio.player.PauseRequested);
}

TEST_F(AudioPlayerTest, APlayForgetsTheStopsOfBefore) {
    put(song());
    studio.recorder.StopRequested = true;
    studio.recorder.PlayerStopped = true;
    std::string during;
    at(700, [&] {
        during =
            std::to_string(studio.recorder.StopRequested) + std::to_string(studio.recorder.PlayerStopped);
    });
    press(1);
    EXPECT_EQ(during, "00");
    EXPECT_EQ(time.tickCount(), 10000);
    studio.recorder.StopRequested = true;
    media.setReply("play audiomp3", {8, "No sound here."});
    press(1);
    EXPECT_TRUE(studio.recorder.StopRequested);  // it did not begin
}

TEST_F(AudioPlayerTest, TheRefreshShowsWhereItStandsAndWaitsAtTheEnd) {
    recorder().audio.OpenMP3(song(), "audiomp3");
    recorder().mci.MciPlay("audiomp3", "0", "0");
    time.waitUntil(time.counter() + 4 * time.frequency());
    recorder().audio.refresh();
    EXPECT_EQ(window().Status.text() + " " + window().lblTime.text() + " " + studio.recorder.MediaPosition +
                  " " + studio.recorder.MediaTimeSeconds,
              "40 % 00:04 120 4");
    EXPECT_EQ(window().L2.width(), RecordControls::barWidth * 4 / 10);
    EXPECT_EQ(time.tickCount(), 4000);
    time.waitUntil(time.counter() + 6 * time.frequency());
    recorder().audio.refresh();
    EXPECT_EQ(window().Status.text(), "100 %");
    EXPECT_EQ(time.tickCount(), 10500);
    recorder().mci.MciClose("audiomp3");
    recorder().audio.refresh();
    EXPECT_EQ(window().Status.text(), "");
    EXPECT_EQ(window().lblTime.text(), "00:10");
    EXPECT_EQ(time.tickCount(), 10500);
}

TEST_F(AudioPlayerTest, ThePositionIsShownInMinutesAndSecondsWithAllTheirDigits) {
    media.setReply("status audiomp3 length", {0, "600000"});
    recorder().audio.OpenMP3(song(), "audiomp3");
    studio.recorder.MediaFrameRate = "30";
    media.setReply("status audiomp3 position", {0, "221279"});  // 7375 seconds and 29 frames
    recorder().audio.refresh();
    EXPECT_EQ(window().lblTime.text(), "122:55");
    EXPECT_EQ(studio.recorder.MediaTimeSeconds, "7375");
    EXPECT_EQ(window().Status.text(), "37 %");
}

TEST_F(AudioPlayerTest, TheOutputIsLetGoForAFile) {
    put(song());
    sent();
    press(1);
    EXPECT_EQ(sent(), (Lines{"close"}));
}

TEST_F(AudioPlayerTest, WithoutAFileNothingPlays) {
    press(1);
    put(folder.file("none.mp3"));
    press(1);
    EXPECT_EQ(commands(), Lines{});
    EXPECT_FALSE(window().Picture5.visible());
}

TEST_F(AudioPlayerTest, AScoreIsPlayedThroughTheOutput) {
    RecorderTest::write(0, 0, 60, 1);
    put(write("a.SNG", "x"));
    sent();
    press(1);
    const auto messages = sent();
    EXPECT_EQ(messages[0], "close");
    EXPECT_EQ(messages[1], "open 0 0");
    EXPECT_GT(messages.size(), 4U);
    EXPECT_EQ(commands(), Lines{});
    EXPECT_EQ(window().lblTime.text(), "");
    EXPECT_TRUE(window().Picture5.visible());
}

TEST_F(AudioPlayerTest, AScoreIsPlayedByTheDeviceOfTheSettings) {
    RecorderTest::write(0, 0, 60, 1);
    put(write("a.sng", "x"));
    port.setDevices(2);
    store.write("Devices", "1");
    sent();
    press(1);
    EXPECT_EQ(sent().at(1), "open 1 0");
    EXPECT_EQ(studio.sounds.MidiDeviceId, 1);
}

TEST_F(AudioPlayerTest, APlayByACallShowsThePanel) {
    recorder().audio.OpenMP3(song(), "audiomp3");
    EXPECT_FALSE(window().Picture5.visible());
    recorder().audio.PlayMP3();
    EXPECT_TRUE(window().Picture5.visible());
}

TEST_F(AudioPlayerTest, ADeviceThatDoesNotPlaySaysWhy) {
    media.setReply("play audiomp3", {8, "No sound here."});
    put(song());
    press(1);
    EXPECT_EQ(erbox(), "No sound here.");
    EXPECT_EQ(logged(), (Lines{"File Opened", "No sound here."}));
}

TEST_F(AudioPlayerTest, APlayThatFailsLeavesNoProgressOfBefore) {
    media.setReply("play audiomp3", {8, "No sound here."});
    window().Status.set("42 %");
    recorder().audio.PlayMP3();
    EXPECT_EQ(window().Status.text(), "");
}

TEST_F(AudioPlayerTest, TheStopButtonEndsThePlay) {
    put(song());
    at(2200, [this] { press(3); });
    press(1);
    EXPECT_EQ(time.tickCount(), 2500);
    EXPECT_TRUE(studio.recorder.PlayerStopped);
    EXPECT_EQ(logged(), (Lines{"File Opened", "Started playing file", "Music Stopped", "Music File closed.",
                               "Finished playing file"}));
}

TEST_F(AudioPlayerTest, AStopWithNothingOpenIsToldAsOfBefore) {
    press(3);
    EXPECT_EQ(logged(), (Lines{"Music File was previously stopped.", "Music File was previously closed."}));
}

TEST_F(AudioPlayerTest, AStopEmptiesTheProgressTheTimeAndTheProperties) {
    TextControl* const texts[] = {&window().Status, &window().lblTime, &window().lblKhz, &window().lblbitrate,
                                  &window().lblmode};
    for (TextControl* const text : texts) text->set("of before");
    recorder().audio.StopMP3();
    for (const TextControl* const text : texts) EXPECT_EQ(text->text(), "");
}

TEST_F(AudioPlayerTest, AResumeThatFailsSaysNothing) {
    recorder().log.show("as before");
    recorder().audio.ResumeMP3();
    EXPECT_EQ(erbox(), "as before");
    recorder().audio.OpenMP3(song(), "audiomp3");
    recorder().audio.ResumeMP3();
    EXPECT_EQ(erbox(), "Playing");
}

TEST_F(AudioPlayerTest, TheEndOfAPauseShowsThePanel) {
    press(2);
    EXPECT_FALSE(window().Picture5.visible());
    press(2);
    EXPECT_TRUE(window().Picture5.visible());
}

TEST_F(AudioPlayerTest, APauseHoldsThePositionAndIsThatOfTheScore) {
    put(song());
    std::string paused, resumed;
    at(2200, [this] { press(2); });
    at(6000, [&] { paused = studio.recorder.MediaPosition + erbox(); });
    at(7200, [&] {
        EXPECT_TRUE(studio.player.PauseRequested);
        press(2);
        resumed = erbox();
    });
    press(1);
    EXPECT_EQ(paused, "66Paused");
    EXPECT_EQ(resumed, "Playing");
    EXPECT_FALSE(studio.player.PauseRequested);
    EXPECT_EQ(time.tickCount(), 15000);
}

TEST_F(AudioPlayerTest, APauseWithNothingOpenIsToldAsPlayingAndTheNextScoreResumes) {
    press(2);
    EXPECT_EQ(erbox(), "Playing");
    EXPECT_TRUE(studio.player.PauseRequested);
    RecorderTest::write(0, 0, 60, 1);
    RecorderTest::write(0, 9, 60, 1);
    studio.selection.InsertPosition = 8;
    const auto before = time.tickCount();
    engine.player.PlayAndStop_Click(0);
    EXPECT_EQ(time.tickCount() - before, 4 * 138);
}

TEST_F(AudioPlayerTest, AStopRequestedFromOutsideEndsThePlayAndLeavesTheDevice) {
    put(song());
    at(1200, [this] { studio.recorder.StopRequested = true; });
    press(1);
    EXPECT_EQ(erbox(), "Cancelled");
    EXPECT_EQ(recorder().mci.MciPosition("audiomp3"), 45);
}

TEST_F(AudioPlayerTest, ALengthOfNoughtIsReadAgainAndEndsThePlayWhenItIsNoughtAgain) {
    put(song());
    at(700, [this] { studio.recorder.MediaFrames = "0"; });
    press(1);
    EXPECT_EQ(studio.recorder.MediaFrames, "300");
    EXPECT_EQ(time.tickCount(), 10000);
    media.setReply("status audiomp3 length", {0, "0"});
    press(1);
    EXPECT_EQ(time.tickCount(), 10000);
    EXPECT_EQ(studio.recorder.MediaFrameRate, "0");
}

TEST_F(AudioPlayerTest, ADeviceWithoutALengthPlaysUntilItsPositionIsGone) {
    media.setReply("status audiomp3 length", {5, "No length."});
    put(song());
    at(5100, [this] { media.setReply("status audiomp3 position", {5, "No position."}); });
    press(1);
    EXPECT_EQ(time.tickCount(), 5500);
    EXPECT_EQ(studio.recorder.MediaFrames, "-1");
    EXPECT_EQ(window().Status.text(), "");
}

TEST_F(AudioPlayerTest, AProgressGoesWithAPositionThatIsGone) {
    put(song());
    std::string before;
    at(5100, [&] {
        before = window().Status.text();
        media.setReply("status audiomp3 position", {5, "No position."});
    });
    press(1);
    EXPECT_EQ(before, "50 %");
    EXPECT_EQ(window().Status.text(), "");
}

TEST_F(AudioPlayerTest, PlayInTheMiddleOfAPlayBeginsAnew) {
    put(song());
    at(2000, [this] { press(1); });
    press(1);
    EXPECT_GE(time.tickCount(), 12000);
    EXPECT_LE(time.tickCount(), 12500);
}

TEST_F(AudioPlayerTest, TheWindowMayCloseWhileAFilePlays) {
    put(song());
    at(2000, [this] { recorder().window.Form_Unload(); });
    press(1);
    EXPECT_LE(time.tickCount(), 2500);
    EXPECT_EQ(commands().back().substr(0, 17), "\"status audiomp3 ");
}

// Opening by a dialog

TEST_F(AudioPlayerTest, TheDialogTakesAFileToPlayAndHidesTheToolWindows) {
    const std::string file = song();
    dialogs.queueChoice({file, 1});
    toolWindows.calls.clear();
    press(0);
    EXPECT_EQ(dialogs.takeFileDialogs(),
              (Lines{"dialog open \"Open File\" \"Midi, score, wav, "
                     "mp3(*.sng;*.mid;*.wav;*mp3)|*.sng;*.mid;*.wav;*mp3\" \"\""}));
    EXPECT_EQ(toolWindows.calls, (Lines{"hide 2", "show 2"}));
    EXPECT_EQ(commands(),
              (Lines{"\"Close All\" -> 0 \"\"", "\"Close audiomp3\" -> 263 \"The device is not open.\"",
                     "\"Close All\" -> 0 \"\""}));
    EXPECT_EQ(window().Text6.text(), file);
    EXPECT_TRUE(window().Optsourcemid.ticked());
    press(0);
    EXPECT_EQ(window().Text6.text(), file);
}

TEST_F(AudioPlayerTest, ACaptureOutlivesADialogAndTheTutorialsOpen) {
    window().Optsourcekeyboard.userPut(Value(1LL));
    window().CmdrecordSNG.userPut(Value(1LL));
    commands();
    recorder().buttons.Cmd2_Click(0);
    recorder().dialogs.C4_Click();
    EXPECT_EQ(commands(), Lines(2, "\"Close audiomp3\" -> 263 \"The device is not open.\""));
    window().CmdStopRecording.userPut(Value(1LL));
    EXPECT_EQ(recordings().size(), 1U);
}

TEST_F(AudioPlayerTest, AScoreGoesOntoTheTablet) {
    const std::string score = std::string(MELVANE_RESOURCES) + "/scores/101.sng";
    window().Optsourcemid.userPut(Value(1LL));
    dialogs.queueChoice({score, 1});
    sent();
    press(0);
    EXPECT_TRUE(window().Optsourcesng.ticked());
    EXPECT_EQ(window().Text6.text(), score);
    EXPECT_EQ(sent(), (Lines{"close"}));
    bool hasNotes = false;
    for (int column = 0; column < 1000; ++column)
        hasNotes = hasNotes || studio.score.noteCell(0, column) >= 0;
    EXPECT_TRUE(hasNotes);
}

TEST_F(AudioPlayerTest, TheTutorialsOpenChoosesTheSource) {
    dialogs.queueChoice({write("a.mid", "x"), 1});
    recorder().dialogs.C4_Click();
    EXPECT_TRUE(window().Optsourcemid.ticked());
    dialogs.queueChoice({std::string(MELVANE_RESOURCES) + "/scores/101.sng", 1});
    recorder().dialogs.C4_Click();
    EXPECT_TRUE(window().Optsourcesng.ticked());
    EXPECT_EQ(studio.instruments.MelodyInstrument, 24);
}

// What the first bytes say

TEST_F(AudioPlayerTest, TheHeaderIsReadByItsReversedFields) {
    struct Case {
        std::array<unsigned char, 4> bytes;
        const char *kilohertz, *kilobits, *mode;
    };
    const Case cases[] = {
        {{0xFF, 0xFB, 0x90, 0x64}, "44", "128", "stereo"}, {{0xFF, 0xFB, 0xE4, 0xC0}, "48", "320", "mono"},
        {{0xFF, 0xFB, 0x18, 0x80}, "32", "32", "stereo"},  {{0xFF, 0xFB, 0xB0, 0x00}, "44", "192", "stereo"},
        {{0xFF, 0xFB, 0x0C, 0xFF}, "", "0", "mono"},       {{0x52, 0x49, 0x46, 0x46}, "48", "56", "stereo"}};
    for (const auto& entry : cases) {
        const Mp3Header header = readMp3Header(entry.bytes);
        EXPECT_EQ(header.kilohertz, entry.kilohertz);
        EXPECT_EQ(header.kilobits, entry.kilobits);
        EXPECT_EQ(header.mode, entry.mode);
    }
}

TEST_F(AudioPlayerTest, AllBitratesAreThoseOfTheStandardsTable) {
    const char* const standard[] = {"0",   "32",  "40",  "48",  "56",  "64",  "80",  "96",
                                    "112", "128", "160", "192", "224", "256", "320", "0"};
    for (unsigned index = 0; index < 16; ++index) {
        const std::array<unsigned char, 4> bytes{0xFF, 0xFB, static_cast<unsigned char>(index << 4), 0};
        EXPECT_EQ(readMp3Header(bytes).kilobits, standard[index]);
    }
}

TEST_F(AudioPlayerTest, AFileOfThreeBytesHasNoProperties) {
    recorder().audio.OpenMP3(write("short.mp3", "\xFF\xFB\x90"), "audiomp3");
    EXPECT_EQ(window().lblKhz.text() + window().lblbitrate.text() + window().lblmode.text(), "");
    EXPECT_EQ(firstBytes(folder.path().string()), std::nullopt);
}

TEST_F(AudioPlayerTest, TimesHaveTwoDigitsOrMore) {
    EXPECT_EQ(convertTime(0), "00:00:00");
    EXPECT_EQ(convertTime(3661), "01:01:01");
    EXPECT_EQ(convertTime(360000), "100:00:00");
    EXPECT_EQ(minutesText(3599), "59:59");
    EXPECT_EQ(percentText(0, 300), " %");
    EXPECT_EQ(percentText(1, 300), " %");
    EXPECT_EQ(percentText(2, 3), "67 %");
}

TEST_F(AudioPlayerTest, TheLogKeepsItsLastLinesWhenItIsLong) {
    for (int line = 0; line < 30000; ++line) recorder().log.add("a line of forty characters and some more");
    recorder().log.add("the last");
    EXPECT_LE(window().Text2.text().size(), 1'000'000U);
    EXPECT_TRUE(window().Text2.text().starts_with("00:00:0"));
    EXPECT_TRUE(window().Text2.text().ends_with("  the last\n"));
}

}  // namespace
}  // namespace melvane::test
