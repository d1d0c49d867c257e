#pragma once
#include "core/chords.h"
#include "core/studio.h"
#include "core/surfaces.h"

namespace melvane {

struct NameTables;

/// The note selector strip: inspects the current track column by column, and writes the panel's values into
/// single columns. X and Y in pixels of the strip; `button` 1 left, 2 right, 4 middle, in a move added
/// together.
class NoteSelector {
 public:
    NoteSelector(Studio& studio, Surfaces& surfaces, Chords& chords)
        : studio_(studio), surfaces_(surfaces), chords_(chords) {}

    void Pic2a_MouseDown(int button, int shift, double X, double Y);
    /// A sweep inspects or writes every column passed.
    void Pic2a_MouseMove(int button, int shift, double X, double Y);
    void Pic2a_MouseUp(int button, int shift, double X, double Y);

    void listNames(NameTables& tables);

 private:
    void inspect(int column);
    void inspectBlank(int column);
    void inspectPercussion(int column);
    void inspectMelody(int column, int cellValue);
    void write(int column);
    void showEffects(int column);
    std::string percussionName() const;

    Studio& studio_;
    Surfaces& surfaces_;
    Chords& chords_;
};

/// Writes the panel's instrument, velocity and effects as those of a note of the current track that starts at
/// `column`; `volumeTrack` is the track whose velocity is written.
void writePanelValues(Studio& studio, int column, int instrument, int volumeTrack);

}  // namespace melvane
