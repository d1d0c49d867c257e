#include "platform/media_wave_encoder.h"

#include <algorithm>
#include <cmath>

#include "platform/audio_file_samples.h"
#include "platform/sound_source.h"

namespace melvane {

namespace {

constexpr float byteMiddle = 128.0F, byteScale = 127.0F, byteHighest = 255.0F;

/// 0 to 1.
float uniform(std::minstd_rand& random) {
    return static_cast<float>(random() - std::minstd_rand::min()) /
           static_cast<float>(std::minstd_rand::max() - std::minstd_rand::min());
}

}  // namespace

WaveEncoder::WaveEncoder(const WaveFormat& format) : format_(format) {
    if (format.rate != soundRate) resampler_ = Resampler::make(soundRate, format.rate, format.channels);
}

std::span<const float> WaveEncoder::inChannels(std::span<const float> stereo) {
    if (format_.channels == 2) return stereo;
    mono_.clear();
    for (std::size_t at = 0; at + 1 < stereo.size(); at += 2) {
        mono_.push_back((stereo[at] + stereo[at + 1]) / 2);
    }
    return mono_;
}

std::span<const float> WaveEncoder::inRate(std::span<const float> sound, bool isLast) {
    if (!resampler_) return sound;
    resampled_.clear();
    resampler_->feed(sound, isLast, resampled_);
    return resampled_;
}

std::uint8_t WaveEncoder::dithered(float value) {
    if (std::isnan(value)) value = 0;
    const float dither = uniform(noise_) - uniform(noise_);
    const float scaled = std::clamp(byteMiddle + value * byteScale + dither, 0.0F, byteHighest);
    return static_cast<std::uint8_t>(std::lrint(scaled));
}

void WaveEncoder::encode(std::span<const float> stereo, bool isLast, std::string& bytes) {
    const auto sound = inRate(inChannels(stereo), isLast);
    if (format_.bits == 8) {
        for (const float value : sound) bytes += static_cast<char>(dithered(value));
        return;
    }
    samples_.clear();
    appendSamples(sound, samples_);
    for (const std::int16_t sample : samples_) {
        bytes += static_cast<char>(sample & 0xFF);
        bytes += static_cast<char>(sample >> 8 & 0xFF);
    }
}

}  // namespace melvane
