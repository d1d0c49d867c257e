#pragma once
#include <cstdint>
#include <optional>

namespace melvane {

/// The kinds of channel messages: the high four bits of the status byte.
namespace message_kind {
inline constexpr std::uint8_t noteOff = 0x80, noteOn = 0x90, keyPressure = 0xA0, controlChange = 0xB0,
                              programChange = 0xC0, channelPressure = 0xD0, pitchBend = 0xE0;
}

/// Controllers that mean something to the program itself: the first data byte of a control change.
namespace midi_controller {
inline constexpr std::uint8_t dataEntry = 6, fineDataEntry = 38;
inline constexpr std::uint8_t sustain = 64;
inline constexpr std::uint8_t unregisteredLow = 98, unregisteredHigh = 99;  ///< parameter numbers
inline constexpr std::uint8_t registeredLow = 100, registeredHigh = 101;    ///< parameter numbers
// The channel modes begin at 120.
inline constexpr std::uint8_t allSoundOff = 120, resetAllControllers = 121, allNotesOff = 123;
}  // namespace midi_controller

/// A channel message as the bytes that go over the wire.
struct ShortMessage {
    std::uint8_t kind = 0;     ///< one of message_kind
    std::uint8_t channel = 0;  ///< 0 to 15
    std::uint8_t first = 0;    ///< first data byte, 0 to 127
    std::uint8_t second = 0;   ///< second data byte, 0 to 127; 0 when the message has only one
    std::uint8_t length = 0;   ///< bytes with the status: 2 or 3

    std::uint8_t status() const { return static_cast<std::uint8_t>(kind | channel); }
    bool operator==(const ShortMessage&) const = default;
};

/// Unpacks a short message: status in the low byte, data bytes above it. Bits above the message's own length
/// count for nothing. No value when the status is not that of a channel message or a data byte is above 127:
/// a device ignores such a message.
std::optional<ShortMessage> decodeShortMessage(std::uint32_t packed);

}  // namespace melvane
