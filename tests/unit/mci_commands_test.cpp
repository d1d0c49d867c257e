#include "recorder/mci_commands.h"

#include "platform/media_wave_format.h"
#include "recorder/capture_formats.h"
#include "recorder_fixture.h"

namespace melvane::test {
namespace {

class MciCommandsTest : public RecorderTest {
 protected:
    MciCommands& mci() { return engine.recorder.mci; }
    void open(const std::string& file) { mci().MciOpenMedia(0, "audiomp3", file, "MPEGVideo"); }
};

TEST_F(MciCommandsTest, AFileIsOpenedAsAChildWindowUnderAnAlias) {
    const std::string file = write("a song.mp3", "x");
    EXPECT_EQ(mci().MciOpenMedia(77, "audiomp3", file, "MPEGVideo"), "Success");
    EXPECT_EQ(commands(), (Lines{"\"open " + file +
                                 " type MPEGVideo Alias audiomp3 parent 77 Style 1073741824\" -> 0 \"1\""}));
}

TEST_F(MciCommandsTest, AFileThatIsNotThereIsOpenedWithoutAPathAndTheDeviceSaysWhatIsWrong) {
    EXPECT_EQ(mci().MciOpenMedia(0, "audiomp3", folder.file("none.mp3"), "MPEGVideo"),
              "The file cannot be found.");
    EXPECT_EQ(commands(),
              (Lines{"\"open  type MPEGVideo Alias audiomp3 parent 0 Style 1073741824\" -> 275 \"The file "
                     "cannot be found.\""}));
}

TEST_F(MciCommandsTest, TheWholeFileIsPlayedFromNoughtToNothing) {
    open(write("a.mp3", "x"));
    commands();
    EXPECT_EQ(mci().MciPlay("audiomp3", "0", ""), "Success");
    EXPECT_EQ(commands(), (Lines{"\"set audiomp3 time format frames\" -> 0 \"\"",
                                 "\"status audiomp3 length\" -> 0 \"300\"",
                                 "\"play audiomp3 from 0 to 300\" -> 0 \"\""}));
    mci().MciPlay("audiomp3", "begin", "12.5");
    EXPECT_EQ(commands(), (Lines{"\"play audiomp3 from 0 to 12.5\" -> 0 \"\""}));
}

TEST_F(MciCommandsTest, PlainCommandsAreTheirVerbAndTheAlias) {
    open(write("a.mp3", "x"));
    commands();
    for (const auto& word : {mci().MciPause("audiomp3"), mci().MciResume("audiomp3"),
                             mci().MciStop("audiomp3"), mci().MciClose("audiomp3"), mci().MciCloseAll()})
        EXPECT_EQ(word, "Success");
    EXPECT_EQ(commands(), (Lines{"\"Pause audiomp3\" -> 0 \"\"", "\"Resume audiomp3\" -> 0 \"\"",
                                 "\"Stop audiomp3\" -> 0 \"\"", "\"Close audiomp3\" -> 0 \"\"",
                                 "\"Close All\" -> 0 \"\""}));
}

TEST_F(MciCommandsTest, LengthsLeaveFramesAsTheFormat) {
    open(write("a.mp3", "x"));
    commands();
    EXPECT_EQ(mci().MciMilliseconds("audiomp3"), 10000);
    EXPECT_EQ(commands(),
              (Lines{"\"set audiomp3 time format ms\" -> 0 \"\"", "\"status audiomp3 length\" -> 0 \"10000\"",
                     "\"set audiomp3 time format frames\" -> 0 \"\""}));
    EXPECT_EQ(mci().MciFrames("audiomp3"), 300);
    EXPECT_EQ(mci().MciPosition("audiomp3"), 0);
    EXPECT_EQ(mci().MciFrameRate("audiomp3"), 30);
}

TEST_F(MciCommandsTest, NumbersThatTheDeviceDoesNotGiveAreMinusOne) {
    EXPECT_EQ(mci().MciFrames("audiomp3"), -1);
    EXPECT_EQ(mci().MciMilliseconds("audiomp3"), -1);
    EXPECT_EQ(mci().MciPosition("audiomp3"), -1);
    EXPECT_EQ(mci().MciFrameRate("audiomp3"), -1);
    std::int64_t length = 300;
    EXPECT_FALSE(mci().MciIsAtEnd("audiomp3", length));
}

TEST_F(MciCommandsTest, AnAnswerThatIsNoNumberIsNought) {
    media.setReply("status audiomp3 length", {0, "no idea"});
    EXPECT_EQ(mci().MciFrames("audiomp3"), 0);
    EXPECT_EQ(mci().MciFrameRate("audiomp3"), 0);
    media.setReply("status audiomp3 length", {0, "1e300"});
    EXPECT_EQ(mci().MciFrames("audiomp3"), 1);
}

/// 100 frames in 1500 milliseconds.
class OddDevice final : public MediaDevice {
 public:
    Answer send(const std::string& command) override {
        if (command.find("format") != std::string::npos) frames_ = command.ends_with("frames");
        return {0, frames_ ? "100" : "1500"};
    }

