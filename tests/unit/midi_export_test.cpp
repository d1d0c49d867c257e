#include "midi_export_fixture.h"

namespace melvane::test {
namespace {

TEST_F(MidiExportTest, AnEmptyScoreIsFourteenChunks) {
    expectFile(head() + empties(13, "0C"));
    EXPECT_EQ(studio.player.SongEndColumn, 1);
    EXPECT_EQ(studio.midiExport.MidiWriteIndex, 41 + 13 * 12);
}

TEST_F(MidiExportTest, TheTempoIsInMicrosecondsAQuarterNote) {
    const std::pair<int, const char*> tempos[] = {
        {60, "0F 42 40"}, {7, "82 CA 24"}, {400, "02 49 F0"}, {4, "E4 E1 C0"}, {32767, "00 07 27"}};
    for (const auto& [tempo, expected] : tempos) {
        score.Tempo = static_cast<Int16>(tempo);
        expectFile(head(expected) + empties(13, "0C"));
    }
}

TEST_F(MidiExportTest, BytesOfATempoThatDoNotFitAreZero) {
    const std::pair<int, const char*> tempos[] = {{3, "00 2D 00"}, {0, "00 00 00"}, {-100, "00 00 00"}};
    for (const auto& [tempo, expected] : tempos) {
        score.Tempo = static_cast<Int16>(tempo);
        expectFile(head(expected) + empties(13, "0C"));
    }
}

TEST_F(MidiExportTest, TheDenominatorFollowsTheBeatsAndIsZeroWhereTheyHaveNone) {
    const std::pair<int, const char*> meters[] = {{3, "00"},  {4, "02"},  {7, "02"},  {8, "03"}, {15, "03"},
                                                  {16, "04"}, {20, "04"}, {21, "00"}, {-4, "00"}};
    for (const auto& [beats, expected] : meters) {
        score.BeatsPerMeasure = static_cast<Int16>(beats);
        expectFile(head("09 27 C0", expected) + empties(13, "0C"));
    }
}

TEST_F(MidiExportTest, NotesBackToBackEndAndStartAtTheBoundary) {
    write(0, 0, 67, 2, 24);
    write(0, 2, 65, 1, 24);
    score.VolumeArray.set(0, 1, 100);
    score.VolumeArray.set(0, 3, 90);
    expectFile(head() +
               track("00 C0 18  00 90 3C 64"
                     "18 80 3C 00  00 90 3E 5A"
                     "0C 80 3E 00",
                     "0C") +
               empties(12, "30"));
}

TEST_F(MidiExportTest, APercussionTrackSoundsOnTheNinthIndexWithoutAProgram) {
    write(8, 1, 43, 1, 131);
    write(8, 3, 43, 1, 131);
    expectFile(head() + empties(8, "3C") + track("0C 99 26 7F  0C 89 26 00  0C 99 26 7F  0C 89 26 00", "0C") +
               empties(4, "3C"));
}

TEST_F(MidiExportTest, AnInstrumentChangesBeforeTheEndOfTheLastNote) {
    write(1, 0, 60, 1, 5);
    write(1, 1, 60, 1, 6);
    expectFile(head() + track("", "24") +
               track("00 C1 05  00 91 43 7F"
                     "0C C1 06  00 81 43 00  00 91 43 7F"
                     "0C 81 43 00",
                     "0C") +
               empties(11, "24"));
}

TEST_F(MidiExportTest, ANoteBeforeAPercussionSoundEndsWithThatSound) {
    write(0, 0, 60, 1, 0);
    write(0, 1, 50, 1, 128);
    write(0, 2, 60, 1, 0);
    expectFile(head() +
               track("00 C0 00  00 90 43 7F"
                     "0C 89 23 00  00 99 23 7F"
                     // back to a melody instrument: the percussion sound ends as a note of its lane's row
                     "0C C0 00  00 80 4D 00  00 90 43 7F"
                     "0C 80 43 00",
                     "0C") +
               empties(12, "30"));
}

TEST_F(MidiExportTest, APercussionTrackWithAMelodyInstrumentIsMelodic) {
    write(12, 0, 60, 2, 10);
    expectFile(head() + empties(12, "24") + track("00 CC 0A  00 9C 43 7F  18 8C 43 00", "0C"));
}

TEST_F(MidiExportTest, ASustainWithoutAStartIsEndedWithTheSoundOfTheTrackBefore) {
    write(0, 1, 50, 1, 128);
    score.NoteArray.set(1, 1, 1060);
    expectFile(head() + track("0C 99 23 7F  0C 89 23 00", "0C") + track("18 89 23 00", "0C") +
               empties(11, "24"));
}

TEST_F(MidiExportTest, ANoteEndsAtTheRowOfItsLastCell) {
    write(0, 1, 60, 1, 0);
    score.NoteArray.set(0, 2, 1061);
    expectFile(head() + track("0C C0 00  00 90 43 7F  18 80 42 00", "0C") + empties(12, "30"));
}

TEST_F(MidiExportTest, NotesInColumnZeroAloneAreNotEnded) {
    write(0, 0, 60, 1, 0);
    write(5, 0, 62, 1, 3);
    expectFile(head() + track("00 C0 00  00 90 43 7F", "0C") + empties(4, "0C") +
               track("00 C5 03  00 95 41 7F", "0C") + empties(7, "0C"));
}

TEST_F(MidiExportTest, ALongTimeTakesTwoBytes) {
    write(0, 77, 60, 1, 0);
    expectFile(head() + track("87 1C C0 00  00 90 43 7F  0C 80 43 00", "0C") + empties(12, "87 34"));
}

TEST_F(MidiExportTest, AHiddenTrackIsItsEndAloneAndDoesNotLengthenTheSong) {
    write(0, 0, 60, 1, 0);
    write(1, 2, 60, 40, 0);
    studio.Form3.TrackHide[1].set(true);
    const auto file = exported();
    EXPECT_EQ(studio.player.SongEndColumn, 1);
    EXPECT_EQ(hex(file), hex(head() + track("00 C0 00  00 90 43 7F", "0C") + empties(12, "0C")));
}

TEST_F(MidiExportTest, ANoteInTheLastColumnTakesTheTracksLastVelocityAndIsEndedBehindTheScore) {
    engine.score.resizeGrids(3);
    score.NoteArray.fillTrack(0, cell::empty, 3);
    write(0, 3, 60, 1, 0);
    studio.tracks.TrackVolume[0] = 77;
    expectFile(head() + track("24 C0 00  00 90 43 4D  0C 80 43 00", "0C") + empties(12, "3C"));
}

TEST_F(MidiExportTest, CellsBelowMinusOneAreRests) {
    write(0, 0, 60, 3, 0);
    score.NoteArray.set(0, 1, -5);
    score.NoteArray.set(0, 2, -1);
    score.NoteArray.set(0, 3, -13);
    score.NoteArray.set(0, 4, 60);
    expectFile(head() + track("00 C0 00  00 90 43 7F  0C 80 43 00  24 90 43 7F  0C 80 43 00", "0C") +
               empties(12, "48"));
}

TEST_F(MidiExportTest, AValueThatIsNoByteLeavesItsPlaceZero) {
    write(0, 1, 200, 1, 0);
    score.VolumeArray.set(0, 2, 300);
    write(1, 1, 60, 1, -7);
    score.VolumeArray.set(1, 2, 200);
    write(8, 1, 43, 1, 400);
    write(10, 1, 43, 1, 300);
    expectFile(head() + track("0C C0 00  00 90 00 00  0C 80 00 00", "0C") +
               track("0C C1 00  00 91 43 C8  0C 81 43 00", "0C") + empties(6, "24") +
               track("0C 99 00 7F  0C 89 00 00", "0C") + track("", "24") +
               track("0C 99 CF 7F  0C 89 CF 00", "0C") + empties(2, "24"));
}

TEST_F(MidiExportTest, VelocitiesAreThoseOneColumnToTheRightAndStayWithTheTrack) {
    write(3, 1, 60, 2, 0);
    score.VolumeArray.set(3, 1, 11);
    score.VolumeArray.set(3, 2, 22);
    score.VolumeArray.set(3, 3, 33);
    const auto file = exported();
    EXPECT_NE(file.find(bytes("0C C3 00 00 93 43 16")), std::string::npos);
    EXPECT_EQ(studio.tracks.TrackVolume[3], 22);
}

TEST_F(MidiExportTest, EffectsAreNotExported) {
    write(0, 0, 60, 2, 0);
    const auto plain = exported();
    for (Grid* grid : {&score.ModArray, &score.PanArray, &score.ReverbArray, &score.ChorusArray})
        grid->set(0, 1, 99);
    EXPECT_EQ(hex(exported()), hex(plain));
}

TEST_F(MidiExportTest, TheWalkLeavesWhatItRemembers) {
    write(0, 1, 60, 1, 7);
    write(12, 3, 43, 1, 140);
    exported();
    const auto& state = studio.midiExport;
    EXPECT_EQ(studio.player.SongEndColumn, 5);
    EXPECT_EQ(studio.player.LastPlayedCell[0], -1);
    EXPECT_EQ(studio.player.LastPlayedInstrument[0], 7);
    EXPECT_EQ(studio.player.LastPlayedInstrument[12], 140);
    EXPECT_EQ(studio.player.LastPlayedInstrument[5], -1);
    EXPECT_TRUE(state.ExportPercussion);
    EXPECT_EQ(state.ExportPercussionKey, 47);
    EXPECT_EQ(state.ExportChannel, 9);
    EXPECT_EQ(state.LastEventColumn, 4);
    EXPECT_EQ(state.DeltaColumns, 1);
    EXPECT_EQ(state.TrackByteCount, 12);
}

TEST_F(MidiExportTest, ANoteOneColumnBehindTheEndOfEarlierTracksIsNotEnded) {
    write(0, 1, 60, 1, 0);
    write(1, 2, 60, 1, 0);
    expectFile(head() + track("0C C0 00  00 90 43 7F  0C 80 43 00", "0C") +
               track("18 C1 00  00 91 43 7F", "0C") + empties(11, "24"));
}

TEST_F(MidiExportTest, TheNumberOfTracksFollowsTheHighWaterMarks) {
    struct Case {
        Int16 used, top;
        int tracks;
    };
    for (const auto& [used, top, tracks] :
         {Case{1, 3, 13}, Case{5, 4, 13}, Case{5, 5, 14}, Case{4, 5, 13}, Case{1, 8, 7}, Case{1, 30, 0}}) {
        score.UsedTrackCount = used;
        score.TopPolyTrack = top;
        expectFile(head() + empties(tracks, "0C"));
    }
}

TEST_F(MidiExportTest, AnExportWithoutChordsKeepsEveryGrid) {
    score.TopPolyTrack = 3;
    for (int track = 0; track < 8; ++track) write(track, track, 60 + track, 3, track);
    score.VolumeArray.set(2, 3, 50);
    const Score before = score;
    exported();
    EXPECT_EQ(score.NoteArray, before.NoteArray);
    EXPECT_EQ(score.InstArray, before.InstArray);
    EXPECT_EQ(score.VolumeArray, before.VolumeArray);
    EXPECT_EQ(score.PolyArray, before.PolyArray);
}

class MidiChordTest : public MidiExportTest {
 protected:
    /// A note of two columns with a chord on each of its cells.
    void writeChord(int track, int column, int chord) {
        write(track, column, 60, 2, 24);
        for (const int at : {column, column + 1}) score.PolyArray.set(track + 1, at, chord);
    }
};

TEST_F(MidiChordTest, VoicesStandOneColumnBeforeTheirNoteAndBelowIt) {
    writeChord(0, 2, 1);
    score.TopPolyTrack = 1;
    const auto voice = [](const std::string& channel, const std::string& early, const std::string& key) {
        return track("0C C" + channel + "00  00 9" + channel + early + "53  0C C" + channel + "18  00 8" +
                         channel + early + "00  00 9" + channel + key + "7F  0C 8" + channel + key + "00",
                     "18");
    };
    expectFile(head() + track("18 C0 18  00 90 43 7F  18 80 43 00", "0C") + voice("1", "7C", "3F") +
               voice("2", "79", "3C") + voice("3", "74", "37") + empties(9, "3C"));
    EXPECT_EQ(studio.form1.Label7.text(), "4 note chord: 5C 5E 5G 6C");
    EXPECT_EQ(studio.sounds.ChordStep1, 4);
}

TEST_F(MidiChordTest, TracksOfTheVoicesAreEmptiedUpToTheColumnAfterTheEnd) {
    writeChord(0, 2, 1);
    score.TopPolyTrack = 1;
    write(4, 0, 50, 2, 3);
    score.VolumeArray.set(4, 6, 20);
    write(5, 0, 50, 2, 3);
    score.VolumeArray.set(2, 5, 10);
    score.VolumeArray.set(2, 6, 20);
    exported();
    EXPECT_EQ(studio.player.SongEndColumn, 5);
    for (int track = 1; track <= 4; ++track) {
        for (int column = 0; column <= 5; ++column) {
            EXPECT_EQ(score.noteCell(track, column), -1);
            EXPECT_EQ(score.InstArray.get(track, column, -9), 0);
            EXPECT_EQ(score.VolumeArray.get(track, column, -9), 127);
        }
    }
    EXPECT_EQ(score.VolumeArray.get(2, 6, -9), 20);
    EXPECT_EQ(score.VolumeArray.get(4, 6, -9), 20);
    EXPECT_EQ(score.noteCell(5, 0), 50);
    EXPECT_EQ(score.noteCell(0, 2), 60);
}

TEST_F(MidiChordTest, ATrackAboveTheTopPolyTrackHasNoVoices) {
    writeChord(2, 2, 1);
    score.TopPolyTrack = 1;
    expectFile(head() + empties(2, "3C") + track("18 C2 18  00 92 43 7F  18 82 43 00", "0C") +
               empties(10, "3C"));
}

TEST_F(MidiChordTest, AHiddenTrackHasNoVoices) {
    writeChord(0, 2, 1);
    write(5, 3, 60, 1, 0);
    studio.Form3.TrackHide[0].set(true);
    exported();
    EXPECT_EQ(score.noteCell(5, 3), 60);
    EXPECT_EQ(studio.sounds.ChordStep1, 3);
}

TEST_F(MidiChordTest, AVoiceBelowMinusOneIsARestAndLaterVoicesTakeThePlace) {
    writeChord(0, 2, 6);  // steps -12, 0, 0
    expectFile(head() + track("18 C0 18  00 90 43 7F  18 80 43 00", "0C") +
               // the empty cell before the note gives -13
               track("18 C1 18  00 91 4F 7F  0C 81 4F 00", "18") +
               track("18 C2 18  00 92 43 7F  0C 82 43 00", "18") +
               track("18 C3 18  00 93 43 7F  0C 83 43 00", "18") + empties(9, "3C"));
}

TEST_F(MidiChordTest, TheVoicesOfTwoTracksOverwriteEachOtherAndTheNotesThere) {
    writeChord(0, 2, 1);  // steps 4, 7, 12, on tracks 1, 2, 3
    writeChord(1, 2, 2);  // steps 3, 7, 12, on tracks 2, 3, 4
    score.TopPolyTrack = 1;
    expectFile(head() + track("18 C0 18  00 90 43 7F  18 80 43 00", "0C") +
               // the voice hides the note's start, and the note's second column holds on
               track("0C C1 00  00 91 7C 53  0C C1 18  00 81 7C 00  00 91 3F 7F  18 81 43 00", "0C") +
               // voices of the voice: rows 3 + 3 and 64 + 3, velocity 83 * 0.65
               track("0C C2 00  00 92 79 36  0C C2 18  00 82 79 00  00 92 3C 7F  0C 82 3C 00", "18") +
               track("0C C3 00  00 93 75 36  0C C3 18  00 83 75 00  00 93 38 7F  0C 83 38 00", "18") +
               track("0C C4 00  00 94 70 36  0C C4 18  00 84 70 00  00 94 33 7F  0C 84 33 00", "18") +
               empties(8, "3C"));
}

}  // namespace
}  // namespace melvane::test
