#pragma once
#include "core/channel_chords.h"
#include "core/line_spacing.h"
#include "core/score_size.h"
#include "core/tempo_and_beats.h"
#include "midi/setup_sliders.h"
#include "shell/setup_channels.h"

namespace melvane {

/// The Setup toolbar Form3: what applies to a whole channel or to the whole score. A window shows
/// studio.Form3; what the user does there comes in through its controls.
class SetupToolbarCommands {
 public:
    struct Parts {
        Settings& settings;
        Surfaces& surfaces;
        MidiOutput& output;
        ScoreModel& score;
        TabletPage& page;
        ChannelSelection& channels;
        InstrumentChoice& instruments;
        Picker& picker;
    };
    SetupToolbarCommands(Studio& studio, Parts parts);

    /// Fills the controls from the settings and the state, puts the tempo to 100 and the channels to rest. At
    /// the start of the program, and whenever the toolbar is opened after it was closed.
    void Form_Load();
    /// It comes to the front.
    void Form_Activate();
    /// It loses the focus, and counts as closed when it is no longer on the screen.
    void Form_LostFocus();
    /// Stores what outlives it. It opens at the next start when it was open as the program ended.
    void Form_Unload();

    void listNames(NameTables& tables);

    ChannelSettings settings;
    SetupChannels channels;
    SetupSliders sliders;
    ChannelChords chords;
    ScoreSize size;
    TempoAndBeats pace;
    LineSpacing lines;

 private:
    void showScore();
    void readPlace(const char* key, std::optional<double>& place);
    void savePlace(const char* key, const std::optional<double>& place);

    Studio& studio_;
    Parts parts_;
};

}  // namespace melvane
