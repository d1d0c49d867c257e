#pragma once
#include <cstdint>
#include <optional>

namespace melvane {

/// A channel message as the bytes that go over the wire.
struct ShortMessage {
    std::uint8_t kind = 0;     ///< high four bits of the status byte, 0x80 to 0xE0
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
