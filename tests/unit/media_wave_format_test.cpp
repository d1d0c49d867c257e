#include <gtest/gtest.h>

#include "media_fixture.h"
#include "platform/media_wave_encoder.h"

namespace melvane {
namespace {

using namespace sound_test;

/// The samples of a recording as floats of -1 to 1.
std::vector<float> decoded(const std::string& bytes, int bits) {
    std::vector<float> values;
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
    if (bits == 8) {
        for (std::size_t at = 0; at < bytes.size(); ++at) {
            values.push_back(static_cast<float>(byte(at) - 128) / 127.0F);
        }
    } else {
        for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
            values.push_back(static_cast<float>(static_cast<std::int16_t>(byte(at) | byte(at + 1) << 8)) /
                             32767.0F);
        }
    }
    return values;
}

/// In pieces of uneven length, as a stream comes.
std::string encoded(const WaveFormat& format, const std::vector<float>& stereo) {
    WaveEncoder encoder(format);
    std::string bytes;
    for (std::size_t at = 0, piece = 2; at < stereo.size(); at += piece, piece = piece * 3 % 5000 + 2) {
        piece -= piece % 2;
        encoder.encode(std::span(stereo).subspan(at, std::min(piece, stereo.size() - at)), false, bytes);
    }
    encoder.encode({}, true, bytes);
    return bytes;
}

class EachFormat : public testing::TestWithParam<WaveFormat> {};

TEST_P(EachFormat, IsRecorded) { EXPECT_TRUE(isRecorded(GetParam())); }

TEST_P(EachFormat, KeepsLengthLevelAndPitch) {
    const WaveFormat format = GetParam();
    constexpr std::size_t seconds = 2;
    constexpr double left = 0.5, right = 0.25;
    const auto sound =
        decoded(encoded(format, stereoTone(1000, left, right, seconds * soundRate)), format.bits);
    const auto channels = static_cast<std::size_t>(format.channels);
    EXPECT_NEAR(static_cast<double>(sound.size() / channels), static_cast<double>(seconds) * format.rate,
                1.0);

    const auto middle = std::span(sound).subspan(sound.size() / 4 / channels * channels, sound.size() / 2);
    const auto at = [&](double hertz, std::size_t channel) {
        return amplitudeAt(middle, hertz, format.rate, channels, channel);
    };
    if (channels == 2) {
        EXPECT_NEAR(at(1000, 0), left, 0.002);
        EXPECT_NEAR(at(1000, 1), right, 0.002);
    } else {
        EXPECT_NEAR(at(1000, 0), (left + right) / 2, 0.002);
    }
    for (const double hertz : {900.0, 1100.0, 2000.0, 3000.0, 7000.0})
        EXPECT_LT(at(hertz, 0), 0.002) << hertz;
}

INSTANTIATE_TEST_SUITE_P(WaveFormats, EachFormat,
                         testing::Values(WaveFormat{22050, 1, 8}, WaveFormat{22050, 2, 8},
                                         WaveFormat{22050, 1, 16}, WaveFormat{22050, 2, 16},
                                         WaveFormat{44100, 1, 8}, WaveFormat{44100, 2, 8},
                                         WaveFormat{44100, 1, 16}, WaveFormat{44100, 2, 16},
                                         WaveFormat{48000, 2, 16}),
                         [](const auto& each) {
                             return std::to_string(each.param.rate) + "x" +
                                    std::to_string(each.param.channels) + "x" +
                                    std::to_string(each.param.bits);
                         });

TEST(WaveFormats, OthersAreNotRecorded) {
    for (const WaveFormat& format :
         {WaveFormat{0, 0, 0}, WaveFormat{11025, 1, 8}, WaveFormat{48000, 1, 16}, WaveFormat{48000, 2, 8},
          WaveFormat{44100, 2, 24}, WaveFormat{44100, 3, 16}}) {
        EXPECT_FALSE(isRecorded(format)) << format.rate;
    }
}

TEST(WaveEncoder, GivesTheSamplesOfARenderingAsTheyAre) {
    const std::vector<float> sound{0.0F, 1.0F, -1.0F, 2.0F, -2.0F, 0.25F};
    EXPECT_EQ(encoded({44100, 2, 16}, sound),
              std::string("\x00\x00\xFF\x7F\x01\x80\xFF\x7F\x00\x80\x00\x20", 12));
}

TEST(WaveEncoder, ClipsEightBitsAndTakesNoNumberForSilence) {
    const std::vector<float> loud(2000, 5.0F), low(2000, -5.0F), none(2000, std::nanf(""));
    EXPECT_EQ(encoded({44100, 2, 8}, loud), std::string(2000, '\xFF'));
    EXPECT_EQ(encoded({44100, 2, 8}, low), std::string(2000, '\0'));
    for (const char each : encoded({44100, 2, 8}, none)) {
        ASSERT_NEAR(static_cast<unsigned char>(each), 128, 1);
    }
}

/// Mean and spread of a constant, in steps of 8 bits.
TEST(WaveEncoder, DithersEightBitsSoThatTheErrorDoesNotDependOnTheSound) {
    for (const double constant : {0.0, 0.25, 0.4, 0.5, -0.3, 10.75}) {
        const auto value = static_cast<float>(constant / 127);
        const std::string bytes = encoded({44100, 1, 8}, std::vector<float>(400'000, value));
        double sum = 0, squares = 0;
        for (const char each : bytes) {
            const double error = static_cast<unsigned char>(each) - 128 - constant;
            sum += error;
            squares += error * error;
        }
        const auto count = static_cast<double>(bytes.size());
        EXPECT_NEAR(sum / count, 0.0, 0.01) << constant;
        EXPECT_NEAR(std::sqrt(squares / count), 0.5, 0.01) << constant;
    }
}

TEST(WaveEncoder, KeepsATonePurelyBelowOneStepOfEightBits) {
    const double amplitude = 0.4 / 127;
    const auto sound =
        decoded(encoded({44100, 2, 8}, stereoTone(1000, amplitude, amplitude, 10 * soundRate)), 8);
    EXPECT_NEAR(amplitudeAt(sound, 1000, soundRate), amplitude, amplitude * 0.05);
    for (const double hertz : {2000.0, 3000.0, 5000.0}) {
        EXPECT_LT(amplitudeAt(sound, hertz, soundRate), amplitude * 0.05) << hertz;
    }
}

TEST(WaveEncoder, LeavesNothingOfWhatTheRateCannotHold) {
    const auto sound = decoded(encoded({22050, 2, 16}, stereoTone(15'000, 0.5, 0.5, 2 * soundRate)), 16);
    const auto middle = std::span(sound).subspan(20'000, 40'000);
    EXPECT_LT(peak(middle), 0.0002F);
}

TEST(WaveEncoder, KeepsTheLevelUpToNineTenthsOfTheBand) {
    for (const double hertz : {100.0, 5000.0, 9500.0}) {
        const auto sound = decoded(encoded({22050, 2, 16}, stereoTone(hertz, 0.5, 0.5, 2 * soundRate)), 16);
        EXPECT_NEAR(amplitudeAt(std::span(sound).subspan(20'000, 40'000), hertz, 22050), 0.5, 0.01) << hertz;
    }
}

TEST(WaveEncoder, BeginsAnewBehindTheLastPiece) {
    WaveEncoder encoder({48000, 2, 16});
    const auto tone = stereoTone(440, 0.5, 0.5, 4410);
    std::string first, second;
    encoder.encode(tone, true, first);
    encoder.encode(tone, true, second);
    EXPECT_EQ(first.size(), 4800U * 4);
    EXPECT_EQ(first, second);
}

TEST(WaveHeader, CountsAnOddLengthWithItsPaddingOnlyOutside) {
    const std::string header = waveHeader({44100, 1, 8}, 5);
    ASSERT_EQ(header.size(), waveHeaderSize);
    EXPECT_EQ(header.substr(4, 4), std::string("\x2A\0\0\0", 4));
    EXPECT_EQ(header.substr(40, 4), std::string("\x05\0\0\0", 4));
    EXPECT_EQ(waveHeader({}, mostWaveData - 3).substr(4, 4), std::string("\xF4\xFF\xFF\xFF", 4));
}

TEST(Resampler, RefusesRatesThatLieTooFarApart) {
    EXPECT_EQ(Resampler::make(1, 44100, 2), nullptr);
    EXPECT_EQ(Resampler::make(0, 44100, 2), nullptr);
    EXPECT_NE(Resampler::make(8000, 44100, 2), nullptr);
}

}  // namespace
}  // namespace melvane