 private:
    bool frames_ = false;
};

TEST_F(MciCommandsTest, AFrameRateIsCut) {
    OddDevice odd;
    EXPECT_EQ(MciCommands(odd, desktop).MciFrameRate("audiomp3"), 66);
}

TEST_F(MciCommandsTest, ALengthIsTakenThoughTheDeviceRefusesItsFormat) {
    media.setReply("set audiomp3 time format frames", {9, "No frames here."});
    media.setReply("status audiomp3 length", {0, "250"});
    EXPECT_EQ(mci().MciFrames("audiomp3"), 250);
}

TEST_F(MciCommandsTest, AnUnknownLengthIsAskedForAndHandedBack) {
    open(write("a.mp3", "x"));
    std::int64_t length = 0;
    EXPECT_FALSE(mci().MciIsAtEnd("audiomp3", length));
    EXPECT_EQ(length, 300);
    media.setReply("status audiomp3 position", {0, "299"});
    EXPECT_FALSE(mci().MciIsAtEnd("audiomp3", length));
    media.setReply("status audiomp3 position", {0, "300"});
    EXPECT_TRUE(mci().MciIsAtEnd("audiomp3", length));
}

TEST_F(MciCommandsTest, APositionThatIsNotGivenIsNoEnd) {
    std::int64_t length = 10;
    media.setReply("status audiomp3 position", {9, "broken"});
    EXPECT_FALSE(mci().MciIsAtEnd("audiomp3", length));
}

TEST_F(MciCommandsTest, AnAliasThatIsNotOpenIsClosedWithTheDevicesWords) {
    EXPECT_EQ(mci().MciClose("audiomp3"), "The device is not open.");
}

TEST_F(MciCommandsTest, ALongErrorTextIsCut) {
    media.setReply("stop audiomp3", {9, std::string(300, 'x')});
    EXPECT_EQ(mci().MciStop("audiomp3"), std::string(127, 'x'));
}

TEST_F(MciCommandsTest, TheCapturesCommandsAreWordForWord) {
    mci().CaptureOpen();
    mci().CaptureSet(captureFormats[8]);
    mci().CaptureRecord();
    mci().CaptureStop();
    EXPECT_EQ(mci().CaptureCanSave(), "true");
    mci().CaptureSaveTo(folder.file("a b.wav"));
    EXPECT_EQ(mci().CaptureSaveOld(folder.file("c.wav")), "Success");
    mci().CaptureDelete();
    mci().CaptureClose();
    EXPECT_EQ(mci().CaptureCloseOld(), "The device is not open.");
    EXPECT_EQ(
        commands(),
        (Lines{"\"open new type waveaudio alias capture\" -> 0 \"1\"",
               "\"set capture samplespersec 48000 channels 2 bitspersample 16 alignment 4 bytespersec "
               "192000\" -> 0 \"\"",
               "\"record capture\" -> 0 \"\"", "\"stop capture\" -> 0 \"\"",
               "\"capability capture can save\" -> 0 \"true\"",
               "\"save capture " + folder.file("a b.wav") + "\" -> 0 \"\"",
               "\"Save capture " + folder.file("c.wav") + "\" -> 0 \"\"", "\"delete capture\" -> 0 \"\"",
               "\"close capture\" -> 0 \"\"", "\"close capture \" -> 263 \"The device is not open.\""}));
}

TEST_F(MciCommandsTest, TheNineFormatsHaveTheirRowsAndAnyOtherTextHasNone) {
    EXPECT_EQ(captureFormats.size(), 9U);
    EXPECT_EQ(offeredFormats.size(), 5U);
    const CaptureFormat quiet = captureFormat("22.050Hz, 8bit Stereo, 43k/sec");
    EXPECT_EQ(quiet.alignment(), 2);
    EXPECT_EQ(quiet.bytesPerSecond(), 44100);
    EXPECT_EQ(captureFormat("44.100Hz, 16bit Stereo, 172k/sec").bytesPerSecond(), 176400);
    EXPECT_EQ(captureFormat("").samplesPerSecond, 0);
    EXPECT_EQ(captureFormat("96.000Hz").bytesPerSecond(), 0);
}

TEST_F(MciCommandsTest, TheDeviceRecordsEachOfTheNineFormats) {
    for (const CaptureFormat& format : captureFormats) {
        EXPECT_TRUE(isRecorded({format.samplesPerSecond, format.channels, format.bits})) << format.text;
    }
}

TEST_F(MciCommandsTest, TheDriverOfMp3FilesIsWrittenWhenTheWindowLoads) {
    EXPECT_EQ(mci().ReadMciEntry("MPEGVideo"), "mciqtz.drv");
    EXPECT_EQ(mci().ReadMciEntry("MPEGVideo2"), "None");
    mci().WriteMciEntry("mpegvideo2", "other.drv");
    EXPECT_EQ(mci().ReadMciEntry("MPEGVideo2"), "other.drv");
}

TEST_F(MciCommandsTest, ALongEntryIsCut) {
    mci().WriteMciEntry("MPEGVideo", std::string(300, 'x'));
    EXPECT_EQ(mci().ReadMciEntry("MPEGVideo"), std::string(254, 'x'));
}

}  // namespace
}  // namespace melvane::test
