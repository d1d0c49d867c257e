#pragma once
#include <string>

#include "core/chords.h"
#include "core/file_operations.h"
#include "core/settings.h"
#include "core/studio.h"
#include "files/chord_voices.h"
#include "files/midi_bytes.h"

namespace melvane {

/// The score as a Standard MIDI File: format 1, 48 ticks a quarter note, 12 a column, one track for each of
/// the score's. User-interface thread.
class MidiExport {
 public:
    MidiExport(Studio& studio, Settings& settings, Chords& chords, FileOperations& files)
        : studio_(studio), settings_(settings), files_(files), voices_(studio, chords) {}

    /// Writes SaveFileName. An existing file is overwritten in place and keeps what is longer than the new
    /// one. Whatever fails, fails quietly.
    void MidiFile();

    /// A file as it was built. It is whole unless bytes were lost, to a small buffer or past byte 32767.
    struct Built {
        std::string bytes;
        bool whole = true;
    };
    /// Steps of MidiFile but for the writing.
    Built build();

    /// `value` as binary digits, the highest 1 first; "0" for 0 and below.
    static std::string ToBinaryText(std::int32_t value);
    /// The time of DeltaColumns at the byte in hand.
    void VlqWriter();
    void NextMidiByte();
    void WriteTempo();
    void WriteTrackLength();
    void WriteNoteOn(int track, int column);
    void WriteNoteOff(int track);

    void listNames(NameTables& tables);

 private:
    Built fillBuffer();
    void newBuffer();
    bool growBuffer();
    int lastTrack() const;
    bool writeTrack(int track);
    void listState(StateTable& table);

    Studio& studio_;
    Settings& settings_;
    FileOperations& files_;
    ChordVoices voices_;
};

}  // namespace melvane
