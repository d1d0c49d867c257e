#include "tutorial/lessons.h"

namespace melvane {

namespace {

using namespace lesson;

constexpr int playButton = 1;  // of the recorder's player

constexpr auto steps = std::to_array<LessonStep>({
    {"1. Open a score file (*.scr)....",
     {{"Click button #2 on the toolbar to open a score.", "A ready-made score will be opened for you."}},
     {{sample("104.sng")}}},
    {"2. Save score as MID.......",
     {{"Click button #3 on the toolbar to save the composition.",
       "Choose Midi as the type of the file in the window that opens, and give the file a name."}},
     {{call("form1", "mSaveAs_Click")}}},
    {"3. Open the Recording Toolbar.......",
     {{"Click button #11 on the toolbar.", "The lower half of the Recording toolbar plays files."}},
     {{show("Record")}},
     "To play the MID file:"},
    {"4. Open the MID file.......",
     {{"Click Open File on the Recording toolbar.", "Choose the MIDI file that you have saved."}},
     {{show("Record"), call("Record", "C4_Click")}}},
    {"5. Play the MID file.......",
     {{"Click Play on the Recording toolbar.", "Now sit back and listen."}},
     {{show("Record"), call("Record", "Cmd2_Click", playButton)}}},
});

}  // namespace

constinit const Lesson midiFileLesson{"L1M", "Create a MIDI file", steps};

}  // namespace melvane
