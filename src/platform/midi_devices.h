#pragma once
#include <array>
#include <bitset>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>

#include "platform/midi_port.h"
#include "platform/sound_short_message.h"
#include "platform/synthesizer.h"
#include "platform/system_midi_ports.h"

namespace melvane {

/// The name under which the built-in synthesizer is listed.
inline constexpr const char* builtInDeviceName = "Melvane Synthesizer";

/// The MIDI output of the real program. Devices -1 and 0 are the built-in synthesizer, so that there is
/// always one; 1 and above are the system's ports as they are at the call. Several handles may be open at
/// once.
class MidiDevices final : public MidiPort {
 public:
    MidiDevices(Synthesizer& synthesizer, SystemMidi& system);
    ~MidiDevices() override;

    int midiOutGetNumDevs() override;
    std::string midiOutGetDevCapsA(int device) override;
    Result midiOutOpen(Handle& handle, int device) override;
    Result midiOutClose(Handle handle) override;
    Result midiOutReset(Handle handle) override;
    Result midiOutShortMsg(Handle handle, std::uint32_t message) override;
    /// Whether ports of the system are open, and the built-in synthesizer is not.
    bool soundsElsewhere() const;
    /// Called after each open that succeeded.
    std::function<void()> whenOpened = [] {};

 private:
    /// A device behind a handle.
    struct Device {
        std::unique_ptr<SystemMidiOutput> output;  ///< null: the built-in synthesizer
        std::array<std::bitset<128>, 16>
            struck;  ///< keys struck and not released, by channel; system ports only
    };

    static void silence(Device& device);
    static void sendToSystem(Device& device, const ShortMessage& message);

    Synthesizer& synthesizer_;
    SystemMidi& system_;
    std::map<Handle, Device> open_;
    Handle lastHandle_ = 0;
};

}  // namespace melvane
