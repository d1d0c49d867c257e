#include <gtest/gtest.h>

#include <lame/lame.h>

#include <random>

#include "media_player_fixture.h"
#include "platform/audio_file_mp3_writer.h"

namespace melvane {
namespace {

using namespace sound_test;

TEST_F(MediaPlaying, TellsWhatItCannotOpen) {
    const auto open = [](const std::string& file, const std::string& type = "MPEGVideo") {
        return "open " + file + " type " + type + " alias audiomp3 parent 1 Style 1";
    };
    EXPECT_EQ(refused(open("")), MediaError::noFile);
    EXPECT_EQ(refused(open(folder.file("none.wav"))), MediaError::noFile);
    EXPECT_EQ(refused(open(folder.path().string())), MediaError::noFile);
    EXPECT_EQ(refused(open(path, "cdaudio")), MediaError::unknownType);
    EXPECT_EQ(refused(open(folder.make("empty.wav"))), MediaError::damagedFile);
    EXPECT_EQ(refused(open(folder.make("text.mp3", "This is no music."))), MediaError::damagedFile);
    EXPECT_EQ(refused("stop audiomp3"), MediaError::notOpen);
    done(open(path));
    EXPECT_EQ(refused(open(path)), MediaError::aliasInUse);
}

TEST_F(MediaPlaying, ReadsByContentWhateverTheNameSays) {
    openFile(folder.make("tone.mid", bytesOf(path)));
    EXPECT_EQ(number("status audiomp3 length"), 120);
}

TEST_F(MediaPlaying, PlaysWhatIsThereOfAFileThatIsCut) {
    openFile(folder.make("cut.wav", bytesOf(path).substr(0, 44 + 176'400)));
    const long length = number("status audiomp3 length");
    done("play audiomp3 from 0 to " + std::to_string(length));
    const auto sound = run(5.0);
    EXPECT_NEAR(sound[1001], tone[1001], 2.0 / 32768);
    EXPECT_EQ(position(), length);
}

TEST_F(MediaPlaying, EndsAtOnceWithAFileOfLengthNothing) {
    openFile(folder.make("nothing.wav", waveHeader({}, 0)));
    EXPECT_EQ(number("status audiomp3 length"), 0);
    done("play audiomp3 from 0 to 0");
    EXPECT_EQ(peak(run(0.5)), 0.0F);
    EXPECT_EQ(position(), 0);
}

TEST_F(MediaPlaying, ClipsAndSilencesWhatIsNoSoundInAFile) {
    std::string bytes = waveHeader({}, 16);
    bytes[20] = 3;   // floats
    bytes[32] = 8;   // bytes a frame
    bytes[34] = 32;  // bits
    for (const float value : {std::nanf(""), 1e30F, -INFINITY, -2.0F}) {
        bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
    }
    openFile(folder.make("floats.wav", bytes));
    done("play audiomp3");
    const auto sound = run(0.01);
    EXPECT_EQ(std::vector<float>(sound.begin(), sound.begin() + 6), (std::vector<float>{0, 1, 0, -1, 0, 0}));
}

/// The same sound in other shapes of file.
TEST_F(MediaPlaying, BringsOtherRatesAndChannelsToTheStream) {
    for (const WaveFormat& format :
         {WaveFormat{22050, 1, 8}, WaveFormat{22050, 2, 16}, WaveFormat{48000, 2, 16}}) {
        WaveEncoder encoder(format);
        std::string bytes;
        encoder.encode(tone, true, bytes);
        openFile(folder.make("other.wav", waveHeader(format, bytes.size()) + bytes));
        EXPECT_EQ(number("status audiomp3 length"), 120) << format.rate;
        done("play audiomp3 from 0 to 120");
        const auto sound = run(4.5);
        const auto middle = std::span(sound).subspan(88'200, 2 * 88'200);
        const double left = format.channels == 1 ? 0.375 : 0.5;
        EXPECT_NEAR(amplitudeAt(middle, 441, soundRate, 2, 0), left, 0.01) << format.rate;
        EXPECT_NEAR(amplitudeAt(middle, 441, soundRate, 2, 1), format.channels == 1 ? left : 0.25, 0.01);
        EXPECT_EQ(position(), 120);
        done("play audiomp3 from 60 to 90");
        EXPECT_NEAR(amplitudeAt(run(0.9), 441, soundRate), left, 0.01) << "after a seek";
        done("close audiomp3");
    }
}

TEST_F(MediaPlaying, PlaysAnMp3) {
    const std::string mp3 = folder.file("tone.mp3");
    Mp3Writer writer(mp3);
    ASSERT_TRUE(writer.write(tone));
    ASSERT_EQ(writer.finish(), std::nullopt);
    openFile(mp3);
    const long length = number("status audiomp3 length");
    EXPECT_NEAR(static_cast<double>(length), 120, 3);
    done("play audiomp3 from 0 to " + std::to_string(length));
    const auto sound = run(4.5);
    EXPECT_NEAR(amplitudeAt(std::span(sound).subspan(88'200, 2 * 88'200), 441, soundRate), 0.5, 0.02);
    EXPECT_EQ(position(), length);
    done("play audiomp3 from 60 to 90");
    const auto part = run(2.0);
    EXPECT_NEAR(amplitudeAt(std::span(part).first(88'200), 441, soundRate), 0.5, 0.02);
    EXPECT_EQ(peak(std::span(part).subspan(90'000)), 0.0F);
}

/// Encodes `stereo` with a varying bit rate and nothing that tells the length.
std::string bareMp3(const std::vector<float>& stereo, int rate, MPEG_mode mode) {
    const std::unique_ptr<lame_global_flags, int (*)(lame_t)> lame(lame_init(), &lame_close);
    lame_set_in_samplerate(lame.get(), soundRate);
    lame_set_out_samplerate(lame.get(), rate);
    lame_set_mode(lame.get(), mode);
    lame_set_VBR(lame.get(), vbr_default);
    lame_set_bWriteVbrTag(lame.get(), 0);
    EXPECT_GE(lame_init_params(lame.get()), 0);
    std::vector<unsigned char> bytes(stereo.size() + 10'000);
    const int frames = static_cast<int>(stereo.size() / 2), room = static_cast<int>(bytes.size());
    const int first =
        lame_encode_buffer_interleaved_ieee_float(lame.get(), stereo.data(), frames, bytes.data(), room);
    const int last = lame_encode_flush(lame.get(), bytes.data() + first, room - first);
    return {bytes.begin(), bytes.begin() + first + last};
}

TEST_F(MediaPlaying, CountsTheLengthOfAnMp3WithAVaryingBitRate) {
    auto sound = stereoTone(441, 0.5, 0.5, 30 * soundRate);
    std::minstd_rand random;
    for (std::size_t at = 10 * soundRate; at < 50 * soundRate; ++at) {
        sound[at] += static_cast<float>(random() % 1000) / 2500 - 0.2F;
    }
    for (const int rate : {44'100, 22'050}) {
        openFile(folder.make("bare.mp3", bareMp3(sound, rate, JOINT_STEREO)));
        done("set audiomp3 time format ms");
        EXPECT_NEAR(static_cast<double>(number("status audiomp3 length")), 30'000, 100) << rate;
        done("play audiomp3 from 27000 to 28000");
        EXPECT_NEAR(amplitudeAt(run(0.9), 441, soundRate), 0.5, 0.02) << rate;
        done("close audiomp3");
    }
}

TEST_F(MediaPlaying, PlaysAnMp3OfOneChannelOnBothSides) {
    openFile(folder.make("mono.mp3", bareMp3(tone, 44'100, MONO)));
    done("play audiomp3 from 0");
    const auto sound = run(3.0);
    EXPECT_NEAR(amplitudeAt(sound, 441, soundRate, 2, 0), 0.375, 0.03);
    EXPECT_NEAR(amplitudeAt(sound, 441, soundRate, 2, 1), 0.375, 0.03);
}

TEST_F(MediaPlaying, PlaysWhatIsThereOfAnMp3ThatIsCutOrHoldsRubbish) {
    std::string bytes = bareMp3(tone, 44'100, STEREO);
    openFile(folder.make("cut.mp3", bytes.substr(0, bytes.size() / 2 + 77)));
    EXPECT_NEAR(static_cast<double>(number("status audiomp3 length")), 60, 5);
    done("close audiomp3");
    bytes.replace(bytes.size() / 2, 1000, std::string(1000, 'x'));
    openFile(folder.make("rubbish.mp3", std::string(300, '\0') + bytes));
    const long length = number("status audiomp3 length");
    done("play audiomp3 from 0 to " + std::to_string(length));
    EXPECT_NEAR(amplitudeAt(run(1.5), 441, soundRate), 0.5, 0.05);
    run(4.0);
    EXPECT_EQ(position(), length);
}

TEST_F(MediaPlaying, GoesOnWithoutTheFileThatWasRemoved) {
    openFile(path);
    std::filesystem::remove(path);
    done("play audiomp3 from 0 to 120");
    EXPECT_NEAR(amplitudeAt(run(3.5), 441, soundRate), 0.5, 0.01);
}

}  // namespace
}  // namespace melvane
