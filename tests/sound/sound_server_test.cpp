#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <sstream>
#include <thread>

#include "measured.h"
#include "onset_finder.h"
#include "platform/clock.h"
#include "platform/midi_devices.h"
#include "platform/sound_card.h"
#include "platform/sound_font.h"
#include "private_sound_server.h"

namespace melvane {
namespace {

using namespace std::chrono_literals;
using namespace sound_test;

constexpr std::uint32_t noteOn(std::uint32_t channel, std::uint32_t key) {
    return 100U << 16 | key << 8 | 0x90 | channel;
}
constexpr std::uint32_t noteOff(std::uint32_t channel, std::uint32_t key) {
    return key << 8 | 0x80 | channel;
}
constexpr std::uint32_t program(std::uint32_t channel, std::uint32_t number) {
    return number << 8 | 0xC0 | channel;
}

constexpr std::uint32_t drums = 9;
constexpr std::uint32_t claves = 75;

class NoSystemPorts final : public SystemMidi {
 public:
    std::vector<std::string> names() override { return {}; }
    std::unique_ptr<SystemMidiOutput> open(std::size_t) override { return nullptr; }
};

class CountingTap final : public SoundTap {
 public:
    void hear(std::span<const float> interleaved, std::int64_t) noexcept override {
        frames += interleaved.size() / soundChannels;
    }
    std::atomic<std::size_t> frames{0};
};

/// The whole way of a note: port, synthesizer, card, server.
class SoundServer : public testing::Test {
 protected:
    void SetUp() override {
        ASSERT_EQ(server.start(), "");
        ASSERT_EQ(synthesizer.loadSoundFont(installedSoundFonts(soundFontCandidates())), std::nullopt);
        ASSERT_EQ(port.midiOutOpen(handle, -1), MidiPort::ok);
    }

    /// Looks every few milliseconds; false when it has not come true in time.
    template <typename Condition>
    static bool comesTrue(Condition condition, std::chrono::milliseconds patience = 6000ms) {
        const auto end = std::chrono::steady_clock::now() + patience;
        while (std::chrono::steady_clock::now() < end) {
            if (condition()) return true;
            std::this_thread::sleep_for(5ms);
        }
        return condition();
    }

    std::unique_ptr<SoundCard> openCard() {
        auto card = std::make_unique<SoundCard>(clock, std::vector<SoundSource*>{&synthesizer},
                                                std::vector<SoundTap*>{&tap});
        EXPECT_TRUE(comesTrue([&] { return card->hasOutput(); }));
        return card;
    }

    void send(std::uint32_t message) { EXPECT_EQ(port.midiOutShortMsg(handle, message), MidiPort::ok); }

    /// Strikes the keys one after the other, each `step` after the one before, and releases each at half its
    /// time. The moments at which they were struck, in nanoseconds.
    std::vector<std::int64_t> play(std::uint32_t channel, const std::vector<std::uint32_t>& keys,
                                   std::chrono::milliseconds step) {
        std::vector<std::int64_t> struck;
        auto moment = std::chrono::steady_clock::now() + 20ms;
        for (const std::uint32_t key : keys) {
            std::this_thread::sleep_until(moment);
            struck.push_back(clock.counter());
            send(noteOn(channel, key));
            std::this_thread::sleep_until(moment + step / 2);
            send(noteOff(channel, key));
            moment += step;
        }
        std::this_thread::sleep_until(moment);
        return struck;
    }

