#pragma once
#include "core/studio.h"

namespace melvane {

/// Shows the note under inspection, that of the current track in the column that LblNote tells, on the test
/// panel; nothing while that is not loaded. The panel's strips move only when the column is none of theirs.
/// Called after each inspection and after what changes that note by itself; a change of many notes at once
/// shows with the next inspection, as in the main window's own read-out.
void showTestedNote(Studio& studio);

/// The column of the score that LblNote tells; nothing before the first inspection.
std::optional<int> inspectedColumn(const Studio& studio);

}  // namespace melvane
