#pragma once
#include "synth/key_switches.h"

namespace melvane {

/// The keyboard window frmsynth: an instrument at the computer's keys, with chords, a metronome and a capture
/// that becomes a score. A window shows studio.frmsynth; what the user does there comes in through its
/// controls and through the handlers here.
class KeyboardCommands {
 public:
    struct Parts {
        MidiOutput& output;
    };
    KeyboardCommands(Studio& studio, Parts parts);

    void listNames(NameTables& tables);

    KeySwitches switches;
};

}  // namespace melvane
