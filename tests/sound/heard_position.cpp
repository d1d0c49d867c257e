#include "heard_position.h"

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <thread>
#include <vector>

#include "onset_finder.h"
#include "platform/audio_file_wav_writer.h"
#include "platform/media_portable_device.h"
#include "platform/sound_card.h"

namespace melvane::sound_test {

namespace {

using namespace std::chrono_literals;

constexpr double clickSeconds = 1.5, fileSeconds = 2.5;

bool writeClick(const std::string& path) {
    std::vector<float> sound(static_cast<std::size_t>(fileSeconds * soundRate) * soundChannels);
    const auto click = static_cast<std::size_t>(clickSeconds * soundRate);
    for (std::size_t frame = 0; frame < soundRate / 10; ++frame) {
        sound[2 * (click + frame)] = sound[2 * (click + frame) + 1] = frame / 50 % 2 == 0 ? 0.5F : -0.5F;
    }
    WavWriter writer(path);
    return writer.write(sound) && !writer.finish();
}

/// One look: how much the monitor has brought, and where the player stands.
struct Look {
    std::uintmax_t frames = 0;
    double milliseconds = 0;
};

std::vector<Look> watch(MediaDevice& device, const std::string& recording) {
    std::vector<Look> looks;
    const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(fileSeconds);
    while (std::chrono::steady_clock::now() < end) {
        std::error_code failed;
        const auto bytes = std::filesystem::file_size(recording, failed);
        const double position = std::atof(device.send("status a position").text.c_str());
        looks.push_back({failed ? 0 : bytes / (soundChannels * sizeof(float)), position});
        std::this_thread::sleep_for(1ms);
    }
    return looks;
}

}  // namespace

std::optional<double> positionAheadOfSound(const PrivateSoundServer& server) {
    SteadyClock clock;
    Synthesizer synthesizer(clock, SoundCard::messageDelaySeconds);
    PortableMediaDevice device(clock, synthesizer, {});
    SoundCard card(clock, {&synthesizer, &device.voices()}, {&device.tap()});
    for (int turn = 0; turn < 400 && !card.hasOutput(); ++turn) std::this_thread::sleep_for(10ms);
    std::this_thread::sleep_for(500ms);

    const std::string click = server.folder() + "/click.wav";
    if (!writeClick(click)) return std::nullopt;
    MonitorRecording recording(server);
    if (device.send("open " + click + " type MPEGVideo alias a").code != 0) return std::nullopt;
    if (device.send("play a from 0").code != 0) return std::nullopt;
    const auto looks = watch(device, server.folder() + "/recording.raw");
    const auto onsets = findOnsets(recording.take(), soundRate);
    if (onsets.size() != 1) return std::nullopt;
    for (const Look& look : looks) {
        if (look.frames > onsets.front()) return look.milliseconds - clickSeconds * 1000;
    }
    return std::nullopt;
}

}  // namespace melvane::sound_test
