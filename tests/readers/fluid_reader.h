#pragma once
#include <compare>
#include <cstdint>
#include <string>
#include <vector>

namespace melvane::test {

/// A message of a MIDI file, at its place in ticks.
struct FileEvent {
    int tick, status, first, second;
    auto operator<=>(const FileEvent&) const = default;
};

/// What FluidSynth's player makes of a file.
struct FluidReading {
    std::vector<FileEvent> events;        ///< in the order in which they came
    std::vector<std::string> complaints;  ///< what the library logged: warnings and worse
    int microseconds = 0;                 ///< a quarter note
    int lastTick = 0;
    bool finished = false;
};

/// Plays the file to its end, without sound.
FluidReading readWithFluid(const std::string& path);

}  // namespace melvane::test
