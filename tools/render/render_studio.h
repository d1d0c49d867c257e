#pragma once
#include <string>
#include <string_view>

#include "platform/media_error.h"
#include "platform/settings_store.h"
#include "platform/virtual_time.h"
#include "render/null_surfaces.h"
#include "render/null_windows.h"
#include "shell/engine.h"

namespace melvane {

/// The engine with nothing around it but a port and a clock that runs as fast as it is served. It leaves no
/// trace on the disk.
class RenderStudio {
 public:
    RenderStudio(VirtualTime& clock, MidiPort& midiPort) : time(clock), port(midiPort) {}

    /// Starts the studio with room for a score, and opens it. `text` is what the file holds.
    void open(const std::string& scorePath, std::string_view text);
    bool hasNotes() const;

    VirtualTime& time;
    MidiPort& port;
    NoMediaDevice media;
    BareDesktop desktop;
    MemorySettingsStore settings;
    NullDialogs dialogs;
    NullSurfaces surfaces;
    NullFrame frame;
    NullToolWindows toolWindows;
    Studio studio;
    // No folder can be made below a device.
    Outside outside{time,    time,     port,    media,
                    desktop, settings, dialogs, Directories{"/dev/null", "/dev/null"}};
    Engine engine{studio, outside, surfaces, frame, toolWindows};
};

}  // namespace melvane
