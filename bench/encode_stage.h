#pragma once
#include <filesystem>
#include <string>

#include "platform/media_error.h"
#include "platform/qt_event_loop.h"
#include "recorder/record_window.h"
#include "render/null_midi_port.h"
#include "render/null_windows.h"
#include "shell/engine.h"
#include "shell/main_window.h"
#include "ui/floating_windows_window.h"

namespace melvane::bench {

class YesDialogs final : public NullDialogs {
 public:
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
    NullMidiPort port;
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
