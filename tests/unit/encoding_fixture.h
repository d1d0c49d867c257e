#pragma once
#include <cmath>
#include <cstdint>
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
    ~EncodingTest() override { std::filesystem::current_path("/"); }

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
