#include "block_editing_fixture.h"

namespace melvane::test {
namespace {

class BlockInsertionTest : public BlockEditingTest {};

TEST_F(BlockInsertionTest, NoOperationChangesTheLengthOfTheScore) {
    select(3, 9);
    blocks.CutBut_Click();
    blocks.PasteBut_Click();
    blocks.PasteIntoBut_Click();
    blocks.InsertSpaces(40);
    EXPECT_EQ(studio.score.NumNotes, 1000);
    for (const auto& pair : gridPairs) EXPECT_EQ((studio.score.*pair.score).lastColumn(), 1000);
}

TEST_F(BlockInsertionTest, TheSelectionIsTurnedRoundInTime) {
    write(0, 2, 50, 3, 7);
    write(0, 5, 60, 4, 8);
    studio.score.ModArray.set(0, 3, 99);
    select(2, 6);
    blocks.ReverseSelection();
    EXPECT_EQ(cells(0, 1, 9), (Cells{-1, 60, 60, 50, 50, 50, 60, 1060, -1}));
    EXPECT_EQ(read(studio.score.InstArray, 0, 2, 6), (Cells{8, 8, 7, 7, 7}));
    EXPECT_EQ(studio.score.ModArray.get(0, 3, 0), 99) << "the values beside the notes stay";
    EXPECT_EQ(selection.SelStart, 2);
    EXPECT_EQ(surfaces.calls, (std::vector<std::string>{"DrawNoteArray"}));
}

TEST_F(BlockInsertionTest, WithoutASelectionTheSongIsTurnedRoundToOnePastItsLastColumn) {
    write(0, 0, 50, 2);
    write(1, 4, 60);
    write(2, 9, 70);
    hide(2);
    blocks.ReverseSelection();
    EXPECT_EQ(studio.player.SongEndColumn, 5);
    EXPECT_EQ(cells(0, 0, 6), (Cells{-1, -1, -1, -1, 50, 50, -1}));
    EXPECT_EQ(cells(1, 0, 6), (Cells{-1, 60, -1, -1, -1, -1, -1}));
    EXPECT_EQ(cells(2, 9, 9), Cells{70});
}

TEST_F(BlockInsertionTest, BehindColumnThousandAReversalMendsNothing) {
    resize(1100);
    engine.score.ClearNoteArrays();
    write(1, 990, 50, 40);
    select(996, 999);
    blocks.ReverseSelection();
    EXPECT_EQ(cells(1, 995, 1001), (Cells{1050, 50, 50, 50, 50, 50, 1050}));
    select(997, 1000);
    blocks.ReverseSelection();
    EXPECT_EQ(cells(1, 999, 1002), (Cells{50, 50, 1050, 1050}));
}

TEST_F(BlockInsertionTest, OpenedColumnsAreBlankAndKeepTheEmptyValues) {
    write(0, 4, 50, 4, 9);
    for (const auto& pair : gridPairs) {
        if (pair.score != &Score::NoteArray) (studio.score.*pair.score).fillTrack(0, 33, 1000);
    }
    selection.InsertPosition = 6;
    blocks.InsertSpaces(3);
    EXPECT_EQ(cells(0, 4, 11), (Cells{50, 1050, -1, -1, -1, 50, 1050, -1}));
    EXPECT_EQ(read(studio.score.VolumeArray, 0, 5, 9), (Cells{33, 127, 127, 127, 33}));
    EXPECT_EQ(read(studio.score.PanArray, 0, 5, 9), (Cells{33, 64, 64, 64, 33}));
    for (const auto grid : {&Score::InstArray, &Score::ModArray, &Score::ReverbArray, &Score::ChorusArray})
        EXPECT_EQ(read(studio.score.*grid, 0, 5, 9), (Cells{33, 0, 0, 0, 33}));
    EXPECT_TRUE(surfaces.calls.empty()) << "the callers draw";
}

TEST_F(BlockInsertionTest, ChordsOfTheMovedPartComeFromTheClipboard) {
    studio.score.PolyArray.fillTrack(1, 3, 1000);
    clip.ClipPolyArray.set(1, 6, 5);
    selection.InsertPosition = 6;
    blocks.InsertSpaces(2);
    EXPECT_EQ(read(studio.score.PolyArray, 1, 4, 10), (Cells{3, 3, 0, 0, 5, 0, 0}));
    studio.tracks.CurrentTrack = 1;
    selection.CopyonlyOneTrack = true;
    blocks.InsertSpaces(1);
    EXPECT_EQ(read(studio.score.PolyArray, 1, 4, 10), (Cells{3, 3, 0, 5, 0, 0, 0}));
}

TEST_F(BlockInsertionTest, OneTrackAloneIsOpenedAndAllVisibleOnesAreMended) {
    write(0, 4, 50, 6);
    write(1, 4, 60, 6);
    selection.CopyonlyOneTrack = true;
    selection.InsertPosition = 6;
    blocks.InsertSpaces(2);
    EXPECT_EQ(cells(0, 4, 12), (Cells{50, 1050, -1, -1, 50, 1050, 1050, 1050, -1}));
    EXPECT_EQ(cells(1, 4, 10), (Cells{60, 1060, 1060, 1060, 60, 1060, -1}));
}

TEST_F(BlockInsertionTest, NoSpaceWritesNothingAndSplitsAHeldNote) {
    write(0, 4, 50, 4);
    studio.score.PolyArray.fillTrack(0, 3, 1000);
    selection.InsertPosition = 6;
    blocks.InsertSpaces(0);
    EXPECT_EQ(cells(0, 4, 8), (Cells{50, 1050, 50, 1050, -1}));
    EXPECT_EQ(read(studio.score.PolyArray, 0, 5, 7), (Cells{3, 3, 3}));
}

TEST_F(BlockInsertionTest, WhatIsMovedBeyondTheEndIsLost) {
    write(0, 998, 50, 3);
    write(0, 995, 60);
    selection.InsertPosition = 5;
    blocks.InsertSpaces(3);
    EXPECT_EQ(cells(0, 996, 1000), (Cells{-1, -1, 60, -1, -1}));
}

TEST_F(BlockInsertionTest, HugeAndNegativeCountsStayInsideTheScore) {
    write(0, 10, 50, 991);
    selection.InsertPosition = 5;
    blocks.InsertSpaces(32767);
    EXPECT_EQ(cells(0, 0, 1000), Cells(1001, -1));
    write(0, 999, 40, 2);
    write(0, 990, 45, 2);
    selection.InsertPosition = 4;
    blocks.InsertSpaces(-2);
    EXPECT_EQ(cells(0, 0, 5), (Cells{-1, -1, 40, 40, 1040, 40}))
        << "from the end, over what was moved before";
    EXPECT_EQ(cells(0, 989, 992), (Cells{40, 1040, 40, 1040}));
    blocks.InsertSpaces(INT32_MAX);
    blocks.InsertSpaces(INT32_MIN);
    EXPECT_EQ(studio.score.NumNotes, 1000);
}

TEST_F(BlockInsertionTest, ExtremeLengthsOfTheScoreAreHarmless) {
    write(0, 0, 50, 1001);
    for (const std::int32_t length : {INT32_MAX, INT32_MIN, -1}) {
        studio.score.NumNotes = length;
        select(32766, 32767);
        blocks.CutBut_Click();
        select(0, 32767);
        blocks.CopySelectedArea();
        EXPECT_EQ(clip.ClipLength, 32767);
        selection.InsertPosition = 32767;
        blocks.PasteIntoBut_Click();
        EXPECT_EQ(studio.score.NumNotes, length);
        EXPECT_EQ(studio.score.NoteArray.lastColumn(), 1000);
    }
}

TEST_F(BlockInsertionTest, TheFieldSaysHowManyColumnsAreOpened) {
    write(0, 4, 50, 2);
    selection.InsertPosition = 4;
    const auto open = [&](const char* text) {
        studio.Form2.Text1.set(text);
        surfaces.calls.clear();
        blocks.InsertColumnBut_Click();
        EXPECT_EQ(surfaces.calls, (std::vector<std::string>{"DrawNoteArray", "DrawBeatArray"}));
    };
    EXPECT_EQ(studio.Form2.Text1.text(), "1");
    blocks.InsertColumnBut_Click();
    EXPECT_EQ(cells(0, 3, 7), (Cells{-1, -1, 50, 1050, -1}));
    open("2 and more");
    EXPECT_EQ(cells(0, 6, 9), (Cells{-1, 50, 1050, -1}));
    open("none");
    EXPECT_EQ(cells(0, 6, 9), (Cells{-1, 50, 1050, -1}));
    open("-1");
    EXPECT_EQ(cells(0, 2, 9), Cells(8, -1)) << "the last column of the score, over and over";
}

TEST_F(BlockInsertionTest, TracksThatDoNotExistAreNotEdited) {
    selection.CopyonlyOneTrack = true;
    for (const int track : {-1, 13, 15, 200}) {
        studio.tracks.CurrentTrack = static_cast<Int16>(track);
        const Grid before = studio.score.NoteArray;
        select(0, 3);
        blocks.CutBut_Click();
        blocks.PasteIntoBut_Click();
        EXPECT_EQ(studio.score.NoteArray, before) << track;
    }
}

TEST_F(BlockInsertionTest, EachToolHasItsPointer) {
    engine.tools.FunctionBut_Click(2);
    EXPECT_EQ(selection.EditMode, 2);
    EXPECT_EQ(surfaces.tabletPointer, DrawingPointer::cross);
    engine.tools.FunctionBut_Click(0);
    EXPECT_EQ(selection.EditMode, 0);
    EXPECT_EQ(surfaces.tabletPointer, DrawingPointer::arrow);
    studio.form1.FunctionBut[1].userPut(1LL);
    EXPECT_EQ(selection.EditMode, 1);
    EXPECT_EQ(surfaces.tabletPointer, DrawingPointer::cross);
    engine.tools.FunctionBut_Click(3);
    engine.tools.FunctionBut_Click(-1);
    EXPECT_EQ(selection.EditMode, 1);
    for (const auto& button : studio.form1.FunctionBut) EXPECT_EQ(button.tip(), "Start/Insertion Position");
}

}  // namespace
}  // namespace melvane::test
