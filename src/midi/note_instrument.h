#pragma once
#include "core/instrument_choice.h"
#include "core/picker.h"
#include "core/studio.h"
#include "midi/midi_output.h"
#include "platform/dialogs.h"

namespace melvane {

struct NameTables;

/// Changing the instrument of the one note that the note selector shows.
class NoteInstrument {
 public:
    NoteInstrument(Studio& studio, Picker& picker, MidiOutput& output, InstrumentChoice& instruments,
                   Dialogs& dialogs)
        : studio_(studio), picker_(picker), output_(output), instruments_(instruments), dialogs_(dialogs) {}

    /// Asks for an instrument, then gives it to the note at the column that LblNote tells, and to the
    /// selected notes.
    void Text5_DblClick();

    void listNames(NameTables& tables);

 private:
    void take(int instrument, const std::string& name);

    Studio& studio_;
    Picker& picker_;
    MidiOutput& output_;
    InstrumentChoice& instruments_;
    Dialogs& dialogs_;
};

}  // namespace melvane
