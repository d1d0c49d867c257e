#pragma once
#include "core/channel_selection.h"
#include "core/instrument_choice.h"
#include "core/picker.h"
#include "midi/channel_settings.h"
#include "midi/midi_output.h"

namespace melvane {

/// The Setup toolbar's channel buttons with their hide boxes, and its two instruments. Channels from 0 to 12;
/// another number does nothing.
class SetupChannels {
 public:
    struct Parts {
        Surfaces& surfaces;
        MidiOutput& output;
        ChannelSelection& selection;
        InstrumentChoice& instruments;
        Picker& picker;
        ChannelSettings& settings;
    };
    SetupChannels(Studio& studio, Parts parts);

    void TrackSel_Click(int index);
    /// The button under the mouse stands out.
    void TrackSel_MouseDown(int index, int button, int shift, double X, double Y);
    /// The box has changed: a hidden channel is neither drawn nor played, and cannot be selected.
    void TrackHide_Click(int index);

    /// The melody instrument: the picker, then the current track takes what was chosen.
    void LblInst1_DblClick();
    /// The same for the percussion instrument. Its number goes out as a program of 128 and above.
    void LblInst2_DblClick();
    // The main window's, for melody and for percussion; nothing while the toolbar is loading.
    void Combo1_Click();
    void Combo5_Click();

    /// The toolbar is filling its controls.
    bool loading = false;

    void listNames(NameTables& tables);

 private:
    void choose(int index);

    Studio& studio_;
    Parts parts_;
};

}  // namespace melvane
