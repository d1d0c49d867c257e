// One column in which 12 tracks start a note with effects and, on the melody tracks, a chord, into a
// recording port.
#include <benchmark/benchmark.h>

#include <vector>

#include "full_score.h"
#include "midi/column_notes.h"
#include "platform/scripted_dialogs.h"
#include "platform/virtual_time.h"
#include "render/null_midi_port.h"
#include "render/null_surfaces.h"

namespace {

using namespace melvane;

/// Writes each message into memory that is there already.
class MemoryPort final : public NullMidiPort {
 public:
    std::vector<std::uint32_t> words = std::vector<std::uint32_t>(1 << 16);
    std::size_t used = 0;

    Result midiOutShortMsg(Handle, std::uint32_t message) override {
        words[used++ & 0xFFFF] = message;
        return ok;
    }
};

void startTwelveTracks(benchmark::State& state) {
    const auto studio = bench::fullStudio(1000);
    studio->score.NoteArray.fillTrack(9, cell::empty, 1000);
    VirtualTime time;
    MemoryPort port;
    MemorySettingsStore store;
    Settings settings(store);
    ScriptedDialogs dialogs(time);
    NullSurfaces surfaces;
    MidiOutput output(*studio, settings, port, dialogs);
    Chords chords(*studio, surfaces);
    chords.fillList();
    Sounding sounding(*studio, output, chords, time);
    ColumnNotes notes(*studio, sounding);
    // Nothing was played before, so each round starts 12 notes and stops none.
    studio->player.PlayColumn = 2;
    for (auto _ : state) {
        notes.forgetPlayedCells();
        notes.PlayNotes();
    }
    state.counters["messages_a_column"] =
        benchmark::Counter(static_cast<double>(port.used) / static_cast<double>(state.iterations()));
}
BENCHMARK(startTwelveTracks)->Unit(benchmark::kMicrosecond);

}  // namespace
