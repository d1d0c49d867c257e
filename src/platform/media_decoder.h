#pragma once
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace melvane {

/// The sound that a file holds, at its own rate. One thread at a time.
class MediaDecoder {
 public:
    virtual ~MediaDecoder() = default;
    virtual int rate() const = 0;
    /// A guess, where count() is not over.
    virtual std::int64_t frames() const = 0;
    /// Reads through the file where that is needed to know how long it is. False when it is damaged.
    virtual bool count() { return true; }
    /// False when the place cannot be reached.
    virtual bool seek(std::int64_t frame) = 0;
    /// Fills `stereo` from its start with the next frames; how many. 0 at the end and where damage begins.
    virtual std::size_t read(std::span<float> stereo) = 0;
};

/// A WAV file, or another that holds samples. Null when it is none.
std::unique_ptr<MediaDecoder> openSampleFile(const std::string& path);
/// An MP3 file. Null when no frame is found at its start.
std::unique_ptr<MediaDecoder> openMp3File(const std::string& path);

/// Tells by the content; only what has none of the usual starts is tried as MP3 for its name's sake. Null
/// when it is not there, damaged, or of a format that is not known.
std::unique_ptr<MediaDecoder> openSoundFile(const std::string& path);

}  // namespace melvane
