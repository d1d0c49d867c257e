#pragma once
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/clock.h"

namespace melvane {

/// What a recording back end was told, each entry with its moment in whole milliseconds, rounded to nearest.
class MomentLog {
 public:
    explicit MomentLog(const Clock& clock) : clock_(clock) {}

    void add(std::string text) { entries_.emplace_back(milliseconds(), std::move(text)); }
    void clear() { entries_.clear(); }
    /// Gives every entry the moment 0.
    void setAllToZero() {
        for (auto& entry : entries_) entry.first = 0;
    }
    /// "MS TEXT" each, in the order in which they came; the log is empty afterwards.
    std::vector<std::string> take() {
        std::vector<std::string> lines;
        for (const auto& [moment, text] : entries_) lines.push_back(std::to_string(moment) + " " + text);
        entries_.clear();
        return lines;
    }

 private:
    std::int64_t milliseconds() const {
        const std::int64_t tick = clock_.frequency() / 1000;
        return (clock_.counter() + tick / 2) / tick;
    }

    const Clock& clock_;
    std::vector<std::pair<std::int64_t, std::string>> entries_;
};

}  // namespace melvane
