#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <functional>
#include <thread>

#include "media_capture_fixture.h"

namespace melvane {
namespace {

using namespace sound_test;

/// What an input that is fed by hand has in common with its test.
struct Hand {
    std::atomic<bool> lost{false};
    std::atomic<std::uint64_t> overruns{0};
    std::atomic<int> open{0}, openedTimes{0};
    std::function<void()> whenClosed = [] {};  ///< on the closing thread
};

class HandInput final : public SoundInput {
 public:
    explicit HandInput(Hand& hand) : hand_(hand) {
        ++hand_.open;
        ++hand_.openedTimes;
    }
    ~HandInput() override {
        hand_.whenClosed();
        --hand_.open;
        hand_.open.notify_all();
    }
    HandInput(const HandInput&) = delete;
    HandInput& operator=(const HandInput&) = delete;
    bool isLost() const override { return hand_.lost; }
    std::uint64_t overruns() const override { return hand_.overruns; }

 private:
    Hand& hand_;
};

class CapturingFromInput : public Capturing {
 protected:
    void SetUp() override {
        elsewhere = true;
        setting.inputPace.look = setting.inputPace.again = std::chrono::milliseconds(1);
        setting.openInput = [this](const std::shared_ptr<SoundTap>& to) -> std::unique_ptr<SoundInput> {
            (opens ? tap : deafTap) = to;
            if (opens) return std::make_unique<HandInput>(hand);
            to->hear(tone, 0);
            return nullptr;
        };
        inputDevice = std::make_unique<PortableMediaDevice>(clock, synthesizer, setting);
        stream = std::make_unique<SoundMixer>(std::vector<SoundSource*>{&inputDevice->voices()},
                                              std::vector<SoundTap*>{&inputDevice->tap()}, soundRate);
        EXPECT_EQ(send("open new type waveaudio alias capture"), 0);
    }
    void TearDown() override { waitUntilClosed(); }
    int send(const std::string& command) { return inputDevice->send(command).code; }
    void openTone() {
        const std::string file = folder.file("tone.wav");
        writeWav(file, stereoTone(440, 0.5, 0.5, soundRate));
        EXPECT_EQ(send("open " + file + " type MPEGVideo alias audiomp3"), 0);
    }
    /// The input is closed by a thread of its own.
    void waitUntilClosed() {
        inputDevice->send("close all");
        for (int open = hand.open; open > 0; open = hand.open) hand.open.wait(open);
    }
    long length() {
        inputDevice->catchUp();
        return std::stol(inputDevice->send("status capture length").text);
    }
    /// Whether a second recording could take it.
    bool isMixFree() { return static_cast<CaptureTap&>(inputDevice->tap()).isFree(); }
    std::vector<float> renderBlock() {
        std::vector<float> block(2000);
        stream->render(stream->handOver(), block, [] { return 0; });
        return block;
    }

