#pragma once
#include <optional>
#include <span>
#include <string>

namespace melvane {

/// Where rendered sound goes. One thread. After the first failure everything more is ignored, and finish()
/// says what went wrong.
class AudioSink {
 public:
    virtual ~AudioSink() = default;
    /// `interleaved`: stereo frames at soundRate, nominally -1 to 1; what lies outside is clipped. False: it
    /// failed.
    virtual bool write(std::span<const float> interleaved) = 0;
    /// Completes the file. One line that says what failed; no value when the file is complete. Only the first
    /// call counts; a sink that is destroyed without it leaves nothing behind.
    virtual std::optional<std::string> finish() = 0;
};

}  // namespace melvane
