#include "keyboard_fixture.h"

namespace melvane::test {
namespace {

constexpr int left = 1, right = 2, middle = 4;

class KeyMouseTest : public KeyboardTest {
 protected:
    KeyMouse& mouse() { return synth().mouse; }
    void down(int key, int button = left) { mouse().CmdKey_MouseDown(key, button, 0, 5, 5); }
    void up(int key, int button = left) { mouse().CmdKey_MouseUp(key, button, 0, 5, 5); }
    void click(int key) {
        down(key);
        up(key);
    }
};

TEST_F(KeyMouseTest, AClickIsASingleNoteWhateverChordIsSet) {
    window().Check8.userPut(true);
    window().Chkstrum.userPut(true);
    window().Text4.set("1");
    down(4);
    EXPECT_EQ(redKeys(), (std::vector<int>{4}));
    EXPECT_EQ(sent(), (Lines{"90 28 64"}));
    up(4);
    EXPECT_EQ(sent(), (Lines{"80 28 00"}));
    EXPECT_TRUE(redKeys().empty());
}

TEST_F(KeyMouseTest, OnlyTheLeftButtonSounds) {
    down(4, right);
    down(4, middle);
    EXPECT_TRUE(sent().empty());
    EXPECT_EQ(state().PressedKeyText, "");
}

TEST_F(KeyMouseTest, AClickIsNotCaptured) {
    click(4);
    EXPECT_EQ(window().Text7.text(), "0");
    EXPECT_EQ(state().CurrentKeyChar, "");
    EXPECT_FALSE(state().KeyIsDown);
}

TEST_F(KeyMouseTest, EventsAreServedOnceBeforeAClickSounds) {
    int served = 0;
    time.serveToolkit = [&] {
        ++served;
        EXPECT_EQ(state().PressedKeyText, "4");
        EXPECT_TRUE(sent().empty());
    };
    down(4);
    time.serveToolkit = nullptr;
    EXPECT_EQ(served, 1);
    EXPECT_EQ(sent(), (Lines{"90 28 64"}));
}

TEST_F(KeyMouseTest, TheReleaseEndsTheStoredWordAndNotTheKeysOwn) {
    down(4);
    press('Z');
    sent();
    up(4);
    EXPECT_EQ(sent(), (Lines{"80 24 00"})) << "what the key of the computer left there";
}

TEST_F(KeyMouseTest, TheLastClickedKeysAreKept) {
    for (const int key : {10, 11, 12, 13, 14}) click(key);
    EXPECT_EQ(state().PressedKeyText, "14");
    EXPECT_EQ(state().HeldKeyText, "14");
    EXPECT_EQ(state().HistoryText, (std::array<std::string, 3>{"13", "12", "11"}));
}

TEST_F(KeyMouseTest, AClickedKeyIsThenTakenForHeld) {
    click(2);
    sent();
    press('X');
    EXPECT_TRUE(sent().empty()) << "as a repeat of itself";
}

TEST_F(KeyMouseTest, MovingOverAKeyTellsItsLabel) {
    mouse().CmdKey_MouseMove(2, 0, 0, 5, 5);
    EXPECT_EQ(window().CmdKey[2].tip(), "X");
    window().NoteX[2].set("other");
    mouse().CmdKey_MouseMove(2, 0, 0, 5, 5);
    EXPECT_EQ(window().CmdKey[2].tip(), "other");
}

TEST_F(KeyMouseTest, TheSelectorOfChordsForTheMouseIsWhole) {
    const std::vector<Lines> wanted{
        {"90 24 64"},
        {"90 28 64", "90 2B 64", "90 30 64"},
        {"90 27 64", "90 2B 64", "90 30 64"},
        {"90 28 64", "90 2B 64", "90 2F 64"},
        {"90 27 64", "90 2B 64", "90 2E 64"},
        {"90 27 64", "90 2A 64", "90 2E 64"},
        {"90 27 64", "90 2A 64", "90 2D 64"},
        {"90 28 64", "90 2B 64", "90 2E 64"},
        {"90 24 64", "90 28 64", "90 2B 64", "90 2F 64", "90 32 64"},
        {"90 24 64", "90 27 64", "90 2B 64", "90 2E 64", "90 32 64"},
        {"90 24 64", "90 30 64"},
    };
    for (std::size_t type = 0; type < wanted.size(); ++type) {
        state().MouseChordType = static_cast<Int16>(type);
        down(0);
        EXPECT_EQ(sent(), wanted[type]) << type;
        up(0);
        EXPECT_EQ(sent(), (Lines{"80 24 00"})) << type;
    }
}

TEST_F(KeyMouseTest, MovingOverThePanicBarResetsAndShowsItsText) {
    EXPECT_EQ(window().Label4.textColour(), (Colour{0xC0, 0xC0, 0xC0}));
    mouse().Label4_MouseMove(0, 0, 5, 5);
    EXPECT_EQ(sent(), (Lines{"reset"}));
    EXPECT_EQ(window().Label4.textColour(), (Colour{0x80, 0xFF, 0xFF}));
    EXPECT_EQ(window().Label4.tip(), "Move cursor over Panic Bar to stop sound");
    EXPECT_EQ(window().Label4.text(),
              "                 Move curser over this bar to stop sound            Move curser over this bar "
              "to stop "
              "sound");
    mouse().Picture5_MouseMove(0, 0, 5, 5);
    EXPECT_EQ(sent(), (Lines{"reset"}));
}

TEST_F(KeyMouseTest, APressOnThePanicBarRepaintsTheKeys) {
    window().Check8.userPut(true);
    for (const bool isPress : {true, false}) {
        window().Text4.set("1");
        synth().notes.NoteDown3(isPress ? 0 : 20);
        EXPECT_FALSE(redKeys().empty());
        sent();
        if (isPress)
            mouse().Label4_MouseDown(1, 0, 5, 5);
        else
            mouse().Label4_MouseUp(1, 0, 5, 5);
        EXPECT_TRUE(redKeys().empty());
        EXPECT_TRUE(sent().empty());
    }
}

TEST_F(KeyMouseTest, KeysThatAreNoneDoNoHarm) {
    for (const int key : {-1, 44, 32767, -2147483647}) {
        down(key);
        mouse().CmdKey_MouseMove(key, 0, 0, 5, 5);
        up(key);
    }
    EXPECT_TRUE(redKeys().empty());
    EXPECT_TRUE(sent().empty());
}

}  // namespace
}  // namespace melvane::test
