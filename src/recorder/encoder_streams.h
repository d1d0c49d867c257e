#pragma once
#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>

#include "recorder/encoder_settings.h"

namespace melvane {

/// What an operation on an encoder stream came to.
enum class EncoderError {
    none = 0,
    invalidFormat = 1,
    invalidParameters = 2,
    noMoreHandles = 3,
    invalidHandle = 4,
    bufferTooSmall = 5
};

/// In words; empty for what is none of them.
std::string errorText(EncoderError error);

/// MP3 streams, one by one under its handle: set up, fed with chunks of samples, flushed, closed.
class EncoderStreams {
 public:
    /// What the stream wants and gives for one chunk.
    struct Sizes {
        std::uint32_t samples = 0;      ///< 16-bit values of a full chunk, of all channels together
        std::uint32_t outputBytes = 0;  ///< room that the result of a chunk may need
    };

    EncoderStreams();
    virtual ~EncoderStreams();
    EncoderStreams(const EncoderStreams&) = delete;
    EncoderStreams& operator=(const EncoderStreams&) = delete;

    virtual EncoderError beInitStream(const BE_CONFIG& config, Sizes& sizes, std::uint32_t& handle);
    /// `samples` is interleaved where the stream has two channels; a half frame at its end is left out.
    /// `written` is how many bytes of `output` hold the result.
    virtual EncoderError beEncodeChunk(std::uint32_t handle, std::span<const std::int16_t> samples,
                                       std::span<unsigned char> output, std::uint32_t& written);
    /// What the encoder still holds. Nothing can be encoded after it.
    virtual EncoderError beDeinitStream(std::uint32_t handle, std::span<unsigned char> output,
                                        std::uint32_t& written);
    virtual EncoderError beCloseStream(std::uint32_t handle);

 private:
    class Stream;
    Stream* find(std::uint32_t handle) const;

    std::map<std::uint32_t, std::unique_ptr<Stream>> streams_;
    std::uint32_t lastHandle_ = 0;
};

}  // namespace melvane
