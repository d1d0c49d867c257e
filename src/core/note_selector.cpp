#include "core/note_selector.h"

#include "core/instrument_names.h"
#include "core/mouse_buttons.h"
#include "core/names.h"
#include "core/note_writer.h"
#include "core/tested_note.h"

namespace melvane {

namespace {

int panelNumber(const TextControl& box) { return narrowed<int>(leadingNumber(box.text())).value_or(0); }

}  // namespace

void writePanelValues(Studio& studio, int column, int instrument, int volumeTrack) {
    auto& score = studio.score;
    const auto& panel = studio.form1;
    const int track = studio.tracks.CurrentTrack;
    score.InstArray.set(track, column, instrument);
    score.VolumeArray.set(volumeTrack, column + 1, panelNumber(panel.vol3));
    score.ModArray.set(track, column + 1, panelNumber(panel.T1));
    score.PanArray.set(track, column + 1, panelNumber(panel.T2) + 64);
    score.ReverbArray.set(track, column + 1, panelNumber(panel.T3));
    score.ChorusArray.set(track, column + 1, panelNumber(panel.T4));
}

void NoteSelector::Pic2a_MouseDown(int button, int, double X, double) {
    const int pageColumn = static_cast<int>(columnEdge(X)) / Page::columnWidth;
    const int column = pageColumn + studio_.page.FirstColumn;
    studio_.form1.LblNote.set(std::to_string(column + 1));
    surfaces_.drawSelectorCursor(pageColumn, studio_.form1.LblTrk.backColour());
    if ((button & mouse::left) != 0)
        inspect(column);
    else if ((button & mouse::right) != 0)
        write(column);
    showEffects(column);
    showTestedNote(studio_);
}

void NoteSelector::Pic2a_MouseMove(int button, int shift, double X, double Y) {
    if ((button & (mouse::left | mouse::right)) != 0) Pic2a_MouseDown(button, shift, X, Y);
}

void NoteSelector::Pic2a_MouseUp(int, int shift, double X, double Y) {
    Pic2a_MouseDown(mouse::left, shift, X, Y);
    const double x = X + 1 + studio_.page.FirstColumn;
    chords_.GetNoteLength(x);
    chords_.DrawPolynote(x);
    surfaces_.DrawNoteArray();
    surfaces_.DrawPolyStrip();
    const int track = studio_.tracks.CurrentTrack;
    studio_.form1.vol3.set(std::to_string(studio_.tracks.TrackVolume[static_cast<std::size_t>(track)]));
    studio_.Form3.Label15.set("Ch #" + std::to_string(track + 1) + " Volume");
}

void NoteSelector::inspect(int column) {
    auto& panel = studio_.form1;
    const int track = studio_.tracks.CurrentTrack;
    panel.LblVol.set(std::to_string(studio_.score.VolumeArray.get(track, column + 1, 127)));
    panel.LblTrk.set(std::to_string(shownTrackNumber(track)));
    if (track >= 0 && track <= lastTrackNumber) {
        panel.LblTrk.setBackColour(studio_.tracks.TrackColor[static_cast<std::size_t>(track)]);
    }
    const int value = studio_.score.noteCell(track, column);
    if (cell::isEmpty(value))
        inspectBlank(column);
    else if (!isMelodyTrack(track))
        inspectPercussion(column);
    else
        inspectMelody(column, value);
}

/// Empty while the percussion instrument in hand is none.
std::string NoteSelector::percussionName() const {
    const int instrument = studio_.instruments.PercussionInstrument;
    return isPercussionInstrument(instrument) ? std::string(instrumentName(instrument)) : std::string();
}

/// A stale effect beside a blank goes.
void NoteSelector::inspectBlank(int column) {
    auto& panel = studio_.form1;
    panel.LblNoteName.set("-");
    panel.Label5.set("Blank Note");
    panel.Label7.set({});
    panel.LblInst.set({});
    resetEffects(studio_.score, studio_.tracks.CurrentTrack, column + 1);
}

void NoteSelector::inspectPercussion(int column) {
    auto& panel = studio_.form1;
    panel.LblNoteName.set("-");
    panel.Label5.set(std::to_string(column + 1) + "-");
    panel.Label7.set({});
    panel.LblInst.set(percussionName());
}

void NoteSelector::inspectMelody(int column, int cellValue) {
    auto& panel = studio_.form1;
    const int track = studio_.tracks.CurrentTrack;
    const std::string letter(NoteName(cellValue));
    panel.LblNoteName.set(letter);
    panel.Label5.set(std::to_string(column + 1) + "-" + letter);
    panel.LblInst.set(std::string(instrumentName(studio_.score.InstArray.get(track, column, 0))));
    const int chord = studio_.score.chordOf(track, column);
    if (chord < 1) {
        panel.Label7.set("1 note: 5C ");
        panel.Combo3.set(0);
    } else {
        panel.Combo3.set(chord);
        panel.Label7.set(chords_.textOf(chord));
    }
}

/// No look at whether the cell holds a note: values can be written beside a blank.
void NoteSelector::write(int column) {
    auto& panel = studio_.form1;
    const int track = studio_.tracks.CurrentTrack;
    const auto& instruments = studio_.instruments;
    const bool melody = isMelodyTrack(track);
    const int instrument = melody ? instruments.MelodyInstrument : instruments.PercussionInstrument;
    writePanelValues(studio_, column, instrument, track);
    panel.LblInst.set(melody ? std::string(instrumentName(instrument)) : percussionName());
    if (melody) {
        studio_.score.PolyArray.set(track + 1, column, panel.Combo3.index());
        panel.Label7.set(chords_.textOf(panel.Combo3.index()));
    } else {
        panel.Label7.set({});
    }
}

void NoteSelector::showEffects(int column) {
    const auto& score = studio_.score;
    const int track = studio_.tracks.CurrentTrack;
    auto& pointers = studio_.form1.Picture10;
    const std::array<int, 4> values{
        score.ModArray.get(track, column + 1, 0), score.PanArray.get(track, column + 1, 64),
        score.ReverbArray.get(track, column + 1, 0), score.ChorusArray.get(track, column + 1, 0)};
    for (std::size_t effect = 0; effect < values.size(); ++effect) pointers[effect].set(values[effect]);
}

void NoteSelector::listNames(NameTables& tables) {
    tables.operations.add("form1", "Pic2a_MouseDown", this, &NoteSelector::Pic2a_MouseDown);
    tables.operations.add("form1", "Pic2a_MouseMove", this, &NoteSelector::Pic2a_MouseMove);
    tables.operations.add("form1", "Pic2a_MouseUp", this, &NoteSelector::Pic2a_MouseUp);
}

}  // namespace melvane
