#include "platform/directories.h"

#include <cstdlib>
#include <string>
#include <system_error>

#include <unistd.h>

namespace melvane {

namespace fs = std::filesystem;

namespace {

/// Rights alone do not tell: the disk may be read-only, or the folder a shared one. So a file is really made.
bool canMakeFiles(const fs::path& folder) {
    std::string name = (folder / ".melvane-XXXXXX").string();
    const int descriptor = mkstemp(name.data());
    if (descriptor < 0) return false;
    close(descriptor);
    unlink(name.c_str());
    return true;
}

}  // namespace

Directories chooseDirectories(const fs::path& executableFolder, const fs::path& userData) {
    std::error_code failed;
    const fs::path installed = (executableFolder / ".." / "share" / "melvane").lexically_normal();
    const bool isInstalled = fs::is_directory(installed, failed);
    const bool beside = !isInstalled && canMakeFiles(executableFolder);
    if (!beside) fs::create_directories(userData, failed);
    return {beside ? executableFolder : userData, isInstalled ? installed : executableFolder / "resources"};
}

}  // namespace melvane
