#pragma once
#include "core/studio.h"

namespace melvane {

/// SongEndColumn becomes one past the last used column of the tracks that are not hidden; 0 for a score that
/// is empty or has notes in column 0 alone.
void findSongEnd(Studio& studio);

}  // namespace melvane
