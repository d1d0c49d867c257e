// What the Setup toolbar does to a whole channel of a score of 32,000 columns with all 13 tracks full, beside
// filling the same cells. Nothing is drawn.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <vector>

#include "core/channel_chords.h"
#include "full_score.h"
#include "midi/channel_settings.h"
#include "platform/recording_midi_port.h"
#include "platform/virtual_time.h"
#include "render/null_surfaces.h"
#include "render/null_windows.h"

namespace {

using namespace melvane;

constexpr int lastColumn = 31'999;
constexpr int track = 3;

/// The part of the engine that the toolbar's commands need.
struct Toolbar {
    std::unique_ptr<Studio> studio = bench::fullStudio(lastColumn);
    VirtualTime time;
    RecordingMidiPort port{time};
    MemorySettingsStore store;
    Settings settings{store};
    NullDialogs dialogs;
    NullSurfaces surfaces;
    MidiOutput output{*studio, settings, port, dialogs};
    ChannelSettings channels{*studio, output};
    ChannelChords chords{*studio, surfaces};

    Toolbar() {
        studio->Form3.SetupChannel = track;
        studio->tracks.ChannelSettings[track] = {24, 100, 64, 10, 20, 30};
        chords.fillList();
    }
};

void applyChannelSettings(benchmark::State& state) {
    Toolbar toolbar;
    for (auto _ : state) {
        toolbar.channels.ApplyChannelSettings();
        benchmark::ClobberMemory();
    }
}
BENCHMARK(applyChannelSettings)->Unit(benchmark::kMicrosecond);

void fillFourRows(benchmark::State& state) {
    std::array<std::vector<std::int16_t>, 4> rows;
    for (auto& row : rows) row.assign(lastColumn + 1, 0);
    for (auto _ : state) {
        for (auto& row : rows) std::ranges::fill(row, std::int16_t{7});
        benchmark::ClobberMemory();
    }
}
BENCHMARK(fillFourRows)->Unit(benchmark::kMicrosecond);

void channelChordOnAndOff(benchmark::State& state) {
    Toolbar toolbar;
    auto& box = toolbar.studio->Form3.Ch[track];
    for (auto _ : state) {
        for (const bool on : {true, false}) {
            box.set(on);
            toolbar.chords.Ch_Click(track);
            benchmark::ClobberMemory();
        }
    }
}
BENCHMARK(channelChordOnAndOff)->Unit(benchmark::kMicrosecond);

}  // namespace
