#pragma once
#include <cstdint>
#include <string>

namespace melvane {

/// The four functions of the one MIDI output, on packed 32-bit short messages (midi/messages.h packs them),
/// with the list of devices. Device ids: -1 is the default device ("MIDI Mapper"), 0 to midiOutGetNumDevs() -
/// 1 the others in the order in which they are listed. All functions belong to the user-interface thread.
class MidiPort {
 public:
    using Handle = std::uint32_t;
    using Result = std::uint32_t;
    static constexpr Result ok = 0;
    static constexpr Result badDevice = 2;  ///< no such device
    static constexpr Result allocated = 4;  ///< the device is in use or would not open
    static constexpr Result badHandle = 5;  ///< the handle is not an open one

    virtual ~MidiPort() = default;

    virtual int midiOutGetNumDevs() = 0;
    /// The product name, cut to 31 bytes; empty when there is no such device.
    virtual std::string midiOutGetDevCapsA(int device) = 0;
    /// Sets `handle` only on success.
    virtual Result midiOutOpen(Handle& handle, int device) = 0;
    /// Closing a closed handle answers badHandle and does nothing else.
    virtual Result midiOutClose(Handle handle) = 0;
    /// Silences every sounding note at once, sustained ones included; programs and controllers stay.
    virtual Result midiOutReset(Handle handle) = 0;
    virtual Result midiOutShortMsg(Handle handle, std::uint32_t message) = 0;
};

}  // namespace melvane
