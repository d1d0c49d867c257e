#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace melvane {

/// What an encoder stream is set up with.
struct BE_CONFIG {
    std::uint32_t dwConfig = 0;  ///< which form of settings this is
    std::uint32_t dwStructVersion = 0, dwStructSize = 0;
    std::uint32_t dwSampleRate = 0;    ///< of the samples given, a second
    std::uint32_t dwReSampleRate = 0;  ///< of the stream; 0: the encoder's choice
    std::uint32_t nMode = 0;           ///< one of encoder_mode
    std::uint32_t dwBitrate = 0;       ///< kilobits a second
    std::int32_t nPreset = 0;
    std::uint32_t dwMpegVersion = 0, dwPsyModel = 0, dwEmphasis = 0;  ///< not looked at
    std::int32_t bOriginal = 0;                                       ///< flag
    std::int32_t bNoRes = 0;                                          ///< flag: without a bit reservoir

    static constexpr std::uint32_t lameForm = 256;
};

namespace encoder_mode {
inline constexpr std::uint32_t stereo = 0, jointStereo = 1, mono = 3;
}

/// The list of qualities, and the numbers that the encoder knows them by.
struct EncoderQuality {
    const char* text;
    std::int32_t preset;
};
inline constexpr std::array<EncoderQuality, 10> encoderQualities{{{"Low", 1},
                                                                  {"Normal", 0},
                                                                  {"High", 2},
                                                                  {"Voice", 3},
                                                                  {"Phone", 1000},
                                                                  {"Radio", 6000},
                                                                  {"Tape", 7000},
                                                                  {"Hifi", 8000},
                                                                  {"CD", 9000},
                                                                  {"Studio", 10000}}};

/// Kilobits a second.
inline constexpr std::array<const char*, 14> encoderBitrates{"32",  "40",  "48",  "56",  "64",  "80",  "96",
                                                             "112", "128", "160", "192", "224", "256", "320"};

std::vector<std::string> qualityTexts();
std::vector<std::string> bitrateTexts();

/// The settings for an entry of the list of capture formats, a bit rate and a quality. The samples' layout
/// goes by the entry's index and not by what it says, so a file may be read at another rate or with another
/// number of channels than it has. An index that is none leaves rate and mode at 0.
BE_CONFIG encoderSettings(int formatIndex, const std::string& bitrate, const EncoderQuality& quality);

}  // namespace melvane
