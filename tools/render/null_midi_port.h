#pragma once
#include "platform/midi_port.h"

namespace melvane {

/// A device that nobody hears. Who wants to watch its messages overrides what receives them.
class NullMidiPort : public MidiPort {
 public:
    int midiOutGetNumDevs() override { return 1; }
    std::string midiOutGetDevCapsA(int) override { return "none"; }
    Result midiOutOpen(Handle& handle, int) override {
        handle = 1;
        return ok;
    }
    Result midiOutClose(Handle) override { return ok; }
    Result midiOutReset(Handle) override { return ok; }
    Result midiOutShortMsg(Handle, std::uint32_t) override { return ok; }
};

}  // namespace melvane
