#pragma once
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/audio_file_sink.h"

namespace melvane {

/// Passes everything on and remembers how loud it was and whether it arrived.
class LevelSink final : public AudioSink {
 public:
    explicit LevelSink(AudioSink& next) : next_(next) {}

    bool write(std::span<const float> interleaved) override {
        for (const float value : interleaved) peak_ = std::max(peak_, std::abs(value));
        works_ = works_ && next_.write(interleaved);
        return works_;
    }
    std::optional<std::string> finish() override { return next_.finish(); }

    /// The highest absolute value since the last call.
    float takePeak() { return std::exchange(peak_, 0.0F); }
    bool works() const { return works_; }

 private:
    AudioSink& next_;
    float peak_ = 0;
    bool works_ = true;
};

}  // namespace melvane
