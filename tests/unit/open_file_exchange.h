#pragma once
#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <string>

namespace melvane::test {

/// What this process has open as `path` becomes another file, as when a medium is pulled out under it.
/// Whether it was open.
inline bool exchangeOpenFile(const std::string& path, const char* other, int flags) {
    namespace fs = std::filesystem;
    const int replacement = ::open(other, flags | O_CLOEXEC);
    bool isExchanged = false;
    for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
        std::error_code failed;
        if (!fs::equivalent(entry.path(), path, failed)) continue;
        isExchanged = dup2(replacement, std::stoi(entry.path().filename().string())) >= 0;
    }
    close(replacement);
    return isExchanged;
}

}  // namespace melvane::test
