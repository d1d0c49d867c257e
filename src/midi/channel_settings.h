#pragma once
#include "core/studio.h"
#include "midi/midi_output.h"

namespace melvane {

/// What the Setup toolbar holds for each channel as a whole, and its way into the port and the score.
class ChannelSettings {
 public:
    ChannelSettings(Studio& studio, MidiOutput& output) : studio_(studio), output_(output) {}

    /// Channels 0 to 12 at rest, told to the port: the melody instrument on each of them, the percussion
    /// channels included, and no effects. Then ApplyChannelSettings.
    void ResetChannels();
    /// Shows the settings of the toolbar's channel and writes its four effects into every column of that
    /// track: what its notes had of their own is lost.
    void ApplyChannelSettings();

    void listNames(NameTables& tables);

 private:
    void setAtRest(int channel);
    void tellPort(Int16 channel);

    Studio& studio_;
    MidiOutput& output_;
};

}  // namespace melvane
