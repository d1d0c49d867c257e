#include "block_editing_fixture.h"

namespace melvane::test {
namespace {

TEST_F(BlockEditingTest, ACopyTakesTheSelectionFromTheScreenAndCanBePasted) {
    write(0, 4, 50, 3);
    select(4, 6);
    selection.InsertPosition = 4;
    blocks.copyIt();
    EXPECT_EQ(selection.SelStart, -1);
    EXPECT_EQ(selection.SelEnd, -1);
    EXPECT_EQ(selection.InsertPosition, 4);
    EXPECT_EQ(clip.ClipLength, 2);
    EXPECT_EQ(surfaces.calls, (std::vector<std::string>{"DrawNoteArray", "DrawBeatArray"}));
    surfaces.calls.clear();
    blocks.copyIt();
    EXPECT_TRUE(surfaces.calls.empty()) << "nothing is selected any more";
    EXPECT_EQ(clip.ClipLength, 2);
    selection.InsertPosition = 10;
    blocks.PasteBut_Click();
    EXPECT_EQ(cells(0, 9, 13), (Cells{-1, 50, 1050, 1050, -1}));
    EXPECT_EQ(surfaces.calls, (std::vector<std::string>{"DrawNoteArray", "DrawBeatArray"}));
}

TEST_F(BlockEditingTest, AllEightGridsTravelByTheSameTrackAndColumn) {
    int value = 5;
    for (const auto& pair : gridPairs) (studio.score.*pair.score).set(3, 8, ++value);
    select(8, 8);
    blocks.copyIt();
    selection.InsertPosition = 20;
    blocks.PasteBut_Click();
    value = 5;
    for (const auto& pair : gridPairs) EXPECT_EQ((studio.score.*pair.score).get(3, 20, -99), ++value);
}

TEST_F(BlockEditingTest, AClipFromTheMiddleOfANoteBeginsWithANote) {
    write(2, 3, 50, 5);
    select(5, 6);
    blocks.CopySelectedArea();
    EXPECT_EQ(read(clip.ClipNoteArray, 2, 0, 2), (Cells{50, 1050, 0}));
    EXPECT_EQ(cells(2, 3, 7), (Cells{50, 1050, 1050, 1050, 1050}));
    EXPECT_EQ(selection.SelStart, 5) << "this alone leaves the selection";
    EXPECT_TRUE(surfaces.calls.empty());
}

TEST_F(BlockEditingTest, ACopyBeginsNotesAndInstrumentsAnewAndLeavesTheRest) {
    write(1, 0, 50, 4, 9);
    studio.score.ModArray.set(1, 3, 77);
    select(0, 3);
    blocks.copyIt();
    select(0, 1);
    blocks.copyIt();
    EXPECT_EQ(read(clip.ClipNoteArray, 1, 0, 3), (Cells{50, 1050, 0, 0}));
    EXPECT_EQ(read(clip.ClipInstArray, 1, 0, 3), (Cells{9, 9, 0, 0}));
    EXPECT_EQ(clip.ClipModArray.get(1, 3, -1), 77);
}

TEST_F(BlockEditingTest, APasteBeforeAnyCopyWritesANoteOnRowZeroOnEveryVisibleTrack) {
    hide(5);
    selection.InsertPosition = 7;
    blocks.PasteBut_Click();
    for (int track = 0; track <= lastTrackNumber; ++track) {
        EXPECT_EQ(cells(track, 6, 8), (track == 5 ? Cells{-1, -1, -1} : Cells{-1, 0, -1})) << track;
        EXPECT_EQ(studio.score.VolumeArray.get(track, 7, -1), track == 5 ? 127 : 0);
    }
    EXPECT_EQ(cells(13, 7, 7), Cells{-1});
}

TEST_F(BlockEditingTest, ATrackHiddenInTheCopyIsPastedAsRowZeroOnceItIsShown) {
    write(4, 0, 50, 2);
    hide(4);
    select(0, 1);
    blocks.copyIt();
    hide(4, false);
    selection.InsertPosition = 10;
    blocks.PasteBut_Click();
    EXPECT_EQ(cells(4, 9, 12), (Cells{-1, 0, 0, -1}));
}

TEST_F(BlockEditingTest, AHiddenTrackIsNeitherPastedNorCutNorOpenedNorTurned) {
    write(4, 0, 50, 12);
    const auto before = cells(4, 0, 1000);
    hide(4);
    select(2, 3);
    blocks.CutBut_Click();
    blocks.PasteIntoBut_Click();
    blocks.InsertSpaces(3);
    select(1, 6);
    blocks.ReverseSelection();
    engine.duplication.CopyNotes(0, 12);
    EXPECT_EQ(cells(4, 0, 1000), before);
}

TEST_F(BlockEditingTest, OneTrackMovesToAnother) {
    selection.CopyonlyOneTrack = true;
    studio.tracks.CurrentTrack = 2;
    write(2, 4, 50, 2, 11);
    write(3, 4, 60, 2, 12);
    select(4, 5);
    blocks.copyIt();
    EXPECT_EQ(clip.ClipTrack, 2);
    EXPECT_EQ(read(clip.ClipNoteArray, 3, 0, 1), (Cells{0, 0}));
    studio.tracks.CurrentTrack = 6;
    selection.InsertPosition = 20;
    blocks.PasteBut_Click();
    EXPECT_EQ(cells(6, 19, 22), (Cells{-1, 50, 1050, -1}));
    EXPECT_EQ(studio.score.InstArray.get(6, 21, 0), 11);
    EXPECT_EQ(cells(2, 20, 21), (Cells{-1, -1}));
    hide(6);
    selection.InsertPosition = 30;
    blocks.PasteBut_Click();
    EXPECT_EQ(cells(6, 30, 31), (Cells{-1, -1}));
}

TEST_F(BlockEditingTest, AClipOfOneTrackPastedOnAllWritesRowZeroOnTheOthers) {
    selection.CopyonlyOneTrack = true;
    studio.tracks.CurrentTrack = 2;
    write(2, 4, 50);
    select(4, 4);
    blocks.copyIt();
    selection.CopyonlyOneTrack = false;
    selection.InsertPosition = 20;
    blocks.PasteBut_Click();
    EXPECT_EQ(cells(2, 20, 20), Cells{50});
    EXPECT_EQ(cells(0, 20, 20), Cells{0});
    EXPECT_EQ(cells(12, 20, 20), Cells{0});
}

TEST_F(BlockEditingTest, TheClipsTrackIsKeptByCopiesOfAllTracksAndOfNothing) {
    clip.ClipTrack = 5;
    select(1, 2);
    blocks.copyIt();
    EXPECT_EQ(clip.ClipTrack, 5);
    selection.CopyonlyOneTrack = true;
    studio.tracks.CurrentTrack = 3;
    select(4, 3);
    blocks.CopySelectedArea();
    EXPECT_EQ(clip.ClipTrack, 5);
    EXPECT_EQ(clip.ClipLength, -1);
    select(4, 4);
    hide(3);
    blocks.CopySelectedArea();
    EXPECT_EQ(clip.ClipTrack, 3);
}

TEST_F(BlockEditingTest, APasteAtTheLastColumnsIsCutOffThere) {
    write(0, 0, 50, 10);
    select(0, 4);
    blocks.copyIt();
    selection.InsertPosition = 999;
    const auto before = cells(0, 0, 998);
    blocks.PasteBut_Click();
    EXPECT_EQ(cells(0, 999, 1000), (Cells{50, 1050}));
    EXPECT_EQ(cells(0, 0, 998), before);
    EXPECT_EQ(studio.score.NumNotes, 1000);
}

TEST_F(BlockEditingTest, ANoteCutInTwoByAPasteSoundsAgainBehindIt) {
    write(0, 0, 60);
    write(1, 10, 50, 8);
    select(0, 1);
    blocks.copyIt();
    selection.InsertPosition = 12;
    blocks.PasteBut_Click();
    EXPECT_EQ(cells(1, 10, 17), (Cells{50, 1050, -1, -1, 50, 1050, 1050, 1050}));
}

TEST_F(BlockEditingTest, BehindColumnThousandNothingIsMended) {
    resize(1100);
    engine.score.ClearNoteArrays();
    select(0, 0);
    blocks.copyIt();
    write(1, 990, 50, 40);
    selection.InsertPosition = 999;
    blocks.PasteBut_Click();
    EXPECT_EQ(cells(1, 998, 1001), (Cells{1050, -1, 50, 1050}));
    write(1, 990, 50, 40);
    selection.InsertPosition = 1000;
    blocks.PasteBut_Click();
    EXPECT_EQ(cells(1, 999, 1002), (Cells{1050, -1, 1050, 1050}));
}

TEST_F(BlockEditingTest, APasteToTheLeftOfTheScoreWritesWhatReachesIntoIt) {
    write(0, 0, 50, 4);
    select(0, 3);
    blocks.copyIt();
    selection.InsertPosition = -2;
    blocks.PasteBut_Click();
    EXPECT_EQ(cells(0, 0, 4), (Cells{1050, 1050, 50, 1050, -1}));
}

TEST_F(BlockEditingTest, CuttingTheMiddleOfANoteStartsItsRestAgain) {
    write(0, 2, 50, 6);
    select(3, 5);
    blocks.CutBut_Click();
    EXPECT_EQ(cells(0, 0, 6), (Cells{-1, -1, 50, 50, 1050, -1, -1}));
    EXPECT_EQ(cells(0, 998, 1000), (Cells{-1, -1, -1}));
    EXPECT_EQ(selection.SelStart, -1);
    EXPECT_EQ(selection.SelEnd, -1);
    EXPECT_EQ(studio.score.NumNotes, 1000);
    EXPECT_EQ(read(clip.ClipNoteArray, 0, 0, 3), (Cells{50, 1050, 1050, 0}));
    EXPECT_EQ(surfaces.calls, (std::vector<std::string>{"DrawNoteArray", "DrawBeatArray"}));
}

TEST_F(BlockEditingTest, ACutClearsOnlyNotesAndInstrumentsAtTheEnd) {
    studio.score.ModArray.set(0, 1000, 9);
    write(0, 999, 50, 2, 30);
    select(0, 1);
    blocks.CutBut_Click();
    EXPECT_EQ(cells(0, 997, 1000), (Cells{50, 1050, -1, -1}));
    EXPECT_EQ(read(studio.score.InstArray, 0, 997, 1000), (Cells{30, 30, 0, 0}));
    EXPECT_EQ(read(studio.score.ModArray, 0, 998, 1000), (Cells{9, 0, 9}));
}

TEST_F(BlockEditingTest, ACutOfOneTrackClearsTheEndOfAllVisibleOnes) {
    for (int track : {2, 3, 4}) {
        write(track, 10, 50, 6, 7);
        write(track, 997, 60, 4, 7);
    }
    hide(4);
    selection.CopyonlyOneTrack = true;
    studio.tracks.CurrentTrack = 2;
    select(11, 12);
    blocks.CutBut_Click();
    EXPECT_EQ(cells(2, 10, 14), (Cells{50, 50, 1050, 1050, -1}));
    EXPECT_EQ(cells(2, 995, 1000), (Cells{60, 1060, 1060, 1060, -1, -1}));
    EXPECT_EQ(cells(3, 10, 14), (Cells{50, 50, 1050, 1050, 1050})) << "mended, though it has not moved";
    EXPECT_EQ(cells(3, 997, 1000), (Cells{60, 1060, -1, -1}));
    EXPECT_EQ(read(studio.score.InstArray, 3, 997, 1000), (Cells{7, 7, 0, 0}));
    EXPECT_EQ(cells(4, 997, 1000), (Cells{60, 1060, 1060, 1060}));
}

TEST_F(BlockEditingTest, ACutWithoutASelectionOrWithoutWidthDoesNothing) {
    write(0, 2, 50, 6);
    const auto before = cells(0, 0, 1000);
    clip.ClipLength = 4;
    blocks.CutBut_Click();
    select(5, 4);
    blocks.CutBut_Click();
    EXPECT_EQ(cells(0, 0, 1000), before);
    EXPECT_EQ(clip.ClipLength, 4);
    EXPECT_EQ(selection.SelStart, 5);
    EXPECT_TRUE(surfaces.calls.empty());
}

TEST_F(BlockEditingTest, EverythingCanBeCut) {
    write(0, 0, 50, 1001, 5);
    select(0, 1000);
    blocks.CutBut_Click();
    EXPECT_EQ(cells(0, 0, 1000), Cells(1001, -1));
    EXPECT_EQ(clip.ClipLength, 1000);
    blocks.PasteBut_Click();
    EXPECT_EQ(cells(0, 0, 2), (Cells{50, 1050, 1050}));
    EXPECT_EQ(cells(0, 1000, 1000), Cells{1050});
}

TEST_F(BlockEditingTest, ACutBeyondTheEndClearsAsManyColumnsAsItIsWide) {
    write(0, 980, 50, 21);
    select(995, 1010);
    blocks.CutBut_Click();
    EXPECT_EQ(cells(0, 983, 984), (Cells{1050, 1050}));
    EXPECT_EQ(cells(0, 985, 1000), Cells(16, -1));
}

TEST_F(BlockEditingTest, APasteWithInsertionMovesTheRestByTheWidthOfTheClip) {
    write(0, 0, 50, 2);
    write(0, 4, 60, 3);
    select(0, 1);
    blocks.copyIt();
    selection.InsertPosition = 5;
    blocks.PasteIntoBut_Click();
    EXPECT_EQ(cells(0, 4, 9), (Cells{60, 50, 1050, 60, 1060, -1}));
    EXPECT_EQ(studio.score.NumNotes, 1000);
    EXPECT_EQ(selection.InsertPosition, 5);
}

TEST_F(BlockEditingTest, TheClipboardTakesTheScoresLengthAtTheNextCopy) {
    resize(40);
    EXPECT_EQ(clip.ClipVolumeArray.lastColumn(), 1000);
    select(0, 0);
    blocks.copyIt();
    for (const auto& pair : gridPairs) EXPECT_EQ((clip.*pair.clip).lastColumn(), 40);
    studio.score.NumNotes = -3;
    write(0, 0, 50);
    select(0, 0);
    blocks.copyIt();
    EXPECT_EQ(clip.ClipNoteArray.lastColumn(), 40) << "no room of that size can be had";
    EXPECT_EQ(read(clip.ClipNoteArray, 0, 0, 1), (Cells{50, 0}));
}

TEST_F(BlockEditingTest, AClipTooLongForItsNumberKeepsTheFormerLength) {
    clip.ClipLength = 3;
    select(-1, 32767);
    blocks.CopySelectedArea();
    EXPECT_EQ(clip.ClipLength, 3);
}

}  // namespace
}  // namespace melvane::test
