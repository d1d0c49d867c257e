#include "recorder/recorder_paths.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <vector>

#include "platform/audio_file_draft.h"
#include "platform/descriptor.h"

namespace melvane {

namespace fs = std::filesystem;

namespace {

bool copyBytes(std::ifstream& source, int descriptor) {
    constexpr std::size_t blockSize = 65536;
    std::vector<char> block(blockSize);
    for (std::uint64_t place = 0; source;) {
        source.read(block.data(), static_cast<std::streamsize>(block.size()));
        const auto count = static_cast<std::size_t>(source.gcount());
        if (writeAt(descriptor, {block.data(), count}, place) != count) return false;
        place += count;
    }
    return !source.bad();
}

}  // namespace

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

bool copyFile(const std::string& from, const std::string& to) {
    std::ifstream source(from, std::ios::binary);
    if (!source.is_open()) return false;
    FileDraft draft(to);
    const int descriptor = draft.open();
    if (descriptor < 0 || !copyBytes(source, descriptor) || draft.complete()) return false;
    std::error_code failed;
    const fs::file_status status = fs::status(from, failed);
    if (!failed) fs::permissions(to, status.permissions(), failed);
    return true;
}

bool moveFile(const std::string& from, const std::string& to) {
    std::error_code failed;
    if (fs::exists(to, failed) && !fs::is_regular_file(to, failed)) return false;
    fs::rename(from, to, failed);
    if (!failed) return true;
    if (!copyFile(from, to)) return false;
    fs::remove(from, failed);
    return true;
}

}  // namespace melvane
