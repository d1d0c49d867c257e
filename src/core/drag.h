#pragma once
#include <functional>

#include "core/studio.h"

/// What drawing on the tablet and on the tableau have in common.
namespace melvane {

namespace edit_mode {
inline constexpr int draw = 0, position = 1, select = 2;
}

namespace right_click {
inline constexpr int erase = 0, menu = 1, chord = 2;
}

inline constexpr int fullVelocity = 127;

/// Opens the right-button menu and returns; `closed` runs once the menu and what was chosen in it are done.
using OpenMenu = std::function<void(std::function<void()> closed)>;

/// Without a menu it is closed at once.
void openMenuOrGoOn(const OpenMenu& open, std::function<void()> closed);
inline constexpr int rightMargin = 24;  ///< pixels; a drag in it scrolls

/// The cell of a surface in which a pixel lies, both counted from its edge and the cells `cellPixels` (above
/// 0) wide or high. Far outside, a cell that lies outside every score too.
int cellAt(double pixels, int cellPixels);

/// The column of the page in which X lies.
int pageColumn(double X);

/// NoteColumn takes the absolute column under the mouse.
void noteColumnUnderMouse(Studio& studio, double X);

/// Takes the column under the mouse as the drag's end, kept inside the page and not before the press. False,
/// with the bare column kept, when it is the one drawn last.
bool takeDragEnd(Studio& studio, double X);

/// The drag's end as it is shown: inside the page and not before the press.
Int16 shownDragEnd(const Studio& studio);

/// Moves the page on, as far as the scroll bar goes.
void scrollColumns(Studio& studio, int columns);

/// The column of the page in which a drag ends at its release.
void takeReleaseColumn(Studio& studio, double X);

}  // namespace melvane
