#include "tutorial/lessons.h"

namespace melvane {

namespace {

using namespace lesson;

constexpr auto steps = std::to_array<LessonStep>({
    {"1. Open a blank music tablet....",
     {{"Click the first button on the toolbar to clear all notes from the music tablet..",
       "The notes that are there now will be lost, so save them first if you want to keep them."}},
     {{clearAll()}}},
    {"2. Add  notes to the staff on Channel 1.......",
     {{"Drawing notes is an intuitive process with Melvane. ",
       "Press the left mouse button on the tablet, pull to the right to make the note longer, and let go.",
       "A ready-made tune will be put on Channel 1 for you."}},
     {{drawTool(), channel(0), sample("101.sng")}}},
    {"3. Open Channel 2........",
     {{"Select channels using the Setup toolbar (Button #9 on the main toolbar), which is normally always "
       "open.",
       "The numbered labels at the lower left of the main window select them too."}},
     {{channel(1)}}},
    {"4. Add  notes to the staff on Channel 2....",
     {{"Each channel has its own colour and its own instrument.",
       "A bass will be added on Channel 2. The notes of the other channels turn pale."}},
     {{channel(1), sample("102.sng")}}},
    {"5. Open Percussion Channel 1........",
     {{"The labels 9 to 12 are the percussion channels.",
       "Their notes are drawn on the Percussion Tableau, the strip under the music tablet."}},
     {{channel(8)}}},
    {"6. Add percussion beat to the composition.....",
     {{"A beat is drawn like a note. The row on the tableau does not change its sound.",
       "A beat will be added under the tune."}},
     {{channel(8), sample("104.sng")}}},
    {"7. Test the finished composition.......",
     {{"Click button #6 on the toolbar to play the composition, and button #7 to stop it.",
       "Now sit back and listen."}},
     {{play()}}},
    {"8. Save the composition.......",
     {{"Click button #3 on the toolbar to save the composition.",
       "Choose the type of the file in the window that opens: a score (sng), which you can open and change "
       "again, or a MIDI file (mid)."}},
     {{call("form1", "mSaveAs_Click")}}},
});

}  // namespace

constinit const Lesson composingLesson{"L1", "Composing a score", steps};

}  // namespace melvane
