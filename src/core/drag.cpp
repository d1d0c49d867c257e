#include "core/drag.h"

#include <algorithm>

namespace melvane {

int pageColumn(double X) { return static_cast<int>(std::clamp(X, -1e6, 1e6) / Page::columnWidth); }

void noteColumnUnderMouse(Studio& studio, double X) {
    assign(studio.sounds.NoteColumn, studio.page.FirstColumn + pageColumn(X));
}

bool takeDragEnd(Studio& studio, double X) {
    auto& drag = studio.drag;
    assign(drag.DragEndColumn, pageColumn(X));
    if (drag.DragEndColumn == drag.DragLastColumn) return false;
    drag.DragLastColumn = drag.DragEndColumn;
    const Int16 last = std::min(drag.DragEndColumn, studio.page.PageColumns);
    drag.DragEndColumn = std::max(last, drag.DragColumn);
    return true;
}

void takeReleaseColumn(Studio& studio, double X) {
    auto& drag = studio.drag;
    assign(drag.DragColumn, pageColumn(X));
    drag.DragColumn = std::max(std::min(drag.DragColumn, studio.page.PageColumns), drag.DragStartColumn);
}

}  // namespace melvane
