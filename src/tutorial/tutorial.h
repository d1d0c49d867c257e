#pragma once
#include <functional>

#include "core/settings.h"
#include "midi/midi_output.h"
#include "tutorial/lesson_actions.h"
#include "tutorial/tutorial_tip.h"

namespace melvane {

/// The tutorial, window Wiz: lessons that explain the program and drive its real windows. A window shows
/// studio.Wiz; what the user does there comes in through its controls and the handlers here.
///
/// A step that is clicked while another one waits, or while a score plays, is done inside that wait. One
/// whose window, or whose program, is closed in its middle ends there.
class Tutorial {
 public:
    struct Parts {
        Settings& settings;
        FileOperations& files;
        MidiOutput& output;
        MainFrame& frame;
        ToolWindows& toolWindows;
        Clock& clock;
        EventLoop& loop;
        const Directories& directories;
        const NameTables& tables;
    };
    Tutorial(Studio& studio, Parts parts);

    /// Where a step's label begins, in twips from the window's top; both from 0. Set by the window.
    std::function<double(int lesson, int step)> labelTop;

    /// Takes the place and "Show Tips" from the settings and puts the samples of the lessons out anew. The
    /// window has told its size before.
    void Form_Load();
    void Form_Activate();
    /// Stores the place, and ends a step that is under way.
    void Form_Unload();
    /// Explains a step of a lesson if tips are wanted, then does it; both from 0, others do nothing.
    void click(int lesson, int step);
    /// The mouse is over a step: it alone is marked.
    void mark(int lesson, int step);
    /// The mouse is over the ground of a lesson.
    void FrameStep_MouseMove(int lesson);

    void listNames(NameTables& tables);

    TutorialTip tip;

 private:
    void fillLessons();
    void renewSamples();
    void readPlace();
    void saveShowTips();
    void explain(int lesson, int step);
    void listLesson(NameTables& tables, int lesson);

    Studio& studio_;
    Parts parts_;
    LessonActions actions_;
    int loads_ = 0;  ///< how often the window was loaded or closed
};

}  // namespace melvane
