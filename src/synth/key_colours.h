#pragma once
#include "core/studio.h"

/// The keys' colours and which of them are black. Keys by index; one outside 0 to 43 does nothing.
namespace melvane {

/// Of the layout: the keys begin on C.
constexpr bool isBlackKey(int index) {
    constexpr unsigned blackKeys = 0b0101'0100'1010;  // by semitone over C
    return index >= 0 && ((blackKeys >> static_cast<unsigned>(index % 12)) & 1U) != 0;
}

/// Key and label in red: they sound.
void paintSounding(Studio& studio, int index);
/// Key and label as they rest: a key counts as white when its top is above -100 twips.
void paintResting(Studio& studio, int index);
/// The keys from `first` to `last`, both included.
void paintResting(Studio& studio, int first, int last);

}  // namespace melvane
