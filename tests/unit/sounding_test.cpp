#include "program_fixture.h"

namespace melvane::test {
namespace {

using Lines = std::vector<std::string>;

class SoundingTest : public ProgramTest {
 protected:
    void SetUp() override { start(); }
    /// The note ons and offs alone.
    Lines notes() {
        Lines kept;
        for (const auto& line : sent()) {
            if (line[0] == '8' || line[0] == '9') kept.push_back(line);
        }
        return kept;
    }
};

TEST_F(SoundingTest, AMelodyInstrumentSendsBankAndProgram) {
    engine.sounding.ChangeInstrument(40, 3);
    EXPECT_EQ(sent(), (Lines{"B3 00 00", "B3 20 00", "C3 28 00"}));
    EXPECT_FALSE(studio.tracks.TrackIsPercussion[3]);
}

TEST_F(SoundingTest, APercussionInstrumentSendsNothingAndIgnoresTheRow) {
    engine.sounding.ChangeInstrument(128, 3);
    EXPECT_TRUE(sent().empty());
    EXPECT_EQ(studio.tracks.PercussionKey[3], 35);
    studio.tracks.TrackVolume[3] = 100;
    engine.sounding.StartNote(12, 3);
    EXPECT_EQ(notes(), (Lines{"99 23 64"}));
    engine.sounding.ChangeInstrument(5, 3);
    EXPECT_FALSE(studio.tracks.TrackIsPercussion[3]);
    EXPECT_EQ(sent().size(), 3U);
}

TEST_F(SoundingTest, APercussionTrackWithAMelodyNumberKeepsItsOldKey) {
    engine.sounding.ChangeInstrument(130, 8);
    engine.sounding.ChangeInstrument(5, 8);
    sent();
    engine.sounding.StartNote(60, 8);
    EXPECT_EQ(notes(), (Lines{"99 25 7F"}));
}

TEST_F(SoundingTest, EffectsComeFirstAndPercussionTakesThoseOfTrackNine) {
    studio.player.PlayColumn = 4;
    studio.score.ModArray.set(9, 5, 1);
    studio.score.PanArray.set(9, 5, 2);
    studio.score.ReverbArray.set(9, 5, 3);
    studio.score.ChorusArray.set(9, 5, 4);
    studio.score.ModArray.set(10, 5, 99);
    engine.sounding.ChangeInstrument(128, 10);
    engine.sounding.StartNote(45, 10);
    EXPECT_EQ(sent(), (Lines{"B9 01 01", "B9 0A 02", "B9 5B 03", "B9 5D 04", "99 23 7F"}));
}

TEST_F(SoundingTest, EffectsOfANoteInTheLastColumnAreNotSent) {
    studio.player.PlayColumn = 1000;
    studio.tracks.TrackVolume[0] = 50;
    engine.sounding.StartNote(67, 0);
    EXPECT_EQ(sent(), (Lines{"90 3C 32"}));
}

TEST_F(SoundingTest, TheSelectedTracksVelocityIsWrittenAndThePlayingTracksIsUsed) {
    studio.tracks.CurrentTrack = 2;
    studio.tracks.TrackVolume[5] = 90;
    studio.score.VolumeArray.set(5, 1, 33);
    engine.sounding.StartNote(67, 5);
    EXPECT_EQ(studio.tracks.TrackVolume[2], 33);
    EXPECT_EQ(notes(), (Lines{"95 3C 5A"}));
}

TEST_F(SoundingTest, AChordSoundsAtTwiceScaledVelocity) {
    studio.score.PolyArray.set(1, 0, 1);
    engine.sounding.StartNote(67, 0);
    EXPECT_EQ(notes(), (Lines{"90 3C 66", "90 40 52", "90 43 52", "90 48 52"}));
    EXPECT_EQ(studio.tracks.TrackVolume[0], 127);
    EXPECT_EQ(studio.form1.Combo3.index(), 1);
    EXPECT_EQ(studio.form1.Label7.text(), "4 note chord: 5C 5E 5G 6C");
}

TEST_F(SoundingTest, AnOctaveComboSoundsTwoNotesAndStopsFourKeys) {
    studio.score.PolyArray.set(1, 0, 6);
    engine.sounding.StartNote(67, 0);
    EXPECT_EQ(notes(), (Lines{"90 3C 66", "90 30 52"}));
    engine.sounding.StopNote(67);
    EXPECT_EQ(notes(), (Lines{"80 3C 00", "80 30 00", "80 3C 00", "80 3C 00"}));
}

TEST_F(SoundingTest, ATripleOctaveSoundsBelowAndAboveAndLeavesTheText) {
    studio.form1.Label7.set("before");
    studio.score.PolyArray.set(1, 0, 7);
    engine.sounding.StartNote(67, 0);
    EXPECT_EQ(notes(), (Lines{"90 3C 66", "90 30 52", "90 48 52"}));
    EXPECT_EQ(studio.form1.Label7.text(), "before");
}

TEST_F(SoundingTest, AMinorSeventhShowsTheMajorText) {
    engine.chords.SelectChord(4);
    EXPECT_EQ(studio.form1.Label7.text(), "4 note chord: 5C 5E 5G 6C");
    EXPECT_EQ(studio.sounds.ChordStep3, 10);
    engine.chords.SelectChord(5);
    EXPECT_EQ(studio.form1.Label7.text(), "4 note chord: 5C 5D# 5G 5A#");
    EXPECT_EQ(studio.form1.Combo3.index(), 5);
    engine.chords.SelectChord(8);
    EXPECT_EQ(studio.sounds.ChordStep3, 10);
}

TEST_F(SoundingTest, AChannelChordWithoutAChordOnTheNoteSoundsAloneAndSofter) {
    studio.Form3.Ch[0].set(true);
    engine.sounding.StartNote(67, 0);
    EXPECT_EQ(notes(), (Lines{"90 3C 66"}));
    engine.sounding.StopNote(67);
    EXPECT_EQ(notes().size(), 4U);
}

TEST_F(SoundingTest, AVoiceAboveTheHighestKeyIsSentAsItIs) {
    studio.score.PolyArray.set(1, 0, 1);
    engine.sounding.StartNote(0, 0);
    EXPECT_EQ(notes(), (Lines{"90 7F 66", "90 83 52", "90 86 52", "90 8B 52"}));
}

TEST_F(SoundingTest, PercussionHasNoChord) {
    studio.score.PolyArray.set(9, 0, 1);
    engine.sounding.ChangeInstrument(128, 8);
    engine.sounding.StartNote(45, 8);
    EXPECT_EQ(notes(), (Lines{"99 23 7F"}));
}

TEST_F(SoundingTest, AStrummedChordSpreadsItsVoicesWithoutServingEvents) {
    studio.score.PolyArray.set(1, 0, 1);
    studio.Form3.Chkstrum[0].set(true);
    bool served = false;
    time.at(10, [&] { served = true; });
    const auto begin = time.tickCount();
    sentWithMoments();
    engine.sounding.StartNote(67, 0);
    EXPECT_FALSE(served);
    Lines moments;
    for (const auto& line : sentWithMoments()) {
        if (line.find(" 90 ") == std::string::npos) continue;
        moments.push_back(std::to_string(std::stol(line) - begin) + line.substr(line.find(' ')));
    }
    EXPECT_EQ(moments, (Lines{"0 90 3C 66", "45 90 40 52", "80 90 43 52", "115 90 48 52"}));
}

TEST_F(SoundingTest, ANoteUnderTheMouseHasItsOwnFactors) {
    studio.score.PolyArray.set(1, 7, 1);
    studio.sounds.NoteColumn = 7;
    studio.tracks.LastTrack = 0;
    studio.sounds.ChordStep1 = 3;
    studio.sounds.ChordStep2 = 0;
    studio.sounds.ChordStep3 = -1;
    engine.sounding.StartNoteBtnDn(67);
    EXPECT_EQ(notes(), (Lines{"90 3C 6C", "90 3F 46"}));
}

TEST_F(SoundingTest, TheReleaseUnderTheMouseLooksOneColumnBackOnly) {
    studio.tracks.LastTrack = 0;
    studio.sounds.NoteColumn = 7;
    studio.score.PolyArray.set(1, 7, 1);
    engine.sounding.StopNoteBtnUp(67);
    EXPECT_EQ(notes().size(), 1U);
    studio.score.PolyArray.set(1, 6, 1);
    engine.sounding.StopNoteBtnUp(67);
    EXPECT_EQ(notes().size(), 4U);
}

TEST_F(SoundingTest, AStopLooksAtTheColumnAndTheOneBefore) {
    studio.tracks.LastTrack = 0;
    studio.player.PlayColumn = 8;
    studio.score.PolyArray.set(1, 7, 1);
    engine.sounding.StopNote(67);
    EXPECT_EQ(notes().size(), 4U);
    studio.player.PlayColumn = 0;
    engine.sounding.StopNote(67);
    EXPECT_EQ(notes().size(), 1U);
}

TEST_F(SoundingTest, APanelChordMarksAbsentVoicesWithMinusOne) {
    engine.chords.Combo3_Click();
    EXPECT_EQ(studio.sounds.ChordStep1, -1);
    studio.Form5.loaded = true;
    studio.Form5.Combo3.fill({"a", "b", "c", "d", "e", "f", "g", "h"});
    studio.Form5.Combo3.set(6);
    engine.chords.Combo3_Click();
    EXPECT_EQ(studio.sounds.ChordStep1, -12);
    EXPECT_EQ(studio.sounds.ChordStep2, -1);
}

}  // namespace
}  // namespace melvane::test
