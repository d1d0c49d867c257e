#pragma once
#include "core/instrument_choice.h"
#include "core/studio.h"
#include "midi/midi_output.h"

namespace melvane {

struct NameTables;

/// The panic action: reopening the device cuts hanging notes.
class Panic {
 public:
    Panic(Studio& studio, MidiOutput& output, InstrumentChoice& instruments)
        : studio_(studio), output_(output), instruments_(instruments) {}

    /// Ends a playback, reopens the device and selects the instrument in hand again.
    void StopSound();
    /// The same, as the main toolbar calls it and each time the main window comes to the front.
    void Command32_Click() { StopSound(); }

    void listNames(NameTables& tables);

 private:
    Studio& studio_;
    MidiOutput& output_;
    InstrumentChoice& instruments_;
};

}  // namespace melvane
