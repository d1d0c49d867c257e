#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <tuple>

#include "media_player_fixture.h"
#include "midi_file_builder.h"
#include "platform/audio_file_mp3_writer.h"

namespace melvane {
namespace {

using namespace sound_test;

std::string littleEndian(std::uint64_t value, int bytes) {
    std::string text;
    for (int byte = 0; byte < bytes; ++byte) text += static_cast<char>(value >> (8 * byte) & 0xFFU);
    return text;
}

constexpr std::uint32_t plain = 1, floats = 3, extensible = 0xFFFE;
constexpr std::uint32_t unknownSize = 0xFFFFFFFF;

struct Wave {
    std::uint32_t kind = plain, channels = 2, rate = 44100, bits = 16;
    std::string data = {};
    std::optional<std::uint32_t> toldSize = {};  ///< of the data, in place of the true one
    std::string between = {};                    ///< chunks before the data

    std::string format() const {
        const std::uint32_t frame = bits / 8 * channels;
        std::string body = littleEndian(kind, 2) + littleEndian(channels, 2) + littleEndian(rate, 4) +
                           littleEndian(std::uint64_t{rate} * frame, 4) + littleEndian(frame, 2) +
                           littleEndian(bits, 2);
        if (kind == extensible) {
            const std::string guid("\x00\x00\x00\x00\x10\x00\x80\x00\x00\xAA\x00\x38\x9B\x71", 14);
            body += littleEndian(22, 2) + littleEndian(bits, 2) + littleEndian(3, 4) +
                    littleEndian(plain, 2) + guid;
        }
        return "fmt " + littleEndian(body.size(), 4) + body;
    }
    std::string bytes() const {
        const std::string chunks =
            "WAVE" + format() + between + "data" +
            littleEndian(toldSize.value_or(static_cast<std::uint32_t>(data.size())), 4) + data;
        return "RIFF" + littleEndian(toldSize == unknownSize ? unknownSize : chunks.size(), 4) + chunks;
    }
    /// The form for more than 4 GB.
    std::string largeBytes(std::uint64_t dataSize) const {
        const std::string sizes = littleEndian(dataSize + 100, 8) + littleEndian(dataSize, 8) +
                                  littleEndian(dataSize / 4, 8) + littleEndian(0, 4);
        return "RF64" + littleEndian(unknownSize, 4) + "WAVEds64" + littleEndian(sizes.size(), 4) + sizes +
               format() + "data" + littleEndian(unknownSize, 4) + data;
    }
};

class WaveFiles : public MediaPlaying {
 protected:
    void SetUp() override {
        MediaPlaying::SetUp();
        samples = bytesOf(path).substr(waveHeaderSize);
    }
    /// The length in frames of 1/30 second; the error when it is refused.
    std::string opened(const std::string& name, const std::string& bytes) {
        device->send("close audiomp3");
        const auto answer =
            device->send("open " + folder.make(name, bytes) + " type MPEGVideo alias audiomp3");
        if (answer.code != 0) return answer.text;
        done("set audiomp3 time format frames");
        return done("status audiomp3 length");
    }
    /// Plays the whole file; the level of the tone at its start, and whether it ended where it should.
    double played() {
        done("play audiomp3 from 0 to " + done("status audiomp3 length"));
        const auto sound = run(4.5);
        EXPECT_EQ(done("status audiomp3 position"), done("status audiomp3 length"));
        return amplitudeAt(std::span(sound).first(2 * 44'100), 441, soundRate);
    }
    std::string samples;
};

TEST_F(WaveFiles, AreReadInEachFormOfTheirHead) {
    const std::string notes =
        "LIST" + littleEndian(3, 4) + "abc" + std::string(1, '\0') + "junk" + littleEndian(0, 4);
    for (const auto& [what, bytes] :
         {std::pair{"plain", Wave{.data = samples}.bytes()},
          std::pair{"extensible", Wave{.kind = extensible, .data = samples}.bytes()},
          std::pair{"12 bits in 16", Wave{.bits = 12, .data = samples}.bytes()},
          std::pair{"with other chunks", Wave{.data = samples, .between = notes}.bytes()},
          std::pair{"for more than 4 GB", Wave{.data = samples}.largeBytes(samples.size())}}) {
        EXPECT_EQ(opened("a.wav", bytes), "120") << what;
        EXPECT_NEAR(played(), 0.5, 0.001) << what;
    }
}

TEST_F(WaveFiles, ArePlayedAsFarAsTheyReachWhenTheirHeadTellsMore) {
    const auto more = static_cast<std::uint32_t>(samples.size() + 1000);
    for (const std::uint32_t told : {more, 0x7FFFFFFFU, 0x80000000U, unknownSize}) {
        EXPECT_EQ(opened("a.wav", Wave{.data = samples, .toldSize = told}.bytes()), "120") << told;
        EXPECT_NEAR(played(), 0.5, 0.001) << told;
    }
    EXPECT_EQ(opened("a.wav", Wave{.data = samples}.largeBytes(6'000'000'000)), "120");
    EXPECT_NEAR(played(), 0.5, 0.001);
}

TEST_F(WaveFiles, HaveTheLengthOfTheirHeadWhenMoreFollows) {
    EXPECT_EQ(opened("a.wav", Wave{.data = samples, .toldSize = 176'400}.bytes()), "30");
    EXPECT_EQ(opened("a.wav", Wave{.data = samples, .toldSize = 0}.bytes()), "0");
    EXPECT_EQ(opened("a.wav", Wave{}.bytes()), "0");
    EXPECT_EQ(played(), 0.0);
}

TEST_F(WaveFiles, OfOtherSamplesAreHeardAsLoud) {
    std::string bytes8, floats32, bytes24;
    for (std::size_t at = 0; at + 1 < samples.size(); at += 2) {
        std::int16_t value = 0;
        std::memcpy(&value, samples.data() + at, 2);
        const float number = static_cast<float>(value) / 32768;
        bytes8 += static_cast<char>(std::lround(value / 256.0) + 128);
        bytes24 += '\0' + samples.substr(at, 2);
        floats32.append(reinterpret_cast<const char*>(&number), sizeof number);
    }
    for (const auto& [bits, kind, data] :
         {std::tuple{8U, plain, bytes8}, std::tuple{24U, plain, bytes24},
          std::tuple{24U, extensible, bytes24}, std::tuple{32U, floats, floats32}}) {
        EXPECT_EQ(opened("a.wav", Wave{.kind = kind, .bits = bits, .data = data}.bytes()), "120") << bits;
        EXPECT_NEAR(played(), 0.5, 0.003) << bits;
    }
}

TEST_F(WaveFiles, AreRefusedWhenTheyMeanNothing) {
    const std::string whole = Wave{.data = samples}.bytes();
    for (const auto& [what, bytes] :
         {std::pair{"only the head", whole.substr(0, 12)}, std::pair{"no data", whole.substr(0, 36)},
          std::pair{"no format", whole.substr(0, 12) + whole.substr(36)},
          std::pair{"no channel", Wave{.channels = 0, .data = samples}.bytes()},
          std::pair{"no rate", Wave{.rate = 0, .data = samples}.bytes()},
          std::pair{"a rate of 1", Wave{.rate = 1, .data = samples}.bytes()},
          std::pair{"the highest rate", Wave{.rate = 0xFFFFFFFF, .data = samples}.bytes()},
          std::pair{"no bits", Wave{.bits = 0, .data = samples}.bytes()},
          std::pair{"another encoding", Wave{.kind = 0x1234, .data = samples}.bytes()},
          std::pair{"a chunk longer than the file",
                    Wave{.data = samples, .between = "LIST" + littleEndian(0x7FFFFFFF, 4)}.bytes()}}) {
        EXPECT_EQ(opened("a.wav", bytes), "The file is damaged or of an unknown format.") << what;
    }
}

TEST_F(WaveFiles, AreToldByTheirContentWhateverTheirNameSays) {
    const std::string whole = Wave{.data = samples}.bytes();
    for (const char* const name : {"a.mp3", "a.mid", "a.txt", "a"}) {
        EXPECT_EQ(opened(name, whole), "120") << name;
        EXPECT_NEAR(played(), 0.5, 0.001) << name;
    }
    EXPECT_EQ(opened("midi.wav", midiFile(0, 96, {note(0, 60) + trackEnd(96)})), "15");
    const std::string mp3 = folder.file("tone.mp3");
    Mp3Writer writer(mp3);
    ASSERT_TRUE(writer.write(tone));
    ASSERT_EQ(writer.finish(), std::nullopt);
    EXPECT_NEAR(std::stod(opened("mp3.wav", bytesOf(mp3))), 120, 3);
    EXPECT_NEAR(played(), 0.5, 0.02);
}

/// Holes on the disk; nothing of it is read but where it plays.
TEST_F(WaveFiles, OfMoreThanFourGigabytesAreAsLongAsTheyAre) {
    constexpr std::uint64_t size = 5'000'000'000;
    const std::uint64_t seconds = size / 176'400;
    const std::string large = folder.make("large.wav", Wave{}.largeBytes(size));
    std::filesystem::resize_file(large, std::filesystem::file_size(large) + size);
    done("open " + large + " type MPEGVideo alias large");
    EXPECT_EQ(static_cast<std::uint64_t>(number("status large length")) / 1000, seconds);
    done("play large from " + std::to_string(seconds * 1000 - 100));
    run(1.0);
    EXPECT_EQ(done("status large position"), done("status large length"));
    // The usual head counts 4 GB at most.
    const std::string usual = folder.make("usual.wav", Wave{.toldSize = unknownSize}.bytes());
    std::filesystem::resize_file(usual, size + waveHeaderSize);
    done("open " + usual + " type MPEGVideo alias usual");
    EXPECT_EQ(number("status usual length") / 1000, (std::int64_t{1} << 32) / 176'400);
}

}  // namespace
}  // namespace melvane
