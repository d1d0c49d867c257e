// How exact a wait of the event loop is, and what it costs: fifty columns of 138 ms, the step of a song at
// tempo 100.
#include <benchmark/benchmark.h>

#include <QCoreApplication>

#include <algorithm>
#include <ctime>
#include <vector>

#include "platform/qt_event_loop.h"

namespace {

constexpr std::int64_t aMillisecond = 1'000'000;  // nanoseconds

double processorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

/// The time that is counted is how late a wait ends. `cpu%` is of one core.
void waitForAColumn(benchmark::State& state) {
    const melvane::SteadyClock clock;
    melvane::QtEventLoop loop(clock);
    std::vector<double> late;
    const std::int64_t start = clock.counter();
    const double busyBefore = processorSeconds();
    for (auto column : state) {
        (void)column;
        const std::int64_t moment = clock.counter() + state.range(0) * aMillisecond;
        loop.waitUntil(moment);
        late.push_back(static_cast<double>(clock.counter() - moment) / 1e9);
        state.SetIterationTime(late.back());
    }
    const double busy = processorSeconds() - busyBefore;
    std::ranges::sort(late);
    state.counters["median_us"] = late[late.size() / 2] * 1e6;
    state.counters["worst_us"] = late.back() * 1e6;
    state.counters["cpu%"] = busy / (static_cast<double>(clock.counter() - start) / 1e9) * 100;
}
BENCHMARK(waitForAColumn)->Arg(138)->Iterations(50)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
