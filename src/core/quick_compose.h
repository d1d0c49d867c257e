#pragma once
#include "core/instrument_choice.h"
#include "core/panel_sliders.h"
#include "core/studio.h"

namespace melvane {

/// The panel that holds the values for the next edits.
class QuickCompose {
 public:
    QuickCompose(Studio& studio, InstrumentChoice& instruments, PanelSliders& sliders)
        : studio_(studio), instruments_(instruments), sliders_(sliders) {}

    /// All sliders, the chord and the instrument to their resting values. The pan slider's rest reads 1.
    void ResetAll();
    /// "Effects": the chord and the instrument of single notes are within reach while it is ticked.
    void Check1_Click();

    void listNames(NameTables& tables);

 private:
    Studio& studio_;
    InstrumentChoice& instruments_;
    PanelSliders& sliders_;
};

}  // namespace melvane
