#pragma once
#include <functional>

#include "core/chords.h"
#include "core/column_audition.h"
#include "core/drag.h"
#include "core/instrument_choice.h"
#include "core/note_selector.h"
#include "core/selection_gestures.h"
#include "core/sounder.h"
#include "core/studio.h"
#include "core/surfaces.h"
#include "platform/event_loop.h"

namespace melvane {

/// Drawing on the music tablet: a press starts a note that sounds, a drag lengthens it on the screen, the
/// release writes it. X and Y in pixels of the tablet; `button` 1 left, 2 right, 4 middle, in a move added
/// together.
class NoteEntry {
 public:
    struct Parts {
        Surfaces& surfaces;
        Sounder& sounder;
        InstrumentChoice& instruments;
        ColumnAudition& audition;
        NoteSelector& selector;
        SelectionGestures& selecting;
        EventLoop& loop;
    };
    NoteEntry(Studio& studio, Parts parts) : studio_(studio), parts_(parts) {}

    void MusicBox_MouseDown(int button, int shift, double X, double Y);
    void MusicBox_MouseMove(int button, int shift, double X, double Y);
    void MusicBox_MouseUp(int button, int shift, double X, double Y);

    /// Opens the tablet's popup menu; set by the shell.
    OpenMenu openMenu;

    void listNames(NameTables& tables);

 private:
    void takeFocusBack();
    void setDragCell(double X, double Y);
    void pressInDrawMode(int button);
    void pressTool(int button);
    void startNote();
    void pressRight();
    void setChordOfNote(int column);
    void walkToStart();
    void eraseNote();
    void writePanel();
    void testSound();
    bool moveInMargin(int button, double X, double Y);
    void showTip(double X);
    void dragNote(double X);
    void releaseInDrawMode(int button, double X, double Y);
    void markTestedNote(double X);
    void finishNote(double X, double Y);
    void menu(std::function<void()> closed = {}) const { openMenuOrGoOn(openMenu, std::move(closed)); }

    int column() const { return studio_.page.FirstColumn + studio_.drag.DragColumn; }
    int track() const { return studio_.tracks.CurrentTrack; }
    int chordIndex() const { return studio_.form1.Combo3.index(); }

    Studio& studio_;
    Parts parts_;
    double pressX_ = 0, pressY_ = 0;  ///< pixels, of the last press
};

}  // namespace melvane
