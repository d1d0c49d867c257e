#pragma once
#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

#include "core/midi_export_state.h"

namespace melvane {

/// A message of two data bytes. Values that are no bytes are passed over when it is written.
struct MidiMessage {
    int status, key, velocity;
};

/// Puts the bytes of a MIDI file into their buffer. `at` is the byte in hand, counted from 1, and each
/// function answers the one after what it wrote. It may run past byte 32767: that byte is then written again
/// and again. What is no byte, or lies before the buffer, is passed over.
class MidiBytes {
 public:
    static constexpr int ticksAColumn = 12;

    explicit MidiBytes(MidiExportState& state) : buffer_(state.MidiBuffer.data()) {}

    int add(int at, int value) const {
        if (static_cast<unsigned>(value) <= 255 && at >= 0)
            buffer_[std::min(at, MidiExportState::lastByte)] = static_cast<std::uint8_t>(value);
        return at + 1;
    }
    /// A time since the last event as 7 bits a byte, the highest first, all but the last with the top bit
    /// set. A negative one counts as 0.
    int addDelta(int at, int columns) const { return addLongDelta(*this, at, columns); }
    /// A message behind its time.
    int addEvent(int at, int columns, MidiMessage message) const {
        if (!isUsual(at, columns, message.key | message.velocity)) return addLong(at, columns, message);
        const std::uint32_t event = word(columns, message);
        std::memcpy(buffer_ + at, &event, sizeof event);
        return at + 4;
    }
    /// Two messages of one time.
    int addEvents(int at, int columns, MidiMessage first, MidiMessage second) const {
        if (!isUsual(at, columns, first.key | first.velocity | second.key | second.velocity)) {
            return addLong(addLong(at, columns, first), 0, second);
        }
        const std::uint64_t events = word(columns, first) | std::uint64_t{word(0, second)} << 32;
        std::memcpy(buffer_ + at, &events, sizeof events);
        return at + 8;
    }

 private:
    /// The usual events go in one piece: a short time, data that fit, and room for two messages.
    static bool isUsual(int at, int columns, int data) {
        return std::endian::native == std::endian::little &&
               static_cast<unsigned>(columns) * ticksAColumn < 128 && static_cast<unsigned>(data) <= 255 &&
               static_cast<unsigned>(at) <= MidiExportState::lastByte - 8;
    }
    static std::uint32_t word(int columns, MidiMessage m) {
        return static_cast<std::uint32_t>(columns * ticksAColumn | m.status << 8 | m.key << 16) |
               static_cast<std::uint32_t>(m.velocity) << 24;
    }
    int addLong(int at, int columns, MidiMessage message) const {
        return addLongEvent(*this, at, columns, message.status, message.key, message.velocity);
    }
    // Plain values: an object whose address is taken, or that goes over the stack, does not stay in
    // registers.
    static int addLongDelta(MidiBytes bytes, int at, int columns);
    static int addLongEvent(MidiBytes bytes, int at, int columns, int status, int key, int velocity);

    std::uint8_t* buffer_;
};

}  // namespace melvane
