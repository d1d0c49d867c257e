#pragma once
#include <filesystem>
#include <string>

namespace melvane {

/// A path of bytes as the system has them; on Windows UTF-8, which a path does not take for granted.
inline std::filesystem::path systemPath(const std::string& path) {
#ifdef _WIN32
    return {std::u8string(path.begin(), path.end())};
#else
    return {path};
#endif
}

}  // namespace melvane
