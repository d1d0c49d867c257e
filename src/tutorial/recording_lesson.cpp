#include "tutorial/lessons.h"

namespace melvane {

namespace {

using namespace lesson;

constexpr int usualFormat = 3;  // "44.100Hz, 16bit Stereo, 172k/sec"
constexpr LessonAction notesAsSource = put("Record", "Optsourcesng", 1);
constexpr LessonAction record = call("Record", "CmdrecordSNG_Click");
constexpr LessonAction stop = press("Record", "CmdStopRecording");

constexpr auto steps = std::to_array<LessonStep>({
    {"1. Open the Recording Module.......",
     {{"Click button #11 on the toolbar to open the Recording toolbar."}},
     {{show("Record")}}},
    {"2. Select Recording preferences....",
     {{"Say what is to be recorded: the notes on the tablet, a MIDI file, or what you play on the keyboard.",
       "Choose the format of the recording, and tick Show Note position to follow the notes while they are "
       "recorded.",
       "Auto-Encode to MP3 makes an MP3 file of each recording. It will be turned off, so that your "
       "recording "
       "stays a WAV file, as it was played.",
       "For the rest the usual choices will be made for you."}},
     {{show("Record"), notesAsSource, wait(), put("Record", "cbxFormat", usualFormat), wait(),
       put("Record", "Check4", 1), put("Record", "Check2", 0)}}},
    {"3. To record from a score file (*.scr)....",
     {{"Choose Notes (SNG) as the recording source."}},
     {{show("Record"), notesAsSource}}},
    {"a. Open a score file (*.scr)....",
     {{"Click button #2 on the toolbar to open a score.", "A ready-made score will be opened for you."}},
     {{sample("104.sng")}}},
    {R"(b. Click "Record".......)",
     {{"Click Start Recording on the Recording toolbar. The score is played and recorded.",
       "The recording is kept in the folder Songs. Save File As gives it a name of its own.",
       "Now sit back and listen."}},
     {{show("Record"), notesAsSource, record}}},
    {R"((Optional) Click "Stop" to end  recording...)",
     {{"A recording ends with the score. Click Stop Recording to end it sooner.",
       "What was recorded until then is kept."}},
     {{stop}}},
    {"4. To record from a Midi file (*.mid)....",
     {{"Choose Files (MID) as the recording source."}},
     {{show("Record"), put("Record", "Optsourcemid", 1)}}},
    {"a. Open a Midi file (*.mid)....",
     {{"Click Open File on the Recording toolbar to choose a MIDI file.",
       "A ready-made MIDI file will be opened for you."}},
     {{show("Record"), handOver("333.mid")}}},
    {R"(b. Click "Record".......)",
     {{"Click Start Recording on the Recording toolbar. The file is played and recorded.",
       "Now sit back and listen."}},
     {{show("Record"), handOverIfNone("333.mid"), record, takeBack("333.mid")}}},
    {R"((Optional) Click "Stop" to end  recording...)",
     {{"A recording ends with the file. Click Stop Recording to end it sooner.",
       "What was recorded until then is kept."}},
     {{stop}}},
});

}  // namespace

constinit const Lesson recordingLesson{"L1R", "Recording a score", steps};

}  // namespace melvane
