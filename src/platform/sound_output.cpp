#include "platform/sound_output.h"

#include <RtAudio.h>

#include <array>
#include <atomic>
#include <filesystem>
#include <string>
#include <utility>

#include "platform/sound_source.h"

namespace melvane {

namespace {

constexpr std::array apisInOrder = {RtAudio::LINUX_PULSE, RtAudio::LINUX_ALSA};
constexpr unsigned blockFrames = 256;
constexpr unsigned blockCount = 4;
constexpr int goOn = 0;
constexpr int abortStream = 2;

// The library's error callback is given no object. It is called on the thread that met the error: the
// output's own, or the one that opens or closes it.
thread_local std::atomic<bool>* lostFlagOfThisThread = nullptr;

void noteError(RtAudioError::Type, const std::string&) {
    if (lostFlagOfThisThread) *lostFlagOfThisThread = true;
}

/// Errors met on this thread go to `flag` while this lives.
class ErrorsTo {
 public:
    explicit ErrorsTo(std::atomic<bool>& flag) : before_(std::exchange(lostFlagOfThisThread, &flag)) {}
    ~ErrorsTo() { lostFlagOfThisThread = before_; }
    ErrorsTo(const ErrorsTo&) = delete;
    ErrorsTo& operator=(const ErrorsTo&) = delete;

 private:
    std::atomic<bool>* before_;
};

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
                       &options, &noteError);
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

// ALSA prints a page of errors at each try on a machine without a card, so it is not even asked there.
bool hasAlsaPlayback() {
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator("/dev/snd", none)) {
        const std::string name = entry.path().filename().string();
        if (name.starts_with("pcm") && name.ends_with("p")) return true;
    }
    return false;
}

}  // namespace

std::unique_ptr<SoundOutput> openMachineOutput(const SoundOutput::Fill& fill) {
    for (const RtAudio::Api api : apisInOrder) {
        if (api == RtAudio::LINUX_ALSA && !hasAlsaPlayback()) continue;
        auto output = std::make_unique<RtOutput>(fill);
        if (output->openWith(api)) return output;
    }
    return nullptr;
}

}  // namespace melvane
