#pragma once
#include <string>

namespace melvane {

/// A path as commands and fields have it: where the system has short forms of paths, without blanks, that
/// form; else the path itself. An empty text when nothing lies there.
std::string shortPath(const std::string& path);

}  // namespace melvane
