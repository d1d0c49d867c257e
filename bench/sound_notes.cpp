#include "sound_notes.h"

#include <algorithm>
#include <fstream>
#include <string_view>

#include "platform/sound_short_message.h"

namespace melvane::bench {

namespace {

constexpr std::uint32_t drums = 9;
constexpr std::uint32_t claves = 75;
constexpr std::uint32_t velocity = 100;
constexpr int ticksAQuarter = 4 * ticksAColumn;
constexpr int microsecondsAQuarter = 4 * columnMilliseconds * 1000;

std::uint32_t noteOn(std::uint32_t channel, std::uint32_t key) {
    return velocity << 16 | key << 8 | 0x90 | channel;
}
std::uint32_t noteOff(std::uint32_t channel, std::uint32_t key) { return key << 8 | 0x80 | channel; }

void appendNumber(std::string& bytes, std::uint32_t number, unsigned size) {
    for (unsigned i = size; i-- > 0;) bytes.push_back(static_cast<char>(number >> (8 * i) & 0xFFU));
}

// Seven bits a byte, the highest first; all but the last have their top bit set.
void appendDelta(std::string& bytes, std::uint32_t ticks) {
    for (unsigned shift = 21; shift > 0; shift -= 7) {
        if (ticks >> shift != 0) bytes.push_back(static_cast<char>((ticks >> shift & 0x7FU) | 0x80U));
    }
    bytes.push_back(static_cast<char>(ticks & 0x7FU));
}

void appendMessage(std::string& bytes, const ShortMessage& message) {
    appendNumber(bytes, message.status(), 1);
    appendNumber(bytes, message.first, 1);
    if (message.length == 3) appendNumber(bytes, message.second, 1);
}

std::string trackOf(const std::vector<TimedMessage>& messages) {
    std::string track("\x00\xFF\x51\x03", 4);
    appendNumber(track, microsecondsAQuarter, 3);
    int tick = 0;
    for (const TimedMessage& each : messages) {
        const auto decoded = decodeShortMessage(each.message);
        if (!decoded) continue;
        appendDelta(track, static_cast<std::uint32_t>(each.tick - tick));
        appendMessage(track, *decoded);
        tick = each.tick;
    }
    return track + std::string("\x00\xFF\x2F\x00", 4);
}

}  // namespace

std::vector<TimedMessage> clavesInEveryColumn(int columns) {
    std::vector<TimedMessage> messages;
    for (int column = 0; column < columns; ++column) {
        messages.push_back({column * ticksAColumn, noteOn(drums, claves)});
        messages.push_back({column * ticksAColumn + ticksAColumn / 2, noteOff(drums, claves)});
    }
    return messages;
}

std::vector<TimedMessage> twelveBusyTracks(int columns) {
    constexpr std::uint32_t programs[] = {0, 24, 32, 40, 48, 56, 65, 73};
    constexpr std::uint32_t drumKeys[] = {36, 38, 51, 75};
    std::vector<TimedMessage> messages;
    for (std::uint32_t channel = 0; channel < 8; ++channel)
        messages.push_back({0, programs[channel] << 8 | 0xC0 | channel});
    for (int column = 0; column < columns; ++column) {
        const int tick = column * ticksAColumn;
        const auto step = static_cast<std::uint32_t>(column * 5 % 12);
        for (std::uint32_t channel = 0; channel < 8; ++channel) {
            messages.push_back({tick, noteOn(channel, 40 + 3 * channel + step)});
            messages.push_back({tick + ticksAColumn, noteOff(channel, 40 + 3 * channel + step)});
        }
        for (const std::uint32_t key : drumKeys) messages.push_back({tick, noteOn(drums, key)});
        for (const std::uint32_t key : drumKeys)
            messages.push_back({tick + ticksAColumn / 2, noteOff(drums, key)});
    }
    std::ranges::stable_sort(messages, {}, &TimedMessage::tick);
    return messages;
}

bool writeMidiFile(const std::string& path, const std::vector<TimedMessage>& messages) {
    const std::string track = trackOf(messages);
    std::string bytes = "MThd";
    appendNumber(bytes, 6, 4);
    appendNumber(bytes, 0, 2);
    appendNumber(bytes, 1, 2);
    appendNumber(bytes, ticksAQuarter, 2);
    bytes += "MTrk";
    appendNumber(bytes, static_cast<std::uint32_t>(track.size()), 4);
    bytes += track;
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    return file.good();
}

}  // namespace melvane::bench
