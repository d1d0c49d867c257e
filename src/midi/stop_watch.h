#pragma once
#include <cstdint>
#include <vector>

#include "platform/clock.h"
#include "platform/event_loop.h"

namespace melvane {

struct NameTables;

/// The numbered stop watches of the program and the two waits on them. Slots count from 1 and are never
/// freed. User-interface thread.
class StopWatches {
 public:
    StopWatches(Clock& clock, EventLoop& loop) : clock_(clock), loop_(loop) {}

    /// The number of a new slot.
    int StopWatchCreate();
    /// 1, or 0 for a slot that does not exist. Calibrates by what two readings of the counter cost.
    int StopWatchStart(int slot);
    /// Seconds since the start; -1 for a slot that does not exist, 0 for one that was never started.
    float StopWatchElapsed(int slot);
    /// Waits until `seconds` from now, serving pending input. Ends at once on a slot that is not running.
    void WaitSeconds(int slot, double seconds);
    /// The same, running the whole message queue.
    void WaitSecondsBusy(int slot, double seconds) { WaitSeconds(slot, seconds); }

    void listNames(NameTables& tables);

 private:
    struct Slot {
        std::int64_t start = 0;
        std::int64_t latest = 0;
        bool running = false;
    };
    Slot* find(int slot);

    Clock& clock_;
    EventLoop& loop_;
    std::vector<Slot> slots_;
    std::int64_t frequency_ = 1;
    std::int64_t calibration_ = 0;
};

}  // namespace melvane
