#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/midi_channel_state.h"
#include "platform/sound_short_message.h"

namespace melvane {

/// Messages that belong to the stream itself, as those of a file that plays do. Called in the audio callback:
/// it must not allocate, lock, wait or touch a file.
class MessageFeed {
 public:
    struct Due {
        std::size_t frame = 0;  ///< of the block
        ShortMessage message;
    };

    virtual ~MessageFeed() = default;
    /// What the channels are when it begins.
    virtual const MidiChannelState& opening() const noexcept = 0;
    /// A block of so many frames begins, whose first frame is heard at this Clock counter.
    virtual void beginBlock(std::size_t frames, std::int64_t moment) noexcept = 0;
    /// The next message of the block, in order; no value when the rest belongs to later blocks.
    virtual std::optional<Due> next() noexcept = 0;
};

}  // namespace melvane
