#pragma once
#include <cstdint>
#include <functional>

namespace melvane {

/// The yields of the program, its one blocking pause and its timers. Everything that waits, waits here;
/// nothing else sleeps, spins or runs a queue. All functions belong to the user-interface thread, and
/// handlers run inside them re-entrantly: look at every flag again after each call.
///
/// Once end() has been called every wait returns at once, so that nested loops unwind.
class EventLoop {
 public:
    virtual ~EventLoop() = default;

    /// Runs the pending input and what it leads to; returns at once when there is none.
    virtual void Idle() = 0;
    /// Runs the whole message queue once.
    virtual void runQueue() = 0;
    /// The turn of the interface between two of very many short steps. Where a look at the queue costs as
    /// much as a step, only the first of those within a few milliseconds is one.
    virtual void turn() { runQueue(); }
    /// Serves events until Clock::counter() reaches `counter`. A moment in the past returns after one look at
    /// the queue.
    virtual void waitUntil(std::int64_t counter) = 0;
    /// Serves events until `done` answers true; it is asked after every event.
    virtual void waitFor(const std::function<bool()>& done) = 0;
    /// Blocks for `milliseconds` without serving anything.
    virtual void pause(std::int64_t milliseconds) = 0;

    /// Calls `call` each `milliseconds` (1 or more) until stopTimer. Returns an id above 0.
    virtual int startTimer(std::int64_t milliseconds, std::function<void()> call) = 0;
    /// An unknown id does nothing.
    virtual void stopTimer(int id) = 0;

    /// The process is to end: no wait lasts from now on.
    virtual void end() = 0;
    virtual bool ended() const = 0;
};

}  // namespace melvane
