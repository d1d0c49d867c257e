#include "encoding_fixture.h"

// What the choices of the lists do to the stream.

namespace melvane::test {
namespace {

/// The encoder, with the settings it was last given.
class WatchedStreams final : public EncoderStreams {
 public:
    BE_CONFIG config;
    EncoderError beInitStream(const BE_CONFIG& settings, Sizes& sizes, std::uint32_t& handle) override {
        config = settings;
        return EncoderStreams::beInitStream(settings, sizes, handle);
    }
};

/// What the header of a stream's first frame says.
struct FrameHeader {
    int version = 0;  ///< 3: MPEG-1; 2: MPEG-2; 0: MPEG-2.5
    int mode = 0;     ///< 0 stereo, 1 joint stereo, 3 mono
    bool isOriginal = false;
    int mainDataBegin = 0;  ///< bytes that the frame takes from those before it
};

class EncoderPresetsTest : public EncodingTest {
 protected:
    WatchedStreams streams;
    Directories directories{folder.path(), MELVANE_RESOURCES};
    // Takes the window's button.
    Encoding encoding{studio,
                      {recorder().log, engine.settings, dialogs, desktop, time, time, directories, streams}};

    /// Two seconds of it, as 16-bit stereo or four as mono, in which every rate has enough to do.
    std::string noise() {
        std::string bytes(headerSize, '\0');
        std::uint32_t state = 1;
        for (int at = 0; at < 4 * 44100 * 2; ++at) {
            state = state * 1664525 + 1013904223;
            bytes += static_cast<char>(at % 2 == 0 ? state >> 24 : (state >> 24) % 64);
        }
        return write("a.wav", bytes);
    }
    std::string mp3(int quality, int bitrate) {
        window().Combo3.set(quality);
        window().Combo4.set(bitrate);
        encode(noise());
        const std::string bytes = read(folder.file("a.mp3"));
        removeMp3();
        return bytes;
    }
    static FrameHeader headerOf(const std::string& mp3) {
        const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(mp3.at(at)); };
        EXPECT_EQ(byte(0), 0xFF);
        EXPECT_EQ(byte(1) & 0xE0, 0xE0);
        return {(byte(1) >> 3) & 3, byte(3) >> 6, (byte(3) & 4) != 0, byte(4) * 2 + (byte(5) >> 7)};
    }
};

constexpr int bitrate32 = 0, bitrate128 = 8, bitrate224 = 11;

TEST_F(EncoderPresetsTest, EachQualityAndBitrateReachesTheEncoder) {
    const std::int32_t numbers[] = {1, 0, 2, 3, 1000, 6000, 7000, 8000, 9000, 10000};
    const char* const names[] = {"Low",   "Normal", "High", "Voice", "Phone",
                                 "Radio", "Tape",   "Hifi", "CD",    "Studio"};
    const std::string wav = tone("a.wav", 3000);
    for (int quality = 0; quality < 10; ++quality) {
        window().Combo3.userPut(Value(static_cast<long long>(quality)));
        encode(wav);
        EXPECT_EQ(window().Combo3.text(), names[quality]);
        EXPECT_EQ(streams.config.nPreset, numbers[quality]);
        removeMp3();
    }
    const std::uint32_t rates[] = {32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
    for (int bitrate = 0; bitrate < 14; ++bitrate) {
        window().Combo4.userPut(Value(static_cast<long long>(bitrate)));
        encode(wav);
        EXPECT_EQ(streams.config.dwBitrate, rates[bitrate]);
        removeMp3();
    }
}

TEST_F(EncoderPresetsTest, EachOfferedFormatReachesTheEncoderByItsPlaceInTheList) {
    const std::uint32_t rates[] = {22050, 22050, 22050, 44100, 44100}, modes[] = {1, 3, 1, 3, 1};
    const std::string wav = tone("a.wav", 3000);
    for (int format = 0; format < 5; ++format) {
        window().cbxFormat.userPut(Value(static_cast<long long>(format)));
        encode(wav);
        EXPECT_EQ(streams.config.dwSampleRate, rates[format]);
        EXPECT_EQ(streams.config.nMode, modes[format]);
        removeMp3();
    }
}

TEST_F(EncoderPresetsTest, TheFixedSettingsAreTheSameEachTime) {
    encode(tone("a.wav", 3000));
    const BE_CONFIG& config = streams.config;
    EXPECT_EQ(config.dwConfig, 256U);
    EXPECT_EQ(config.dwStructVersion, 1U);
    EXPECT_EQ(config.dwStructSize, 331U);
    EXPECT_EQ(config.dwMpegVersion, 1U);
    EXPECT_EQ(config.bOriginal, -1);
    EXPECT_EQ(config.bNoRes, -1);
    EXPECT_EQ(config.dwReSampleRate + config.dwPsyModel + config.dwEmphasis, 0U);
    const FrameHeader header = headerOf(read(folder.file("a.mp3")));
    EXPECT_TRUE(header.isOriginal);
}

TEST_F(EncoderPresetsTest, LowNormalAndHighDifferInCareAndNotInTheBitrate) {
    const std::string low = mp3(0, bitrate128), normal = mp3(1, bitrate128), high = mp3(2, bitrate128);
    EXPECT_NE(low, normal);
    EXPECT_NE(normal, high);
    EXPECT_NE(low, high);
    for (const std::string& made : {low, normal, high}) {
        EXPECT_NEAR(static_cast<double>(made.size()), 128000 / 8 * 4.0, 1500);
        EXPECT_EQ(headerOf(made).version, 3);
    }
    EXPECT_NEAR(static_cast<double>(mp3(1, bitrate224).size()), 224000 / 8 * 4.0, 2500);
}

struct Kind {
    int quality;
    int bitrate;     ///< index of the list
    double average;  ///< kilobits a second that come of it; not less than what is asked for
    int mode;        ///< of the stereo format; the mono one is mono in any case
};

TEST_F(EncoderPresetsTest, TheOthersHaveBitratesOfTheirOwn) {
    const Kind kinds[] = {{3, bitrate32, 56, 3},  {4, bitrate32, 32, 3},  {5, bitrate32, 112, 1},
                          {6, bitrate32, 112, 1}, {7, bitrate32, 160, 1}, {8, bitrate32, 192, 1},
                          {9, bitrate32, 256, 1}};
    window().cbxFormat.set(4);  // in stereo: two seconds
    for (const Kind& kind : kinds) {
        const std::string made = mp3(kind.quality, kind.bitrate);
        EXPECT_NEAR(static_cast<double>(made.size()) * 8 / 2 / 1000, kind.average, kind.average / 4)
            << kind.quality;
        EXPECT_EQ(headerOf(made).mode, kind.mode) << kind.quality;
    }
}

TEST_F(EncoderPresetsTest, TheBitrateAskedForIsTheLeastOfAnAverage) {
    window().cbxFormat.set(4);
    EXPECT_GT(static_cast<double>(mp3(5, bitrate224).size()) * 8 / 2 / 1000, 215);
    EXPECT_LT(static_cast<double>(mp3(5, bitrate32).size()) * 8 / 2 / 1000, 135);
}

TEST_F(EncoderPresetsTest, AStreamHasNoReservoir) {
    const std::string made = mp3(1, bitrate128);
    constexpr std::size_t frameSize = 144 * 128000 / 44100;  // one byte more where the frame is padded
    std::size_t at = 0;
    int frames = 0;
    for (; at + 6 < made.size() && frames < 100; ++frames) {
        const FrameHeader header = headerOf(made.substr(at));
        EXPECT_EQ(header.mainDataBegin, 0) << frames;
        at += frameSize + ((static_cast<unsigned char>(made[at + 2]) >> 1U) & 1U);
    }
    EXPECT_EQ(frames, 100);
}

}  // namespace
}  // namespace melvane::test
