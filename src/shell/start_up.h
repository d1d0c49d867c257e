#pragma once
#include <functional>

#include "core/channel_selection.h"
#include "core/chords.h"
#include "core/file_operations.h"
#include "core/main_frame.h"
#include "core/quick_compose.h"
#include "core/score_model.h"
#include "core/settings.h"
#include "core/tablet_page.h"
#include "midi/midi_output.h"
#include "midi/panic.h"
#include "midi/stop_watch.h"
#include "platform/outside.h"
#include "shell/setup_toolbar_commands.h"

namespace melvane {

/// How the program comes up, comes to the front and goes down.
class StartUp {
 public:
    struct Parts {
        Settings& settings;
        FileOperations& files;
        ScoreModel& score;
        ChannelSelection& channels;
        InstrumentChoice& instruments;
        Chords& chords;
        QuickCompose& panel;
        TabletPage& page;
        MidiOutput& output;
        Panic& panic;
        StopWatches& stopWatches;
        SetupToolbarCommands& setup;
    };
    StartUp(Studio& studio, Outside& outside, Surfaces& surfaces, MainFrame& frame, ToolWindows& toolWindows,
            Parts parts)
        : studio_(studio),
          outside_(outside),
          surfaces_(surfaces),
          frame_(frame),
          toolWindows_(toolWindows),
          parts_(parts) {}

    /// Loads the popup menus; set by the engine.
    std::function<void()> loadMenus;

    /// The main window's load: settings, grids, geometry, device. Run once, before the window is shown.
    void Form_Load();
    /// Each time the main window comes to the front: ends a playback and opens the device once more.
    void Form_Activate();
    /// Closes the port, stores what outlives the run, removes the sample files and ends the event loop. A
    /// score that was not saved is dropped.
    void Form_Unload();
    /// Closes the port, then the main window.
    void Command3_Click();
    /// Whether this system can run the program.
    bool IsOsSupported() const { return true; }
    /// True, after a message, when another instance of this user runs.
    bool IsAlreadyRunning();
    /// Shows the keyboard window in the main window's place when the single-instance and device tests pass.
    /// The score's own tool windows go with it.
    void OpenKeyboardWindow();
    /// The main window is shown again after that: so are they.
    void showScoreTools();

    /// Whether another instance runs; set by main, none without it.
    std::function<bool()> anotherInstanceRuns;

    void listNames(NameTables& tables);

 private:
    void readSettings();
    void makeSongsFolder();
    void setFirstPage();
    void setFirstTrack();
    void openDevice();
    void placeWindow();
    void readPlace(const char* key, double otherwise, double& value);
    void storePlace(const WindowPlace& place);
    void showToolbars();
    void hideScoreTools();

    Studio& studio_;
    Outside& outside_;
    Surfaces& surfaces_;
    MainFrame& frame_;
    ToolWindows& toolWindows_;
    Parts parts_;
    struct {
        bool editing = false, setup = false;
    } hidden_;  ///< what OpenKeyboardWindow has hidden
};

}  // namespace melvane
