#pragma once
#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

namespace melvane {

/// What is sent to the synthesizer, with the moment at which it was sent.
struct StampedMessage {
    std::int64_t moment = 0;   ///< Clock counter
    std::uint32_t packed = 0;  ///< short message; of no meaning for a reset
    bool isReset = false;
};

/// Messages on their way from one sending thread to one rendering thread, in order. Never blocks and never
/// allocates.
class MessageRing {
 public:
    static constexpr std::size_t capacity = 8192;

    /// Sending thread. False when the ring is full; the message is then not taken.
    bool push(const StampedMessage& message) {
        const std::size_t tail = tail_.load(std::memory_order_relaxed);
        if (tail - head_.load(std::memory_order_acquire) == capacity) return false;
        slots_[tail % capacity] = message;
        tail_.store(tail + 1, std::memory_order_release);
        return true;
    }

    /// Rendering thread. The oldest message, or null; it stays valid until pop().
    const StampedMessage* front() const {
        const std::size_t head = head_.load(std::memory_order_relaxed);
        if (head == tail_.load(std::memory_order_acquire)) return nullptr;
        return &slots_[head % capacity];
    }

    /// Rendering thread. Only after front() gave a message.
    void pop() { head_.store(head_.load(std::memory_order_relaxed) + 1, std::memory_order_release); }

 private:
    std::array<StampedMessage, capacity> slots_{};
    alignas(64) std::atomic<std::size_t> head_{0};
    alignas(64) std::atomic<std::size_t> tail_{0};
};

}  // namespace melvane
