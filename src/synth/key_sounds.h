#pragma once
#include <span>

#include "core/studio.h"
#include "midi/midi_output.h"

namespace melvane {

struct NameTables;

/// The note words of the keyboard and their messages, on the keyboard's channel. A note on has velocity 100.
class KeySounds {
 public:
    static constexpr int lowestKey = 36;  ///< MIDI key of the key with index 0 at octave shift 0

    KeySounds(Studio& studio, MidiOutput& output) : studio_(studio), output_(output) {}

    /// Word `slot` (0 to 4) for the note so many semitones over a key. A word that does not fit 16 bits keeps
    /// its former note.
    void setWord(int slot, int keyIndex, int semitones = 0);
    /// The words from slot 1 on, for the upper notes of a chord.
    void setUpperWords(int keyIndex, std::span<const int> semitones);

    /// The same for a MIDI key.
    void setNote(int slot, int note);

    // Slots outside 0 to 4 do nothing.
    void noteOn(int slot) { noteOn(slot, studio_.keyboard.LiveChannel); }
    void noteOff(int slot) { noteOff(slot, studio_.keyboard.LiveChannel); }
    void noteOn(int slot, int channel);
    void noteOff(int slot, int channel);
    void PlayUpperChord();  ///< words 1 to 3
    void PlayFullChord();   ///< words 0 to 4
    void reset() { output_.reset(); }

    void listNames(NameTables& tables);

 private:
    Studio& studio_;
    MidiOutput& output_;
};

}  // namespace melvane
