#pragma once
#include <cstdint>

namespace melvane {

/// The sound of a file. Frames count from 0 at soundRate. User-interface thread.
class Playable {
 public:
    virtual ~Playable() = default;
    virtual std::int64_t length() const = 0;
    /// Sounds from `from` on and ends before `to`. While it is silent. False when it cannot sound now.
    virtual bool start(std::int64_t from, std::int64_t to) = 0;
    /// Silent from now on; position() stands still.
    virtual void halt() = 0;
    /// The frame that is heard; `to` once the end has been heard.
    virtual std::int64_t position() const = 0;
    /// Any thread.
    virtual void catchUp() {}
};

}  // namespace melvane
