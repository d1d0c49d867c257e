#include "recorder/wav_encoder.h"

#include <cstring>

#include "encoding_fixture.h"

namespace melvane::test {
namespace {

using WavEncoderTest = EncodingTest;

constexpr std::size_t wavHeader = 44;

std::vector<double> valuesOf(const std::string& wav) {
    std::vector<double> values;
    for (std::size_t at = wavHeader; at + 1 < wav.size(); at += 2) {
        std::int16_t value = 0;
        std::memcpy(&value, wav.data() + at, sizeof value);
        values.push_back(value / 32768.0);
    }
    return values;
}

/// The samples of each channel in an MPEG-1 file, by the headers of its frames, each of which has its own bit
/// rate: without a table of contents a decoder only guesses how many there are. -1 when a header is none.
int lengthOf(const std::string& mp3) {
    constexpr int kilobits[] = {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
    constexpr int rates[] = {44100, 48000, 32000};
    int frames = 0;
    for (std::size_t at = 0; at + 4 <= mp3.size(); ++frames) {
        const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(mp3[at + index]); };
        const unsigned bitrate = byte(2) >> 4U, rate = (byte(2) >> 2U) & 3U;
        if (byte(0) != 0xFF || (byte(1) & 0xFEU) != 0xFA || bitrate > 14 || rate > 2) return -1;
        at += static_cast<std::size_t>(144000 * kilobits[bitrate] / rates[rate]) + ((byte(2) >> 1U) & 1U);
    }
    return frames * 1152;
}

/// How alike two sounds are, 1 at the best, over the second's first `count` values, `delay` values later.
double correlation(const std::vector<double>& one, const std::vector<float>& other, std::size_t delay) {
    double product = 0, first = 0, second = 0;
    for (std::size_t at = 0; at < one.size() && at + delay < other.size(); ++at) {
        const double sounded = other[at + delay];
        product += one[at] * sounded;
        first += one[at] * one[at];
        second += sounded * sounded;
    }
    return product / std::sqrt(first * second);
}

// What is encoded

TEST_F(WavEncoderTest, AMonoReadingOfTheSamplesComesBackFromTheMp3) {
    const std::string wav = tone("a.wav", 44100);
    encode(wav);
    EXPECT_EQ(erbox(), "Finished Encoding " + wav);
    EXPECT_EQ(window().Text6.text(), folder.file("a.mp3"));
    EXPECT_EQ(window().OutPutPath.text(), folder.file("a.mp3"));
    const auto decoded = decode(folder.file("a.mp3"));
    EXPECT_EQ(decoded.channels, 1);
    EXPECT_EQ(decoded.rate, 44100);
    EXPECT_NEAR(lengthOf(read(folder.file("a.mp3"))), 44100, 4 * 1152);
    const auto values = valuesOf(read(wav));
    double best = 0;
    for (std::size_t delay = 0; delay < 3000; ++delay)
        best = std::max(best, correlation(values, decoded.interleaved, delay));
    EXPECT_GT(best, 0.99);
}

TEST_F(WavEncoderTest, TheFortyEightKilohertzFormatIsReadAsFortyFourInStereo) {
    window().cbxFormat.userPut(Value(4LL));
    encode(tone("a.wav", 44100 * 2));
    const auto decoded = decode(folder.file("a.mp3"));
    EXPECT_EQ(decoded.channels, 2);
    EXPECT_EQ(decoded.rate, 44100);
    EXPECT_NEAR(lengthOf(read(folder.file("a.mp3"))), 44100, 4 * 1152);
}

TEST_F(WavEncoderTest, EachQualityAndBitrateMakesAFileThatCanBeRead) {
    for (int quality = 0; quality < 10; ++quality) {
        for (const int bitrate : {0, 8, 13}) {
            for (int format = 0; format < 5; ++format) {
                window().cbxFormat.set(format);
                window().Combo3.set(quality);
                window().Combo4.set(bitrate);
                encode(tone("a.wav", 20000));
                EXPECT_GT(decode(folder.file("a.mp3")).frames, 0U)
                    << quality << " " << bitrate << " " << format;
                removeMp3();
            }
        }
    }
}

TEST_F(WavEncoderTest, AHigherBitrateMakesALargerFile) {
    window().Combo3.set(1);
    std::uintmax_t last = 0;
    for (const int bitrate : {4, 8, 11, 13}) {
        window().Combo4.set(bitrate);
        encode(tone("a.wav", 200000));
        const auto size = std::filesystem::file_size(folder.file("a.mp3"));
        EXPECT_GT(size, last);
        last = size;
        removeMp3();
    }
}

TEST_F(WavEncoderTest, TheLastChunkEndsInWhatTheBlockHeldBefore) {
    // 44 bytes of header and exactly one chunk: the count says two.
    const std::string wav = tone("a.wav", 1152);
    EncoderStreams streams;
    EncoderStreams::Sizes sizes;
    std::uint32_t handle = 0, written = 0;
    streams.beInitStream(encoderSettings(3, "224", encoderQualities[9]), sizes, handle);
    const std::string bytes = read(wav);
    std::vector<std::int16_t> block(1152);
    std::vector<unsigned char> output(sizes.outputBytes);
    std::string wanted;
    const auto take = [&](std::size_t count) {
        streams.beEncodeChunk(handle, std::span(block).first(count), output, written);
        wanted.append(output.begin(), output.begin() + written);
    };
    std::memcpy(block.data(), bytes.data() + headerSize, 2304);
    take(1152);
    take(22);  // nothing more is read: the block's first 44 bytes once more
    streams.beDeinitStream(handle, output, written);
    wanted.append(output.begin(), output.begin() + written);
    encode(wav);
    EXPECT_EQ(read(folder.file("a.mp3")), wanted);
}

TEST_F(WavEncoderTest, AFileShorterThanAHeaderIsEncodedFromWhatWasReadOfIt) {
    encode(write("a.wav", "RIFF and no more"));
    EXPECT_EQ(erbox(), "Finished Encoding " + folder.file("a.wav"));
    EXPECT_EQ(read(folder.file("a.mp3")), mp3Of("RIFF and no more", chosen()));
    EXPECT_NE(read(folder.file("a.mp3")), mp3Of("RIFF and no less", chosen()));
    encode(write("b.wav", ""));
    EXPECT_EQ(erbox(), "Finished Encoding " + folder.file("b.wav"));
    EXPECT_EQ(read(folder.file("b.mp3")), mp3Of("", chosen()));
}

TEST_F(WavEncoderTest, AnyBytesUnderTheEndingAreEncodedAsNoise) {
    std::string noise;
    for (int at = 0; at < 30001; ++at) noise += static_cast<char>((at * 7919) >> 3);
    for (int format = 0; format < 5; ++format) {
        window().cbxFormat.set(format);
        encode(write("A.WAV", noise));
        EXPECT_EQ(read(folder.file("A.mp3")), mp3Of(noise, chosen())) << format;
        std::filesystem::remove(folder.file("A.mp3"));
    }
    // What stands in the first 44 bytes is of no account, and what stands behind them is.
    const std::string other = std::string(headerSize, 'x') + noise.substr(headerSize);
    EXPECT_EQ(mp3Of(other, chosen()), mp3Of(noise, chosen()));
    EXPECT_NE(mp3Of(noise.substr(2), chosen()), mp3Of(noise, chosen()));
}

}  // namespace
}  // namespace melvane::test
