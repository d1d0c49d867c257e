#include <gtest/gtest.h>

#include "midi_file_builder.h"
#include "platform/midi_file_reader.h"

namespace melvane {
namespace {

using namespace sound_test;
using Event = MidiSequence::Event;

constexpr std::uint32_t second = 44'100;

MidiSequence read(const std::string& bytes) {
    const auto sequence = readMidiFile(bytes);
    EXPECT_TRUE(sequence);
    return sequence.value_or(MidiSequence{});
}

/// The frames at which notes begin.
std::vector<std::uint32_t> onsets(const MidiSequence& sequence) {
    std::vector<std::uint32_t> frames;
    for (const Event& event : sequence.events) {
        if ((event.packed & 0xF0U) == 0x90) frames.push_back(event.frame);
    }
    return frames;
}

using Frames = std::vector<std::uint32_t>;

TEST(MidiFileReader, ReadsATrackWithTheUsualTempo) {
    const auto sequence =
        read(midiFile(0, 100, {note(0, 60) + note(100, 62) + noteEnd(50, 62) + trackEnd(50)}));
    EXPECT_EQ(sequence.events,
              (std::vector<Event>{{0, 0x643C90}, {second / 2, 0x643E90}, {second * 3 / 4, 0x3E80}}));
    EXPECT_EQ(sequence.length, second);
}

TEST(MidiFileReader, FollowsTheTempoOfAnotherTrack) {
    const auto sequence = read(midiFile(1, 100,
                                        {tempo(0, 1'000'000) + tempo(100, 250'000) + trackEnd(0),
                                         note(50, 60) + note(150, 61) + trackEnd(0)}));
    EXPECT_EQ(onsets(sequence), (Frames{second / 2, second + second / 4}));
}

TEST(MidiFileReader, IgnoresATempoOfNothing) {
    EXPECT_EQ(onsets(read(midiFile(0, 100, {tempo(0, 0) + note(100, 60) + trackEnd(0)}))),
              Frames{second / 2});
}

TEST(MidiFileReader, MixesTheTracksOfTypeOneAndKeepsTheOrderOfEqualMoments) {
    const auto sequence = read(midiFile(
        1, 100, {note(10, 60) + trackEnd(0), note(10, 61) + trackEnd(0), note(0, 62) + trackEnd(200)}));
    EXPECT_EQ(sequence.events, (std::vector<Event>{{0, 0x643E90}, {2205, 0x643C90}, {2205, 0x643D90}}));
    EXPECT_EQ(sequence.length, second);
}

TEST(MidiFileReader, PlaysTheTracksOfTypeTwoInTurnEachAtItsTempo) {
    const auto sequence = read(midiFile(2, 100,
                                        {tempo(0, 1'000'000) + note(0, 60) + trackEnd(100),
                                         note(0, 61) + trackEnd(100), note(0, 62) + trackEnd(100)}));
    EXPECT_EQ(onsets(sequence), (Frames{0, second, second + second / 2}));
    EXPECT_EQ(sequence.length, 2 * second);
}

TEST(MidiFileReader, CountsPictureFramesWithoutRegardToTheTempo) {
    for (const auto& [division, rate] :
         {std::pair{0xE728U, 25.0 * 40}, std::pair{0xE850U, 24.0 * 80}, std::pair{0xE264U, 30.0 * 100},
          std::pair{0xE364U, 29.97003 * 100}}) {
        const auto sequence =
            read(midiFile(0, division, {tempo(0, 9'000'000) + note(3000, 60) + trackEnd(0)}));
        EXPECT_NEAR(sequence.length, 3000 / rate * second, 2) << division;
    }
}

TEST(MidiFileReader, TakesAUsualDivisionForOneThatMeansNothing) {
    for (const std::uint32_t division : {0U, 0xE700U, 0x8001U}) {
        EXPECT_EQ(onsets(read(midiFile(0, division, {note(96, 60) + trackEnd(0)}))), Frames{second / 2})
            << division;
    }
}

TEST(MidiFileReader, GoesOnWithTheStatusOfTheMessageBefore) {
    const auto sequence =
        read(midiFile(0, 100, {note(0, 60) + "\x0A" + "\x3E\x64" + "\x0A" + "\x3E" + '\0' + trackEnd(0)}));
    EXPECT_EQ(sequence.events, (std::vector<Event>{{0, 0x643C90}, {2205, 0x643E90}, {4410, 0x3E90}}));
}

TEST(MidiFileReader, ReadsEachKindOfChannelMessage) {
    const auto sequence = read(midiFile(
        0, 100,
        {std::string("\0\xC1\x05\0\xD2\x06\0\xE3\x01\x02\0\xA4\x3C\x07\0\xB5\x07\x64\0\x86\x3C\x40", 22) +
         trackEnd(0)}));
    EXPECT_EQ(sequence.events,
              (std::vector<Event>{
                  {0, 0x05C1}, {0, 0x06D2}, {0, 0x0201E3}, {0, 0x073CA4}, {0, 0x6407B5}, {0, 0x403C86}}));
}

TEST(MidiFileReader, PassesOverExclusiveAndMetaEvents) {
    const std::string exclusive(
        "\0\xF0\x03\x7E\x09\xF7\0\xF7\x02\x11\x22\0\xFF\x01\x04"
        "text",
        19);
    EXPECT_EQ(onsets(read(midiFile(0, 100, {exclusive + note(100, 60) + trackEnd(0)}))), Frames{second / 2});
}

TEST(MidiFileReader, PassesOverAlienChunks) {
    const std::string bytes = midiHead(1, 2, 100) + "XFIH" + bigEndian(4, 4) + "MTr!" +
                              midiTrack(note(100, 60) + trackEnd(0)) + "junk" + bigEndian(3, 4) + "abc" +
                              midiTrack(note(0, 61) + trackEnd(0));
    EXPECT_EQ(onsets(read(bytes)), (Frames{0, second / 2}));
}

TEST(MidiFileReader, ReadsAMidiFileInARiffFile) {
    const std::string bytes = midiFile(0, 100, {note(100, 60) + trackEnd(0)});
    EXPECT_EQ(onsets(read("RIFF" + std::string(4, '\x20') + "RMIDdata" + std::string(4, '\x20') + bytes)),
              Frames{second / 2});
}

// What is broken.

TEST(MidiFileReader, EndsATrackWithoutAnEndMarkWithItsLastEvent) {
    const auto sequence = read(midiFile(1, 100, {note(100, 60), note(200, 61)}));
    EXPECT_EQ(onsets(sequence), (Frames{second / 2, second}));
    EXPECT_EQ(sequence.length, second);
}

TEST(MidiFileReader, ReadsTracksWhoseLengthsAreWrong) {
    const std::string first = note(100, 60) + note(0, 61) + trackEnd(0);
    for (const std::uint32_t length : {0U, 1U, 7U, 1000U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        const std::string bytes =
            midiHead(1, 2, 100) + midiTrack(first, length) + midiTrack(note(0, 62) + trackEnd(0));
        EXPECT_EQ(onsets(read(bytes)), (Frames{0, second / 2, second / 2})) << length;
    }
}

TEST(MidiFileReader, TakesDataBehindALengthThatIsTooShortForData) {
    // Running status: a time, a key and a velocity that are all letters, three times.
    const std::string first = note(100, 60) + "dEFdGHdIJ" + trackEnd(0);
    const auto sequence =
        read(midiHead(1, 2, 100) + midiTrack(first, 4) + midiTrack(note(0, 62) + trackEnd(0)));
    EXPECT_EQ(onsets(sequence), (Frames{0, second / 2, second, second + second / 2, 2 * second}));
}

TEST(MidiFileReader, ReadsWhatIsThereOfAFileThatIsCut) {
    const std::string bytes = midiFile(0, 100, {note(100, 60) + note(100, 61) + trackEnd(0)});
    EXPECT_EQ(onsets(read(bytes.substr(0, bytes.size() - 6))), Frames{second / 2});
    EXPECT_EQ(onsets(read(bytes.substr(0, bytes.size() - 5))), Frames{second / 2});
    EXPECT_TRUE(onsets(read(bytes.substr(0, 14 + 8))).empty());
    EXPECT_TRUE(onsets(read(bytes.substr(0, 14 + 5))).empty());
    EXPECT_FALSE(readMidiFile(bytes.substr(0, 14)));
    EXPECT_FALSE(readMidiFile(bytes.substr(0, 10)));
    EXPECT_FALSE(readMidiFile(""));
}

TEST(MidiFileReader, PassesOverDataBeforeTheFirstStatus) {
    const std::string lost("\x0A\x3C\x64", 3);
    EXPECT_EQ(onsets(read(midiFile(0, 100, {lost + lost + note(80, 60) + trackEnd(0)}))), Frames{second / 2});
}

TEST(MidiFileReader, PassesOverAMessageThatAnotherOneCutsShort) {
    const std::string cut("\x64\x90\x3C", 3);
    EXPECT_EQ(
        onsets(read(midiFile(0, 100, {cut + std::string("\x90\x3D\x64", 3) + note(100, 62) + trackEnd(0)}))),
        (Frames{second / 2, second}));
    EXPECT_TRUE(onsets(read(midiFile(0, 100, {std::string(100'000, '\x90')}))).empty());
}

TEST(MidiFileReader, PassesOverSystemMessagesThatHaveNoPlaceInAFile) {
    const std::string strays("\0\xF2\x01\x02\0\xF3\x01\0\xF8\0\xFE\0\xF6", 13);
    EXPECT_EQ(onsets(read(midiFile(0, 100, {strays + note(100, 60) + trackEnd(0)}))), Frames{second / 2});
}

TEST(MidiFileReader, EndsATrackAtANumberThatHasNoEnd) {
    const std::string endless = "\xFF\xFF\xFF\xFF\xFF";
    EXPECT_EQ(
        onsets(read(midiFile(1, 100, {note(100, 60) + endless + note(0, 61), note(0, 62) + trackEnd(0)}))),
        (Frames{0, second / 2}));
}

TEST(MidiFileReader, EndsATrackAtAnEventThatIsLongerThanIt) {
    const std::string longText(
        "\0\xFF\x01\x7F"
        "abc",
        7),
        longExclusive(
            "\0\xF0\x7F"
            "abc",
            6);
    EXPECT_EQ(onsets(read(midiFile(0, 100, {note(100, 60) + longText}))), Frames{second / 2});
    EXPECT_EQ(onsets(read(midiFile(0, 100, {note(100, 60) + longExclusive}))), Frames{second / 2});
}

TEST(MidiFileReader, LeavesOutWhatLiesBehindADay) {
    const auto sequence =
        read(midiFile(0, 1, {tempo(0, 0xFFFFFF) + note(1, 60) + note(0x0FFFFFFF, 61) + trackEnd(0)}));
    EXPECT_EQ(onsets(sequence).size(), 1U);
    EXPECT_EQ(sequence.length, MidiSequence::longest);
}

TEST(MidiFileReader, CountsTheLongestWaitThatCanBeWritten) {
    const auto song = [](std::uint32_t division) {
        return read(midiFile(0, division, {note(0, 60) + noteEnd(10, 60) + trackEnd(0x0FFFFFFF)}));
    };
    EXPECT_NEAR(song(0x7FFF).length, (0x0FFFFFFF + 10.0) / 0x7FFF * second / 2, 1) << "68 minutes";
    EXPECT_EQ(song(480).length, MidiSequence::longest) << "77 hours";
    EXPECT_EQ(song(480).events.size(), 2U);
}

TEST(MidiFileReader, EndsATrackWhoseTicksAreTooManyToCount) {
    std::string track = note(0, 60);
    for (int turn = 0; turn < 40; ++turn) track += note(0x0FFFFFFF, 61);
    const auto sequence = read(midiFile(0, 0x7FFF, {track}));
    EXPECT_EQ(sequence.events.size(), 1U + 16U) << "2 to the 32th ticks";
}

TEST(MidiFileReader, ReadsSixtyFiveThousandTracks) {
    std::vector<std::string> tracks(65'535, note(100, 60) + trackEnd(0));
    EXPECT_EQ(read(midiFile(1, 100, tracks)).events.size(), 65'535U);
    EXPECT_EQ(read(midiFile(2, 100, tracks)).events.size(), 65'535U);
    EXPECT_EQ(onsets(read(midiHead(1, 65'535, 100) + midiTrack(note(100, 60) + trackEnd(0)))),
              Frames{second / 2})
        << "only told of";
}

TEST(MidiFileReader, RefusesWhatIsNoMidiFileOrTooMuchOfOne) {
    EXPECT_FALSE(readMidiFile("RIFF"));
    EXPECT_FALSE(readMidiFile("MThd"));
    EXPECT_FALSE(readMidiFile("RIFF    RMID" + std::string(100, 'x')));
    EXPECT_FALSE(readMidiFile(midiHead(1, 0, 100)));
    EXPECT_FALSE(readMidiFile(midiFile(0, 100, {std::string(mostMidiBytes, 'x')})));
}

}  // namespace
}  // namespace melvane
