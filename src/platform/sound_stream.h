#pragma once
#include <RtAudio.h>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace melvane {

/// One stream of the machine: 44.1 kHz, stereo, floats, in small blocks. Opening and closing belong to one
/// thread and may take as long as the sound server likes; the blocks come on a thread of the stream's own.
class SoundStream {
 public:
    enum class Way { plays, records };
    struct Use {
        Way way;
        RtAudioStreamFlags flags = 0;
        /// The device to be opened; nothing where there is none that fits. The thread that opens.
        std::function<std::optional<unsigned>(RtAudio&)> choose;
        /// Fills or hears a block of interleaved frames; the stream's thread.
        std::function<void(float* samples, unsigned frames, RtAudioStreamStatus)> block;
    };

    explicit SoundStream(Use use) : use_(std::move(use)) {}
    /// Stops and closes it; no block follows.
    ~SoundStream() { close(); }
    SoundStream(const SoundStream&) = delete;
    SoundStream& operator=(const SoundStream&) = delete;

    /// By PulseAudio, else by ALSA. Once.
    bool open();
    /// The device or its server has failed; no block will follow. Any thread.
    bool isLost() const { return lost_; }

 private:
    bool openWith(RtAudio::Api api);
    bool start(RtAudio::Api api);
    void close();
    static int callback(void* out, void* in, unsigned frames, double streamTime, RtAudioStreamStatus status,
                        void* self);

    Use use_;
    std::unique_ptr<RtAudio> audio_;
    std::atomic<bool> lost_{false};
};

}  // namespace melvane
