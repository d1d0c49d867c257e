#include "platform/audio_file_draft.h"

#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/descriptor.h"
#include "platform/nameless_file.h"
#include "platform/system_path.h"

namespace melvane {

std::string lastSystemError() { return std::generic_category().message(errno); }

FileDraft::FileDraft(std::string target) : target_(std::move(target)) {}

FileDraft::~FileDraft() { discard(); }

int FileDraft::open() {
    // A device such as /dev/null has no content of its own to protect, and must not be replaced by a file.
    if (isNoOrdinaryFile(target_)) {
        isTarget_ = true;
        return descriptor_ = openForBoth(target_);
    }
    descriptor_ = openNameless(systemPath(target_).parent_path().string());
    if (descriptor_ >= 0) return descriptor_;
    std::string name;
    descriptor_ = openDraft(target_, name);
    if (descriptor_ >= 0) temporary_ = std::move(name);
    return descriptor_;
}

std::optional<std::string> FileDraft::complete() {
    if (descriptor_ < 0) return failure("it is not open");
    if (isTarget_) return std::nullopt;
    if (!bringToDisk(descriptor_) || !takeName()) return failure(lastSystemError());
    temporary_.clear();
    return std::nullopt;
}

bool FileDraft::takeName() {
    if (temporary_.empty()) return nameFile(descriptor_, target_);
    return renameOpen(descriptor_, temporary_, target_);
}

std::string FileDraft::failure(const std::string& reason) const {
    return "Cannot write \"" + target_ + "\": " + reason + ".";
}

void FileDraft::discard() {
    if (descriptor_ >= 0) ::close(descriptor_);
    std::error_code ignored;
    if (!temporary_.empty()) std::filesystem::remove(systemPath(temporary_), ignored);
    descriptor_ = -1;
    temporary_.clear();
}

}  // namespace melvane
