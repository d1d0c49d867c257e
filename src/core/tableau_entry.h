#pragma once
#include "core/channel_selection.h"
#include "core/column_audition.h"
#include "core/drag.h"
#include "core/instrument_choice.h"
#include "core/selection_gestures.h"
#include "core/sounder.h"
#include "core/studio.h"
#include "core/surfaces.h"

namespace melvane {

/// Drawing on the percussion tableau. Its rows are 12 pixels high and only say where a beat stands: the sound
/// is that of the track. X and Y in pixels of the tableau; `button` 1 left, 2 right, 4 middle, in a move
/// added together.
class TableauEntry {
 public:
    struct Parts {
        Surfaces& surfaces;
        Sounder& sounder;
        InstrumentChoice& instruments;
        ChannelSelection& channels;
        ColumnAudition& audition;
        SelectionGestures& selecting;
    };
    TableauEntry(Studio& studio, Parts parts) : studio_(studio), parts_(parts) {}

    void Beatbox_GotFocus();
    /// The same for the tablet: a percussion track gives way to channel 1.
    void MusicBox_GotFocus();
    void Beatbox_MouseDown(int button, int shift, double X, double Y);
    void Beatbox_MouseMove(int button, int shift, double X, double Y);
    void Beatbox_MouseUp(int button, int shift, double X, double Y);

    /// Opens the tablet's popup menu; set by the shell.
    OpenMenu openMenu;

    void listNames(NameTables& tables);

 private:
    bool takeInstrument();
    void pressRight();
    void eraseBeat(int column);
    void startBeat();
    void pressInSelectMode(int button);
    void showTip(double X);
    void dragBeat(double X);
    void enlarge(double Y);
    void finishBeat(double X);

    int column() const { return studio_.page.FirstColumn + studio_.drag.DragColumn; }
    int track() const { return studio_.tracks.CurrentTrack; }

    Studio& studio_;
    Parts parts_;
};

}  // namespace melvane
