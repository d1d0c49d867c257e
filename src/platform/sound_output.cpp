#include "platform/sound_output.h"

#include <RtAudio.h>

#include <array>
#include <atomic>
#include <utility>

#include "platform/sound_source.h"
#include "platform/sound_stream_errors.h"

namespace melvane {

namespace {

constexpr std::array apisInOrder = {RtAudio::LINUX_PULSE, RtAudio::LINUX_ALSA};
constexpr unsigned blockFrames = 256;
constexpr unsigned blockCount = 4;
constexpr int goOn = 0;
constexpr int abortStream = 2;

class RtOutput final : public SoundOutput {
 public:
    explicit RtOutput(Fill fill) : fill_(std::move(fill)) {}
    ~RtOutput() override;
    RtOutput(const RtOutput&) = delete;
    RtOutput& operator=(const RtOutput&) = delete;

    bool openWith(RtAudio::Api api);
    bool isLost() const override { return lost_; }
    std::uint64_t blocks() const override { return blocks_; }

 private:
    bool startStream(RtAudio::Api api);
    static int callback(void* out, void* in, unsigned frames, double streamTime, RtAudioStreamStatus status,
                        void* self);

    Fill fill_;
    std::unique_ptr<RtAudio> audio_;
    std::atomic<bool> lost_{false};
    std::atomic<std::uint64_t> blocks_{0};
};

bool RtOutput::openWith(RtAudio::Api api) {
    const ErrorsTo flag(lost_);
    try {
        return startStream(api) && !lost_;
    } catch (const RtAudioError&) {
        return false;
    }
}

bool RtOutput::startStream(RtAudio::Api api) {
    audio_ = std::make_unique<RtAudio>(api);
    audio_->showWarnings(false);
    if (audio_->getDeviceCount() == 0) return false;

    RtAudio::StreamParameters parameters;
    parameters.deviceId = audio_->getDefaultOutputDevice();
    parameters.nChannels = soundChannels;
    RtAudio::StreamOptions options;
    options.flags = RTAUDIO_MINIMIZE_LATENCY | RTAUDIO_ALSA_USE_DEFAULT;
    options.numberOfBuffers = blockCount;
    options.streamName = "Melvane";
    unsigned frames = blockFrames;
    audio_->openStream(&parameters, nullptr, RTAUDIO_FLOAT32, soundRate, &frames, &RtOutput::callback, this,
                       &options, &noteStreamError);
    if (!audio_->isStreamOpen()) return false;
    audio_->startStream();
    return audio_->isStreamRunning();
}

RtOutput::~RtOutput() {
    const ErrorsTo flag(lost_);
    try {
        // Not stopStream(): it plays the buffer to its end, and a server that hangs never gets there.
        if (audio_ && audio_->isStreamRunning()) audio_->abortStream();
        audio_.reset();
    } catch (const RtAudioError&) {
        // The server died: there is nothing left to stop.
    }
}

int RtOutput::callback(void* out, void*, unsigned frames, double, RtAudioStreamStatus, void* self) {
    auto& output = *static_cast<RtOutput*>(self);
    lostFlagOfThisThread = &output.lost_;
    // A failed write returns at once; going on would spin.
    if (output.lost_) return abortStream;
    output.fill_(std::span(static_cast<float*>(out), frames * soundChannels));
    ++output.blocks_;
    return goOn;
}

}  // namespace

std::unique_ptr<SoundOutput> openMachineOutput(const SoundOutput::Fill& fill) {
    for (const RtAudio::Api api : apisInOrder) {
        if (api == RtAudio::LINUX_ALSA && !hasAlsaDevice('p')) continue;
        auto output = std::make_unique<RtOutput>(fill);
        if (output->openWith(api)) return output;
    }
    return nullptr;
}

}  // namespace melvane
