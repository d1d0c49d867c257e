// The export of a score with 12 full tracks as a MIDI file: the largest one that such a file holds, beside a
// plain encoder that formats the same events into one buffer, and 30,000 columns, whose events are written
// though the file ends at 32,767 bytes. Of the first row 5 times the events per second are asked that the
// midifile library builds, sorts and writes. Debian has no package of it, so it does not run here: it made
// 6.8 million where 34 million are asked.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <vector>

#include "files/midi_export.h"
#include "full_score.h"
#include "platform/virtual_time.h"
#include "render/null_surfaces.h"

namespace {

using namespace melvane;

constexpr int longest = 29'999;
constexpr int largestThatFits = 677;  // columns; the next two would not

std::unique_ptr<Studio> twelveTracks(int lastColumn) {
    auto studio = bench::fullStudio(lastColumn);
    studio->score.NoteArray.fillTrack(9, cell::empty, lastColumn);
    studio->score.PolyArray.create(lastColumn);
    return studio;
}

/// What an export needs around it.
struct Exporting {
    explicit Exporting(int lastColumn) : studio(twelveTracks(lastColumn)) {
        store.write("NumBytes", std::to_string(MidiExportState::lastByte));
    }

    std::unique_ptr<Studio> studio;
    VirtualTime time;
    MemorySettingsStore store;
    Settings settings{store};
    NullSurfaces surfaces;
    Chords chords{*studio, surfaces};
    FileOperations files{Directories{"/dev/null", "/dev/null"}, time, time};
    MidiExport midiExport{*studio, settings, chords, files};
};

struct Event {
    int delta;  ///< ticks
    std::uint8_t status, first, second;
};
using Track = std::vector<Event>;

/// The events of a full track, whose notes last two columns each and follow each other.
Track eventsOf(const Studio& studio, int track) {
    Track events;
    const auto& score = studio.score;
    const int instrument = score.InstArray.get(track, 0, 0);
    const bool percussion = instrument >= 128;
    const auto channel = static_cast<std::uint8_t>(percussion ? 9 : track);
    const auto key = [&](int column) {
        const int row = score.noteCell(track, column) % 1000;
        return static_cast<std::uint8_t>(percussion ? instrument - 93 : 127 - row);
    };
    const auto off = static_cast<std::uint8_t>(0x80 + channel),
               on = static_cast<std::uint8_t>(0x90 + channel);
    if (!percussion)
        events.push_back(
            {0, static_cast<std::uint8_t>(0xC0 + track), static_cast<std::uint8_t>(instrument), 0});
    int last = 0;
    for (int column = 0; column <= score.NumNotes; column += 2) {
        if (column > 0) events.push_back({(column - last) * 12, off, key(last), 0});
        const int velocity = score.VolumeArray.get(track, column + 1, 127);
        events.push_back({0, on, key(column), static_cast<std::uint8_t>(velocity)});
        last = column;
    }
    events.push_back({(score.NumNotes + 1 - last) * 12, off, key(last), 0});
    return events;
}

std::vector<Track> eventsOf(const Studio& studio) {
    std::vector<Track> tracks(13);
    for (int track = 0; track <= lastTrackNumber; ++track) {
        auto& events = tracks[static_cast<std::size_t>(track)];
        const int end = (studio.score.NumNotes + 2) * 12;
        if (track != 9) events = eventsOf(studio, track);
        events.push_back({track == 9 ? end : 12, 0xFF, 0x2F, 0});
    }
    return tracks;
}

std::int64_t countOf(const std::vector<Track>& tracks) {
    std::int64_t events = 0;
    for (const auto& track : tracks) events += static_cast<std::int64_t>(track.size());
    return events;
}

void putDelta(std::vector<std::uint8_t>& buffer, int ticks) {
    if (ticks >= 1 << 14) buffer.push_back(static_cast<std::uint8_t>(0x80 | ticks >> 14));
    if (ticks >= 1 << 7) buffer.push_back(static_cast<std::uint8_t>(0x80 | (ticks >> 7 & 0x7F)));
    buffer.push_back(static_cast<std::uint8_t>(ticks & 0x7F));
}

void encode(std::vector<std::uint8_t>& buffer, const Track& events) {
    for (const char letter : {'M', 'T', 'r', 'k', '\0', '\0', '\0', '\0'})
        buffer.push_back(static_cast<std::uint8_t>(letter));
    const std::size_t start = buffer.size();
    for (const auto& event : events) {
        putDelta(buffer, event.delta);
        buffer.push_back(event.status);
        buffer.push_back(event.first);
        if ((event.status & 0xF0) != 0xC0) buffer.push_back(event.second);
    }
    const std::size_t length = buffer.size() - start;
    for (std::size_t byte = 0; byte < 4; ++byte)
        buffer[start - 4 + byte] = static_cast<std::uint8_t>(length >> (24 - 8 * byte));
}

/// The chunks behind the head, as the export has them.
std::vector<std::uint8_t> encode(const std::vector<Track>& tracks) {
    std::vector<std::uint8_t> buffer;
    buffer.reserve(MidiExportState::lastByte);
    for (const auto& events : tracks) encode(buffer, events);
    return buffer;
}

void exportMidi(benchmark::State& state) {
    Exporting exporting(largestThatFits);
    const auto tracks = eventsOf(*exporting.studio);
    const auto expected = encode(tracks);
    const auto built = exporting.midiExport.build();
    const auto isSame = [](char left, std::uint8_t right) {
        return static_cast<std::uint8_t>(left) == right;
    };
    if (!built.whole || !std::ranges::equal(built.bytes.substr(41), expected, isSame)) {
        state.SkipWithError("the two encoders differ");
        return;
    }
    for (auto _ : state) benchmark::DoNotOptimize(exporting.midiExport.build());
    state.SetItemsProcessed(state.iterations() * countOf(tracks));
}
BENCHMARK(exportMidi)->Unit(benchmark::kMicrosecond);

void encodeMidiEvents(benchmark::State& state) {
    const auto studio = twelveTracks(largestThatFits);
    const auto tracks = eventsOf(*studio);
    for (auto _ : state) benchmark::DoNotOptimize(encode(tracks));
    state.SetItemsProcessed(state.iterations() * countOf(tracks));
}
BENCHMARK(encodeMidiEvents)->Unit(benchmark::kMicrosecond);

void exportLongMidi(benchmark::State& state) {
    Exporting exporting(longest);
    for (auto _ : state) benchmark::DoNotOptimize(exporting.midiExport.build());
    state.SetItemsProcessed(state.iterations() * countOf(eventsOf(*exporting.studio)));
}
BENCHMARK(exportLongMidi)->Unit(benchmark::kMicrosecond);

}  // namespace
