#include "program_fixture.h"

namespace melvane::test {
namespace {

using Lines = std::vector<std::string>;

class PlayerTest : public ProgramTest {
 protected:
    void SetUp() override {
        start();
        studio.player.ShowPlayingPosition = false;
    }
    /// The note ons and offs of track 0 and the resets, with the milliseconds since `begin`.
    Lines heard() {
        Lines kept;
        for (const auto& line : sentWithMoments()) {
            const auto text = line.substr(line.find(' ') + 1);
            if (text == "reset" || text.starts_with("90") || text.starts_with("80")) {
                kept.push_back(std::to_string(std::stol(line) - begin) + " " + text);
            }
        }
        return kept;
    }
    void play() {
        begin = time.tickCount();
        engine.player.PlayAndStop_Click(0);
    }
    std::int64_t begin = 0;
};

TEST_F(PlayerTest, AColumnLasts138MillisecondsAtTempo100) {
    write(0, 0, 67, 2);
    write(0, 2, 65);
    play();
    EXPECT_EQ(heard(), (Lines{"138 90 3C 7F", "414 80 3C 00", "414 90 3E 7F", "552 80 3E 00", "690 reset"}));
    EXPECT_FALSE(studio.player.Playing);
    EXPECT_TRUE(studio.form1.MusicBox.enabled());
}

TEST_F(PlayerTest, AnEmptyScoreEndsAfterTwoWaits) {
    play();
    EXPECT_EQ(time.tickCount() - begin, 2 * 138);
    EXPECT_EQ(heard(), (Lines{"276 reset"}));
}

TEST_F(PlayerTest, ATempoOfOneDoesNotPlay) {
    for (const Int16 tempo : {Int16{1}, Int16{0}, Int16{-5}}) {
        studio.score.Tempo = tempo;
        play();
        EXPECT_EQ(time.tickCount(), begin);
        EXPECT_FALSE(studio.player.Playing);
    }
    EXPECT_TRUE(heard().empty());
}

TEST_F(PlayerTest, TheEndIsOnePastTheLastUsedColumn) {
    write(0, 4, 67, 2);
    engine.tables.operations.call("form1", "FindSongEnd", {});
    EXPECT_EQ(studio.player.SongEndColumn, 6);
    // A track that ends one column later than the first does not move the end: it lies at that column
    // already.
    write(1, 6, 67);
    engine.tables.operations.call("form1", "FindSongEnd", {});
    EXPECT_EQ(studio.player.SongEndColumn, 6);
    write(2, 7, 67);
    engine.tables.operations.call("form1", "FindSongEnd", {});
    EXPECT_EQ(studio.player.SongEndColumn, 8);
}

TEST_F(PlayerTest, NotesInColumnZeroAloneEndTheSongThere) {
    write(0, 0, 67);
    engine.tables.operations.call("form1", "FindSongEnd", {});
    EXPECT_EQ(studio.player.SongEndColumn, 0);
}

TEST_F(PlayerTest, AHiddenTrackIsSilentAndEndsTheSongEarlier) {
    write(0, 0, 67);
    write(1, 9, 60);
    studio.Form3.TrackHide[1].set(true);
    play();
    EXPECT_EQ(studio.player.SongEndColumn, 0);
    for (const auto& line : heard()) EXPECT_EQ(line.find(" 91"), std::string::npos);
}

TEST_F(PlayerTest, AStopPlaysTheColumnAfterItsWait) {
    write(0, 0, 67, 8);
    time.at(140, [this] { engine.player.PlayAndStop_Click(1); });
    play();
    EXPECT_EQ(heard(), (Lines{"138 90 3C 7F", "414 80 3C 00", "414 reset"}));
    EXPECT_EQ(studio.player.PlayColumn, 2);
}

TEST_F(PlayerTest, PlayPressedDuringAPlaybackStopsIt) {
    write(0, 0, 67, 8);
    time.at(140, [this] { engine.player.PlayAndStop_Click(0); });
    play();
    EXPECT_EQ(studio.player.PlayColumn, 2);
}

TEST_F(PlayerTest, APauseResumesAtItsColumnAndAHeldNoteStaysSilent) {
    write(0, 0, 67, 3);
    write(0, 3, 65);
    time.at(140, [this] { studio.player.PauseRequested = true; });
    play();
    EXPECT_EQ(heard(), (Lines{"138 90 3C 7F", "276 reset"}));
    EXPECT_EQ(studio.selection.InsertPosition, 1);
    EXPECT_TRUE(studio.player.PauseRequested);
    play();
    EXPECT_EQ(heard(), (Lines{"414 80 3C 00", "414 90 3E 7F", "552 80 3E 00", "690 reset"}));
    EXPECT_FALSE(studio.player.PauseRequested);
}

TEST_F(PlayerTest, AFreshPlayStartsAtColumnZeroWhereverTheMarkerStands) {
    write(0, 0, 67);
    studio.selection.InsertPosition = 5;
    play();
    EXPECT_EQ(heard().front(), "138 90 3C 7F");
    EXPECT_EQ(studio.selection.InsertPosition, 0);
}

TEST_F(PlayerTest, ASustainAfterARestNeverSounds) {
    studio.score.NoteArray.set(0, 1, 1067);
    studio.score.NoteArray.set(0, 2, 1067);
    play();
    EXPECT_EQ(heard(), (Lines{"552 80 3C 00", "690 reset"}));
}

TEST_F(PlayerTest, ANoteHoldsThroughASustainThatNamesAnotherRow) {
    write(0, 0, 67);
    studio.score.NoteArray.set(0, 1, 1050);
    play();
    EXPECT_EQ(heard(), (Lines{"138 90 3C 7F", "414 80 4D 00", "552 reset"}));
}

TEST_F(PlayerTest, TheSelectedTrackTakesItsOwnVelocityTheOthersTheOneBefore) {
    write(0, 1, 67);
    write(1, 1, 67);
    for (int track : {0, 1}) {
        studio.score.VolumeArray.set(track, 1, 11);
        studio.score.VolumeArray.set(track, 2, 22);
    }
    play();
    const auto lines = sent();
    EXPECT_NE(std::ranges::find(lines, "90 3C 16"), lines.end());
    EXPECT_NE(std::ranges::find(lines, "91 3C 0B"), lines.end());
}

TEST_F(PlayerTest, AnInstrumentIsSentWhenItChanges) {
    write(0, 0, 67, 1, 40);
    write(0, 1, 67, 1, 40);
    write(0, 2, 67, 1, 41);
    play();
    int programs = 0;
    for (const auto& line : sent()) programs += line.starts_with("C0") ? 1 : 0;
    EXPECT_EQ(programs, 2);
}

TEST_F(PlayerTest, ASelectionIsFasterAndKeepsItsMarks) {
    write(0, 0, 67);
    studio.selection.SelStart = 0;
    studio.selection.SelEnd = 1;
    studio.player.PlayRangeEnd = 1;
    studio.player.Playing = true;
    begin = time.tickCount();
    engine.player.PlaySelection();
    EXPECT_EQ(heard(), (Lines{"120 90 3C 7F", "240 80 3C 00"}));
    EXPECT_EQ(time.tickCount() - begin, 360);
    EXPECT_EQ(studio.selection.SelEnd, 1);
    EXPECT_FALSE(studio.player.PlayingSelection);
}

TEST_F(PlayerTest, ASelectionThatEndsAtZeroDoesNotPlay) {
    studio.player.Playing = true;
    begin = time.tickCount();
    engine.player.PlaySelection();
    EXPECT_EQ(time.tickCount(), begin);
    EXPECT_TRUE(sent().empty());
}

TEST_F(PlayerTest, APausedSelectionKeepsThePortSounding) {
    write(0, 0, 67, 4);
    studio.player.PlayRangeEnd = 4;
    studio.player.Playing = true;
    begin = time.tickCount();
    time.at(130, [this] { studio.player.PauseRequested = true; });
    engine.player.PlaySelection();
    EXPECT_EQ(heard(), (Lines{"120 90 3C 7F"}));
    EXPECT_TRUE(studio.player.PlayingSelection);
    EXPECT_FALSE(studio.player.Playing);
}

TEST_F(PlayerTest, ALoopWithoutThePositionGoesOnInTheSameRound) {
    write(0, 0, 67);
    studio.player.LoopSong = true;
    time.at(138 * 3 + 10, [this] { engine.player.PlayAndStop_Click(1); });
    play();
    EXPECT_EQ(heard(), (Lines{"138 90 3C 7F", "276 80 3C 00", "276 90 3C 7F", "414 80 3C 00", "414 90 3C 7F",
                              "552 80 3C 00", "552 90 3C 7F", "690 80 3C 00", "690 reset"}));
}

TEST_F(PlayerTest, EachRoundOfALoopWithThePositionRunsItsOwnEndSteps) {
    write(0, 0, 67, 2);
    studio.player.LoopSong = true;
    studio.player.ShowPlayingPosition = true;
    // Rounds of 3 columns: the third begins at 6 * 138.
    time.at(138 * 6 + 10, [this] { engine.player.PlayAndStop_Click(1); });
    play();
    int resets = 0;
    for (const auto& line : heard()) resets += line.ends_with("reset") ? 1 : 0;
    EXPECT_EQ(resets, 3);
    EXPECT_EQ(time.tickCount() - begin, 138 * (7 + 3));
}

TEST_F(PlayerTest, ALoopMayRunForVeryManyRounds) {
    studio.player.LoopSong = true;
    studio.player.ShowPlayingPosition = true;
    constexpr int rounds = 20000;
    time.at(138L * rounds, [this] {
        studio.player.LoopSong = false;
        studio.player.Playing = false;
    });
    play();
    EXPECT_GE(surfaces.count("GetColumn 0"), std::size_t{rounds});
    EXPECT_FALSE(studio.player.Playing);
}

TEST_F(PlayerTest, TheCursorFollowsAndThePageTurns) {
    studio.player.ShowPlayingPosition = true;
    write(0, 0, 67);
    write(0, 60, 67);
    const int page = studio.page.PageColumns;
    bool turned = false;
    time.at(138L * (page + 2) + 10, [&] {
        turned = true;
        EXPECT_EQ(studio.page.FirstColumn, page + 1);
        EXPECT_EQ(studio.player.PlayCursorColumn, 0);
        EXPECT_EQ(studio.form1.HScroll1.value(), page + 1 + studio.page.HalfPageColumns);
    });
    play();
    EXPECT_TRUE(turned);
    EXPECT_EQ(surfaces.count("drawPlayCursor 0"), 2U);
    EXPECT_EQ(surfaces.count("drawPlayCursor " + std::to_string(page)), 1U);
}

TEST_F(PlayerTest, WithoutThePositionThePageStandsStill) {
    write(0, 90, 67);
    play();
    EXPECT_EQ(studio.page.FirstColumn, 0);
    EXPECT_EQ(surfaces.count("drawPlayCursor 0"), 0U);
}

TEST_F(PlayerTest, TheTabletIsOutOfReachWhilePlaying) {
    time.at(10, [this] {
        EXPECT_FALSE(studio.form1.MusicBox.enabled());
        EXPECT_FALSE(studio.form1.HScroll1.enabled());
        EXPECT_TRUE(studio.player.Playing);
    });
    play();
    EXPECT_TRUE(studio.form1.HScroll1.enabled());
}

TEST_F(PlayerTest, AStopWatchThatCannotStartSkipsTheColumnsOnly) {
    write(0, 0, 67);
    studio.player.PlayStopWatch = 99;
    play();
    EXPECT_EQ(time.tickCount(), begin);
    EXPECT_EQ(heard(), (Lines{"0 reset"}));
}

TEST_F(PlayerTest, TheEndOfTheProgramEndsAPlaybackAtOnce) {
    write(0, 0, 67, 8);
    time.at(200, [this] { time.end(); });
    play();
    EXPECT_EQ(time.tickCount() - begin, 200);
    EXPECT_EQ(heard(), (Lines{"138 90 3C 7F"}));
}

TEST_F(PlayerTest, RewindReturnsToTheStartUnlessPlaying) {
    studio.form1.HScroll1.set(300);
    studio.selection.InsertPosition = 9;
    studio.player.Playing = true;
    engine.player.RewindBut_Click();
    EXPECT_EQ(studio.selection.InsertPosition, 9);
    studio.player.Playing = false;
    engine.player.RewindBut_Click();
    EXPECT_EQ(studio.page.FirstColumn, 0);
    EXPECT_EQ(studio.page.LastColumn, studio.page.PageColumns);
    EXPECT_EQ(studio.form1.HScroll1.value(), studio.page.HalfPageColumns);
}

TEST_F(PlayerTest, ALoopThatCannotPlayItsSelectionEnds) {
    write(0, 0, 67);
    studio.player.LoopSong = studio.player.ShowPlayingPosition = true;
    studio.player.PlayingSelection = true;  // left over from a selection that was paused
    play();
    EXPECT_EQ(heard(), (Lines{"138 90 3C 7F", "276 80 3C 00", "276 reset"}));
}

TEST_F(PlayerTest, ATempoTooSlowForAnotherRoundGoesOnInTheRoundBefore) {
    write(0, 0, 67);
    studio.player.LoopSong = studio.player.ShowPlayingPosition = true;
    time.at(10, [this] { studio.score.Tempo = 1; });
    time.at(138 + 5000, [this] { studio.player.PauseRequested = true; });
    play();
    EXPECT_EQ(time.tickCount() - begin, 138 + 13800);
}

TEST_F(PlayerTest, ATempoOfZeroEndsALoop) {
    write(0, 0, 67);
    studio.player.LoopSong = studio.player.ShowPlayingPosition = true;
    time.at(10, [this] { studio.score.Tempo = 0; });
    play();
    EXPECT_FALSE(studio.player.Playing);
}

TEST_F(PlayerTest, ALongWaitIsCountedWithoutLoss) {
    const int slot = engine.stopWatches.StopWatchCreate();
    engine.stopWatches.StopWatchStart(slot);
    const auto before = time.tickCount();
    engine.stopWatches.WaitSeconds(slot, 100000.25);
    EXPECT_EQ(time.tickCount() - before, 100000250);
}

class Recorder final : public PlaybackRecorder {
 public:
    void showProgress(double ratio) override { ratios.push_back(ratio); }
    void clearProgress() override { ++cleared; }
    void CmdStopRecording_Click() override { ++stopped; }
    std::vector<double> ratios;
    int cleared = 0, stopped = 0;
};

TEST_F(PlayerTest, ARecordingIsStoppedAtTheEndOfTheSong) {
    Recorder recorder;
    engine.player.recorder = &recorder;
    studio.shell.RecorderOpen = true;
    studio.player.RecordingSong = true;
    write(0, 1, 67);
    play();
    EXPECT_EQ(recorder.ratios, (std::vector<double>{0.5, 1.0, 1.5}));
    EXPECT_EQ(recorder.cleared, 1);
    EXPECT_EQ(recorder.stopped, 1);
    EXPECT_FALSE(studio.player.RecordingSong);
    EXPECT_EQ(studio.player.RecordProgressColumns, 0);
    engine.player.recorder = nullptr;
}

TEST_F(PlayerTest, OpenToolWindowsAreEnabledAgain) {
    studio.shell.Form2Open = studio.shell.WizardOpen = true;
    toolWindows.calls.clear();
    play();
    EXPECT_EQ(toolWindows.calls.front(), "disable 3");
    EXPECT_NE(std::ranges::find(toolWindows.calls, "enable 0"), toolWindows.calls.end());
    EXPECT_EQ(std::ranges::find(toolWindows.calls, "disable 0"), toolWindows.calls.end());
}

TEST_F(PlayerTest, AStopWatchThatDoesNotExistAnswersMinusOne) {
    EXPECT_EQ(engine.stopWatches.StopWatchStart(0), 0);
    EXPECT_EQ(engine.stopWatches.StopWatchElapsed(77), -1.0F);
    const int slot = engine.stopWatches.StopWatchCreate();
    EXPECT_EQ(engine.stopWatches.StopWatchElapsed(slot), 0.0F);
    EXPECT_EQ(engine.stopWatches.StopWatchStart(slot), 1);
    engine.stopWatches.WaitSeconds(slot, 0.5);
    EXPECT_FLOAT_EQ(engine.stopWatches.StopWatchElapsed(slot), 0.5F);
}

}  // namespace
}  // namespace melvane::test
