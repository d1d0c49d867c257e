#include "platform/recording_media_device.h"

#include <gtest/gtest.h>

#include "platform/virtual_time.h"
#include "temporary_folder.h"

namespace melvane {
namespace {

class RecordingMediaDeviceTest : public testing::Test {
 protected:
    std::string ask(const std::string& command) { return device.send(command).text; }
    int code(const std::string& command) { return device.send(command).code; }
    void wait(std::int64_t milliseconds) { time.waitUntil(time.counter() + milliseconds * 1'000'000); }

    VirtualTime time;
    RecordingMediaDevice device{time};
};

TEST_F(RecordingMediaDeviceTest, APlayerHasTenSecondsAtThirtyFrames) {
    EXPECT_EQ(code("open C:\\A.MID type MPEGVideo Alias audiomp3 parent 1 Style 1073741824"), 0);
    EXPECT_EQ(ask("status audiomp3 length"), "10000");
    EXPECT_EQ(code("set audiomp3 time format frames"), 0);
    EXPECT_EQ(ask("status audiomp3 length"), "300");
    EXPECT_EQ(code("play audiomp3 from 30 to 300"), 0);
    wait(1000);
    EXPECT_EQ(ask("status audiomp3 position"), "60");
    EXPECT_EQ(code("Pause audiomp3"), 0);
    wait(5000);
    EXPECT_EQ(ask("status audiomp3 position"), "60");
    EXPECT_EQ(code("Resume audiomp3"), 0);
    wait(60000);
    EXPECT_EQ(ask("status audiomp3 position"), "300");
}

TEST_F(RecordingMediaDeviceTest, AnAliasThatIsNotOpenIsAnError) {
    EXPECT_EQ(code("Close audiomp3"), RecordingMediaDevice::notOpen);
    EXPECT_EQ(code("record capture"), RecordingMediaDevice::notOpen);
    EXPECT_EQ(code("dance capture"), RecordingMediaDevice::notOpen);
    EXPECT_EQ(code("open  type MPEGVideo Alias audiomp3"), RecordingMediaDevice::noFile);
    EXPECT_EQ(code("Close All"), 0);
}

TEST_F(RecordingMediaDeviceTest, ACaptureSavesSilenceAsLongAsItRecorded) {
    const test::TemporaryFolder folder;
    EXPECT_EQ(code("open new type waveaudio alias capture"), 0);
    EXPECT_EQ(
        code("set capture samplespersec 44100 channels 2 bitspersample 16 alignment 4 bytespersec 176400"),
        0);
    EXPECT_EQ(code("record capture"), 0);
    wait(2000);
    EXPECT_EQ(code("stop capture"), 0);
    wait(2000);
    EXPECT_EQ(ask("capability capture can save"), "true");
    EXPECT_EQ(code("save capture " + folder.file("A b.wav")), 0);
    EXPECT_EQ(std::filesystem::file_size(folder.path() / "A b.wav"), 44U + 2U * 176400U);
    EXPECT_EQ(code("delete capture"), 0);
    EXPECT_EQ(code("close capture"), 0);
}

TEST_F(RecordingMediaDeviceTest, RulesAnswerByPrefixInAnyCaseAndALaterOneReplacesTheFormer) {
    device.setReply("OPEN new", {263, "No card."});
    EXPECT_EQ(code("open new type waveaudio alias capture"), 263);
    device.setReply("open NEW", {7, "Busy."});
    EXPECT_EQ(ask("open new type waveaudio alias capture"), "Busy.");
    wait(3);
    code("Close All");
    EXPECT_EQ(device.log().take(),
              (std::vector<std::string>{"0 \"open new type waveaudio alias capture\" -> 263 \"No card.\"",
                                        "0 \"open new type waveaudio alias capture\" -> 7 \"Busy.\"",
                                        "3 \"Close All\" -> 0 \"\""}));
}

}  // namespace
}  // namespace melvane
