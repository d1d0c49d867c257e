#pragma once

namespace melvane {

/// Sound, as the rooms below the MIDI room ask for it. `row` is a cell value below 1000, `track` 0 to 12.
class Sounder {
 public:
    virtual ~Sounder() = default;
    virtual void ChangeInstrument(int instrument, int track) = 0;
    virtual void StartNote(int row, int track) = 0;
    /// Ends a note of LastTrack.
    virtual void StopNote(int row) = 0;
    /// Starts a note of LastTrack under the mouse, at NoteColumn.
    virtual void StartNoteBtnDn(int row) = 0;
    virtual void StopNoteBtnUp(int row) = 0;
    /// Silences every note at once.
    virtual void reset() = 0;
};

}  // namespace melvane
