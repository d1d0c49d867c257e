#pragma once
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/audio_file_draft.h"
#include "platform/audio_file_sink.h"

namespace melvane {

/// Writes a WAV file: 16 bits, 44.1 kHz, stereo, with the plain header of 44 bytes.
class WavWriter final : public AudioSink {
 public:
    explicit WavWriter(const std::string& path);
    ~WavWriter() override;
    bool write(std::span<const float> interleaved) override;
    std::optional<std::string> finish() override;

 private:
    struct Handle;
    bool fail(const std::string& reason);

    FileDraft draft_;
    std::unique_ptr<Handle> handle_;
    std::vector<std::int16_t> samples_;
    std::optional<std::string> failure_;
    bool finished_ = false;
};

}  // namespace melvane
