#pragma once
#include <string>
#include <variant>

namespace melvane {

/// A 16-bit flag of the design, which reads as -1 and 0; a returned Boolean, by contrast, reads as true and
/// false.
struct Flag {
    bool on = false;
    bool operator==(const Flag&) const = default;
};

/// What a name of the program can hold or an operation can take and return.
using Value = std::variant<std::monostate, Flag, bool, long long, double, std::string>;

}  // namespace melvane
