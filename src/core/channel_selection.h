#pragma once
#include "core/instrument_choice.h"
#include "core/studio.h"
#include "core/surfaces.h"

namespace melvane {

/// Switching the track that edits act on, by the channel labels or the Setup toolbar's buttons.
class ChannelSelection {
 public:
    ChannelSelection(Studio& studio, Surfaces& surfaces, InstrumentChoice& instruments)
        : studio_(studio), surfaces_(surfaces), instruments_(instruments) {}

    /// Captions, colours and tool tips of the labels, as they stand at the start.
    void setUpLabels();
    /// A click on a channel label; `index` is a track, 0 to 12 without 9. Another number does nothing.
    void Label8_Click(int index);
    void Label8_MouseMove(int index, int button, int shift, double X, double Y);
    /// Opens the track and makes it the current one.
    void TrackSel_Click(int index);
    /// Shows the current track, which was chosen elsewhere, in the panel and on the surfaces.
    void showCurrentTrack();

    void listNames(NameTables& tables);

 private:
    void showTip(int index);
    void draw();

    Studio& studio_;
    Surfaces& surfaces_;
    InstrumentChoice& instruments_;
};

}  // namespace melvane
