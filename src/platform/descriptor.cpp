#include "platform/descriptor.h"

#ifndef _WIN32
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

namespace melvane {

namespace {

constexpr mode_t usualRights = 0666;
constexpr int withoutWaiting = O_CLOEXEC | O_NONBLOCK;  // a pipe of that name holds nobody up
constexpr const char* openFiles = "/proc/self/fd";

bool isOrdinary(int descriptor) {
    struct stat about {};
    return fstat(descriptor, &about) == 0 && S_ISREG(about.st_mode);
}

// What mkostemp forbids to others, an ordinary new file allows them.
void giveOrdinaryRights(int descriptor) {
    const mode_t mask = umask(0);
    umask(mask);
    // Rights that stay narrow do no harm, so a failure is passed over.
    [[maybe_unused]] const int ignored = fchmod(descriptor, usualRights & ~mask);
}

}  // namespace

int openForReading(const std::string& path) { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC); }

int openForWriting(const std::string& path) { return ::open(path.c_str(), O_WRONLY | O_CLOEXEC); }

int openOrMake(const std::string& path) {
    return ::open(path.c_str(), O_WRONLY | O_CREAT | withoutWaiting, usualRights);
}

int openForBoth(const std::string& path) { return ::open(path.c_str(), O_RDWR | O_CLOEXEC); }

int openAlone(const std::string& path) {
    int descriptor = ::open(path.c_str(), O_RDWR | O_CREAT | withoutWaiting, usualRights);
    if (descriptor < 0 && (errno == EACCES || errno == EROFS))
        descriptor = ::open(path.c_str(), O_RDONLY | withoutWaiting);
    if (descriptor < 0) return -1;
    if (isOrdinary(descriptor) && markInUse(descriptor)) return descriptor;
    ::close(descriptor);
    return -1;
}

int openNameless(const std::string& folder) {
    // Without it the file could not be named later.
    if (access(openFiles, X_OK) != 0) return -1;
    const char* const where = folder.empty() ? "." : folder.c_str();
    return ::open(where, O_TMPFILE | O_RDWR | O_CLOEXEC, usualRights);
}

int openUnique(std::string& path) {
    const int descriptor = mkostemp(path.data(), O_CLOEXEC);
    if (descriptor < 0) return -1;
    markInUse(descriptor);
    giveOrdinaryRights(descriptor);
    return descriptor;
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

std::optional<std::size_t> readSome(int descriptor, std::span<unsigned char> bytes) {
    ssize_t count = -1;
    do {
        count = ::read(descriptor, bytes.data(), bytes.size());
    } while (count < 0 && errno == EINTR);
    if (count < 0) return std::nullopt;
    return static_cast<std::size_t>(count);
}

bool stepBack(int descriptor, std::size_t bytes) {
    return lseek(descriptor, -static_cast<off_t>(bytes), SEEK_CUR) >= 0;
}

bool setLength(int descriptor, std::uint64_t bytes) {
    return ftruncate(descriptor, static_cast<off_t>(bytes)) == 0;
}

bool bringToDisk(int descriptor) { return fsync(descriptor) == 0; }

bool markInUse(int descriptor) { return flock(descriptor, LOCK_EX | LOCK_NB) == 0; }

bool giveFree(int descriptor) { return flock(descriptor, LOCK_UN) == 0; }

void removeUnused(const std::string& path) {
    const int descriptor = openForReading(path);
    if (descriptor < 0) return;
    if (markInUse(descriptor)) unlink(path.c_str());
    ::close(descriptor);
}

bool isNoOrdinaryFile(const std::string& path) {
    struct stat about {};
    return stat(path.c_str(), &about) == 0 && !S_ISREG(about.st_mode);
}

std::optional<unsigned> rightsOf(const std::string& path) {
    struct stat about {};
    if (stat(path.c_str(), &about) != 0) return std::nullopt;
    return about.st_mode & 07777U;
}

bool mayBeWritten(const std::string& path) { return access(path.c_str(), W_OK) == 0; }

void giveRights(int descriptor, unsigned rights) {
    [[maybe_unused]] const int ignored = fchmod(descriptor, rights);
}

bool linkAs(int descriptor, const std::string& name) {
    const std::string file = std::string(openFiles) + "/" + std::to_string(descriptor);
    return linkat(AT_FDCWD, file.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

bool renameOpen(int& /*descriptor*/, const std::string& from, const std::string& to) {
    return std::rename(from.c_str(), to.c_str()) == 0;
}

}  // namespace melvane
#endif
