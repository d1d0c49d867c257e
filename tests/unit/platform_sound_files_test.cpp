#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <limits>
#include <numbers>

#include "platform/audio_file_mp3_writer.h"
#include "platform/audio_file_samples.h"
#include "platform/audio_file_wav_writer.h"
#include "platform_sound_decoding.h"
#include "platform_sound_helpers.h"

namespace melvane {
namespace {

using namespace sound_test;

std::vector<float> tone(double hertz, std::size_t frames) {
    std::vector<float> sound;
    for (std::size_t i = 0; i < frames; ++i) {
        const double phase = 2.0 * std::numbers::pi * hertz * static_cast<double>(i) / soundRate;
        const auto value = static_cast<float>(0.5 * std::sin(phase));
        sound.insert(sound.end(), {value, value});
    }
    return sound;
}

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::uint32_t numberAt(const std::string& bytes, std::size_t position, std::size_t size) {
    std::uint32_t number = 0;
    for (std::size_t i = size; i-- > 0;)
        number = number << 8 | static_cast<unsigned char>(bytes[position + i]);
    return number;
}

TEST(Samples, AreRoundedAndClipped) {
    std::vector<std::int16_t> samples;
    const float nan = std::numeric_limits<float>::quiet_NaN();
    appendSamples(std::vector<float>{0.0F, 1.0F, -1.0F, 2.0F, -2.0F, 1.4F / 32767.0F, 1.6F / 32767.0F, nan},
                  samples);
    EXPECT_EQ(samples, (std::vector<std::int16_t>{0, 32767, -32767, 32767, -32768, 1, 2, 0}));
}

TEST(WavWriter, WritesThePlainHeaderAndEverySample) {
    const TemporaryFolder folder;
    WavWriter writer(folder.file("a.wav"));
    EXPECT_TRUE(writer.write(std::vector<float>{0.0F, 1.0F, -1.0F, 0.5F}));
    EXPECT_TRUE(writer.write(std::vector<float>{0.25F, -0.25F}));
    EXPECT_EQ(writer.finish(), std::nullopt);

    const std::string bytes = contentOf(folder.file("a.wav"));
    ASSERT_EQ(bytes.size(), 44U + 12U);
    EXPECT_EQ(bytes.substr(0, 4), "RIFF");
    EXPECT_EQ(numberAt(bytes, 4, 4), 36U + 12U);
    EXPECT_EQ(bytes.substr(8, 8), "WAVEfmt ");
    EXPECT_EQ(numberAt(bytes, 16, 4), 16U);
    EXPECT_EQ(numberAt(bytes, 20, 2), 1U) << "plain samples";
    EXPECT_EQ(numberAt(bytes, 22, 2), 2U) << "channels";
    EXPECT_EQ(numberAt(bytes, 24, 4), 44100U);
    EXPECT_EQ(numberAt(bytes, 28, 4), 176400U);
    EXPECT_EQ(numberAt(bytes, 32, 2), 4U);
    EXPECT_EQ(numberAt(bytes, 34, 2), 16U);
    EXPECT_EQ(bytes.substr(36, 4), "data");
    EXPECT_EQ(numberAt(bytes, 40, 4), 12U);
    EXPECT_EQ(numberAt(bytes, 46, 2), 32767U);
    EXPECT_EQ(folder.fileCount(), 1U);
}

TEST(WavWriter, LeavesNothingWithoutFinish) {
    const TemporaryFolder folder;
    {
        WavWriter writer(folder.file("a.wav"));
        EXPECT_TRUE(writer.write(tone(440.0, 1000)));
    }
    EXPECT_EQ(folder.fileCount(), 0U);
}

TEST(WavWriter, KeepsTheEarlierFileUntilTheNewOneIsComplete) {
    const TemporaryFolder folder;
    std::ofstream(folder.file("a.wav")) << "earlier";
    WavWriter writer(folder.file("a.wav"));
    EXPECT_TRUE(writer.write(tone(440.0, 1000)));
    EXPECT_EQ(contentOf(folder.file("a.wav")), "earlier");
    EXPECT_EQ(writer.finish(), std::nullopt);
    EXPECT_EQ(contentOf(folder.file("a.wav")).size(), 44U + 4000U);
}

TEST(WavWriter, GivesTheFileTheRightsOfAnOrdinaryOne) {
    const TemporaryFolder folder;
    std::ofstream(folder.file("ordinary")) << "x";
    WavWriter writer(folder.file("a.wav"));
    EXPECT_EQ(writer.finish(), std::nullopt);
    struct stat ordinary {};
    struct stat written {};
    ASSERT_EQ(stat(folder.file("ordinary").c_str(), &ordinary), 0);
    ASSERT_EQ(stat(folder.file("a.wav").c_str(), &written), 0);
    EXPECT_EQ(written.st_mode, ordinary.st_mode);
}

/// Writes until it fails or finishes; the message.
template <typename Writer>
std::optional<std::string> writeLong(const std::string& path) {
    Writer writer(path);
    const auto sound = tone(440.0, 20000);
    for (int i = 0; i < 20 && writer.write(sound); ++i) {
    }
    return writer.finish();
}

template <typename Writer>
class AnyWriter : public testing::Test {};
using Writers = testing::Types<WavWriter, Mp3Writer>;
TYPED_TEST_SUITE(AnyWriter, Writers);

TYPED_TEST(AnyWriter, SaysThatTheDiskIsFull) {
    const auto message = writeLong<TypeParam>("/dev/full");
    ASSERT_TRUE(message);
    EXPECT_NE(message->find("/dev/full"), std::string::npos) << *message;
    EXPECT_NE(message->find("No space left on device"), std::string::npos) << *message;
    EXPECT_EQ(message->find('\n'), std::string::npos);
}

TYPED_TEST(AnyWriter, SaysThatTheFolderIsNotThere) {
    const TemporaryFolder folder;
    const auto message = writeLong<TypeParam>(folder.file("none/a"));
    ASSERT_TRUE(message);
    EXPECT_NE(message->find("No such file or directory"), std::string::npos) << *message;
}

TYPED_TEST(AnyWriter, SaysThatTheTargetIsAFolderAndLeavesNoTemporary) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.file("target"));
    EXPECT_TRUE(writeLong<TypeParam>(folder.file("target")));
    EXPECT_EQ(folder.fileCount(), 1U);
}

