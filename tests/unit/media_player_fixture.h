#pragma once
#include <string>
#include <vector>

#include "media_fixture.h"

namespace melvane::sound_test {

inline constexpr double toneSeconds = 4.0;
inline constexpr auto toneFrames = static_cast<std::size_t>(toneSeconds * soundRate);

/// Plays a WAV file of four seconds with a tone.
class MediaPlaying : public MediaTest {
 protected:
    void SetUp() override {
        path = folder.file("a tone.wav");
        tone = stereoTone(441, 0.5, 0.25, toneFrames);
        writeWav(path, tone);
    }
    long position() { return number("status audiomp3 position"); }
    void inMilliseconds() { done("set audiomp3 time format ms"); }

    std::string path;
    std::vector<float> tone;
};

}  // namespace melvane::sound_test
