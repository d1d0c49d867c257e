#include "platform/media_audio_reader.h"

#include <algorithm>
#include <cmath>

#include "platform/sound_source.h"

namespace melvane {

namespace {

constexpr std::size_t framesAtOnce = 4096;

float sane(float value) { return std::isfinite(value) ? std::clamp(value, -1.0F, 1.0F) : 0.0F; }

/// A frame's place at one rate, brought to the other.
std::int64_t atRate(std::int64_t frame, int from, int to) {
    return static_cast<std::int64_t>(std::llround(static_cast<long double>(frame) * to / from));
}

}  // namespace

std::unique_ptr<AudioReader> AudioReader::open(const std::string& path,
                                               const std::function<void(std::int64_t)>& guessed) {
    auto decoder = openSoundFile(path);
    if (!decoder) return nullptr;
    if (guessed) guessed(atRate(decoder->frames(), decoder->rate(), soundRate));
    if (!decoder->count()) return nullptr;
    std::unique_ptr<AudioReader> reader(new AudioReader(std::move(decoder)));
    const int rate = reader->decoder_->rate();
    if (rate == soundRate) return reader;
    reader->resampler_ = Resampler::make(rate, soundRate, static_cast<int>(soundChannels));
    return reader->resampler_ ? std::move(reader) : nullptr;
}

AudioReader::AudioReader(std::unique_ptr<MediaDecoder> decoder)
    : decoder_(std::move(decoder)), read_(framesAtOnce * soundChannels) {}

AudioReader::~AudioReader() = default;

std::int64_t AudioReader::length() const { return atRate(decoder_->frames(), decoder_->rate(), soundRate); }

void AudioReader::seek(std::int64_t frame) {
    const std::int64_t there = atRate(frame, soundRate, decoder_->rate());
    hasEnded_ = !decoder_->seek(std::min(there, decoder_->frames()));
    if (resampler_) resampler_->reset();
}

bool AudioReader::read(std::vector<float>& stereo) {
    if (hasEnded_) return false;
    const std::size_t frames = decoder_->read(read_);
    hasEnded_ = frames == 0;
    const auto sound = std::span(read_).first(frames * soundChannels);
    std::ranges::transform(sound, sound.begin(), sane);
    if (resampler_) {
        resampler_->feed(sound, hasEnded_, stereo);
    } else {
        stereo.insert(stereo.end(), sound.begin(), sound.end());
    }
    return !hasEnded_;
}

}  // namespace melvane
