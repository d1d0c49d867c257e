#pragma once
#include <algorithm>
#include <atomic>
#include <cstddef>
#include <span>
#include <vector>

namespace melvane {

/// Sound on its way from one thread to another, in order. Never blocks; allocates only when it is made.
class SoundRing {
 public:
    /// `capacity` counts values, and is a multiple of the channels, so that frames stay whole.
    explicit SoundRing(std::size_t capacity) : slots_(capacity) {}

    /// Writing thread: values that push() would take.
    std::size_t room() const {
        return slots_.size() -
               (tail_.load(std::memory_order_relaxed) - head_.load(std::memory_order_acquire));
    }
    /// Reading thread: values that pop() would give.
    std::size_t filled() const {
        return tail_.load(std::memory_order_acquire) - head_.load(std::memory_order_relaxed);
    }

    /// Writing thread. Takes as much of the start as there is room for; how much that was.
    std::size_t push(std::span<const float> values) {
        const std::size_t count = std::min(values.size(), room());
        const std::size_t tail = tail_.load(std::memory_order_relaxed);
        const std::size_t start = tail % slots_.size();
        const std::size_t first = std::min(count, slots_.size() - start);
        std::copy_n(values.begin(), first, slots_.begin() + offset(start));
        std::copy_n(values.begin() + offset(first), count - first, slots_.begin());
        tail_.store(tail + count, std::memory_order_release);
        return count;
    }

    /// Reading thread. Fills the start of `values`; how much that was.
    std::size_t pop(std::span<float> values) {
        const std::size_t count = std::min(values.size(), filled());
        const std::size_t head = head_.load(std::memory_order_relaxed);
        const std::size_t start = head % slots_.size();
        const std::size_t first = std::min(count, slots_.size() - start);
        std::copy_n(slots_.begin() + offset(start), first, values.begin());
        std::copy_n(slots_.begin(), count - first, values.begin() + offset(first));
        head_.store(head + count, std::memory_order_release);
        return count;
    }

    /// While neither thread works on it.
    void clear() { head_ = tail_.load(); }

 private:
    static std::ptrdiff_t offset(std::size_t index) { return static_cast<std::ptrdiff_t>(index); }

    std::vector<float> slots_;
    alignas(64) std::atomic<std::size_t> head_{0};  ///< values taken out since the start
    alignas(64) std::atomic<std::size_t> tail_{0};  ///< values put in
};

}  // namespace melvane
