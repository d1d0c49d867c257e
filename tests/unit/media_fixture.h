#pragma once
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <numbers>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/audio_file_wav_writer.h"
#include "platform/media_error.h"
#include "platform/media_portable_device.h"
#include "platform/sound_mixer.h"
#include "platform_sound_helpers.h"

namespace melvane::sound_test {

/// A tone in stereo at soundRate.
inline std::vector<float> stereoTone(double hertz, double left, double right, std::size_t frames) {
    std::vector<float> sound;
    for (std::size_t frame = 0; frame < frames; ++frame) {
        const double wave = std::sin(2 * std::numbers::pi * hertz * static_cast<double>(frame) / soundRate);
        sound.push_back(static_cast<float>(left * wave));
        sound.push_back(static_cast<float>(right * wave));
    }
    return sound;
}

/// The amplitude of one frequency in one channel of `channels`.
inline double amplitudeAt(std::span<const float> sound, double hertz, double rate, std::size_t channels = 2,
                          std::size_t channel = 0) {
    double sine = 0, cosine = 0;
    const std::size_t frames = sound.size() / channels;
    for (std::size_t frame = 0; frame < frames; ++frame) {
        const double angle = 2 * std::numbers::pi * hertz * static_cast<double>(frame) / rate;
        sine += static_cast<double>(sound[frame * channels + channel]) * std::sin(angle);
        cosine += static_cast<double>(sound[frame * channels + channel]) * std::cos(angle);
    }
    return 2 * std::hypot(sine, cosine) / static_cast<double>(frames);
}

inline std::string bytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void writeWav(const std::string& path, std::span<const float> stereo) {
    WavWriter writer(path);
    ASSERT_TRUE(writer.write(stereo));
    ASSERT_EQ(writer.finish(), std::nullopt);
}

/// A source that gives a sound once, from its start.
class SoundOnce final : public SoundSource {
 public:
    void mix(std::span<float> interleaved, std::int64_t) noexcept override {
        const std::size_t count = std::min(interleaved.size(), sound.size() - used);
        for (std::size_t at = 0; at < count; ++at) interleaved[at] += sound[used + at];
        used += count;
    }
    std::vector<float> sound;
    std::size_t used = 0;
};

/// A media device in a stream that is rendered by hand, on a clock of one tick a frame.
class MediaTest : public testing::Test {
 protected:
    static constexpr double delaySeconds = 0.030;

    /// Carries it out; the answer's text. Fails the test when it is not carried out.
    std::string done(const std::string& command) {
        const auto answer = device->send(command);
        EXPECT_EQ(answer.code, 0) << command << ": " << answer.text;
        return answer.text;
    }
    MediaError refused(const std::string& command) {
        const auto answer = device->send(command);
        EXPECT_NE(answer.code, 0) << command << ": " << answer.text;
        EXPECT_NE(answer.text, "") << command;
        EXPECT_LT(answer.text.size(), 128U) << command;
        return static_cast<MediaError>(answer.code);
    }
    long number(const std::string& command) { return std::stol(done(command)); }

    /// Lets the stream run, and the clock with it.
    std::vector<float> run(double seconds) {
        auto frames = static_cast<std::size_t>(std::llround(seconds * soundRate));
        std::vector<float> sound;
        device->catchUp();
        while (frames > 0) {
            if (blocks++ % 32 == 0) device->catchUp();
            std::vector<float> block(std::min<std::size_t>(256, frames) * soundChannels);
            EXPECT_TRUE(mixer.render(ticket, block, [this] { return clock.now; }));
            sound.insert(sound.end(), block.begin(), block.end());
            clock.now += static_cast<std::int64_t>(block.size() / soundChannels);
            frames -= block.size() / soundChannels;
        }
        return sound;
    }
    void openCapture(const std::string& format = {}) {
        done("open new type waveaudio alias capture");
        if (!format.empty()) done("set capture " + format);
    }
    void openFile(const std::string& path) {
        done("open " + path + " type MPEGVideo Alias audiomp3 parent 0 Style 1073741824");
        done("set audiomp3 time format frames");
    }

    TemporaryFolder folder;
    FrameClock clock;
    Synthesizer synthesizer{clock, 0.0};
    SoundOnce source;
    bool elsewhere = false;
    std::string recordings;  ///< the folder in which they will be saved
    PortableMediaDevice::Setting setting{
        .soundsElsewhere = [this] { return elsewhere; },
        .openInput = [](const std::shared_ptr<SoundTap>&) { return std::unique_ptr<SoundInput>(); },
        .outputDelaySeconds = delaySeconds,
        .recordingsFolder = [this] { return recordings; },
        .readPatience = std::chrono::seconds(20)};
    std::unique_ptr<PortableMediaDevice> device =
        std::make_unique<PortableMediaDevice>(clock, synthesizer, setting);
    SoundMixer mixer{{&source, &synthesizer, &device->voices()}, {&device->tap()}, soundRate};
    SoundMixer::Ticket ticket = mixer.handOver();
    int blocks = 0;
};

}  // namespace melvane::sound_test
