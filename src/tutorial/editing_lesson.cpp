#include "core/mouse_buttons.h"
#include "tutorial/lessons.h"

namespace melvane {

namespace {

using namespace lesson;

/// A step on single notes begins at the start of Channel 1, with a pencil that erases with the right button.
constexpr LessonAction firstChannel = channel(0), erasesOnRightClick = call("Frmmenu", "mnuerase_Click"),
                       noEffects = put("form1", "Check1", 0);
constexpr LessonAction copyButton = call("Form2", "Cmd2_Click", 12),
                       cutButton = call("Form2", "Cmd2_Click", 13),
                       pasteOverButton = call("Form2", "Cmd2_Click", 14),
                       pasteInsertButton = call("Form2", "Cmd2_Click", 15),
                       duplicateButton = call("Form2", "Cmd2_Click", 17);

constexpr auto steps = std::to_array<LessonStep>({
    {"1. Draw a few notes....",
     {{"Drawing notes is an intuitive process with Melvane. ",
       "Press the left mouse button on the tablet, pull to the right to make the note longer, and let go.",
       "The tablet will be cleared, and four notes are drawn one after another."}},
     {{drawTool(), noNoteTest(), clearAll(), returnToStart(), firstChannel, note(0, 1, 12), wait(),
       note(3, 4, 10), wait(), note(6, 7, 8), wait(), note(9, 11, 12)}}},
    {"2. Editing one note at a time....",
     {{"Single notes are edited with the mouse on the music tablet.",
       "Button #4 on the toolbar says what the right mouse button does. It will be set to erase notes."}},
     {{drawTool(), noNoteTest(), noEffects, erasesOnRightClick}}},
    {"a. Delete single notes....",
     {{"Click a note with the right mouse button to delete it.",
       "The second note will be drawn again if it is missing, and then deleted."}},
     {{drawTool(), noNoteTest(), noEffects, erasesOnRightClick, returnToStart(), firstChannel, note(3, 4, 10),
       wait(), erase(4, 10)}}},
    {"b. Edit single notes....",
     {{"To make a note longer or shorter, draw it anew from its beginning.",
       "To move it to another row, draw it there: the new note takes the place of the old one."}},
     {{drawTool(), noNoteTest(), returnToStart(), firstChannel, note(6, 8, 8), wait(), note(9, 11, 14)}}},
    {"c. Change the instrument for single notes....",
     {{"Tick Effects on the Quick Compose bar, click the note in the strip under the tablet, and "
       "double-click "
       "the name of the instrument on the bar.",
       "Choose an instrument for the first note in the left list of the window that opens, and click OK."}},
     {{drawTool(), noNoteTest(), returnToStart(), firstChannel, note(0, 1, 12), put("form1", "Check1", 1),
       wait(), inspect(0), wait(), call("form1", "Pic2a_MouseUp", mouse::left, 0, columnMiddle(0), 4),
       call("form1", "Text5_DblClick"), noEffects}}},
    {"3. Edit groups of notes at a time.......",
     {{"Groups of notes are edited with the Editing toolbar (Button #10 on the main toolbar).",
       "A group is a run of columns, on all channels or on the selected one."}},
     {{show("Form2")}}},
    {"a. Activate Editing mode.......",
     {{"Click the switch in the second row of the Editing toolbar.",
       "While it is down the mouse selects columns, and the buttons beside it can be used. Click it again to "
       "draw."}},
     {{selectTool()}}},
    {"b. Select a group of notes.......",
     {{"Press the left mouse button at the first column, pull to the last column and let go."}},
     {{noNoteTest(), returnToStart(), firstChannel, selectTool(), selectColumns(0, 11)}}},
    {"c. Copy/paste a group of notes.......",
     {{"Select the notes and click Copy Selection. Then click the column where the copy is to begin, and "
       "click Paste (Overwrite).",
       "The first notes will be copied to column 17."}},
     {{noNoteTest(), returnToStart(), firstChannel, selectTool(), selectColumns(0, 11), wait(), copyButton,
       wait(), selectColumns(16, 16), wait(), pasteOverButton}}},
    {"d. Cut/paste a group of notes.......",
     {{"Cut Selection takes the notes away and closes the gap. Paste (Insert) makes room for them at the "
       "column that you click.",
       "The first twelve columns will be cut and inserted at column 25."}},
     {{noNoteTest(), returnToStart(), firstChannel, selectTool(), selectColumns(0, 11), wait(), cutButton,
       wait(), selectColumns(24, 24), wait(), pasteInsertButton}}},
    {"e. Replicate a group of notes.......",
     {{"Duplicate notes on the Editing toolbar repeats the beginning of the score.",
       "Beats says how many columns are repeated, Repeat after how many columns the next copy begins, and "
       "Notes how far the copies go.",
       "The first 8 columns will be repeated every 12th column."}},
     {{noNoteTest(), firstChannel, returnToStart(), selectTool(), put("Form2", "Check2", 1),
       put("Form2", "Text3", 60), wait(), put("Form2", "Text4", 12), wait(), put("Form2", "Text5", 8), wait(),
       duplicateButton}}},
});

}  // namespace

constinit const Lesson editingLesson{"L1E", "Editing a score", steps};

}  // namespace melvane
