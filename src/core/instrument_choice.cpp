#include "core/instrument_choice.h"

#include "core/names.h"

namespace melvane {

namespace {

constexpr int testRow = 67;  // "5C"
constexpr int testNoteMilliseconds = 250;

}  // namespace

void InstrumentChoice::Combo1_Click() {
    auto& in = studio_.instruments;
    if (in.MelodyInstrumentName.empty()) settings_.read("Intrumentval", Int16{24}, in.MelodyInstrument);
    if (!isMelodyTrack(studio_.tracks.CurrentTrack)) return;
    giveToSelection(in.MelodyInstrument);
    giveToTrack(in.MelodyInstrument);
}

void InstrumentChoice::Combo5_Click() {
    auto& in = studio_.instruments;
    if (in.PercussionInstrumentName.empty())
        settings_.read("Intrumentval2", Int16{128}, in.PercussionInstrument);
    if (isMelodyTrack(studio_.tracks.CurrentTrack)) return;
    giveToSelection(in.PercussionInstrument);
    giveToTrack(in.PercussionInstrument);
}

void InstrumentChoice::Command9_Click() {
    const auto& in = studio_.instruments;
    const int instrument =
        isMelodyTrack(studio_.tracks.CurrentTrack) ? in.MelodyInstrument : in.PercussionInstrument;
    giveToSelection(instrument);
    giveToTrack(instrument);
    if (studio_.shell.Busy) soundTestNote();
}

void InstrumentChoice::giveToSelection(int instrument) {
    const auto& selection = studio_.selection;
    if (selection.SelStart < 0) return;
    const int track = studio_.tracks.CurrentTrack;
    for (int column = selection.SelStart; column <= selection.SelEnd; ++column) {
        if (!cell::isEmpty(studio_.score.noteCell(track, column))) {
            studio_.score.InstArray.set(track, column, instrument);
        }
    }
}

void InstrumentChoice::giveToTrack(int instrument) {
    auto& tracks = studio_.tracks;
    tracks.TrackInstrument[static_cast<std::size_t>(tracks.CurrentTrack)] = static_cast<Int16>(instrument);
    tracks.LastTrack = tracks.CurrentTrack;
    sounder_.ChangeInstrument(instrument, tracks.LastTrack);
}

void InstrumentChoice::soundTestNote() {
    sounder_.StartNote(testRow, studio_.tracks.LastTrack);
    loop_.waitUntil(clock_.counter() + clock_.frequency() * testNoteMilliseconds / 1000);
    sounder_.StopNote(testRow);
}

void InstrumentChoice::listNames(NameTables& tables) {
    tables.operations.add("form1", "Combo1_Click", this, &InstrumentChoice::Combo1_Click);
    tables.operations.add("form1", "Combo5_Click", this, &InstrumentChoice::Combo5_Click);
    tables.operations.add("form1", "Command9_Click", this, &InstrumentChoice::Command9_Click);
}

}  // namespace melvane
