#pragma once
#include <functional>

#include "core/chords.h"
#include "core/main_frame.h"
#include "core/note_selector.h"
#include "core/picker.h"
#include "core/studio.h"
#include "midi/note_instrument.h"

namespace melvane {

struct NameTables;

/// The note test panel Form5: a small window beside the main one with the properties of the note under
/// inspection. A window shows studio.Form5. X and Y in pixels of the strip or track, `button` 1 left, 2
/// right, in a move added together.
class NoteTest {
 public:
    struct Parts {
        ToolWindows& toolWindows;
        Chords& chords;
        NoteSelector& selector;
        Picker& picker;
        NoteInstrument& noteInstrument;
    };
    NoteTest(Studio& studio, Parts parts);

    /// Shows the panel, loaded when it is not.
    void open() { parts_.toolWindows.showWindow("Form5"); }
    /// Fills the chord list and shows the note under inspection.
    void Form_Load();
    void Form_Unload();
    void Combo3_Click();
    /// The picker is shown twice: once for the melody instrument, then for the note's.
    void Text5_DblClick();

    // The volume slider, as the sliders of the main window are dragged. Its number is the panel's own.
    void pressVolume() { volumeHeld_ = true; }
    void moveVolume(int button, double X);
    void releaseVolume() { volumeHeld_ = false; }

    // The strips pass on to the main window's of the same name.
    void Pic2a_MouseDown(int button, int shift, double X, double Y);
    void Pic2a_MouseMove(int button, int shift, double X, double Y);
    void Pic2a_MouseUp(int button, int shift, double X, double Y);
    void Pic3_MouseDown(int button, int shift, double X, double Y);
    void Pic3_MouseMove(int button, int shift, double X, double Y);
    void Pic3_MouseUp(int button, int shift, double X, double Y);

    /// Moves the panel with the mouse that is held on a bare part of it; set by the window.
    std::function<void()> dragWindow;

    void listNames(NameTables& tables);

 private:
    double onMainStrip(double X) const;

    Studio& studio_;
    Parts parts_;
    bool volumeHeld_ = false;
};

}  // namespace melvane
