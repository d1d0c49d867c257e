#include <gtest/gtest.h>

#include "platform/audio_file_mp3_writer.h"
#include "platform/audio_file_wav_writer.h"
#include "platform/offline_midi_port.h"
#include "platform_sound_decoding.h"
#include "platform_sound_helpers.h"

namespace melvane {
namespace {

using namespace sound_test;

/// Keeps the sound, or fails once it holds `limit` values.
class MemorySink final : public AudioSink {
 public:
    bool write(std::span<const float> interleaved) override {
        if (sound.size() >= limit) return false;
        sound.insert(sound.end(), interleaved.begin(), interleaved.end());
        return true;
    }
    std::optional<std::string> finish() override {
        if (sound.size() >= limit) return "The sink is full.";
        return std::nullopt;
    }
    std::vector<float> sound;
    std::size_t limit = std::numeric_limits<std::size_t>::max();
};

class NanosecondClock final : public Clock {
 public:
    std::int64_t counter() const override { return now; }
    std::int64_t frequency() const override { return 1'000'000'000; }
    std::int64_t tickCount() const override { return now / 1'000'000; }
    std::int64_t now = 5'000'000'000;
};

class Offline : public testing::Test {
 protected:
    void SetUp() override {
        ASSERT_EQ(synthesizer.loadSoundFont(anySoundFont()), std::nullopt);
        ASSERT_EQ(port.midiOutOpen(handle, -1), MidiPort::ok);
    }
    void send(std::uint32_t message) { EXPECT_EQ(port.midiOutShortMsg(handle, message), MidiPort::ok); }

    FrameClock clock;
    Synthesizer synthesizer{clock, 0.0};
    MemorySink sink;
    OfflineMidiPort port{clock, synthesizer, sink};
    MidiPort::Handle handle = 0;
};

TEST_F(Offline, RendersExactlyToTheClockAndTheTailBeyond) {
    clock.now = 100'001;
    EXPECT_TRUE(port.renderToNow());
    EXPECT_EQ(sink.sound.size(), 2U * 100'001U);
    EXPECT_EQ(port.finish(0.5), std::nullopt);
    EXPECT_EQ(port.framesRendered(), 100'001 + soundRate / 2);
    EXPECT_EQ(sink.sound.size(), 2U * (100'001U + soundRate / 2));
}

TEST_F(Offline, PlacesNotesByTheClock) {
    const std::vector<std::int64_t> moments = {1000, 20'011, 40'037};
    for (const std::int64_t moment : moments) {
        clock.now = moment;
        send(noteOn(drums, claves));
    }
    EXPECT_EQ(port.finish(0.5), std::nullopt);
    std::vector<std::int64_t> delays;
    for (const std::int64_t moment : moments) {
        const auto rest = std::span(sink.sound).subspan(2 * static_cast<std::size_t>(moment));
        delays.push_back(static_cast<std::int64_t>(firstSound(rest, 0.03F).value_or(0)));
    }
    for (const std::int64_t delay : delays) {
        EXPECT_GE(delay, 48);
        EXPECT_NEAR(static_cast<double>(delay), static_cast<double>(delays[0]), 16.0);
    }
}

TEST_F(Offline, ResetCutsTheSoundAtTheClocksMoment) {
    send(program(0, squareLead));
    send(noteOn(0, 60));
    clock.now = soundRate;
    EXPECT_EQ(port.midiOutReset(handle), MidiPort::ok);
    clock.now = 2 * soundRate;
    EXPECT_EQ(port.finish(0.0), std::nullopt);
    EXPECT_GT(peak(std::span(sink.sound).subspan(2 * soundRate - 4000, 4000)), 0.05F);
    EXPECT_LT(peak(std::span(sink.sound).subspan(2 * soundRate + 1024)), 0.005F);
}

TEST_F(Offline, HoldsTheRulesOfAMidiPort) {
    EXPECT_EQ(port.midiOutGetNumDevs(), 1);
    EXPECT_EQ(port.midiOutGetDevCapsA(0), "Melvane Synthesizer");
    EXPECT_EQ(port.midiOutGetDevCapsA(1), "");
    MidiPort::Handle other = 9;
    EXPECT_EQ(port.midiOutOpen(other, 1), MidiPort::badDevice);
    EXPECT_EQ(other, 9U);
    EXPECT_EQ(port.midiOutClose(handle), MidiPort::ok);
    EXPECT_EQ(port.midiOutClose(handle), MidiPort::badHandle);
    EXPECT_EQ(port.midiOutShortMsg(handle, noteOn(0, 60)), MidiPort::badHandle);
    EXPECT_EQ(port.midiOutReset(handle), MidiPort::badHandle);
}

TEST_F(Offline, StopsAndSaysWhyWhenTheSinkFails) {
    sink.limit = 10'000;
    clock.now = 10 * soundRate;
    EXPECT_FALSE(port.renderToNow());
    EXPECT_LT(sink.sound.size(), 20'000U);
    EXPECT_EQ(port.finish(1.0), "The sink is full.");
}

TEST(OfflineOnANanosecondClock, LosesNoFrameOverManySmallSteps) {
    NanosecondClock clock;
    Synthesizer synthesizer(clock, 0.0);
    MemorySink sink;
    OfflineMidiPort port(clock, synthesizer, sink);
    for (int step = 0; step < 1000; ++step) {
        clock.now += 138'333'333 / 100;
        EXPECT_TRUE(port.renderToNow());
    }
    EXPECT_EQ(port.framesRendered(), static_cast<std::int64_t>(1.38333333 * soundRate));
}

/// One tone of a second through the whole offline way into a file.
template <typename Writer>
DecodedSound renderToneTo(const std::string& path) {
    FrameClock clock;
    Synthesizer synthesizer(clock, 0.0);
    EXPECT_EQ(synthesizer.loadSoundFont(anySoundFont()), std::nullopt);
    Writer writer(path);
    OfflineMidiPort port(clock, synthesizer, writer);
    MidiPort::Handle handle = 0;
    EXPECT_EQ(port.midiOutOpen(handle, 0), MidiPort::ok);
    port.midiOutShortMsg(handle, program(0, 79));
    port.midiOutShortMsg(handle, noteOn(0, 69));
    clock.now = soundRate;
    EXPECT_EQ(port.finish(0.0), std::nullopt);
    return decodeSound(path);
}

TEST(OfflineToFile, WritesTheNoteThatWasPlayed) {
    const TemporaryFolder folder;
    const DecodedSound wav = renderToneTo<WavWriter>(folder.file("a.wav"));
    EXPECT_EQ(wav.frames, static_cast<std::size_t>(soundRate));
    EXPECT_NEAR(pitchNear(wav, 440.0), 440.0, 5.0);
    const DecodedSound mp3 = renderToneTo<Mp3Writer>(folder.file("a.mp3"));
    EXPECT_NEAR(static_cast<double>(mp3.frames), soundRate, 2 * 1152.0);
    EXPECT_NEAR(pitchNear(mp3, 440.0), 440.0, 5.0);
}

}  // namespace
}  // namespace melvane
