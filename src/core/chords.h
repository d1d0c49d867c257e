#pragma once
#include <array>
#include <string_view>

#include "core/studio.h"
#include "core/surfaces.h"

namespace melvane {

struct NameTables;

/// The entries of the main window's chord list, index = the number that PolyArray holds.
inline constexpr std::array<std::string_view, 8> chordEntries{
    "Single Note", "Major",         "Minor ",          "Major 7th ",
    "Minor 7th ",  "Minor 7th -5 ", "2 Octave combo ", "3 Octave combo "};

/// The left edge, in pixels, of the column that X stands in; X itself when it is below 1. Far outside every
/// page, the edge nearest to it.
double columnEdge(double X);

/// Chords of single notes: their list, their steps, and the strip on which they are marked.
class Chords {
 public:
    Chords(Studio& studio, Surfaces& surfaces) : studio_(studio), surfaces_(surfaces) {}

    /// The text of a chord number; the one shown now where it has none of its own.
    std::string textOf(int index) const;
    void fillList();
    /// Sets the three steps and the chord text; another index than 0 to 7 changes nothing.
    void SelectChord(int index);
    /// The user picked a chord on the panel: the steps follow the list of the test panel, 0 while that is not
    /// loaded.
    void Combo3_Click();

    // The polynote strip; X and Y in pixels, button a mask of 1 left, 2 right, 4 middle.
    void Pic3_MouseDown(int button, int shift, double X, double Y);
    void Pic3_MouseMove(int button, int shift, double X, double Y);
    void Pic3_MouseUp(int button, int shift, double X, double Y);
    void Pic3_GotFocus();
    /// Bring the tablet's rings and the strip's marks in line from `x` on; in spite of its name the first
    /// returns nothing.
    void GetNoteLength(double x);
    void DrawPolynote(double x);

    void listNames(NameTables& tables);

 private:
    enum class Rings { paint, paintOrWipe };
    void walkNotes(double x, Rings rings);
    void showNote(int start, int column, int cellValue, Rings rings);
    Colour labelColour(int track) const;
    void countPolyTrack();

    Studio& studio_;
    Surfaces& surfaces_;
    double keptDistance_ = 0;
};

}  // namespace melvane
