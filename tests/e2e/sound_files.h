#pragma once
#include <optional>
#include <string>
#include <vector>

namespace melvane::e2e {

/// A sound as a file tells it.
struct Sound {
    int rate = 0;             ///< frames a second
    int channels = 0;         ///< that the file has
    std::vector<float> left;  ///< its first channel, -1 to 1

    double seconds() const { return rate > 0 ? static_cast<double>(left.size()) / rate : 0.0; }
};

/// A WAV file with the plain header of 44 bytes and values of 16 bits, whose header tells the truth about its
/// size; nothing for any other.
std::optional<Sound> readPlainWav(const std::string& path);

/// An MP3 file, by a decoder that has nothing in common with the encoder and leaves nothing out at the ends;
/// nothing when it finds a fault.
std::optional<Sound> readMp3(const std::string& path);

}  // namespace melvane::e2e
