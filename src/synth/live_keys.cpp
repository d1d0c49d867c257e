#include "synth/live_keys.h"

#include <algorithm>
#include <utility>

#include "core/names.h"
#include "synth/key_characters.h"
#include "synth/key_search.h"

namespace melvane {

namespace {

constexpr int spaceCode = 32, firstNamedCode = 45, lastNamedCode = 90;
constexpr const char* noCharacter = "-1";

/// Whether the code of a key tells its character.
bool isNamed(int code) { return code >= firstNamedCode && code <= lastNamedCode; }

}  // namespace

void LiveKeys::Form_KeyDown(int KeyCode, int) {
    if (isEditing()) return;
    hold(KeyCode);
    auto& keyboard = studio_.keyboard;
    keyboard.KeyIsDown = true;
    if (KeyCode == spaceCode) pressSpace();
    if (!isNamed(KeyCode)) return Form_KeyPress(KeyCode);
    const std::string character = characterOf(KeyCode);
    const int index = findLabel(studio_, character);
    if (index == Keyboard::noKey || isRepeat(index)) return;
    keyboard.CurrentKeyChar = character;
    strike(index);
}

void LiveKeys::Form_KeyPress(int KeyAscii) {
    if (isEditing()) return;
    auto& keyboard = studio_.keyboard;
    keyboard.KeyIsDown = true;
    keyboard.CurrentKeyChar = characterOf(KeyAscii);
    const int index = findLabelLike(studio_, keyboard.CurrentKeyChar);
    const bool isBlank = KeyAscii == spaceCode;  // which goes on without a key
    if ((index == Keyboard::noKey && !isBlank) || isRepeat(index)) return;
    assign(keyboard.LastTypedKey, index);
    strike(index);
}

void LiveKeys::Form_KeyUp(int KeyCode, int) {
    std::erase_if(heldKeys_, [KeyCode](const HeldKey& held) { return held.code == KeyCode; });
    if (isEditing()) return;
    auto& keyboard = studio_.keyboard;
    keyboard.KeyIsDown = false;
    if (KeyCode == spaceCode) releaseSpace();
    keyboard.CurrentKeyChar = noCharacter;
    if (!isNamed(KeyCode)) return notes_.NoteUp3(keyboard.LastTypedKey);
    const int index = findLabel(studio_, characterOf(KeyCode));
    const std::string text = std::to_string(index);
    if (text != keyboard.HeldKeyText || text != keyboard.ReleasedMarkText) notes_.NoteUp3(index);
}

void LiveKeys::pressSpace() {
    studio_.keyboard.SpaceKeyCode = spaceCode;
    studio_.frmsynth.Label5.set(studio_.frmsynth.Check2.ticked() ? "32" : "1");
}

void LiveKeys::releaseSpace() {
    studio_.keyboard.SpaceKeyCode = 0;
    studio_.frmsynth.Label5.set(studio_.frmsynth.Check2.ticked() ? "0" : "1");
}

/// The first filter against a held key that repeats itself.
bool LiveKeys::isRepeat(int keyIndex) const {
    const std::string text = std::to_string(keyIndex);
    return text == studio_.keyboard.PressedKeyText && text == studio_.keyboard.HeldKeyText;
}

void LiveKeys::hold(int code) {
    lastCode_ = code;
    if (std::ranges::find(heldKeys_, code, &HeldKey::code) == heldKeys_.end())
        heldKeys_.push_back({code, {}});
}

void LiveKeys::strike(int keyIndex) {
    assign(studio_.keyboard.LastDownKey, keyIndex);
    const auto held = std::ranges::find(heldKeys_, lastCode_, &HeldKey::code);
    if (held != heldKeys_.end() && keyIndex != Keyboard::noKey) held->struck.insert(keyIndex);
    notes_.NoteDown3(keyIndex);
}

/// Of several keys that are known by what they typed, a release names the last one alone: the others are
/// released by what they struck.
void LiveKeys::releaseHeld(const HeldKey& held) {
    Form_KeyUp(held.code, 0);
    const std::string released = studio_.keyboard.ReleasedKeyText;
    for (const int struck : held.struck) {
        if (released != std::to_string(struck)) notes_.NoteUp3(struck);
    }
}

/// The Spacebar comes last: with it down a release ends the whole chord, but leaves a single note on, which a
/// second one ends.
void LiveKeys::releaseHeldKeys() {
    auto held = std::exchange(heldKeys_, {});
    if (isEditing()) return;
    const auto spaces = std::stable_partition(held.begin(), held.end(),
                                              [](const HeldKey& key) { return key.code != spaceCode; });
    const bool spaceIsHeld = spaces != held.end();
    for (const HeldKey& key : held) releaseHeld(key);
    if (!spaceIsHeld) {
        if (!notes_.gateIsOpen()) return;
        releaseSpace();  // the editing of labels took its release away
    }
    for (const HeldKey& key : held) {
        for (const int struck : key.struck) notes_.NoteUp3(struck);
    }
}

void LiveKeys::forget() {
    auto& keyboard = studio_.keyboard;
    heldKeys_.clear();
    keyboard.NoteWord.fill(0);
    keyboard.SpaceKeyCode = keyboard.CurrentRow = keyboard.LastTypedKey = keyboard.LastDownKey = 0;
    keyboard.KeyIsDown = false;
    keyboard.CurrentKeyChar.clear();
    keyboard.forgetKeyTexts();
}

void LiveKeys::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("frmsynth", "Form_KeyDown", this, &LiveKeys::Form_KeyDown);
    operations.add("frmsynth", "Form_KeyPress", this, &LiveKeys::Form_KeyPress);
    operations.add("frmsynth", "Form_KeyUp", this, &LiveKeys::Form_KeyUp);
}

}  // namespace melvane
