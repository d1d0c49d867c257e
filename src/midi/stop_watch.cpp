#include "midi/stop_watch.h"

#include <cmath>

#include "core/names.h"

namespace melvane {

namespace {

constexpr double longestWait = 1e9;  // seconds

}  // namespace

int StopWatches::StopWatchCreate() {
    slots_.emplace_back();
    return static_cast<int>(slots_.size());
}

StopWatches::Slot* StopWatches::find(int slot) {
    if (slot < 1 || static_cast<std::size_t>(slot) > slots_.size()) return nullptr;
    return &slots_[static_cast<std::size_t>(slot) - 1];
}

int StopWatches::StopWatchStart(int slot) {
    Slot* watch = find(slot);
    if (watch == nullptr) return 0;
    watch->running = true;
    frequency_ = clock_.frequency();
    watch->start = clock_.counter();
    watch->latest = clock_.counter();
    calibration_ = watch->latest - watch->start;
    watch->start = clock_.counter();
    return 1;
}

float StopWatches::StopWatchElapsed(int slot) {
    Slot* watch = find(slot);
    if (watch == nullptr) return -1;
    if (!watch->running) return 0;
    watch->latest = clock_.counter();
    const auto ticks = watch->latest - watch->start - calibration_;
    return static_cast<float>(static_cast<double>(ticks) / static_cast<double>(frequency_));
}

// The moment is reckoned on the counter, where the elapsed seconds would lose precision in a long playback.
void StopWatches::WaitSeconds(int slot, double seconds) {
    const Slot* watch = find(slot);
    if (watch == nullptr || !watch->running || !(std::abs(seconds) < longestWait)) return;
    // To the microsecond: single-precision seconds carry no more, and 0.138 is to mean 138 milliseconds.
    const auto microseconds = std::llround(seconds * 1e6);
    const auto ticks = microseconds / 1'000'000 * clock_.frequency() +
                       microseconds % 1'000'000 * clock_.frequency() / 1'000'000;
    loop_.waitUntil(clock_.counter() + ticks);
}

void StopWatches::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("form1", "StopWatchCreate", this, &StopWatches::StopWatchCreate);
    operations.add("form1", "StopWatchStart", this, &StopWatches::StopWatchStart);
    operations.add("form1", "StopWatchElapsed", this, &StopWatches::StopWatchElapsed);
    operations.add("form1", "WaitSeconds", this, &StopWatches::WaitSeconds);
    operations.add("form1", "WaitSecondsBusy", this, &StopWatches::WaitSecondsBusy);
}

}  // namespace melvane
