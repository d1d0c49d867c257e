#pragma once
#include "core/studio.h"
#include "core/surfaces.h"
#include "platform/event_loop.h"

namespace melvane {

/// Selecting columns and placing the insertion position with the mouse, as the tablet and the tableau do it
/// once their press has been taken into the drag's columns. X in pixels of either surface.
class SelectionGestures {
 public:
    SelectionGestures(Studio& studio, Surfaces& surfaces, EventLoop& loop)
        : studio_(studio), surfaces_(surfaces), loop_(loop) {}

    /// The insertion position comes under the mouse; the selection stays.
    void placeOnTablet();
    /// A new selection begins under the mouse, and the insertion position with it.
    void pressOnTablet();
    /// The running band follows; beyond the right margin each move scrolls on by a column.
    void dragOnTablet(double X);
    void releaseOnTablet(double X);
    /// Neither selection nor position is left.
    void clearOnTablet();

    void placeOnTableau();
    /// A selection that begins at the column or left of it keeps its start, and the position stays.
    void pressOnTableau();
    void dragOnTableau(double X);
    void releaseOnTableau(double X);
    void clearOnTableau();

 private:
    int column() const { return studio_.page.FirstColumn + studio_.drag.DragColumn; }
    bool scrollInMargin(double X);
    void begin();
    void end(double X);

    Studio& studio_;
    Surfaces& surfaces_;
    EventLoop& loop_;
};

}  // namespace melvane
