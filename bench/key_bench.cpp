// From the handler of a key's press to the root's message at the port, through the engine alone: 26 letters
// one after the other, as single notes and with a chord. To reach: 0.2 ms at the median, 1 ms at the 99th
// percentile.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <vector>

#include "platform/media_error.h"
#include "platform/virtual_time.h"
#include "render/null_midi_port.h"
#include "render/null_surfaces.h"
#include "render/null_windows.h"
#include "shell/engine.h"

namespace {

using namespace melvane;

/// Keeps when the first message since arm() came, and how many came.
class StampingPort final : public NullMidiPort {
 public:
    Result midiOutShortMsg(Handle, std::uint32_t) override {
        if (messages++ == 0) first = clock.counter();
        return ok;
    }
    void arm() { messages = 0; }

    SteadyClock clock;
    std::int64_t first = 0;
    int messages = 0;
};

struct Instrument {
    VirtualTime time;
    StampingPort port;
    NoMediaDevice media;
    BareDesktop desktop;
    MemorySettingsStore store;
    NullDialogs dialogs;
    NullSurfaces surfaces;
    NullFrame frame;
    NullToolWindows toolWindows;
    Studio studio;
    Outside outside{time, time, port, media, desktop, store, dialogs, Directories{"/dev/null", "/dev/null"}};
    Engine engine{studio, outside, surfaces, frame, toolWindows};
};

/// The argument is how many messages a press sends: 1, or 4 with a chord.
void keyToRoot(benchmark::State& state) {
    const auto instrument = std::make_unique<Instrument>();
    instrument->studio.frmsynth.Check8.userPut(state.range(0) > 1);
    instrument->studio.frmsynth.Text4.set("1");
    auto& port = instrument->port;
    auto& keys = instrument->engine.keyboard.keys;
    std::vector<double> took;
    int letter = 0;
    for (auto _ : state) {
        const char key = "QWERTYUIOPSDFGHJKLZXCVBNM"[letter++ % 25];
        port.arm();
        const std::int64_t start = port.clock.counter();
        keys.Form_KeyDown(key, 0);
        if (port.messages != state.range(0)) return state.SkipWithError("a press did not send its notes");
        took.push_back(static_cast<double>(port.first - start) / 1e9);
        state.SetIterationTime(took.back());
        keys.Form_KeyPress(key - 'A' + 'a');
        keys.Form_KeyUp(key, 0);
    }
    std::ranges::sort(took);
    state.counters["median_us"] = took[took.size() / 2] * 1e6;
    state.counters["p99_us"] = took[took.size() * 99 / 100] * 1e6;
    state.counters["worst_us"] = took.back() * 1e6;
}
BENCHMARK(keyToRoot)->Arg(1)->Arg(4)->Iterations(100'000)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace
