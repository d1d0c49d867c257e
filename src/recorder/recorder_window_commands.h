#pragma once
#include <functional>

#include "core/main_frame.h"
#include "core/settings.h"
#include "midi/midi_output.h"
#include "recorder/audio_player.h"
#include "recorder/capture.h"
#include "recorder/encoding.h"

namespace melvane {

/// The recorder's windows as a whole: how `Record` comes up and goes, its log and the system's mixer.
class RecorderWindowCommands {
 public:
    struct Parts {
        Settings& settings;
        MainFrame& mainWindow;
        ToolWindows& toolWindows;
        MciCommands& mci;
        Capture& capture;
        AudioPlayer& audio;
        Encoding& encoding;
        MidiOutput& output;
        Dialogs& dialogs;
        Desktop& desktop;
        const Directories& directories;
    };
    RecorderWindowCommands(Studio& studio, Parts parts);

    /// Everything that the window shows, as new and from the settings. The window has told its size before.
    void Form_Load();
    /// It comes to the front.
    void Form_Activate();
    /// Ends what plays, is captured or encoded, closes the MIDI output and stores what outlives the window.
    void Form_Unload();

    void CmdLog_Click();
    /// The window of the log is shown.
    void loadLog();
    /// The system's mixer.
    void Command1_Click();
    void cbxFormat_Click();

    std::function<void()> showPlayingPosition;  ///< the pictures of the position's switch follow its flag

    void listNames(NameTables& tables);

 private:
    void readPlace();
    void storePlace();
    void clear();
    void fillFormats();
    void takeDriver();
    void takeFolders();

    Studio& studio_;
    Parts parts_;
};

}  // namespace melvane
