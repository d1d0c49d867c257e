#include "recording_run_fixture.h"

// Every message of a recording, in the order in which the user sees it.

namespace melvane::test {
namespace {

using RecorderTextsTest = RecordingRunTest;

TEST_F(RecorderTextsTest, ARecordingOfTheScoreTellsEachOfItsSteps) {
    record();
    const std::string name = recordings().at(0);
    EXPECT_EQ(shown(), (Lines{"\nRecording to a Temp file: " + name, "Recording", "Recording Stopped!",
                              "File Can be saved", "File was saved as " + name, "Recording buffer Deleted! ",
                              "Recording Closed ", "Recording Stopped!"}));
}

TEST_F(RecorderTextsTest, TheNameIsShownBeforeTheRecordingBegins) {
    Lines beginning;
    at(0, [&] {
        beginning = {erbox().substr(0, 27), window().CmdrecordSNG.enabled() ? "idle" : "recording",
                     window().InputPath.text() == window().Text6.text() ? "same" : "other"};
    });
    record();
    EXPECT_EQ(beginning, (Lines{"\nRecording to a Temp file: ", "idle", "same"}));
}

TEST_F(RecorderTextsTest, ARecordingOfAFileTellsEachOfItsSteps) {
    chooseMidi(midiFile());
    record();
    const std::string name = recordings().at(0);
    EXPECT_EQ(shown(),
              (Lines{"Recording source is 'File'. Opening File...", "\nRecording to a Temp file: " + name,
                     "Recording", "File Opened", "Music Stopped", "Music File closed.", "Recording Stopped!",
                     "File Can be saved", "File was saved as " + name, "Recording buffer Deleted! ",
                     "Recording Closed ", "Recording Stopped!"}));
}

TEST_F(RecorderTextsTest, WithoutAFileItAsksForANameAndIsCancelled) {
    chooseMidi("");
    record();
    EXPECT_EQ(shown(), (Lines{"Recording source is 'File'. Opening File...",
                              "You must enter a File Name to start recording", "Recording Cancelled"}));
    EXPECT_TRUE(window().CmdrecordSNG.enabled());
}

TEST_F(RecorderTextsTest, ASourceThatTurnsIntoTheNotesIsRecordedAsSuch) {
    chooseMidi(midiFile());
    Lines told;
    window().Erbox.changed = [&] {
        told.push_back(erbox());
        if (told.size() == 1) window().Optsourcesng.userPut(Value(1LL));
    };
    record();
    ASSERT_GE(told.size(), 2U);
    EXPECT_EQ(told[1], "Recording source is 'Notes'...");
    EXPECT_EQ(logged().at(0), "Started playing notes");
    EXPECT_EQ(recordings().size(), 1U);
}

TEST_F(RecorderTextsTest, WithoutAFolderItIsCancelled) {
    std::filesystem::remove_all(folder.path() / "Songs");
    write("Songs", "in the way");
    record();
    EXPECT_EQ(shown(), (Lines{"Can't find input directory. Recording Cancelled"}));
}

TEST_F(RecorderTextsTest, EachRefusalOfTheDeviceIsTold) {
    media.setReply("set capture", {5, "No such format."});
    media.setReply("close capture ", {6, "In use."});
    record();
    EXPECT_EQ(shown(),
              (Lines{"\nRecording to a Temp file: " + window().InputPath.text(), "Recording",
                     "Error setting recording paramaters",
                     "Error: Can't close recording device. Try restarting Melvane", "Recording Stopped!",
                     "File Can be saved", "File was saved as " + window().InputPath.text(),
                     "Recording buffer Deleted! ", "Recording Closed ", "Recording Stopped!"}));
}

TEST_F(RecorderTextsTest, ACaptureThatIsClosedAfterItsFormatWasRefusedIsTold) {
    media.setReply("set capture", {5, "No such format."});
    record();
    EXPECT_EQ(shown(), (Lines{"\nRecording to a Temp file: " + window().InputPath.text(), "Recording",
                              "Error setting recording paramaters", "Closed", "Stopping recording failed!",
                              "File Cannot be saved", "File was NOT saved",
                              "Deleting Recording buffer failed!The device is not open.",
                              "Closing Recording  failed! ", "Recording Stopped!"}));
}

TEST_F(RecorderTextsTest, ARecordThatTheDeviceRefusesIsNotNoticed) {
    media.setReply("record capture", {5, "It does not record."});
    record();
    EXPECT_EQ(shown().at(1), "Recording");
    EXPECT_EQ(logged().at(0), "Started playing notes");
    EXPECT_EQ(erbox(), "Recording Stopped!");
    EXPECT_EQ(recordings().size(), 1U);
}

TEST_F(RecorderTextsTest, TheLogHasTheTimeTwoBlanksAndTheMessage) {
    time.waitUntil(time.counter() + 3661 * time.frequency());
    recorder().log.showAndAdd("a message");
    EXPECT_EQ(window().Text2.text(), "01:01:01  a message\n");
    EXPECT_EQ(erbox(), "a message");
}

// The formats

TEST_F(RecorderTextsTest, EachFormatReachesTheDeviceWithAllItsNumbers) {
    const std::pair<const char*, const char*> rows[] = {
        {"22.050Hz, 8bit Mono, 21k/sec", "22050 channels 1 bitspersample 8 alignment 1 bytespersec 22050"},
        {"22.050Hz, 8bit Stereo, 43k/sec", "22050 channels 2 bitspersample 8 alignment 2 bytespersec 44100"},
        {"22.050Hz, 16bit Mono, 43k/sec", "22050 channels 1 bitspersample 16 alignment 2 bytespersec 44100"},
        {"22.050Hz, 16bit Stereo, 86k/sec",
         "22050 channels 2 bitspersample 16 alignment 4 bytespersec 88200"},
        {"44.100Hz, 8bit Mono, 43k/sec", "44100 channels 1 bitspersample 8 alignment 1 bytespersec 44100"},
        {"44.100Hz, 8bit Stereo, 86k/sec", "44100 channels 2 bitspersample 8 alignment 2 bytespersec 88200"},
        {"44.100Hz, 16bit Mono, 86k/sec", "44100 channels 1 bitspersample 16 alignment 2 bytespersec 88200"},
        {"44.100Hz, 16bit Stereo, 172k/sec",
         "44100 channels 2 bitspersample 16 alignment 4 bytespersec 176400"},
        {"48.000Hz, 16bit Stereo, 192k/sec",
         "48000 channels 2 bitspersample 16 alignment 4 bytespersec 192000"},
        {"48.000Hz, 16bit Stereo, 191k/sec", "0 channels 0 bitspersample 0 alignment 0 bytespersec 0"},
        {"", "0 channels 0 bitspersample 0 alignment 0 bytespersec 0"}};
    for (const auto& [text, numbers] : rows) {
        window().cbxFormat.fill({text});
        window().cbxFormat.set(0);
        record();
        EXPECT_TRUE(
            commands().at(1).starts_with(std::string("\"set capture samplespersec ") + numbers + "\""))
            << text;
    }
}

}  // namespace
}  // namespace melvane::test
