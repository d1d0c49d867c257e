#include "synth/live_notes.h"

#include <algorithm>
#include <utility>

#include "core/names.h"
#include "synth/key_chords.h"
#include "synth/key_colours.h"

namespace melvane {

namespace {

constexpr int spaceCode = 32;
constexpr const char* openGate = "32";  // what Label5 reads while the Spacebar is down for polynotes
constexpr double highestRow = 127 - KeySounds::lowestKey;
constexpr int repaintedKeys = 14;     // over the root, at a release
constexpr double strumUnit = 10;      // milliseconds
constexpr float longestStrum = 1e9F;  // milliseconds
constexpr double look = 0.01;         // seconds after which a strum that waits looks at the delay again
constexpr int pointerAtRest = 15;     // twips from the slider's left edge at most

}  // namespace

/// The strum slider is moved by hand alone: a strum value that comes from elsewhere leaves its pointer.
LiveNotes::LiveNotes(Studio& studio, Parts parts) : studio_(studio), parts_(parts) {
    studio.frmsynth.LblStrum.followsNumber = false;
    studio.frmsynth.LblStrum.setPlace(0);
}

// The press

/// The second filter against repeats, which also knows a key that was held when another came up. It compares
/// as many characters as the index has, and so may take key 1 for key 12.
bool LiveNotes::isHeldStill(int keyIndex) const {
    const auto& keyboard = studio_.keyboard;
    const std::string& text = keyboard.PressedKeyText;
    return keyboard.HeldKeyText.starts_with(text) && leadingNumber(keyboard.ReleasedKeyText) != keyIndex &&
           !keyboard.ReleasedMarkText.starts_with(text);
}

void LiveNotes::NoteDown3(int KeyIndex) {
    if (KeyIndex == Keyboard::noKey || !std::in_range<Int16>(KeyIndex)) return;
    auto& keyboard = studio_.keyboard;
    keyboard.PressedKeyText = std::to_string(KeyIndex);
    if (isHeldStill(KeyIndex)) return;
    keyboard.HeldKeyText = keyboard.PressedKeyText;
    assign(keyboard.CurrentRow, highestRow - KeyIndex);
    studio_.frmsynth.Text7.set(std::to_string(keyboard.CurrentRow));
    paintSounding(studio_, KeyIndex);
    parts_.sounds.setWord(0, KeyIndex);
    parts_.sounds.noteOn(0);
    if (playsChord()) playChord(KeyIndex);
}

bool LiveNotes::gateIsOpen() const { return studio_.frmsynth.Label5.text() == openGate; }

bool LiveNotes::playsChord() const {
    const auto& synth = studio_.frmsynth;
    return synth.Check8.ticked() || (synth.Check2.ticked() && gateIsOpen());
}

/// The Spacebar strums, whatever the tick says.
bool LiveNotes::strums() const {
    return studio_.keyboard.SpaceKeyCode == spaceCode || studio_.frmsynth.Chkstrum.ticked();
}

void LiveNotes::playChord(int keyIndex) {
    const KeyChord* const chord = findKeyChord(studio_.frmsynth.Text4.text());
    if (chord == nullptr || chord->struck.all().empty()) return;
    const auto semitones = chord->struck.all();
    parts_.sounds.setUpperWords(keyIndex, semitones);
    for (const int upper : semitones) paintSounding(studio_, keyIndex + upper);
    if (chord->type == octaveChord) {
        playOctave();
    } else if (strums()) {
        strumChord();
    } else if (semitones.size() > 3) {
        parts_.sounds.PlayFullChord();
    } else {
        parts_.sounds.PlayUpperChord();
    }
}

/// From the top note down; the root sounds once more at the end, and a fourth upper note not at all.
void LiveNotes::strumChord() {
    startStrum();
    parts_.sounds.noteOn(3);
    if (!strums()) return;
    for (const int slot : {2, 1, 0}) {
        if (!waitStrum()) return;
        parts_.sounds.noteOn(slot);
    }
}

void LiveNotes::playOctave() {
    const bool strummed = strums();
    if (strummed) startStrum();
    parts_.sounds.noteOn(1);
    if (!strummed) return;
    if (waitStrum()) parts_.sounds.noteOn(0);
}

void LiveNotes::startStrum() {
    studio_.keyboard.StrumDelay =
        static_cast<float>(leadingNumber(studio_.frmsynth.Text1.text()) * strumUnit);
}

/// Serves events meanwhile; another strum changes the delay of this wait too. False when endStrums() was
/// called meanwhile.
bool LiveNotes::waitStrum() {
    const auto frequency = static_cast<double>(parts_.clock.frequency());
    const std::int64_t start = parts_.clock.counter();
    const auto slice = static_cast<std::int64_t>(look * frequency);
    const auto due = [&] {
        const auto milliseconds = std::clamp(studio_.keyboard.StrumDelay, 0.0F, longestStrum);
        return start + static_cast<std::int64_t>(static_cast<double>(milliseconds) * frequency / 1000);
    };
    const unsigned era = era_;
    do {
        parts_.loop.waitUntil(std::min(due(), parts_.clock.counter() + slice));
    } while (parts_.clock.counter() < due() && era == era_ && !parts_.loop.ended());
    return era == era_;
}

// The release

void LiveNotes::markReleased(int keyIndex) {
    auto& keyboard = studio_.keyboard;
    keyboard.ReleasedKeyText = std::to_string(keyIndex);
    if (keyboard.PressedKeyText == keyboard.HeldKeyText) keyboard.HeldKeyText = keyboard.PressedKeyText + "a";
    keyboard.ReleasedMarkText = keyboard.ReleasedKeyText + "a";
}

void LiveNotes::NoteUp3(int KeyIndex) {
    if (!std::in_range<Int16>(KeyIndex)) return;
    const int index = KeyIndex >= Keyboard::keys ? studio_.keyboard.LastTypedKey : KeyIndex;
    markReleased(index);
    if (!gateIsOpen()) {
        parts_.sounds.setWord(0, index);
        parts_.sounds.noteOff(0);
        paintResting(studio_, index);
    }
    if (!studio_.frmsynth.Check2.ticked() && !studio_.frmsynth.Check8.ticked()) return;
    if (playsChord()) releaseChord(index);
    paintResting(studio_, index, index + repaintedKeys);
    resetAfterStrum();
}

/// The root goes with the chord: without one it stays on.
void LiveNotes::releaseChord(int keyIndex) {
    const KeyChord* const chord = findKeyChord(studio_.frmsynth.Text4.text());
    if (chord == nullptr || chord->released.all().empty()) return;
    const auto semitones = chord->released.all();
    parts_.sounds.setWord(0, keyIndex);
    parts_.sounds.setUpperWords(keyIndex, semitones);
    for (int slot = 0; slot <= static_cast<int>(semitones.size()); ++slot) parts_.sounds.noteOff(slot);
}

/// Once the strum slider has been moved, the end of a strummed chord silences everything.
void LiveNotes::resetAfterStrum() {
    const auto& synth = studio_.frmsynth;
    const bool moved = synth.LblStrum.pointerLeft() * twipsAPixel > pointerAtRest;
    if (!synth.Chkstrum.ticked() || !moved) return;
    if (gateIsOpen()) parts_.sounds.reset();
    if (synth.Check8.ticked()) parts_.sounds.reset();
}

void LiveNotes::listNames(NameTables& tables) {
    tables.operations.add("frmsynth", "NoteDown3", this, &LiveNotes::NoteDown3);
    tables.operations.add("frmsynth", "NoteUp3", this, &LiveNotes::NoteUp3);
}

}  // namespace melvane
