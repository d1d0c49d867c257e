#pragma once
#include "synth/key_sounds.h"
#include "synth/performance_capture.h"

namespace melvane {

/// Plays the capture back on the keyboard, which stays in use meanwhile. A replay runs inside the call that
/// starts it. User-interface thread.
class PerformanceReplay {
 public:
    struct Parts {
        KeySounds& sounds;
        PerformanceCapture& capture;
        EventLoop& loop;
    };
    PerformanceReplay(Studio& studio, Parts parts);

    /// "Play Recording", and the graphic play button that does the same.
    void Command2_Click();
    void Check7_Click();
    /// "Stop Playing" and "Pause" are looked at by the replay.
    void Check4_Click();
    void Check6_Click();
    /// The length of pauses is 1 at least; a tick of nothing brings the strum to its fastest.
    void Text11_Change();
    void Text2_Change();

    void listNames(NameTables& tables);

 private:
    void build();
    void play();
    void playOnce();
    int playItem(int index);
    int playNote(int index);
    int passRests(int index);
    bool stopped() const;

    Studio& studio_;
    Parts parts_;
};

}  // namespace melvane
