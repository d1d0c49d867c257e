#pragma once
#include <array>
#include <span>

#include "core/studio.h"

namespace melvane {

/// A grid of the score, its counterpart on the clipboard, and what a cell of a blank column holds.
struct GridPair {
    Grid Score::*score;
    Grid Clipboard::*clip;
    Int16 blank;
};

/// All eight. The notes and their instruments stand first: they are the pairs that a copy begins anew.
inline constexpr std::array<GridPair, 8> gridPairs{{
    {&Score::NoteArray, &Clipboard::ClipNoteArray, cell::empty},
    {&Score::InstArray, &Clipboard::ClipInstArray, 0},
    {&Score::PolyArray, &Clipboard::ClipPolyArray, 0},
    {&Score::VolumeArray, &Clipboard::ClipVolumeArray, 127},
    {&Score::ModArray, &Clipboard::ClipModArray, 0},
    {&Score::PanArray, &Clipboard::ClipPanArray, 64},
    {&Score::ReverbArray, &Clipboard::ClipReverbArray, 0},
    {&Score::ChorusArray, &Clipboard::ClipChorusArray, 0},
}};
inline constexpr std::span<const GridPair, 2> noteGridPairs = std::span(gridPairs).first<2>();

}  // namespace melvane
