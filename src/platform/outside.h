#pragma once
#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/directories.h"
#include "platform/event_loop.h"
#include "platform/media_device.h"
#include "platform/midi_port.h"
#include "platform/settings_store.h"

namespace melvane {

/// The world outside the program, as one bundle: main makes the real one, tests and the bench scripted ones.
struct Outside {
    Clock& clock;
    EventLoop& loop;
    MidiPort& port;
    MediaDevice& media;
    Desktop& desktop;
    SettingsStore& settings;
    Dialogs& dialogs;
    Directories directories;
};

}  // namespace melvane
