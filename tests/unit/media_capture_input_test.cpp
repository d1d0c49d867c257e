#include <gtest/gtest.h>

#include <atomic>

#include "media_capture_fixture.h"

namespace melvane {
namespace {

using namespace sound_test;

/// An input that is fed by hand.
class HandInput final : public SoundInput {
 public:
    HandInput(bool& lost, int& open) : lost_(lost), open_(open) { ++open_; }
    ~HandInput() override { --open_; }
    HandInput(const HandInput&) = delete;
    HandInput& operator=(const HandInput&) = delete;
    bool isLost() const override { return lost_; }

 private:
    bool& lost_;
    int& open_;
};

class CapturingFromInput : public Capturing {
 protected:
    void SetUp() override {
        elsewhere = true;
        setting.openInput = [this](const std::shared_ptr<SoundTap>& to) -> std::unique_ptr<SoundInput> {
            tap = to;
            return std::make_unique<HandInput>(lost, open);
        };
        inputDevice = std::make_unique<PortableMediaDevice>(clock, synthesizer, setting);
        EXPECT_EQ(send("open new type waveaudio alias capture"), 0);
    }
    int send(const std::string& command) { return inputDevice->send(command).code; }

    bool lost = false;
    int open = 0;
    std::shared_ptr<SoundTap> tap;
    std::unique_ptr<PortableMediaDevice> inputDevice;
    const std::vector<float> tone = stereoTone(440, 0.5, 0.25, 1000);
};

TEST_F(CapturingFromInput, RecordsTheInputWhileAnotherMidiOutputIsInUse) {
    EXPECT_EQ(send("record capture"), 0);
    EXPECT_EQ(open, 1);
    tap->hear(tone, 0);
    inputDevice->tap();
    EXPECT_EQ(send("stop capture"), 0);
    EXPECT_EQ(open, 0);
    tap->hear(tone, 0);
    EXPECT_EQ(send("save capture " + path), 0);
    EXPECT_EQ(samplesIn(path), samplesOf(tone));
}

TEST_F(CapturingFromInput, TellsThatTheInputWasLostAndKeepsTheRest) {
    EXPECT_EQ(send("record capture"), 0);
    tap->hear(tone, 0);
    lost = true;
    EXPECT_EQ(send("stop capture"), static_cast<int>(MediaError::inputLost));
    EXPECT_EQ(send("save capture " + path), 0);
    EXPECT_EQ(samplesIn(path), samplesOf(tone));
}

TEST_F(CapturingFromInput, TurnsToTheMixWhenAFileIsPlayedIntoIt) {
    const std::string file = folder.file("tone.wav");
    writeWav(file, stereoTone(440, 0.5, 0.5, 44'100));
    SoundMixer stream({&inputDevice->voices()}, {&inputDevice->tap()}, soundRate);
    EXPECT_EQ(send("record capture"), 0);
    EXPECT_EQ(send("open " + file + " type MPEGVideo alias audiomp3"), 0);
    EXPECT_EQ(open, 1);
    EXPECT_EQ(send("play audiomp3 from 0"), 0);
    EXPECT_EQ(open, 0);
    std::vector<float> block(2000);
    stream.render(stream.handOver(), block, [] { return 0; });
    EXPECT_EQ(send("stop capture"), 0);
    EXPECT_EQ(send("save capture " + path), 0);
    EXPECT_GT(peak(block), 0.4F);
    EXPECT_EQ(samplesIn(path), samplesOf(block));
}

TEST_F(Capturing, AnswersThatThereIsNoInput) {
    elsewhere = true;
    openCapture();
    EXPECT_EQ(refused("record capture"), MediaError::noInput);
    done("stop capture");
    done("save capture " + path);
    EXPECT_EQ(bytesOf(path).size(), 44U);
}

TEST_F(Capturing, DoesNotWaitForAnInputThatHangs) {
    std::atomic<bool> goOn{false};
    std::atomic<int> ended{0};
    elsewhere = true;
    setting.inputPatience = std::chrono::milliseconds(20);
    setting.openInput = [&](const std::shared_ptr<SoundTap>&) -> std::unique_ptr<SoundInput> {
        goOn.wait(false);
        ended = 1;
        ended.notify_all();
        return nullptr;
    };
    PortableMediaDevice hanging(clock, synthesizer, setting);
    EXPECT_EQ(hanging.send("open new type waveaudio alias capture").code, 0);
    EXPECT_EQ(static_cast<MediaError>(hanging.send("record capture").code), MediaError::noInput);
    goOn = true;
    goOn.notify_all();
    ended.wait(0);
}

}  // namespace
}  // namespace melvane
