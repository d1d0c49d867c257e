#include "platform/sound_output.h"

#include <atomic>
#include <optional>
#include <span>
#include <utility>

#include "platform/sound_source.h"
#include "platform/sound_stream.h"

namespace melvane {

namespace {

class RtOutput final : public SoundOutput {
 public:
    explicit RtOutput(Fill fill) : fill_(std::move(fill)) {}

    bool open() { return stream_.open(); }
    bool isLost() const override { return stream_.isLost(); }
    std::uint64_t blocks() const override { return blocks_; }

 private:
    static std::optional<unsigned> chosenDevice(RtAudio& audio) {
        if (audio.getDeviceCount() == 0) return std::nullopt;
        return audio.getDefaultOutputDevice();
    }
    void fill(float* samples, unsigned frames) {
        fill_(std::span(samples, frames * soundChannels));
        ++blocks_;
    }

    Fill fill_;
    std::atomic<std::uint64_t> blocks_{0};
    // Behind what its blocks need: it ends first.
    SoundStream stream_{{SoundStream::Way::plays, RTAUDIO_MINIMIZE_LATENCY | RTAUDIO_ALSA_USE_DEFAULT,
                         &RtOutput::chosenDevice,
                         [this](float* samples, unsigned frames, auto) { fill(samples, frames); }}};
};

}  // namespace

std::unique_ptr<SoundOutput> openMachineOutput(const SoundOutput::Fill& fill) {
    auto output = std::make_unique<RtOutput>(fill);
    if (!output->open()) return nullptr;
    return output;
}

}  // namespace melvane
