#include "tutorial/lessons.h"

namespace melvane {

namespace {

using namespace lesson;

constexpr int setupTab = 0;
constexpr int quickTempo = 120, usualTempo = 100;

constexpr auto steps = std::to_array<LessonStep>({
    {"1. Open the Setup tab....",
     {{"The Setup toolbar is normally always open. Button #9 on the main toolbar shows and hides it.",
       "Its first tab is named Setup."}},
     {{show("Form3"), setupPage(setupTab)}}},
    {"2. Select the Tempo.......",
     {{"Move the slider Tempo, or type a number into its box. A larger number plays faster.",
       "The tempo will be made faster and put back to 100."}},
     {{show("Form3"), setupPage(setupTab), put("Form3", "LblTempo", quickTempo), wait(),
       put("Form3", "LblTempo", usualTempo)}}},
    {"3. Select the Channel......",
     {{"Select channels using the Setup toolbar (Button #9 on the main toolbar), which is normally always "
       "open.",
       "Channel 1 will be selected. The notes that you draw are notes of the selected channel."}},
     {{show("Form3"), setupPage(setupTab), channel(0)}}},
    {"4. Select the Instrument....",
     {{"Select opens the list of instruments from the Setup toolbar.",
       "Choose a melody instrument in the left list and click OK."}},
     {{show("Form3"), setupPage(setupTab), channel(0), call("Form3", "LblInst1_DblClick")}}},
    {"5. Select the Percussion Instrument....",
     {{"Percussion Channel 1 will be selected, and the list of instruments opens.",
       "Double-click a percussion instrument in the right list."}},
     {{show("Form3"), setupPage(setupTab), channel(8), call("Form3", "LblInst2_DblClick")}}},
    {"6. Add notes.....",
     {{"A test piece will be opened. It has a scale, every kind of instrument and all drums."}},
     {{drawTool(), channel(0), sample("301.sng")}}},
    {"7. Test the output quality.....",
     {{"Adjust the volume of your system while the test piece plays.",
       "If you hear nothing, choose another device on the tab Configuration of the Setup toolbar.",
       "Now sit back and listen."}},
     {{play()}}},
});

}  // namespace

constinit const Lesson setupLesson{"L1S", "Before you begin...Setup", steps};

}  // namespace melvane
