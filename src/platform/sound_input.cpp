#include "platform/sound_input.h"

#include <atomic>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "platform/sound_stream.h"

namespace melvane {

namespace {

/// An input that brings what an output plays is listed under the output's name behind these words.
constexpr const char* monitorPrefix = "Monitor of ";

/// The monitor of the default output, else another monitor, else the default input.
std::optional<unsigned> chosenDevice(RtAudio& audio) {
    const unsigned count = audio.getDeviceCount();
    if (count == 0) return std::nullopt;
    const std::string wanted = monitorPrefix + audio.getDeviceInfo(audio.getDefaultOutputDevice()).name;
    std::optional<unsigned> anyMonitor;
    for (unsigned device = 0; device < count; ++device) {
        const RtAudio::DeviceInfo info = audio.getDeviceInfo(device);
        if (info.inputChannels == 0) continue;
        if (info.name == wanted) return device;
        if (info.name.starts_with(monitorPrefix)) anyMonitor = device;
    }
    if (anyMonitor) return anyMonitor;
    const unsigned usual = audio.getDefaultInputDevice();
    if (audio.getDeviceInfo(usual).inputChannels == 0) return std::nullopt;
    return usual;
}

class RtInput final : public SoundInput {
 public:
    explicit RtInput(std::shared_ptr<SoundTap> tap) : tap_(std::move(tap)) {}

    bool open() { return stream_.open(); }
    bool isLost() const override { return stream_.isLost(); }
    std::uint64_t overruns() const override { return overruns_; }

 private:
    void hear(const float* samples, unsigned frames, RtAudioStreamStatus status) {
        if ((status & RTAUDIO_INPUT_OVERFLOW) != 0) ++overruns_;
        tap_->hear(std::span(samples, frames * soundChannels), 0);
    }

    std::shared_ptr<SoundTap> tap_;
    std::atomic<std::uint64_t> overruns_{0};
    // Behind what its blocks need: it ends first.
    SoundStream stream_{{SoundStream::Way::records, 0, &chosenDevice,
                         [this](const float* samples, unsigned frames, RtAudioStreamStatus status) {
                             hear(samples, frames, status);
                         }}};
};

}  // namespace

std::unique_ptr<SoundInput> openMachineInput(const std::shared_ptr<SoundTap>& tap) {
    auto input = std::make_unique<RtInput>(tap);
    if (!input->open()) return nullptr;
    return input;
}

}  // namespace melvane
