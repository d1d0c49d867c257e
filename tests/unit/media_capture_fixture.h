#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "media_fixture.h"
#include "platform/audio_file_samples.h"

namespace melvane::sound_test {

/// Captures that are saved into the test's folder.
class Capturing : public MediaTest {
 protected:
    static std::vector<std::int16_t> samplesOf(std::span<const float> sound) {
        std::vector<std::int16_t> samples;
        appendSamples(sound, samples);
        return samples;
    }
    static std::vector<std::int16_t> samplesIn(const std::string& path) {
        const std::string bytes = bytesOf(path).substr(waveHeaderSize);
        std::vector<std::int16_t> samples;
        for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
            samples.push_back(static_cast<std::int16_t>(static_cast<unsigned char>(bytes[at]) |
                                                        static_cast<unsigned char>(bytes[at + 1]) << 8));
        }
        return samples;
    }

    const std::string path = folder.file("my take 1.wav");
};

}  // namespace melvane::sound_test
