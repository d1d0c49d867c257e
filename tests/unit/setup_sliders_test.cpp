#include "program_fixture.h"

namespace melvane::test {
namespace {

using Lines = std::vector<std::string>;

class SetupSlidersTest : public ProgramTest {
 protected:
    SetupSlidersTest() { start(); }
    SetupControls& setup() { return studio.Form3; }
    /// A press, a move to `place` (0 to 1) of the way, a release.
    void drag(SetupSliders::Slider slider, double place, int button = 1) {
        const auto& control = sliders().control(slider);
        sliders().press(slider);
        sliders().move(slider, button,
                       (control.trackWidth - control.pointerWidth) * place + control.pointerWidth / 2.0);
        sliders().release(slider);
    }
    SetupSliders& sliders() { return engine.setup.sliders; }
};

TEST_F(SetupSlidersTest, AnEffectIsKeptForTheChannelAndSentAtOnce) {
    setup().SetupChannel = 3;
    drag(SetupSliders::modulation, 1);
    drag(SetupSliders::reverb, 0.5);
    drag(SetupSliders::chorus, 0);
    EXPECT_EQ(setup().LMod.text(), "127");
    EXPECT_EQ(setup().LReverb.text(), "63");
    EXPECT_EQ(studio.tracks.ChannelSettings[3].Modulation, 127);
    EXPECT_EQ(studio.tracks.ChannelSettings[3].Reverb, 63);
    EXPECT_EQ(sent(), (Lines{"B3 01 7F", "B3 5B 3F", "B3 5D 00"}));
}

TEST_F(SetupSlidersTest, NothingIsWrittenIntoTheScoreBeforeTheToolbarIsLeft) {
    setup().SetupChannel = 3;
    drag(SetupSliders::pan, 1);
    EXPECT_EQ(studio.score.PanArray.get(3, 500, 0), 64);
    drag(SetupSliders::pan, 0.25);
    EXPECT_EQ(studio.score.PanArray.get(3, 500, 0), 64);
    engine.setup.Form_LostFocus();
    for (const int column : {0, 1, 500, 1000}) EXPECT_EQ(studio.score.PanArray.get(3, column, 0), -32);
    EXPECT_EQ(studio.score.PanArray.get(2, 500, 0), 64);
}

TEST_F(SetupSlidersTest, ThePanGoesOutWithoutAnOffset) {
    drag(SetupSliders::pan, 0);
    EXPECT_EQ(setup().LPan.text(), "-64");
    EXPECT_EQ(sent(), (Lines{"0xFFC00AB0"}));
    drag(SetupSliders::pan, 1);
    EXPECT_EQ(setup().LPan.text(), "64");
    EXPECT_EQ(sent(), (Lines{"B0 0A 40"}));
}

TEST_F(SetupSlidersTest, TheRightButtonCentresThePanAndSendsFullLeft) {
    drag(SetupSliders::pan, 1);
    sent();
    drag(SetupSliders::pan, 0.9, 2);
    EXPECT_EQ(setup().LPan.text(), "0");
    EXPECT_EQ(sent(), (Lines{"B0 0A 00"}));
    EXPECT_DOUBLE_EQ(setup().LblPan.place(), 0.5);
}

TEST_F(SetupSlidersTest, ThePanAtRestReads64AndStandsInTheMiddle) {
    EXPECT_EQ(setup().LPan.text(), "64");
    EXPECT_DOUBLE_EQ(setup().LblPan.place(), 0.5);
    drag(SetupSliders::pan, 1);
    EXPECT_DOUBLE_EQ(setup().LblPan.place(), 1);
    setup().TrackSel[4].userPut(true);
    EXPECT_EQ(setup().LPan.text(), "64");
    EXPECT_DOUBLE_EQ(setup().LblPan.place(), 0.5);
    setup().TrackSel[0].userPut(true);
    EXPECT_DOUBLE_EQ(setup().LblPan.place(), 1);
}

TEST_F(SetupSlidersTest, TheRightButtonPutsAnEffectToTheLeftEnd) {
    for (const auto slider : {SetupSliders::modulation, SetupSliders::reverb, SetupSliders::chorus}) {
        drag(slider, 0.7);
        drag(slider, 0.7, 2);
        EXPECT_EQ(sliders().control(slider).number(), 0);
        EXPECT_DOUBLE_EQ(sliders().control(slider).place(), 0);
    }
    EXPECT_EQ(studio.tracks.ChannelSettings[0].Chorus, 0);
}

TEST_F(SetupSlidersTest, TheVolumeOverwritesEveryVelocityOfTheTrack) {
    studio.score.VolumeArray.set(0, 10, 33);
    drag(SetupSliders::volume, 0.5);
    EXPECT_EQ(setup().Label2.text(), "63");
    EXPECT_EQ(studio.tracks.TrackVolume[0], 63);
    for (const int column : {0, 10, 1000}) EXPECT_EQ(studio.score.VolumeArray.get(0, column, -1), 63);
    EXPECT_EQ(studio.score.VolumeArray.get(1, 10, -1), 127);
    drag(SetupSliders::volume, 0.5, 2);
    EXPECT_EQ(studio.tracks.TrackVolume[0], 127);
    EXPECT_EQ(setup().Label2.text(), "127");
    EXPECT_EQ(studio.score.VolumeArray.get(0, 10, -1), 127);
    EXPECT_TRUE(sent().empty());
}

TEST_F(SetupSlidersTest, TheVelocitiesStayWhileTheTracksButtonIsUp) {
    engine.setup.channels.TrackSel_Click(5);
    drag(SetupSliders::volume, 0);
    EXPECT_EQ(studio.tracks.TrackVolume[5], 0);
    EXPECT_EQ(studio.score.VolumeArray.get(5, 10, -1), 127);
}

TEST_F(SetupSlidersTest, TheTempoMovesInStepsOfFour) {
    for (const double place : {0.0, 0.1, 0.333, 0.77, 1.0}) {
        drag(SetupSliders::tempo, place);
        EXPECT_EQ(studio.score.Tempo % 4, 0) << place;
        EXPECT_EQ(setup().TempoLabel.text(), std::to_string(studio.score.Tempo));
    }
    EXPECT_EQ(studio.score.Tempo, 500);
    drag(SetupSliders::tempo, 0.2, 2);
    EXPECT_EQ(studio.score.Tempo, 500) << "there is nowhere to rest";
}

TEST_F(SetupSlidersTest, TheTempoTakesTheSlidersNumberEvenWhereTheBoxAlreadyShowsIt) {
    studio.score.Tempo = 77;
    drag(SetupSliders::tempo, 0.2);
    EXPECT_EQ(setup().TempoLabel.text(), "100");
    EXPECT_EQ(studio.score.Tempo, 100);
}

TEST_F(SetupSlidersTest, TheBeatsRunFrom4To16AndKeepTheLengthOfABar) {
    drag(SetupSliders::beats, 1);
    EXPECT_EQ(setup().TxBeats.text(), "16");
    EXPECT_EQ(studio.score.BeatsPerMeasure, 16);
    EXPECT_EQ(studio.score.Tempo, 400);
    drag(SetupSliders::beats, 0);
    EXPECT_EQ(studio.score.BeatsPerMeasure, 4);
    EXPECT_EQ(studio.score.Tempo, 100);
}

TEST_F(SetupSlidersTest, AKnobFollowsWhatIsTyped) {
    setup().TempoLabel.userPut(std::string("250"));
    EXPECT_DOUBLE_EQ(setup().LblTempo.place(), 0.5);
    setup().TempoLabel.userPut(std::string("9000"));
    EXPECT_DOUBLE_EQ(setup().LblTempo.place(), 1);
    setup().TxBeats.userPut(std::string("10"));
    EXPECT_DOUBLE_EQ(setup().Lblbeats.place(), 0.5);
}

TEST_F(SetupSlidersTest, AMoveWithoutAPressDoesNothing) {
    sliders().move(SetupSliders::modulation, 1, 40);
    sliders().press(SetupSliders::modulation);
    sliders().move(SetupSliders::modulation, 0, 40);
    sliders().move(SetupSliders::modulation, 4, 40);
    EXPECT_EQ(setup().LMod.text(), "0");
    sliders().release(SetupSliders::modulation);
    sliders().move(SetupSliders::modulation, 1, 40);
    EXPECT_EQ(setup().LMod.text(), "0");
    EXPECT_TRUE(sent().empty());
}

TEST_F(SetupSlidersTest, AStepByKeysHasItsEffectToo) {
    sliders().step(SetupSliders::chorus, 1);
    EXPECT_EQ(sent(), (Lines{"B0 5D 01"}));
    sliders().step(SetupSliders::chorus, -5);
    EXPECT_EQ(setup().LChorus.text(), "0");
    setup().TempoLabel.userPut(std::string("101"));
    sliders().step(SetupSliders::tempo, 1);
    EXPECT_EQ(studio.score.Tempo, 104);
    sliders().step(SetupSliders::tempo, 1000);
    EXPECT_EQ(studio.score.Tempo, 500);
    sliders().step(SetupSliders::beats, -1000);
    EXPECT_EQ(setup().TxBeats.text(), "4");
    sliders().step(SetupSliders::volume, -1);
    EXPECT_EQ(studio.tracks.TrackVolume[0], 126);
}

TEST_F(SetupSlidersTest, ADragIsHeldInsideTheTrack) {
    for (const double X : {-1e9, -1.0, 1e9}) {
        sliders().press(SetupSliders::pan);
        sliders().move(SetupSliders::pan, 1, X);
        sliders().release(SetupSliders::pan);
        EXPECT_EQ(setup().LPan.text(), X < 0 ? "-64" : "64");
    }
}

TEST_F(SetupSlidersTest, AChannelThatDoesNotExistDoesNoHarm) {
    for (const Int16 channel : {Int16{-1}, Int16{16}, Int16{32767}}) {
        setup().SetupChannel = channel;
        drag(SetupSliders::pan, 0.3);
        engine.setup.settings.ApplyChannelSettings();
    }
    EXPECT_EQ(studio.score.PanArray.get(0, 5, 0), 64);
}

}  // namespace
}  // namespace melvane::test
