#include "program_fixture.h"

namespace melvane::test {
namespace {

using Lines = std::vector<std::string>;
using SetupToolbarTest = ProgramTest;

TEST_F(SetupToolbarTest, ALoadShowsWhatIsStored) {
    store.write("Line_Height", "12");
    store.write("Beats per measure", "6");
    store.write("Show_Sharp_guides", "0");
    store.write("NumNotes", "700");
    store.write("Intrumentval", "40");
    store.write("Intrumentval2", "130");
    engine.startUp.Form_Load();
    const auto& setup = studio.Form3;
    EXPECT_EQ(setup.Text1.text(), "700");
    EXPECT_EQ(setup.Text3.text(), "12");
    EXPECT_EQ(setup.VScroll3.value(), 12);
    EXPECT_EQ(setup.TxBeats.text(), "6");
    EXPECT_EQ(studio.score.BeatsPerMeasure, 6);
    EXPECT_FALSE(setup.Check1.ticked());
    EXPECT_EQ(setup.TempoLabel.text(), "100");
    EXPECT_EQ(studio.score.Tempo, 100) << "filling the beats does not change it";
    EXPECT_EQ(setup.LblInst1.text(), "Violin");
    EXPECT_EQ(setup.LblInst2.text(), "Side Stick");
    EXPECT_EQ(setup.Combo3.items().size(), 7U);
    EXPECT_EQ(setup.Combo3.index(), 1);
    EXPECT_TRUE(setup.TrackSel[0].highlighted());
    EXPECT_EQ(setup.Label15.text(), "Channel  Volume");
    EXPECT_EQ(store.read("Line_Height"), "12");
    for (std::size_t track = 0; track < 16; ++track) EXPECT_TRUE(studio.tracks.TrackShown[track]) << track;
}

TEST_F(SetupToolbarTest, TheChannelsStartAtRest) {
    start();
    for (std::size_t channel = 0; channel <= 12; ++channel) {
        const auto& record = studio.tracks.ChannelSettings[channel];
        EXPECT_EQ(record.Instrument, channel < 8 ? 24 : 128) << channel;
        EXPECT_EQ(record.Volume, 100);
        EXPECT_EQ(record.Pan, 64);
        EXPECT_EQ(record.Reverb + record.Chorus + record.Modulation, 0);
    }
    EXPECT_EQ(studio.tracks.ChannelSettings[13].Volume, 0);
}

TEST_F(SetupToolbarTest, AResetTellsTheMelodyInstrumentToAllThirteenChannels) {
    start();
    engine.setup.settings.ResetChannels();
    const auto lines = sent();
    ASSERT_EQ(lines.size(), 65U);
    EXPECT_EQ((Lines{lines.begin(), lines.begin() + 5}),
              (Lines{"C0 18 00", "B0 0A 40", "B0 5B 00", "B0 5D 00", "B0 01 00"}));
    EXPECT_EQ((Lines{lines.end() - 5, lines.end()}),
              (Lines{"CC 18 00", "BC 0A 40", "BC 5B 00", "BC 5D 00", "BC 01 00"}));
}

TEST_F(SetupToolbarTest, TheStartSendsNothingBeforeTheDeviceIsOpen) {
    engine.startUp.Form_Load();
    EXPECT_EQ(sent(), (Lines{"reset", "close", "open 0 0", "C9 00 00", "B0 00 00", "B0 20 00", "C0 18 00"}));
}

TEST_F(SetupToolbarTest, ComingToTheFrontOverwritesTheEffectsOfTheChannelsNotes) {
    start();
    studio.score.ReverbArray.set(0, 10, 99);
    studio.score.ReverbArray.set(1, 10, 99);
    store.write("Devices", "-1");
    engine.setup.Form_Activate();
    EXPECT_EQ(studio.score.ReverbArray.get(0, 10, -1), 0);
    EXPECT_EQ(studio.score.ReverbArray.get(1, 10, -1), 99);
    EXPECT_EQ(studio.Form3.Combo2.index(), 0);
    EXPECT_TRUE(studio.shell.Form3Open);
    EXPECT_TRUE(sent().empty()) << "the list follows without opening a device";
}

TEST_F(SetupToolbarTest, AStoredDeviceThatCannotBeReadLeavesTheList) {
    start();
    store.write("Devices", "nonsense");
    engine.setup.Form_Activate();
    EXPECT_EQ(studio.Form3.Combo2.index(), 1);
    store.write("Devices", "2147483647");
    engine.setup.Form_Activate();
    EXPECT_EQ(studio.Form3.Combo2.index(), 1);
}

TEST_F(SetupToolbarTest, LosingTheFocusClosesItOnlyWhenItIsNoLongerOnTheScreen) {
    start();
    engine.setup.Form_Activate();
    studio.Form3.shown = true;
    engine.setup.Form_LostFocus();
    EXPECT_TRUE(studio.shell.Form3Open);
    studio.Form3.shown = false;
    engine.setup.Form_LostFocus();
    EXPECT_FALSE(studio.shell.Form3Open);
}

TEST_F(SetupToolbarTest, OutOfTheWayOfADialogItComesBackAlthoughItHadTheFocus) {
    start();
    engine.setup.Form_Activate();
    toolWindows.calls.clear();
    engine.toolbar.setToolWindows(false);
    studio.Form3.shown = false;
    engine.setup.Form_LostFocus();
    engine.toolbar.setToolWindows(true);
    EXPECT_EQ(toolWindows.calls, (Lines{"hide 1", "show 1"}));
}

TEST_F(SetupToolbarTest, ClosingItStoresWhatOutlivesIt) {
    start();
    engine.setup.Form_Activate();
    studio.Form3.left = 1500;
    studio.Form3.top = -30;
    studio.Form3.TxBeats.set("7");
    studio.score.BeatsPerMeasure = 3;
    engine.setup.Form_Unload();
    EXPECT_EQ(store.read("form3 left"), "1500");
    EXPECT_EQ(store.read("form3 top"), "-30");
    EXPECT_EQ(store.read("Devices"), "0");
    EXPECT_EQ(store.read("Form3"), "False") << "it is not open at the exit";
    EXPECT_EQ(studio.score.BeatsPerMeasure, 7);
    EXPECT_EQ(store.read("Beats per measure"), "7");
    EXPECT_FALSE(studio.shell.Form3Open);
    engine.setup.Form_LostFocus();
    EXPECT_FALSE(studio.shell.Form3Open);
}

TEST_F(SetupToolbarTest, AToolbarThatIsOpenAtTheExitOpensAgain) {
    start();
    engine.setup.Form_Activate();
    engine.startUp.Form_Unload();
    EXPECT_EQ(store.read("Form3"), "True");
    EXPECT_FALSE(studio.Form3.loaded);
}

TEST_F(SetupToolbarTest, OneThatIsNotStaysClosed) {
    start();
    engine.startUp.Form_Unload();
    EXPECT_EQ(store.read("Form3"), "False");
    EXPECT_EQ(store.read("form3 left"), std::nullopt) << "it never had a place";
}

TEST_F(SetupToolbarTest, OpeningItAgainPutsTempoAndChannelsToRest) {
    start();
    studio.Form3.TempoLabel.set("180");
    studio.Form3.TrackHide[3].userPut(true);
    studio.tracks.ChannelSettings[0].Reverb = 50;
    engine.setup.Form_Unload();
    engine.setup.Form_Load();
    EXPECT_EQ(studio.score.Tempo, 100);
    EXPECT_EQ(studio.tracks.ChannelSettings[0].Reverb, 0);
    EXPECT_EQ(sent().size(), 65U);
    EXPECT_TRUE(studio.isHidden(3)) << "what the user has hidden stays so";
    EXPECT_FALSE(studio.tracks.TrackShown[3]);
}

TEST_F(SetupToolbarTest, TheDeviceListStoresAndOpensTheEntry) {
    port.setDevices(3);
    start();
    studio.Form3.Combo2.userPut(3LL);
    EXPECT_EQ(store.read("Devices"), "2");
    EXPECT_EQ(sent(), (Lines{"reset", "close", "open 2 0", "C9 00 00"}));
}

}  // namespace
}  // namespace melvane::test
