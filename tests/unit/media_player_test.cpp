#include <gtest/gtest.h>
#include <lame/lame.h>

#include <random>

#include "media_fixture.h"
#include "platform/audio_file_mp3_writer.h"
#include "platform/media_sound_file_player.h"
#include "platform_sound_guard.h"

namespace melvane {
namespace {

using namespace sound_test;

constexpr double toneSeconds = 4.0;
constexpr auto toneFrames = static_cast<std::size_t>(toneSeconds * soundRate);

class MediaPlaying : public MediaTest {
 protected:
    void SetUp() override {
        path = folder.file("a tone.wav");
        tone = stereoTone(441, 0.5, 0.25, toneFrames);
        writeWav(path, tone);
    }
    long position() { return number("status audiomp3 position"); }
    void inMilliseconds() { done("set audiomp3 time format ms"); }

    std::string path;
    std::vector<float> tone;
};

TEST_F(MediaPlaying, TellsTheLengthInFramesAndInMilliseconds) {
    openFile(path);
    EXPECT_EQ(done("status audiomp3 length"), "120");
    inMilliseconds();
    EXPECT_EQ(done("status audiomp3 length"), "4000");
    done("set audiomp3 time format frames");
    EXPECT_EQ(done("status audiomp3 position"), "0");
}

TEST_F(MediaPlaying, SoundsAsTheFileFromItsFirstSampleToItsLast) {
    openFile(path);
    done("play audiomp3 from 0 to 120");
    const auto sound = run(5.0);
    std::vector<std::int16_t> heard, wanted;
    ASSERT_GE(sound.size(), tone.size());
    for (std::size_t at = 0; at < tone.size(); ++at) ASSERT_NEAR(sound[at], tone[at], 2.0 / 32768) << at;
    EXPECT_EQ(peak(std::span(sound).subspan(tone.size())), 0.0F);
}

TEST_F(MediaPlaying, TellsThePositionThatIsHeard) {
    openFile(path);
    inMilliseconds();
    done("play audiomp3 from 0 to 4000");
    long last = 0;
    for (int step = 1; step < 39; ++step) {
        run(0.1);
        const long now = position();
        EXPECT_NEAR(static_cast<double>(now), step * 100.0 - delaySeconds * 1000, 2.0);
        EXPECT_GE(now, last);
        last = now;
    }
}

TEST_F(MediaPlaying, TellsThePositionBetweenBlocksAndNeverBeyondThem) {
    openFile(path);
    inMilliseconds();
    done("play audiomp3 from 1000 to 4000");
    EXPECT_EQ(position(), 1000);
    run(0.5);
    clock.now += soundRate / 50;
    EXPECT_EQ(position(), 1490);
    clock.now += soundRate;
    EXPECT_EQ(position(), 1500);
}

TEST_F(MediaPlaying, IsAtTheLengthAtTheEndAndNotBefore) {
    for (const char* const format : {"frames", "ms"}) {
        openFile(path);
        done(std::string("set audiomp3 time format ") + format);
        const long length = number("status audiomp3 length");
        done("play audiomp3 from 0 to " + std::to_string(length));
        run(3.96);
        EXPECT_LT(position(), length);
        run(0.2);
        EXPECT_EQ(position(), length);
        run(1.0);
        EXPECT_EQ(position(), length);
        done("close audiomp3");
    }
}

TEST_F(MediaPlaying, StandsStillInAPauseAndGoesOnThere) {
    openFile(path);
    inMilliseconds();
    done("play audiomp3 from 0 to 4000");
    const auto before = run(1.0);
    done("pause audiomp3");
    const long paused = position();
    EXPECT_NEAR(static_cast<double>(paused), 1000, 50);
    EXPECT_EQ(peak(run(1.0)), 0.0F);
    EXPECT_EQ(position(), paused);
    done("pause audiomp3");
    EXPECT_EQ(position(), paused);
    done("resume audiomp3");
    EXPECT_EQ(position(), paused);
    const auto after = run(1.0);
    for (std::size_t at = 0; at < after.size(); ++at)
        ASSERT_NEAR(after[at], tone[before.size() + at], 2.0 / 32768);
    EXPECT_NEAR(static_cast<double>(position()), 2000 - delaySeconds * 1000, 2.0);
    run(3.0);
    EXPECT_EQ(position(), 4000) << "the end of the play that was paused";
}

TEST_F(MediaPlaying, PlaysAPartFromASampleToASample) {
    openFile(path);
    done("play audiomp3 from 30 to 60");
    const auto sound = run(2.0);
    for (std::size_t at = 0; at < 2 * soundRate; ++at)
        ASSERT_NEAR(sound[at], tone[2 * soundRate + at], 2.0 / 32768);
    EXPECT_EQ(peak(std::span(sound).subspan(2 * soundRate)), 0.0F);
    EXPECT_EQ(position(), 60);
    done("play audiomp3");
    const auto rest = run(3.0);
    EXPECT_NEAR(rest[101], tone[4 * soundRate + 101], 2.0 / 32768) << "from where it is to the end";
    EXPECT_EQ(position(), 120);
}

TEST_F(MediaPlaying, RefusesPlacesOutsideTheFile) {
    openFile(path);
    EXPECT_EQ(refused("play audiomp3 from 50 to 20"), MediaError::outOfRange);
    EXPECT_EQ(refused("play audiomp3 from 0 to -1"), MediaError::outOfRange);
    EXPECT_EQ(refused("play audiomp3 from -1"), MediaError::outOfRange);
    EXPECT_EQ(refused("play audiomp3 from 9223372036854775807"), MediaError::outOfRange);
    done("play audiomp3 from 0 to 9223372036854775807");
    run(5.0);
    EXPECT_EQ(position(), 120);
}

TEST_F(MediaPlaying, StopsAtOnceAndKeepsItsPlace) {
    openFile(path);
    done("play audiomp3 from 0 to 120");
    run(1.0);
    done("stop audiomp3");
    EXPECT_EQ(peak(run(0.5)), 0.0F);
    EXPECT_EQ(position(), 30);
    done("resume audiomp3");
    EXPECT_EQ(peak(run(0.5)), 0.0F) << "only a pause is taken up";
    done("stop audiomp3");
    done("close audiomp3");
}

TEST_F(MediaPlaying, RefusesAnAliasThatIsNotOpen) {
    for (const char* const command :
         {"stop audiomp3", "close audiomp3", "pause audiomp3", "resume audiomp3", "play audiomp3 from 0 to 3",
          "status audiomp3 position", "status audiomp3 length", "set audiomp3 time format frames"}) {
        EXPECT_EQ(refused(command), MediaError::notOpen) << command;
    }
    openFile(path);
    done("play audiomp3 from 0 to 120");
    done("close audiomp3");
    EXPECT_EQ(peak(run(0.5)), 0.0F);
    EXPECT_EQ(refused("status audiomp3 position"), MediaError::notOpen);
}

TEST_F(MediaPlaying, RefusesWhatOnlyACaptureCan) {
    openFile(path);
    for (const char* const command :
         {"record audiomp3", "save audiomp3 /x.wav", "delete audiomp3", "capability audiomp3 can save"}) {
        EXPECT_EQ(refused(command), MediaError::wrongKind) << command;
    }
}

TEST_F(MediaPlaying, PlaysSeveralFilesAtOnceEachUnderItsAlias) {
    const std::string other = folder.file("other.wav");
    writeWav(other, stereoTone(882, 0.25, 0.25, toneFrames));
    openFile(path);
    done("open " + other + " type MPEGVideo alias second");
    done("play audiomp3 from 0");
    done("play SECOND from 0");
    const auto both = run(1.0);
    EXPECT_NEAR(amplitudeAt(both, 441, soundRate), 0.5, 0.01);
    EXPECT_NEAR(amplitudeAt(both, 882, soundRate), 0.25, 0.01);
    done("stop audiomp3");
    const auto one = run(1.0);
    EXPECT_LT(amplitudeAt(one, 441, soundRate), 0.001);
    EXPECT_NEAR(amplitudeAt(one, 882, soundRate), 0.25, 0.01);
}

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

TEST_F(MediaPlaying, AnswersAFileThatClaimsToBeOfFourGigabytes) {
    std::string bytes = waveHeader({}, mostWaveData - 3);
    bytes.resize(44 + 17'640);
    const auto answer =
        device->send("open " + folder.make("huge.wav", bytes) + " type MPEGVideo alias audiomp3");
    if (answer.code != 0) return;
    done("play audiomp3");
    run(1.0);
    EXPECT_EQ(done("status audiomp3 position"), done("status audiomp3 length"));
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

TEST(SoundFilePlayer, NeitherAllocatesNorLocksInTheCallback) {
    const TemporaryFolder folder;
    writeWav(folder.file("a.wav"), stereoTone(441, 0.5, 0.5, 44'100));
    FrameClock clock;
    SoundVoices voices;
    SoundFilePlayer player(AudioReader::open(folder.file("a.wav")), voices, clock, 0.03);
    ASSERT_TRUE(player.start(0, 44'100));
    player.catchUp();
    std::vector<float> block(512);
    for (int turn = 0; turn < 200; ++turn) {
        std::ranges::fill(block, 0.0F);
        const CallbackGuard guard;
        voices.mix(block, clock.now);
        ASSERT_EQ(guard.allocations(), 0U);
        ASSERT_EQ(guard.locks(), 0U);
        if (turn == 10) {
            ASSERT_GT(peak(block), 0.4F);
        }
        clock.now += 256;
    }
    EXPECT_EQ(player.position(), 44'100);
}

TEST(SoundVoices, TakesAsManyAsThereIsRoomFor) {
    SoundVoices voices;
    std::vector<SoundOnce> sounds(SoundVoices::most + 1);
    for (std::size_t at = 0; at < SoundVoices::most; ++at) EXPECT_TRUE(voices.add(sounds[at]));
    EXPECT_FALSE(voices.add(sounds.back()));
    voices.remove(sounds[3]);
    voices.remove(sounds[3]);
    EXPECT_TRUE(voices.add(sounds.back()));
}

}  // namespace
}  // namespace melvane
