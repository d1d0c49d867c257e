#include "platform/nameless_file.h"

#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string_view>

#include "platform/descriptor.h"
#include "platform/random_letters.h"
#include "platform/system_path.h"

namespace melvane {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view draftPrefix = ".melvane.", draftEnding = "XXXXXX";
/// A draft is locked at once, so one that is older and not locked belongs to nobody.
constexpr std::chrono::seconds strayAge{60};

fs::path folderOf(const std::string& target) {
    const fs::path folder = systemPath(target).parent_path();
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

void removeStrays(const fs::path& folder) {
    std::error_code failed;
    for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end;
         entry.increment(failed)) {
        if (isStray(*entry)) removeUnused(entry->path().string());
    }
}

/// Names it beside the target, with a name that no file has; empty when that fails.
std::string linkBeside(int descriptor, const std::string& target) {
    constexpr int mostTries = 100;
    for (int tries = 0; tries < mostTries; ++tries) {
        std::string name = (folderOf(target) / draftPrefix).string() + randomLetters(draftEnding.size());
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

}  // namespace

bool nameFile(int descriptor, const std::string& target) {
    if (linkAs(descriptor, target)) return true;
    std::error_code failed;
    if (errno != EEXIST || !fs::is_regular_file(target, failed)) return false;
    // The neighbour must not pass for a stray of somebody else's.
    markInUse(descriptor);
    const bool done = replaceWith(descriptor, target);
    const int reason = errno;
    giveFree(descriptor);
    errno = reason;
    return done;
}

int openDraft(const std::string& target, std::string& path) {
    removeStrays(folderOf(target));
    path = draftPattern(target);
    return openUnique(path);
}

}  // namespace melvane
