#pragma once
#include <cstdint>
#include <functional>
#include <memory>

#include "platform/sound_source.h"

namespace melvane {

/// One open input stream of the machine: 44.1 kHz, stereo, floats.
class SoundInput {
 public:
    /// Opens an input whose sound goes to the tap, on a thread of its own. Null when there is none.
    using Opener = std::function<std::unique_ptr<SoundInput>(const std::shared_ptr<SoundTap>& tap)>;

    /// Stops and closes it.
    virtual ~SoundInput() = default;
    /// The device or its server has failed; no block will follow. Any thread.
    virtual bool isLost() const = 0;
    /// How often the machine was too slow for it, so that sound was lost. Any thread.
    virtual std::uint64_t overruns() const { return 0; }
};

/// What the machine's output plays where that can be recorded, else the default input; by PulseAudio, else by
/// ALSA. Takes as long as the sound server likes.
std::unique_ptr<SoundInput> openMachineInput(const std::shared_ptr<SoundTap>& tap);

}  // namespace melvane
