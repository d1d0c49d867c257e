#include "platform/sound_stream.h"

#include <array>
#include <filesystem>
#include <string>
#include <system_error>
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
// stream's own, or the one that opens or closes it.
thread_local std::atomic<bool>* lostFlagOfThisThread = nullptr;

void noteStreamError(RtAudioError::Type, const std::string&) {
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

/// ALSA prints a page of errors at each try on a machine without a card, so it is asked only where there is
/// one that plays or records.
bool hasAlsaDevice(SoundStream::Way way) {
    const char direction = way == SoundStream::Way::plays ? 'p' : 'c';
    std::error_code failed;
    for (std::filesystem::directory_iterator entry("/dev/snd", failed), end; !failed && entry != end;
         entry.increment(failed)) {
        const std::string name = entry->path().filename().string();
        if (name.starts_with("pcm") && name.ends_with(direction)) return true;
    }
    return false;
}

}  // namespace

bool SoundStream::open() {
    for (const RtAudio::Api api : apisInOrder) {
        if (api == RtAudio::LINUX_ALSA && !hasAlsaDevice(use_.way)) continue;
        if (openWith(api)) return true;
        close();
        lost_ = false;
    }
    return false;
}

bool SoundStream::openWith(RtAudio::Api api) {
    const ErrorsTo flag(lost_);
    try {
        return start(api) && !lost_;
    } catch (const RtAudioError&) {
        return false;
    }
}

bool SoundStream::start(RtAudio::Api api) {
    audio_ = std::make_unique<RtAudio>(api);
    audio_->showWarnings(false);
    const auto device = use_.choose(*audio_);
    if (!device) return false;
    RtAudio::StreamParameters parameters;
    parameters.deviceId = *device;
    parameters.nChannels = soundChannels;
    RtAudio::StreamOptions options;
    options.flags = use_.flags;
    options.numberOfBuffers = blockCount;
    options.streamName = "Melvane";
    const bool plays = use_.way == Way::plays;
    unsigned frames = blockFrames;
    audio_->openStream(plays ? &parameters : nullptr, plays ? nullptr : &parameters, RTAUDIO_FLOAT32,
                       soundRate, &frames, &SoundStream::callback, this, &options, &noteStreamError);
    if (!audio_->isStreamOpen()) return false;
    audio_->startStream();
    return audio_->isStreamRunning();
}

void SoundStream::close() {
    const ErrorsTo flag(lost_);
    try {
        // Not stopStream(): it plays the buffer to its end, and a server that hangs never gets there.
        if (audio_ && audio_->isStreamRunning()) audio_->abortStream();
        audio_.reset();
    } catch (const RtAudioError&) {
        // The server died: there is nothing left to stop.
    }
}

int SoundStream::callback(void* out, void* in, unsigned frames, double, RtAudioStreamStatus status,
                          void* self) {
    auto& stream = *static_cast<SoundStream*>(self);
    lostFlagOfThisThread = &stream.lost_;
    // A failed write returns at once; going on would spin.
    if (stream.lost_) return abortStream;
    const bool plays = stream.use_.way == Way::plays;
    stream.use_.block(static_cast<float*>(plays ? out : in), frames, status);
    return goOn;
}

}  // namespace melvane
