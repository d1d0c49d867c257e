#pragma once
#include <QObject>

#include <map>
#include <vector>

#include "platform/clock.h"
#include "platform/event_loop.h"

class QEventLoop;
class QTimer;

namespace melvane {

/// The real event loop: waits inside Qt's own loop on a precise timer, sleeps in slices for the last
/// millisecond and spins only for the last fraction of one, serving events all along. The clock must outlive
/// it, and a QCoreApplication must exist while it is used. Being told to quit by Qt ends it too.
class QtEventLoop final : public EventLoop {
 public:
    explicit QtEventLoop(const Clock& clock) : clock_(clock) {}

    void Idle() override { runQueue(); }
    void runQueue() override;
    /// Each 2 milliseconds.
    void turn() override;
    void waitUntil(std::int64_t counter) override;
    void waitFor(const std::function<bool()>& done) override;
    void pause(std::int64_t milliseconds) override;
    int startTimer(std::int64_t milliseconds, std::function<void()> call) override;
    void stopTimer(int id) override;
    void end() override;
    bool ended() const override { return ended_; }

 private:
    struct Timer {
        QTimer* timer;        ///< owned by owner_
        std::int64_t period;  ///< ticks of the clock
        std::int64_t moment;  ///< of the next call
        std::function<void()> call;
    };

    std::int64_t nanosecondsUntil(std::int64_t counter) const;
    std::int64_t ticks(std::int64_t milliseconds) const { return milliseconds * clock_.frequency() / 1000; }
    void serveFor(int milliseconds);
    void run(QEventLoop& loop);
    void arm(Timer& timer);
    void fire(int id);

    const Clock& clock_;
    QObject owner_;
    std::vector<QEventLoop*> running_;  ///< the innermost last
    std::int64_t lastTurn_ = 0;         ///< ticks of the clock
    std::map<int, Timer> timers_;
    int lastTimer_ = 0;
    bool ended_ = false;
};

}  // namespace melvane
