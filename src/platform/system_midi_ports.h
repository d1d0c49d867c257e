#pragma once
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace melvane {

/// An open MIDI port of the system.
class SystemMidiOutput {
 public:
    virtual ~SystemMidiOutput() = default;
    /// The bytes of one message. False when they could not be sent; the device may be gone, and nothing else
    /// happens.
    virtual bool send(std::span<const std::uint8_t> bytes) = 0;
};

/// The MIDI output ports of the system. User-interface thread.
class SystemMidi {
 public:
    virtual ~SystemMidi() = default;
    /// The ports that exist now; empty where the system has no MIDI at all.
    virtual std::vector<std::string> names() = 0;
    /// `index` into names(), from 0. Null when there is no such port or it would not open.
    virtual std::unique_ptr<SystemMidiOutput> open(std::size_t index) = 0;
};

/// The ports of the ALSA sequencer.
class SystemMidiPorts final : public SystemMidi {
 public:
    std::vector<std::string> names() override;
    std::unique_ptr<SystemMidiOutput> open(std::size_t index) override;
};

}  // namespace melvane
