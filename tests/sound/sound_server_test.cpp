#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <thread>

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

TEST_F(SoundServer, HearsEveryNoteAtTheSpacingPlayed) {
    const auto card = openCard();
    std::this_thread::sleep_for(500ms);
    MonitorRecording recording(server);
    const auto struck = play(drums, std::vector<std::uint32_t>(20, claves), 138ms);
    std::this_thread::sleep_for(300ms);
    const auto onsets = findOnsets(recording.take(), soundRate);
    ASSERT_EQ(onsets.size(), struck.size());
    int farOff = 0;
    for (std::size_t i = 1; i < onsets.size(); ++i) {
        const double heard = 1000.0 * static_cast<double>(onsets[i] - onsets[i - 1]) / soundRate;
        const double played = 1e-6 * static_cast<double>(struck[i] - struck[i - 1]);
        if (std::abs(heard - played) > 2.0) ++farOff;
    }
    // On a busy machine the server or the recorder may miss a few milliseconds once or twice.
    EXPECT_LE(farOff, 2);
    EXPECT_NEAR(spacingOf(onsets, soundRate).mean, 138.0, 2.0);
}

TEST_F(SoundServer, HearsTheKeysThatWerePlayed) {
    const auto card = openCard();
    std::this_thread::sleep_for(300ms);
    MonitorRecording recording(server);
    send(program(0, 80));
    const std::vector<std::uint32_t> keys = {57, 60, 64, 69, 72};
    play(0, keys, 400ms);
    std::this_thread::sleep_for(300ms);
    const std::vector<float> sound = recording.take();
    const auto onsets = findOnsets(sound, soundRate);
    ASSERT_EQ(onsets.size(), keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const double expected = 440.0 * std::exp2((static_cast<double>(keys[i]) - 69.0) / 12.0);
        const double heard = findPitch(std::span(sound).subspan(onsets[i] + 1500, 4000), soundRate);
        EXPECT_NEAR(heard, expected, expected * 0.01) << "key " << keys[i];
    }
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
    MonitorRecording recording(server);
    play(drums, {claves, claves, claves}, 200ms);
    std::this_thread::sleep_for(300ms);
    EXPECT_EQ(findOnsets(recording.take(), soundRate).size(), 3U);
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
