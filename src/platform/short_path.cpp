#include "platform/short_path.h"

#ifdef _WIN32
#include <windows.h>

#include <array>
#else
#include <filesystem>
#endif

namespace melvane {

#ifdef _WIN32

std::string shortPath(const std::string& path) {
    std::array<char, 255> form{};
    const DWORD length = GetShortPathNameA(path.c_str(), form.data(), static_cast<DWORD>(form.size()));
    return length < form.size() ? std::string(form.data(), length) : std::string();
}

#else

std::string shortPath(const std::string& path) {
    std::error_code failed;
    return !path.empty() && std::filesystem::exists(path, failed) ? path : std::string();
}

#endif

}  // namespace melvane
