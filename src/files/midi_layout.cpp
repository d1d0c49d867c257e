#include "files/midi_layout.h"

#include <optional>

namespace melvane {

namespace {

constexpr int microsecondsAMinute = 60'000'000;
constexpr int tempoAt = 27;
constexpr int denominatorAt = 35;

// Always 14 tracks, however many are written. The zeros at the tempo and the denominator are replaced.
constexpr std::array<std::uint8_t, 41> head{
    'M', 'T', 'h', 'd', 0, 0, 0,  6,  0, 1, 0, 14, 0, 48,  // format 1, 14 tracks, 48 ticks a quarter note
    'M', 'T', 'r', 'k', 0, 0, 0,  19,                      //
    0,   255, 81,  3,   0, 0, 0,                           // tempo
    0,   255, 88,  4,   4, 0, 24, 8,  // meter: 4 over a power of 2, clocks a click, 32nds
    0,   255, 47,  0};

struct Meter {
    int fewestBeats, mostBeats;
    std::uint8_t denominator;  ///< as a power of 2
};
constexpr std::array<Meter, 3> meters{{{4, 7, 2}, {8, 15, 3}, {16, 20, 4}}};

/// Nothing for a number of beats that has none.
std::optional<std::uint8_t> denominatorOf(int beats) {
    for (const auto& meter : meters) {
        if (beats >= meter.fewestBeats && beats <= meter.mostBeats) return meter.denominator;
    }
    return std::nullopt;
}

void store(MidiExportState& state, int at, int value) {
    if (at >= 0 && at <= MidiExportState::lastByte && value >= 0 && value <= 255)
        state.MidiBuffer[static_cast<std::size_t>(at)] = static_cast<std::uint8_t>(value);
}

}  // namespace

void writeMidiHead(Studio& studio) {
    auto& state = studio.midiExport;
    std::ranges::copy(head, state.MidiBuffer.begin() + 1);
    writeMidiTempo(studio);
    if (const auto denominator = denominatorOf(studio.score.BeatsPerMeasure))
        store(state, denominatorAt, *denominator);
    state.MidiWriteIndex = head.size();
}

void writeMidiTempo(Studio& studio) {
    const int tempo = studio.score.Tempo;
    if (tempo == 0) return;
    const int microseconds = microsecondsAMinute / tempo;
    store(studio.midiExport, tempoAt, microseconds / 65536);
    store(studio.midiExport, tempoAt + 1, microseconds / 256 % 256);
    store(studio.midiExport, tempoAt + 2, microseconds % 256);
}

void writeTrackLength(MidiExportState& state) {
    const int length = state.TrackByteCount;
    for (int byte = 0; byte < 4; ++byte)
        store(state, state.TrackDataStart - 4 + byte, length >> (24 - 8 * byte) & 255);
}

}  // namespace melvane
