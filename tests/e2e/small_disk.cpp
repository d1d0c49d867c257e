#include "small_disk.h"

#include <filesystem>

#include "child_process.h"

namespace melvane::e2e {

namespace {

using sound_test::ChildProcess;

constexpr int firstKilobytes = 128;  // 0.743 s
// The folder, and then the command.
constexpr const char* mounting = R"(mount -t tmpfs -o size="$0"k none "$1" && shift && exec "$@")";
// Without the signal that would end the program, a write over the limit fails.
constexpr const char* limiting = R"(trap '' XFSZ; shift; exec prlimit --fsize="$0": "$@")";

bool mayMount(const std::string& folder) {
    return ChildProcess::start({"unshare", "-m", "mount", "-t", "tmpfs", "none", folder}).wait() == 0;
}

}  // namespace

SmallDisk::SmallDisk(std::string folder) : folder_(std::move(folder)) {
    std::filesystem::create_directories(folder_);
    mounts_ = mayMount(folder_);
}

std::vector<std::string> SmallDisk::launcher() const {
    if (mounts_) return {"unshare", "-m", "sh", "-c", mounting, std::to_string(firstKilobytes), folder_};
    return {"sh", "-c", limiting, std::to_string(firstKilobytes * 1024), folder_};
}

std::string SmallDisk::seenFrom(pid_t process) const {
    return mounts_ ? "/proc/" + std::to_string(process) + "/root" + folder_ : folder_;
}

bool SmallDisk::makeRoom(pid_t process) const {
    const std::string id = std::to_string(process);
    if (mounts_)
        return ChildProcess::start({"nsenter", "-t", id, "-m", "mount", "-o", "remount,size=64m", folder_})
                   .wait() == 0;
    return ChildProcess::start({"prlimit", "-p", id, "--fsize=unlimited:"}).wait() == 0;
}

}  // namespace melvane::e2e
