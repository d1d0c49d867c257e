#include "platform/media_wave_format.h"

#include <algorithm>
#include <array>

namespace melvane {

namespace {

constexpr std::array formats{
    WaveFormat{22050, 1, 8},  WaveFormat{22050, 2, 8},  WaveFormat{22050, 1, 16},
    WaveFormat{22050, 2, 16}, WaveFormat{44100, 1, 8},  WaveFormat{44100, 2, 8},
    WaveFormat{44100, 1, 16}, WaveFormat{44100, 2, 16}, WaveFormat{48000, 2, 16},
};

constexpr std::uint64_t plainSamples = 1;

std::string littleEndian(std::uint64_t value, int bytes) {
    std::string text;
    for (int byte = 0; byte < bytes; ++byte) text += static_cast<char>(value >> (8 * byte) & 0xFFU);
    return text;
}

std::string number(int value, int bytes) { return littleEndian(static_cast<std::uint64_t>(value), bytes); }

}  // namespace

bool isRecorded(const WaveFormat& format) { return std::ranges::find(formats, format) != formats.end(); }

std::string waveHeader(const WaveFormat& format, std::uint64_t dataBytes) {
    const std::uint64_t padded = dataBytes + dataBytes % 2;
    return "RIFF" + littleEndian(waveHeaderSize - 8 + padded, 4) + "WAVEfmt " + number(16, 4) +
           littleEndian(plainSamples, 2) + number(format.channels, 2) + number(format.rate, 4) +
           number(format.bytesPerSecond(), 4) + number(format.alignment(), 2) + number(format.bits, 2) +
           "data" + littleEndian(dataBytes, 4);
}

}  // namespace melvane
