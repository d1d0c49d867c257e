#include "sound_files.h"

#include <mpg123.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <memory>

#include "platform/files.h"

namespace melvane::e2e {

namespace {

constexpr std::size_t headerSize = 44, channelsAt = 22, rateAt = 24, bitsAt = 34, dataSizeAt = 40;
constexpr int bitsAValue = 16;
constexpr float fullScale = 32768.0F;

template <typename Number>
Number numberAt(const std::string& bytes, std::size_t place) {
    Number number{};
    std::memcpy(&number, bytes.data() + place, sizeof number);
    return number;
}

bool isPlain(const std::string& bytes) {
    return bytes.size() >= headerSize && bytes.starts_with("RIFF") && bytes.substr(8, 8) == "WAVEfmt " &&
           bytes.substr(36, 4) == "data" && numberAt<std::uint16_t>(bytes, bitsAt) == bitsAValue &&
           numberAt<std::uint16_t>(bytes, channelsAt) > 0 &&
           numberAt<std::uint32_t>(bytes, dataSizeAt) == bytes.size() - headerSize;
}

struct CloseDecoder {
    void operator()(mpg123_handle* decoder) const { mpg123_delete(decoder); }
};
using Decoder = std::unique_ptr<mpg123_handle, CloseDecoder>;

Decoder openDecoder(const std::string& path, Sound& sound) {
    Decoder decoder(mpg123_new(nullptr, nullptr));
    if (!decoder) return nullptr;
    mpg123_param(decoder.get(), MPG123_FLAGS, MPG123_FORCE_FLOAT | MPG123_QUIET, 0);
    mpg123_param(decoder.get(), MPG123_REMOVE_FLAGS, MPG123_GAPLESS, 0);
    long rate = 0;
    int encoding = 0;
    const bool opened = mpg123_open(decoder.get(), path.c_str()) == MPG123_OK &&
                        mpg123_getformat(decoder.get(), &rate, &sound.channels, &encoding) == MPG123_OK;
    sound.rate = static_cast<int>(rate);
    return opened && encoding == MPG123_ENC_FLOAT_32 ? std::move(decoder) : nullptr;
}

}  // namespace

std::optional<Sound> readPlainWav(const std::string& path) {
    const auto bytes = readFile(path);
    if (!bytes || !isPlain(*bytes)) return std::nullopt;
    Sound sound{static_cast<int>(numberAt<std::uint32_t>(*bytes, rateAt)),
                numberAt<std::uint16_t>(*bytes, channelsAt),
                {}};
    const auto stride = static_cast<std::size_t>(sound.channels) * sizeof(std::int16_t);
    for (std::size_t place = headerSize; place + stride <= bytes->size(); place += stride)
        sound.left.push_back(static_cast<float>(numberAt<std::int16_t>(*bytes, place)) / fullScale);
    return sound;
}

std::optional<Sound> readMp3(const std::string& path) {
    Sound sound;
    const Decoder decoder = openDecoder(path, sound);
    if (!decoder) return std::nullopt;
    std::array<float, 4096> block{};
    const auto channels = static_cast<std::size_t>(sound.channels);
    for (;;) {
        std::size_t done = 0;
        const int result = mpg123_read(decoder.get(), block.data(), sizeof block, &done);
        for (std::size_t value = 0; value < done / sizeof(float); value += channels)
            sound.left.push_back(block[value]);
        if (result == MPG123_DONE) return sound;
        if (result != MPG123_OK) return std::nullopt;
    }
}

}  // namespace melvane::e2e
