#pragma once
#include "core/studio.h"
#include "core/surfaces.h"

namespace melvane {

/// The cursor of a playback on the tablet, with the page that follows it.
class PlayCursor {
 public:
    PlayCursor(Studio& studio, Surfaces& surfaces) : studio_(studio), surfaces_(surfaces) {}

    enum class Clamp { columns, pages };
    /// Turns to the page of InsertPosition when that is not shown. `clamp`: what is kept inside the score.
    void showInsertPosition(Clamp clamp);
    /// Before the first column.
    void begin();
    /// From PlayColumn's predecessor to PlayColumn.
    void advance();

 private:
    void restoreUnderCursor();
    void moveCursor();
    void turnPage();

    Studio& studio_;
    Surfaces& surfaces_;
};

}  // namespace melvane
