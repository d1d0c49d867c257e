#include "recorder/encoder_streams.h"

#include "encoding_fixture.h"

namespace melvane::test {
namespace {

using EncoderStreamsTest = EncodingTest;

// The stream

struct StreamCase {
    std::uint32_t rate, mode;
    std::int32_t preset;
    std::uint32_t samples, bytes;
};

TEST_F(EncoderStreamsTest, AStreamTellsItsChunkAndItsRoom) {
    const StreamCase cases[] = {{44100, encoder_mode::jointStereo, 0, 2304, 8640},
                                {44100, encoder_mode::mono, 0, 1152, 8640},
                                {22050, encoder_mode::jointStereo, 0, 1152, 7920},
                                {22050, encoder_mode::mono, 0, 576, 7920}};
    for (const auto& entry : cases) {
        BE_CONFIG config;
        config.dwConfig = BE_CONFIG::lameForm;
        config.dwSampleRate = entry.rate;
        config.nMode = entry.mode;
        config.dwBitrate = 128;
        config.nPreset = entry.preset;
        EncoderStreams streams;
        EncoderStreams::Sizes sizes;
        std::uint32_t handle = 0;
        ASSERT_EQ(streams.beInitStream(config, sizes, handle), EncoderError::none);
        EXPECT_EQ(sizes.samples, entry.samples);
        EXPECT_EQ(sizes.outputBytes, entry.bytes);
        EXPECT_EQ(streams.beCloseStream(handle), EncoderError::none);
    }
}

TEST_F(EncoderStreamsTest, AStreamRefusesWhatItCannotDo) {
    EncoderStreams streams;
    EncoderStreams::Sizes sizes;
    std::uint32_t handle = 0, written = 7;
    BE_CONFIG config = encoderSettings(3, "224", encoderQualities[9]);
    config.dwConfig = 0;
    EXPECT_EQ(streams.beInitStream(config, sizes, handle), EncoderError::invalidFormat);
    config = encoderSettings(10, "224", encoderQualities[9]);
    EXPECT_EQ(streams.beInitStream(config, sizes, handle), EncoderError::invalidParameters);
    std::vector<unsigned char> output(10000);
    const std::vector<std::int16_t> samples(1152);
    EXPECT_EQ(streams.beEncodeChunk(5, samples, output, written), EncoderError::invalidHandle);
    EXPECT_EQ(written, 0U);
    EXPECT_EQ(streams.beDeinitStream(5, output, written), EncoderError::invalidHandle);
    EXPECT_EQ(streams.beCloseStream(5), EncoderError::invalidHandle);
}

TEST_F(EncoderStreamsTest, AStreamWithoutRoomSaysSo) {
    EncoderStreams streams;
    EncoderStreams::Sizes sizes;
    std::uint32_t handle = 0, written = 0;
    ASSERT_EQ(streams.beInitStream(encoderSettings(3, "224", encoderQualities[1]), sizes, handle),
              EncoderError::none);
    std::vector<unsigned char> output(8);
    const std::vector<std::int16_t> samples(sizes.samples);
    auto error = EncoderError::none;
    for (int chunk = 0; chunk < 10 && error == EncoderError::none; ++chunk)
        error = streams.beEncodeChunk(handle, samples, output, written);
    EXPECT_EQ(error, EncoderError::bufferTooSmall);
}

TEST_F(EncoderStreamsTest, ThereIsAnEndToHandles) {
    EncoderStreams streams;
    EncoderStreams::Sizes sizes;
    std::uint32_t handle = 0;
    const auto config = encoderSettings(3, "224", encoderQualities[9]);
    auto error = EncoderError::none;
    for (int stream = 0; stream < 100 && error == EncoderError::none; ++stream)
        error = streams.beInitStream(config, sizes, handle);
    EXPECT_EQ(error, EncoderError::noMoreHandles);
}

TEST_F(EncoderStreamsTest, ErrorsHaveTheirTexts) {
    const char* const texts[] = {"No Error",
                                 "Invalid format",
                                 "Invalid format parameters",
                                 "No more handles",
                                 "Invalid handle",
                                 "Buffer too small",
                                 ""};
    for (int code = 0; code < 7; ++code) EXPECT_EQ(errorText(static_cast<EncoderError>(code)), texts[code]);
    EXPECT_EQ(errorText(static_cast<EncoderError>(-1)), "");
}

// The settings

TEST_F(EncoderStreamsTest, TheLayoutGoesByTheIndexOfTheFormat) {
    const std::uint32_t rates[] = {22050, 22050, 22050, 44100, 44100, 44100, 44100, 44100, 44100, 48000};
    const std::uint32_t modes[] = {1, 3, 1, 3, 1, 3, 1, 3, 1, 1};
    for (int index = 0; index < 10; ++index) {
        const auto config = encoderSettings(index, "96", encoderQualities[0]);
        EXPECT_EQ(config.dwSampleRate, rates[index]);
        EXPECT_EQ(config.nMode, modes[index]);
    }
    EXPECT_EQ(encoderSettings(-1, "96", encoderQualities[0]).dwSampleRate, 0U);
    EXPECT_EQ(encoderSettings(10, "96", encoderQualities[0]).nMode, 0U);
}

TEST_F(EncoderStreamsTest, TheFixedSettingsAreAsTheyAre) {
    const auto config = encoderSettings(3, "224", encoderQualities[9]);
    EXPECT_EQ(config.dwConfig, 256U);
    EXPECT_EQ(config.dwStructVersion, 1U);
    EXPECT_EQ(config.dwStructSize, 331U);
    EXPECT_EQ(config.dwReSampleRate, 0U);
    EXPECT_EQ(config.dwBitrate, 224U);
    EXPECT_EQ(config.nPreset, 10000);
    EXPECT_EQ(config.dwMpegVersion, 1U);
    EXPECT_EQ(config.bOriginal, -1);
    EXPECT_EQ(config.bNoRes, -1);
}

TEST_F(EncoderStreamsTest, TheListsHaveTheirEntriesAndRememberTheChoice) {
    EXPECT_EQ(window().Combo3.items(),
              (Lines{"Low", "Normal", "High", "Voice", "Phone", "Radio", "Tape", "Hifi", "CD", "Studio"}));
    EXPECT_EQ(window().Combo4.items(), (Lines{"32", "40", "48", "56", "64", "80", "96", "112", "128", "160",
                                              "192", "224", "256", "320"}));
    EXPECT_EQ(window().Combo3.text() + window().Combo4.text(), "Studio224");
    window().Combo3.userPut(Value(2LL));
    window().Combo4.userPut(Value(0LL));
    EXPECT_EQ(store.read("MP3 quality"), "2");
    EXPECT_EQ(store.read("MP3 bitrate"), "0");
    recorder().window.Form_Unload();
    recorder().window.Form_Load();
    EXPECT_EQ(window().Combo3.text() + window().Combo4.text(), "High32");
}

}  // namespace
}  // namespace melvane::test
