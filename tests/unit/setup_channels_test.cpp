#include "program_fixture.h"

namespace melvane::test {
namespace {

using Lines = std::vector<std::string>;

class SetupChannelsTest : public ProgramTest {
 protected:
    SetupChannelsTest() { start(); }
    SetupControls& setup() { return studio.Form3; }
    void press(std::size_t channel) { setup().TrackSel[channel].userPut(true); }
    void hide(std::size_t channel, bool hidden = true) { setup().TrackHide[channel].userPut(hidden); }
};

TEST_F(SetupChannelsTest, AButtonMakesItsChannelTheCurrentOne) {
    press(3);
    EXPECT_EQ(studio.tracks.CurrentTrack, 3);
    EXPECT_EQ(setup().SetupChannel, 3);
    EXPECT_TRUE(studio.tracks.TrackActive[3]);
    EXPECT_TRUE(studio.tracks.TrackVisible[3]);
    EXPECT_TRUE(setup().TrackSel[3].ticked());
    EXPECT_FALSE(setup().TrackSel[0].ticked());
    EXPECT_EQ(sent(), (Lines{"B3 00 00", "B3 20 00", "C3 18 00", "B3 00 00", "B3 20 00", "C3 18 00"}));
}

TEST_F(SetupChannelsTest, APressedButtonIsNotLetGoOfByAClickOnIt) {
    press(3);
    sent();
    setup().TrackSel[3].userPut(false);
    EXPECT_TRUE(setup().TrackSel[3].ticked());
    EXPECT_EQ(studio.tracks.CurrentTrack, 3);
    EXPECT_TRUE(sent().empty());
}

TEST_F(SetupChannelsTest, APercussionChannelTakesThePercussionInstrument) {
    studio.instruments.PercussionInstrument = 130;
    studio.instruments.PercussionInstrumentName = "Side Stick";
    press(11);
    EXPECT_EQ(studio.tracks.TrackInstrument[11], 130);
    EXPECT_EQ(studio.instruments.NoteInstrument, 130);
    EXPECT_EQ(studio.score.PercussionCount, 3);
    EXPECT_TRUE(sent().empty());
}

TEST_F(SetupChannelsTest, AMelodyChannelLeavesTheNotesInstrument) {
    studio.instruments.NoteInstrument = 77;
    press(2);
    EXPECT_EQ(studio.instruments.NoteInstrument, 77);
}

TEST_F(SetupChannelsTest, TheHandlerWithoutAPressedButtonLeavesTheTrackUndrawn) {
    engine.setup.channels.TrackSel_Click(5);
    EXPECT_EQ(studio.tracks.CurrentTrack, 5);
    EXPECT_FALSE(studio.tracks.TrackVisible[5]);
    EXPECT_TRUE(setup().TrackSel[0].ticked());
}

TEST_F(SetupChannelsTest, TheSelectedChannelCannotBeHidden) {
    EXPECT_FALSE(setup().TrackHide[0].enabled());
    press(4);
    EXPECT_TRUE(setup().TrackHide[0].enabled());
    EXPECT_FALSE(setup().TrackHide[4].enabled());
    hide(4);
    EXPECT_FALSE(studio.isHidden(4));
}

TEST_F(SetupChannelsTest, AHiddenChannelCannotBeSelected) {
    hide(2);
    EXPECT_FALSE(setup().TrackSel[2].enabled());
    EXPECT_FALSE(studio.tracks.TrackShown[2]);
    EXPECT_EQ(surfaces.count("DrawNoteArray"), 1U);
    press(2);
    EXPECT_EQ(studio.tracks.CurrentTrack, 0);
    hide(2, false);
    EXPECT_TRUE(studio.tracks.TrackShown[2]);
    press(2);
    EXPECT_EQ(studio.tracks.CurrentTrack, 2);
}

TEST_F(SetupChannelsTest, AHiddenPercussionChannelLeavesTheTableau) {
    hide(10);
    EXPECT_EQ(surfaces.count("DrawBeatArray"), 1U);
    EXPECT_EQ(surfaces.count("DrawNoteArray"), 1U);
}

TEST_F(SetupChannelsTest, AChannelChosenInTheMainWindowIsTheSelectedOneHereToo) {
    engine.channels.Label8_Click(6);
    EXPECT_TRUE(setup().TrackSel[6].ticked());
    EXPECT_TRUE(setup().TrackSel[6].highlighted());
    EXPECT_FALSE(setup().TrackHide[6].enabled());
    EXPECT_TRUE(setup().TrackHide[0].enabled());
    EXPECT_EQ(setup().Label15.text(), "Ch #7 Volume");
}

TEST_F(SetupChannelsTest, AHiddenChannelChosenInTheMainWindowCanBeBroughtBack) {
    hide(6);
    engine.channels.Label8_Click(6);
    EXPECT_TRUE(setup().TrackHide[6].enabled());
    hide(6, false);
    EXPECT_TRUE(setup().TrackSel[6].enabled());
}

TEST_F(SetupChannelsTest, ABlankTabletShowsAllChannels) {
    hide(2);
    hide(11);
    engine.score.mNew_Click();
    EXPECT_TRUE(setup().TrackSel[2].enabled());
    EXPECT_TRUE(studio.tracks.TrackShown[11]);
    EXPECT_FALSE(studio.isHidden(2));
}

TEST_F(SetupChannelsTest, TheMainWindowShowsTheChosenChannel) {
    press(11);
    EXPECT_EQ(studio.form1.LblTrk.text(), "11");
    EXPECT_EQ(studio.form1.LblTrk.backColour(), studio.tracks.TrackColor[11]);
    EXPECT_GE(surfaces.count("DrawNoteArray"), 1U);
    EXPECT_EQ(surfaces.count("DrawPolyStrip"), 1U);
}

TEST_F(SetupChannelsTest, ThePressedButtonStandsOut) {
    engine.setup.channels.TrackSel_MouseDown(7, 1, 0, 3, 3);
    EXPECT_TRUE(setup().TrackSel[7].highlighted());
    EXPECT_FALSE(setup().TrackSel[0].highlighted());
    EXPECT_EQ(studio.tracks.CurrentTrack, 0);
}

TEST_F(SetupChannelsTest, OtherNumbersDoNothing) {
    const auto track = studio.tracks.CurrentTrack;
    for (const int index : {-1, 13, 100, INT32_MAX, INT32_MIN}) {
        engine.setup.channels.TrackSel_Click(index);
        engine.setup.channels.TrackSel_MouseDown(index, 1, 0, 0, 0);
        engine.setup.channels.TrackHide_Click(index);
        engine.setup.chords.Ch_Click(index);
    }
    EXPECT_EQ(studio.tracks.CurrentTrack, track);
    EXPECT_TRUE(surfaces.calls.empty());
}

TEST_F(SetupChannelsTest, APickedMelodyInstrumentGoesToTheCurrentTrack) {
    press(2);
    sent();
    time.at(10, [this] {
        studio.FrmInst.LstInstruments.set(40);
        engine.picker.CmdOk_Click();
    });
    engine.setup.channels.LblInst1_DblClick();
    EXPECT_EQ(sent(), (Lines{"C2 28 00", "B2 00 00", "B2 20 00", "C2 28 00"}));
    EXPECT_EQ(setup().LblInst1.text(), "Violin");
    EXPECT_EQ(studio.tracks.TrackInstrument[2], 40);
}

TEST_F(SetupChannelsTest, ACancelledPickerSendsNothingAndAppliesTheEffects) {
    studio.instruments.MelodyInstrumentName = "Nylon Guitar";
    studio.tracks.ChannelSettings[0].Reverb = 9;
    time.at(10, [this] { engine.picker.CmdCancel_Click(); });
    engine.setup.channels.LblInst1_DblClick();
    EXPECT_TRUE(sent().empty());
    EXPECT_EQ(studio.score.ReverbArray.get(0, 1000, -1), 9);
}

TEST_F(SetupChannelsTest, APickedPercussionInstrumentGoesOutAsAProgramOf128AndAbove) {
    press(8);
    sent();
    time.at(10, [this] {
        studio.FrmInst.LstInstruments2.set(5);
        engine.picker.LstInstruments2_DblClick();
    });
    engine.setup.channels.LblInst2_DblClick();
    EXPECT_EQ(sent(), (Lines{"C8 85 00"}));
    EXPECT_EQ(setup().LblInst2.text(), "Electric Snare");
    EXPECT_EQ(studio.tracks.TrackInstrument[8], 133);
}

}  // namespace
}  // namespace melvane::test
