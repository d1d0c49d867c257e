#include "program_fixture.h"

namespace melvane::test {
namespace {

using Cells = std::vector<int>;

class DuplicationTest : public ProgramTest {
 protected:
    void SetUp() override { start(); }
    Cells cells(int track, int from, int to) const {
        Cells found;
        for (int column = from; column <= to; ++column) found.push_back(studio.score.noteCell(track, column));
        return found;
    }
    /// The columns in which a note of `row` begins.
    Cells starts(int track, int row) const {
        Cells found;
        for (int column = 0; column <= studio.score.NumNotes; ++column) {
            if (studio.score.noteCell(track, column) == row) found.push_back(column);
        }
        return found;
    }
    void fields(int notes, int repeat, int beats) {
        studio.duplicate.DuplicateNotes = static_cast<Int16>(notes);
        studio.duplicate.DuplicateRepeat = static_cast<Int16>(repeat);
        studio.duplicate.DuplicateBeats = static_cast<Int16>(beats);
    }
    void hide(int track) { studio.Form3.TrackHide[static_cast<std::size_t>(track)].set(true); }

    Duplication& duplication = engine.duplication;
    Selection& selection = studio.selection;
    Clipboard& clip = studio.clipboard;
};

TEST_F(DuplicationTest, TheWholePartOfNotesByRepeatAndOneMoreCopiesAreMade) {
    write(0, 0, 50);
    fields(60, 12, 8);
    duplication.CopyNotes(0, 12);
    EXPECT_EQ(starts(0, 50), (Cells{0, 12, 24, 36, 48, 60}));
    write(1, 0, 60);
    fields(59, 12, 8);
    duplication.CopyNotes(0, 12);
    EXPECT_EQ(starts(1, 60), (Cells{0, 12, 24, 36, 48}));
}

TEST_F(DuplicationTest, ThePatternIsOneColumnWiderThanTheMotif) {
    write(0, 0, 50, 9);
    write(0, 9, 70);
    fields(0, 12, 8);
    selection.InsertPosition = 20;
    duplication.Command6_Click();
    EXPECT_EQ(cells(0, 19, 29), (Cells{-1, 50, 1050, 1050, 1050, 1050, 1050, 1050, 1050, -1, -1}));
    EXPECT_EQ(clip.ClipLength, 7);
    duplication.CopyNotes(0, 12);
    EXPECT_EQ(cells(0, 27, 29), (Cells{1050, 1050, -1}));
    EXPECT_EQ(clip.ClipLength, 8);
}

TEST_F(DuplicationTest, TheDefaultsLetEachCopyBeginOnTheLastColumnOfTheOneBefore) {
    write(0, 0, 50);
    write(0, 12, 60);
    write(0, 13, 70, 80);
    fields(24, 12, 12);
    duplication.CopyNotes(0, 12);
    EXPECT_EQ(starts(0, 50), (Cells{0, 12, 24}));
    EXPECT_EQ(starts(0, 60), Cells{36});
    EXPECT_EQ(cells(0, 36, 38), (Cells{60, 70, 1070})) << "behind the last copy a note begins anew";
}

TEST_F(DuplicationTest, ColumnsBetweenTwoCopiesKeepWhatTheyHeld) {
    write(0, 0, 50);
    write(0, 10, 60);
    fields(12, 12, 8);
    duplication.CopyNotes(0, 12);
    EXPECT_EQ(cells(0, 8, 13), (Cells{-1, -1, 60, -1, 50, -1}));
}

TEST_F(DuplicationTest, TheMotifIsDrawnByThePasteAndOnceMoreAndTheCopiesAtTheEnd) {
    std::vector<std::string> drawn{"DrawNoteArray", "DrawBeatArray", "DrawNoteArray", "DrawBeatArray"};
    duplication.Command6_Click();
    EXPECT_EQ(surfaces.calls, drawn);
    drawn.insert(drawn.end(), {"DrawNoteArray", "DrawBeatArray"});
    surfaces.calls.clear();
    duplication.CopyNotes(0, 12);
    EXPECT_EQ(surfaces.calls, drawn);
}

TEST_F(DuplicationTest, ItLeavesTheStateThatTheNextOneExpects) {
    write(0, 0, 50, 3, 9);
    studio.score.ModArray.set(0, 1, 44);
    selection.SelStart = 3;
    selection.SelEnd = 7;
    selection.InsertPosition = 30;
    fields(0, 12, 4);
    duplication.CopyNotes(0, 7);
    EXPECT_EQ(selection.SelStart, -1);
    EXPECT_EQ(selection.SelEnd, -1);
    EXPECT_EQ(selection.InsertPosition, 0);
    EXPECT_EQ(clip.ClipLength, 4);
    EXPECT_EQ(clip.ClipInstArray.get(0, 2, 0), 9);
    EXPECT_EQ(clip.ClipModArray.get(0, 1, 0), 44) << "the motif's values stay on the clipboard";
    EXPECT_EQ(studio.score.ModArray.get(0, 31, 0), 44) << "and came with the motif";
}

TEST_F(DuplicationTest, OnlyNotesAndInstrumentsAreRepeated) {
    write(0, 0, 50, 1, 9);
    studio.score.ModArray.set(0, 1, 44);
    fields(20, 20, 4);
    duplication.CopyNotes(0, 12);
    EXPECT_EQ(studio.score.InstArray.get(0, 20, 0), 9);
    EXPECT_EQ(studio.score.ModArray.get(0, 21, 99), 0);
}

TEST_F(DuplicationTest, OnlyTheGivenChannelsAreRepeated) {
    write(0, 0, 50);
    write(8, 0, 60);
    fields(20, 20, 4);
    duplication.CopyNotes(8, 12);
    EXPECT_EQ(starts(0, 50), Cells{0});
    EXPECT_EQ(starts(8, 60), (Cells{0, 20}));
}

TEST_F(DuplicationTest, NeitherBoxLaysTheMotifAloneInAllTracks) {
    write(0, 0, 50);
    write(8, 0, 60);
    selection.InsertPosition = 30;
    fields(20, 20, 4);
    studio.Form2.Check1.set(false);
    studio.Form2.Check2.set(false);
    duplication.takeToolbarChannels();
    EXPECT_EQ(studio.duplicate.ToolbarFirstChannel, 8);
    EXPECT_EQ(studio.duplicate.ToolbarLastChannel, 7);
    duplication.CopyNotes(8, 7);
    EXPECT_EQ(starts(0, 50), (Cells{0, 30}));
    EXPECT_EQ(starts(8, 60), (Cells{0, 30}));
}

TEST_F(DuplicationTest, NeitherBoxStillRepeatsTheOneTrack) {
    write(0, 0, 50);
    write(1, 0, 60);
    selection.InsertPosition = 30;
    selection.CopyonlyOneTrack = true;
    fields(20, 20, 4);
    duplication.CopyNotes(8, 7);
    EXPECT_EQ(starts(0, 50), (Cells{0, 30, 50}));
    EXPECT_EQ(starts(1, 60), Cells{0});
    EXPECT_EQ(clip.ClipTrack, 0);
}

TEST_F(DuplicationTest, TheBoxesNameTheChannels) {
    const auto range = [&](bool melody, bool percussion) {
        studio.Form2.Check2.set(melody);
        studio.Form2.Check1.set(percussion);
        duplication.takeToolbarChannels();
        return std::pair<int, int>(studio.duplicate.ToolbarFirstChannel, studio.duplicate.ToolbarLastChannel);
    };
    EXPECT_TRUE(studio.Form2.Check1.ticked());
    EXPECT_TRUE(studio.Form2.Check2.ticked());
    EXPECT_EQ(range(true, true), (std::pair{0, 12}));
    EXPECT_EQ(range(true, false), (std::pair{0, 7}));
    EXPECT_EQ(range(false, true), (std::pair{8, 12}));
    EXPECT_EQ(range(false, false), (std::pair{8, 7}));
}

TEST_F(DuplicationTest, TheMotifIsACopyAndItsTrackIsRemembered) {
    selection.CopyonlyOneTrack = true;
    studio.tracks.CurrentTrack = 3;
    write(3, 0, 50);
    fields(0, 12, 0);
    clip.ClipTrack = 7;
    duplication.CopyNotes(0, 12);
    EXPECT_EQ(clip.ClipTrack, 7) << "an empty motif is no copy, nor is the pattern";
    fields(0, 12, 1);
    duplication.CopyNotes(0, 12);
    EXPECT_EQ(clip.ClipTrack, 3);
}

TEST_F(DuplicationTest, ACopyBeyondTheEndIsCutThereAndNothingIsMended) {
    write(0, 0, 50, 13);
    selection.InsertPosition = 990;
    fields(60, 12, 12);
    duplication.CopyNotes(0, 12);
    EXPECT_EQ(cells(0, 988, 991), (Cells{-1, -1, 50, 1050}));
    EXPECT_EQ(cells(0, 998, 1000), (Cells{1050, 1050, 1050}));
    EXPECT_EQ(studio.score.NumNotes, 1000);
}

TEST_F(DuplicationTest, AHeldNoteBehindACopyBeginsAnewOnVisibleGivenChannels) {
    write(0, 0, 50);
    for (const int track : {1, 2, 9}) write(track, 15, 60, 20);
    hide(2);
    fields(0, 12, 4);
    selection.InsertPosition = 20;
    duplication.DuplicateCycles(0, 7);
    EXPECT_EQ(cells(1, 19, 22), (Cells{1060, 0, 60, 1060})) << "the clip is still one column of zeros";
    EXPECT_EQ(cells(2, 19, 22), (Cells{1060, 1060, 1060, 1060}));
    EXPECT_EQ(cells(9, 19, 22), (Cells{1060, 1060, 1060, 1060}));
}

TEST_F(DuplicationTest, OneTrackOutsideTheChannelsIsCopiedWithoutMending) {
    write(0, 0, 50, 6);
    studio.score.NoteArray.set(0, 0, 1050);
    selection.CopyonlyOneTrack = true;
    selection.InsertPosition = 20;
    fields(0, 12, 3);
    duplication.CopyNotes(8, 12);
    EXPECT_EQ(cells(0, 20, 24), (Cells{1050, 1050, 1050, 1050, -1}));
    selection.InsertPosition = 20;
    duplication.CopyNotes(0, 12);
    EXPECT_EQ(cells(0, 20, 24), (Cells{50, 1050, 1050, 1050, -1}));
}

TEST_F(DuplicationTest, NegativeNumbersAreTakenAsTheyAre) {
    write(0, 0, 50, 3);
    const auto before = cells(0, 0, 1000);
    fields(-1, 12, -4);
    duplication.CopyNotes(0, 12);
    EXPECT_EQ(cells(0, 0, 1000), before) << "no copy, and a motif of no column";
    EXPECT_EQ(clip.ClipLength, -4);
    selection.InsertPosition = 10;
    fields(0, -4, 1);
    duplication.CopyNotes(0, 12);
    EXPECT_EQ(starts(0, 50), (Cells{0, 2, 6, 10})) << "copies to the left, until they have left the score";
}

TEST_F(DuplicationTest, StopEndsADuplicationThatNeverGetsOn) {
    write(0, 0, 50);
    fields(60, 0, 4);
    selection.InsertPosition = 10;
    int rounds = 0;
    time.at(100, [&] {
        EXPECT_FALSE(studio.form1.StatusText.text().empty());
        EXPECT_EQ(selection.InsertPosition, 10);
        studio.score.NoteArray.set(0, 10, -1);
        ++rounds;
    });
    time.at(200, [&] {
        EXPECT_EQ(studio.score.noteCell(0, 10), 50) << "it copies in every round";
        ++rounds;
    });
    time.at(300, [&] { engine.player.PlayAndStop_Click(1); });
    time.at(400, [&] { ++rounds; });
    duplication.CopyNotes(0, 12);
    EXPECT_EQ(rounds, 2);
    EXPECT_EQ(time.tickCount() % 1000, 300);
    EXPECT_EQ(selection.InsertPosition, 0);
    EXPECT_EQ(surfaces.calls.back(), "DrawBeatArray");
    EXPECT_EQ(studio.form1.StatusText.text(), "");
}

TEST_F(DuplicationTest, AnEarlierStopDoesNotCount) {
    engine.player.PlayAndStop_Click(1);
    fields(60, 0, 4);
    bool served = false;
    time.at(100, [&] {
        served = true;
        engine.player.PlayAndStop_Click(1);
    });
    duplication.CopyNotes(0, 12);
    EXPECT_TRUE(served);
}

TEST_F(DuplicationTest, ClosingTheProgramEndsADuplicationThatNeverGetsOn) {
    fields(60, 0, 4);
    selection.InsertPosition = 10;
    time.at(100, [&] {
        surfaces.calls.clear();
        time.end();
    });
    duplication.CopyNotes(0, 12);
    EXPECT_TRUE(surfaces.calls.empty()) << "nothing is drawn in a window that is gone";
    EXPECT_TRUE(time.ended());
}

TEST_F(DuplicationTest, NoDistanceAndNoSpanEndsAtOnce) {
    fields(-1, 0, 4);
    duplication.CopyNotes(0, 12);
    EXPECT_EQ(selection.InsertPosition, 0);
    EXPECT_FALSE(time.ended());
}

}  // namespace
}  // namespace melvane::test
