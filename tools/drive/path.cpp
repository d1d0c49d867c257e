#include "drive/path.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "platform/text.h"

namespace melvane::drive {

namespace {

bool isNamePart(char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= '0' && letter <= '9') || letter == '_';
}

/// "(2)" or "(0, 5)"; nothing when a piece is no whole number.
std::optional<std::vector<int>> readIndices(std::string_view inside) {
    std::vector<int> indices;
    for (std::size_t start = 0; start <= inside.size();) {
        const std::size_t comma = std::min(inside.find(',', start), inside.size());
        const std::string piece = trimmed(inside.substr(start, comma - start));
        int index = 0;
        const auto [end, problem] = std::from_chars(piece.data(), piece.data() + piece.size(), index);
        if (problem != std::errc() || end != piece.data() + piece.size()) return std::nullopt;
        indices.push_back(index);
        start = comma + 1;
    }
    return indices;
}

constexpr std::array<std::pair<std::string_view, ControlPart>, 5> parts{{{"enabled", ControlPart::enabled},
                                                                         {"visible", ControlPart::visible},
                                                                         {"tip", ControlPart::tip},
                                                                         {"index", ControlPart::index},
                                                                         {"count", ControlPart::count}}};

}  // namespace

std::string Path::joinedNames() const {
    std::string joined;
    for (const std::string& name : names) joined += joined.empty() ? name : "." + name;
    return joined;
}

std::vector<int> Path::joinedIndices() const {
    std::vector<int> joined;
    for (const auto& some : indices) joined.insert(joined.end(), some.begin(), some.end());
    return joined;
}

std::optional<Path> parsePath(std::string_view text) {
    Path path;
    while (true) {
        std::size_t length = 0;
        while (length < text.size() && isNamePart(text[length])) ++length;
        if (length == 0) return std::nullopt;
        path.names.emplace_back(text.substr(0, length));
        path.indices.emplace_back();
        text.remove_prefix(length);
        if (text.starts_with('(')) {
            const std::size_t close = text.find(')');
            if (close == std::string_view::npos) return std::nullopt;
            auto indices = readIndices(text.substr(1, close - 1));
            if (!indices) return std::nullopt;
            path.indices.back() = std::move(*indices);
            text.remove_prefix(close + 1);
        }
        if (text.empty()) return path;
        if (!text.starts_with('.')) return std::nullopt;
        text.remove_prefix(1);
    }
}

std::optional<ControlPath> asControl(const Path& path) {
    const bool simple = path.names.size() >= 2 && path.names.size() <= 3 && path.indices[0].empty() &&
                        path.indices[1].size() <= 1;
    if (!simple) return std::nullopt;
    ControlPath control{path.names[0], path.names[1], std::nullopt, ControlPart::shown};
    if (!path.indices[1].empty()) control.index = path.indices[1][0];
    if (path.names.size() == 2) return control;
    for (const auto& [name, part] : parts) {
        if (lowerCase(path.names[2]) != name || !path.indices[2].empty()) continue;
        control.part = part;
        return control;
    }
    return std::nullopt;
}

}  // namespace melvane::drive
