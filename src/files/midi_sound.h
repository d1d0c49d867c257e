#pragma once
#include "core/studio.h"
#include "files/midi_bytes.h"
#include "midi/messages.h"

namespace melvane {

/// What sounds the notes of an exported track: a channel, or one key of the percussion channel. Only the
/// instrument decides, so that a percussion track with a melody instrument is written on a channel of its own
/// number.
struct Sound {
    static constexpr int firstPercussion = 128;    ///< instrument
    static constexpr int percussionKeyShift = 93;  ///< from an instrument to its key
    static constexpr int highestKey = 127;         ///< that of row 0

    int channel = 0;
    int percussionKey = 0;  ///< kept when a melody instrument takes over
    bool percussion = false;

    /// At the start of a track; it may be a percussion sound of the track before.
    static Sound inForce(const MidiExportState& state, int track) {
        return {state.ExportPercussion ? message::percussionChannel : track, state.ExportPercussionKey,
                state.ExportPercussion};
    }
    void change(int instrument, int track) {
        percussion = instrument >= firstPercussion;
        channel = percussion ? message::percussionChannel : track;
        if (percussion) percussionKey = instrument - percussionKeyShift;
    }

    MidiMessage on(int row, int velocity) const { return {0x90 + channel, key(row), velocity}; }
    /// `cell` is that of a note's start or continuation.
    MidiMessage off(int cell) const { return {0x80 + channel, key(rowOf(cell)), 0}; }

 private:
    int key(int row) const { return percussion ? percussionKey : highestKey - row; }
    /// A division only for what no note has.
    static int rowOf(int cell) {
        if (cell < cell::continuation) return cell;
        const int row = cell - cell::continuation;
        return row < cell::continuation ? row : cell::row(row);
    }
};

}  // namespace melvane
