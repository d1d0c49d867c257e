#include "core/selection_gestures.h"

#include "core/drag.h"

namespace melvane {

void SelectionGestures::placeOnTablet() {
    assign(studio_.selection.InsertPosition, column());
    surfaces_.DrawNoteArray();
}

void SelectionGestures::pressOnTablet() {
    begin();
    assign(studio_.selection.InsertPosition, column());
    studio_.drag.DragStartColumn = studio_.drag.DragColumn;
    surfaces_.GetBox();
    surfaces_.drawSelectionLine(studio_.drag.DragColumn);
}

/// What is kept under the band is kept anew after a scroll, and the band shown again.
void SelectionGestures::dragOnTablet(double X) {
    const bool scrolled = scrollInMargin(X);
    const bool moved = takeDragEnd(studio_, X);
    if (scrolled)
        surfaces_.GetBox();
    else if (moved)
        surfaces_.PutBox();
    else
        return;
    surfaces_.drawSelectionBand(studio_.drag.DragColumn, shownDragEnd(studio_));
    loop_.Idle();
}

bool SelectionGestures::scrollInMargin(double X) {
    if (X <= studio_.form1.MusicBox.width() - rightMargin) return false;
    const int before = studio_.page.FirstColumn;
    scrollColumns(studio_, 1);
    return studio_.page.FirstColumn != before;
}

void SelectionGestures::releaseOnTablet(double X) {
    end(X);
    surfaces_.DrawNoteArray();
}

void SelectionGestures::clearOnTablet() {
    auto& selection = studio_.selection;
    selection.SelStart = selection.SelEnd = -1;
    selection.InsertPosition = 0;
    surfaces_.DrawNoteArray();
}

void SelectionGestures::placeOnTableau() {
    assign(studio_.selection.InsertPosition, column());
    surfaces_.DrawBeatArray();
}

void SelectionGestures::pressOnTableau() {
    const int start = studio_.selection.SelStart;
    surfaces_.DrawBeatArray();
    surfaces_.GetBox();
    studio_.drag.DragStartColumn = studio_.drag.DragColumn;
    if (start < 0 || column() < start) begin();
}

void SelectionGestures::dragOnTableau(double X) {
    takeDragEnd(studio_, X);
    surfaces_.PutBox();
}

void SelectionGestures::releaseOnTableau(double X) {
    end(X);
    surfaces_.DrawBeatArray();
}

void SelectionGestures::clearOnTableau() {
    studio_.selection.SelStart = studio_.selection.SelEnd = -1;
    surfaces_.DrawBeatArray();
}

void SelectionGestures::begin() {
    assign(studio_.selection.SelStart, column());
    studio_.player.PlayRangeStart = studio_.page.FirstColumn;
}

void SelectionGestures::end(double X) {
    takeReleaseColumn(studio_, X);
    assign(studio_.selection.SelEnd, column());
    studio_.player.PlayRangeEnd = studio_.selection.SelEnd;
}

}  // namespace melvane
