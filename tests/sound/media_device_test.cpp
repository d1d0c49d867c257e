#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstring>
#include <fstream>
#include <iterator>
#include <mutex>
#include <numbers>
#include <thread>

#include "heard_position.h"
#include "measured.h"
#include "onset_finder.h"
#include "platform/audio_file_samples.h"
#include "platform/media_error.h"
#include "platform/media_portable_device.h"
#include "platform/sound_card.h"
#include "private_sound_server.h"

namespace melvane {
namespace {

using namespace std::chrono_literals;
using namespace sound_test;

/// A tone that never ends.
class EndlessTone final : public SoundSource {
 public:
    void mix(std::span<float> interleaved, std::int64_t) noexcept override {
        for (std::size_t at = 0; at < interleaved.size(); at += 2, ++frame_) {
            const double angle =
                2 * std::numbers::pi * 441 * static_cast<double>(frame_ % soundRate) / soundRate;
            const auto value = static_cast<float>(0.3 * std::sin(angle));
            interleaved[at] += value;
            interleaved[at + 1] += value;
        }
    }

 private:
    std::int64_t frame_ = 0;
};

/// Keeps all that it hears. A lock in the callback does no harm here.
class KeepingTap final : public SoundTap {
 public:
    void hear(std::span<const float> interleaved, std::int64_t) noexcept override {
        const std::lock_guard lock(mutex_);
        sound_.insert(sound_.end(), interleaved.begin(), interleaved.end());
    }
    std::vector<float> sound() {
        const std::lock_guard lock(mutex_);
        return sound_;
    }

 private:
    std::mutex mutex_;
    std::vector<float> sound_;
};

class MediaThroughServer : public testing::Test {
 protected:
    void SetUp() override { ASSERT_EQ(server.start(), ""); }

    std::unique_ptr<SoundCard> openCard() {
        auto card = std::make_unique<SoundCard>(clock, std::vector<SoundSource*>{&tone, &device.voices()},
                                                std::vector<SoundTap*>{&device.tap(), &kept});
        EXPECT_TRUE(comesTrue([&] { return card->hasOutput(); }));
        return card;
    }
    template <typename Condition>
    static bool comesTrue(Condition condition) {
        for (int turn = 0; turn < 1200 && !condition(); ++turn) std::this_thread::sleep_for(5ms);
        return condition();
    }
    void done(const std::string& command) {
        const auto answer = device.send(command);
        EXPECT_EQ(answer.code, 0) << command << ": " << answer.text;
    }
    std::vector<std::int16_t> saved() {
        const std::string path = server.folder() + "/saved.wav";
        done("save capture " + path);
        std::ifstream file(path, std::ios::binary);
        std::string bytes{std::istreambuf_iterator<char>(file), {}};
        std::vector<std::int16_t> samples((bytes.size() - waveHeaderSize) / 2);
        std::memcpy(samples.data(), bytes.data() + waveHeaderSize, samples.size() * 2);
        return samples;
    }

