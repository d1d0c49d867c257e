#include "platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "platform/audio_file_draft.h"
#include "platform/text.h"

namespace melvane {

namespace fs = std::filesystem;

namespace {

constexpr std::uintmax_t largestFile = 256U << 20U;

/// Where the bytes go: a link's target, else the path itself.
std::string writtenPath(const std::string& path) {
    std::error_code failed;
    const fs::path resolved = fs::canonical(path, failed);
    return failed ? path : resolved.string();
}

bool writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// For a file that may be written in a folder where none can be made: there is no way to keep the old one
/// meanwhile.
bool replaceInPlace(const std::string& path, std::string_view bytes) {
    const int descriptor = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
    if (descriptor < 0) return false;
    const bool written =
        writeAll(descriptor, bytes) && ftruncate(descriptor, static_cast<off_t>(bytes.size())) == 0;
    return ::close(descriptor) == 0 && written;
}

/// The entry of `folder` that differs from `name` in case only; empty when there is none.
fs::path entryNoCase(const fs::path& folder, const std::string& name) {
    std::error_code failed;
    fs::path found;
    for (fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, failed), end;
         !failed && entry != end; entry.increment(failed)) {
        const fs::path candidate = entry->path().filename();
        if (lowerCase(candidate.string()) != lowerCase(name)) continue;
        if (found.empty() || candidate < found) found = candidate;
    }
    return found;
}

}  // namespace

std::optional<std::string> readFile(const std::string& path) {
    std::error_code failed;
    const std::uintmax_t size = fs::is_regular_file(path, failed) ? fs::file_size(path, failed) : 0;
    if (failed || size > largestFile || !fileExists(path)) return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(size));
    if (file.bad()) return std::nullopt;
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

bool fileExists(const std::string& path) {
    std::error_code failed;
    return fs::is_regular_file(path, failed) && std::ifstream(path, std::ios::binary).is_open();
}

std::optional<std::string> writeFileWhole(const std::string& path, std::string_view bytes) {
    const std::string target = writtenPath(path);
    FileDraft draft(target);
    struct stat earlier {};
    const bool replaces = stat(target.c_str(), &earlier) == 0;
    if (replaces && access(target.c_str(), W_OK) != 0) return draft.failure(lastSystemError());
    const int descriptor = draft.open();
    if (descriptor < 0) {
        const std::string reason = lastSystemError();
        const bool inPlace = replaces && replaceInPlace(target, bytes);
        return inPlace ? std::nullopt : std::optional(draft.failure(reason));
    }
    // Rights that cannot be kept do not stop the writing.
    if (replaces) [[maybe_unused]]
        const int ignored = fchmod(descriptor, earlier.st_mode & 07777U);
    if (!writeAll(descriptor, bytes)) return draft.failure(lastSystemError());
    return draft.complete();
}

bool overwriteFile(const std::string& path, std::string_view bytes) {
    const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
    if (descriptor < 0) return false;
    const bool written = writeAll(descriptor, bytes);
    return ::close(descriptor) == 0 && written;
}

std::string findNoCase(const std::string& path) {
    std::error_code failed;
    if (fs::exists(path, failed)) return path;
    fs::path found;
    for (const fs::path& component : fs::path(path)) {
        fs::path next = found / component;
        if (!fs::exists(next, failed)) {
            const fs::path entry = entryNoCase(found, component.string());
            if (entry.empty()) return path;
            next = found / entry;
        }
        found = std::move(next);
    }
    return found.string();
}

}  // namespace melvane
