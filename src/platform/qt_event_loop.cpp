#include "platform/qt_event_loop.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <limits>
#include <thread>
#include <utility>

namespace melvane {

namespace {

constexpr std::int64_t aMillisecond = 1'000'000;  // nanoseconds, as all below

/// The toolkit's timers count whole milliseconds and may come this late: what is left then is slept in
/// slices.
constexpr std::int64_t timerMargin = 300'000;
/// How long an event may wait while a slice is slept.
constexpr std::int64_t slice = 200'000;
/// A sleep may last this much longer than asked for, so the end of a wait is spun.
constexpr std::int64_t spin = 150'000;

constexpr std::int64_t turnMilliseconds = 2;

void sleepFor(std::int64_t nanoseconds) {
    std::this_thread::sleep_for(std::chrono::nanoseconds(nanoseconds));
}

}  // namespace

std::int64_t QtEventLoop::nanosecondsUntil(std::int64_t counter) const {
    const std::int64_t left = std::max<std::int64_t>(counter - clock_.counter(), 0);
    const std::int64_t frequency = clock_.frequency();
    const std::int64_t seconds = left / frequency;
    if (seconds > std::numeric_limits<std::int32_t>::max()) return std::numeric_limits<std::int64_t>::max();
    return seconds * 1'000'000'000 + left % frequency * 1'000'000'000 / frequency;
}

void QtEventLoop::runQueue() {
    if (!ended_) QCoreApplication::processEvents(QEventLoop::AllEvents);
}

void QtEventLoop::turn() {
    const std::int64_t now = clock_.counter();
    if (now - lastTurn_ < ticks(turnMilliseconds)) return;
    lastTurn_ = now;
    runQueue();
}

void QtEventLoop::waitUntil(std::int64_t counter) {
    runQueue();
    // Each round may have run a handler that waited itself or ended the process, so both are looked at again.
    for (std::int64_t left = nanosecondsUntil(counter); left > 0 && !ended_;
         left = nanosecondsUntil(counter)) {
        const std::int64_t byTimer = (left - timerMargin) / aMillisecond;
        if (byTimer > 0) {
            serveFor(static_cast<int>(std::min<std::int64_t>(byTimer, std::numeric_limits<int>::max())));
            continue;
        }
        if (left > spin) sleepFor(std::min(slice, left - spin));
        runQueue();
    }
}

void QtEventLoop::waitFor(const std::function<bool()>& done) {
    if (ended_ || done()) return;
    QEventLoop loop;
    bool satisfied = false;
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, &loop,
                     [&] {
                         // Only the innermost wait asks: an outer one cannot return before it anyway.
                         if (satisfied || running_.back() != &loop || !done()) return;
                         satisfied = true;
                         loop.exit();
                     });
    run(loop);
}

void QtEventLoop::pause(std::int64_t milliseconds) {
    const std::int64_t moment = clock_.counter() + ticks(milliseconds);
    if (ended_) return;
    while (const std::int64_t left = nanosecondsUntil(moment)) {
        if (left > spin) sleepFor(left - spin);
    }
}

void QtEventLoop::serveFor(int milliseconds) {
    QEventLoop loop;
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &loop, [&loop] { loop.exit(); });
    timer.start(milliseconds);
    run(loop);
}

void QtEventLoop::run(QEventLoop& loop) {
    running_.push_back(&loop);
    const bool refused = loop.exec() == -1;  // what exec() answers after QCoreApplication::quit()
    running_.pop_back();
    if (refused) end();
}

int QtEventLoop::startTimer(std::int64_t milliseconds, std::function<void()> call) {
    const std::int64_t period = ticks(std::max<std::int64_t>(milliseconds, 1));
    const int id = ++lastTimer_;
    auto* timer = new QTimer(&owner_);
    timer->setTimerType(Qt::PreciseTimer);
    timer->setSingleShot(true);
    QObject::connect(timer, &QTimer::timeout, &owner_, [this, id] { fire(id); });
    const auto [entry, isNew] =
        timers_.try_emplace(id, Timer{timer, period, clock_.counter() + period, std::move(call)});
    arm(entry->second);
    return id;
}

// Each round is a new single shot towards an absolute moment: the timer does not drift, and it also comes
// while its own handler waits.
void QtEventLoop::arm(Timer& timer) {
    const std::int64_t left = (nanosecondsUntil(timer.moment) + aMillisecond - 1) / aMillisecond;
    timer.timer->start(static_cast<int>(std::min<std::int64_t>(left, std::numeric_limits<int>::max())));
}

void QtEventLoop::fire(int id) {
    const auto entry = timers_.find(id);
    if (ended_ || entry == timers_.end()) return;
    Timer& timer = entry->second;
    timer.moment = std::max(timer.moment + timer.period, clock_.counter());
    arm(timer);
    const auto call = timer.call;  // the call may stop its own timer
    call();
}

void QtEventLoop::stopTimer(int id) {
    const auto entry = timers_.find(id);
    if (entry == timers_.end()) return;
    entry->second.timer->stop();
    entry->second.timer->deleteLater();
    timers_.erase(entry);
}

void QtEventLoop::end() {
    ended_ = true;
    for (QEventLoop* loop : running_) loop->exit();
}

}  // namespace melvane
