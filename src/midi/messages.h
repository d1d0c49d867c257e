#pragma once
#include <cstdint>

/// The short messages of the program as packed 32-bit words: status in the low byte, then the data bytes.
/// Plain arithmetic, nothing is masked: a value out of range spills over as the sum has it. Channels from 0.
namespace melvane::message {

using Word = std::uint32_t;

namespace detail {
/// Two's complement, as 32-bit integers add and shift.
constexpr Word word(std::int64_t value) { return static_cast<Word>(static_cast<std::uint64_t>(value)); }
constexpr Word controller(std::int64_t value, std::int64_t base, std::int64_t channel) {
    return word(value * 65536 + base + channel);
}
}  // namespace detail

constexpr Word noteOn(int key, int velocity, int channel) {
    return detail::word(std::int64_t{velocity} * 65536 + std::int64_t{key} * 256 + 0x90 + channel);
}
constexpr Word noteOff(int key, int channel) {
    return detail::word(std::int64_t{key} * 256 + 0x80 + channel);
}
/// The same for a note that is kept as key times 256.
constexpr Word noteOnWord(int noteWord, int velocity, int channel) {
    return detail::word(std::int64_t{velocity} * 65536 + noteWord + 0x90 + channel);
}
constexpr Word noteOffWord(int noteWord, int channel) {
    return detail::word(std::int64_t{noteWord} + 0x80 + channel);
}
constexpr Word programChange(int program, int channel) {
    return detail::word(std::int64_t{program} * 256 + 0xC0 + channel);
}
constexpr Word bankSelectMsb(int channel) { return detail::controller(0, 0xB0, channel); }
constexpr Word bankSelectLsb(int channel) { return detail::controller(0, 0x20B0, channel); }
constexpr Word modulation(int value, int channel) { return detail::controller(value, 0x1B0, channel); }
constexpr Word pan(int value, int channel) { return detail::controller(value, 0xAB0, channel); }
constexpr Word reverb(int value, int channel) { return detail::controller(value, 0x5BB0, channel); }
constexpr Word chorus(int value, int channel) { return detail::controller(value, 0x5DB0, channel); }
constexpr Word hold(int value, int channel) { return detail::controller(value, 0x40B0, channel); }
constexpr Word channelVolume(int value, int channel) { return detail::controller(value, 0x7B0, channel); }
/// Drum kit 0 on the percussion channel.
inline constexpr Word drumKit = 0xC9;

/// The channel on which all percussion sounds.
inline constexpr int percussionChannel = 9;

}  // namespace melvane::message
