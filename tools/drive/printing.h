#pragma once
#include <ostream>
#include <string>
#include <vector>

#include "core/values.h"

namespace melvane::drive {

/// Text in double quotes, flags as -1 and 0, Booleans as true and false, decimals in the shortest form that
/// reads back.
std::string shownValue(const Value& value);

/// The lines of a script's output, each sent on at once. After a failure nothing more is printed.
class Output {
 public:
    explicit Output(std::ostream& stream) : stream_(stream) {}
    void line(const std::string& text);
    void lines(const std::vector<std::string>& texts);
    /// The run has failed; `text` is the last line.
    void fail(const std::string& text);
    bool failed() const { return failed_; }

 private:
    std::ostream& stream_;
    bool failed_ = false;
};

}  // namespace melvane::drive
