#include <set>

#include "keyboard_fixture.h"

namespace melvane::test {
namespace {

class LiveKeysTest : public KeyboardTest {
 protected:
    int downs() {
        int count = 0;
        for (const auto& line : sent()) count += line.starts_with("90") ? 1 : 0;
        return count;
    }
};

TEST_F(LiveKeysTest, AHeldKeySoundsOnceHoweverOftenItRepeats) {
    for (int repeat = 0; repeat < 50; ++repeat) press('X');
    EXPECT_EQ(sent(), (Lines{"90 26 64"}));
}

TEST_F(LiveKeysTest, AKeyThatWasReleasedSoundsAgain) {
    for (int round = 0; round < 3; ++round) {
        press('X');
        press('X');
        release('X');
        EXPECT_EQ(sent(), (Lines{"90 26 64", "80 26 00"})) << round;
    }
}

TEST_F(LiveKeysTest, TwoKeysInTurnSoundEachTime) {
    for (int round = 0; round < 3; ++round) {
        press('Z');
        release('Z');
        press('X');
        release('X');
        EXPECT_EQ(sent(), (Lines{"90 24 64", "80 24 00", "90 26 64", "80 26 00"})) << round;
    }
}

TEST_F(LiveKeysTest, TheRepeatsOfAKeyAreStillFilteredWhenAnotherCameUp) {
    press('V');
    press('B');
    release('V');
    sent();
    press('B');
    press('B');
    EXPECT_TRUE(sent().empty());
    release('B');
    EXPECT_EQ(sent(), (Lines{"80 2B 00"}));
}

TEST_F(LiveKeysTest, OfTwoKeysWithOneLabelTheLowerPlays) {
    press('G');
    release('G');
    EXPECT_EQ(sent(), (Lines{"90 2A 64", "80 2A 00"}));
    synth().keys.Form_KeyPress('G');
    EXPECT_EQ(state().LastDownKey, 6);
}

TEST_F(LiveKeysTest, AKeyWithoutALabelDoesNothingButMarkThatAKeyIsDown) {
    window().NoteX[0].set("");
    synth().keys.Form_KeyDown('Z', 0);
    EXPECT_TRUE(sent().empty());
    EXPECT_TRUE(state().KeyIsDown);
    EXPECT_EQ(state().CurrentKeyChar, "");
    synth().keys.Form_KeyPress('z');
    EXPECT_EQ(state().CurrentKeyChar, "z");
    EXPECT_TRUE(sent().empty());
}

TEST_F(LiveKeysTest, ALabelOfSeveralCharactersIsNeverFound) {
    window().NoteX[0].set("ZZ");
    press('Z');
    EXPECT_TRUE(sent().empty());
}

TEST_F(LiveKeysTest, APunctuationKeyPlaysWhenItsCharacterComes) {
    type('{');
    EXPECT_EQ(sent(), (Lines{"90 43 64"}));
    EXPECT_EQ(state().LastTypedKey, 31);
    EXPECT_EQ(state().LastDownKey, 31);
    EXPECT_EQ(state().CurrentKeyChar, "{");
    type('{');
    EXPECT_TRUE(sent().empty()) << "a repeat";
    releaseTyped();
    EXPECT_EQ(sent(), (Lines{"80 43 00"}));
    EXPECT_EQ(state().CurrentKeyChar, "-1");
}

TEST_F(LiveKeysTest, ANamedKeyLeavesTheLastTypedOneAlone) {
    type('{');
    press('Q');
    EXPECT_EQ(state().LastTypedKey, 31);
    EXPECT_EQ(state().LastDownKey, 21);
    EXPECT_EQ(state().CurrentKeyChar, "q") << "its own character came after it";
}

TEST_F(LiveKeysTest, ACodeThatNamesNoKeyCountsAsACharacterToo) {
    synth().keys.Form_KeyDown('}', 0);
    EXPECT_EQ(sent(), (Lines{"90 44 64"}));
    synth().keys.Form_KeyDown('a', 0);
    synth().keys.Form_KeyDown(44, 0);
    EXPECT_EQ(sent(), (Lines{"90 30 64"})) << "code 44 is a comma";
}

TEST_F(LiveKeysTest, WildcardsFindTheFirstLabelThatFits) {
    type('?');
    EXPECT_EQ(sent(), (Lines{"90 24 64"}));
    synth().keys.forget();
    type('#');
    EXPECT_EQ(sent(), (Lines{"90 45 64"})) << "the first digit";
    synth().keys.forget();
    window().NoteX[0].set("");
    type('*');
    EXPECT_EQ(sent(), (Lines{"90 24 64"}));
    synth().keys.forget();
    window().NoteX[9].set("[");
    type('[');
    EXPECT_TRUE(sent().empty());
}

TEST_F(LiveKeysTest, ACharacterBeyondEightBitsFindsItsLabel) {
    window().NoteX[3].set("Ж");
    window().NoteX[4].set("€");
    synth().keys.Form_KeyPress(0x416);
    synth().keys.Form_KeyPress(0x20AC);
    EXPECT_EQ(sent(), (Lines{"90 27 64", "90 28 64"}));
}

TEST_F(LiveKeysTest, TheReleaseOfAnUnnamedKeyReleasesTheLastTypedOne) {
    type('{');
    press('Q');
    sent();
    releaseTyped();
    EXPECT_EQ(sent(), (Lines{"80 43 00"}));
    synth().keys.Form_KeyUp(7, 0);
    EXPECT_EQ(sent(), (Lines{"80 43 00"})) << "any key that names none does it";
}

TEST_F(LiveKeysTest, TheReleaseOfANamedKeyWithoutALabelDoesItToo) {
    type('{');
    window().NoteX[0].set("");
    sent();
    release('Z');
    EXPECT_EQ(sent(), (Lines{"80 43 00"}));
}

TEST_F(LiveKeysTest, TheSpacebarAloneSoundsNothingAndItsReleaseEndsANoteThatNobodyHears) {
    press(' ');
    EXPECT_TRUE(sent().empty());
    EXPECT_EQ(state().SpaceKeyCode, 32);
    EXPECT_EQ(state().LastTypedKey, 44);
    EXPECT_EQ(state().LastDownKey, 44);
    EXPECT_EQ(state().CurrentKeyChar, " ");
    state().OctaveShift = 12;
    release(' ');
    EXPECT_EQ(sent(), (Lines{"80 5C 00"})) << "note 80 and the shift";
    EXPECT_EQ(state().SpaceKeyCode, 0);
}

TEST_F(LiveKeysTest, TheGateTellsTheSpacebarAndTheTick) {
    EXPECT_EQ(window().Label5.text(), "");
    press(' ');
    EXPECT_EQ(window().Label5.text(), "1");
    release(' ');
    EXPECT_EQ(window().Label5.text(), "1");
    window().Check2.userPut(true);
    press(' ');
    EXPECT_EQ(window().Label5.text(), "32");
    release(' ');
    EXPECT_EQ(window().Label5.text(), "0");
}

TEST_F(LiveKeysTest, APressIsSeenUntilTheNextRelease) {
    synth().keys.Form_KeyPress('e');
    EXPECT_TRUE(state().KeyIsDown);
    press('E');
    release('E');
    EXPECT_FALSE(state().KeyIsDown);
    EXPECT_EQ(state().CurrentKeyChar, "-1");
}

TEST_F(LiveKeysTest, InEditModeNoKeyDoesAnything) {
    press('X');
    sent();
    window().Check1.userPut(true);
    press('Z');
    type('{');
    release('X');
    releaseTyped();
    press(' ');
    EXPECT_TRUE(sent().empty());
    EXPECT_TRUE(state().KeyIsDown) << "the release was not seen";
    EXPECT_EQ(state().SpaceKeyCode, 0);
}

TEST_F(LiveKeysTest, LosingTheFocusReleasesEveryHeldKey) {
    press('Z');
    press('C');
    type('{');
    synth().keys.Form_KeyDown(219, 0);
    synth().keys.Form_KeyPress('}');
    press(' ');
    sent();
    synth().releaseHeldKeys();
    EXPECT_FALSE(state().KeyIsDown);
    EXPECT_EQ(state().SpaceKeyCode, 0);
    std::multiset<std::string> ended;
    for (const auto& line : sent()) ended.insert(line);
    for (const char* off : {"80 24 00", "80 28 00", "80 43 00", "80 44 00"})
        EXPECT_TRUE(ended.contains(off)) << off;
    EXPECT_TRUE(redKeys().empty());
    synth().releaseHeldKeys();
    EXPECT_TRUE(sent().empty()) << "nothing is held any more";
}

TEST_F(LiveKeysTest, LosingTheFocusEndsWhatPlaysWithTheSpacebarDown) {
    window().Check2.userPut(true);
    for (const char* type : {"0", "1", "10"}) {
        window().Text4.set(type);
        press(' ');
        press('Z');
        press('V');
        std::set<std::string> sounding;
        for (const auto& line : sent()) sounding.insert(line.substr(3, 2));
        synth().releaseHeldKeys();
        for (const auto& line : sent()) {
            EXPECT_TRUE(line.starts_with("80")) << line;
            sounding.erase(line.substr(3, 2));
        }
        EXPECT_TRUE(sounding.empty()) << type << ": " << *sounding.begin();
        EXPECT_EQ(state().SpaceKeyCode, 0);
    }
}

TEST_F(LiveKeysTest, AKeyThatCameUpIsNotReleasedAgainAtTheLossOfTheFocus) {
    press('Z');
    release('Z');
    press('C');
    sent();
    synth().releaseHeldKeys();
    EXPECT_EQ(sent(), (Lines{"80 28 00"}));
}

TEST_F(LiveKeysTest, LosingTheFocusEndsAClickToo) {
    synth().mouse.CmdKey_MouseDown(7, 1, 0, 5, 5);
    sent();
    synth().releaseHeldKeys();
    EXPECT_EQ(sent(), (Lines{"80 2B 00"}));
    synth().releaseHeldKeys();
    EXPECT_TRUE(sent().empty());
}

TEST_F(LiveKeysTest, InEditModeLosingTheFocusReleasesNothing) {
    press('Z');
    window().Check1.userPut(true);
    sent();
    synth().releaseHeldKeys();
    EXPECT_TRUE(sent().empty());
}

TEST_F(LiveKeysTest, AFreshWindowHoldsNothing) {
    press('Z');
    press(' ');
    synth().keys.forget();
    EXPECT_EQ(state().NoteWord, (std::array<Int16, 5>{}));
    EXPECT_EQ(state().PressedKeyText + state().HeldKeyText + state().CurrentKeyChar, "");
    EXPECT_EQ(state().LastTypedKey + state().LastDownKey + state().CurrentRow + state().SpaceKeyCode, 0);
    EXPECT_FALSE(state().KeyIsDown);
}

}  // namespace
}  // namespace melvane::test
