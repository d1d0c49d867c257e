#include "recorder/encoder_settings.h"

#include "core/numbers.h"

namespace melvane {

namespace {

struct Layout {
    std::uint32_t sampleRate, mode;
};

// By index of the list of capture formats.
constexpr std::array<Layout, 10> layouts{{{22050, encoder_mode::jointStereo},
                                          {22050, encoder_mode::mono},
                                          {22050, encoder_mode::jointStereo},
                                          {44100, encoder_mode::mono},
                                          {44100, encoder_mode::jointStereo},
                                          {44100, encoder_mode::mono},
                                          {44100, encoder_mode::jointStereo},
                                          {44100, encoder_mode::mono},
                                          {44100, encoder_mode::jointStereo},
                                          {48000, encoder_mode::jointStereo}}};

}  // namespace

std::vector<std::string> qualityTexts() {
    std::vector<std::string> texts;
    for (const auto& quality : encoderQualities) texts.emplace_back(quality.text);
    return texts;
}

std::vector<std::string> bitrateTexts() { return {encoderBitrates.begin(), encoderBitrates.end()}; }

BE_CONFIG encoderSettings(int formatIndex, const std::string& bitrate, const EncoderQuality& quality) {
    BE_CONFIG config;
    config.dwConfig = BE_CONFIG::lameForm;
    config.dwStructVersion = 1;
    config.dwStructSize = 331;
    if (formatIndex >= 0 && formatIndex < static_cast<int>(layouts.size())) {
        const Layout& layout = layouts[static_cast<std::size_t>(formatIndex)];
        config.dwSampleRate = layout.sampleRate;
        config.nMode = layout.mode;
    }
    assign(config.dwBitrate, leadingNumber(bitrate));
    config.nPreset = quality.preset;
    config.dwMpegVersion = 1;
    config.bOriginal = -1;
    config.bNoRes = -1;
    return config;
}

}  // namespace melvane
