#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace melvane::sound_test {

inline std::string bigEndian(std::uint32_t value, int bytes) {
    std::string text;
    for (int byte = bytes - 1; byte >= 0; --byte) text += static_cast<char>(value >> (8 * byte) & 0xFFU);
    return text;
}

/// A number of MIDI files, 7 bits a byte.
inline std::string midiNumber(std::uint32_t value) {
    std::string text(1, static_cast<char>(value & 0x7FU));
    while ((value >>= 7U) > 0) text.insert(text.begin(), static_cast<char>(0x80U | (value & 0x7FU)));
    return text;
}

/// A channel message `wait` ticks behind the event before it.
inline std::string midiMessage(std::uint32_t wait, int status, int first, std::optional<int> second = {}) {
    std::string text = midiNumber(wait) + static_cast<char>(status) + static_cast<char>(first);
    if (second) text += static_cast<char>(*second);
    return text;
}
inline std::string note(std::uint32_t wait, int key, int channel = 0) {
    return midiMessage(wait, 0x90 | channel, key, 100);
}
inline std::string noteEnd(std::uint32_t wait, int key, int channel = 0) {
    return midiMessage(wait, 0x80 | channel, key, 0);
}
inline std::string tempo(std::uint32_t wait, std::uint32_t microseconds) {
    return midiNumber(wait) + "\xFF\x51\x03" + bigEndian(microseconds, 3);
}
inline std::string trackEnd(std::uint32_t wait) { return midiNumber(wait) + std::string("\xFF\x2F\0", 3); }

inline std::string midiHead(std::uint32_t type, std::uint32_t tracks, std::uint32_t division) {
    return "MThd" + bigEndian(6, 4) + bigEndian(type, 2) + bigEndian(tracks, 2) + bigEndian(division, 2);
}
/// `length`: what is told in place of the true one.
inline std::string midiTrack(const std::string& content, std::optional<std::uint32_t> length = {}) {
    return "MTrk" + bigEndian(length.value_or(static_cast<std::uint32_t>(content.size())), 4) + content;
}
inline std::string midiFile(std::uint32_t type, std::uint32_t division,
                            const std::vector<std::string>& tracks) {
    std::string bytes = midiHead(type, static_cast<std::uint32_t>(tracks.size()), division);
    for (const std::string& track : tracks) bytes += midiTrack(track);
    return bytes;
}

}  // namespace melvane::sound_test
