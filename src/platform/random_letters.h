#pragma once
#include <cstddef>
#include <random>
#include <string>
#include <string_view>

namespace melvane {

/// Letters and digits for a name that no file has yet. Any thread.
inline std::string randomLetters(std::size_t count) {
    constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz0123456789";
    std::random_device random;
    std::uniform_int_distribution<std::size_t> any(0, letters.size() - 1);
    std::string chosen;
    while (chosen.size() < count) chosen += letters[any(random)];
    return chosen;
}

}  // namespace melvane
