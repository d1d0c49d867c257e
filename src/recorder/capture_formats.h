#pragma once
#include <array>
#include <span>
#include <string_view>

namespace melvane {

/// How sound is captured. A format that is none has zeros.
struct CaptureFormat {
    std::string_view text;  ///< as the list shows it
    int samplesPerSecond = 0, channels = 0, bits = 0;

    constexpr int alignment() const { return bits * channels / 8; }  ///< bytes a frame
    constexpr int bytesPerSecond() const { return alignment() * samplesPerSecond; }
};

inline constexpr std::array<CaptureFormat, 9> captureFormats{
    {{"22.050Hz, 8bit Mono, 21k/sec", 22050, 1, 8},
     {"22.050Hz, 8bit Stereo, 43k/sec", 22050, 2, 8},
     {"22.050Hz, 16bit Mono, 43k/sec", 22050, 1, 16},
     {"22.050Hz, 16bit Stereo, 86k/sec", 22050, 2, 16},
     {"44.100Hz, 8bit Mono, 43k/sec", 44100, 1, 8},
     {"44.100Hz, 8bit Stereo, 86k/sec", 44100, 2, 8},
     {"44.100Hz, 16bit Mono, 86k/sec", 44100, 1, 16},
     {"44.100Hz, 16bit Stereo, 172k/sec", 44100, 2, 16},
     {"48.000Hz, 16bit Stereo, 192k/sec", 48000, 2, 16}}};

/// The first four are known and never offered.
inline constexpr std::span<const CaptureFormat> offeredFormats = std::span(captureFormats).subspan(4);
/// Index among the offered ones: 44.1 kHz, 16 bits, stereo.
inline constexpr int usualFormat = 3;

/// The format of that text; one of zeros for any other.
constexpr CaptureFormat captureFormat(std::string_view text) {
    for (const auto& format : captureFormats) {
        if (format.text == text) return format;
    }
    return {};
}

}  // namespace melvane
