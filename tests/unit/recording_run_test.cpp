#include "recorder/recording_run.h"

#include "file_size_limit.h"
#include "recorder/recording_name.h"
#include "recording_run_fixture.h"

namespace melvane::test {
namespace {

TEST_F(RecordingRunTest, AScoreIsCapturedFromItsStartToItsEnd) {
    record();
    const auto files = recordings();
    ASSERT_EQ(files.size(), 1U);
    EXPECT_EQ(
        commands(),
        (Lines{"\"open new type waveaudio alias capture\" -> 0 \"1\"",
               "\"set capture samplespersec 44100 channels 2 bitspersample 16 alignment 4 bytespersec "
               "176400\" -> 0 \"\"",
               "\"record capture\" -> 0 \"\"", "\"stop capture\" -> 0 \"\"",
               "\"capability capture can save\" -> 0 \"true\"", "\"save capture " + files[0] + "\" -> 0 \"\"",
               "\"delete capture\" -> 0 \"\"", "\"close capture\" -> 0 \"\"", "\"Close All\" -> 0 \"\""}));
    auto messages = savedMessages;
    messages[3] += files[0];
    EXPECT_EQ(logged(), messages);
    EXPECT_EQ(window().Text6.text(), files[0]);
    EXPECT_EQ(window().InputPath.text(), files[0]);
    EXPECT_EQ(window().OutPutPath.text(), files[0].substr(0, files[0].size() - 4) + ".mp3");
    EXPECT_EQ(erbox(), "Recording Stopped!");
    EXPECT_EQ(window().Label8.text(), "");
    // Columns 0 to 3 and the wait behind them, 138 ms each.
    EXPECT_EQ(std::filesystem::file_size(files[0]), 44U + 5U * 44100U * 138U / 1000U * 4U);
}

TEST_F(RecordingRunTest, TheButtonsTellTheState) {
    const auto state = [this] {
        return std::to_string(window().CmdrecordSNG.enabled()) +
               std::to_string(window().CmdStopRecording.enabled()) +
               std::to_string(window().Command20.enabled()) + std::to_string(window().Picture7.enabled()) +
               window().Label8.text() + std::to_string(studio.player.RecordingSong);
    };
    EXPECT_EQ(state(), "1011Stopped0");
    std::string during;
    at(100, [&] { during = state(); });
    record();
    EXPECT_EQ(during, "0100Recording1");
    EXPECT_EQ(state(), "10110");
    EXPECT_TRUE(studio.recorder.StopRequested);
}

TEST_F(RecordingRunTest, TheStopButtonSavesAndEndsThePlaybackWithoutASecondStop) {
    write(0, 500, 60, 1);
    at(1000, [this] { press(window().CmdStopRecording); });
    record();
    EXPECT_EQ(recordings().size(), 1U);
    EXPECT_FALSE(studio.player.Playing);
    EXPECT_LT(time.tickCount(), 2000);
    const auto messages = logged();
    EXPECT_EQ(std::ranges::count(messages, "Recording Stopped!"), 1);
    EXPECT_EQ(std::ranges::count(messages, "Stopping recording failed!"), 0);
}

TEST_F(RecordingRunTest, WhatIsPlayingIsSilencedFirst) {
    sent();
    record();
    const auto messages = sent();
    ASSERT_GE(messages.size(), 2U);
    EXPECT_EQ(messages[0], "reset");
    EXPECT_EQ(messages[1], "close");
}

TEST_F(RecordingRunTest, TwoRunsHaveTwoNamesWithinOneTickToo) {
    RecordingName names;
    const auto first = names.next("Songs", 5), second = names.next("Songs", 5);
    EXPECT_NE(first, second);
    EXPECT_EQ(RecordingName().next("Songs", 5), first);
    record();
    record();
    EXPECT_EQ(recordings().size(), 2U);
}

TEST_F(RecordingRunTest, AllNamesAreNumbersFromOneTo99999) {
    RecordingName names;
    for (int moment = 0; moment < 5000; ++moment) {
        const std::string name = names.next("", moment);
        ASSERT_TRUE(name.ends_with(".wav"));
        const int number = std::stoi(name);
        ASSERT_GE(number, 1);
        ASSERT_LE(number, 99999);
    }
}

TEST_F(RecordingRunTest, AnOlderFileOfTheSameNameIsDeletedWithoutAQuestion) {
    const auto name = RecordingName().next(folder.file("Songs"), time.counter());
    std::ofstream(name) << "old";
    media.setReply("save capture", {7, "The disk is full."});
    record();
    EXPECT_FALSE(exists(name));
    EXPECT_TRUE(dialogs.takeBoxes().empty());
    EXPECT_EQ(window().Text6.text(), name);
}

TEST_F(RecordingRunTest, AFileOfTheNameIsDeletedBeforeTheNameIsShownAndOnceMoreAfterwards) {
    const auto name = RecordingName().next(folder.file("Songs"), time.counter());
    std::ofstream(name) << "old";
    bool whenNamed = true, whileCaptured = true;
    at(0, [&] {
        whenNamed = exists(name);
        std::ofstream(name) << "newer";
    });
    at(100, [&] { whileCaptured = exists(name); });
    record();
    EXPECT_FALSE(whenNamed);
    EXPECT_FALSE(whileCaptured);
    EXPECT_EQ(recordings(), (Lines{name}));
}

TEST_F(RecordingRunTest, AFileThatTakesTheNameDuringTheCaptureIsDeletedThoughTheSaveFails) {
    media.setReply("save capture", {7, "The disk is full."});
    bool made = false;
    at(200, [&] {
        std::ofstream(window().InputPath.text()) << "other";
        made = recordings().size() == 1;
    });
    record();
    EXPECT_TRUE(made);
    EXPECT_TRUE(recordings().empty());
}

TEST_F(RecordingRunTest, TheFirstFourLettersTellWhetherItCanBeSaved) {
    const std::pair<const char*, const char*> answers[] = {{"true, and more", "File Can be saved"},
                                                           {"tru", "File Cannot be saved"},
                                                           {"it is true", "File Cannot be saved"}};
    for (const auto& [answer, message] : answers) {
        media.setReply("capability capture", {0, answer});
        record();
        EXPECT_EQ(logged().at(2), message) << answer;
    }
}

TEST_F(RecordingRunTest, AFailedSaveIsToldAndLeavesNoFile) {
    media.setReply("save capture", {7, "The disk is full."});
    record();
    EXPECT_TRUE(recordings().empty());
    const auto messages = logged();
    EXPECT_EQ(messages[3], "File was NOT saved");
    EXPECT_EQ(messages[4], "The disk is full.");
    EXPECT_EQ(window().InputPath.text(), window().Text6.text());
    EXPECT_TRUE(window().CmdrecordSNG.enabled());
}

TEST_F(RecordingRunTest, ADiskThatIsFullAtTheSaveIsToldAndTheNextRunIsSaved) {
    {
        const FileSizeLimit limit(4096);
        record();
    }
    EXPECT_TRUE(recordings().empty());
    auto messages = logged();
    EXPECT_EQ(messages.at(3), "File was NOT saved");
    EXPECT_FALSE(messages.at(4).empty());
    EXPECT_EQ(messages.at(5), "Recording buffer Deleted! ");
    EXPECT_EQ(messages.at(6), "Recording Closed ");
    EXPECT_TRUE(window().CmdrecordSNG.enabled());
    record();
    EXPECT_EQ(recordings().size(), 1U);
}

TEST_F(RecordingRunTest, EachFailureOfTheDeviceIsToldWithItsText) {
    media.setReply("stop capture", {1, "Not recording."});
    media.setReply("capability capture", {0, "false"});
    media.setReply("delete capture", {2, "Nothing there."});
    media.setReply("close capture", {3, "In use."});
    record();
    const auto messages = logged();
    EXPECT_EQ(messages[1], "Stopping recording failed!");
    EXPECT_EQ(messages[2], "Not recording.");
    EXPECT_EQ(messages[3], "File Cannot be saved");
    EXPECT_EQ(messages[5], "Deleting Recording buffer failed!Nothing there.");
    EXPECT_EQ(messages[6], "Closing Recording  failed! ");
    EXPECT_EQ(recordings().size(), 1U);  // it is saved in both cases
}

TEST_F(RecordingRunTest, ADeviceThatDoesNotOpenIsToldInABoxAndTheRunGoesOn) {
    media.setReply("open new", {4, "No card."});
    record();
    EXPECT_EQ(dialogs.takeBoxes(), (Lines{"box critical \"Melvane\" \"Error opening waveaudio\""}));
    EXPECT_EQ(erbox(), "Recording Stopped!");
    EXPECT_TRUE(recordings().empty());
}

TEST_F(RecordingRunTest, AFormatThatIsRefusedClosesTheCaptureAndTheStopFailsInItsTurn) {
    std::string told;
    media.setReply("set capture", {5, "No such format."});
    at(50, [&] { told = erbox(); });
    record();
    EXPECT_EQ(told, "Closed");
    const auto sentCommands = commands();
    EXPECT_EQ(sentCommands[2], "\"close capture \" -> 0 \"\"");
    EXPECT_EQ(sentCommands[3], "\"stop capture\" -> 263 \"The device is not open.\"");
    EXPECT_EQ(logged(),
              (Lines{"No such format.", "Started playing notes", "Stopping recording failed!",
                     "The device is not open.", "File Cannot be saved", "File was NOT saved",
                     "The device is not open.", "Deleting Recording buffer failed!The device is not open.",
                     "Closing Recording  failed! "}));
}

TEST_F(RecordingRunTest, ACaptureThatCannotBeClosedIsToldOf) {
    media.setReply("set capture", {5, "No such format."});
    media.setReply("close capture ", {6, "In use."});
    std::string told;
    at(50, [&] { told = erbox(); });
    record();
    EXPECT_EQ(told, "Error: Can't close recording device. Try restarting Melvane");
}

TEST_F(RecordingRunTest, WithoutAFormatAllNumbersAreNought) {
    window().cbxFormat.set(-1);
    record();
    EXPECT_TRUE(commands()[1].starts_with(
        "\"set capture samplespersec 0 channels 0 bitspersample 0 alignment 0 bytespersec 0\""));
}

TEST_F(RecordingRunTest, AChoiceOfTheFormatIsWrittenIntoTheSettings) {
    for (int index = 0; index < 5; ++index) {
        window().cbxFormat.userPut(Value(static_cast<long long>(index)));
        EXPECT_EQ(store.read("WAV format"), std::to_string(index));
    }
}

TEST_F(RecordingRunTest, TheFolderOfRecordingsIsMadeWhenItIsMissing) {
    std::filesystem::remove_all(folder.path() / "Songs");
    record();
    EXPECT_EQ(recordings().size(), 1U);
}

TEST_F(RecordingRunTest, WithoutAFolderTheRunIsCancelled) {
    std::filesystem::remove_all(folder.path() / "Songs");
    std::ofstream(folder.file("Songs")) << "in the way";
    record();
    EXPECT_EQ(erbox(), "Can't find input directory. Recording Cancelled");
    EXPECT_EQ(studio.recorder.SongsDir, folder.file("Songs"));
    EXPECT_EQ(commands(), Lines{});
    std::filesystem::remove(folder.file("Songs"));
    studio.recorder.SongsDir = folder.file("none/below");
    record();
    EXPECT_EQ(erbox(), "Can't find input directory. Recording Cancelled");
    EXPECT_EQ(studio.recorder.SongsDir, "");
}

TEST_F(RecordingRunTest, AFolderRemovedDuringARecordingIsMadeAnewForIt) {
    at(200, [this] { std::filesystem::remove_all(folder.path() / "Songs"); });
    record();
    EXPECT_EQ(recordings().size(), 1U);
    EXPECT_TRUE(window().CmdrecordSNG.enabled());
}

TEST_F(RecordingRunTest, AFolderThatCannotBeMadeAnewIsToldOf) {
    at(200, [this] {
        std::filesystem::remove_all(folder.path() / "Songs");
        std::ofstream(folder.file("Songs")) << "in the way";
    });
    record();
    const auto messages = logged();
    EXPECT_EQ(messages[3], "File was NOT saved");
    EXPECT_NE(messages[4], "Recording buffer Deleted! ");  // the reason
    EXPECT_TRUE(window().CmdrecordSNG.enabled());
}

TEST_F(RecordingRunTest, ThePositionIsShownAsTheTickSaysUntilTheWindowCloses) {
    studio.shell.Form2Open = true;
    window().Check4.set(false);
    record();
    EXPECT_FALSE(studio.player.ShowPlayingPosition);
    EXPECT_FALSE(studio.Form2.chkgraphics.ticked());
    EXPECT_EQ(studio.Form2.ImgPic[9].picture(), studio.Form2.ImgLine[1].picture());
    recorder().window.Form_Unload();
    EXPECT_TRUE(studio.player.ShowPlayingPosition);
    recorder().window.Form_Load();
    window().Check2.set(false);
    EXPECT_FALSE(window().Check4.ticked());
    window().Check4.set(true);
    studio.player.ShowPlayingPosition = false;
    record();
    EXPECT_TRUE(studio.player.ShowPlayingPosition);
    EXPECT_TRUE(studio.Form2.chkgraphics.ticked());
}

TEST_F(RecordingRunTest, AToolbarThatIsClosedKeepsItsTick) {
    studio.shell.Form2Open = false;
    for (const bool kept : {false, true}) {
        studio.Form2.chkgraphics.set(kept);
        window().Check4.set(!kept);
        record();
        EXPECT_EQ(studio.player.ShowPlayingPosition, !kept);
        EXPECT_EQ(studio.Form2.chkgraphics.ticked(), kept);
    }
}

TEST_F(RecordingRunTest, TheProgressBarFollowsTheSong) {
    std::string middle;
    int width = 0;
    at(300, [&] {
        middle = window().Status.text();
        width = window().L2.width();
    });
    record();
    EXPECT_EQ(middle, "67 %");
    EXPECT_EQ(width, 160);
    EXPECT_EQ(window().L2.width(), 1);
    EXPECT_EQ(window().Status.text(), "");
}

}  // namespace
}  // namespace melvane::test