    PrivateSoundServer server;
    SteadyClock clock;
    Synthesizer synthesizer{clock, SoundCard::messageDelaySeconds};
    bool elsewhere = false;
    PortableMediaDevice device{clock, synthesizer, {.soundsElsewhere = [this] { return elsewhere; }}};
    EndlessTone tone;
    KeepingTap kept;
};

TEST_F(MediaThroughServer, CapturesEverySampleWhileTheServerDiesAndComesBack) {
    const auto card = openCard();
    done("open new type waveaudio alias capture");
    const auto begin = std::chrono::steady_clock::now();
    done("record capture");
    std::this_thread::sleep_for(400ms);
    server.kill();
    ASSERT_TRUE(comesTrue([&] { return !card->hasOutput(); }));
    std::this_thread::sleep_for(400ms);
    ASSERT_EQ(server.start(), "");
    ASSERT_TRUE(comesTrue([&] { return card->hasOutput(); }));
    std::this_thread::sleep_for(400ms);
    done("stop capture");
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;

    const auto samples = saved();
    EXPECT_NEAR(static_cast<double>(samples.size()) / soundChannels / soundRate, took.count(), 0.5);
    std::vector<std::int16_t> all;
    appendSamples(kept.sound(), all);
    EXPECT_NE(std::ranges::search(all, samples).begin(), all.end()) << "one stretch of the mix";
}

TEST_F(MediaThroughServer, RecordsWhatTheOutputPlaysWhileAnotherMidiOutputIsInUse) {
    const auto card = openCard();
    elsewhere = true;
    EXPECT_EQ(wrongEachTime([&]() -> std::string {
                  done("open new type waveaudio alias capture");
                  done("record capture");
                  std::this_thread::sleep_for(1500ms);
                  done("stop capture");
                  const auto samples = saved();
                  done("close capture");
                  if (samples.size() < 2 * 44'100) return std::to_string(samples.size()) + " samples";
                  std::vector<float> left;
                  for (std::size_t at = samples.size() / 2 / 2 * 2; at < samples.size(); at += 2) {
                      left.push_back(static_cast<float>(samples[at]) / 32767);
                  }
                  const double pitch = findPitch(left, soundRate);
                  const float loudest = std::ranges::max(left);
                  const bool right = std::abs(pitch - 441) < 3 && std::abs(loudest - 0.3F) < 0.02F;
                  return right ? "" : std::to_string(pitch) + " Hz, " + std::to_string(loudest);
              }),
              "");
}

TEST_F(MediaThroughServer, RecordsTheInputOnWhenTheServerDiedAndCameBack) {
    const auto card = openCard();
    elsewhere = true;
    done("open new type waveaudio alias capture");
    done("record capture");
    const auto length = [&] { return std::stol(device.send("status capture length").text); };
    ASSERT_TRUE(comesTrue([&] { return length() > 700; }));
    server.kill();
    ASSERT_TRUE(comesTrue([&] { return !card->hasOutput(); }));
    std::this_thread::sleep_for(400ms);
    const long before = length();
    ASSERT_EQ(server.start(), "");
    ASSERT_TRUE(comesTrue([&] { return card->hasOutput(); }));
    ASSERT_TRUE(comesTrue([&] { return length() > before + 1500; })) << before << " " << length();
    const auto stopped = device.send("stop capture");
    EXPECT_EQ(stopped.code, static_cast<int>(MediaError::inputLost));
    EXPECT_TRUE(stopped.text.starts_with("The sound input was lost during the recording. Missing seconds: "))
        << stopped.text;
    const auto samples = saved();
    const auto loudest = [&](std::size_t from) {
        return *std::max_element(samples.begin() + static_cast<std::ptrdiff_t>(from),
                                 samples.begin() + static_cast<std::ptrdiff_t>(from) + 8820);
    };
    EXPECT_NEAR(loudest(samples.size() - 8820), 0.3 * 32767, 700) << "of the tone behind the gap";
    EXPECT_NEAR(loudest(44'100), 0.3 * 32767, 700) << "and before it";
}

TEST_F(MediaThroughServer, AnswersWhenThereIsNoServerToRecordFrom) {
    server.kill();
    elsewhere = true;
    done("open new type waveaudio alias capture");
    EXPECT_NE(device.send("record capture").code, 0);
    EXPECT_NE(device.send("stop capture").code, 0) << "nothing was recorded";
}

TEST_F(MediaThroughServer, AnswersInTimeWhileTheServerHangs) {
    server.freeze(true);
    elsewhere = true;
    done("open new type waveaudio alias capture");
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_NE(device.send("record capture").code, 0);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 2000ms);
    server.freeze(false);
    std::this_thread::sleep_for(500ms);
}

TEST_F(MediaThroughServer, TellsThePositionThatIsHeard) {
    EXPECT_EQ(wrongEachTime([&]() -> std::string {
                  const auto ahead = positionAheadOfSound(server);
                  if (!ahead) return "no click";
                  return std::abs(*ahead) <= 50 ? "" : std::to_string(*ahead) + " ms";
              }),
              "");
}

}  // namespace
}  // namespace melvane
