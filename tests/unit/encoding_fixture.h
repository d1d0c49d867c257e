#pragma once
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <numbers>

#include "platform_sound_decoding.h"
#include "recorder_fixture.h"

namespace melvane::test {

/// The recorder with what it needs to encode, and WAV files to be encoded.
class EncodingTest : public RecorderTest {
 protected:
    EncodingTest() {
        makeLibraries();
        window().Check3.set(false);
    }

    static constexpr std::size_t headerSize = 44;

    /// A WAV file of 16-bit values, a tone whose pitch glides from 200 Hz up.
    std::string tone(const std::string& name, std::size_t values) {
        std::string bytes(headerSize, '\0');
        for (std::size_t at = 0; at < values; ++at) {
            const double turns = static_cast<double>(at) * (200 + static_cast<double>(at) / 500) / 44100;
            const auto value = static_cast<std::int16_t>(12000 * std::sin(2 * std::numbers::pi * turns));
            bytes += static_cast<char>(value & 0xFF);
            bytes += static_cast<char>((value >> 8) & 0xFF);
        }
        return write(name, bytes);
    }
    /// The MP3 that comes of a WAV file's bytes, reckoned by hand: 44 bytes are read into the block and not
    /// looked at, then as many bytes are counted as there are, header included, chunk by chunk, each read
    /// over what the block held. At most `chunks` of them.
    static std::string mp3Of(const std::string& wav, const BE_CONFIG& config,
                             int chunks = std::numeric_limits<int>::max()) {
        EncoderStreams streams;
        EncoderStreams::Sizes sizes;
        std::uint32_t handle = 0, written = 0;
        EXPECT_EQ(streams.beInitStream(config, sizes, handle), EncoderError::none);
        std::vector<std::int16_t> block(sizes.samples);
        std::vector<unsigned char> output(sizes.outputBytes);
        std::string mp3;
        std::size_t place = 0;
        const auto read = [&](std::size_t bytes) {
            bytes = std::min(bytes, wav.size() - place);
            std::memcpy(block.data(), wav.data() + place, bytes);
            place += bytes;
        };
        const auto take = [&](EncoderError error) {
            EXPECT_EQ(error, EncoderError::none);
            mp3.append(output.begin(), output.begin() + written);
        };
        read(headerSize);
        for (std::size_t done = 0; done < wav.size() && chunks > 0; --chunks) {
            const std::size_t bytes = std::min(block.size() * 2, wav.size() - done);
            read(bytes);
            done += bytes;
            take(streams.beEncodeChunk(handle, std::span(block).first(bytes / 2), output, written));
        }
        take(streams.beDeinitStream(handle, output, written));
        return mp3;
    }
    /// What the lists choose.
    BE_CONFIG chosen() {
        return encoderSettings(window().cbxFormat.index(), window().Combo4.text(),
                               encoderQualities.at(static_cast<std::size_t>(window().Combo3.index())));
    }
    void put(const std::string& file) { window().Text6.set(file); }
    void press() { window().Command20.userPut(Value(1LL)); }
    void encode(const std::string& file) {
        put(file);
        press();
    }
    void removeMp3() { std::filesystem::remove(folder.file("a.mp3")); }
    static auto decode(const std::string& path) { return sound_test::decodeSound(path); }
    /// Events that come at each turn of the interface, by its number from 1.
    void atTurn(std::function<void(int turn)> call) {
        time.serveToolkit = [this, call = std::move(call)] { call(++turns_); };
    }

 private:
    int turns_ = 0;
};

}  // namespace melvane::test
