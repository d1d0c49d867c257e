#include "platform/nameless_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>

namespace melvane {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view draftPrefix = ".melvane.", draftEnding = "XXXXXX";
/// A draft is locked at once, so one that is older and not locked belongs to nobody.
constexpr std::chrono::seconds strayAge{60};
constexpr const char* openFiles = "/proc/self/fd";

fs::path folderOf(const std::string& target) {
    const fs::path folder = fs::path(target).parent_path();
    return folder.empty() ? fs::path(".") : folder;
}

std::string draftPattern(const std::string& target) {
    return (folderOf(target) / draftPrefix).string() + std::string(draftEnding);
}

bool isStray(const fs::directory_entry& entry) {
    const std::string name = entry.path().filename().string();
    std::error_code failed;
    if (name.size() != draftPrefix.size() + draftEnding.size() || !name.starts_with(draftPrefix) ||
        !entry.is_regular_file(failed)) {
        return false;
    }
    const auto written = entry.last_write_time(failed);
    return !failed && fs::file_time_type::clock::now() - written > strayAge;
}

void removeWithoutOwner(const std::string& path) {
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) return;
    if (flock(descriptor, LOCK_EX | LOCK_NB) == 0) unlink(path.c_str());
    close(descriptor);
}

void removeStrays(const fs::path& folder) {
    std::error_code failed;
    for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end;
         entry.increment(failed)) {
        if (isStray(*entry)) removeWithoutOwner(entry->path().string());
    }
}

bool linkAs(int descriptor, const std::string& name) {
    const std::string file = std::string(openFiles) + "/" + std::to_string(descriptor);
    return linkat(AT_FDCWD, file.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

/// Names it beside the target, with a name that no file has; empty when that fails.
std::string linkBeside(int descriptor, const std::string& target) {
    constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz0123456789";
    constexpr int mostTries = 100;
    std::random_device random;
    std::uniform_int_distribution<std::size_t> any(0, letters.size() - 1);
    for (int tries = 0; tries < mostTries; ++tries) {
        std::string name = (folderOf(target) / draftPrefix).string();
        for (std::size_t at = 0; at < draftEnding.size(); ++at) name += letters[any(random)];
        if (linkAs(descriptor, name)) return name;
        if (errno != EEXIST) break;
    }
    return {};
}

/// No call gives a file a name that another one has, so it takes the name as a neighbour.
bool replaceWith(int descriptor, const std::string& target) {
    removeStrays(folderOf(target));
    const std::string name = linkBeside(descriptor, target);
    if (name.empty()) return false;
    if (std::rename(name.c_str(), target.c_str()) == 0) return true;
    const int reason = errno;
    unlink(name.c_str());
    errno = reason;
    return false;
}

// What mkostemp forbids to others, an ordinary new file allows them.
void giveOrdinaryRights(int descriptor) {
    const mode_t mask = umask(0);
    umask(mask);
    // Rights that stay narrow do no harm, so a failure is passed over.
    [[maybe_unused]] const int ignored = fchmod(descriptor, 0666 & ~mask);
}

}  // namespace

int openNameless(const std::string& folder) {
    if (access(openFiles, X_OK) != 0) return -1;
    const char* const where = folder.empty() ? "." : folder.c_str();
    return ::open(where, O_TMPFILE | O_RDWR | O_CLOEXEC, 0666);
}

bool nameFile(int descriptor, const std::string& target) {
    if (linkAs(descriptor, target)) return true;
    std::error_code failed;
    if (errno != EEXIST || !fs::is_regular_file(target, failed)) return false;
    // The neighbour must not pass for a stray of somebody else's.
    flock(descriptor, LOCK_EX | LOCK_NB);
    const bool done = replaceWith(descriptor, target);
    const int reason = errno;
    flock(descriptor, LOCK_UN);
    errno = reason;
    return done;
}

int openDraft(const std::string& target, std::string& path) {
    removeStrays(folderOf(target));
    path = draftPattern(target);
    const int descriptor = mkostemp(path.data(), O_CLOEXEC);
    if (descriptor < 0) return -1;
    flock(descriptor, LOCK_EX | LOCK_NB);
    giveOrdinaryRights(descriptor);
    return descriptor;
}

std::size_t writeAt(int descriptor, std::string_view bytes, std::uint64_t place) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t written =
            pwrite(descriptor, bytes.data() + done, bytes.size() - done, static_cast<off_t>(place + done));
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) break;
        done += static_cast<std::size_t>(written);
    }
    return done;
}

}  // namespace melvane
