#pragma once
#include "synth/key_sounds.h"
#include "synth/metronome.h"

namespace melvane {

/// The metronome on the keyboard window: its switch, its tempo, its four lights, and its sound on a channel
/// of its own. A beat that sounds takes the note words of the keys.
class BeatLights {
 public:
    BeatLights(Studio& studio, Metronome& metronome, KeySounds& sounds);

    /// Starts it anew at the tempo shown, or stops it.
    void chkRunning_Click();
    /// The tempo of a button that is on; a running metronome starts anew.
    void Optbeat_Click(int Index);
    /// Beats 1 to 4 have a light and a sound.
    void onBeat(int Beat);
    void onStop() { ResetColors(); }
    /// All lights dark.
    void ResetColors();

    void listNames(NameTables& tables);

 private:
    void choose(int index);
    void light(int beat);
    void sound(int beat);

    Studio& studio_;
    Metronome& metronome_;
    KeySounds& sounds_;
};

}  // namespace melvane
