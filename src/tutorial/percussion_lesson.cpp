#include "tutorial/lessons.h"

namespace melvane {

namespace {

using namespace lesson;

constexpr LessonAction pickInstrument = call("Form3", "LblInst2_DblClick");

constexpr auto steps = std::to_array<LessonStep>({
    {"1. Open Percussion Channel 1........",
     {{"Select channels using the Setup toolbar (Button #9 on the main toolbar), which is normally always "
       "open.",
       "Percussion Channel 1 is also the label 9 at the lower left of the main window."}},
     {{channel(8)}}},
    {"a. Select a Percussion Instrument........",
     {{"Double-click an instrument in the right list of the window that opens.",
       "A cymbal or a hi-hat is a good choice for this channel."}},
     {{channel(8), pickInstrument}}},
    {"b. Add  Percussion notes........",
     {{"Percussion notes are drawn on the Percussion Tableau, the strip under the music tablet. Move the "
       "toolbars aside if they cover it.",
       "Every second column will get a beat."}},
     {{drawTool(), noNoteTest(), returnToStart(), channel(8), beat(0, 0), wait(), beat(2, 0), wait(),
       beat(4, 0), wait(), beat(6, 0)}}},
    {"2. Open Percussion Channel 2........",
     {{"Each percussion channel has an instrument of its own.",
       "Percussion Channel 2 is the label 10 at the lower left of the main window."}},
     {{channel(10)}}},
    {"a. Select a Percussion Instrument........",
     {{"Double-click an instrument in the right list of the window that opens.",
       "A snare drum is a good choice for this channel."}},
     {{channel(10), pickInstrument}}},
    {"b. Add  Percussion notes........",
     {{"Draw on another row, so that you can tell the channels apart.",
       "A beat will be drawn in the middle."}},
     {{drawTool(), noNoteTest(), returnToStart(), channel(10), beat(4, 1)}}},
    {"3. Open Percussion Channel 3........",
     {{"Percussion Channel 3 is the label 11 at the lower left of the main window."}},
     {{channel(11)}}},
    {"a. Select a Percussion Instrument........",
     {{"Double-click an instrument in the right list of the window that opens.",
       "A bass drum is a good choice for this channel."}},
     {{channel(11), pickInstrument}}},
    {"b. Add  Percussion notes........",
     {{"The drum will be drawn where the motif begins, and once before its end."}},
     {{drawTool(), noNoteTest(), returnToStart(), channel(11), beat(0, 2), wait(), beat(7, 2)}}},
    {"4. Duplicate the notes........",
     {{"The Editing toolbar (Button #10 on the main toolbar) repeats what you have drawn.",
       "You want to create a motif having 60 notes. It has a beat of 8 notes, which are repeated every 12th "
       "note. Thus, there is a silence having a 4 note duration.",
       "Enter 60 in Notes, 12 in Repeat and 8 in Beats, and click Duplicate notes."}},
     {{returnToStart(), selectTool(), put("Form2", "Check3", 0), put("Form2", "Check2", 0),
       put("Form2", "Check1", 1), put("Form2", "Text3", 60), wait(), put("Form2", "Text4", 12), wait(),
       put("Form2", "Text5", 8), wait(), call("Form2", "Cmd2_Click", 17)}}},
    {"5. Test the finished composition.......",
     {{"Click button #6 on the toolbar to play the composition.", "Now sit back and listen."}},
     {{play()}}},
});

}  // namespace

constinit const Lesson percussionLesson{"LP1", "Create a Percussion section", steps};

}  // namespace melvane
