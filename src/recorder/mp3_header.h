#pragma once
#include <array>
#include <optional>
#include <span>
#include <string>

namespace melvane {

/// What the first four bytes of a file say, read as the header of an MP3 frame; nothing looks whether they
/// are one.
struct Mp3Header {
    std::string kilohertz;  ///< "44", "48" or "32"; empty for the fourth value, which has no meaning
    std::string kilobits;   ///< a second; "0" for a free or forbidden rate
    std::string mode;       ///< "mono" or "stereo"
};

Mp3Header readMp3Header(std::span<const unsigned char, 4> bytes);

/// The first four bytes of a file; nothing when it has fewer.
std::optional<std::array<unsigned char, 4>> firstBytes(const std::string& path);

}  // namespace melvane
