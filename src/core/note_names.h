#pragma once
#include <array>
#include <string>
#include <string_view>

namespace melvane {

/// The name of each row 0 to 127, as "5C" for MIDI pitch 60 (row 67).
using NoteNameTable = std::array<std::string, 128>;
NoteNameTable buildNoteNames();

/// The name of `row`; empty for a row out of 0 to 127.
std::string_view nameOfRow(const NoteNameTable& names, int row);
bool isSharp(std::string_view name);

/// How the side bar prints a name: a sharp behind seven blanks, a natural with blanks between number and
/// letter, two of them, or three after a single digit.
std::string printedRowName(std::string_view name);
inline constexpr int sharpRowIndent = 7;  ///< blanks

/// The letter of a cell's pitch ("C#"), without its octave. A cell above 1000 counts 1000 less; cell 1000
/// itself does not.
std::string_view NoteName(int cell);

/// The five staff lines of the treble staff, from the top: their row names.
inline constexpr std::array<std::string_view, 5> staffRowNames{"6F", "6D", "5B", "5G", "5E"};

}  // namespace melvane
