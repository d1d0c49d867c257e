#include "core/mouse_buttons.h"
#include "tutorial/lessons.h"

namespace melvane {

namespace {

using namespace lesson;

constexpr int major = 1;  // in the bar's list of chords
constexpr LessonAction effects = put("form1", "Check1", 1);

constexpr auto steps = std::to_array<LessonStep>({
    {"1. Open a blank music tablet....",
     {{"Click the first button on the toolbar to clear all notes from the music tablet.."}},
     {{clearAll()}}},
    {"2. Add  notes to the staff on Channel 1.......",
     {{"The numbered labels at the lower left of the main window select the channel.",
       "A ready-made tune will be put on Channel 1 for you."}},
     {{drawTool(), channel(0), sample("101.sng")}}},
    {"3. Add  notes to the staff on Channel 2.......",
     {{"Label 2 selects Channel 2.", "A bass will be added."}},
     {{channel(1), sample("102.sng")}}},
    {"4. Select an Instrument",
     {{"The Quick Compose bar is the lower end of the main window. Move the toolbars aside if they cover it.",
       "Tick Effects on the bar, click a note in the strip under the tablet, and double-click the name of "
       "the "
       "instrument.",
       "Choose an instrument for the first note of Channel 1 in the left list of the window that opens, and "
       "click OK."}},
     {{returnToStart(), channel(0), effects, inspect(0), wait(),
       call("form1", "Pic2a_MouseUp", mouse::left, 0, columnMiddle(0), 4), call("form1", "Text5_DblClick")}}},
    {"5. Adjust the note volume control",
     {{"Move the slider Volume. It is the volume of the notes that you change next.",
       "The right mouse button puts a slider to rest."}},
     {{effects, put("form1", "lblVolume", 90)}}},
    {"6. Select a Chord type.",
     {{"Choose a chord in the list of the bar. It is the chord of the notes that you change next.",
       "Major will be chosen."}},
     {{effects, put("form1", "Combo3", major)}}},
    {"7. Adjust the Tone controls",
     {{"The sliders Modulation, Pan, Reverb and Chorus say how the notes sound that you change next."}},
     {{effects, put("form1", "LblMod", 20), wait(), put("form1", "LblPan", 20), wait(),
       put("form1", "LblReverb", 60), wait(), put("form1", "LblChorus", 40)}}},
    {"8. Change the values of a group of notes",
     {{"Hold the right mouse button and pull it over the strip under the tablet.",
       "Every note that you pass takes the values of the bar. The first columns of Channel 1 will be "
       "changed."}},
     {{returnToStart(), channel(0), effects,   change(0), wait(),    change(1),   wait(),
       change(2),       wait(),     change(3), wait(),    change(4), wait(),      change(5),
       wait(),          change(6),  wait(),    change(7), wait(),    endChange(7)}}},
    {"9. Play the composition",
     {{"Click button #6 on the toolbar to play the composition.", "Now sit back and listen."}},
     {{play()}}},
});

}  // namespace

constinit const Lesson quickComposeLesson{"LQ1", R"(Using the "Quick Compose" bar)", steps};

}  // namespace melvane
