#include <random>
#include <set>

#include "keyboard_fixture.h"

namespace melvane::test {
namespace {

/// Any events in any order, some of them inside the waits of others.
class KeyboardEvents : public KeyboardTest {
 protected:
    int number(int first, int last) { return std::uniform_int_distribution<int>(first, last)(random); }
    static int anyCode(int roll) {
        constexpr std::array<int, 12> codes{32, 45, 63, 65, 71, 90, 188, 219, 42, 35, 91, 300};
        return roll < 26 ? 'A' + roll : codes[static_cast<std::size_t>(roll) % codes.size()];
    }

    void event() {
        auto& keys = synth().keys;
        auto& mouse = synth().mouse;
        switch (number(0, 17)) {
            case 0:
            case 1:
            case 2:
            case 3:
                return keys.Form_KeyDown(anyCode(number(0, 40)), 0);
            case 4:
            case 5:
                return keys.Form_KeyPress(number(-2, 260));
            case 6:
            case 7:
            case 8:
                return keys.Form_KeyUp(anyCode(number(0, 40)), 0);
            case 9:
                return synth().releaseHeldKeys();
            case 10:
                return mouse.CmdKey_MouseDown(number(-1, 45), number(0, 2), 0, 5, 5);
            case 11:
                return mouse.CmdKey_MouseUp(number(-1, 45), 1, 0, 5, 5);
            case 12:
                state().OctaveShift = static_cast<Int16>(number(-60, 100));
                return;
            case 13:
                state().LiveChannel = static_cast<Int16>(number(0, 8));
                return;
            case 14:
                return window().Text4.set(std::to_string(number(0, 11)));
            case 15:
                return setTicks();
            case 16:
                return synth().mouse.Label4_MouseMove(0, 0, 5, 5);
            default:
                return beat();
        }
    }
    void setTicks() {
        std::array<CheckControl*, 6> ticks{&window().Check10,  &window().Check8, &window().Check2,
                                           &window().Chkstrum, &window().Check9, &window().ChkSustain};
        ticks[static_cast<std::size_t>(number(0, 5))]->userPut(number(0, 1) == 1);
        window().LblStrum.setPlace(number(0, 2) / 2.0);
        if (number(0, 20) == 0) window().Check1.userPut(!window().Check1.ticked());
    }
    void beat() {
        window().txtValue.set(std::to_string(number(0, 300)));
        window().chkRunning.userPut(number(0, 1) == 1);
    }
    /// Follows what the port was told; in the set: the notes that sound, as "channel key".
    void listen() {
        for (const std::string& line : sent()) {
            if (line == "reset") sounding.clear();
            if (line.size() != 8) continue;  // a word with bits above its three bytes
            const std::string note = line.substr(1, 4);
            const bool begins = line.starts_with("9") && !line.ends_with(" 00");
            if (begins) sounding.insert(note);
            if (line.starts_with("8") || (line.starts_with("9") && !begins)) sounding.erase(note);
            highest = std::max(highest, sounding.size());
        }
    }

    std::mt19937 random{20260};
    std::set<std::string> sounding;
    std::size_t highest = 0;
};

TEST_F(KeyboardEvents, AfterAHundredThousandEventsAPanicLeavesNothingSounding) {
    for (int count = 0; count < 100'000; ++count) {
        if (number(0, 9) == 0) time.at(number(0, 60), [this] { event(); });
        event();
        listen();
        for (const Int16 word : state().NoteWord) ASSERT_EQ(word % 256, 0) << count;
    }
    time.waitUntil(time.counter() + 1'000 * VirtualTime::ticksAMillisecond);
    listen();
    EXPECT_GT(highest, 5U) << "notes have sounded";
    synth().releaseHeldKeys();
    synth().mouse.Label4_MouseMove(0, 0, 5, 5);
    listen();
    EXPECT_TRUE(sounding.empty());
}

/// While neither octave nor channel change, and nothing but single notes play, no key hangs.
TEST_F(KeyboardEvents, HeldSingleNotesAllEndWhenTheFocusIsLost) {
    for (int round = 0; round < 2'000; ++round) {
        for (int count = number(1, 12); count > 0; --count) {
            const int code = 'A' + number(0, 25);
            if (number(0, 2) == 0) {
                synth().keys.Form_KeyUp(code, 0);
            } else {
                press(static_cast<char>(code));
            }
            if (number(0, 5) == 0) {
                synth().keys.Form_KeyDown(186 + number(0, 3), 0);
                synth().keys.Form_KeyPress(std::string_view(",:{}]")[static_cast<std::size_t>(number(0, 4))]);
            }
        }
        synth().releaseHeldKeys();
        listen();
        ASSERT_TRUE(sounding.empty()) << round << ": " << *sounding.begin();
        EXPECT_TRUE(redKeys().empty());
    }
}

}  // namespace
}  // namespace melvane::test
