#include "platform/sound_short_message.h"

namespace melvane {

namespace {

constexpr std::uint8_t firstSystemStatus = 0xF0;

std::uint8_t byteOf(std::uint32_t packed, unsigned index) {
    return static_cast<std::uint8_t>(packed >> (8U * index));
}

}  // namespace

std::optional<ShortMessage> decodeShortMessage(std::uint32_t packed) {
    const std::uint8_t status = byteOf(packed, 0);
    if (status < message_kind::noteOff || status >= firstSystemStatus) return std::nullopt;

    ShortMessage message;
    message.kind = status & 0xF0;
    message.channel = status & 0x0F;
    const bool hasOneByte =
        message.kind == message_kind::programChange || message.kind == message_kind::channelPressure;
    message.length = hasOneByte ? 2 : 3;
    message.first = byteOf(packed, 1);
    message.second = message.length == 3 ? byteOf(packed, 2) : std::uint8_t{0};
    if (message.first > 127 || message.second > 127) return std::nullopt;
    return message;
}

}  // namespace melvane
