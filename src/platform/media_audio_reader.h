#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/media_decoder.h"
#include "platform/sound_resampler.h"

namespace melvane {

/// Reads the sound of a WAV or MP3 file piece by piece, as stereo at soundRate. Damage ends it; what is no
/// number is silence, and what is louder than full is clipped. One thread at a time.
class AudioReader {
 public:
    /// Null when the file is not there, damaged, or of a format that is not known. The length of an MP3 file
    /// is counted; `guessed` is told before that how long it may be, in frames at soundRate.
    static std::unique_ptr<AudioReader> open(const std::string& path,
                                             const std::function<void(std::int64_t)>& guessed = {});
    ~AudioReader();
    AudioReader(const AudioReader&) = delete;
    AudioReader& operator=(const AudioReader&) = delete;

    /// Frames at soundRate.
    std::int64_t length() const;
    /// Goes to a frame at soundRate. What cannot be reached is the end.
    void seek(std::int64_t frame);
    /// Appends the next frames to `stereo`, some hundreds or thousands. False at the end.
    bool read(std::vector<float>& stereo);

 private:
    explicit AudioReader(std::unique_ptr<MediaDecoder> decoder);

    std::unique_ptr<MediaDecoder> decoder_;
    std::unique_ptr<Resampler> resampler_;  ///< null at soundRate
    std::vector<float> read_;
    bool hasEnded_ = false;
};

}  // namespace melvane
