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

std::string withEnding(std::string path, std::string_view ending) {
    if (!endsWithNoCase(path, ending)) path += ending;
    return path;
}

std::string answeredPath(std::string_view answer) {
    std::string path = trimmed(answer);
    if (!path.empty() && path.back() == '\0') path.pop_back();
    return path;
}

}  // namespace melvane
