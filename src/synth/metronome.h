#pragma once
#include <functional>

#include "core/keyboard.h"
#include "platform/clock.h"
#include "platform/event_loop.h"

namespace melvane {

struct NameTables;

/// cMetronome: counts beats on a stop watch of its own. A timer of 25 ms looks whether one is due; the beats
/// are reckoned from each other, so that they do not drift with the timer. One tick brings one beat at most:
/// when a tick comes later than a whole interval, no beat comes any more until the next start.
class Metronome {
 public:
    static constexpr std::int64_t timMainInterval = 25;  ///< milliseconds

    Metronome(MetronomeState& state, Clock& clock, EventLoop& loop);
    ~Metronome() { loop_.stopTimer(timer_); }
    Metronome(const Metronome&) = delete;
    Metronome& operator=(const Metronome&) = delete;

    /// `Beat` is the number within the measure, from 1; what the handler makes of it counts on.
    std::function<void(std::int32_t& Beat)> onBeat;
    // Never raised.
    std::function<void()> onStart, onStop;

    /// The first beat falls one interval from now. Nothing starts with 0 beats a minute.
    void StartMetronome();
    void StopMetronome();

    // The stop watch, in seconds.
    void ResetWatch();
    /// Goes on from where StopWatch left it, unless it was reset.
    void StartWatch();
    double ElapsedSeconds();
    double StopWatch();

    void listNames(NameTables& tables);

 private:
    void timMain_Timer();
    bool isDue(double now) const;

    MetronomeState& state_;
    Clock& clock_;
    EventLoop& loop_;
    int timer_ = 0;
};

}  // namespace melvane
