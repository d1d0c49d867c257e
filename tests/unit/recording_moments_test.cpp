#include "recording_run_fixture.h"

namespace melvane::test {
namespace {

using RecordingMomentsTest = RecordingRunTest;

TEST_F(RecordingMomentsTest, AStartInTheMiddleOfARunIsPassedOver) {
    at(200, [this] { recorder().run.CmdrecordSNG_Click(); });
    at(210, [this] { recorder().run.RecordWav(); });
    at(220, [this] { recorder().run.RecordWavFromMid(); });
    record();
    EXPECT_EQ(recordings().size(), 1U);
    EXPECT_EQ(logged().size(), savedMessages.size());
}

TEST_F(RecordingMomentsTest, AStopWithoutACaptureFailsAndLeavesTheLastRecordingAlone) {
    record();
    const auto files = recordings();
    recorder().run.CmdStopRecording_Click();
    EXPECT_EQ(recordings(), files);
    const auto messages = logged();
    EXPECT_EQ(messages[savedMessages.size()], "Stopping recording failed!");
    EXPECT_EQ(messages[savedMessages.size() + 3], "File was NOT saved");
}

TEST_F(RecordingMomentsTest, ATempoThatPlaysNothingLeavesNoCaptureBehind) {
    studio.score.Tempo = 1;
    record();
    EXPECT_EQ(recordings().size(), 1U);
    EXPECT_FALSE(studio.player.RecordingSong);
    EXPECT_TRUE(window().CmdrecordSNG.enabled());
}

TEST_F(RecordingMomentsTest, APausedScoreIsRecordedToItsEndWhenItGoesOn) {
    window().Check2.set(true);
    write(0, 20, 60, 1);
    at(1000, [this] { studio.player.PauseRequested = true; });
    record();
    EXPECT_TRUE(window().CmdStopRecording.enabled());
    EXPECT_TRUE(recordings().empty());
    engine.player.PlayAndStop_Click(0);
    EXPECT_EQ(recordings().size(), 1U);
    EXPECT_TRUE(window().CmdrecordSNG.enabled());
}

TEST_F(RecordingMomentsTest, TheWindowMayCloseInTheMiddleOfARun) {
    window().Check2.set(true);
    write(0, 20, 60, 1);
    at(300, [this] { recorder().window.Form_Unload(); });
    record();
    EXPECT_FALSE(studio.shell.RecorderOpen);
    EXPECT_EQ(recordings().size(), 1U) << "what was recorded up to then";
    EXPECT_EQ(commands().back(), "\"Close All\" -> 0 \"\"");
    recorder().window.Form_Load();
    EXPECT_EQ(window().Label8.text(), "Stopped");
    window().Check2.set(false);
    record();
    EXPECT_EQ(recordings().size(), 2U);
}

TEST_F(RecordingMomentsTest, NothingIsPlayedWhenTheWindowClosesUnderTheBoxOfADeviceThatDoesNotOpen) {
    media.setReply("open new", {4, "No card."});
    sent();
    time.at(100, [this] { recorder().window.Form_Unload(); });
    record();
    EXPECT_EQ(dialogs.takeBoxes().size(), 1U);
    for (const auto& message : sent()) EXPECT_FALSE(message.starts_with("90 ")) << message;
    EXPECT_EQ(std::ranges::count(logged(), "Started playing notes"), 0);
    EXPECT_FALSE(studio.player.Playing);
    recorder().window.Form_Load();
    chooseMidi(midiFile());
    commands();
    time.at(100, [this] { recorder().window.Form_Unload(); });
    record();
    for (const auto& command : commands()) EXPECT_FALSE(command.starts_with("\"play ")) << command;
}

TEST_F(RecordingMomentsTest, NothingIsPlayedWhenTheProgramEndsUnderThatBox) {
    media.setReply("open new", {4, "No card."});
    sent();
    time.at(100, [this] { engine.startUp.Form_Unload(); });
    record();
    EXPECT_TRUE(time.ended());
    EXPECT_EQ(std::ranges::count(logged(), "Started playing notes"), 0);
}

TEST_F(RecordingMomentsTest, TheProgramMayEndInTheMiddleOfARun) {
    write(0, 20, 60, 1);
    at(300, [this] { engine.startUp.Form_Unload(); });
    record();
    EXPECT_TRUE(time.ended());
}

}  // namespace
}  // namespace melvane::test
