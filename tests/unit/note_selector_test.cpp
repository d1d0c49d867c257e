#include "note_entry_fixture.h"

namespace melvane::test {
namespace {

using NoteSelectorTest = NoteEntryTest;

TEST_F(NoteSelectorTest, InspectingTellsTheColumn) {
    draw(2, 3, 25);
    EXPECT_EQ(studio.form1.LblNote.text(), "4");
    engine.selector.Pic2a_MouseDown(left, 0, 30, 5);
    EXPECT_EQ(studio.form1.LblNote.text(), "3");
    EXPECT_EQ(studio.form1.Label5.text(), "3-C");
    EXPECT_EQ(studio.form1.LblInst.text(), "Nylon Guitar");
    EXPECT_EQ(studio.form1.Label7.text(), "1 note: 5C ");
    studio.score.ModArray.set(0, 11, 5);
    engine.selector.Pic2a_MouseDown(left, 0, 10 * 12, 5);
    EXPECT_EQ(studio.form1.Label5.text(), "Blank Note");
    EXPECT_EQ(studio.score.ModArray.get(0, 11, 9), 0);
}

TEST_F(NoteSelectorTest, ASweepOfTheSelectorWritesEveryColumn) {
    draw(2, 3, 25);
    studio.form1.vol3.set("44");
    engine.selector.Pic2a_MouseDown(right, 0, 24, 5);
    engine.selector.Pic2a_MouseMove(right, 0, 36, 5);
    engine.selector.Pic2a_MouseMove(right, 0, 48, 5);
    for (int column : {3, 4, 5}) EXPECT_EQ(studio.score.VolumeArray.get(0, column, 0), 44);
    EXPECT_EQ(studio.score.VolumeArray.get(0, 6, 0), 127);
}

TEST_F(NoteSelectorTest, ABlankLosesOnlyItsOwnStaleEffects) {
    write(0, 5, 60);
    studio.score.ReverbArray.set(0, 5, 9);
    studio.score.ChorusArray.set(0, 5, 9);
    studio.score.ReverbArray.set(0, 6, 7);
    engine.selector.Pic2a_MouseDown(left, 0, 4 * 12, 5);
    EXPECT_EQ(studio.score.ReverbArray.get(0, 5, 9), 0);
    EXPECT_EQ(studio.score.ChorusArray.get(0, 5, 9), 0);
    EXPECT_EQ(studio.score.noteCell(0, 5), 60);
    EXPECT_EQ(studio.score.ReverbArray.get(0, 6, 0), 7);
    EXPECT_EQ(studio.form1.Picture10[2].value(), 0);
    engine.selector.Pic2a_MouseDown(left, 0, 5 * 12, 5);
    EXPECT_EQ(studio.form1.Picture10[2].value(), 7);
}

TEST_F(NoteSelectorTest, ARightPressOnTheSelectorWritesEverythingOfANote) {
    write(0, 5, 60, 2);
    studio.form1.Combo3.set(4);
    studio.instruments.MelodyInstrument = 33;
    for (int column : {5, 6}) {
        engine.selector.Pic2a_MouseDown(right, 0, column * 12, 5);
        EXPECT_EQ(studio.score.InstArray.get(0, column, 0), 33);
        EXPECT_EQ(studio.score.chordOf(0, column), 4);
        EXPECT_EQ(studio.score.PanArray.get(0, column + 1, 0), 65);
    }
    EXPECT_EQ(studio.form1.LblInst.text(), "Finger Electric Bass");
    engine.channels.Label8_Click(8);
    studio.form1.Label7.set("before");
    engine.selector.Pic2a_MouseDown(right, 0, 5 * 12, 5);
    EXPECT_EQ(studio.score.InstArray.get(8, 5, 0), 128);
    EXPECT_EQ(studio.form1.LblInst.text(), "Acoustic Bass Drum");
    EXPECT_EQ(studio.form1.Label7.text(), "");
}

TEST_F(NoteSelectorTest, TheInspectedChannelShowsItsOwnColour) {
    engine.tableau.Beatbox_MouseDown(left, 0, 30, 14);
    engine.tableau.Beatbox_MouseUp(left, 0, 30, 14);
    engine.selector.Pic2a_MouseDown(left, 0, 30, 5);
    EXPECT_EQ(studio.form1.LblTrk.text(), "9");
    EXPECT_EQ(studio.form1.LblTrk.backColour(), (Colour{192, 0, 192}));
}

TEST_F(NoteSelectorTest, AColumnOutsideTheScoreIsABlank) {
    engine.selector.Pic2a_MouseDown(left, 0, 2000 * 12, 5);
    EXPECT_EQ(studio.form1.Label5.text(), "Blank Note");
    EXPECT_EQ(studio.form1.LblVol.text(), "127");
}

TEST_F(NoteSelectorTest, ASliderFollowsTheMouseWhileItIsHeld) {
    auto& sliders = engine.sliders;
    studio.form1.LblMod.trackWidth = 137;
    studio.form1.LblPan.trackWidth = 138;
    sliders.move(PanelSliders::modulation, left, 100);
    EXPECT_EQ(studio.form1.T1.text(), "0");
    sliders.press(PanelSliders::modulation);
    sliders.move(PanelSliders::modulation, left, 105);
    EXPECT_EQ(studio.form1.T1.text(), "101");
    sliders.move(PanelSliders::modulation, left, -5);
    EXPECT_EQ(studio.form1.T1.text(), "1");
    sliders.move(PanelSliders::modulation, left, 500);
    EXPECT_EQ(studio.form1.T1.text(), "128");
    sliders.move(PanelSliders::modulation, right, 50);
    EXPECT_EQ(studio.form1.T1.text(), "0");
    sliders.release(PanelSliders::modulation);
    sliders.move(PanelSliders::modulation, left, 50);
    EXPECT_EQ(studio.form1.T1.text(), "0");
    sliders.press(PanelSliders::pan);
    sliders.move(PanelSliders::pan, left, 5);
    EXPECT_EQ(studio.form1.T2.text(), "-63");
    sliders.move(PanelSliders::pan, left, 500);
    EXPECT_EQ(studio.form1.T2.text(), "65");
    sliders.rest(PanelSliders::pan);
    EXPECT_EQ(studio.form1.T2.text(), "1");
}

TEST_F(NoteSelectorTest, APointerStandsWhereItsNumberSays) {
    auto& pan = studio.form1.LblPan;
    pan.trackWidth = 138;
    pan.pointerWidth = 10;
    const auto place = [&pan] { return pan.pointer.shown(); };
    studio.form1.T2.set("-63");
    EXPECT_EQ(place(), Value(0LL));
    studio.form1.T2.set("1");
    EXPECT_EQ(place(), Value(64LL));
    studio.form1.T2.set("65");
    EXPECT_EQ(place(), Value(128LL));
    EXPECT_TRUE(pan.pointer.userPut(Value(100LL)));
    EXPECT_EQ(studio.form1.T2.text(), "37");
    for (const long long beyond : {-1LL, 129LL}) EXPECT_FALSE(pan.pointer.userPut(Value(beyond)));
    for (const long long beyond : {-64LL, 66LL}) EXPECT_FALSE(pan.userPut(Value(beyond)));
    EXPECT_EQ(studio.form1.T2.text(), "37");
    pan.trackWidth = 5;
    EXPECT_EQ(place(), Value(0LL)) << "a track narrower than its pointer";
}

TEST_F(NoteSelectorTest, ASliderStepsInsideItsRange) {
    engine.sliders.step(PanelSliders::volume, 1);
    EXPECT_EQ(studio.form1.vol3.text(), "127");
    engine.sliders.step(PanelSliders::volume, -2);
    EXPECT_EQ(studio.form1.vol3.text(), "125");
    engine.sliders.step(PanelSliders::reverb, -1);
    EXPECT_EQ(studio.form1.T3.text(), "0");
    engine.sliders.step(PanelSliders::reverb, 1);
    EXPECT_EQ(studio.form1.T3.text(), "1");
}

}  // namespace
}  // namespace melvane::test
