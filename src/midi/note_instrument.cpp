#include "midi/note_instrument.h"

#include "core/instrument_names.h"
#include "core/names.h"
#include "midi/messages.h"

namespace melvane {

void NoteInstrument::Text5_DblClick() {
    auto& in = studio_.instruments;
    in.PickingNoteInstrument = true;
    picker_.showModal();
    in.PickingNoteInstrument = false;
    if (isPercussionInstrument(in.NoteInstrument)) {
        dialogs_.messageBox(BoxKind::plain, "Melvane", "This is a percussion instrument");
    } else if (!in.NoteInstrumentName.empty() && !isPercussionInstrument(in.MelodyInstrument)) {
        take(in.NoteInstrument, in.NoteInstrumentName);
    } else if (!in.PercussionInstrumentName.empty() && isPercussionInstrument(in.PercussionInstrument)) {
        take(in.PercussionInstrument, in.PercussionInstrumentName);
        instruments_.Combo5_Click();
    }
}

/// The program change carries a percussion number as it is.
void NoteInstrument::take(int instrument, const std::string& name) {
    const int track = studio_.tracks.CurrentTrack;
    output_.send(message::programChange(instrument, track));
    output_.reset();
    const auto column = narrowed<int>(leadingNumber(studio_.form1.LblNote.text()) - 1).value_or(-1);
    studio_.score.InstArray.set(track, column, instrument);
    studio_.form1.Text5.set(name);
    studio_.Form5.Text5.set(name);
    instruments_.giveToSelection(instrument);
}

void NoteInstrument::listNames(NameTables& tables) {
    tables.operations.add("form1", "Text5_DblClick", this, &NoteInstrument::Text5_DblClick);
    tables.operations.add("form1", "CmdInst_Click", this, &NoteInstrument::Text5_DblClick);
}

}  // namespace melvane