TEST(Mp3Writer, WritesWhatDecodesToTheSameLengthAndPitch) {
    const TemporaryFolder folder;
    const std::string path = folder.file("a.mp3");
    Mp3Writer writer(path);
    constexpr std::size_t frames = 3 * soundRate;
    const auto sound = tone(440.0, frames);
    for (std::size_t i = 0; i < sound.size(); i += 2000) {
        EXPECT_TRUE(writer.write(std::span(sound).subspan(i, std::min<std::size_t>(2000, sound.size() - i))));
    }
    EXPECT_EQ(writer.finish(), std::nullopt);

    const DecodedSound decoded = decodeSound(path);
    EXPECT_EQ(decoded.rate, soundRate);
    EXPECT_EQ(decoded.channels, 2);
    EXPECT_NEAR(static_cast<double>(decoded.frames), static_cast<double>(frames), 2 * 1152.0);
    EXPECT_NEAR(pitchNear(decoded, 440.0), 440.0, 5.0);
    EXPECT_NEAR(peak(decoded.interleaved), 0.5, 0.05);
    const double kilobits = 8.0 * static_cast<double>(std::filesystem::file_size(path)) / 3.0 / 1000.0;
    EXPECT_GE(kilobits, 192.0);
    EXPECT_EQ(folder.fileCount(), 1U);
}

TEST(Mp3Writer, WritesAnEmptySound) {
    const TemporaryFolder folder;
    Mp3Writer writer(folder.file("a.mp3"));
    EXPECT_EQ(writer.finish(), std::nullopt);
    EXPECT_EQ(folder.fileCount(), 1U);
}

}  // namespace
}  // namespace melvane
