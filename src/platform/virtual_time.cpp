#include "platform/virtual_time.h"

#include <algorithm>

namespace melvane {

void VirtualTime::at(std::int64_t milliseconds, std::function<void()> call) {
    due_.emplace(now_ + milliseconds * ticksAMillisecond, std::move(call));
}

int VirtualTime::startTimer(std::int64_t milliseconds, std::function<void()> call) {
    const std::int64_t period = std::max<std::int64_t>(milliseconds, 1) * ticksAMillisecond;
    timers_[++lastTimer_] = {period, now_ + period, std::move(call)};
    return lastTimer_;
}

bool VirtualTime::serveTimer(std::int64_t limit) {
    const auto earliest =
        std::ranges::min_element(timers_, {}, [](const auto& entry) { return entry.second.moment; });
    if (earliest == timers_.end() || earliest->second.moment > limit) return false;
    if (!due_.empty() && due_.begin()->first < earliest->second.moment) return false;
    Timer& timer = earliest->second;
    now_ = std::max(now_, timer.moment);
    timer.moment = std::max(timer.moment + timer.period, now_);
    const auto call = timer.call;  // the call may stop its own timer
    call();
    return true;
}

bool VirtualTime::serveNext(std::int64_t limit) {
    if (serveTimer(limit)) return true;
    if (due_.empty() || due_.begin()->first > limit) return false;
    const auto call = std::move(due_.begin()->second);
    now_ = std::max(now_, due_.begin()->first);
    due_.erase(due_.begin());
    call();
    return true;
}

void VirtualTime::serveUntil(std::int64_t limit) {
    toolkit();
    while (!ended_ && serveNext(limit)) toolkit();
}

void VirtualTime::waitUntil(std::int64_t counter) {
    if (ended_) return;
    serveUntil(std::max(counter, now_));
    if (!ended_) now_ = std::max(now_, counter);
}

void VirtualTime::waitFor(const std::function<bool()>& done) {
    int idleCalls = 0;
    toolkit();
    while (!ended_ && !done()) {
        idleCalls = hasPending() ? 0 : idleCalls + 1;
        if (idleCalls > idleTimerCalls || !serveNext(INT64_MAX)) {
            end();
            if (onStuck) onStuck();
            return;
        }
        toolkit();
    }
}

void VirtualTime::setToZero() {
    std::multimap<std::int64_t, std::function<void()>> due;
    for (auto& [moment, call] : due_) due.emplace(moment - now_, std::move(call));
    due_ = std::move(due);
    for (auto& [id, timer] : timers_) timer.moment -= now_;
    now_ = 0;
}

void VirtualTime::restart() {
    ended_ = false;
    timers_.clear();
}

}  // namespace melvane
