#pragma once
#include "core/studio.h"
#include "midi/stop_watch.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"

namespace melvane {

/// Writes down, tick by tick, the row of the key struck last, from the first key on until it is stopped. A
/// tick lasts Text2 milliseconds. User-interface thread.
class PerformanceCapture {
 public:
    struct Parts {
        Dialogs& dialogs;
        StopWatches& stopWatches;
        EventLoop& loop;
    };
    PerformanceCapture(Studio& studio, Parts parts);

    /// Starts a capture, which runs inside this call until Label8 is "OFF"; while one runs, stops it.
    void Comp1_Click();
    /// Ends the capture at its next round.
    void Comp2_Click();
    void CmdRec_Click();
    /// One tick of the capture, and one of the replay, which is 1.2 times as long.
    void TimeOut();
    void TimeOut2();

    /// "OFF" and "ON" are all that is looked at.
    bool isOn() const;
    bool isOff() const;

    void listNames(NameTables& tables);

 private:
    void waitTicks(double ticks);
    void setLamp(bool on);
    void run();

    Studio& studio_;
    Parts parts_;
};

}  // namespace melvane
