#include <gtest/gtest.h>

#include "media_player_fixture.h"
#include "platform/media_sound_file_player.h"
#include "platform_sound_guard.h"

namespace melvane {
namespace {

using namespace sound_test;

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

/// A length of part of a millisecond more than it tells.
TEST_F(MediaPlaying, ReachesTheEndWhenItIsPlayedToTheLengthInMilliseconds) {
    for (const std::size_t frames : {44'101U, 44'143U, 44'144U, 44'145U, 50'001U}) {
        writeWav(path, std::span(tone).first(frames * 2));
        openFile(path);
        inMilliseconds();
        const long length = number("status audiomp3 length");
        done("play audiomp3 from 0 to " + std::to_string(length));
        const auto sound = run(1.5);
        EXPECT_NEAR(sound[frames * 2 - 2], tone[frames * 2 - 2], 2.0 / 32768) << "the last frame";
        EXPECT_EQ(position(), length) << frames;
        done("set audiomp3 time format frames");
        EXPECT_EQ(position(), number("status audiomp3 length")) << frames;
        done("close audiomp3");
    }
}

TEST_F(MediaPlaying, EndsAtTheMillisecondThatWasAskedFor) {
    openFile(path);
    inMilliseconds();
    for (const long end : {1L, 333L, 1234L, 1237L}) {
        done("play audiomp3 from 0 to " + std::to_string(end));
        run(1.5);
        EXPECT_EQ(position(), end);
        done("play audiomp3 from " + std::to_string(end));
        EXPECT_EQ(position(), end);
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
    EXPECT_EQ(refused("play audiomp3 from -9223372036854775808"), MediaError::outOfRange);
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
