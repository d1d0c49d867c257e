#include "platform/audio_file_draft.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

namespace melvane {

namespace {

// What mkstemp forbids to others, an ordinary new file allows them.
void giveOrdinaryRights(int descriptor) {
    const mode_t mask = umask(0);
    umask(mask);
    // Rights that stay narrow do no harm, so a failure is passed over.
    [[maybe_unused]] const int ignored = fchmod(descriptor, 0666 & ~mask);
}

}  // namespace

std::string lastSystemError() { return std::generic_category().message(errno); }

FileDraft::FileDraft(std::string target) : target_(std::move(target)) {}

FileDraft::~FileDraft() { discard(); }

int FileDraft::open() {
    // A device such as /dev/null has no content of its own to protect, and must not be replaced by a file.
    struct stat target {};
    if (stat(target_.c_str(), &target) == 0 && !S_ISREG(target.st_mode)) {
        descriptor_ = ::open(target_.c_str(), O_RDWR | O_CLOEXEC);
        return descriptor_;
    }
    // A name of its own: the target's may be as long as a name can be.
    std::string name = (std::filesystem::path(target_).parent_path() / ".melvane.XXXXXX").string();
    descriptor_ = mkostemp(name.data(), O_CLOEXEC);
    if (descriptor_ < 0) return -1;
    temporary_ = name;
    giveOrdinaryRights(descriptor_);
    return descriptor_;
}

std::optional<std::string> FileDraft::complete() {
    if (descriptor_ < 0) return failure("it is not open");
    if (temporary_.empty()) return std::nullopt;
    if (fsync(descriptor_) != 0 || std::rename(temporary_.c_str(), target_.c_str()) != 0) {
        return failure(lastSystemError());
    }
    temporary_.clear();
    return std::nullopt;
}

std::string FileDraft::failure(const std::string& reason) const {
    return "Cannot write \"" + target_ + "\": " + reason + ".";
}

void FileDraft::discard() {
    if (descriptor_ >= 0) ::close(descriptor_);
    if (!temporary_.empty()) std::remove(temporary_.c_str());
    descriptor_ = -1;
    temporary_.clear();
}

}  // namespace melvane
