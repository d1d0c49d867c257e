#include "platform/media_spool.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <thread>
#include <utility>

#include "platform/audio_file_draft.h"
#include "platform/descriptor.h"
#include "platform/nameless_file.h"

namespace melvane {

namespace {

/// Bytes after which they are sent to the disk, so that little is left to do when the file gets its name.
constexpr std::uint64_t writeOutStep = 4U << 20U;
constexpr off_t largeFile = 64 << 20;

/// Where nameless files do not exist. It cannot get a name again.
int makeAndUnlink(const std::string& folder) {
    std::string name = folder + "/melvane.XXXXXX";
    const int descriptor = mkostemp(name.data(), O_CLOEXEC);
    if (descriptor >= 0) unlink(name.c_str());
    return descriptor;
}

int makeIn(const std::string& folder) {
    const int descriptor = openNameless(folder);
    return descriptor >= 0 ? descriptor : makeAndUnlink(folder);
}

/// -1 when no folder takes it.
int makeFile(const std::vector<std::string>& folders) {
    int descriptor = -1;
    for (const std::string& folder : folders) {
        if (!folder.empty() && descriptor < 0) descriptor = makeIn(folder);
    }
    return descriptor;
}

/// Whether its blocks are so many that the system takes long to free them.
bool isSlowToGiveUp(int descriptor) {
    struct stat file {};
    return fstat(descriptor, &file) == 0 && file.st_size > largeFile;
}

void giveUp(int descriptor) {
    if (descriptor < 0) return;
    if (isSlowToGiveUp(descriptor)) {
        std::thread([descriptor] { close(descriptor); }).detach();
    } else {
        close(descriptor);
    }
}

}  // namespace

std::vector<std::string> spoolFolders() {
    std::vector<std::string> folders{"/var/tmp", "/tmp"};
    // NOLINTNEXTLINE(concurrency-mt-unsafe): nothing changes the environment
    const char* const chosen = std::getenv("TMPDIR");
    if (chosen != nullptr && *chosen != '\0') folders.insert(folders.begin(), chosen);
    return folders;
}

Spool::Spool(std::uint64_t mostBytes, std::size_t headSize, std::vector<std::string> folders)
    : most_(mostBytes), headSize_(headSize), folders_(std::move(folders)) {
    useFile(makeFile(folders_));
}

Spool::~Spool() { giveUp(descriptor_); }

/// The former file is left.
void Spool::useFile(int descriptor) {
    if (descriptor < 0) failure_ = lastSystemError();
    giveUp(descriptor_);
    descriptor_ = descriptor;
    writtenOut_ = 0;
    isNamed_ = false;
}

bool Spool::append(std::string_view bytes) {
    if (failure_ || (isNamed_ && !bytes.empty() && !leaveName())) return false;
    const auto fitting = static_cast<std::size_t>(std::min<std::uint64_t>(bytes.size(), most_ - size_));
    const std::size_t written = writeAt(descriptor_, bytes.substr(0, fitting), headSize_ + size_);
    if (written < fitting) failure_ = lastSystemError();
    size_ += written;
    writeOut();
    return written == bytes.size();
}

/// A failure shows later, when the file gets its name.
void Spool::writeOut() {
    if (size_ - writtenOut_ < writeOutStep) return;
    sync_file_range(descriptor_, static_cast<off_t>(writtenOut_), static_cast<off_t>(size_ - writtenOut_),
                    SYNC_FILE_RANGE_WRITE);
    writtenOut_ = size_;
}

bool Spool::leaveName() {
    const int fresh = makeFile(folders_);
    if (fresh >= 0 && copySpool(descriptor_, 0, headSize_ + size_, fresh)) {
        useFile(fresh);
        return true;
    }
    failure_ = lastSystemError();
    if (fresh >= 0) close(fresh);
    return false;
}

void Spool::clear() {
    size_ = 0;
    failure_.reset();
    writtenOut_ = 0;
    if (isNamed_ || descriptor_ < 0 || isSlowToGiveUp(descriptor_)) {
        useFile(makeFile(folders_));
    } else if (ftruncate(descriptor_, 0) != 0) {
        failure_ = lastSystemError();
    }
}

bool Spool::nameIt(const std::string& target, std::string_view head, std::uint64_t bytes,
                   std::string_view tail) {
    if (isNamed_ || descriptor_ < 0) return false;
    const std::uint64_t end = headSize_ + bytes;
    const auto stands = [this](std::string_view part, std::uint64_t place) {
        return writeAt(descriptor_, part, place) == part.size();
    };
    if (!stands(head, 0) || ftruncate(descriptor_, static_cast<off_t>(end)) != 0) return false;
    size_ = bytes;
    isNamed_ = stands(tail, end) && fsync(descriptor_) == 0 && nameFile(descriptor_, target);
    return isNamed_;
}

int Spool::duplicate() const { return fcntl(descriptor_, F_DUPFD_CLOEXEC, 0); }

bool copySpool(int from, std::uint64_t place, std::uint64_t bytes, int to) {
    std::array<char, 1U << 16U> block{};
    for (std::uint64_t done = 0; done < bytes;) {
        const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(block.size(), bytes - done));
        const ssize_t count = pread(from, block.data(), wanted, static_cast<off_t>(place + done));
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        const auto read = static_cast<std::size_t>(count);
        if (!writeAll(to, {block.data(), read})) return false;
        done += read;
    }
    return true;
}

}  // namespace melvane
