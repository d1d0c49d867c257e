#include "platform/media_spool.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <string>

#include "platform/audio_file_draft.h"

namespace melvane {

namespace {

int makeNameless(const std::string& folder) {
    std::string name = folder + "/melvane.XXXXXX";
    const int descriptor = mkostemp(name.data(), O_CLOEXEC);
    if (descriptor >= 0) unlink(name.c_str());
    return descriptor;
}

/// In the chosen folder for temporary files, else on the disk rather than in a folder that may lie in memory,
/// which hours of sound would fill.
int makeFile() {
    // NOLINTNEXTLINE(concurrency-mt-unsafe): nothing changes the environment
    const char* const chosen = std::getenv("TMPDIR");
    for (const char* const folder : {chosen, "/var/tmp", "/tmp"}) {
        if (folder == nullptr || *folder == '\0') continue;
        if (const int descriptor = makeNameless(folder); descriptor >= 0) return descriptor;
    }
    return -1;
}

/// Bytes written before the first failure.
std::size_t writeMuch(int descriptor, std::string_view bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t written = write(descriptor, bytes.data() + done, bytes.size() - done);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) break;
        done += static_cast<std::size_t>(written);
    }
    return done;
}

}  // namespace

Spool::Spool(std::uint64_t mostBytes) : most_(mostBytes), descriptor_(makeFile()) {
    if (descriptor_ < 0) failure_ = lastSystemError();
}

Spool::~Spool() {
    if (descriptor_ >= 0) close(descriptor_);
}

bool Spool::append(std::string_view bytes) {
    if (failure_) return false;
    const auto fitting = static_cast<std::size_t>(std::min<std::uint64_t>(bytes.size(), most_ - size_));
    const std::size_t written = writeMuch(descriptor_, bytes.substr(0, fitting));
    size_ += written;
    if (written < fitting) failure_ = lastSystemError();
    return written == bytes.size();
}

void Spool::clear() {
    size_ = 0;
    failure_.reset();
    if (ftruncate(descriptor_, 0) != 0 || lseek(descriptor_, 0, SEEK_SET) != 0) failure_ = lastSystemError();
}

bool Spool::copyTo(int descriptor, std::uint64_t bytes) const {
    std::array<char, 1U << 16U> block{};
    for (std::uint64_t done = 0; done < bytes;) {
        const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(block.size(), bytes - done));
        const ssize_t count = pread(descriptor_, block.data(), wanted, static_cast<off_t>(done));
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        const auto read = static_cast<std::size_t>(count);
        if (writeMuch(descriptor, {block.data(), read}) < read) return false;
        done += read;
    }
    return true;
}

}  // namespace melvane
