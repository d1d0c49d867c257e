#pragma once
#include <string>
#include <vector>

#include "core/studio.h"
#include "core/surfaces.h"

namespace melvane {

struct NameTables;

/// A bar number above the tablet.
struct BarLabel {
    int left = 0;   ///< pixels from the left edge of the side bar
    int width = 0;  ///< pixels, up to the next number
    std::string caption;
    bool operator==(const BarLabel&) const = default;
};

/// At most 13 numbers stand above a page; more bars than that are not numbered. None when BeatsPerMeasure is
/// 0.
std::vector<BarLabel> barLabels(const Page& page, int beatsPerMeasure);

/// The arithmetic that ties the window's size and the scroll bars to the part of the score that is shown.
class TabletPage {
 public:
    TabletPage(Studio& studio, Surfaces& surfaces) : studio_(studio), surfaces_(surfaces) {}

    /// From the client width and the main picture's height, which the window has set; nothing while
    /// minimised, or while a resize is in hand.
    void Form_Resize();
    void HScroll1_Change();
    void VScroll1_Change();
    /// Finds the staff lines and sharp rows of the page, then paints the row names.
    void DrawSideBar();
    /// Looks at the column under x (pixels of the tablet) on all tracks, the current one last. Answers the
    /// row of the last cell found, -1 when all are empty.
    int FindNoteArray(double x) const;

    /// Moves the horizontal bar to the page without a redraw, where the page was set by other means.
    void followPage();

    void listNames(NameTables& tables);

 private:
    void measure();
    void keepInsideScore();
    void setScrollBars();
    void writeSideBar();

    Studio& studio_;
    Surfaces& surfaces_;
};

}  // namespace melvane
