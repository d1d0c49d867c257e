#pragma once
#include "core/studio.h"
#include "core/surfaces.h"

namespace melvane {

struct NameTables;

/// The chord of a whole channel, by the Setup toolbar's boxes `Ch` and its list. The list has no "Single
/// Note", and its index is stored as it stands: the chord that sounds is the one before the entry's own in
/// the main window's list.
class ChannelChords {
 public:
    ChannelChords(Studio& studio, Surfaces& surfaces) : studio_(studio), surfaces_(surfaces) {}

    /// The seven entries, with the second selected.
    void fillList();
    /// Every cell of the channel, `index` 0 to 7, takes the list's index, or 0 while its box is clear; cells
    /// without a note too.
    void Ch_Click(int index);
    /// The three steps follow the entry, and so does every channel whose box is ticked.
    void Combo3_Click();

    void listNames(NameTables& tables);

 private:
    Studio& studio_;
    Surfaces& surfaces_;
};

}  // namespace melvane
