#pragma once
#include <string>
#include <string_view>

namespace melvane {

/// In double quotes, inner quotes doubled.
inline std::string quoted(std::string_view text) {
    std::string result = "\"";
    for (const char letter : text) {
        if (letter == '"') result += '"';
        result += letter;
    }
    return result + '"';
}

}  // namespace melvane
