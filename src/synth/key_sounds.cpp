#include "synth/key_sounds.h"

#include <utility>

#include "core/names.h"
#include "midi/messages.h"

namespace melvane {

namespace {

constexpr int wordsANote = 256;
constexpr int velocity = 100;

}  // namespace

void KeySounds::setNote(int slot, int note) {
    auto& words = studio_.keyboard.NoteWord;
    const auto at = static_cast<std::size_t>(slot);
    if (at < words.size()) assign(words[at], static_cast<double>(note) * wordsANote);
}

void KeySounds::setWord(int slot, int keyIndex, int semitones) {
    const std::int64_t note = std::int64_t{keyIndex} + lowestKey + studio_.keyboard.OctaveShift + semitones;
    if (std::in_range<int>(note)) setNote(slot, static_cast<int>(note));
}

void KeySounds::setUpperWords(int keyIndex, std::span<const int> semitones) {
    for (int slot = 1; const int upper : semitones) setWord(slot++, keyIndex, upper);
}

void KeySounds::noteOn(int slot, int channel) {
    const auto& words = studio_.keyboard.NoteWord;
    const auto at = static_cast<std::size_t>(slot);
    if (at < words.size()) output_.send(message::noteOnWord(words[at], velocity, channel));
}

void KeySounds::noteOff(int slot, int channel) {
    const auto& words = studio_.keyboard.NoteWord;
    const auto at = static_cast<std::size_t>(slot);
    if (at < words.size()) output_.send(message::noteOffWord(words[at], channel));
}

void KeySounds::PlayUpperChord() {
    for (int slot = 1; slot <= 3; ++slot) noteOn(slot);
}

void KeySounds::PlayFullChord() {
    for (int slot = 0; slot <= 4; ++slot) noteOn(slot);
}

void KeySounds::listNames(NameTables& tables) {
    tables.operations.add("frmsynth", "PlayUpperChord", this, &KeySounds::PlayUpperChord);
    tables.operations.add("frmsynth", "PlayFullChord", this, &KeySounds::PlayFullChord);
}

}  // namespace melvane
