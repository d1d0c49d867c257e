#include "platform/audio_file_wav_writer.h"

#include <sndfile.h>

#include <utility>

#include "platform/audio_file_samples.h"
#include "platform/sound_source.h"

namespace melvane {

struct WavWriter::Handle {
    SNDFILE* file = nullptr;
    explicit Handle(SNDFILE* opened) : file(opened) {}
    ~Handle() {
        if (file) sf_close(file);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
};

WavWriter::WavWriter(const std::string& path) : draft_(path) {
    const int descriptor = draft_.open();
    if (descriptor < 0) {
        failure_ = draft_.failure(lastSystemError());
        return;
    }
    SF_INFO format{};
    format.samplerate = soundRate;
    format.channels = static_cast<int>(soundChannels);
    format.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    SNDFILE* file = sf_open_fd(descriptor, SFM_WRITE, &format, SF_FALSE);
    if (file == nullptr) {
        failure_ = draft_.failure(sf_strerror(nullptr));
        return;
    }
    handle_ = std::make_unique<Handle>(file);
}

WavWriter::~WavWriter() = default;

bool WavWriter::fail(const std::string& reason) {
    failure_ = draft_.failure(reason);
    handle_.reset();
    return false;
}

bool WavWriter::write(std::span<const float> interleaved) {
    if (failure_ || finished_) return false;
    samples_.clear();
    appendSamples(interleaved, samples_);
    const auto count = static_cast<sf_count_t>(samples_.size());
    if (sf_write_short(handle_->file, samples_.data(), count) != count)
        return fail(sf_strerror(handle_->file));
    return true;
}

std::optional<std::string> WavWriter::finish() {
    if (finished_ || failure_) return failure_;
    finished_ = true;
    SNDFILE* file = std::exchange(handle_->file, nullptr);
    const int result = sf_close(file);
    handle_.reset();
    failure_ = result == 0 ? draft_.complete() : draft_.failure(sf_error_number(result));
    return failure_;
}

}  // namespace melvane
