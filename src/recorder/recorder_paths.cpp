#include "recorder/recorder_paths.h"

#include <filesystem>

namespace melvane {

namespace fs = std::filesystem;

std::string fileNameOf(const std::string& path) { return fs::path(path).filename().string(); }

std::string endingOf(const std::string& path) {
    const std::string name = fileNameOf(path);
    const auto dot = name.rfind('.');
    return dot == std::string::npos ? std::string() : name.substr(dot);
}

std::string withOtherEnding(const std::string& path, std::string_view ending) {
    return path.substr(0, path.size() - endingOf(path).size()).append(ending);
}

bool isSamePath(const std::string& path, const std::string& other) {
    if (path == other) return true;
    std::error_code failed;
    return fs::equivalent(path, other, failed) && !failed;
}

void removeFile(const std::string& path) {
    std::error_code failed;
    if (fs::is_regular_file(path, failed)) fs::remove(path, failed);
}

bool moveFile(const std::string& from, const std::string& to) {
    std::error_code failed;
    fs::rename(from, to, failed);
    if (!failed) return true;
    if (!fs::copy_file(from, to, failed) || failed) {
        removeFile(to);
        return false;
    }
    fs::remove(from, failed);
    return true;
}

}  // namespace melvane
