#pragma once
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace melvane::layering {

/// The includes of one source file, as they are written.
struct Includes {
    std::vector<std::string> own;     ///< in double quotes
    std::vector<std::string> system;  ///< in angle brackets
    bool operator==(const Includes&) const = default;
};

/// The .h and .cpp files of a tree by their path from its root, with forward slashes.
using SourceTree = std::map<std::string, Includes>;

/// Reads the includes of a text. Lines of a comment that begin with "//" are passed over.
Includes includesOf(const std::string& text);

/// The sources below each of `folders` of the project.
SourceTree readTree(const std::filesystem::path& project, const std::vector<std::string>& folders);

}  // namespace melvane::layering
