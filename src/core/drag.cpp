#include "core/drag.h"

#include <algorithm>

namespace melvane {

namespace {

constexpr double farthestCell = 30000;  // which every position of a drag can hold, and no score has

}  // namespace

int cellAt(double pixels, int cellPixels) {
    const double farthest = farthestCell * cellPixels;
    return static_cast<int>(std::clamp(pixels, -farthest, farthest) / cellPixels);
}

int pageColumn(double X) { return cellAt(X, Page::columnWidth); }

void noteColumnUnderMouse(Studio& studio, double X) {
    assign(studio.sounds.NoteColumn, studio.page.FirstColumn + pageColumn(X));
}

bool takeDragEnd(Studio& studio, double X) {
    auto& drag = studio.drag;
    assign(drag.DragEndColumn, pageColumn(X));
    if (drag.DragEndColumn == drag.DragLastColumn) return false;
    drag.DragLastColumn = drag.DragEndColumn;
    drag.DragEndColumn = shownDragEnd(studio);
    return true;
}

Int16 shownDragEnd(const Studio& studio) {
    return std::max(std::min(studio.drag.DragEndColumn, studio.page.PageColumns), studio.drag.DragColumn);
}

void scrollColumns(Studio& studio, int columns) {
    auto& bar = studio.form1.HScroll1;
    bar.set(std::min(bar.value() + columns, bar.maximum()));
}

void takeReleaseColumn(Studio& studio, double X) {
    auto& drag = studio.drag;
    assign(drag.DragColumn, pageColumn(X));
    drag.DragColumn = std::max(std::min(drag.DragColumn, studio.page.PageColumns), drag.DragStartColumn);
}

void openMenuOrGoOn(const OpenMenu& open, std::function<void()> closed) {
    if (open) return open(std::move(closed));
    if (closed) closed();
}

}  // namespace melvane
