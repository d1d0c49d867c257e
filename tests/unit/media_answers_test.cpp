#include <gtest/gtest.h>

#include <filesystem>

#include "file_size_limit.h"
#include "media_capture_fixture.h"
#include "midi_file_builder.h"

namespace melvane {
namespace {

using namespace sound_test;

/// What the user reads of each failure. Those of a sound input are with its tests.
class MediaAnswers : public Capturing {
 protected:
    std::string words(const std::string& command) {
        const auto answer = device->send(command);
        return std::to_string(answer.code) + " " + answer.text;
    }
    static std::string opening(const std::string& file, const std::string& type = "MPEGVideo") {
        return "open " + file + " type " + type + " alias a parent 0 Style 1073741824";
    }
    std::string makeTone() {
        const std::string file = folder.file("tone.wav");
        writeWav(file, stereoTone(441, 0.5, 0.5, 4410));
        return file;
    }
};

TEST_F(MediaAnswers, TellWhatIsWrongWithACommand) {
    EXPECT_EQ(words("sing a song"), "261 The command is not understood.");
    EXPECT_EQ(words("stop a"), "263 The device is not open.");
    EXPECT_EQ(words(opening(makeTone(), "cdaudio")), "266 There is no device of this type.");
    done(opening(makeTone()));
    EXPECT_EQ(words(opening(makeTone())), "289 The alias is in use already.");
    EXPECT_EQ(words("play a from 200"), "282 The position lies outside the file.");
    EXPECT_EQ(words("record a"), "284 The device cannot do this.");
}

TEST_F(MediaAnswers, TellWhatIsWrongWithAFile) {
    EXPECT_EQ(words(opening(folder.file("none.mp3"))), "275 The file cannot be found.");
    EXPECT_EQ(words(opening(folder.make("text.mp3", "no sound"))),
              "277 The file is damaged or of an unknown format.");
    const std::string large = folder.make("large.mid", midiHead(1, 1, 96));
    std::filesystem::resize_file(large, 17U << 20U);
    EXPECT_EQ(words(opening(large)), "337 The file is too large: a MIDI file may have 16 MB.");
}

TEST_F(MediaAnswers, TellWhatIsWrongWithARecording) {
    openCapture();
    EXPECT_EQ(words("set capture samplespersec 8000 channels 2 bitspersample 16"),
              "322 The format is not supported.");
    done("open new type waveaudio alias other");
    done("record other");
    EXPECT_EQ(words("record capture"), "320 The device is in use.");
    EXPECT_EQ(words("save capture " + path), "334 The recording is not saved. The device is in use.");
    done("close other");
    elsewhere = true;
    EXPECT_EQ(words("record capture"), "324 There is no sound input to record from.");
    EXPECT_EQ(words("stop capture"), "324 There is no sound input to record from.");
    elsewhere = false;
    done("record capture");
    done("stop capture");
    EXPECT_EQ(words("save capture /none/a.wav"),
              "334 The recording is not saved. Cannot write \"/none/a.wav\": No such file or directory.");
}

TEST_F(MediaAnswers, TellWhyARecordingEndedEarly) {
    openCapture();
    {
        const test::FileSizeLimit limit(100'000);
        done("record capture");
        run(1.0);
        EXPECT_EQ(words("stop capture"),
                  "330 The recording has ended early; what there is can be saved. Reason: File too large");
    }
    setting.mostCaptureBytes = 1000;
    PortableMediaDevice small(clock, synthesizer, setting);
    small.send("open new type waveaudio alias capture");
    small.send("record capture");
    static_cast<CaptureTap&>(small.tap()).hear(stereoTone(441, 0.5, 0.5, 4410), 0);
    EXPECT_EQ(small.send("stop capture"),
              (MediaDevice::Answer{331,
                                   "The recording has ended early, as a WAV file holds 4 GB at most; what "
                                   "there is can be saved."}));
}

TEST_F(MediaAnswers, TellThatThereIsNoPlaceForARecording) {
    openCapture();  // once with files: the sanitizers need some for what they see for the first time
    done("close capture");
    const test::OpenFilesLimit limit(0);
    const auto answer = device->send("open new type waveaudio alias capture");
    EXPECT_EQ(answer.text, "No temporary file can be made to record into: Too many open files");
    EXPECT_EQ(answer.code, 335);
}

}  // namespace
}  // namespace melvane
