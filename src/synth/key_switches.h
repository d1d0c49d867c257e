#pragma once
#include "core/studio.h"
#include "midi/midi_output.h"

namespace melvane {

/// The tick boxes that say how the keys sound.
class KeySwitches {
 public:
    KeySwitches(Studio& studio, MidiOutput& output);

    // One choice of three, "Single Notes", "Always play polynotes", "Polynotes on Spacebar down": ticking one
    // clears the other two, clearing one clears itself alone.
    void Check10_Click();
    void Check8_Click();
    void Check2_Click();
    /// "Hold": the synthesizer holds the notes of the channel whose keys have come up.
    void ChkSustain_Click();
    /// "Mute": a flag of the channel that nothing reads.
    void ChkMute_Click();

    void listNames(NameTables& tables);

 private:
    void choose(CheckControl& chosen);
    LiveChannelRecord* channel();

    Studio& studio_;
    MidiOutput& output_;
};

}  // namespace melvane
