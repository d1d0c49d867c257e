#pragma once
#include <optional>

#include "platform/event_loop.h"
#include "synth/key_sounds.h"

namespace melvane {

/// The mouse on the keys and on what stops them. A click sounds one note, whatever chord is set, also while
/// the labels are edited; what is clicked is not captured. Keys outside 0 to 43 do nothing. `button` 1 left,
/// 2 right, 4 middle.
class KeyMouse {
 public:
    KeyMouse(Studio& studio, KeySounds& sounds, EventLoop& loop);

    void CmdKey_MouseDown(int index, int button, int shift, double X, double Y);
    /// The key's tool tip is its label.
    void CmdKey_MouseMove(int index, int button, int shift, double X, double Y);
    /// Ends the note that word 0 holds now.
    void CmdKey_MouseUp(int index, int button, int shift, double X, double Y);
    /// The mouse no longer reaches the window: a key under a pressed button is released.
    void releaseClickedKey();

    // The Panic Bar, and the panel around the keys.
    void Label4_MouseMove(int button, int shift, double X, double Y);
    void Label4_MouseDown(int button, int shift, double X, double Y);
    void Label4_MouseUp(int button, int shift, double X, double Y);
    void Picture5_MouseMove(int button, int shift, double X, double Y);

    void listNames(NameTables& tables);

 private:
    void sound(int index);
    void keepHistory();

    Studio& studio_;
    KeySounds& sounds_;
    EventLoop& loop_;
    struct Clicked {
        int index;
        std::optional<Int16> word;  ///< of its note, once it sounds
    };
    std::optional<Clicked> clicked_;
    bool takenAway_ = false;  ///< since the last press
};

}  // namespace melvane
