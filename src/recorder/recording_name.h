#pragma once
#include <cstdint>
#include <string>

namespace melvane {

/// The made-up names of recordings: a number from 1 to 99999.
class RecordingName {
 public:
    /// The name of the next recording in `folder`. `moment` is what the clock says; two names in a row
    /// differ, within one tick too.
    std::string next(const std::string& folder, std::int64_t moment);

 private:
    std::uint32_t names_ = 0;
    int last_ = 0;
};

}  // namespace melvane
