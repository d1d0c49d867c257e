#pragma once
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/audio_file_draft.h"
#include "platform/audio_file_sink.h"

namespace melvane {

/// Writes an MP3 file: 44.1 kHz, joint stereo, constant bit rate.
class Mp3Writer final : public AudioSink {
 public:
    /// `kilobitsPerSecond`: 192 unless another rate of MPEG-1 layer III (32 to 320) is wanted.
    explicit Mp3Writer(const std::string& path, int kilobitsPerSecond = 192);
    ~Mp3Writer() override;
    bool write(std::span<const float> interleaved) override;
    std::optional<std::string> finish() override;

 private:
    struct Encoder;
    bool fail(const std::string& reason);
    bool store(int encodedBytes);
    bool flush();
    bool rewriteInfoTag();

    FileDraft draft_;
    int descriptor_ = -1;
    std::unique_ptr<Encoder> encoder_;
    std::vector<std::int16_t> samples_;
    std::vector<unsigned char> encoded_;
    std::optional<std::string> failure_;
    bool finished_ = false;
};

}  // namespace melvane
