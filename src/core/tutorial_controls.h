#pragma once
#include <deque>

#include "core/controls.h"
#include "core/main_frame.h"

namespace melvane {

/// A step of a lesson: a label to be clicked, which is marked while the mouse is over it.
class StepLabel : public TextControl {
 public:
    bool marked() const { return marked_; }
    void setMarked(bool on) { store(marked_, on); }
    /// 1 clicks it.
    bool userPut(const Value& value) override { return press(value); }

 private:
    bool marked_ = false;
};

/// A lesson on its tab. Filled from the lesson's table.
struct LessonControls {
    TextControl title;
    AreaControl FrameStep;
    std::deque<StepLabel> steps;  ///< by their index, from 0
};

/// The tutorial's window. The steps of the lessons run their handlers when they are clicked.
struct WizardControls {
    WindowPlace place;          ///< twips; the size is set by the window
    ListControl SSTab1;         ///< the tab that is in front
    CheckControl Check1{true};  ///< "Show Tips"
    std::deque<LessonControls> lessons;
};

/// The tip that explains a step before it is done; `window` is shown while it is open.
struct TipControls {
    TipControls() { window.setVisible(false); }
    bool loaded = false;
    AreaControl window;
    TextControl Label1;
    /// Beside what it stands, in twips: the tutorial's left edge and width, and the height of the step.
    double besideLeft = 0, besideWidth = 0, top = 0;
};

}  // namespace melvane
