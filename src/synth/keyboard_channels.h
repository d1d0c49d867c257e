#pragma once
#include "core/studio.h"
#include "midi/midi_output.h"

namespace melvane {

/// The sixteen MIDI channels as the keyboard knows them.
class KeyboardChannels {
 public:
    KeyboardChannels(Studio& studio, MidiOutput& output) : studio_(studio), output_(output) {}

    /// Gives every channel its preset and tells the port, then UpdateControls. The table says volume 127
    /// where the port is told 100.
    void InitChannels();
    /// Shows the keyboard's channel: pan, reverb, chorus and modulation.
    void UpdateControls();

    /// The record of the keyboard's channel; none for a number that is no channel.
    LiveChannelRecord* record();

    void listNames(NameTables& tables);

 private:
    void tellPort(Int16 channel);

    Studio& studio_;
    MidiOutput& output_;
};

}  // namespace melvane
