// How long a key of the machine takes to the note at the port: a key event in the queue of the system's
// events, through the running event loop and the keyboard window, to the root's message. The keys' painting
// and everything else that the window does goes on meanwhile, as it would. Each row's time is the mean; the
// limits are on its median and its 99th percentile.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <optional>

#include "keyboard_stage.h"

namespace {

using namespace melvane;
using bench::KeyboardStage;

constexpr int rounds = 2000, warmUps = 50;
constexpr double medianLimit = 200, lateLimit = 1000;  // microseconds
constexpr int pause = 1;                               // milliseconds between a release and the next press

/// Microseconds from the event to the note; nothing when no note came.
std::optional<double> strike(KeyboardStage& stage, char letter) {
    stage.port.notes.clear();
    const auto before = bench::now();
    stage.press(letter);
    KeyboardStage::serve(0);
    const auto notes = stage.port.notes;
    stage.release(letter);
    KeyboardStage::serve(pause);
    if (notes.empty()) return std::nullopt;
    return std::chrono::duration<double, std::micro>(notes.front() - before).count();
}

bool passed = true;

/// Strikes the letters one after another.
void measure(benchmark::State& state, KeyboardStage& stage) {
    constexpr std::array letters{'Z', 'X', 'C', 'V', 'B', 'N', 'Q', 'W', 'E', 'R', 'A', 'K'};
    std::vector<double> times;
    for (int round = -warmUps; round < rounds; ++round) {
        const auto at = static_cast<std::size_t>(round + warmUps) % letters.size();
        const auto took = strike(stage, letters[at]);
        if (!took) {
            passed = false;
            state.SkipWithError("a key was struck and no note came");
            return;
        }
        if (round >= 0) times.push_back(*took);
    }
    std::ranges::sort(times);
    std::size_t at = 0;
    for (auto unused : state) {
        (void)unused;
        state.SetIterationTime(times[at++] / 1e6);
    }
    const double median = times[times.size() / 2], late = times[times.size() * 99 / 100];
    state.counters["median_us"] = median;
    state.counters["p99_us"] = late;
    state.counters["worst_us"] = times.back();
    state.counters["limit_median_us"] = medianLimit;
    state.counters["limit_p99_us"] = lateLimit;
    passed = passed && median <= medianLimit && late <= lateLimit;
}

void keyToNote(benchmark::State& state) {
    KeyboardStage stage;
    measure(state, stage);
}
BENCHMARK(keyToNote)->Iterations(rounds)->UseManualTime()->Unit(benchmark::kMicrosecond);

/// The root goes out first, ahead of the chord and of the keys' painting.
void keyToRootOfChord(benchmark::State& state) {
    KeyboardStage stage;
    stage.studio.frmsynth.Check8.set(true);
    stage.studio.frmsynth.Text4.set("3");
    measure(state, stage);
}
BENCHMARK(keyToRootOfChord)->Iterations(rounds)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    return bench::runOnScreen(argc, argv, [](int count, char** arguments) {
        benchmark::Initialize(&count, arguments);
        benchmark::RunSpecifiedBenchmarks();
        benchmark::Shutdown();
        return passed ? 0 : 1;
    });
}
