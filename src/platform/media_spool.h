#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace melvane {

/// Bytes that wait on the disk for their place: a file without a name, which is gone with its owner whatever
/// happens, and which can get a name without being copied. One thread at a time.
class Spool {
 public:
    /// The file lies in the first of `folders` that takes it. At its start `headSize` bytes stay free for
    /// nameIt(). `mostBytes`: what it may hold behind them.
    Spool(std::uint64_t mostBytes, std::size_t headSize, std::vector<std::string> folders);
    ~Spool();
    Spool(const Spool&) = delete;
    Spool& operator=(const Spool&) = delete;

    /// False when not all of them found room; what is there stays, and so does the beginning of `bytes`. A
    /// file that has a name by now is left as it is, and a copy of it goes on.
    bool append(std::string_view bytes);
    /// Forgets what it holds, and its failure.
    void clear();
    std::uint64_t size() const { return size_; }
    bool isFull() const { return size_ == most_; }
    /// The system's words, when something else than fullness kept it from holding more.
    const std::optional<std::string>& failure() const { return failure_; }

    /// Makes the file that of this name: the head, which has headSize bytes, the first `bytes` bytes, at most
    /// size(), and the tail. It is on the disk then, and what bore the name is replaced. False when the
    /// target lies on another file system, the file has a name already, or something fails; those bytes can
    /// be copied then. What lies behind them is forgotten.
    bool nameIt(const std::string& target, std::string_view head, std::uint64_t bytes, std::string_view tail);
    /// A descriptor of its own for copySpool(); belongs to the caller. -1 when there is none.
    int duplicate() const;
    std::size_t headSize() const { return headSize_; }

 private:
    bool leaveName();
    void useFile(int descriptor);
    void writeOut();

    const std::uint64_t most_;
    const std::size_t headSize_;
    const std::vector<std::string> folders_;
    std::uint64_t size_ = 0;
    std::uint64_t writtenOut_ = 0;  ///< bytes whose way to the disk has begun
    int descriptor_ = -1;
    bool isNamed_ = false;
    std::optional<std::string> failure_;
};

/// Writes `bytes` bytes from this place of one file to where the other stands. False, with errno set, when
/// that fails.
bool copySpool(int from, std::uint64_t place, std::uint64_t bytes, int to);

/// The chosen folder for temporary files, then those of the disk before those that may lie in memory, which
/// hours of sound would fill.
std::vector<std::string> spoolFolders();

}  // namespace melvane
