#include <stdexcept>

#include "recording_run_fixture.h"

namespace melvane::test {
namespace {

using RecordingSourcesTest = RecordingRunTest;

// The keyboard

TEST_F(RecordingSourcesTest, TheKeyboardIsCapturedUntilTheStopAndNotEncoded) {
    window().Check2.set(true);
    makeLibraries();
    window().Optsourcekeyboard.userPut(Value(1LL));
    toolWindows.calls.clear();
    record();
    EXPECT_EQ(toolWindows.calls, (Lines{"load frmsynth"}));
    EXPECT_TRUE(window().CmdStopRecording.enabled());
    EXPECT_EQ(window().Label8.text(), "Recording");
    EXPECT_TRUE(recordings().empty());
    time.waitUntil(time.counter() + 3 * time.frequency());
    press(window().CmdStopRecording);
    ASSERT_EQ(recordings().size(), 1U);
    EXPECT_EQ(std::filesystem::file_size(recordings()[0]), 44U + 3U * 176400U);
    time.waitUntil(time.counter() + 5 * time.frequency());
    EXPECT_EQ(recordings().size(), 1U);
    EXPECT_EQ(window().Label8.text(), "");
}

TEST_F(RecordingSourcesTest, TheKeyboardsCaptureIsKeptWhenTheSourceIsChangedBeforeTheStop) {
    window().Optsourcekeyboard.userPut(Value(1LL));
    record();
    window().Optsourcemid.userPut(Value(1LL));
    press(window().CmdStopRecording);
    EXPECT_EQ(recordings().size(), 1U);
}

TEST_F(RecordingSourcesTest, AFileThatIsPlayedMeanwhileLeavesTheStopInReach) {
    const std::string song = write("song.mp3", "any");
    window().Text6.set(song);
    at(1000, [this] {
        window().Optsourcekeyboard.userPut(Value(1LL));
        record();
    });
    recorder().audio.OpenMP3(song, MciCommands::player);
    recorder().audio.PlayMP3();  // to its end
    EXPECT_TRUE(window().CmdStopRecording.enabled());
    EXPECT_FALSE(window().CmdrecordSNG.enabled());
    press(window().CmdStopRecording);
    EXPECT_EQ(recordings().size(), 1U);
    EXPECT_TRUE(window().CmdrecordSNG.enabled());
}

TEST_F(RecordingSourcesTest, TheKeyboardsToolbarOpensTheRecorderWithItsSource) {
    toolWindows.calls.clear();
    engine.keyboard.window.Cmd2_Click(5);
    EXPECT_EQ(toolWindows.calls, (Lines{"load Record"}));
    EXPECT_TRUE(window().Optsourcekeyboard.ticked());
    EXPECT_FALSE(window().Optsourcesng.ticked());
}

TEST_F(RecordingSourcesTest, TheKeyboardsRunBeginsWithoutAProgress) {
    window().Status.set("42 %");
    window().Optsourcekeyboard.userPut(Value(1LL));
    record();
    EXPECT_EQ(window().Status.text(), "");
}

// A MIDI file

TEST_F(RecordingSourcesTest, AMidiFileIsPlayedThroughTheDeviceWhileItIsCaptured) {
    const std::string file = midiFile();
    chooseMidi(file);
    record();
    const auto sentCommands = commands();
    EXPECT_EQ(sentCommands[0], "\"open new type waveaudio alias capture\" -> 0 \"1\"");
    EXPECT_EQ(sentCommands[3],
              "\"open " + file + " type MPEGVideo Alias audiomp3 parent 0 Style 1073741824\" -> 0 \"1\"");
    ASSERT_EQ(recordings().size(), 1U);
    EXPECT_EQ(window().Text6.text(), recordings()[0]);
    EXPECT_EQ(std::filesystem::file_size(recordings()[0]), 44U + 10U * 176400U);
    EXPECT_TRUE(exists(file));
    EXPECT_EQ(erbox(), "Recording Stopped!");
    EXPECT_TRUE(window().CmdrecordSNG.enabled());
}

TEST_F(RecordingSourcesTest, TheStopOfAMidiRecordingIsRunTwice) {
    chooseMidi(midiFile());
    at(2100, [this] { press(window().CmdStopRecording); });
    record();
    EXPECT_EQ(logged(), (Lines{"File Opened", "Started playing file", "Recording Stopped!", "Music Stopped",
                               "Music File closed.", "Recording Stopped!", "File Can be saved",
                               "File was saved as " + recordings().at(0), "Recording buffer Deleted! ",
                               "Recording Closed "}));
    EXPECT_EQ(time.tickCount(), 2500);
    // The first stop has halted the capture.
    EXPECT_EQ(std::filesystem::file_size(recordings()[0]), 44U + 21U * 17640U);
}

TEST_F(RecordingSourcesTest, BetweenTheTwoStopsTheStopStaysInReachAndNothingElse) {
    chooseMidi(midiFile());
    std::string between;
    at(2100, [this] { press(window().CmdStopRecording); });
    at(2200, [&] {
        between = std::to_string(window().CmdrecordSNG.enabled()) +
                  std::to_string(window().CmdStopRecording.enabled()) +
                  std::to_string(window().Picture7.enabled()) + window().Label8.text() +
                  std::to_string(studio.player.RecordingSong);
        press(window().CmdStopRecording);
    });
    record();
    EXPECT_EQ(between, "010Recording0");
    EXPECT_EQ(recordings().size(), 1U);
    EXPECT_EQ(std::ranges::count(logged(), "File Can be saved"), 1);
    EXPECT_TRUE(window().CmdrecordSNG.enabled());
}

TEST_F(RecordingSourcesTest, AnotherSourceThanAMidiFileOpensTheDialog) {
    const std::string file = midiFile();
    chooseMidi(folder.file("song.wav"));
    dialogs.queueChoice({file, 1});
    record();
    EXPECT_EQ(dialogs.takeFileDialogs(),
              (Lines{"dialog open \"Open MIDI File\" \"Midi(*.mid)|*.mid\" \"\""}));
    EXPECT_EQ(recordings().size(), 1U);
}

TEST_F(RecordingSourcesTest, WithoutAMidiFileTheRunIsCancelled) {
    chooseMidi("");
    record();
    EXPECT_EQ(erbox(), "Recording Cancelled");
    EXPECT_EQ(commands(),
              (Lines{"\"Close audiomp3\" -> 263 \"The device is not open.\"", "\"Close All\" -> 0 \"\""}));
    chooseMidi(folder.file("none.MID"));
    record();
    EXPECT_EQ(erbox(), "Recording Cancelled");
    EXPECT_TRUE(dialogs.takeFileDialogs().size() == 1);
    EXPECT_TRUE(window().CmdrecordSNG.enabled());
}

TEST_F(RecordingSourcesTest, AMidiFileThatDoesNotOpenLeavesASavedCaptureOfNothing) {
    media.setReply("open " + folder.file("song.mid"), {9, "It is broken."});
    chooseMidi(midiFile());
    record();
    const auto messages = logged();
    EXPECT_EQ(messages[0], "Error: Can't open this file. Try another file.");
    EXPECT_EQ(messages[1], "The device is not open.");
    EXPECT_EQ(recordings().size(), 1U);
    EXPECT_EQ(studio.player.RecordingSong, false);
}

/// A device that fails at one command as no device should.
class ThrowingDevice final : public MediaDevice {
 public:
    explicit ThrowingDevice(std::string command) : command_(std::move(command)) {}
    Answer send(const std::string& command) override {
        if (command.starts_with(command_)) throw std::runtime_error("broken");
        return {};
    }

