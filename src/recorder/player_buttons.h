#pragma once
#include <functional>

#include "core/flat_buttons.h"
#include "midi/player.h"
#include "recorder/audio_player.h"
#include "recorder/open_dialogs.h"
#include "recorder/recorded_file.h"

namespace melvane {

/// The flat buttons of the player: open, play, pause, stop, save under a name. X and Y are of no account.
class PlayerButtons {
 public:
    struct Parts {
        AudioPlayer& audio;
        OpenDialogs& dialogs;
        RecordedFile& file;
        MidiOutput& output;
        Player& player;
    };
    PlayerButtons(Studio& studio, Parts parts);

    /// 0 to 4; another number does nothing.
    void Cmd2_Click(int Index);
    void Cmd2_MouseUp(int Index, int button, int shift, double X, double Y);
    void ImgR_MouseMove(int Index, int button, int shift, double X, double Y);
    /// Over anything else of the window.
    void hideButtons() const { row_.hideAll(); }

    std::function<void(bool shown)> setToolWindows;  ///< hides the open tool windows, or shows those again

    void listNames(NameTables& tables);

 private:
    void open();
    void play();
    void stop();

    Studio& studio_;
    Parts parts_;
    FlatButtons row_;
};

}  // namespace melvane
