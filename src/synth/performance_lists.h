#pragma once
#include "core/text_list.h"

/// A capture becomes the performance that is played, and that becomes the cells of a score. Rows are score
/// rows; -1 is a rest. The lists' own ways are kept: item 0 of a capture is passed over, a read past the end
/// finds an empty text, and a loop that removes items on its way up passes over what moves into their place.
/// No Qt, no state of its own; linear in the lists.
namespace melvane::performance {

constexpr std::int32_t rest = -1;
constexpr std::int32_t heldCode = 1000;  ///< added to a row in a cell that holds its note

/// Ticks as they were captured: `repeats` and `rows` go item by item.
struct Capture {
    const TextList& repeats;
    const TextList& rows;
};

/// The performance without pauses: a rest where a repeat counts 1, else the row.
void asPlayed(const Capture& capture, TextList& performance);

/// The performance with pauses in place of the keys that came up, which no capture knows: of a row that stays
/// for more than 5 ticks `rate` tenths sound and the rest is silent. A sample is lost at each change of row.
void withPauses(const Capture& capture, double rate, TextList& performance);

/// The score's cells of a performance, with every second cell of its rests taken out. Notes of 100 ticks and
/// more are cut down; `rate` as above.
void toCells(const TextList& performance, double rate, TextList& cells);

/// Takes out the rests of each run from `rate` hundredths of its count on, moves the rows `octaveShift` up
/// the score, and leaves no run of rests much longer than 9 cells.
void thinToShape(TextList& cells, double rate, int octaveShift);

}  // namespace melvane::performance
