#pragma once
#include <filesystem>
#include <string>

#include "platform/media_error.h"
#include "platform/qt_event_loop.h"
#include "recorder/record_window.h"
#include "shell/engine.h"
#include "shell/main_window.h"
#include "ui/floating_windows_window.h"

namespace melvane::bench {

class SilentPort final : public MidiPort {
 public:
    int midiOutGetNumDevs() override { return 1; }
    std::string midiOutGetDevCapsA(int) override { return "bench"; }
    Result midiOutOpen(Handle& handle, int) override {
        handle = 1;
        return ok;
    }
    Result midiOutClose(Handle) override { return ok; }
    Result midiOutReset(Handle) override { return ok; }
    Result midiOutShortMsg(Handle, std::uint32_t) override { return ok; }
};

class YesDialogs final : public Dialogs {
 public:
    FileChoice openFile(const FileQuestion&) override { return {}; }
    FileChoice saveFile(const FileQuestion&) override { return {}; }
    BoxAnswer messageBox(BoxKind, const std::string&, const std::string&, BoxButtons) override {
        return BoxAnswer::yes;
    }
};

/// The recorder's window with the whole engine behind it, on the real clock and event loop. The encoder is
/// linked, so no library file is needed.
class EncodeStage {
 public:
    EncodeStage();
    ~EncodeStage();

    /// Presses "Encode File" and returns when the file is encoded.
    void encode(const std::string& wav);

    Studio studio;
    std::filesystem::path folder;

 private:
    SilentPort port;
    SteadyClock clock;
    QtEventLoop loop{clock};
    NoMediaDevice media;
    SystemDesktop desktop;
    MemorySettingsStore store;
    YesDialogs dialogs;
    form1 window{studio};
    FloatingWindows floatingWindows;
    Outside outside;
    Engine engine;
    Record recorder{studio, engine.recorder, &window};
};

}  // namespace melvane::bench
