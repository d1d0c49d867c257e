#pragma once
#include <array>
#include <cstddef>

namespace melvane {

/// An array of per-track state, index from 0. An index out of range reads as the default value, and what is
/// written there is lost.
template <class Entry, std::size_t Count>
class TrackArray {
 public:
    Entry& operator[](std::size_t index) {
        if (index < Count) return entries_[index];
        spare_ = Entry{};
        return spare_;
    }
    const Entry& operator[](std::size_t index) const {
        static const Entry missing{};
        return index < Count ? entries_[index] : missing;
    }
    std::array<Entry, Count>& entries() { return entries_; }
    auto begin() const { return entries_.begin(); }
    auto end() const { return entries_.end(); }

 private:
    std::array<Entry, Count> entries_{};
    Entry spare_{};
};

}  // namespace melvane
