#pragma once
#include <cstdint>
#include <vector>

#include "platform/sound_short_message.h"

namespace melvane {

/// A MIDI file's channel messages in the order in which they are heard.
struct MidiSequence {
    struct Event {
        std::uint32_t frame = 0;   ///< at soundRate, from 0
        std::uint32_t packed = 0;  ///< a short message that decodeShortMessage() accepts
        bool operator==(const Event&) const = default;
    };

    std::vector<Event> events;
    std::uint32_t length = 0;  ///< frames; no event lies behind it

    /// Sequences end after a day; what a file has behind that is left out.
    static constexpr std::uint32_t longest = 24U * 3600U * 44100U;
};

}  // namespace melvane
