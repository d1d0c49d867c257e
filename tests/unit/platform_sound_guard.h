#pragma once
#include <cstddef>

namespace melvane::sound_test {

/// Counts what the calling thread does that an audio callback must not do: allocate, free, and lock a mutex.
/// Counting lasts as long as the object lives; one at a time a thread.
class CallbackGuard {
 public:
    CallbackGuard();
    ~CallbackGuard();
    CallbackGuard(const CallbackGuard&) = delete;
    CallbackGuard& operator=(const CallbackGuard&) = delete;

    std::size_t allocations() const;  ///< also counts what is freed
    std::size_t locks() const;
};

}  // namespace melvane::sound_test
