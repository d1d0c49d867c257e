#include "platform/sound_resampler.h"

#include <samplerate.h>

#include <algorithm>
#include <cmath>

namespace melvane {

namespace {

constexpr std::size_t framesAtOnce = 2048;

}  // namespace

struct Resampler::State {
    SRC_STATE* converter = nullptr;

    explicit State(int channels) {
        int error = 0;
        converter = src_new(SRC_SINC_MEDIUM_QUALITY, channels, &error);
    }
    ~State() {
        if (converter) src_delete(converter);
    }
    State(const State&) = delete;
    State& operator=(const State&) = delete;
};

std::unique_ptr<Resampler> Resampler::make(int fromRate, int toRate, int channels) {
    if (fromRate <= 0 || toRate <= 0) return nullptr;
    const double ratio = static_cast<double>(toRate) / fromRate;
    if (src_is_valid_ratio(ratio) == 0) return nullptr;
    auto state = std::make_unique<State>(channels);
    if (state->converter == nullptr) return nullptr;
    return std::unique_ptr<Resampler>(new Resampler(std::move(state), ratio, channels));
}

Resampler::Resampler(std::unique_ptr<State> state, double ratio, int channels)
    : state_(std::move(state)), ratio_(ratio), channels_(static_cast<std::size_t>(channels)) {}

Resampler::~Resampler() = default;

void Resampler::feed(std::span<const float> interleaved, bool isLast, std::vector<float>& resampled) {
    const std::size_t atOnce = framesAtOnce * channels_;
    const float silence = 0;
    SRC_DATA data{};
    fedFrames_ += interleaved.size() / channels_;
    data.src_ratio = ratio_;
    data.end_of_input = isLast ? 1 : 0;
    do {
        const std::size_t before = resampled.size();
        resampled.resize(before + atOnce);
        data.data_in = interleaved.empty() ? &silence : interleaved.data();
        data.input_frames = static_cast<long>(interleaved.size() / channels_);
        data.data_out = resampled.data() + before;
        data.output_frames = static_cast<long>(framesAtOnce);
        const bool failed = src_process(state_->converter, &data) != 0;
        if (failed) data.input_frames_used = data.output_frames_gen = 0;
        givenFrames_ += static_cast<std::size_t>(data.output_frames_gen);
        resampled.resize(before + static_cast<std::size_t>(data.output_frames_gen) * channels_);
        interleaved = interleaved.subspan(static_cast<std::size_t>(data.input_frames_used) * channels_);
    } while (data.output_frames_gen > 0 || (data.input_frames_used > 0 && !interleaved.empty()));
    if (!isLast) return;
    // The converter rounds up; the length is to be the nearest.
    const auto wanted = static_cast<std::size_t>(std::llround(static_cast<double>(fedFrames_) * ratio_));
    const std::size_t surplus =
        std::min(givenFrames_ - std::min(givenFrames_, wanted), resampled.size() / channels_);
    resampled.resize(resampled.size() - surplus * channels_);
    reset();
}

void Resampler::reset() {
    src_reset(state_->converter);
    fedFrames_ = givenFrames_ = 0;
}

}  // namespace melvane
