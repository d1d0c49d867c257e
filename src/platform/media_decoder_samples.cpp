#include <fcntl.h>
#include <sndfile.h>
#include <unistd.h>

#include <algorithm>
#include <vector>

#include "platform/media_decoder.h"

namespace melvane {

namespace {

class SampleFile final : public MediaDecoder {
 public:
    // By descriptor, so that the library goes by the content and not by the name.
    explicit SampleFile(const std::string& path) {
        const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        if (descriptor >= 0) handle_ = sf_open_fd(descriptor, SFM_READ, &info_, SF_TRUE);
    }
    ~SampleFile() override {
        if (handle_) sf_close(handle_);
    }
    SampleFile(const SampleFile&) = delete;
    SampleFile& operator=(const SampleFile&) = delete;

    bool isUsable() const {
        return handle_ != nullptr && info_.channels > 0 && info_.frames >= 0 && info_.samplerate > 0;
    }
    int rate() const override { return info_.samplerate; }
    std::int64_t frames() const override { return info_.frames; }
    bool seek(std::int64_t frame) override { return sf_seek(handle_, frame, SEEK_SET) >= 0; }
    std::size_t read(std::span<float> stereo) override;

 private:
    SF_INFO info_{};
    SNDFILE* handle_ = nullptr;
    std::vector<float> read_;
};

/// The first two channels; one channel is heard on both sides.
std::size_t SampleFile::read(std::span<float> stereo) {
    constexpr std::size_t mostValues = 65'536;
    const auto channels = static_cast<std::size_t>(info_.channels);
    const std::size_t wanted = std::min(stereo.size() / 2, std::max<std::size_t>(1, mostValues / channels));
    read_.resize(wanted * channels);
    const auto count = sf_readf_float(handle_, read_.data(), static_cast<sf_count_t>(wanted));
    const auto frames = static_cast<std::size_t>(std::max<sf_count_t>(count, 0));
    for (std::size_t frame = 0; frame < frames; ++frame) {
        stereo[2 * frame] = read_[frame * channels];
        stereo[2 * frame + 1] = read_[frame * channels + (channels > 1 ? 1 : 0)];
    }
    return frames;
}

}  // namespace

std::unique_ptr<MediaDecoder> openSampleFile(const std::string& path) {
    auto file = std::make_unique<SampleFile>(path);
    return file->isUsable() ? std::move(file) : nullptr;
}

}  // namespace melvane
