#pragma once
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "platform/clock.h"
#include "platform/media_error.h"
#include "platform/media_system.h"
#include "platform/midi_devices.h"
#include "platform/sound_card.h"
#include "platform/synthesizer.h"
#include "platform/system_midi_ports.h"

namespace melvane {

/// The real MIDI devices, and the machine's sound output with the built-in synthesizer behind it. The
/// SoundFont is loaded beside the start of the windows; what is played meanwhile waits for it.
class SoundSystem {
 public:
    /// The clock must outlive it. `recordings`: the folder in which recordings are saved.
    SoundSystem(const Clock& clock, std::string recordings);

    MidiPort& port() { return devices_; }
    MediaDevice& media() { return media_.device(); }
    /// What the user is to be told now, each thing once. User-interface thread.
    std::optional<std::string> takeNotice();

 private:
    void loadSoundFont();

    Synthesizer synthesizer_;
    SystemMidiPorts systemPorts_;
    MidiDevices devices_{synthesizer_, systemPorts_};
    MediaSystem media_;
    SoundCard card_;
    std::mutex noticeLock_;
    std::optional<std::string> soundFontNotice_;
    std::jthread loading_;
};

/// MIDI devices that play nowhere, for a picture of the program.
class SilentSystem {
 public:
    explicit SilentSystem(const Clock& clock) : synthesizer_(clock, 0) {}
    MidiPort& port() { return devices_; }
    MediaDevice& media() { return media_; }

 private:
    Synthesizer synthesizer_;
    SystemMidiPorts systemPorts_;
    MidiDevices devices_{synthesizer_, systemPorts_};
    NoMediaDevice media_;
};

}  // namespace melvane
