#pragma once
#include <array>
#include <functional>

#include "core/channel_selection.h"
#include "core/main_frame.h"
#include "core/score_model.h"
#include "files/score_files.h"
#include "midi/panic.h"
#include "midi/player.h"
#include "shell/main_toolbar_pictures.h"
#include "shell/start_up.h"

namespace melvane {

/// The fifteen buttons of the main toolbar, as one dispatcher.
class MainToolbarCommands {
 public:
    MainToolbarCommands(Studio& studio, ToolWindows& toolWindows, ScoreModel& score,
                        ChannelSelection& channels, ScoreFiles& files, Player& player, Panic& panic,
                        StartUp& startUp)
        : pictures(studio),
          studio_(studio),
          toolWindows_(toolWindows),
          score_(score),
          channels_(channels),
          files_(files),
          player_(player),
          panic_(panic),
          startUp_(startUp) {
        for (std::size_t at = 0; at < studio.form1.Cmd2.size(); ++at) {
            studio.form1.Cmd2[at].acted = [this, at] { Cmd2_Click(static_cast<int>(at)); };
        }
    }

    /// Index 0 to 14; another number does nothing.
    void Cmd2_Click(int Index);

    /// Opens the menu of button 3, 8 or 12; set by the engine.
    std::function<void(int button)> openMenu;

    // The commands that keys reach too.
    void openScore() { Cmd2_Click(1); }
    void saveScore() { Cmd2_Click(2); }
    void rewind() { Cmd2_Click(4); }
    void play() { Cmd2_Click(5); }
    void stop() { Cmd2_Click(6); }
    /// Holds a playback in its place; the next play goes on from there. Nothing while none runs.
    void pause();
    /// Whether a playback begins anew at its end; told in the status text.
    void toggleLoop();

    /// Hides the open tool windows, or shows those again.
    void setToolWindows(bool shown);

    void listNames(NameTables& tables);

    MainToolbarPictures pictures;

 private:
    using Press = void (*)(MainToolbarCommands&);
    static Press press(int index);

    void clearScore();
    /// Opens the menu of that button, with the tutorial's tip out of its way.
    void menuWithoutTip(int button);
    void menu(int button) const {
        if (openMenu) openMenu(button);
    }
    /// Runs a file command with the open tool windows out of its dialog's way.
    void aroundDialog(void (ScoreFiles::*command)());

    Studio& studio_;
    ToolWindows& toolWindows_;
    ScoreModel& score_;
    ChannelSelection& channels_;
    ScoreFiles& files_;
    Player& player_;
    Panic& panic_;
    StartUp& startUp_;
    std::array<bool, 4> setAside_{};  ///< the tool windows that were hidden last
};

}  // namespace melvane
