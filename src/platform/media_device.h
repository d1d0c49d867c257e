#pragma once
#include <string>

namespace melvane {

/// Capture and file playback by text commands ("record capture", "status audiomp3 position").
/// User-interface thread. No command waits for sound; opening a file may take 40 ms, opening and closing the
/// sound input a second.
class MediaDevice {
 public:
    struct Answer {
        int code = 0;      ///< 0 when the command was carried out
        std::string text;  ///< the answer to a question, or what went wrong
        bool operator==(const Answer&) const = default;
    };

    virtual ~MediaDevice() = default;
    /// One command, read without regard to case.
    virtual Answer send(const std::string& command) = 0;
};

}  // namespace melvane
