#pragma once
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/sound_font.h"
#include "platform/sound_source.h"
#include "temporary_folder.h"

namespace melvane::sound_test {

/// A clock whose counter is set by hand; one tick is one frame.
class FrameClock final : public Clock {
 public:
    std::int64_t counter() const override { return now; }
    std::int64_t frequency() const override { return soundRate; }
    std::int64_t tickCount() const override { return now * 1000 / soundRate; }
    std::int64_t now = 0;
};

constexpr std::uint32_t noteOn(std::uint32_t channel, std::uint32_t key, std::uint32_t velocity = 100) {
    return velocity << 16 | key << 8 | 0x90 | channel;
}
constexpr std::uint32_t noteOff(std::uint32_t channel, std::uint32_t key) {
    return key << 8 | 0x80 | channel;
}
constexpr std::uint32_t controller(std::uint32_t channel, std::uint32_t number, std::uint32_t value) {
    return value << 16 | number << 8 | 0xB0 | channel;
}
constexpr std::uint32_t program(std::uint32_t channel, std::uint32_t number) {
    return number << 8 | 0xC0 | channel;
}

inline constexpr std::uint32_t drums = 9;
inline constexpr std::uint32_t claves = 75;  ///< begins at once and is over within 100 ms
inline constexpr std::uint32_t squareLead = 80;

/// The SoundFonts of this machine, the one that loads fastest first.
inline std::vector<std::string> anySoundFont() {
    std::vector<std::string> fonts = installedSoundFonts(soundFontCandidates());
    std::ranges::sort(fonts, {}, [](const std::string& path) { return std::filesystem::file_size(path); });
    return fonts;
}

/// Renders `frames` from `moment` on in blocks of `block` frames.
inline std::vector<float> render(SoundSource& source, std::size_t frames, std::int64_t moment = 0,
                                 std::size_t block = 256) {
    std::vector<float> sound(frames * soundChannels);
    for (std::size_t frame = 0; frame < frames; frame += block) {
        const std::size_t count = std::min(block, frames - frame);
        source.mix(std::span(sound).subspan(frame * soundChannels, count * soundChannels),
                   moment + static_cast<std::int64_t>(frame));
    }
    return sound;
}

inline float peak(std::span<const float> sound) {
    float highest = 0.0F;
    for (const float value : sound) highest = std::max(highest, std::abs(value));
    return highest;
}

/// The first frame above `level`.
inline std::optional<std::size_t> firstSound(std::span<const float> interleaved, float level = 0.005F) {
    for (std::size_t i = 0; i < interleaved.size(); ++i) {
        if (std::abs(interleaved[i]) > level) return i / soundChannels;
    }
    return std::nullopt;
}

using test::TemporaryFolder;

}  // namespace melvane::sound_test
