#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <span>

namespace melvane {

/// One open output stream of the machine: 44.1 kHz, stereo, floats. Opening and closing may take as long as
/// the sound server likes, so both belong to a thread that nobody waits for.
class SoundOutput {
 public:
    /// Fills the values; called on the output's own thread until the output is destroyed.
    using Fill = std::function<void(std::span<float> interleaved)>;
    /// Opens the machine's default output. Null when there is none.
    using Opener = std::function<std::unique_ptr<SoundOutput>(const Fill& fill)>;

    /// Stops and closes it.
    virtual ~SoundOutput() = default;
    /// The device or its server has failed; no block will follow. Any thread.
    virtual bool isLost() const = 0;
    /// Blocks asked for since it was opened. Any thread.
    virtual std::uint64_t blocks() const = 0;
};

/// The default output by PulseAudio, else by ALSA.
std::unique_ptr<SoundOutput> openMachineOutput(const SoundOutput::Fill& fill);

}  // namespace melvane
