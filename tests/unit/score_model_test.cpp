#include "program_fixture.h"

namespace melvane::test {
namespace {

using ScoreModelTest = ProgramTest;

TEST_F(ScoreModelTest, ANewScoreIsEmptyWithItsRestingValues) {
    start();
    EXPECT_EQ(studio.score.NoteArray.lastColumn(), 1000);
    for (int track = 0; track < Grid::tracks; ++track) EXPECT_EQ(studio.score.noteCell(track, 1000), -1);
    EXPECT_EQ(studio.score.VolumeArray.get(12, 1000, 0), 127);
    EXPECT_EQ(studio.score.PanArray.get(0, 0, 0), 64);
    EXPECT_EQ(studio.score.ModArray.get(0, 0, 9), 0);
}

TEST_F(ScoreModelTest, ClearAllForgetsTheScoreAndTheActiveTracks) {
    start();
    write(3, 5, 60);
    studio.score.VolumeArray.set(3, 6, 40);
    studio.score.PolyArray.set(4, 5, 2);
    studio.score.ScoreFileName = "x";
    studio.selection.SelStart = 3;
    studio.score.UsedTrackCount = 9;
    engine.score.ClearAll();
    EXPECT_EQ(studio.score.noteCell(3, 5), -1);
    EXPECT_EQ(studio.score.VolumeArray.get(3, 6, 0), 127);
    EXPECT_EQ(studio.score.chordOf(3, 5), 0);
    EXPECT_EQ(studio.score.ScoreFileName, "");
    EXPECT_EQ(studio.selection.SelStart, -1);
    EXPECT_EQ(studio.score.UsedTrackCount, 1);
    for (const bool active : studio.tracks.TrackActive) EXPECT_FALSE(active);
    EXPECT_EQ(surfaces.count("DrawNoteArray"), 1U);
    EXPECT_EQ(surfaces.count("DrawBeatArray"), 1U);
    EXPECT_FALSE(studio.shell.Busy);
}

TEST_F(ScoreModelTest, ClearAllLeavesTempoWhileTheSetupToolbarIsClosed) {
    start();
    studio.score.Tempo = 77;
    engine.score.ClearAll();
    EXPECT_EQ(studio.score.Tempo, 77);
    studio.shell.Form3Open = true;
    studio.tracks.CurrentTrack = 4;
    studio.Form3.Ch[2].set(true);
    engine.score.ClearAll();
    EXPECT_EQ(studio.score.Tempo, 100);
    EXPECT_EQ(studio.tracks.CurrentTrack, 0);
    EXPECT_FALSE(studio.Form3.Ch[2].ticked());
    EXPECT_FALSE(studio.tracks.TrackActive[0]);
}

TEST_F(ScoreModelTest, ClearEffectsKeepsTheNotesAndGivesEveryCellTheMelodyInstrument) {
    start();
    write(8, 5, 43, 1, 130);
    studio.instruments.MelodyInstrument = 40;
    studio.score.PolyArray.set(1, 5, 3);
    engine.score.ClearEffects();
    EXPECT_EQ(studio.score.noteCell(8, 5), 43);
    EXPECT_EQ(studio.score.InstArray.get(8, 5, 0), 40);
    EXPECT_EQ(studio.score.InstArray.get(12, 900, 0), 40);
    EXPECT_EQ(studio.score.InstArray.get(13, 900, 0), 0);
    EXPECT_EQ(studio.score.chordOf(0, 5), 0);
    EXPECT_TRUE(sent().empty());
}

TEST_F(ScoreModelTest, ClearingReturnsToTheStartWithoutARedrawInBetween) {
    start();
    studio.form1.HScroll1.set(200);
    EXPECT_GT(studio.page.FirstColumn, 0);
    surfaces.calls.clear();
    engine.score.ClearAll();
    EXPECT_EQ(studio.page.FirstColumn, 0);
    EXPECT_EQ(surfaces.count("DrawNoteArray"), 1U);
}

TEST_F(ScoreModelTest, AResizeFillsNewColumnsWithZeroAndANegativeOneLeavesTheGrids) {
    start();
    write(0, 1000, 60);
    engine.score.resizeGrids(1010);
    EXPECT_EQ(studio.score.NumNotes, 1010);
    EXPECT_EQ(studio.score.noteCell(0, 1000), 60);
    EXPECT_EQ(studio.score.noteCell(0, 1001), 0);
    EXPECT_EQ(studio.clipboard.ClipVolumeArray.lastColumn(), 1000);
    engine.score.resizeGrids(-3);
    EXPECT_EQ(studio.score.NumNotes, -3);
    EXPECT_EQ(studio.score.NoteArray.lastColumn(), 1010);
}

TEST_F(ScoreModelTest, ANegativeLengthLeavesNothingToClear) {
    start();
    write(0, 5, 60);
    engine.score.resizeGrids(-3);
    engine.score.ClearNoteArrays();
    EXPECT_EQ(studio.score.noteCell(0, 5), 60);
}

TEST_F(ScoreModelTest, StateOutOfRangeDoesNoHarm) {
    start();
    for (const Int16 track : {Int16{-1}, Int16{13}, Int16{16}, Int16{-32768}, Int16{32767}}) {
        studio.tracks.CurrentTrack = studio.tracks.LastTrack = track;
        engine.score.ClearAll();
        engine.instruments.Combo1_Click();
        engine.instruments.Combo5_Click();
        engine.sounding.StartNote(67, 0);
        engine.sounding.StopNote(67);
        engine.sounding.StartNoteBtnDn(67);
        engine.sounding.StopNoteBtnUp(67);
        engine.chords.Pic3_MouseDown(1, 0, 90, 0);
        EXPECT_EQ(studio.tracks.CurrentTrack, track);
    }
}

TEST_F(ScoreModelTest, TheBlankTabletKeepsVelocitiesAndEffects) {
    start();
    write(0, 5, 60);
    studio.score.VolumeArray.set(0, 6, 33);
    studio.Form3.TrackHide[4].set(true);
    engine.score.mNew_Click();
    EXPECT_EQ(studio.score.noteCell(0, 5), -1);
    EXPECT_EQ(studio.score.VolumeArray.get(0, 6, 0), 33);
    EXPECT_FALSE(studio.Form3.TrackHide[4].ticked());
    EXPECT_EQ(surfaces.calls.back(), "focusTablet");
    EXPECT_EQ(sent(), (std::vector<std::string>{"B0 00 00", "B0 20 00", "C0 00 00"}));
}

TEST_F(ScoreModelTest, PercussionInFrontSelectsItsFirstChannel) {
    start();
    engine.score.CmdBeatactivate();
    EXPECT_EQ(studio.form1.Beatbox.height(), 48);
    EXPECT_EQ(studio.tracks.CurrentTrack, 8);
    EXPECT_EQ(studio.tracks.LastTrack, 8);
    EXPECT_TRUE(studio.Form3.TrackSel[8].ticked());
    EXPECT_EQ(studio.tracks.CurrentTrackColor, (Colour{192, 0, 192}));
    EXPECT_EQ(surfaces.calls.back(), "focusTableau");
}

}  // namespace
}  // namespace melvane::test
