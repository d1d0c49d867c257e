#include "recorder/encoder_streams.h"

#include <algorithm>
#include <array>
#include <cstdarg>

#include <lame/lame.h>

namespace melvane {

namespace {

constexpr std::array<const char*, 6> texts{"No Error",        "Invalid format", "Invalid format parameters",
                                           "No more handles", "Invalid handle", "Buffer too small"};

constexpr std::size_t mostStreams = 16;
constexpr std::uint32_t outputSlack = 7200;  // bytes, over 1.25 a frame
constexpr int fastest = 9, finest = 2;

/// What a preset asks for besides the bit rate.
struct Preset {
    std::int32_t number;
    int quality;  ///< 0 best to 9 fastest; -1: as it is
    bool mono;
    int average;   ///< kilobits a second on the average; 0: none
    bool minimum;  ///< the bit rate asked for is the least
};

constexpr std::array<Preset, 9> presets{{{1, fastest, false, 0, false},
                                         {2, finest, false, 0, false},
                                         {3, -1, true, 56, false},
                                         {1000, -1, true, 16, true},
                                         {6000, -1, false, 112, true},
                                         {7000, -1, false, 112, true},
                                         {8000, -1, false, 160, true},
                                         {9000, -1, false, 192, true},
                                         {10000, -1, false, 256, true}}};

void sayNothing(const char*, va_list) {}

EncoderError errorOf(int encoderResult) {
    constexpr int bufferTooSmall = -1;
    if (encoderResult >= 0) return EncoderError::none;
    return encoderResult == bufferTooSmall ? EncoderError::bufferTooSmall : EncoderError::invalidParameters;
}

}  // namespace

std::string errorText(EncoderError error) {
    const auto code = static_cast<std::size_t>(error);
    return code < texts.size() ? texts[code] : std::string();
}

class EncoderStreams::Stream {
 public:
    Stream() = default;
    ~Stream() {
        if (lame_ != nullptr) lame_close(lame_);
    }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    bool exists() const { return lame_ != nullptr; }
    EncoderError setUp(const BE_CONFIG& config);
    Sizes sizes() const;
    EncoderError encode(std::span<const std::int16_t> samples, std::span<unsigned char> output,
                        std::uint32_t& written);
    EncoderError flush(std::span<unsigned char> output, std::uint32_t& written);

 private:
    void applyPreset(const BE_CONFIG& config);

    lame_t lame_ = lame_init();
    std::uint32_t channels_ = 2;  ///< of the samples given
    bool flushed_ = false;
};

EncoderError EncoderStreams::Stream::setUp(const BE_CONFIG& config) {
    if (config.dwConfig != BE_CONFIG::lameForm) return EncoderError::invalidFormat;
    if (config.dwSampleRate == 0 || config.nMode > encoder_mode::mono) return EncoderError::invalidParameters;
    lame_set_errorf(lame_, sayNothing);
    lame_set_msgf(lame_, sayNothing);
    lame_set_debugf(lame_, sayNothing);
    channels_ = config.nMode == encoder_mode::mono ? 1 : 2;
    lame_set_num_channels(lame_, static_cast<int>(channels_));
    lame_set_in_samplerate(lame_, static_cast<int>(config.dwSampleRate));
    lame_set_out_samplerate(lame_, static_cast<int>(config.dwReSampleRate));
    lame_set_mode(lame_, static_cast<MPEG_mode>(config.nMode));
    lame_set_brate(lame_, static_cast<int>(std::min<std::uint32_t>(config.dwBitrate, 320)));
    lame_set_bWriteVbrTag(lame_, 0);
    lame_set_original(lame_, config.bOriginal != 0 ? 1 : 0);
    lame_set_disable_reservoir(lame_, config.bNoRes != 0 ? 1 : 0);
    applyPreset(config);
    return lame_init_params(lame_) < 0 ? EncoderError::invalidParameters : EncoderError::none;
}

void EncoderStreams::Stream::applyPreset(const BE_CONFIG& config) {
    const auto found = std::ranges::find(presets, config.nPreset, &Preset::number);
    if (found == presets.end()) return;
    if (found->quality >= 0) lame_set_quality(lame_, found->quality);
    if (found->mono) lame_set_mode(lame_, MONO);
    if (found->average > 0) lame_set_preset(lame_, found->average);
    if (!found->minimum) return;
    lame_set_VBR(lame_, vbr_abr);
    lame_set_VBR_min_bitrate_kbps(lame_, static_cast<int>(std::min<std::uint32_t>(config.dwBitrate, 320)));
}

EncoderStreams::Sizes EncoderStreams::Stream::sizes() const {
    const auto frames = static_cast<std::uint32_t>(lame_get_framesize(lame_));
    return {frames * channels_, frames * 5 / 4 + outputSlack};
}

EncoderError EncoderStreams::Stream::encode(std::span<const std::int16_t> samples,
                                            std::span<unsigned char> output, std::uint32_t& written) {
    if (flushed_) return EncoderError::invalidHandle;
    const auto full = std::min<std::size_t>(samples.size(), sizes().samples);
    const int frames = static_cast<int>(full / channels_);
    // The library takes samples that may be changed, and leaves them as they are.
    auto* const values = const_cast<std::int16_t*>(samples.data());
    const int room = static_cast<int>(output.size());
    const int result = channels_ == 1
                           ? lame_encode_buffer(lame_, values, values, frames, output.data(), room)
                           : lame_encode_buffer_interleaved(lame_, values, frames, output.data(), room);
    if (result > 0) written = static_cast<std::uint32_t>(result);
    return errorOf(result);
}

EncoderError EncoderStreams::Stream::flush(std::span<unsigned char> output, std::uint32_t& written) {
    if (flushed_) return EncoderError::invalidHandle;
    flushed_ = true;
    const int result = lame_encode_flush(lame_, output.data(), static_cast<int>(output.size()));
    if (result > 0) written = static_cast<std::uint32_t>(result);
    return errorOf(result);
}

EncoderStreams::EncoderStreams() = default;
EncoderStreams::~EncoderStreams() = default;

EncoderStreams::Stream* EncoderStreams::find(std::uint32_t handle) const {
    const auto found = streams_.find(handle);
    return found == streams_.end() ? nullptr : found->second.get();
}

EncoderError EncoderStreams::beInitStream(const BE_CONFIG& config, Sizes& sizes, std::uint32_t& handle) {
    if (streams_.size() >= mostStreams) return EncoderError::noMoreHandles;
    auto stream = std::make_unique<Stream>();
    if (!stream->exists()) return EncoderError::noMoreHandles;
    const EncoderError error = stream->setUp(config);
    if (error != EncoderError::none) return error;
    sizes = stream->sizes();
    handle = ++lastHandle_;
    streams_[handle] = std::move(stream);
    return EncoderError::none;
}

EncoderError EncoderStreams::beEncodeChunk(std::uint32_t handle, std::span<const std::int16_t> samples,
                                           std::span<unsigned char> output, std::uint32_t& written) {
    written = 0;
    Stream* const stream = find(handle);
    return stream != nullptr ? stream->encode(samples, output, written) : EncoderError::invalidHandle;
}

EncoderError EncoderStreams::beDeinitStream(std::uint32_t handle, std::span<unsigned char> output,
                                            std::uint32_t& written) {
    written = 0;
    Stream* const stream = find(handle);
    return stream != nullptr ? stream->flush(output, written) : EncoderError::invalidHandle;
}

EncoderError EncoderStreams::beCloseStream(std::uint32_t handle) {
    return streams_.erase(handle) > 0 ? EncoderError::none : EncoderError::invalidHandle;
}

}  // namespace melvane
