#pragma once
#include <functional>

#include "core/main_frame.h"
#include "core/settings.h"
#include "midi/stop_watch.h"
#include "platform/directories.h"
#include "synth/beat_lights.h"
#include "synth/key_layout.h"
#include "synth/key_schemes.h"
#include "synth/keyboard_instrument.h"
#include "synth/live_keys.h"

namespace melvane {

/// The keyboard window as a whole: how it comes up, how its parts follow its size, its toolbar, how it goes.
class KeyboardWindowCommands {
 public:
    struct Parts {
        Settings& settings;
        MidiOutput& output;
        StopWatches& stopWatches;
        MainFrame& mainWindow;
        const Directories& directories;
        KeyLayout& layout;
        KeySchemes& schemes;
        LiveKeys& keys;
        BeatLights& beats;
        KeyboardChannels& channels;
        KeyboardInstrument& instrument;
    };
    KeyboardWindowCommands(Studio& studio, Parts parts);

    MainFrame* frame = nullptr;            ///< the window itself, while there is one
    std::function<void()> showHelp;        ///< opens the help at the keyboard's topic
    std::function<void()> showedComposer;  ///< after the main window was shown
    /// Opens the recorder with the keyboard as its source; without it that button does not act.
    std::function<void()> openRecorder;

    /// Everything that the window shows, from the settings; the device is opened and every channel set. Once,
    /// before the window is shown.
    void Form_Load();
    /// The keys follow the window's width. Nothing before the window is loaded.
    void Form_Resize();
    /// Closes the port, stores what outlives the window and ends the program with all its windows.
    void Form_Unload();

    /// The toolbar: 1 to 6; another number does nothing.
    void Cmd2_Click(int Index);
    /// The hidden buttons: 1, 6, 11, 12, 13.
    void Cmd4_Click(int Index);
    /// Shows the tabbed panel or takes it away.
    void CmdEdit_Click();

    /// What the user reads on button `index` (1 to 6) of the toolbar.
    static const char* tip(int index);

    void listNames(NameTables& tables);

 private:
    void makeSongsFolder();
    void setColours();
    void layOutToolbar();
    void openDevice();
    void centre();
    void placeWindow();
    void storePlace();
    void unload();
    void showComposer();

    Studio& studio_;
    Parts parts_;
    bool loading_ = false;
};

}  // namespace melvane
