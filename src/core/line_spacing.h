#pragma once
#include "core/settings.h"
#include "core/studio.h"
#include "core/surfaces.h"
#include "core/tablet_page.h"

namespace melvane {

/// How the rows of the tablet look, by the Setup toolbar: their height and the guides of the sharp ones. Each
/// change is stored at once.
class LineSpacing {
 public:
    LineSpacing(Studio& studio, Settings& settings, Surfaces& surfaces, TabletPage& page)
        : studio_(studio), settings_(settings), surfaces_(surfaces), page_(page) {}

    /// The range of the bar beside the box, in pixels a row; the box takes any number.
    void setRange();
    /// LineHeight takes the number of the box, and the bar follows.
    void Text3_Change();
    void VScroll3_Change();
    /// "Show Sharp # Notes Guide".
    void Check1_Click();

    void listNames(NameTables& tables);

 private:
    Studio& studio_;
    Settings& settings_;
    Surfaces& surfaces_;
    TabletPage& page_;
};

}  // namespace melvane
