#include "platform/sound_input.h"

#include <RtAudio.h>

#include <array>
#include <atomic>
#include <optional>
#include <string>
#include <utility>

#include "platform/sound_stream_errors.h"

namespace melvane {

namespace {

constexpr std::array apisInOrder = {RtAudio::LINUX_PULSE, RtAudio::LINUX_ALSA};
constexpr unsigned blockFrames = 256;
constexpr unsigned blockCount = 4;
constexpr int goOn = 0;
constexpr int abortStream = 2;

/// An input that brings what an output plays is listed under the output's name behind these words.
constexpr const char* monitorPrefix = "Monitor of ";

class RtInput final : public SoundInput {
 public:
    explicit RtInput(std::shared_ptr<SoundTap> tap) : tap_(std::move(tap)) {}
    ~RtInput() override;
    RtInput(const RtInput&) = delete;
    RtInput& operator=(const RtInput&) = delete;

    bool openWith(RtAudio::Api api);
    bool isLost() const override { return lost_; }
    std::uint64_t overruns() const override { return overruns_; }

 private:
    bool startStream(RtAudio::Api api);
    std::optional<unsigned> chosenDevice();
    static int callback(void* out, void* in, unsigned frames, double streamTime, RtAudioStreamStatus status,
                        void* self);

    std::shared_ptr<SoundTap> tap_;
    std::unique_ptr<RtAudio> audio_;
    std::atomic<bool> lost_{false};
    std::atomic<std::uint64_t> overruns_{0};
};

bool RtInput::openWith(RtAudio::Api api) {
    const ErrorsTo flag(lost_);
    try {
        return startStream(api) && !lost_;
    } catch (const RtAudioError&) {
        return false;
    }
}

/// The monitor of the default output, else another monitor, else the default input.
std::optional<unsigned> RtInput::chosenDevice() {
    const unsigned count = audio_->getDeviceCount();
    if (count == 0) return std::nullopt;
    const std::string wanted = monitorPrefix + audio_->getDeviceInfo(audio_->getDefaultOutputDevice()).name;
    std::optional<unsigned> anyMonitor;
    for (unsigned device = 0; device < count; ++device) {
        const RtAudio::DeviceInfo info = audio_->getDeviceInfo(device);
        if (info.inputChannels == 0) continue;
        if (info.name == wanted) return device;
        if (info.name.starts_with(monitorPrefix)) anyMonitor = device;
    }
    if (anyMonitor) return anyMonitor;
    const unsigned usual = audio_->getDefaultInputDevice();
    if (audio_->getDeviceInfo(usual).inputChannels == 0) return std::nullopt;
    return usual;
}

bool RtInput::startStream(RtAudio::Api api) {
    audio_ = std::make_unique<RtAudio>(api);
    audio_->showWarnings(false);
    const auto device = chosenDevice();
    if (!device) return false;
    RtAudio::StreamParameters parameters;
    parameters.deviceId = *device;
    parameters.nChannels = soundChannels;
    RtAudio::StreamOptions options;
    options.numberOfBuffers = blockCount;
    options.streamName = "Melvane";
    unsigned frames = blockFrames;
    audio_->openStream(nullptr, &parameters, RTAUDIO_FLOAT32, soundRate, &frames, &RtInput::callback, this,
                       &options, &noteStreamError);
    if (!audio_->isStreamOpen()) return false;
    audio_->startStream();
    return audio_->isStreamRunning();
}

RtInput::~RtInput() {
    const ErrorsTo flag(lost_);
    try {
        if (audio_ && audio_->isStreamRunning()) audio_->abortStream();
        audio_.reset();
    } catch (const RtAudioError&) {
        // The server died: there is nothing left to stop.
    }
}

int RtInput::callback(void*, void* in, unsigned frames, double, RtAudioStreamStatus status, void* self) {
    auto& input = *static_cast<RtInput*>(self);
    lostFlagOfThisThread = &input.lost_;
    if (input.lost_) return abortStream;
    if ((status & RTAUDIO_INPUT_OVERFLOW) != 0) ++input.overruns_;
    input.tap_->hear(std::span(static_cast<const float*>(in), frames * soundChannels), 0);
    return goOn;
}

}  // namespace

std::unique_ptr<SoundInput> openMachineInput(const std::shared_ptr<SoundTap>& tap) {
    for (const RtAudio::Api api : apisInOrder) {
        if (api == RtAudio::LINUX_ALSA && !hasAlsaDevice('c')) continue;
        auto input = std::make_unique<RtInput>(tap);
        if (input->openWith(api)) return input;
    }
    return nullptr;
}

}  // namespace melvane