    std::atomic<bool> opens{true};
    Hand hand;
    std::shared_ptr<SoundTap> tap;
    std::shared_ptr<SoundTap> deafTap;  ///< of an input that did not open
    std::unique_ptr<PortableMediaDevice> inputDevice;
    std::unique_ptr<SoundMixer> stream;
    const std::vector<float> tone = stereoTone(440, 0.5, 0.25, 1000);
};

TEST_F(CapturingFromInput, RecordsTheInputWhileAnotherMidiOutputIsInUse) {
    EXPECT_EQ(send("record capture"), 0);
    EXPECT_EQ(hand.open, 1);
    tap->hear(tone, 0);
    inputDevice->tap();
    EXPECT_EQ(send("stop capture"), 0);
    EXPECT_EQ(hand.open, 0);
    tap->hear(tone, 0);
    EXPECT_EQ(send("save capture " + path), 0);
    EXPECT_EQ(samplesIn(path), samplesOf(tone));
}

TEST_F(CapturingFromInput, TellsThatTheInputWasLostAndKeepsTheRest) {
    EXPECT_EQ(send("record capture"), 0);
    tap->hear(tone, 0);
    hand.lost = true;
    EXPECT_EQ(send("stop capture"), static_cast<int>(MediaError::inputLost));
    EXPECT_EQ(send("save capture " + path), 0);
    EXPECT_EQ(samplesIn(path), samplesOf(tone));
}

/// Waits for what a thread of the capture does.
template <typename Condition>
bool comesTrue(Condition condition) {
    const auto patience = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition() && std::chrono::steady_clock::now() < patience) std::this_thread::yield();
    return condition();
}

TEST_F(CapturingFromInput, OpensTheInputAnewWhenItIsLostAndTellsOfTheGap) {
    EXPECT_EQ(send("record capture"), 0);
    tap->hear(tone, 0);
    opens = false;
    hand.lost = true;
    ASSERT_TRUE(comesTrue([&] { return hand.open == 0; }));
    std::this_thread::yield();
    hand.lost = false;
    opens = true;
    ASSERT_TRUE(comesTrue([&] { return hand.openedTimes == 2; }));
    // It is heard from the moment on at which the capture has taken it.
    const auto before = length();
    ASSERT_TRUE(comesTrue([&] {
        tap->hear(tone, 0);
        return length() > before;
    }));
    const auto answer = inputDevice->send("stop capture");
    EXPECT_EQ(answer.code, static_cast<int>(MediaError::inputLost));
    EXPECT_EQ(answer.text.find("The sound input was lost during the recording. Missing seconds: "), 0U)
        << answer.text;
    EXPECT_EQ(send("save capture " + path), 0);
    auto wanted = samplesOf(tone);
    const auto again = wanted;
    const auto saved = samplesIn(path);
    for (std::size_t at = again.size(); at < saved.size(); at += again.size()) {
        wanted.insert(wanted.end(), again.begin(), again.end());
    }
    EXPECT_GT(saved.size(), again.size());
    EXPECT_EQ(saved, wanted);
    EXPECT_EQ(send("delete capture"), 0);
    EXPECT_EQ(send("record capture"), 0);
    EXPECT_EQ(send("stop capture"), 0) << "another recording";
}

TEST_F(CapturingFromInput, TellsThatItWasReadTooLate) {
    EXPECT_EQ(send("record capture"), 0);
    hand.overruns = 3;
    const auto answer = inputDevice->send("stop capture");
    EXPECT_EQ(answer.code, static_cast<int>(MediaError::inputOverran));
    EXPECT_EQ(answer.text, "The sound input was read too late, and sound was lost. Times: 3");
}

TEST_F(CapturingFromInput, FollowsTheMidiOutputs) {
    elsewhere = false;
    EXPECT_EQ(send("record capture"), 0);
    EXPECT_EQ(hand.openedTimes, 0);
    inputDevice->tap().hear(tone, 0);
    inputDevice->noteOutput();
    EXPECT_EQ(hand.openedTimes, 0) << "the built-in synthesizer once more";
    elsewhere = true;
    inputDevice->noteOutput();
    ASSERT_TRUE(comesTrue([&] { return hand.openedTimes == 1; }));
    ASSERT_TRUE(comesTrue([&] { return isMixFree(); }));
    EXPECT_NE(send("play capture"), 0) << "which waits until it has turned";
    inputDevice->noteOutput();
    EXPECT_EQ(hand.openedTimes, 1);
    tap->hear(std::span(tone).first(200), 0);
    inputDevice->tap().hear(tone, 0);
    elsewhere = false;
    inputDevice->noteOutput();
    tap->hear(tone, 0);
    inputDevice->tap().hear(std::span(tone).first(400), 0);
    EXPECT_EQ(send("stop capture"), 0);
    EXPECT_EQ(send("save capture " + path), 0);
    auto wanted = samplesOf(tone);
    for (const std::size_t part : {200U, 400U}) {
        const auto more = samplesOf(std::span(tone).first(part));
        wanted.insert(wanted.end(), more.begin(), more.end());
    }
    EXPECT_EQ(samplesIn(path), wanted);
}

TEST_F(CapturingFromInput, StaysWithTheMixUntilTheInputOfAnotherOutputIsOpen) {
    elsewhere = false;
    EXPECT_EQ(send("record capture"), 0);
    elsewhere = true;
    opens = false;
    inputDevice->noteOutput();
    inputDevice->tap().hear(tone, 0);
    EXPECT_EQ(send("stop capture"), static_cast<int>(MediaError::noInput));
    EXPECT_EQ(send("save capture " + path), 0);
    EXPECT_EQ(samplesIn(path), samplesOf(tone));
}

TEST_F(CapturingFromInput, HasAFileThatIsPlayedOrResumedFromItsFirstFrame) {
    openTone();
    for (const bool isResumed : {false, true}) {
        if (isResumed) {
            EXPECT_EQ(send("play audiomp3 from 0"), 0);
            EXPECT_EQ(send("pause audiomp3"), 0);
        }
        EXPECT_EQ(send("delete capture"), 0);
        EXPECT_EQ(send("record capture"), 0);
        EXPECT_EQ(hand.open, 1);
        std::atomic<bool> closes{false};
        hand.whenClosed = [&] { closes.wait(false); };
        EXPECT_EQ(send(isResumed ? "resume audiomp3" : "play audiomp3 from 0"), 0);
        // A block of the file is due before the input has been closed.
        auto heard = renderBlock();
        EXPECT_EQ(hand.open, 1);
        closes = true;
        closes.notify_all();
        while (hand.open > 0) hand.open.wait(1);
        hand.whenClosed = [] {};
        const auto more = renderBlock();
        heard.insert(heard.end(), more.begin(), more.end());
        tap->hear(tone, 0);
        EXPECT_EQ(send("stop capture"), 0);
        EXPECT_EQ(send("save capture " + path), 0);
        EXPECT_GT(peak(heard), 0.4F);
        EXPECT_EQ(samplesIn(path), samplesOf(heard)) << isResumed;
        EXPECT_EQ(send("stop audiomp3"), 0);
    }
}

TEST_F(CapturingFromInput, StaysWithTheInputWhenNothingBeginsToPlay) {
    openTone();
    EXPECT_EQ(send("record capture"), 0);
    EXPECT_NE(send("play audiomp3 from 2000"), 0);
    EXPECT_EQ(send("resume audiomp3"), 0);
    EXPECT_NE(send("play capture"), 0);
    renderBlock();
    tap->hear(tone, 0);
    EXPECT_EQ(send("stop capture"), 0);
    EXPECT_EQ(send("save capture " + path), 0);
    EXPECT_EQ(samplesIn(path), samplesOf(tone));
}

TEST_F(CapturingFromInput, IsNotHeldUpByAnInputThatDoesNotClose) {
    std::atomic<bool> goOn{false};
    hand.whenClosed = [&] { goOn.wait(false); };
    openTone();
    EXPECT_EQ(send("record capture"), 0);
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(send("play audiomp3 from 0"), 0);
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    EXPECT_LT(took, setting.inputPace.patience);
    EXPECT_EQ(hand.open, 1);
    goOn = true;
    goOn.notify_all();
    waitUntilClosed();
}

TEST_F(Capturing, AnswersThatThereIsNoInputUntilItIsStartedAnew) {
    elsewhere = true;
    openCapture();
    EXPECT_EQ(refused("record capture"), MediaError::noInput);
    EXPECT_EQ(refused("stop capture"), MediaError::noInput);
    EXPECT_EQ(refused("stop capture"), MediaError::noInput);
    EXPECT_EQ(refused("save capture " + path), MediaError::notSaved);
    EXPECT_EQ(folder.fileCount(), 0U);
    elsewhere = false;
    done("record capture");
    const auto heard = run(0.1);
    done("stop capture");
    done("save capture " + path);
    EXPECT_EQ(samplesIn(path), samplesOf(heard));
}

TEST_F(Capturing, KeepsWhatItHasWhenItCannotBeStartedAgain) {
    openCapture();
    done("record capture");
    const auto heard = run(0.1);
    done("stop capture");
    elsewhere = true;
    EXPECT_EQ(refused("record capture"), MediaError::noInput);
    EXPECT_EQ(refused("stop capture"), MediaError::noInput);
    done("save capture " + path);
    EXPECT_EQ(samplesIn(path), samplesOf(heard));
    done("delete capture");
    done("stop capture");
}

std::ptrdiff_t threadCount() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
}