    PrivateSoundServer server;
    SteadyClock clock;
    Synthesizer synthesizer{clock, SoundCard::messageDelaySeconds};
    NoSystemPorts system;
    MidiDevices port{synthesizer, system};
    MidiPort::Handle handle = 0;
    CountingTap tap;
};

/// Empty when each spacing heard is the one played, and the mean is 138 ms.
std::string spacingFaults(const std::vector<std::size_t>& onsets, const std::vector<std::int64_t>& struck) {
    std::ostringstream faults;
    if (onsets.size() != struck.size()) {
        faults << onsets.size() << " onsets of " << struck.size();
        return faults.str();
    }
    for (std::size_t i = 1; i < onsets.size(); ++i) {
        const double heard = 1000.0 * static_cast<double>(onsets[i] - onsets[i - 1]) / soundRate;
        const double played = 1e-6 * static_cast<double>(struck[i] - struck[i - 1]);
        if (std::abs(heard - played) > 2.0)
            faults << "note " << i << ": " << heard << " for " << played << "; ";
    }
    const double mean = spacingOf(onsets, soundRate).mean;
    if (std::abs(mean - 138.0) > 2.0) faults << "mean " << mean;
    return faults.str();
}

TEST_F(SoundServer, HearsEveryNoteAtTheSpacingPlayed) {
    const auto card = openCard();
    std::this_thread::sleep_for(500ms);
    EXPECT_EQ(wrongEachTime([&] {
                  MonitorRecording recording(server);
                  const auto struck = play(drums, std::vector<std::uint32_t>(20, claves), 138ms);
                  std::this_thread::sleep_for(300ms);
                  return spacingFaults(findOnsets(recording.take(), soundRate), struck);
              }),
              "");
}

TEST_F(SoundServer, HearsTheKeysThatWerePlayed) {
    const auto card = openCard();
    std::this_thread::sleep_for(300ms);
    const std::vector<int> keys = {57, 60, 64, 69, 72};
    EXPECT_EQ(wrongEachTime([&] {
                  MonitorRecording recording(server);
                  send(program(0, 80));
                  play(0, {keys.begin(), keys.end()}, 400ms);
                  std::this_thread::sleep_for(300ms);
                  return pitchFaults(recording.take(), soundRate, keys);
              }),
              "");
}

TEST_F(SoundServer, GoesOnWithoutAServerThatDiesAndUsesItAgainWhenItIsBack) {
    const auto card = openCard();
    EXPECT_EQ(card->takeNotice(), std::nullopt);
    server.kill();
    ASSERT_TRUE(comesTrue([&] { return !card->hasOutput(); }));
    EXPECT_EQ(card->takeNotice(), SoundCard::lostNotice);
    const std::size_t before = tap.frames;
    EXPECT_TRUE(comesTrue([&] { return tap.frames > before + 10000; }));
    EXPECT_EQ(card->takeNotice(), std::nullopt);

    ASSERT_EQ(server.start(), "");
    ASSERT_TRUE(comesTrue([&] { return card->hasOutput(); }));
    EXPECT_EQ(card->takeNotice(), SoundCard::backNotice);
    EXPECT_EQ(wrongEachTime([&] {
                  MonitorRecording recording(server);
                  play(drums, {claves, claves, claves}, 200ms);
                  std::this_thread::sleep_for(300ms);
                  const auto heard = findOnsets(recording.take(), soundRate).size();
                  return heard == 3 ? std::string() : std::to_string(heard) + " onsets of 3";
              }),
              "");
}

TEST_F(SoundServer, GoesOnWhileTheServerHangsAndClosesAtOnce) {
    auto card = openCard();
    server.freeze(true);
    ASSERT_TRUE(comesTrue([&] { return !card->hasOutput(); }));
    const std::size_t before = tap.frames;
    EXPECT_TRUE(comesTrue([&] { return tap.frames > before + 10000; }));
    server.freeze(false);
    ASSERT_TRUE(comesTrue([&] { return card->hasOutput(); }));

    server.freeze(true);
    const auto start = std::chrono::steady_clock::now();
    card.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - start, 1500ms);
    server.freeze(false);
}

TEST_F(SoundServer, StartsAndClosesAtOnceWithoutAServer) {
    server.kill();
    const auto start = std::chrono::steady_clock::now();
    auto card = std::make_unique<SoundCard>(clock, std::vector<SoundSource*>{&synthesizer},
                                            std::vector<SoundTap*>{&tap});
    EXPECT_LT(std::chrono::steady_clock::now() - start, 100ms);
    EXPECT_TRUE(comesTrue([&] { return card->takeNotice() == SoundCard::noOutputNotice; }));
    EXPECT_TRUE(comesTrue([&] { return tap.frames > 10000; }));
    const auto closing = std::chrono::steady_clock::now();
    card.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - closing, 1000ms);
}

}  // namespace
}  // namespace melvane
