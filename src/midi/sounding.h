#pragma once
#include "core/chords.h"
#include "core/sounder.h"
#include "core/studio.h"
#include "midi/midi_output.h"
#include "platform/event_loop.h"

namespace melvane {

/// Turns one cell into messages and back to silence. Two pairs of operations, for playing and for the mouse;
/// their factors and columns differ on purpose. `row` is a cell value below 1000.
class Sounding final : public Sounder {
 public:
    Sounding(Studio& studio, MidiOutput& output, Chords& chords, EventLoop& loop)
        : studio_(studio), output_(output), chords_(chords), loop_(loop) {}

    void ChangeInstrument(int instrument, int track) override;
    /// At PlayColumn.
    void StartNote(int row, int track) override;
    void StopNote(int row) override;
    /// At NoteColumn, on LastTrack.
    void StartNoteBtnDn(int row) override;
    void StopNoteBtnUp(int row) override;
    void reset() override { output_.reset(); }

    void listNames(NameTables& tables);

 private:
    /// Where the playing and the drawing of a note differ.
    struct Manner {
        double rootFactor;    ///< of a chord's root
        double voicesFactor;  ///< of its other voices, on top of the root's
        bool melodyOnly;      ///< whether the root is scaled on tracks below 8 alone
        bool selectsChord;
    };
    static constexpr Manner playing{0.8, 0.8, true, true};
    static constexpr Manner drawing{0.85, 0.65, false, false};

    void setKeyAndChannel(int row, int track);
    void startAt(int column, int track, const Manner& manner);
    void sendEffects(int column);
    void startVoices(int track, const Manner& manner);
    void strumPause(int track, int milliseconds);
    void noteOn(int key, int track);
    void noteOffChord();
    bool channelChord(int track) const;
    Int16& volumeOf(int track) { return studio_.tracks.TrackVolume[static_cast<std::size_t>(track)]; }

    Studio& studio_;
    MidiOutput& output_;
    Chords& chords_;
    EventLoop& loop_;
};

}  // namespace melvane
