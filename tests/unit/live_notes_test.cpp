#include <set>

#include "keyboard_fixture.h"

namespace melvane::test {
namespace {

class LiveNotesTest : public KeyboardTest {
 protected:
    void chord(const char* type) { window().Text4.set(type); }
    void always() { window().Check8.userPut(true); }
    void onSpace() { window().Check2.userPut(true); }
    void down(int key) { synth().notes.NoteDown3(key); }
    void up(int key) { synth().notes.NoteUp3(key); }
    /// The keys of what was sent, as semitones over MIDI key 36, with "+" for a note on and "-" for an off.
    std::vector<std::string> notes() {
        std::vector<std::string> told;
        for (const auto& line : sent()) {
            const int key = std::stoi(line.substr(3, 2), nullptr, 16) - 36;
            told.push_back((line.starts_with("9") ? "+" : "-") + std::to_string(key));
        }
        return told;
    }
};

TEST_F(LiveNotesTest, AKeySoundsItsNoteAtAFixedVelocity) {
    down(0);
    down(43);
    EXPECT_EQ(sent(), (Lines{"90 24 64", "90 4F 64"}));
    state().OctaveShift = -24;
    state().LiveChannel = 8;
    down(1);
    EXPECT_EQ(sent(), (Lines{"98 0D 64"}));
}

TEST_F(LiveNotesTest, AKeyTellsItsRow) {
    down(0);
    EXPECT_EQ(state().CurrentRow, 91);
    EXPECT_EQ(window().Text7.text(), "91");
    down(43);
    EXPECT_EQ(window().Text7.text(), "48");
}

TEST_F(LiveNotesTest, NoKeyIsNoKey) {
    down(44);
    EXPECT_TRUE(sent().empty());
    EXPECT_EQ(state().PressedKeyText, "");
}

TEST_F(LiveNotesTest, AReleaseGoesByTheOctaveAndTheChannelOfNow) {
    down(5);
    state().OctaveShift = 12;
    state().LiveChannel = 2;
    sent();
    up(5);
    EXPECT_EQ(sent(), (Lines{"82 35 00"})) << "the note of the press goes on";
}

TEST_F(LiveNotesTest, KeyOneIsTakenForTheHeldKeyTwelve) {
    down(12);
    sent();
    down(1);
    EXPECT_TRUE(sent().empty()) << "its number is the beginning of the other's";
    up(12);
    sent();
    down(1);
    EXPECT_EQ(notes(), (Lines{"+1"}));
}

TEST_F(LiveNotesTest, ANoteBeyond127KeepsTheNoteBeforeIt) {
    state().OctaveShift = 84;
    down(7);
    EXPECT_EQ(sent(), (Lines{"90 7F 64"}));
    down(8);
    EXPECT_EQ(sent(), (Lines{"90 7F 64"}));
    up(8);
    EXPECT_EQ(sent(), (Lines{"80 7F 00"}));
}

TEST_F(LiveNotesTest, ANoteBelow0SpillsOverIntoTheStatus) {
    state().OctaveShift = -40;
    down(0);
    EXPECT_EQ(state().NoteWord[0], -1024);
    EXPECT_EQ(sent(), (Lines{"90 FC 63"})) << "plain arithmetic";
}

TEST_F(LiveNotesTest, WithoutOneOfTheTicksAKeyIsASingleNote) {
    chord("1");
    down(0);
    EXPECT_EQ(notes(), (Lines{"+0"}));
    window().Check10.userPut(true);
    down(1);
    EXPECT_EQ(notes(), (Lines{"+1"}));
    onSpace();
    down(2);
    EXPECT_EQ(notes(), (Lines{"+2"})) << "the Spacebar is up";
}

TEST_F(LiveNotesTest, EachChordSoundsAndEndsAsItsTableHasIt) {
    struct Row {
        const char* type;
        Lines down, up;
    };
    const std::vector<Row> rows{
        {"0", {"+0"}, {"-0"}},
        {"1", {"+0", "+4", "+7", "+12"}, {"-0", "-0", "-4", "-7", "-12"}},
        {"2", {"+0", "+3", "+7", "+12"}, {"-0", "-0", "-3", "-7", "-12"}},
        {"3", {"+0", "+4", "+7", "+11"}, {"-0", "-0", "-4", "-7", "-11"}},
        {"4", {"+0", "+3", "+7", "+10"}, {"-0", "-0", "-3", "-7", "-10"}},
        {"5", {"+0", "+3", "+6", "+10"}, {"-0", "-0", "-3", "-6", "-10"}},
        {"6", {"+0", "+3", "+6", "+9"}, {"-0", "-0", "-3", "-6", "-9"}},
        {"7", {"+0", "+4", "+7", "+10"}, {"-0", "-0", "-4", "-7", "-10"}},
        {"8", {"+0", "+0", "+4", "+7", "+11", "+14"}, {"-0", "-0", "-4", "-7", "-10"}},
        {"9", {"+0"}, {"-0", "-0", "-4", "-7", "-10"}},
        {"10", {"+0", "+12"}, {"-0", "-0", "-12"}},
        {"11", {"+0"}, {"-0"}},
        {"x", {"+0"}, {"-0"}},
    };
    always();
    for (const Row& row : rows) {
        chord(row.type);
        down(0);
        EXPECT_EQ(notes(), row.down) << row.type;
        up(0);
        EXPECT_EQ(notes(), row.up) << row.type;
    }
}

TEST_F(LiveNotesTest, TheMajorNinthLeavesItsTwoHighestNotesSounding) {
    always();
    chord("8");
    down(0);
    up(0);
    std::set<std::string> sounding;
    for (const auto& note : notes()) {
        if (note[0] == '+')
            sounding.insert(note.substr(1));
        else
            sounding.erase(note.substr(1));
    }
    EXPECT_EQ(sounding, (std::set<std::string>{"11", "14"}));
}

TEST_F(LiveNotesTest, TheDiminishedSeventhEndsWhateverItsThirdWordHolds) {
    always();
    chord("5");
    down(0);
    down(2);
    notes();
    up(0);
    EXPECT_EQ(notes(), (Lines{"-0", "-0", "-3", "-6", "-12"})) << "the chord note of the last key pressed";
}

TEST_F(LiveNotesTest, InALowOctaveItsOffsetFitsAndNamesItsOwnNote) {
    always();
    chord("5");
    state().OctaveShift = -24;
    down(0);
    notes();
    up(0);
    EXPECT_EQ(notes(), (Lines{"-" + std::to_string(-24), "--24", "--21", "--18", "-86"}));
}

TEST_F(LiveNotesTest, TheChordPaintsItsKeysAndTheReleaseAllUpTo14) {
    always();
    chord("3");
    down(0);
    EXPECT_EQ(redKeys(), (std::vector<int>{0, 4, 7, 11}));
    window().CmdKey[14].setBackColour({255, 0, 0});
    window().NoteX[14].setBackColour({255, 0, 0});
    window().CmdKey[15].setBackColour({255, 0, 0});
    window().NoteX[15].setBackColour({255, 0, 0});
    up(0);
    EXPECT_EQ(redKeys(), (std::vector<int>{15}));
    EXPECT_EQ(colourOf(0), (Colour{255, 255, 255}));
    EXPECT_EQ(colourOf(1), (Colour{0, 0, 0}));
}

TEST_F(LiveNotesTest, TheHighestKeySoundsItsWholeChordButPaintsItsRootAlone) {
    always();
    chord("1");
    down(43);
    EXPECT_EQ(notes(), (Lines{"+43", "+47", "+50", "+55"}));
    EXPECT_EQ(redKeys(), (std::vector<int>{43}));
    up(43);
    EXPECT_TRUE(redKeys().empty());
}

TEST_F(LiveNotesTest, TheRootGoesOutBeforeTheChordIsPainted) {
    always();
    chord("1");
    Lines order;
    window().CmdKey[4].changed = [&] {
        for (const auto& line : sent()) order.push_back(line);
        order.emplace_back("painted");
    };
    down(0);
    EXPECT_EQ(order, (Lines{"90 24 64", "painted"}));
}

TEST_F(LiveNotesTest, AStrumRunsFromTheTopDownToTheRootStruckAgain) {
    always();
    chord("1");
    window().Chkstrum.userPut(true);
    window().Text1.set("5");
    down(0);
    EXPECT_EQ(sentWithMoments(),
              (Lines{"0 90 24 64", "0 90 30 64", "50 90 2B 64", "100 90 28 64", "150 90 24 64"}));
    EXPECT_FLOAT_EQ(state().StrumDelay, 50);
}

TEST_F(LiveNotesTest, AStrummedMajorNinthHasFourNotes) {
    always();
    chord("8");
    window().Chkstrum.userPut(true);
    down(0);
    EXPECT_EQ(notes(), (Lines{"+0", "+11", "+7", "+4", "+0"}));
    EXPECT_EQ(state().NoteWord[4], (36 + 14) * 256);
}

TEST_F(LiveNotesTest, AStrummedOctaveWaitsOnce) {
    always();
    chord("10");
    window().Chkstrum.userPut(true);
    window().Text1.set("11");
    down(2);
    EXPECT_EQ(sentWithMoments(), (Lines{"0 90 26 64", "0 90 32 64", "110 90 26 64"}));
    EXPECT_EQ(redKeys(), (std::vector<int>{2, 14}));
    up(2);
    EXPECT_TRUE(redKeys().empty());
}

TEST_F(LiveNotesTest, TheSpacebarStrumsWithoutTheTick) {
    onSpace();
    chord("1");
    press(' ');
    sent();
    press('Z');
    EXPECT_EQ(sentWithMoments(),
              (Lines{"0 90 24 64", "0 90 30 64", "10 90 2B 64", "20 90 28 64", "30 90 24 64"}));
}

TEST_F(LiveNotesTest, TheSpacebarStrumsAChordThatAlwaysPlays) {
    always();
    chord("1");
    press(' ');
    sent();
    down(0);
    EXPECT_EQ(notes(), (Lines{"+0", "+12", "+7", "+4", "+0"}));
}

TEST_F(LiveNotesTest, EventsAreServedWhileAStrumWaits) {
    always();
    chord("1");
    window().Chkstrum.userPut(true);
    window().Text1.set("10");
    time.at(150, [&] { up(0); });
    down(0);
    EXPECT_EQ(sentWithMoments(),
              (Lines{"0 90 24 64", "0 90 30 64", "100 90 2B 64", "150 80 24 00", "150 80 24 00",
                     "150 80 28 00", "150 80 2B 00", "150 80 30 00", "200 90 28 64", "300 90 24 64"}))
        << "the strum goes on after the release inside it";
}

TEST_F(LiveNotesTest, AKeyInsideAStrumTakesItsWords) {
    always();
    chord("1");
    window().Chkstrum.userPut(true);
    window().Text1.set("10");
    time.at(50, [&] {
        window().Chkstrum.set(false);
        down(2);
    });
    down(0);
    EXPECT_EQ(notes(), (Lines{"+0", "+12", "+2", "+6", "+9", "+14", "+9", "+6", "+2"}))
        << "what is left of the first strum sounds the second chord";
}

TEST_F(LiveNotesTest, TheChannelMayChangeInsideAStrum) {
    always();
    chord("10");
    window().Chkstrum.userPut(true);
    time.at(5, [&] { state().LiveChannel = 3; });
    down(0);
    EXPECT_EQ(sent(), (Lines{"90 24 64", "90 30 64", "93 24 64"}));
}

TEST_F(LiveNotesTest, AStrumValueThatIsNoneDoesNotWait) {
    always();
    chord("10");
    window().Chkstrum.userPut(true);
    for (const char* value : {"", "-5", "slow", "0"}) {
        window().Text1.set(value);
        down(0);
        up(0);
        sent();
        EXPECT_EQ(time.counter(), 0) << value;
    }
}

TEST_F(LiveNotesTest, WithTheSpacebarDownAReleaseEndsTheChordAndReckonsTheRootAnew) {
    onSpace();
    chord("1");
    press(' ');
    down(0);
    down(2);
    notes();
    up(0);
    EXPECT_EQ(notes(), (Lines{"-0", "-4", "-7", "-12"}));
    EXPECT_EQ(redKeys(), (std::vector<int>{})) << "the other key's colours go too";
}

TEST_F(LiveNotesTest, WithTheSpacebarDownASingleNoteStaysOn) {
    onSpace();
    press(' ');
    down(0);
    notes();
    up(0);
    EXPECT_TRUE(sent().empty());
    EXPECT_TRUE(redKeys().empty());
}

TEST_F(LiveNotesTest, OnceTheSpacebarIsUpAReleaseEndsTheRootAlone) {
    onSpace();
    chord("1");
    press(' ');
    down(0);
    release(' ');
    notes();
    up(0);
    EXPECT_EQ(notes(), (Lines{"-0"}));
}

TEST_F(LiveNotesTest, AMovedStrumSliderResetsTheDeviceAfterAStrummedChord) {
    always();
    chord("1");
    window().Chkstrum.userPut(true);
    up(0);
    EXPECT_EQ(std::ranges::count(sent(), "reset"), 0) << "the slider has not been moved";
    window().Text1.set("11");
    up(0);
    EXPECT_EQ(std::ranges::count(sent(), "reset"), 0) << "a strum value alone moves no slider";
    window().LblStrum.setPlace(1.0 / 66);
    up(0);
    EXPECT_EQ(std::ranges::count(sent(), "reset"), 0) << "15 twips are not more than 15";
    window().LblStrum.set(6);
    window().Text1.set("1");
    up(0);
    EXPECT_EQ(sent().back(), "reset");
    window().Chkstrum.userPut(false);
    up(0);
    EXPECT_EQ(std::ranges::count(sent(), "reset"), 0);
}

TEST_F(LiveNotesTest, TheSameHappensWithTheSpacebarDown) {
    onSpace();
    window().Chkstrum.userPut(true);
    window().LblStrum.setPlace(0.5);
    up(0);
    EXPECT_EQ(sent(), (Lines{"80 24 00"})) << "the Spacebar is up";
    press(' ');
    up(0);
    EXPECT_EQ(sent(), (Lines{"reset"}));
    window().Check8.set(true);
    up(0);
    EXPECT_EQ(sent(), (Lines{"reset", "reset"})) << "both reasons hold";
}

TEST_F(LiveNotesTest, AReleaseAboveTheKeysStandsForTheKeyTypedLast) {
    state().LastTypedKey = 9;
    for (const int index : {44, 45, 30000}) {
        up(index);
        EXPECT_EQ(notes(), (Lines{"-9"})) << index;
    }
    EXPECT_EQ(state().ReleasedKeyText, "9");
    EXPECT_EQ(state().ReleasedMarkText, "9a");
}

TEST_F(LiveNotesTest, AReleaseMarksTheKeyThatWasHeld) {
    down(3);
    EXPECT_EQ(state().HeldKeyText, "3");
    up(3);
    EXPECT_EQ(state().HeldKeyText, "3a");
    EXPECT_EQ(state().PressedKeyText, "3");
    up(3);
    EXPECT_EQ(state().HeldKeyText, "3a") << "the mark comes once";
}

TEST_F(LiveNotesTest, NumbersThatAreNoKeysDoNoHarm) {
    always();
    for (const char* type : {"0", "1", "5", "8", "10"}) {
        chord(type);
        for (const int index : {-1, -200, 45, 32767, -32768, 2147483647, -2147483647 - 1}) {
            down(index);
            up(index);
        }
    }
    EXPECT_TRUE(redKeys().empty());
}

TEST_F(LiveNotesTest, HoldAndMuteBelongToTheChannel) {
    state().LiveChannel = 4;
    window().ChkSustain.userPut(true);
    window().ChkMute.userPut(true);
    EXPECT_EQ(sent(), (Lines{"B4 40 7F"}));
    EXPECT_EQ(state().ChannelTable[4].Sustain, 1);
    EXPECT_EQ(state().ChannelTable[4].Mute, 1);
    down(0);
    up(0);
    EXPECT_EQ(sent(), (Lines{"94 24 64", "84 24 00"})) << "neither changes what the keys send";
    window().ChkSustain.userPut(false);
    window().ChkMute.userPut(false);
    EXPECT_EQ(sent(), (Lines{"B4 40 00"}));
    EXPECT_EQ(state().ChannelTable[4].Sustain + state().ChannelTable[4].Mute, 0);
}

TEST_F(LiveNotesTest, AChannelWithoutARecordDoesNoHarm) {
    for (const Int16 channel : {Int16{-1}, Int16{16}, Int16{32767}}) {
        state().LiveChannel = channel;
        window().ChkSustain.userPut(true);
        window().ChkSustain.userPut(false);
        window().ChkMute.userPut(true);
        window().ChkMute.userPut(false);
        down(0);
        up(0);
    }
    for (const auto& record : state().ChannelTable) EXPECT_EQ(record.Sustain + record.Mute, 0);
}

TEST_F(LiveNotesTest, TheThreeTicksAreOneChoice) {
    window().Check10.userPut(true);
    always();
    EXPECT_FALSE(window().Check10.ticked());
    onSpace();
    EXPECT_FALSE(window().Check8.ticked());
    window().Check2.userPut(false);
    EXPECT_FALSE(window().Check10.ticked() || window().Check8.ticked() || window().Check2.ticked());
}

}  // namespace
}  // namespace melvane::test
