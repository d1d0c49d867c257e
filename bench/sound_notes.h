#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace melvane::bench {

/// One column of the benches' music, in milliseconds and in ticks of the .mid file.
inline constexpr int columnMilliseconds = 138;
inline constexpr int ticksAColumn = 12;

struct TimedMessage {
    int tick = 0;
    std::uint32_t message = 0;  ///< packed short message
};

/// One claves a column, released half a column later.
std::vector<TimedMessage> clavesInEveryColumn(int columns);
/// Twelve busy tracks: eight melodies on channels of their own and four drums, a note each in every column.
std::vector<TimedMessage> twelveBusyTracks(int columns);

/// Writes the messages, which are in the order of their ticks, as a .mid file of format 0. False when that
/// fails.
bool writeMidiFile(const std::string& path, const std::vector<TimedMessage>& messages);

}  // namespace melvane::bench
