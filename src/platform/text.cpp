#include "platform/text.h"

#include <algorithm>

namespace melvane {

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return lower;
}

std::string trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

bool endsWithNoCase(std::string_view text, std::string_view ending) {
    return text.size() >= ending.size() &&
           lowerCase(text.substr(text.size() - ending.size())) == lowerCase(ending);
}

}  // namespace melvane
