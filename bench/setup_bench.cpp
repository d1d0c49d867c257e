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
    /// Whether each of the 32,000 cells of a grid's track holds `value`.
    bool filled(const Grid& grid, int gridTrack, int value) const {
        const auto cells = grid.row(gridTrack);
        return cells.size() == std::size_t{lastColumn} + 1 &&
               std::ranges::all_of(cells, [value](std::int16_t cell) { return cell == value; });
    }
};

void applyChannelSettings(benchmark::State& state) {
    Toolbar toolbar;
    for (auto _ : state) {
        toolbar.channels.ApplyChannelSettings();
        benchmark::ClobberMemory();
    }
    const auto& score = toolbar.studio->score;
    const bool good =
        toolbar.filled(score.ModArray, track, 30) && toolbar.filled(score.PanArray, track, 64) &&
        toolbar.filled(score.ReverbArray, track, 10) && toolbar.filled(score.ChorusArray, track, 20);
    if (!good) state.SkipWithError("a cell does not hold the channel's settings");
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
    const auto& chords = toolbar.studio->score.PolyArray;
    box.set(true);
    toolbar.chords.Ch_Click(track);
    if (!toolbar.filled(chords, track + 1, 1)) state.SkipWithError("a cell does not hold the chord");
    for (auto _ : state) {
        for (const bool on : {true, false}) {
            box.set(on);
            toolbar.chords.Ch_Click(track);
            benchmark::ClobberMemory();
        }
    }
    if (!toolbar.filled(chords, track + 1, 0)) state.SkipWithError("a cell still holds the chord");
}
BENCHMARK(channelChordOnAndOff)->Unit(benchmark::kMicrosecond);

}  // namespace
