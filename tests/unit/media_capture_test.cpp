#include <gtest/gtest.h>

#include <thread>

#include "file_size_limit.h"
#include "media_fixture.h"
#include "platform/audio_file_samples.h"
#include "platform/media_spool.h"
#include "platform_sound_guard.h"

namespace melvane {
namespace {

using namespace sound_test;

class Capturing : public MediaTest {
 protected:
    static std::vector<std::int16_t> samplesOf(std::span<const float> sound) {
        std::vector<std::int16_t> samples;
        appendSamples(sound, samples);
        return samples;
    }
    static std::vector<std::int16_t> samplesIn(const std::string& path) {
        const std::string bytes = bytesOf(path).substr(waveHeaderSize);
        std::vector<std::int16_t> samples;
        for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
            samples.push_back(static_cast<std::int16_t>(static_cast<unsigned char>(bytes[at]) |
                                                        static_cast<unsigned char>(bytes[at + 1]) << 8));
        }
        return samples;
    }

    const std::string path = folder.file("my take 1.wav");
};

TEST_F(Capturing, SavesEverySampleOfTheMixFromTheStartToTheStop) {
    source.sound = stereoTone(440, 0.5, -1.5, 30 * soundRate);
    run(0.7);
    openCapture("samplespersec 44100 channels 2 bitspersample 16 alignment 4 bytespersec 176400");
    run(0.3);
    done("record capture");
    const auto heard = run(20.0);
    done("stop capture");
    run(1.0);
    EXPECT_EQ(done("capability capture can save"), "true");
    done("save capture " + path);
    EXPECT_EQ(samplesIn(path), samplesOf(heard));
    EXPECT_EQ(bytesOf(path).substr(0, waveHeaderSize), waveHeader({}, heard.size() * 2));
    EXPECT_EQ(folder.fileCount(), 1U);
}

TEST_F(Capturing, GoesOnWhereItStoppedWhenItIsStartedAgain) {
    source.sound = stereoTone(440, 0.5, 0.5, 10 * soundRate);
    openCapture();
    done("record capture");
    auto heard = run(1.0);
    done("stop capture");
    run(1.0);
    done("record capture");
    done("record capture");
    const auto more = run(1.0);
    heard.insert(heard.end(), more.begin(), more.end());
    done("stop capture");
    done("save capture " + path);
    EXPECT_EQ(samplesIn(path), samplesOf(heard));
}

TEST_F(Capturing, CanBeSavedWhileItGoesOn) {
    source.sound = stereoTone(440, 0.5, 0.5, 10 * soundRate);
    openCapture();
    done("record capture");
    const auto heard = run(1.0);
    done("save capture " + path);
    EXPECT_EQ(samplesIn(path), samplesOf(heard));
    run(1.0);
    done("stop capture");
    done("save capture " + path);
    EXPECT_EQ(samplesIn(path).size(), heard.size() * 2);
}

TEST_F(Capturing, IsEmptyBeforeItIsStartedAndOnceItIsDeleted) {
    openCapture();
    done("stop capture");
    done("save capture " + path);
    EXPECT_EQ(bytesOf(path), waveHeader({}, 0));
    done("record capture");
    run(1.0);
    device->catchUp();
    EXPECT_EQ(number("status capture length"), 1000);
    done("stop capture");
    done("delete capture");
    EXPECT_EQ(number("status capture length"), 0);
    done("save capture " + path);
    EXPECT_EQ(bytesOf(path), waveHeader({}, 0));
}

TEST_F(Capturing, TakesEachFormatAndRefusesOthers) {
    openCapture();
    done("set capture samplespersec 48000 channels 2 bitspersample 16 alignment 4 bytespersec 192000");
    done("record capture");
    run(1.0);
    done("stop capture");
    done("save capture " + path);
    EXPECT_NEAR(static_cast<double>(bytesOf(path).size()), 44 + 192000.0, 8);
    EXPECT_EQ(refused("set capture samplespersec 44100 channels 2 bitspersample 16"),
              MediaError::formatRefused)
        << "while it holds sound of another";
    done("delete capture");
    EXPECT_EQ(refused("set capture samplespersec 0 channels 0 bitspersample 0 alignment 0 bytespersec 0"),
              MediaError::formatRefused);
    done("set capture samplespersec 22050 channels 1 bitspersample 8 alignment 1 bytespersec 22050");
    done("record capture");
    run(0.5);
    done("stop capture");
    done("save capture " + path);
    const std::string bytes = bytesOf(path);
    EXPECT_EQ(bytes.substr(0, 44), waveHeader({22050, 1, 8}, 11025));
    EXPECT_EQ(bytes.size(), 44U + 11026U) << "an odd length is padded";
}

TEST_F(Capturing, RefusesWhatOnlyAPlayerCan) {
    openCapture();
    for (const char* command :
         {"play capture", "pause capture", "resume capture", "set capture time format ms"}) {
        EXPECT_EQ(refused(command), MediaError::wrongKind) << command;
    }
    EXPECT_EQ(refused("save capture "), MediaError::noFile);
}

TEST_F(Capturing, IsGoneOnceItIsClosed) {
    openCapture();
    EXPECT_EQ(refused("open new type waveaudio alias CAPTURE"), MediaError::aliasInUse);
    done("record capture");
    run(0.1);
    done("close capture ");
    run(0.1);
    for (const char* command : {"stop capture", "record capture", "close capture", "save capture /x",
                                "delete capture", "capability capture can save", "status capture length"}) {
        EXPECT_EQ(refused(command), MediaError::notOpen) << command;
    }
    openCapture();
    done("close all");
    EXPECT_EQ(refused("stop capture"), MediaError::notOpen);
    done("Close All");
}

TEST_F(Capturing, LeavesTheMixToTheRecordingThatHasIt) {
    openCapture();
    done("open new type waveaudio alias second");
    done("record capture");
    EXPECT_EQ(refused("record second"), MediaError::inUse);
    done("stop second");
    source.sound = stereoTone(440, 0.5, 0.5, 44'100);
    const auto heard = run(1.0);
    done("stop capture");
    done("save capture " + path);
    EXPECT_EQ(samplesIn(path), samplesOf(heard));
}

TEST_F(Capturing, KeepsWhatThereIsWhenTheDiskIsFull) {
    source.sound = stereoTone(440, 0.5, 0.5, 10 * soundRate);
    openCapture();
    std::vector<float> heard;
    {
        const test::FileSizeLimit limit(100'002);
        done("record capture");
        heard = run(3.0);
        EXPECT_EQ(refused("stop capture"), MediaError::noRoom);
    }
    done("save capture " + path);
    heard.resize(50'000);
    EXPECT_EQ(samplesIn(path), samplesOf(heard)) << "whole frames only";
    done("delete capture");
    done("record capture");
    run(0.1);
    done("stop capture");
}

TEST_F(Capturing, KeepsTheEarlierFileWhenTheDiskIsFullAtTheSave) {
    folder.make("my take 1.wav", "earlier");
    openCapture();
    done("record capture");
    run(3.0);
    done("stop capture");
    {
        const test::FileSizeLimit limit(100'000);
        EXPECT_EQ(refused("save capture " + path), MediaError::notSaved);
    }
    EXPECT_EQ(bytesOf(path), "earlier");
    EXPECT_EQ(folder.fileCount(), 1U);
    EXPECT_EQ(refused("save capture " + folder.file("none/a.wav")), MediaError::notSaved);
    done("save capture " + path);
    EXPECT_EQ(bytesOf(path).size(), 44U + 3 * 176'400);
}

TEST_F(Capturing, CountsWhatTheRingCouldNotHold) {
    openCapture();
    done("record capture");
    std::vector<float> block(CaptureRing::frames * soundChannels * 3);
    mixer.render(ticket, block, [] { return 0; });
    const auto answer = device->send("stop capture");
    EXPECT_EQ(static_cast<MediaError>(answer.code), MediaError::framesLost);
    EXPECT_NE(answer.text.find(std::to_string(2 * CaptureRing::frames)), std::string::npos) << answer.text;
    done("delete capture");
    done("record capture");
    done("stop capture");
}

TEST_F(Capturing, EndsAtTheMostThatAFileHolds) {
    setting.mostCaptureBytes = 100'001;
    PortableMediaDevice small(clock, synthesizer, setting);
    SoundMixer stream({}, {&small.tap()}, soundRate);
    EXPECT_EQ(small.send("open new type waveaudio alias capture").code, 0);
    EXPECT_EQ(small.send("record capture").code, 0);
    std::vector<float> block(40'000 * soundChannels);
    stream.render(stream.handOver(), block, [] { return 0; });
    EXPECT_EQ(static_cast<MediaError>(small.send("stop capture").code), MediaError::tooLong);
    EXPECT_EQ(small.send("save capture " + path).code, 0);
    EXPECT_EQ(bytesOf(path).size(), 44U + 100'000U);
}

TEST_F(Capturing, LeavesNoTemporaryFileBehind) {
    setenv("TMPDIR", folder.path().c_str(), 1);
    openCapture();
    EXPECT_EQ(folder.fileCount(), 0U) << "it has no name while it is used";
    done("record capture");
    run(0.5);
    EXPECT_EQ(folder.fileCount(), 0U);
    unsetenv("TMPDIR");
}

TEST_F(Capturing, TellsThatNoTemporaryFileCouldBeMade) {
    setenv("TMPDIR", "/proc", 1);
    openCapture();
    unsetenv("TMPDIR");
    done("record capture");
    run(0.5);
    EXPECT_EQ(refused("stop capture"), MediaError::noRoom);
}

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

TEST(CaptureTap, NeitherAllocatesNorLocks) {
    const auto ring = std::make_unique<CaptureRing>();
    CaptureTap tap;
    const std::vector<float> block(512);
    const CallbackGuard guard;
    tap.hear(block, 0);
    tap.setRing(ring.get());
    for (int turn = 0; turn < 2000; ++turn) tap.hear(block, 0);
    EXPECT_EQ(guard.allocations(), 0U);
    EXPECT_EQ(guard.locks(), 0U);
    EXPECT_EQ(ring->lostFrames, 2000U * 256 - CaptureRing::frames);
}

TEST(SoundRing, BringsEveryValueOnceAndInOrderFromThreadToThread) {
    SoundRing ring(1000);
    constexpr int count = 200'000;
    std::thread writer([&] {
        std::vector<float> piece;
        for (int next = 0; next < count;) {
            piece.clear();
            for (int at = next; at < std::min(next + 37, count); ++at)
                piece.push_back(static_cast<float>(at));
            next += static_cast<int>(ring.push(piece));
        }
    });
    std::vector<float> got(53);
    int expected = 0;
    bool inOrder = true;
    while (expected < count) {
        const std::size_t values = ring.pop(got);
        for (std::size_t at = 0; at < values; ++at)
            inOrder = inOrder && got[at] == static_cast<float>(expected++);
    }
    writer.join();
    EXPECT_TRUE(inOrder);
    EXPECT_EQ(ring.filled(), 0U);
    EXPECT_EQ(ring.room(), 1000U);
}

TEST(Spool, HoldsWhatItGotUpToItsBound) {
    const TemporaryFolder folder;
    Spool spool(10);
    EXPECT_TRUE(spool.append("1234567"));
    EXPECT_FALSE(spool.append("89abc"));
    EXPECT_TRUE(spool.isFull());
    EXPECT_EQ(spool.failure(), std::nullopt);
    const std::string path = folder.file("a");
    FileDraft draft(path);
    ASSERT_TRUE(spool.copyTo(draft.open(), 10));
    EXPECT_EQ(draft.complete(), std::nullopt);
    EXPECT_EQ(bytesOf(path), "123456789a");
    spool.clear();
    EXPECT_EQ(spool.size(), 0U);
    EXPECT_TRUE(spool.append("xy"));
    EXPECT_FALSE(spool.copyTo(-1, 2));
}

}  // namespace
}  // namespace melvane
