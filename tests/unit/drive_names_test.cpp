#include "drive_fixture.h"

namespace melvane::drive {
namespace {

TEST_F(DriveTest, StateIsPrintedUnderThePathAsItWasWritten) {
    EXPECT_EQ(run("print Tempo\nprint tempo\nprint Playing\nprint StepTime\nprint SaveFileName\n"),
              "Tempo = 100\ntempo = 100\nPlaying = 0\nStepTime = 0.138\nSaveFileName = \"a \"\"b\"\"\"\n");
    EXPECT_EQ(status, 0);
}

TEST_F(DriveTest, AWindowsOwnStateIsFoundWithItsWindow) {
    EXPECT_EQ(run("print Record.MediaFrames\nprint Form3.SetupChannel\nprint SetupChannel\n"),
              "Record.MediaFrames = 300\nForm3.SetupChannel = 4\nSetupChannel = 4\n");
}

TEST_F(DriveTest, PutSetsPlainState) {
    EXPECT_EQ(run("put Tempo 90\nput Playing -1\nput SaveFileName \"x\"\nput NoteArray(2,5) 1042\n"
                  "print Tempo\nprint Playing\nprint SaveFileName\nprint NoteArray(2,5)\nput Playing false\n"
                  "print Playing\n"),
              "Tempo = 90\nPlaying = -1\nSaveFileName = \"x\"\nNoteArray(2,5) = 1042\nPlaying = 0\n");
}

TEST_F(DriveTest, AValueThatDoesNotFitIsAnError) {
    EXPECT_EQ(run("put Tempo 40000\n"), "error: 1: Tempo cannot take this value\n");
    EXPECT_EQ(status, Interpreter::failure);
    EXPECT_EQ(run("\nprint NoteArray(0,11)\n"), "error: 2: an index of NoteArray is out of range\n");
    EXPECT_EQ(run("put NoteArray(16,0) 1\n"), "error: 1: an index of NoteArray is out of range\n");
    EXPECT_EQ(run("put Tempo ninety\n"), "error: 1: ninety is no value\n");
    EXPECT_EQ(run("print Tempi\n"), "error: 1: nothing has the name Tempi\n");
}

TEST_F(DriveTest, ARowIsPrintedAsOneLine) {
    program.grid.set(1, 3, 42);
    EXPECT_EQ(run("row NoteArray 1 2 4\nrow notearray 0 7 7\n"),
              "NoteArray(1, 2..4) = 0,42,0\nnotearray(0, 7..7) = 0\n");
    EXPECT_EQ(run("row Tempo 1 2 4\n"), "error: 1: Tempo is no grid\n");
    EXPECT_EQ(run("row NoteArray 1 9 12\n"), "error: 1: an index of NoteArray is out of range\n");
}

TEST_F(DriveTest, ControlsAreReadFromTheirWidgetOrAsTheEngineHoldsThem) {
    EXPECT_EQ(run("print form1.Widget\nprint form1.Label7\nprint Form3.TrackHide(2)\nprint form1.Combo3\n"),
              "form1.Widget = \"from the widget\"\nform1.Label7 = \"C4\"\nForm3.TrackHide(2) = 0\n"
              "form1.Combo3 = -1\n");
    EXPECT_FALSE(program.isLoaded("Form3"));
}

TEST_F(DriveTest, AWindowIsLoadedForAControlThatOnlyItHas) {
    EXPECT_EQ(run("print Form3.Widget\n"), "Form3.Widget = \"from the widget\"\n");
    EXPECT_TRUE(program.isLoaded("Form3"));
}

TEST_F(DriveTest, PartsOfAControlArePrintedByTheirNames) {
    program.label.setTip("the \"note\"");
    program.label.setEnabled(false);
    EXPECT_EQ(run("print form1.Label7.enabled\nprint form1.Label7.visible\nprint form1.Label7.tip\n"
                  "print form1.Combo3.index\nprint form1.Combo3.count\nprint form1.Combo3(1)\n"),
              "form1.Label7.enabled = 0\nform1.Label7.visible = 1\nform1.Label7.tip = \"the \"\"note\"\"\"\n"
              "form1.Combo3.index = -1\nform1.Combo3.count = 2\nform1.Combo3(1) = \"Major\"\n");
}

TEST_F(DriveTest, PutOnAControlRunsItsHandler) {
    int acted = 0;
    program.hide[1].acted = [&] { ++acted; };
    EXPECT_EQ(
        run("put Form3.TrackHide(1) 1\nprint Form3.TrackHide(1)\nput form1.Label7 64\nprint form1.Label7\n"),
        "Form3.TrackHide(1) = 1\nform1.Label7 = \"64\"\n");
    EXPECT_EQ(acted, 1);
    EXPECT_EQ(run("put form1.Combo3 2\n"), "error: 1: form1.Combo3 cannot take this value\n");
    EXPECT_EQ(run("put form1.Nothing 2\n"), "error: 1: nothing that can be put has the name form1.Nothing\n");
}

TEST_F(DriveTest, AReturnedValueIsPrintedUnderTheNameOfTheOperation) {
    EXPECT_EQ(run("form1.Add 2 -5\nform1.IsOsSupported\nForm3.Nothing\n"),
              "Add = -3\nIsOsSupported = true\n");
    EXPECT_TRUE(program.isLoaded("Form3"));
    EXPECT_TRUE(program.calls.empty()) << "a call does not show its window in front";
}

TEST_F(DriveTest, AWindowsOwnHandlersAreCalledWhenNoOperationBearsTheName) {
    EXPECT_EQ(run("form1.MusicBox_MouseDown 1 0 10 20\n"), "");
    EXPECT_EQ(program.calls, std::vector<std::string>{"mouse 4"});
}

TEST_F(DriveTest, ACallThatCannotBeMadeIsAnError) {
    EXPECT_EQ(run("form1.Add 2\n"), "error: 1: Add: takes 2 arguments\n");
    EXPECT_EQ(run("form1.Add 2 \"x\"\n"), "error: 1: Add: an argument is of the wrong kind\n");
    EXPECT_EQ(run("form1.Subtract\n"), "error: 1: Subtract: form1 has no operation Subtract\n");
    EXPECT_EQ(run("Form9.Add 1 2\n"), "error: 1: there is no window Form9\n");
}

}  // namespace
}  // namespace melvane::drive
