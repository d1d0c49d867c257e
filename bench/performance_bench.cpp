#include <benchmark/benchmark.h>
#include <malloc.h>

#include "core/text_list.h"
#include "synth/performance_lists.h"

// The lists of a capture of an hour at the tick of 10 ms: the performance with its pauses and the score's
// cells have a second. Beside them a copy of the capture.

namespace melvane {
namespace {

constexpr int ticksOfAnHour = 360'000;
constexpr double rate = 2.5;

struct Hour {
    /// One note after another of `length` ticks each.
    explicit Hour(int length) {
        for (int tick = 0; tick < ticksOfAnHour; ++tick) {
            repeats.add(tick < length ? tick + 1 : 0);
            rows.add(48 + tick / length % 40);
        }
    }
    TextList repeats, rows;
};

void buildListsOfAnHour(benchmark::State& state) {
    const Hour hour(static_cast<int>(state.range(0)));
    TextList performance, cells;
    for (auto _ : state) {
        performance::withPauses({hour.repeats, hour.rows}, rate, performance);
        performance::toCells(performance, rate, cells);
        performance::thinToShape(cells, rate, 12);
        benchmark::DoNotOptimize(cells.count());
    }
    state.counters["cells"] = cells.count();
    state.counters["limit_ms"] = 1000;
}
BENCHMARK(buildListsOfAnHour)->Arg(3)->Arg(25)->Arg(200)->Arg(ticksOfAnHour)->Unit(benchmark::kMillisecond);

/// What a capture of an hour holds in memory: 40 bytes a tick at most.
void memoryOfAnHour(benchmark::State& state) {
    double bytes = 0;
    for (auto _ : state) {
        const auto before = mallinfo2();
        const Hour hour(25);
        const auto after = mallinfo2();
        bytes = static_cast<double>(after.uordblks + after.hblkhd) -
                static_cast<double>(before.uordblks + before.hblkhd);
        benchmark::DoNotOptimize(hour.rows.count());
    }
    state.counters["bytes_a_tick"] = bytes / ticksOfAnHour;
    state.counters["limit_bytes"] = 40;
}
BENCHMARK(memoryOfAnHour)->Unit(benchmark::kMillisecond);

void copyAnHour(benchmark::State& state) {
    const Hour hour(25);
    for (auto _ : state) {
        TextList copy = hour.rows;
        benchmark::DoNotOptimize(copy.count());
    }
}
BENCHMARK(copyAnHour)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace melvane
