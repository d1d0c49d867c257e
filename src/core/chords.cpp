#include "core/chords.h"

#include <algorithm>
#include <cmath>

#include "core/mouse_buttons.h"
#include "core/names.h"
#include "core/tested_note.h"

namespace melvane {

namespace {

struct ChordShape {
    Int16 first, second, third;  ///< semitones over the note; a later voice of 0 or less is absent
    const char* text;            ///< nullptr leaves the text as it is
};

// The texts of rows 4 and 5 name other chords, and row 7 has none: they stay so.
constexpr std::array<ChordShape, 8> shapes{{{0, 0, 0, "1 note: 5C "},
                                            {4, 7, 12, "4 note chord: 5C 5E 5G 6C"},
                                            {3, 7, 12, "4 note chord: 5C 5D#  5G 6C"},
                                            {4, 7, 11, "4 note chord: 5C 5E 5G  5B"},
                                            {3, 7, 10, "4 note chord: 5C 5E 5G 6C"},
                                            {3, 6, 10, "4 note chord: 5C 5D# 5G 5A#"},
                                            {-12, 0, 0, "2 notes: 5C 4C"},
                                            {-12, 12, 0, nullptr}}};

// What the panel's own list sets: absent voices are -1 here.
constexpr std::array<ChordShape, 8> panelShapes{{{-1, -1, -1, nullptr},
                                                 {4, 7, 12, nullptr},
                                                 {3, 7, 12, nullptr},
                                                 {4, 7, 11, nullptr},
                                                 {3, 7, 10, nullptr},
                                                 {3, 6, 10, nullptr},
                                                 {-12, -1, -1, nullptr},
                                                 {-12, 12, -1, nullptr}}};

constexpr Colour red{255, 0, 0}, white{255, 255, 255};

void take(Sounds& sounds, const ChordShape& shape) {
    sounds.ChordStep1 = shape.first;
    sounds.ChordStep2 = shape.second;
    sounds.ChordStep3 = shape.third;
}

}  // namespace

double columnEdge(double X) {
    const double farthest = 12.0 * INT16_MAX;
    X = std::clamp(X, -farthest, farthest);
    while (X >= 1 && static_cast<long>(X) % Page::columnWidth != 0) X -= 1;
    return X;
}

std::string Chords::textOf(int index) const {
    const bool known = index >= 0 && index < static_cast<int>(shapes.size());
    const char* text = known ? shapes[static_cast<std::size_t>(index)].text : nullptr;
    return text != nullptr ? text : studio_.form1.Label7.text();
}

void Chords::fillList() {
    studio_.form1.Combo3.fill({chordEntries.begin(), chordEntries.end()});
    studio_.form1.Combo3.set(0);
}

void Chords::SelectChord(int index) {
    if (index < 0 || index >= static_cast<int>(shapes.size())) return;
    const auto& shape = shapes[static_cast<std::size_t>(index)];
    take(studio_.sounds, shape);
    if (shape.text != nullptr) studio_.form1.Label7.set(shape.text);
    if (index == 5) studio_.form1.Combo3.set(5);
}

void Chords::Combo3_Click() {
    const auto& testPanel = studio_.Form5;
    const int index = testPanel.loaded ? testPanel.Combo3.index() : 0;
    if (index >= 0 && index < static_cast<int>(panelShapes.size())) {
        take(studio_.sounds, panelShapes[static_cast<std::size_t>(index)]);
    }
}

void Chords::Pic3_MouseDown(int, int shift, double X, double Y) { Pic3_MouseMove(mouse::left, shift, X, Y); }

void Chords::Pic3_MouseMove(int button, int, double X, double) {
    // The distance is kept, not X: this only thins the moves out.
    keptDistance_ = std::abs(X - keptDistance_);
    if (keptDistance_ < 2 || (button & (mouse::left | mouse::right)) == 0) return;
    X = columnEdge(X);
    auto& score = studio_.score;
    const int track = studio_.tracks.CurrentTrack;
    const int column = static_cast<int>(X / Page::columnWidth) + studio_.page.FirstColumn;
    const int x = static_cast<int>(X);
    if ((button & mouse::left) != 0) {
        // Track 9 has no label whose colour it could be.
        if (track != 9) surfaces_.fillPolyCell(x, labelColour(track));
        score.PolyArray.set(track + 1, column, studio_.form1.Combo3.index());
        countPolyTrack();
    } else {
        surfaces_.fillPolyCell(x, studio_.form1.LblTrk.backColour());
        score.PolyArray.set(track + 1, column, 0);
    }
}

Colour Chords::labelColour(int track) const {
    const auto& labels = studio_.form1.Label8;
    const auto at = static_cast<std::size_t>(track);
    return at < labels.size() ? labels[at].backColour() : studio_.form1.LblTrk.backColour();
}

void Chords::countPolyTrack() {
    const Int16 track = studio_.tracks.CurrentTrack;
    if (!isMelodyTrack(track)) return;
    auto& score = studio_.score;
    if (track >= score.TopPolyTrack) score.TopPolyTrack = static_cast<Int16>(track + 1);
    if (track >= score.UsedTrackCount) score.UsedTrackCount = static_cast<Int16>(track + 1);
}

void Chords::Pic3_MouseUp(int, int, double X, double) {
    const double x = X + 1 + studio_.page.FirstColumn;
    GetNoteLength(x);
    DrawPolynote(x);
    surfaces_.DrawNoteArray();
    showTestedNote(studio_);
}

void Chords::Pic3_GotFocus() { surfaces_.DrawNoteArray(); }

void Chords::GetNoteLength(double x) { walkNotes(x, Rings::paintOrWipe); }

void Chords::DrawPolynote(double x) { walkNotes(x, Rings::paint); }

void Chords::walkNotes(double x, Rings rings) {
    const auto& score = studio_.score;
    const int track = studio_.tracks.CurrentTrack;
    const int from =
        static_cast<int>(std::clamp(x, -1e6, 1e6) / Page::columnWidth) - studio_.page.FirstColumn;
    for (int start = from; start <= studio_.page.LastColumn; ++start) {
        const int value = score.noteCell(track, start);
        if (value < 1 || !cell::isStart(value)) continue;
        showNote(start, start, value, rings);
        for (int column = start + 1; score.noteCell(track, column) > cell::continuation; ++column) {
            showNote(start, column, value, rings);
        }
    }
}

/// One cell of a note; the chord that decides stands at the column after its start.
void Chords::showNote(int start, int column, int cellValue, Rings rings) {
    const auto& page = studio_.page;
    const bool hasChord = studio_.score.chordOf(studio_.tracks.CurrentTrack, start + 1) >= 1;
    if (!hasChord && rings == Rings::paint) return;
    surfaces_.drawChordRing(start - page.FirstColumn, cell::row(cellValue) - page.FirstRow,
                            hasChord ? red : white);
    const double X = (column - page.FirstColumn) * Page::columnWidth;
    Pic3_MouseMove(hasChord ? mouse::left : mouse::right, 0, X, 0);
}

void Chords::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("form1", "SelectChord", this, &Chords::SelectChord);
    operations.add("form1", "Combo3_Click", this, &Chords::Combo3_Click);
    operations.add("form1", "Pic3_MouseDown", this, &Chords::Pic3_MouseDown);
    operations.add("form1", "Pic3_MouseMove", this, &Chords::Pic3_MouseMove);
    operations.add("form1", "Pic3_MouseUp", this, &Chords::Pic3_MouseUp);
    operations.add("form1", "Pic3_GotFocus", this, &Chords::Pic3_GotFocus);
    operations.add("form1", "GetNoteLength", this, &Chords::GetNoteLength);
    operations.add("form1", "DrawPolynote", this, &Chords::DrawPolynote);
}

}  // namespace melvane
