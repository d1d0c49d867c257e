#pragma once
#include <memory>
#include <span>
#include <vector>

namespace melvane {

/// Brings a stream of sound from one rate to another, piece by piece: nothing but what lies within nine
/// tenths of the lower rate's band is left. One thread.
class Resampler {
 public:
    /// Frames a second; channels 1 or 2. Null when the rates lie more than 256 times apart.
    static std::unique_ptr<Resampler> make(int fromRate, int toRate, int channels);
    ~Resampler();
    Resampler(const Resampler&) = delete;
    Resampler& operator=(const Resampler&) = delete;

    /// Appends to `resampled` what has become certain by these whole frames. With the last piece, which may
    /// be empty, the rest comes too, so that the length is kept to the nearest frame, and the next one begins
    /// a new stream.
    void feed(std::span<const float> interleaved, bool isLast, std::vector<float>& resampled);
    /// The next piece begins a new stream.
    void reset();

 private:
    struct State;
    Resampler(std::unique_ptr<State> state, double ratio, int channels);

    std::unique_ptr<State> state_;
    const double ratio_;
    const std::size_t channels_;
    std::size_t fedFrames_ = 0, givenFrames_ = 0;  ///< of the current stream
};

}  // namespace melvane
