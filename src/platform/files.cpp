#include "platform/files.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <system_error>

#include "platform/audio_file_draft.h"
#include "platform/descriptor.h"
#include "platform/system_path.h"
#include "platform/text.h"

namespace melvane {

namespace fs = std::filesystem;

namespace {

constexpr std::uintmax_t largestFile = 256U << 20U;

/// Where the bytes go: a link's target, else the path itself.
std::string writtenPath(const std::string& path) {
    std::error_code failed;
    const fs::path resolved = fs::canonical(systemPath(path), failed);
    return failed ? path : resolved.string();
}

/// For a file that may be written in a folder where none can be made: there is no way to keep the old one
/// meanwhile.
bool replaceInPlace(const std::string& path, std::string_view bytes) {
    const int descriptor = openForWriting(path);
    if (descriptor < 0) return false;
    const bool written = writeAll(descriptor, bytes) && setLength(descriptor, bytes.size());
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
    const fs::path name = systemPath(path);
    const std::uintmax_t size = fs::is_regular_file(name, failed) ? fs::file_size(name, failed) : 0;
    if (failed || size > largestFile || !fileExists(path)) return std::nullopt;
    std::ifstream file(name, std::ios::binary);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(size));
    if (file.bad()) return std::nullopt;
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

bool fileExists(const std::string& path) {
    std::error_code failed;
    const fs::path name = systemPath(path);
    return fs::is_regular_file(name, failed) && std::ifstream(name, std::ios::binary).is_open();
}

std::optional<std::string> writeFileWhole(const std::string& path, std::string_view bytes) {
    const std::string target = writtenPath(path);
    FileDraft draft(target);
    const std::optional<unsigned> earlier = rightsOf(target);
    if (earlier && !mayBeWritten(target)) return draft.failure(lastSystemError());
    const int descriptor = draft.open();
    if (descriptor < 0) {
        const std::string reason = lastSystemError();
        const bool inPlace = earlier && replaceInPlace(target, bytes);
        return inPlace ? std::nullopt : std::optional(draft.failure(reason));
    }
    if (earlier) giveRights(descriptor, *earlier);
    if (!writeAll(descriptor, bytes)) return draft.failure(lastSystemError());
    return draft.complete();
}

bool overwriteFile(const std::string& path, std::string_view bytes) {
    const int descriptor = openOrMake(path);
    if (descriptor < 0) return false;
    const bool written = writeAll(descriptor, bytes);
    return ::close(descriptor) == 0 && written;
}

std::string findNoCase(const std::string& path) {
    std::error_code failed;
    const fs::path name = systemPath(path);
    if (fs::exists(name, failed)) return path;
    fs::path found;
    for (const fs::path& component : name) {
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
