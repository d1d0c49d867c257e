#include "tutorial/lessons.h"

namespace melvane {

namespace {

using namespace lesson;

constexpr int chordsPage = 2;  // of the Setup toolbar
/// Each line of the list of channel chords sounds as the one above it: this one as "Major".
constexpr int soundsMajor = 1;

/// Also where the tick stands already: a score that was opened since has taken the chords away.
constexpr LessonAction enableChord = call("Form3", "Ch_Click", 0);

constexpr auto steps = std::to_array<LessonStep>({
    {"1. Open a blank music tablet....",
     {{"Click the first button on the toolbar to clear all notes from the music tablet.."}},
     {{clearAll()}}},
    {"2. select the instrument.......",
     {{"Select opens the list of instruments from the Setup toolbar.",
       "Choose a melody instrument in the left list and click OK."}},
     {{show("Form3"), setupPage(0), channel(0), call("Form3", "LblInst1_DblClick")}}},
    {"3. Add  notes to the staff on Channel 1.......",
     {{"A ready-made tune will be put on Channel 1 for you."}},
     {{drawTool(), channel(0), sample("101.sng")}}},
    {"4. Select the Chords Tab in the Setup toolbar........",
     {{"The Setup toolbar has a tab named Chords.",
       "A chord that is set there is played by every note of a "
       "channel."}},
     {{show("Form3"), setupPage(chordsPage)}}},
    {"5. Enable Chord on Channel 1 (red button #1)....",
     {{"The coloured buttons behind \"Channel Chord >\" turn the chords of the channels on and off.",
       "Button #1 is red, the colour of Channel 1."}},
     {{show("Form3"), setupPage(chordsPage), put("Form3", "Ch", 1, 0), enableChord}}},
    {R"(6. Select chord name - "Major"........)",
     {{"Choose the chord in the list on the Chords tab.",
       "Each line of this list sounds as the one above it, so for a Major chord the line under it will be "
       "chosen.",
       "While the notes play, the Quick Compose bar shows the name of the chord that you hear."}},
     {{show("Form3"), setupPage(chordsPage), put("Form3", "Combo3", soundsMajor)}}},
    {"7. Test the composition.......",
     {{"Click button #6 on the toolbar to play the composition.", "Now sit back and listen."}},
     {{play()}}},
    {"8. Compare the chord sound to single notes.......",
     {{"The chord on Channel 1 will be turned off, and the same notes are played once more.",
       "Now sit back and listen."}},
     {{put("Form3", "Ch", 0, 0), play()}}},
});

}  // namespace

constinit const Lesson chordsLesson{"L2", "Creating Chords", steps};

}  // namespace melvane
