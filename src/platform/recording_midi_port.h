#pragma once
#include <map>
#include <set>
#include <string>

#include "platform/midi_port.h"
#include "platform/moment_log.h"

namespace melvane {

/// A MIDI output that only writes down what reaches it. Opens are written with their result, closes and
/// resets whenever they are asked for, short messages only when their handle is open.
class RecordingMidiPort final : public MidiPort {
 public:
    explicit RecordingMidiPort(const Clock& clock) : log_(clock) {}

    int midiOutGetNumDevs() override { return devices_; }
    std::string midiOutGetDevCapsA(int device) override;
    Result midiOutOpen(Handle& handle, int device) override;
    Result midiOutClose(Handle handle) override;
    Result midiOutReset(Handle handle) override;
    Result midiOutShortMsg(Handle handle, std::uint32_t message) override;

    /// Device ids 0 to `count` - 1 exist from now on; -1 always does. What is open stays open.
    void setDevices(int count) { devices_ = count; }
    /// The next `count` opens of `device` answer allocated; -1: all of them, 0: none.
    void refuse(int device, int count) { refusals_[device] = count; }
    /// The process that opened handles is gone: they are no longer open, and nothing is written.
    void forgetHandles() { open_.clear(); }

    /// "MS open ID RESULT", "MS close", "MS reset" or "MS XX XX XX"; a message with more than three bytes as
    /// "MS 0xXXXXXXXX".
    MomentLog& log() { return log_; }

 private:
    Result resultOfOpen(int device);

    MomentLog log_;
    int devices_ = 1;
    std::map<int, int> refusals_;
    std::set<Handle> open_;
    Handle lastHandle_ = 0;
};

}  // namespace melvane