 private:
    std::string command_;
};

TEST_F(RecordingSourcesTest, AFailureInAMidiRunCancelsIt) {
    ThrowingDevice broken("play ");
    Outside world{time,    time,  port,    broken,
                  desktop, store, dialogs, Directories{folder.path(), MELVANE_RESOURCES}};
    Studio other;
    Engine program(other, world, surfaces, frame, toolWindows);
    program.startUp.Form_Load();
    program.recorder.window.Form_Load();
    other.Record.Optsourcemid.userPut(Value(1LL));
    other.Record.Text6.set(midiFile());
    Lines told;
    other.Record.Erbox.changed = [&] { told.push_back(other.Record.Erbox.text()); };
    program.recorder.run.CmdrecordSNG_Click();
    ASSERT_GE(told.size(), 2U);
    EXPECT_EQ(Lines(told.end() - 2, told.end()), (Lines{"An error occurred.", "Recording Cancelled"}));
    EXPECT_NE(other.Record.Text2.text().find("Music Stopped"), std::string::npos);
    EXPECT_NE(other.Record.Text2.text().find("Music File closed."), std::string::npos);
    EXPECT_TRUE(other.Record.CmdrecordSNG.enabled());
}

TEST_F(RecordingSourcesTest, AFailureInARunOfAnotherSourceLeavesThePlayer) {
    ThrowingDevice broken("record capture");
    Outside world{time,    time,  port,    broken,
                  desktop, store, dialogs, Directories{folder.path(), MELVANE_RESOURCES}};
    Studio other;
    Engine program(other, world, surfaces, frame, toolWindows);
    program.startUp.Form_Load();
    program.recorder.window.Form_Load();
    Lines told;
    other.Record.Erbox.changed = [&] { told.push_back(other.Record.Erbox.text()); };
    program.recorder.run.RecordWavFromMid();
    ASSERT_GE(told.size(), 2U);
    EXPECT_EQ(Lines(told.end() - 2, told.end()), (Lines{"An error occurred.", "Recording Cancelled"}));
    EXPECT_EQ(other.Record.Text2.text(), "");
    EXPECT_FALSE(other.recorder.PlayerStopped);
    EXPECT_TRUE(other.Record.CmdrecordSNG.enabled());
}

}  // namespace
}  // namespace melvane::test
