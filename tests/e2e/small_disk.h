#pragma once
#include <sys/types.h>

#include <string>
#include <vector>

namespace melvane::e2e {

/// A folder of a program's that has room for less than a second of sound at first, and for more later. It is
/// a file system of its own, which the program alone sees and which is gone with it; where none may be made,
/// the program's files may not grow any further, which it notices in the same way.
class SmallDisk {
 public:
    /// The room at first, as sound of 44.1 kHz, 16 bits, stereo.
    static constexpr double seconds = 0.75;

    explicit SmallDisk(std::string folder);

    /// The command that runs the program so.
    std::vector<std::string> launcher() const;
    /// Where the folder of the running program is found from outside.
    std::string seenFrom(pid_t process) const;
    /// From now on there is room enough.
    bool makeRoom(pid_t process) const;

 private:
    std::string folder_;
    bool mounts_;
};

}  // namespace melvane::e2e
