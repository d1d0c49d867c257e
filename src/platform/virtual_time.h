#pragma once
#include <map>

#include "platform/clock.h"
#include "platform/event_loop.h"

namespace melvane {

/// A clock that moves only in waits, and the event loop that moves it: a wait serves everything that falls
/// due until its moment, in the order of the moments, then stands at that moment. Starts at 0 and never goes
/// back. One thread.
class VirtualTime final : public Clock, public EventLoop {
 public:
    std::int64_t counter() const override { return now_; }
    std::int64_t frequency() const override { return ticksASecond; }
    std::int64_t tickCount() const override { return now_ / ticksAMillisecond; }

    void Idle() override { serveUntil(now_); }
    void runQueue() override { serveUntil(now_); }
    void waitUntil(std::int64_t counter) override;
    void waitFor(const std::function<bool()>& done) override;
    void pause(std::int64_t milliseconds) override { now_ += milliseconds * ticksAMillisecond; }
    int startTimer(std::int64_t milliseconds, std::function<void()> call) override;
    void stopTimer(int id) override { timers_.erase(id); }
    void end() override { ended_ = true; }
    bool ended() const override { return ended_; }

    /// Runs `call` in whatever wait comes to `milliseconds` from now.
    void at(std::int64_t milliseconds, std::function<void()> call);
    bool hasPending() const { return !due_.empty(); }
    /// The start of the program is over: the clock stands at 0 from now on, and what is still to come keeps
    /// its distance.
    void setToZero();
    /// The program that used this clock is gone: its timers are forgotten and waits last again. The clock and
    /// the pending calls of at() stay.
    void restart();

    std::function<void()> serveToolkit;  ///< runs what the toolkit has queued, at each yield
    std::function<void()> onStuck;  ///< a wait has nothing left that could end it; the loop has ended itself

    /// So many timer calls without a pending at() and with nothing done are taken for ever.
    static constexpr int idleTimerCalls = 1'000'000;

    static constexpr std::int64_t ticksASecond = 1'000'000'000;
    static constexpr std::int64_t ticksAMillisecond = 1'000'000;

 private:
    struct Timer {
        std::int64_t period;
        std::int64_t moment;
        std::function<void()> call;
    };
    /// Serves the earliest that is due at `limit` or before; false when there is none.
    bool serveNext(std::int64_t limit);
    bool serveTimer(std::int64_t limit);
    void serveUntil(std::int64_t limit);
    void toolkit() const {
        if (serveToolkit) serveToolkit();
    }

    std::int64_t now_ = 0;
    bool ended_ = false;
    int lastTimer_ = 0;
    std::multimap<std::int64_t, std::function<void()>> due_;
    std::map<int, Timer> timers_;
};

}  // namespace melvane
