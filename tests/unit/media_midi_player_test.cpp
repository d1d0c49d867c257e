#include <gtest/gtest.h>

#include "media_fixture.h"
#include "midi_file_builder.h"
#include "platform/media_midi_player.h"
#include "platform/midi_file_reader.h"
#include "platform_sound_guard.h"

namespace melvane {
namespace {

using namespace sound_test;

constexpr int a4 = 69, a5 = 81;
constexpr std::size_t soon = 100;  ///< frames from a message to the start of its note

std::string square(int channel = 0) { return midiMessage(0, 0xC0 | channel, static_cast<int>(squareLead)); }

/// A division of 500 with the usual tempo: a tick is a millisecond.
constexpr std::uint32_t milliseconds = 500;

class MidiPlaying : public MediaTest {
 protected:
    void SetUp() override { ASSERT_EQ(synthesizer.loadSoundFont(anySoundFont()), std::nullopt); }

    void openMidi(const std::string& track) {
        openFile(folder.make("song.mid", midiFile(0, milliseconds, {track})));
        done("set audiomp3 time format ms");
    }
    long position() { return number("status audiomp3 position"); }
    static double level(std::span<const float> sound, double hertz) {
        return amplitudeAt(sound, hertz, soundRate);
    }
    static std::span<const float> seconds(const std::vector<float>& sound, double from, double length) {
        const auto values = [](double time) {
            return static_cast<std::size_t>(time * soundRate) * soundChannels;
        };
        return std::span(sound).subspan(values(from), values(length));
    }
};

TEST_F(MidiPlaying, SoundsEachNoteAtItsFrameAndPitch) {
    openMidi(square() + note(500, a4) + noteEnd(400, a4) + note(600, a5) + noteEnd(400, a5) + trackEnd(100));
    EXPECT_EQ(number("status audiomp3 length"), 2000);
    done("play audiomp3 from 0 to 2000");
    const auto sound = run(3.0);
    const auto first = firstSound(sound);
    ASSERT_TRUE(first);
    EXPECT_NEAR(static_cast<double>(*first), soundRate * 0.5 + 55, soon);
    EXPECT_GT(level(seconds(sound, 0.6, 0.2), 440), 0.02);
    EXPECT_LT(level(seconds(sound, 0.6, 0.2), 880), level(seconds(sound, 0.6, 0.2), 440));
    EXPECT_GT(level(seconds(sound, 1.6, 0.2), 880), 0.02);
    EXPECT_LT(level(seconds(sound, 1.6, 0.2), 440), 0.002);
    EXPECT_EQ(position(), 2000);
}

TEST_F(MidiPlaying, SoundsAsTheSameMessagesSentToTheSynthesizer) {
    openMidi(square() + note(100, a4) + noteEnd(400, a4) + note(0, a5) + noteEnd(400, a5) + trackEnd(100));
    done("play audiomp3 from 0 to 1000");
    const auto sound = run(1.5);
    FrameClock still;
    Synthesizer other(still, 0.0);
    ASSERT_EQ(other.loadSoundFont(anySoundFont()), std::nullopt);
    other.send(program(0, squareLead), 0);
    other.send(noteOn(0, a4), soundRate / 10);
    other.send(noteOff(0, a4), soundRate / 2);
    other.send(noteOn(0, a5), soundRate / 2);
    other.send(noteOff(0, a5), soundRate * 9 / 10);
    EXPECT_EQ(sound, render(other, sound.size() / 2));
}

TEST_F(MidiPlaying, TellsThePositionThatIsHeard) {
    openMidi(note(0, a4) + trackEnd(10'000));
    done("play audiomp3 from 0 to 10000");
    for (int step = 1; step <= 30; ++step) {
        run(0.1);
        EXPECT_NEAR(static_cast<double>(position()), step * 100.0 - delaySeconds * 1000, 2.0);
    }
    done("set audiomp3 time format frames");
    EXPECT_EQ(number("status audiomp3 length"), 300);
    EXPECT_EQ(position(), 89);
}

TEST_F(MidiPlaying, IsSilentInAPauseAndStandsStill) {
    openMidi(square() + note(0, a4) + note(2000, a5) + trackEnd(2000));
    done("play audiomp3 from 0 to 4000");
    run(1.0);
    done("pause audiomp3");
    const long paused = position();
    EXPECT_EQ(paused, 1000);
    const auto pause = run(1.0);
    EXPECT_LT(peak(seconds(pause, 0.02, 0.9)), 0.001F);
    EXPECT_EQ(position(), paused);
    done("resume audiomp3");
    const auto rest = run(2.0);
    const auto next = firstSound(rest);
    ASSERT_TRUE(next);
    EXPECT_NEAR(static_cast<double>(*next), soundRate * 1.0 + 55, soon) << "with the program of before";
    EXPECT_GT(level(seconds(rest, 1.2, 0.5), 880), 0.02);
}

TEST_F(MidiPlaying, EndsAllNotesAtAStopAndAtAClose) {
    for (const char* const command : {"stop audiomp3", "close audiomp3"}) {
        openMidi(square() + midiMessage(0, 0xB0, 64, 127) + note(0, a4) + trackEnd(10'000));
        done("play audiomp3 from 0 to 10000");
        EXPECT_GT(peak(run(0.5)), 0.02F);
        done(command);
        run(0.02);
        EXPECT_LT(peak(run(0.5)), 0.001F) << command;
        device->send("close audiomp3");
    }
}

/// In the middle of a note, and when only the room is heard any more.
TEST_F(MidiPlaying, IsSilentAtOnceBehindAStopAPauseAndAClose) {
    const std::string inALargeRoom = midiMessage(0, 0xB0, 91, 127);
    for (const char* const command : {"stop audiomp3", "pause audiomp3", "close audiomp3"}) {
        for (const double moment : {0.5, 1.4}) {
            openMidi(inALargeRoom + square() + note(0, a4) + noteEnd(1000, a4) + trackEnd(10'000));
            done("play audiomp3 from 0 to 10000");
            EXPECT_GT(peak(seconds(run(moment), moment - 0.1, 0.1)), 0.001F) << moment;
            done(command);
            run(0.02);
            EXPECT_LT(peak(run(1.5)), 0.001F) << command << " at " << moment;
            device->send("close audiomp3");
            run(2.0);
        }
    }
}

TEST_F(MidiPlaying, EndsWhatTheFileLeavesSoundingAtItsEnd) {
    openMidi(square() + midiMessage(0, 0xB0, 64, 127) + note(0, a4) + trackEnd(500));
    done("play audiomp3 from 0 to 500");
    run(1.5);
    EXPECT_LT(peak(run(0.5)), 0.003F);
}

TEST_F(MidiPlaying, RestoresProgramsAndControllersAtASeek) {
    const std::string opening = square() + midiMessage(0, 0xB0, 7, 20) + midiMessage(10, 0xB0, 7, 127) +
                                midiMessage(0, 0xB0, 10, 0) + midiMessage(0, 0xB0, 91, 0);
    openMidi(opening + note(990, a4) + noteEnd(500, a4) + trackEnd(500));
    done("play audiomp3 from 0 to 2000");
    const auto whole = run(2.5);
    done("play audiomp3 from 900 to 2000");
    const auto part = run(1.5);
    const double wanted = level(seconds(whole, 1.2, 0.2), 440);
    EXPECT_GT(wanted, 0.02);
    EXPECT_NEAR(level(seconds(part, 0.3, 0.2), 440), wanted, wanted * 0.05);
    EXPECT_LT(amplitudeAt(seconds(part, 0.3, 0.2), 440, soundRate, 2, 1), wanted * 0.05) << "far left";
}

TEST_F(MidiPlaying, RestoresTheRangeOfTheBend) {
    const std::string range = midiMessage(0, 0xB0, 101, 0) + midiMessage(0, 0xB0, 100, 0) +
                              midiMessage(0, 0xB0, 6, 12) + midiMessage(0, 0xE0, 127, 127);
    openMidi(square() + range + note(1000, a4) + trackEnd(1000));
    done("play audiomp3 from 500 to 2000");
    const auto sound = run(1.5);
    double highest = 0;
    for (double hertz = 860; hertz < 890; ++hertz) {
        highest = std::max(highest, level(seconds(sound, 0.8, 0.3), hertz));
    }
    EXPECT_GT(highest, 0.02) << "an octave higher";
    EXPECT_LT(level(seconds(sound, 0.8, 0.3), 494), 0.005) << "not two semitones";
}

TEST_F(MidiPlaying, GivesTheChannelsBackAsTheyWere) {
    synthesizer.send(program(0, squareLead));
    synthesizer.send(controller(0, 7, 127));
    run(0.1);
    openMidi(midiMessage(0, 0xC0, 0) + midiMessage(0, 0xB0, 7, 1) + midiMessage(0, 0xE0, 0, 127) +
             trackEnd(100));
    done("play audiomp3 from 0 to 100");
    run(0.5);
    done("close audiomp3");
    run(0.1);
    synthesizer.send(noteOn(0, a4), clock.now);
    const auto after = run(0.5);

    FrameClock still;
    Synthesizer other(still, 0.0);
    ASSERT_EQ(other.loadSoundFont(anySoundFont()), std::nullopt);
    other.send(program(0, squareLead), 0);
    other.send(controller(0, 7, 127), 0);
    other.send(noteOn(0, a4), 0);
    const auto wanted = render(other, after.size() / 2);
    EXPECT_NEAR(level(seconds(after, 0.2, 0.2), 440), level(seconds(wanted, 0.2, 0.2), 440), 0.005);
}

TEST_F(MidiPlaying, IsAsLongAsItsLastTrackHoweverFarItsEndMarkLies) {
    const std::string tune = note(0, a4) + noteEnd(100, a4);
    openFile(folder.make("a.mid", midiFile(1, milliseconds,
                                           {tempo(0, 500'000) + tempo(1000, 1'000'000) + trackEnd(0),
                                            tune + trackEnd(0), trackEnd(3000), tune + trackEnd(500)})));
    done("set audiomp3 time format ms");
    EXPECT_EQ(number("status audiomp3 length"), 1000 + 2 * 2000) << "the tempo changes behind the last note";
    done("play audiomp3 from 0 to 5000");
    run(4.9);
    EXPECT_LT(position(), 5000);
    run(0.2);
    EXPECT_EQ(position(), 5000);
}

TEST_F(MidiPlaying, BeginsWithFreshChannels) {
    synthesizer.send(controller(0, 7, 0));
    run(0.1);
    openMidi(square() + note(0, a4) + trackEnd(1000));
    done("play audiomp3 from 0 to 1000");
    EXPECT_GT(peak(run(0.5)), 0.02F);
}

TEST_F(MidiPlaying, LeavesTheSynthesizerToTheFileThatHasIt) {
    openMidi(note(0, a4) + trackEnd(1000));
    done("open " + folder.file("song.mid") + " type sequencer alias second");
    done("play audiomp3");
    EXPECT_EQ(refused("play second"), MediaError::inUse);
    done("stop audiomp3");
    done("play second");
}

TEST_F(MidiPlaying, IsRecordedFromTheMix) {
    openMidi(square() + note(0, a4) + trackEnd(2000));
    elsewhere = true;
    done("play audiomp3 from 0 to 2000");
    openCapture();
    done("record capture");
    const auto sound = run(1.0);
    done("stop capture");
    done("save capture " + folder.file("a.wav"));
    EXPECT_GT(peak(sound), 0.02F);
    std::string bytes;
    WaveEncoder(WaveFormat{}).encode(sound, true, bytes);
    EXPECT_EQ(bytesOf(folder.file("a.wav")), waveHeader({}, bytes.size()) + bytes);
}

TEST_F(MidiPlaying, RefusesADamagedFile) {
    EXPECT_EQ(refused("open " + folder.make("a.mid", "MThd") + " type MPEGVideo alias a"),
              MediaError::damagedFile);
}

TEST_F(MidiPlaying, SpreadsMoreNotesThanABlockCanBearOverTheNextOnes) {
    std::string track = square();
    for (int turn = 0; turn < 10'000; ++turn) track += noteEnd(0, turn % 128);
    openMidi(track + note(0, a4) + trackEnd(1000));
    done("play audiomp3 from 0 to 1000");
    const auto first = firstSound(run(0.5));
    ASSERT_TRUE(first);
    EXPECT_NEAR(static_cast<double>(*first), 9 * 256 + 55, soon);
}

TEST(MidiPlayer, PlacesEachMessageOnItsFrameWhateverTheBlocksAre) {
    std::string track;
    for (int turn = 0; turn < 200; ++turn) {
        track += note(static_cast<std::uint32_t>(turn * 7 % 23), 40 + turn % 50);
    }
    const auto sequence = readMidiFile(midiFile(0, milliseconds, {track + trackEnd(500)}));
    ASSERT_TRUE(sequence);
    for (const std::size_t blockFrames : {1U, 64U, 256U, 1000U, 44'100U, 1'000'000U}) {
        FrameClock clock;
        Synthesizer silent(clock, 0.0);
        MidiPlayer player(*sequence, silent, clock, 0.03);
        ASSERT_TRUE(player.start(0, player.length()));
        std::vector<std::uint32_t> frames;
        for (std::size_t block = 0; frames.size() < 200 && block < sequence->length; block += blockFrames) {
            player.beginBlock(blockFrames, static_cast<std::int64_t>(block));
            while (const auto due = player.next()) {
                if (due->message.kind == 0x90)
                    frames.push_back(static_cast<std::uint32_t>(block + due->frame));
            }
        }
        std::vector<std::uint32_t> wanted;
        for (const auto& event : sequence->events) wanted.push_back(event.frame);
        EXPECT_EQ(frames, wanted) << blockFrames;
    }
}

TEST(MidiPlayer, GoesOnInAStreamThatIsSilent) {
    FrameClock clock;
    Synthesizer silent(clock, 0.0);
    MidiPlayer player(*readMidiFile(midiFile(0, milliseconds, {note(0, a4) + trackEnd(1000)})), silent, clock,
                      0.03);
    ASSERT_TRUE(player.start(0, player.length()));
    render(silent, 22'050);
    clock.now = 22'050;
    EXPECT_NEAR(static_cast<double>(player.position()), 22'050 * (1 - 0.06), 10);
}

TEST(MidiPlayer, NeitherAllocatesNorLocksInTheCallback) {
    FrameClock clock;
    Synthesizer synthesizer(clock, 0.0);
    ASSERT_EQ(synthesizer.loadSoundFont(anySoundFont()), std::nullopt);
    std::string track = square();
    for (int turn = 0; turn < 50; ++turn) {
        track += midiMessage(3, 0xB0, 7, 50 + turn) + note(5, 40 + turn) + midiMessage(0, 0xE0, 0, turn) +
                 noteEnd(10, 40 + turn) + midiMessage(0, 0xC0, turn);
    }
    MidiPlayer player(*readMidiFile(midiFile(0, milliseconds, {track})), synthesizer, clock, 0.03);
    float loudest = 0;
    std::vector<float> block(512);
    for (int turn = 0; turn < 400; ++turn) {
        if (turn % 60 == 5) {
            ASSERT_TRUE(player.start(turn * 256, player.length()));
        }
        if (turn % 60 == 50) player.halt();
        std::ranges::fill(block, 0.0F);
        const CallbackGuard guard;
        synthesizer.mix(block, clock.now);
        ASSERT_EQ(guard.allocations(), 0U) << turn;
        ASSERT_EQ(guard.locks(), 0U) << turn;
        loudest = std::max(loudest, peak(block));
        clock.now += 256;
    }
    EXPECT_GT(loudest, 0.01F);
}

}  // namespace
}  // namespace melvane
