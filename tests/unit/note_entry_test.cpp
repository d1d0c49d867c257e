#include "note_entry_fixture.h"

namespace melvane::test {
namespace {

TEST_F(NoteEntryTest, APressSoundsADragShowsAndTheReleaseWrites) {
    press(2, 3);
    EXPECT_EQ(sent().back(), "90 52 7F");
    EXPECT_EQ(studio.score.noteCell(0, 2), -1);
    move(4, 9);
    EXPECT_EQ(surfaces.count("bar 2 4 3"), 1U);
    release(4, 9);
    EXPECT_EQ(cells(0, 1, 5), (std::vector<int>{-1, first + 3, 1003 + first, 1003 + first, -1}));
    EXPECT_EQ(studio.score.InstArray.get(0, 4, 0), 24);
    EXPECT_EQ(sent().back(), "reset");
    EXPECT_FALSE(studio.drag.MouseIsDown);
}

TEST_F(NoteEntryTest, ADragToTheLeftWritesOneColumnAtThePress) {
    press(5, 3);
    move(2, 3);
    release(2, 3);
    EXPECT_EQ(cells(0, 1, 6), (std::vector<int>{-1, -1, -1, -1, first + 3, -1}));
}

TEST_F(NoteEntryTest, ANoteCannotBeLongerThanThePage) {
    press(5, 3);
    release(300, 3);
    EXPECT_EQ(studio.score.noteCell(0, studio.page.PageColumns), 1000 + first + 3);
    EXPECT_EQ(studio.score.noteCell(0, studio.page.PageColumns + 1), -1);
}

TEST_F(NoteEntryTest, DrawingOverTheMiddleOfANoteLeavesItsTailAsANote) {
    draw(2, 8, 3);
    draw(4, 5, 10);
    EXPECT_EQ(cells(0, 2, 8), (std::vector<int>{first + 3, 1003 + first, first + 10, 1010 + first, first + 3,
                                                1003 + first, 1003 + first}));
}

TEST_F(NoteEntryTest, APressOnAContinuationStartsANewNote) {
    draw(2, 5, 3);
    press(4, 7);
    release(4, 7);
    EXPECT_EQ(cells(0, 2, 5), (std::vector<int>{first + 3, 1003 + first, first + 7, first + 3}));
}

TEST_F(NoteEntryTest, TheRightButtonErasesANoteFromAnyOfItsColumns) {
    draw(2, 5, 3);
    studio.score.VolumeArray.set(0, 3, 50);
    studio.score.ModArray.set(0, 3, 9);
    press(4, 3, right);
    EXPECT_EQ(cells(0, 1, 6), (std::vector<int>(6, -1)));
    EXPECT_EQ(studio.score.InstArray.get(0, 3, 9), 0);
    EXPECT_EQ(studio.score.VolumeArray.get(0, 3, 0), 50);
    EXPECT_EQ(studio.score.ModArray.get(0, 3, 9), 0);
}

TEST_F(NoteEntryTest, DraggingTheRightButtonErasesAllThatItPasses) {
    draw(2, 3, 3);
    draw(6, 7, 3);
    press(2, 3, right);
    move(7, 3, right);
    EXPECT_EQ(cells(0, 1, 8), (std::vector<int>(8, -1)));
}

TEST_F(NoteEntryTest, TheMenuModeErasesNothingAndOpensOnce) {
    int menus = 0;
    engine.entry.openMenu = [&](auto) { ++menus; };
    studio.selection.RightClickMode = 1;
    draw(2, 3, 3);
    press(2, 3, right);
    move(3, 3, right);
    EXPECT_EQ(menus, 1);
    EXPECT_EQ(studio.score.noteCell(0, 2), first + 3);
}

TEST_F(NoteEntryTest, ThePolynoteModeSetsTheChordOnANotesTail) {
    studio.selection.RightClickMode = 2;
    draw(2, 5, 3);
    studio.form1.Combo3.set(3);  // the release has shown the chord of the note just drawn
    press(4, 3, right);
    EXPECT_EQ(studio.score.chordOf(0, 2), 3);
    EXPECT_EQ(studio.score.chordOf(0, 4), 0);
    EXPECT_EQ(studio.score.noteCell(0, 2), first + 3);
}

TEST_F(NoteEntryTest, EffectsWriteThePanelOntoTheNote) {
    draw(2, 4, 3);
    studio.form1.Check1.set(true);
    studio.instruments.NoteInstrument = 40;
    studio.form1.vol3.set("90");
    studio.form1.T1.set("11");
    studio.form1.T2.set("-4");
    studio.form1.T3.set("22");
    studio.form1.T4.set("33");
    studio.form1.Combo3.set(2);
    sent();
    press(3, 3, right);
    EXPECT_EQ(studio.score.InstArray.get(0, 4, 0), 40);
    EXPECT_EQ(studio.score.VolumeArray.get(0, 3, 0), 90);
    EXPECT_EQ(studio.score.ModArray.get(0, 3, 0), 11);
    EXPECT_EQ(studio.score.PanArray.get(0, 3, 0), 60);
    EXPECT_EQ(studio.score.ReverbArray.get(0, 3, 0), 22);
    EXPECT_EQ(studio.score.ChorusArray.get(0, 3, 0), 33);
    EXPECT_EQ(studio.score.chordOf(0, 2), 2);
    EXPECT_EQ(studio.score.chordOf(0, 4), 2);
    EXPECT_FALSE(sent().empty());
}

TEST_F(NoteEntryTest, TheStaticTestSoundsWithoutWriting) {
    draw(2, 3, 3);
    studio.form1.Check4.set(true);
    sent();
    press(3, 9);
    const auto heard = sent();
    EXPECT_NE(std::ranges::find(heard, "90 52 7F"), heard.end());
    release(3, 9);
    EXPECT_EQ(sent(), (Lines{"reset"}));
    EXPECT_FALSE(studio.drag.MouseIsDown);
    EXPECT_EQ(cells(0, 1, 4), (std::vector<int>{-1, first + 3, 1003 + first, -1}));
}

TEST_F(NoteEntryTest, TheMarginFinishesTheNoteAndScrolls) {
    press(38, 3);
    const int before = studio.form1.HScroll1.value();
    engine.entry.MusicBox_MouseMove(left, 0, studio.form1.MusicBox.width() - 10, y(3));
    EXPECT_EQ(studio.form1.HScroll1.value(), before + 1);
    EXPECT_EQ(studio.form1.MusicBox.tip(), "Scroll ahead ");
    EXPECT_EQ(studio.score.noteCell(0, 38), first + 3);
    engine.entry.MusicBox_MouseMove(right, 0, studio.form1.MusicBox.width() - 10, y(3));
    EXPECT_EQ(studio.form1.HScroll1.value(), before + 6);
}

TEST_F(NoteEntryTest, HoveringTellsTheNoteOnTheFirstPageOnly) {
    draw(2, 3, 25);
    move(2, 3, 0);
    EXPECT_EQ(studio.form1.MusicBox.tip(), "C -  Nylon Guitar");
    move(7, 3, 0);
    EXPECT_EQ(studio.form1.MusicBox.tip(), "");
}

TEST_F(NoteEntryTest, PlayingBlocksAllEdits) {
    studio.player.Playing = true;
    draw(2, 3, 3);
    EXPECT_EQ(studio.score.noteCell(0, 2), -1);
    EXPECT_TRUE(sent().empty());
}

TEST_F(NoteEntryTest, APercussionTrackGivesWayOnTheTablet) {
    studio.tracks.CurrentTrack = 10;
    draw(2, 2, 3);
    EXPECT_EQ(studio.tracks.CurrentTrack, 0);
    EXPECT_EQ(studio.score.noteCell(0, 2), first + 3);
}

TEST_F(NoteEntryTest, SelectingKeepsTheColumnsForThePlaying) {
    studio.selection.EditMode = 2;
    press(2, 3);
    move(6, 3);
    release(6, 3);
    EXPECT_EQ(studio.selection.SelStart, 2);
    EXPECT_EQ(studio.selection.SelEnd, 6);
    EXPECT_EQ(studio.selection.InsertPosition, 2);
    EXPECT_EQ(studio.player.PlayRangeEnd, 6);
    EXPECT_EQ(studio.player.PlayRangeStart, 0);
}

TEST_F(NoteEntryTest, TheInsertionMarkerFollowsThePress) {
    studio.selection.EditMode = 1;
    press(7, 3);
    EXPECT_EQ(studio.selection.InsertPosition, 7);
}

TEST_F(NoteEntryTest, ABeatSoundsItsInstrumentAndKeepsItsLane) {
    engine.tableau.Beatbox_MouseDown(left, 0, 30, 14);
    EXPECT_EQ(sent().back(), "99 23 7F");
    engine.tableau.Beatbox_MouseMove(left, 0, 54, 14);
    engine.tableau.Beatbox_MouseUp(left, 0, 54, 14);
    EXPECT_EQ(studio.tracks.CurrentTrack, 8);
    EXPECT_EQ(cells(8, 1, 5), (std::vector<int>{-1, first + 1, 1001 + first, 1001 + first, -1}));
    EXPECT_EQ(studio.score.InstArray.get(8, 2, 0), 128);
    EXPECT_EQ(studio.score.PercussionCount, 1);
    EXPECT_EQ(studio.score.UsedTrackCount, 8);
    engine.tableau.Beatbox_MouseDown(right, 0, 54, 14);
    EXPECT_EQ(cells(8, 1, 5), (std::vector<int>(5, -1)));
}

TEST_F(NoteEntryTest, ATableauWithoutAnInstrumentWritesNothing) {
    studio.instruments.PercussionInstrument = 5;
    studio.instruments.PercussionInstrumentName = "none";
    engine.tableau.Beatbox_MouseDown(left, 0, 30, 14);
    engine.tableau.Beatbox_MouseUp(left, 0, 30, 14);
    EXPECT_EQ(studio.score.noteCell(8, 2), -1);
}

TEST_F(NoteEntryTest, ARightReleaseEnlargesTheTableauAndEndsTheDrag) {
    engine.tableau.Beatbox_MouseDown(left, 0, 30, 14);
    engine.tableau.Beatbox_MouseUp(right, 0, 30, 70);
    EXPECT_EQ(studio.form1.Beatbox.height(), 82);
    EXPECT_EQ(studio.score.noteCell(8, 2), -1);
    EXPECT_FALSE(studio.drag.MouseIsDown);
}

TEST_F(NoteEntryTest, APressOutsideTheGridLeavesOlderNotesWhole) {
    write(0, 0, first + 3, 6);
    studio.page.FirstColumn = -3;
    press(1, 3);
    release(5, 3);
    EXPECT_EQ(cells(0, 0, 6), (std::vector<int>{first + 3, 1003 + first, 1003 + first, 1003 + first,
                                                1003 + first, 1003 + first, -1}));
    studio.page.FirstColumn = 0;
    studio.page.FirstRow = -20;
    press(1, 3);
    release(2, 3);
    EXPECT_EQ(studio.score.noteCell(0, 3), 1003 + first);
}

TEST_F(NoteEntryTest, TheTracksTakenOverBringTheirColours) {
    engine.channels.Label8_Click(8);
    press(2, 3);
    EXPECT_EQ(studio.tracks.CurrentTrackColor, (Colour{255, 0, 0}));
    release(2, 3);
    engine.tableau.Beatbox_MouseDown(left, 0, 30, 14);
    EXPECT_EQ(studio.tracks.CurrentTrackColor, (Colour{192, 0, 192}));
}

TEST_F(NoteEntryTest, ALaterPageLooksTheVelocityUpWithoutItsFirstColumn) {
    studio.page.FirstColumn = 100;
    studio.score.VolumeArray.set(0, 103, 55);
    press(2, 3);
    EXPECT_EQ(studio.tracks.TrackVolume[0], 55);
    release(2, 3);
    studio.score.VolumeArray.set(0, 2, 0);
    press(2, 3);
    EXPECT_EQ(studio.tracks.TrackVolume[0], 127);
}

TEST_F(NoteEntryTest, AHiddenChannelGivesNoPreview) {
    studio.Form3.TrackHide[0].set(true);
    press(2, 3);
    for (const auto& line : sent()) EXPECT_NE(line[0], '9');
}

TEST_F(NoteEntryTest, EffectsDoNotSoundABlank) {
    studio.form1.Check1.set(true);
    studio.score.PolyArray.set(1, 2, 3);
    press(2, 3, right);
    for (const auto& line : sent()) EXPECT_NE(line[0], '9');
}

TEST_F(NoteEntryTest, ASelectionOnTheTableauCanBePlayed) {
    studio.selection.EditMode = 2;
    engine.tableau.Beatbox_MouseDown(left, 0, 30, 14);
    engine.tableau.Beatbox_MouseUp(left, 0, 78, 14);
    EXPECT_EQ(studio.selection.SelStart, 2);
    EXPECT_EQ(studio.selection.SelEnd, 6);
    EXPECT_EQ(studio.player.PlayRangeEnd, 6);
}

TEST_F(NoteEntryTest, ADragDrawnToTheSameColumnTwiceIsSkipped) {
    press(2, 3);
    move(6, 3);
    release(6, 3);
    surfaces.calls.clear();
    press(2, 9);
    move(6, 9);
    EXPECT_EQ(surfaces.count("bar 2 6 9"), 0U);
    move(5, 9);
    EXPECT_EQ(surfaces.count("bar 2 5 9"), 1U);
}

}  // namespace
}  // namespace melvane::test
