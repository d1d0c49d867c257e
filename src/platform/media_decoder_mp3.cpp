#include <mpg123.h>

#include <algorithm>

#include "platform/media_decoder.h"

namespace melvane {

namespace {

// Small frames borrow from many before them; without those the first sound after a seek would be missing.
constexpr long framesAhead = 32;

struct DeleteHandle {
    void operator()(mpg123_handle* handle) const { mpg123_delete(handle); }
};

class Mp3File final : public MediaDecoder {
 public:
    /// False when it is no MP3 file.
    bool open(const std::string& path);
    int rate() const override { return static_cast<int>(rate_); }
    std::int64_t frames() const override { return frames_; }
    bool count() override;
    bool seek(std::int64_t frame) override { return mpg123_seek(handle_.get(), frame, SEEK_SET) >= 0; }
    std::size_t read(std::span<float> stereo) override;

 private:
    std::unique_ptr<mpg123_handle, DeleteHandle> handle_{mpg123_new(nullptr, nullptr)};
    long rate_ = 0;
    std::int64_t frames_ = 0;
};

/// Two channels of floats at whatever rate the file has.
bool askForStereo(mpg123_handle* handle) {
    const long* rates = nullptr;
    std::size_t count = 0;
    mpg123_rates(&rates, &count);
    bool done = mpg123_param(handle, MPG123_ADD_FLAGS, MPG123_QUIET, 0) == MPG123_OK &&
                mpg123_param(handle, MPG123_PREFRAMES, framesAhead, 0) == MPG123_OK &&
                mpg123_format_none(handle) == MPG123_OK;
    for (const long rate : std::span(rates, count)) {
        done = done && mpg123_format(handle, rate, MPG123_STEREO, MPG123_ENC_FLOAT_32) == MPG123_OK;
    }
    return done;
}

bool Mp3File::open(const std::string& path) {
    mpg123_handle* const handle = handle_.get();
    int channels = 0, encoding = 0;
    if (handle == nullptr || !askForStereo(handle) || mpg123_open(handle, path.c_str()) != MPG123_OK ||
        mpg123_getformat(handle, &rate_, &channels, &encoding) != MPG123_OK) {
        return false;
    }
    frames_ = std::max<std::int64_t>(mpg123_length(handle), 0);
    return rate_ > 0;
}

// Without it the length of a file with a varying bit rate and no table of contents is a guess.
bool Mp3File::count() {
    if (mpg123_scan(handle_.get()) != MPG123_OK) return false;
    frames_ = std::max<std::int64_t>(mpg123_length(handle_.get()), 0);
    return true;
}

std::size_t Mp3File::read(std::span<float> stereo) {
    std::size_t bytes = 0;
    int result = MPG123_NEW_FORMAT;
    // The format is told again before the first sound and nothing else comes with it.
    for (int turn = 0; turn < 2 && bytes == 0 && result == MPG123_NEW_FORMAT; ++turn) {
        result = mpg123_read(handle_.get(), stereo.data(), stereo.size_bytes(), &bytes);
    }
    return bytes / sizeof(float) / 2;
}

}  // namespace

std::unique_ptr<MediaDecoder> openMp3File(const std::string& path) {
    auto file = std::make_unique<Mp3File>();
    return file->open(path) ? std::move(file) : nullptr;
}

}  // namespace melvane
