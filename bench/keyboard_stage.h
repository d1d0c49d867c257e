#pragma once
#include <chrono>
#include <string>
#include <vector>

#include "platform/media_error.h"
#include "platform/qt_event_loop.h"
#include "render/null_midi_port.h"
#include "render/null_windows.h"
#include "shell/engine.h"
#include "shell/main_window.h"
#include "synth/keyboard_window.h"
#include "ui/floating_windows_window.h"

namespace melvane::bench {

using Moment = std::chrono::steady_clock::time_point;
inline Moment now() { return std::chrono::steady_clock::now(); }

/// Notes when each note on arrived.
class NotePort final : public NullMidiPort {
 public:
    std::vector<Moment> notes;

    Result midiOutShortMsg(Handle, std::uint32_t message) override {
        if ((message & 0xF0U) == 0x90U) notes.push_back(now());
        return ok;
    }
};

/// The keyboard window in front, with the whole engine behind it, on the real clock and event loop.
class KeyboardStage {
 public:
    KeyboardStage();

    /// A key of the machine by its letter, capital, as an event in the queue of the system's events.
    void press(char letter) { send(letter, true); }
    void release(char letter) { send(letter, false); }
    /// The real event loop, until so many milliseconds have passed and nothing is pending.
    static void serve(int milliseconds);

    Studio studio;
    NotePort port;

 private:
    void send(char letter, bool down);

    SteadyClock clock;
    QtEventLoop loop{clock};
    NoMediaDevice media;
    BareDesktop desktop;
    MemorySettingsStore store;
    NullDialogs dialogs;
    form1 window{studio};
    FloatingWindows floatingWindows;
    Outside outside;

 public:
    Engine engine;

 private:
    frmsynth keyboard{studio, engine.keyboard};
};

/// Qt on the offscreen screen of the benchmarks, with the program's style. `application` arguments as main's.
int runOnScreen(int argc, char** argv, int (*work)(int, char**));

}  // namespace melvane::bench
