#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace melvane {

/// Bytes that wait on the disk for their place: a file without a name, which is gone with its owner whatever
/// happens. One thread at a time.
class Spool {
 public:
    /// `mostBytes`: what it may hold.
    explicit Spool(std::uint64_t mostBytes);
    ~Spool();
    Spool(const Spool&) = delete;
    Spool& operator=(const Spool&) = delete;

    /// False when not all of them found room; what is there stays, and so does the beginning of `bytes`.
    bool append(std::string_view bytes);
    /// Forgets what it holds, and its failure.
    void clear();
    std::uint64_t size() const { return size_; }
    bool isFull() const { return size_ == most_; }
    /// The system's words, when something else than fullness kept it from holding more.
    const std::optional<std::string>& failure() const { return failure_; }

    /// Appends the first `bytes` bytes, at most size(), to an open file. False, with errno set, when that
    /// fails.
    bool copyTo(int descriptor, std::uint64_t bytes) const;

 private:
    const std::uint64_t most_;
    std::uint64_t size_ = 0;
    int descriptor_ = -1;
    std::optional<std::string> failure_;
};

}  // namespace melvane
