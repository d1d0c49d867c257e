#pragma once
#include "platform/files.h"
#include "program_fixture.h"

namespace melvane::test {

/// Exports, with expected files put together from hexadecimal bytes by the rules of the format.
class MidiExportTest : public ProgramTest {
 protected:
    void SetUp() override { start(); }

    /// Blanks between the bytes do not matter.
    static std::string bytes(const std::string& hex) {
        std::string found;
        std::string digits;
        for (const char digit : hex) {
            if (digit != ' ') digits += digit;
            if (digits.size() < 2) continue;
            found += static_cast<char>(std::stoi(digits, nullptr, 16));
            digits.clear();
        }
        return found;
    }
    static std::string hex(const std::string& text) {
        constexpr const char* digits = "0123456789ABCDEF";
        std::string found;
        for (const char letter : text) {
            const auto byte = static_cast<unsigned char>(letter);
            found += digits[byte >> 4];
            found += digits[byte & 15];
            found += ' ';
        }
        return found;
    }
    /// The first 41 bytes, at tempo 100 and 4 beats unless told otherwise.
    static std::string head(const std::string& tempo = "09 27 C0", const std::string& denominator = "02") {
        return bytes("4D 54 68 64 00 00 00 06 00 01 00 0E 00 30" +
                     ("4D 54 72 6B 00 00 00 13 00 FF 51 03" + tempo) + "00 FF 58 04 04" + denominator +
                     "18 08 00 FF 2F 00");
    }
    /// A chunk of these events, with the time in hexadecimal that the end of the track has.
    static std::string track(const std::string& events, const std::string& end) {
        const std::string data = bytes(events + end + "FF 2F 00");
        return bytes("4D 54 72 6B 00 00") + static_cast<char>(data.size() / 256) +
               static_cast<char>(data.size() % 256) + data;
    }
    static std::string empties(int tracks, const std::string& end) {
        std::string chunks;
        for (int count = 0; count < tracks; ++count) chunks += track("", end);
        return chunks;
    }

    std::string exported() { return engine.midiExport.build().bytes; }
    void exportTo(const std::string& path) {
        studio.score.SaveFileName = path;
        engine.midiExport.MidiFile();
    }
    void expectFile(const std::string& expected) { EXPECT_EQ(hex(exported()), hex(expected)); }
    void storeBufferSize(int size) { store.write("NumBytes", std::to_string(size)); }

    Score& score = studio.score;
};

}  // namespace melvane::test
