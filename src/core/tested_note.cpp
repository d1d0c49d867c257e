#include "core/tested_note.h"

#include "core/instrument_names.h"

namespace melvane {

namespace {

constexpr int centrePan = 64;

void showEffects(Studio& studio, int slot) {
    const auto& score = studio.score;
    auto& panel = studio.Form5;
    const int track = studio.tracks.CurrentTrack;
    panel.LblMod.set(std::to_string(score.ModArray.get(track, slot, 0)));
    panel.LblPan.set(std::to_string(score.PanArray.get(track, slot, centrePan) - centrePan));
    panel.LblReverb.set(std::to_string(score.ReverbArray.get(track, slot, 0)));
    panel.LblChorus.set(std::to_string(score.ChorusArray.get(track, slot, 0)));
}

void keepColumnInStrips(TestPanelControls& panel, int column) {
    const int columns = panel.Pic2a.width() / Page::columnWidth;
    if (column >= panel.firstColumn && column < panel.firstColumn + columns) return;
    panel.firstColumn = std::max(0, column - columns / 2);
}

void showCell(Studio& studio, int column) {
    auto& panel = studio.Form5;
    const int track = studio.tracks.CurrentTrack;
    const int value = studio.score.noteCell(track, column);
    const bool blank = cell::isEmpty(value);
    const int instrument = studio.score.InstArray.get(track, column, 0);
    panel.LblNoteName.set(blank || !isMelodyTrack(track) ? "-" : std::string(NoteName(value)));
    panel.Text5.set(blank ? std::string() : std::string(instrumentName(instrument)));
    showEffects(studio, column + 1);
    keepColumnInStrips(panel, column);
}

}  // namespace

std::optional<int> inspectedColumn(const Studio& studio) {
    const auto& told = studio.form1.LblNote.text();
    return told.empty() ? std::nullopt : narrowed<int>(leadingNumber(told) - 1);
}

void showTestedNote(Studio& studio) {
    auto& panel = studio.Form5;
    if (!panel.loaded) return;
    const auto& main = studio.form1;
    panel.LblTrk.set(main.LblTrk.text());
    panel.LblTrk.setBackColour(main.LblTrk.backColour());
    panel.LblNote.set(main.LblNote.text());
    if (const auto column = inspectedColumn(studio)) showCell(studio, *column);
    if (panel.noteChanged) panel.noteChanged();
}

}  // namespace melvane
