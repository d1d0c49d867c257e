#include "files/midi_track_walk.h"

#include "core/song_walk.h"
#include "files/midi_bytes.h"
#include "files/midi_sound.h"

namespace melvane {

namespace {

constexpr int programChange = 0xC0;

int cellAt(std::span<const Int16> cells, int column, int missing) {
    const auto index = static_cast<std::size_t>(column);
    return index < cells.size() ? cells[index] : missing;
}

/// That of an event written now.
void keepChannel(MidiExportState& state, int track) {
    state.ExportChannel = static_cast<Int16>(Sound::inForce(state, track).channel);
}

/// A walk over one track. What it remembers are values of its own, which stay in registers, until keepIn().
class Walk {
 public:
    Walk(Studio& studio, int track)
        : bytes_(studio.midiExport),
          instruments_(studio.score.InstArray.row(track)),
          velocities_(studio.score.VolumeArray.row(track)),
          track_(track),
          sound_(Sound::inForce(studio.midiExport, track)) {
        const auto entry = static_cast<std::size_t>(track);
        lastInstrument_ = studio.player.LastPlayedInstrument[entry];
        velocity_ = studio.tracks.TrackVolume[entry];
        lastEvent_ = studio.midiExport.LastEventColumn;
    }
    void keepIn(Studio& studio) const {
        auto& state = studio.midiExport;
        const auto entry = static_cast<std::size_t>(track_);
        studio.player.LastPlayedInstrument[entry] = static_cast<Int16>(lastInstrument_);
        studio.tracks.TrackVolume[entry] = static_cast<Int16>(velocity_);
        state.LastEventColumn = static_cast<Int16>(lastEvent_);
        state.ExportPercussion = sound_.percussion;
        state.ExportPercussionKey = static_cast<Int16>(sound_.percussionKey);
    }

    /// A continuation changes nothing, whatever came before it.
    int writeColumn(int at, int column, int lastCell, int cell) {
        if (cell::isContinuation(cell)) return at;
        if (cell::isStart(cell)) return writeStart(at, column, lastCell, cell);
        if (cell::isEmpty(lastCell)) return at;
        return bytes_.addEvent(at, columnsTo(column), sound_.off(lastCell));
    }
    MidiMessage noteOn(int row, int column) {
        velocity_ = cellAt(velocities_, column + 1, velocity_);
        return sound_.on(row, velocity_);
    }

 private:
    int writeStart(int at, int column, int lastCell, int row) {
        at = takeInstrument(at, column);
        const MidiMessage on = noteOn(row, column);
        if (cell::isEmpty(lastCell)) return bytes_.addEvent(at, columnsTo(column), on);
        return bytes_.addEvents(at, columnsTo(column), sound_.off(lastCell), on);
    }
    /// A change comes before the end of the last note, which may therefore end with another sound.
    int takeInstrument(int at, int column) {
        const int instrument = cellAt(instruments_, column, lastInstrument_);
        if (instrument == lastInstrument_) return at;
        lastInstrument_ = instrument;
        sound_.change(instrument, track_);
        if (sound_.percussion) return at;
        at = bytes_.addDelta(at, columnsTo(column));
        at = bytes_.add(at, programChange + track_);
        return bytes_.add(at, instrument);
    }
    int columnsTo(int column) {
        const int columns = column - lastEvent_;
        lastEvent_ = column;
        return columns;
    }

    MidiBytes bytes_;
    std::span<const Int16> instruments_, velocities_;
    int track_;
    Sound sound_;
    int lastInstrument_, lastEvent_, velocity_;
};

/// The cells and the instrument at which a walk has ended.
void keepCells(Studio& studio, int track, int previous, int last) {
    auto& player = studio.player;
    player.LastPlayedCell[static_cast<std::size_t>(track)] = static_cast<Int16>(last);
    player.PreviousCellState = playedState(previous);
    player.CurrentCellState = playedState(last);
    const auto& instruments = studio.score.InstArray;
    const int column = std::min(player.SongEndColumn - 1, instruments.lastColumn());
    if (const auto instrument = instruments.find(track, column))
        studio.midiExport.ExportInstrument = *instrument;
}

int writeBytes(Studio& studio, int track, int at, const MidiMessage& message) {
    keepChannel(studio.midiExport, track);
    const MidiBytes bytes(studio.midiExport);
    for (const int byte : {message.status, message.key, message.velocity}) at = bytes.add(at, byte);
    return at;
}

}  // namespace

int writeTrackColumns(Studio& studio, int track, int at, ChordVoices& voices) {
    Walk walk(studio, track);
    const auto& score = studio.score;
    const auto cells = score.NoteArray.row(track);
    const auto chords =
        track <= score.TopPolyTrack ? score.PolyArray.row(track + 1) : std::span<const Int16>();
    const int end = studio.player.SongEndColumn;
    const int start = at;
    int previous = cell::empty;
    int last = cell::empty;
    for (int column = 0; column < end; ++column) {
        if (cellAt(chords, column + 1, 0) > 0) voices.makeFrom(track, column);
        const int cell = cellAt(cells, column, cell::empty);
        at = walk.writeColumn(at, column, last, cell);
        previous = last;
        last = cell;
    }
    walk.keepIn(studio);
    keepCells(studio, track, previous, last);
    if (at != start) keepChannel(studio.midiExport, track);
    return at;
}

int writeNoteOn(Studio& studio, int track, int column, int at) {
    Walk walk(studio, track);
    const MidiMessage on = walk.noteOn(studio.score.noteCell(track, column), column);
    walk.keepIn(studio);
    return writeBytes(studio, track, at, on);
}

int writeNoteOff(Studio& studio, int track, int at) {
    const int last = studio.player.LastPlayedCell[static_cast<std::size_t>(track)];
    return writeBytes(studio, track, at, Sound::inForce(studio.midiExport, track).off(last));
}

}  // namespace melvane
