#include "platform/audio_file_mp3_writer.h"

#include <lame/lame.h>
#include <unistd.h>

#include <algorithm>

#include "platform/audio_file_samples.h"
#include "platform/descriptor.h"
#include "platform/sound_source.h"

namespace melvane {

namespace {

// 0 is the slowest and best, 9 the fastest.
constexpr int encoderQuality = 2;
// The encoder's own bound for what one call may give: 1.25 bytes a frame and this much more.
constexpr std::size_t encoderSlack = 7200;

std::string reasonOf(int encoderResult) {
    switch (encoderResult) {
        case -1:
            return "the encoder's buffer is too small";
        case -2:
            return "the encoder has no memory";
        default:
            return "the encoder failed with code " + std::to_string(encoderResult);
    }
}

}  // namespace

struct Mp3Writer::Encoder {
    lame_t lame = lame_init();

    Encoder() = default;
    ~Encoder() { lame_close(lame); }
    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;

    bool setUp(int kilobitsPerSecond) const {
        return lame != nullptr && lame_set_in_samplerate(lame, soundRate) >= 0 &&
               lame_set_out_samplerate(lame, soundRate) >= 0 &&
               lame_set_num_channels(lame, static_cast<int>(soundChannels)) >= 0 &&
               lame_set_mode(lame, JOINT_STEREO) >= 0 && lame_set_quality(lame, encoderQuality) >= 0 &&
               lame_set_brate(lame, kilobitsPerSecond) >= 0 && lame_init_params(lame) >= 0;
    }
};

Mp3Writer::Mp3Writer(const std::string& path, int kilobitsPerSecond) : draft_(path) {
    descriptor_ = draft_.open();
    if (descriptor_ < 0) {
        failure_ = draft_.failure(lastSystemError());
        return;
    }
    encoder_ = std::make_unique<Encoder>();
    if (!encoder_->setUp(kilobitsPerSecond)) fail("the encoder refuses its settings");
}

Mp3Writer::~Mp3Writer() = default;

bool Mp3Writer::fail(const std::string& reason) {
    failure_ = draft_.failure(reason);
    encoder_.reset();
    return false;
}

bool Mp3Writer::store(int encodedBytes) {
    if (encodedBytes < 0) return fail(reasonOf(encodedBytes));
    const std::string_view bytes(reinterpret_cast<const char*>(encoded_.data()),
                                 static_cast<std::size_t>(encodedBytes));
    return writeAll(descriptor_, bytes) || fail(lastSystemError());
}

bool Mp3Writer::write(std::span<const float> interleaved) {
    if (failure_ || finished_) return false;
    samples_.clear();
    appendSamples(interleaved, samples_);
    const std::size_t frames = samples_.size() / soundChannels;
    encoded_.resize(std::max(encoded_.size(), frames + frames / 4 + 1 + encoderSlack));
    return store(lame_encode_buffer_interleaved(encoder_->lame, samples_.data(), static_cast<int>(frames),
                                                encoded_.data(), static_cast<int>(encoded_.size())));
}

bool Mp3Writer::flush() {
    encoded_.resize(std::max(encoded_.size(), encoderSlack));
    return store(lame_encode_flush(encoder_->lame, encoded_.data(), static_cast<int>(encoded_.size())));
}

// The first frame holds the length of the whole, which is known only now.
bool Mp3Writer::rewriteInfoTag() {
    const std::size_t size = lame_get_lametag_frame(encoder_->lame, encoded_.data(), encoded_.size());
    if (size == 0) return true;
    if (size > encoded_.size()) return fail(reasonOf(-1));
    if (lseek(descriptor_, 0, SEEK_SET) != 0) return fail(lastSystemError());
    return store(static_cast<int>(size));
}

std::optional<std::string> Mp3Writer::finish() {
    if (finished_ || failure_) return failure_;
    finished_ = true;
    if (flush() && rewriteInfoTag()) failure_ = draft_.complete();
    encoder_.reset();
    return failure_;
}

}  // namespace melvane
