#include "drive_fixture.h"

namespace melvane::drive {
namespace {

TEST_F(DriveTest, BlankLinesAndCommentsArePassedOver) {
    EXPECT_EQ(run("\n  \n# print Tempo\n  # and this\n"), "");
    EXPECT_EQ(status, 0);
}

TEST_F(DriveTest, AnUnknownCommandEndsTheRunWithTheNumberOfItsLine) {
    EXPECT_EQ(run("print Tempo\n\ndance\nprint Tempo\n"),
              "Tempo = 100\nerror: 3: there is no command dance\n");
    EXPECT_EQ(status, Interpreter::failure);
    EXPECT_EQ(run("print\n"), "error: 1: written as: print PATH\n");
    EXPECT_EQ(run("print \"Tempo\n"), "error: 1: a quote is not closed\n");
}

TEST_F(DriveTest, TheClockStandsAtZeroWhenTheScriptBegins) {
    EXPECT_EQ(run("form1.Note\nmidi\nmidi\n"), "0 open -1 0\n0 90 3C 7F\n");
}

TEST_F(DriveTest, AtRunsACommandInsideTheWaitThatComesToItsMoment) {
    EXPECT_EQ(run("clear\nat 20 form1.Note\nat 10 print Tempo\nmidi\nwait 20\nmidi\n"),
              "Tempo = 100\n20 90 3C 7F\n");
}

TEST_F(DriveTest, WhatAnAtCommandPrintsComesOutAtOnce) {
    EXPECT_EQ(run("at 5 put Tempo 1\nat 4 print Tempo\nform1.WaitForTempo\nprint Tempo\n"),
              "Tempo = 100\nTempo = 1\n");
}

TEST_F(DriveTest, AnAtCommandMayWaitAndQueueFurtherOnes) {
    EXPECT_EQ(run("clear\nat 5 wait 50\nat 6 at 10 form1.Note\nwait 10\nform1.Note\nmidi\n"),
              "16 90 3C 7F\n55 90 3C 7F\n");
}

TEST_F(DriveTest, AnErrorInAnAtCommandBearsTheNumberOfItsOwnLine) {
    EXPECT_EQ(run("at 5 print Nothing\n\nwait 10\nprint Tempo\n"),
              "error: 1: nothing has the name Nothing\n");
    EXPECT_EQ(status, Interpreter::failure);
    EXPECT_EQ(run("\nat 5 dance\n"), "error: 2: there is no command dance\n");
    EXPECT_EQ(run("at soon print Tempo\n"), "error: 1: milliseconds are a whole number from 0\n");
}

TEST_F(DriveTest, AWaitThatNothingCanEndEndsTheRun) {
    EXPECT_EQ(run("form1.WaitForTempo\nprint Tempo\n"), "error: nothing can end this wait\n");
    EXPECT_EQ(status, Interpreter::failure);
}

TEST_F(DriveTest, AMessageBoxIsAnsweredFromTheQueueOrByAnAtCommand) {
    EXPECT_EQ(run("answer no\nform1.Ask\nat 30 answer no\nform1.Ask\nform1.Ask\nboxes\nboxes\n"),
              "Ask = false\nAsk = false\nAsk = true\n"
              "box question \"Melvane\" \"Sure?\"\nbox question \"Melvane\" \"Sure?\"\n"
              "box question \"Melvane\" \"Sure?\"\n");
    EXPECT_EQ(run("answer maybe\n"), "error: 1: an answer is yes, no, ok or cancel\n");
}

TEST_F(DriveTest, AfterTheProgramHasEndedOnlyTheWorldAroundItAnswers) {
    EXPECT_EQ(run("unload form1\nsettings\nboxes\nprint Tempo\n"),
              "ended=1\nerror: 4: the program has ended\n");
    EXPECT_EQ(run("form1.Quit\nwait 5\nform1.Note\n"), "error: 3: the program has ended\n");
}

TEST_F(DriveTest, ARestartEndsTheProgramAndMakesItAnewOnTheSameSettings) {
    EXPECT_EQ(run("put Tempo 9\nwait 10\nclear\nrestart\nprint Tempo\nsettings\nwait 10\nform1.Note\nmidi\n"),
              "Tempo = 100\nended=1\n10 open -1 0\n27 90 3C 7F\n");
    EXPECT_EQ(program.starts, 2);
    EXPECT_EQ(run("unload form1\nrestart\nprint Tempo\n"), "Tempo = 100\n");
}

TEST_F(DriveTest, ARestartInsideAWaitComesWhenTheWaitHasEnded) {
    EXPECT_EQ(run("put Tempo 9\nat 5 restart\nwait 100\nprint Tempo\n"), "Tempo = 100\n");
    EXPECT_EQ(program.starts, 2);
}

TEST_F(DriveTest, WindowCommandsReachTheProgram) {
    EXPECT_EQ(
        run("load Form3\nfocus form1\nresize form1 800 600\nshot Form3 \"$HERE/a.png\"\nunload Form3\n"), "");
    EXPECT_EQ(program.calls,
              (std::vector<std::string>{"load Form3", "focus form1", "resize form1 800 600",
                                        "shot Form3 " + folder.file("a.png"), "unload Form3"}));
    EXPECT_EQ(program.settled, 5);
    EXPECT_EQ(run("unload Form3\n"), "") << "there is nothing to close";
    EXPECT_EQ(run("focus Form3\n"), "error: 1: Form3 is not loaded\n");
    EXPECT_EQ(run("load Form8\n"), "error: 1: there is no window Form8\n");
    EXPECT_EQ(run("resize form1 0 5\n"), "error: 1: width and height are pixels from 1\n");
}

}  // namespace
}  // namespace melvane::drive
