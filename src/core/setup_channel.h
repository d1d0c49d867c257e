#pragma once
#include "core/studio.h"

namespace melvane {

/// Brings the Setup toolbar to a track (0 to 12) that was chosen elsewhere: its selected channel, pressed
/// button, volume and caption. No handler of the toolbar runs.
void bringSetupToolbarTo(Studio& studio, int track);

}  // namespace melvane
