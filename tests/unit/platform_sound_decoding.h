#pragma once
#include <sndfile.h>

#include <string>
#include <vector>

namespace melvane::sound_test {

struct DecodedSound {
    int rate = 0;
    int channels = 0;
    std::size_t frames = 0;
    std::vector<float> interleaved;
};

/// Reads a WAV or MP3 file to its end. All zero when it cannot be read.
inline DecodedSound decodeSound(const std::string& path) {
    DecodedSound sound;
    SF_INFO format{};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &format);
    if (!file) return sound;
    sound.rate = format.samplerate;
    sound.channels = format.channels;
    std::vector<float> block(static_cast<std::size_t>(4096 * format.channels));
    for (sf_count_t read = 1; read > 0;) {
        read = sf_readf_float(file, block.data(), 4096);
        sound.frames += static_cast<std::size_t>(read);
        sound.interleaved.insert(sound.interleaved.end(), block.begin(),
                                 block.begin() + read * format.channels);
    }
    sf_close(file);
    return sound;
}

/// The pitch in hertz within a fifth of `expected`, by the best match of the first channel with itself, a
/// period later.
inline double pitchNear(const DecodedSound& sound, double expected) {
    const auto channels = static_cast<std::size_t>(sound.channels);
    const auto matchAt = [&](std::size_t lag) {
        double product = 0.0;
        for (std::size_t frame = 0; frame + lag < sound.frames; ++frame) {
            product += static_cast<double>(sound.interleaved[frame * channels]) *
                       static_cast<double>(sound.interleaved[(frame + lag) * channels]);
        }
        return product / static_cast<double>(sound.frames - lag);
    };
    const auto longest = static_cast<std::size_t>(sound.rate / (expected * 0.8));
    auto best = static_cast<std::size_t>(sound.rate / (expected * 1.2));
    for (std::size_t lag = best; lag <= longest; ++lag) {
        if (matchAt(lag) > matchAt(best)) best = lag;
    }
    return sound.rate / static_cast<double>(best);
}

}  // namespace melvane::sound_test