TEST_F(CapturingFromInput, WritesNothingOfAnInputThatDoesNotOpen) {
    const auto before = threadCount();
    opens = false;
    EXPECT_EQ(send("record capture"), static_cast<int>(MediaError::noInput));
    // The thread that opened ends by itself; one that writes would stay.
    const auto patience = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (threadCount() > before && std::chrono::steady_clock::now() < patience) std::this_thread::yield();
    EXPECT_LE(threadCount(), before);
    EXPECT_EQ(send("set capture samplespersec 22050 channels 1 bitspersample 8"), 0);
    deafTap->hear(tone, 0);
    opens = true;
    EXPECT_EQ(send("record capture"), 0);
    EXPECT_EQ(send("stop capture"), 0);
    EXPECT_EQ(send("save capture " + path), 0);
    EXPECT_EQ(bytesOf(path), waveHeader({22050, 1, 8}, 0));
}

TEST_F(CapturingFromInput, HearsNoInputOfAnEarlierRecording) {
    EXPECT_EQ(send("record capture"), 0);
    const auto earlier = tap;
    EXPECT_EQ(send("stop capture"), 0);
    EXPECT_EQ(send("record capture"), 0);
    earlier->hear(tone, 0);
    tap->hear(std::span(tone).first(200), 0);
    EXPECT_EQ(send("stop capture"), 0);
    EXPECT_EQ(send("save capture " + path), 0);
    EXPECT_EQ(samplesIn(path), samplesOf(std::span(tone).first(200)));
}

TEST_F(Capturing, DoesNotWaitForAnInputThatHangs) {
    std::atomic<bool> goOn{false};
    std::atomic<int> ended{0};
    elsewhere = true;
    setting.inputPace.patience = std::chrono::milliseconds(20);
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
