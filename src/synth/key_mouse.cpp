#include "synth/key_mouse.h"

#include "core/mouse_buttons.h"
#include "core/names.h"
#include "synth/key_chords.h"
#include "synth/key_colours.h"

namespace melvane {

namespace {

constexpr int repaintedKeys = 14;  // over the root, at a release
constexpr Colour shownText{0x80, 0xFF, 0xFF};
constexpr int octaveType = 10;

/// The upper notes of a click by MouseChordType: as a key's, but for the two ninths.
constexpr ChordOffsets majorNinth(4, 7, 11, 14), minorNinth(3, 7, 10, 14);

bool isKey(int index) { return index >= 0 && index < Keyboard::keys; }

}  // namespace

KeyMouse::KeyMouse(Studio& studio, KeySounds& sounds, EventLoop& loop)
    : studio_(studio), sounds_(sounds), loop_(loop) {
    studio.frmsynth.Label4.setTip("Move cursor over Panic Bar to stop sound");
}

void KeyMouse::CmdKey_MouseDown(int index, int button, int, double, double) {
    if (button != mouse::left || !isKey(index)) return;
    studio_.keyboard.PressedKeyText = std::to_string(index);
    clicked_ = {index, {}};
    takenAway_ = false;
    loop_.Idle();
    if (takenAway_) return;
    paintSounding(studio_, index);
    sound(index);
    if (clicked_) clicked_->word = studio_.keyboard.NoteWord[0];
}

void KeyMouse::sound(int index) {
    const int type = studio_.keyboard.MouseChordType;
    sounds_.setWord(0, index);
    if (type >= 1 && type <= 7) {
        sounds_.setUpperWords(index, keyChords[static_cast<std::size_t>(type)].struck.all());
        sounds_.PlayUpperChord();
    } else if (type == 8 || type == 9) {
        sounds_.setUpperWords(index, (type == 8 ? majorNinth : minorNinth).all());
        sounds_.PlayFullChord();
    } else {
        sounds_.noteOn(0);
    }
    if (type != octaveType) return;
    sounds_.setUpperWords(index, keyChords[octaveType].struck.all());
    sounds_.noteOn(1);
}

void KeyMouse::CmdKey_MouseMove(int index, int, int, double, double) {
    if (!isKey(index)) return;
    auto& synth = studio_.frmsynth;
    const auto at = static_cast<std::size_t>(index);
    synth.CmdKey[at].setTip(synth.NoteX[at].text());
}

void KeyMouse::keepHistory() {
    auto& keyboard = studio_.keyboard;
    auto& history = keyboard.HistoryText;
    history[2] = history[1];
    history[1] = history[0];
    history[0] = keyboard.HeldKeyText;
    keyboard.HeldKeyText = keyboard.PressedKeyText;
}

void KeyMouse::CmdKey_MouseUp(int index, int, int, double, double) {
    if (!isKey(index)) return;
    clicked_.reset();
    keepHistory();
    sounds_.noteOff(0);
    paintResting(studio_, index, index + repaintedKeys);
}

/// Other keys may have used the word since; the note that the click began is the one to end.
void KeyMouse::releaseClickedKey() {
    takenAway_ = true;
    if (!clicked_) return;
    if (clicked_->word) studio_.keyboard.NoteWord[0] = *clicked_->word;
    CmdKey_MouseUp(clicked_->index, mouse::left, 0, 0, 0);
}

void KeyMouse::Label4_MouseMove(int, int, double, double) {
    studio_.frmsynth.Label4.setTextColour(shownText);
    sounds_.reset();
}

void KeyMouse::Label4_MouseDown(int, int, double, double) { paintResting(studio_, 0, Keyboard::keys); }
void KeyMouse::Label4_MouseUp(int, int, double, double) { paintResting(studio_, 0, Keyboard::keys); }
void KeyMouse::Picture5_MouseMove(int, int, double, double) { sounds_.reset(); }

void KeyMouse::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("frmsynth", "CmdKey_MouseDown", this, &KeyMouse::CmdKey_MouseDown);
    operations.add("frmsynth", "CmdKey_MouseMove", this, &KeyMouse::CmdKey_MouseMove);
    operations.add("frmsynth", "CmdKey_MouseUp", this, &KeyMouse::CmdKey_MouseUp);
    operations.add("frmsynth", "Label4_MouseMove", this, &KeyMouse::Label4_MouseMove);
    operations.add("frmsynth", "Label4_MouseDown", this, &KeyMouse::Label4_MouseDown);
    operations.add("frmsynth", "Label4_MouseUp", this, &KeyMouse::Label4_MouseUp);
    operations.add("frmsynth", "Picture5_MouseMove", this, &KeyMouse::Picture5_MouseMove);
}

}  // namespace melvane
