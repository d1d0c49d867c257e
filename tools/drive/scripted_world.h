#pragma once
#include <filesystem>

#include "drive/scripted_menus.h"
#include "platform/desktop.h"
#include "platform/recording_media_device.h"
#include "platform/recording_midi_port.h"
#include "platform/scripted_dialogs.h"
#include "platform/settings_store.h"
#include "platform/virtual_time.h"

namespace melvane::drive {

/// Everything outside the program, as a script sets and sees it. Outlives a restart of the program.
struct ScriptedWorld {
    ScriptedWorld(std::filesystem::path hereFolder, std::filesystem::path programFolder)
        : here(std::move(hereFolder)), program(std::move(programFolder)) {}

    std::filesystem::path here;     ///< the folder of the script, absolute
    std::filesystem::path program;  ///< the program's own folder, absolute
    std::filesystem::path startFolder = std::filesystem::current_path();  ///< the program goes to its own
    VirtualTime time;
    RecordingMidiPort port{time};
    RecordingMediaDevice media{time};
    BareDesktop desktop;
    ScriptedDialogs dialogs{time};
    ScriptedMenus menus;
    MemorySettingsStore settings;
};

}  // namespace melvane::drive
