#pragma once
#include <optional>
#include <string>
#include <vector>

#include "core/studio.h"
#include "platform/event_loop.h"
#include "platform/raw_file.h"
#include "recorder/encoder_streams.h"

namespace melvane {

/// What the encoder refused to do, as it is passed up.
struct EncoderFailure {
    std::string source;  ///< who says so
    std::string text;
    bool operator==(const EncoderFailure&) const = default;
};

/// Encodes one file chunk by chunk into another, serving events after each chunk; EncodeCancel ends it early,
/// and what was made up to then is a whole stream. The first 44 bytes of the source are taken for a header
/// and the rest for 16-bit samples, whatever it is. As many bytes are encoded as the source has with its
/// header, so the last chunk ends in what the block held before.
class WavEncoder {
 public:
    WavEncoder(Studio& studio, EventLoop& loop, EncoderStreams& streams)
        : studio_(studio), loop_(loop), streams_(streams) {}

    struct Result {
        bool isWhole = false;                        ///< neither the encoder nor a target in the way ended it
        std::optional<EncoderFailure> failure = {};  ///< what ended it
        bool isWritten = true;  ///< the target holds all of it: it was not in the way, and the disk had room
        bool isRead = true;     ///< the source could be opened and read as far as was wanted
    };
    /// A target that exists is left alone. After a failure it stays as far as it was written; none is made of
    /// a source of which nothing can be read.
    Result encode(const std::string& source, const std::string& target, const BE_CONFIG& config);

    /// "42.70%".
    static std::string progressText(double done, double total);

 private:
    struct Job;
    EncoderError encodeChunks(Job& job);
    bool isCancelled() const;

    Studio& studio_;
    EventLoop& loop_;
    EncoderStreams& streams_;
};

}  // namespace melvane
