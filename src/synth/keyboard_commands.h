#pragma once
#include "synth/beat_lights.h"
#include "synth/key_layout.h"
#include "synth/key_mouse.h"
#include "synth/key_schemes.h"
#include "synth/key_switches.h"
#include "synth/keyboard_sliders.h"
#include "synth/keyboard_window_commands.h"
#include "synth/live_keys.h"
#include "synth/performance_replay.h"
#include "synth/performance_saving.h"

namespace melvane {

/// The keyboard window frmsynth: an instrument at the computer's keys, with chords, a metronome and a capture
/// that becomes a score. A window shows studio.frmsynth; what the user does there comes in through its
/// controls and through the handlers here.
class KeyboardCommands {
 public:
    struct Parts {
        Settings& settings;
        FileOperations& files;
        MidiOutput& output;
        Dialogs& dialogs;
        Clock& clock;
        EventLoop& loop;
        const Directories& directories;
        Picker& picker;
        StopWatches& stopWatches;
        MainFrame& mainWindow;
    };
    KeyboardCommands(Studio& studio, Parts parts);

    /// Keys and buttons no longer reach the window, because it has lost the focus or a dialog is in front:
    /// what is held is released as if it had come up.
    void releaseHeldKeys();

    void listNames(NameTables& tables);

    KeyLayout layout;
    KeySchemes schemes;
    KeySounds sounds;
    KeySwitches switches;
    LiveNotes notes;
    LiveKeys keys;
    KeyMouse mouse;
    Metronome cMetronome1;
    BeatLights beats;
    PerformanceCapture capture;
    PerformanceReplay replay;
    PerformanceSaving saving;
    KeyboardChannels channels;
    KeyboardChoices choices;
    KeyboardSliders sliders;
    KeyboardInstrument instrument;
    KeyboardWindowCommands window;
};

}  // namespace melvane
