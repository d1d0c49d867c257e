#pragma once
#include <cstdint>
#include <string_view>
#include <vector>

namespace melvane {

/// What the tracks of a MIDI file hold, in ticks from the start of the file.
struct MidiTicks {
    struct Message {
        std::uint32_t tick = 0;
        std::uint32_t packed = 0;  ///< short message
    };
    struct Tempo {
        std::uint32_t tick = 0;
        std::uint32_t microseconds = 0;  ///< a quarter note, above 0
    };
    std::vector<Message> messages;
    std::vector<Tempo> tempos;
    std::uint32_t end = 0;  ///< the tick of the last end of a track
};

/// Reads the events at the start of `bytes`, which is a track's content, adding to `ticks`; the track begins
/// at tick `start`. Ticks that do not fit end the track. Answers how many bytes belonged to it.
std::size_t readMidiTrack(std::string_view bytes, std::uint32_t start, MidiTicks& ticks);

}  // namespace melvane
