#pragma once
#include "program_fixture.h"

namespace melvane::test {

/// The keyboard with the labels that it has without a scheme.
class KeyboardTest : public ProgramTest {
 protected:
    using Lines = std::vector<std::string>;

    KeyboardTest() { start(); }
    KeyboardCommands& synth() { return engine.keyboard; }
    Keyboard& state() { return studio.keyboard; }
    KeyboardControls& window() { return studio.frmsynth; }

    /// A letter or digit, as the toolkit tells it: the key, then what it typed.
    void press(char key) {
        synth().keys.Form_KeyDown(key, 0);
        synth().keys.Form_KeyPress(key >= 'A' && key <= 'Z' ? key - 'A' + 'a' : key);
    }
    void release(char key) { synth().keys.Form_KeyUp(key, 0); }
    /// A key that is known by what it types alone.
    void type(char character) {
        synth().keys.Form_KeyDown(unnamedCode, 0);
        synth().keys.Form_KeyPress(character);
    }
    void releaseTyped() { synth().keys.Form_KeyUp(unnamedCode, 0); }

    std::string label(int key) { return window().NoteX[static_cast<std::size_t>(key)].text(); }
    Colour colourOf(int key) { return window().CmdKey[static_cast<std::size_t>(key)].backColour(); }
    /// The keys that are painted red, key and label alike.
    std::vector<int> redKeys() {
        std::vector<int> red;
        for (int key = 0; key < Keyboard::keys; ++key) {
            const auto& label = window().NoteX[static_cast<std::size_t>(key)];
            EXPECT_EQ(colourOf(key), label.backColour()) << key;
            if (colourOf(key) == Colour{255, 0, 0}) red.push_back(key);
        }
        return red;
    }

    static constexpr int unnamedCode = 188;  // no label is a quarter sign
};

}  // namespace melvane::test
