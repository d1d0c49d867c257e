#include "core/instrument_names.h"
#include "midi/messages.h"
#include "program_fixture.h"

namespace melvane::test {
namespace {

using Lines = std::vector<std::string>;

class MidiOutputTest : public ProgramTest {
 protected:
    void SetUp() override {
        start();
        port.setDevices(10);
    }
    Lines reopenWith(int device) {
        store.write("devices", std::to_string(device));
        engine.output.Device_Click(0);
        return sent();
    }
};

TEST_F(MidiOutputTest, AnOpenedDeviceGetsTheDrumKit) {
    EXPECT_EQ(reopenWith(3), (Lines{"reset", "close", "open 3 0", "C9 00 00"}));
}

TEST_F(MidiOutputTest, ADeviceThatOpensAtTheSecondTryIsKept) {
    port.refuse(3, 1);
    EXPECT_EQ(reopenWith(3), (Lines{"reset", "close", "open 3 4", "reset", "close", "open 4 0", "reset",
                                    "close", "open 3 0"}));
}

TEST_F(MidiOutputTest, ADeviceThatNeverOpensEndsOnTheMapper) {
    port.refuse(3, -1);
    EXPECT_EQ(reopenWith(3), (Lines{"reset", "close", "open 3 4", "reset", "close", "open 4 0", "reset",
                                    "close", "open 3 4", "reset", "close", "open -1 0"}));
    EXPECT_EQ(store.read("Devices"), "-1");
    EXPECT_EQ(studio.Form3.Combo2.index(), 0);
}

TEST_F(MidiOutputTest, TheNinthDeviceHasNoFallBack) {
    port.refuse(9, -1);
    EXPECT_EQ(reopenWith(9), (Lines{"reset", "close", "open 9 4"}));
    engine.output.SendPan(1, 0);
    EXPECT_TRUE(sent().empty());
}

TEST_F(MidiOutputTest, ComingToTheFrontTriesTheNextDeviceOnce) {
    store.write("Devices", "-1");
    port.refuse(-1, -1);
    engine.output.openAtActivation();
    EXPECT_EQ(sent(), (Lines{"close", "open -1 4", "close", "open 0 0"}));
}

TEST_F(MidiOutputTest, WithoutASettingTheTwoOpeningsHaveTheirOwnDefaults) {
    MemorySettingsStore empty;
    Settings settings(empty);
    MidiOutput output(studio, settings, port, dialogs);
    output.Device_Click(0);
    output.openAtActivation();
    EXPECT_EQ(sent(), (Lines{"reset", "close", "open 0 0", "C9 00 00", "close", "open -1 0", "C9 00 00"}));
}

TEST_F(MidiOutputTest, TheDeviceListStoresWhatItShows) {
    ListControl list;
    store.write("Devices", "2");
    engine.output.fillDeviceList(list);
    EXPECT_EQ(list.items().size(), 11U);
    EXPECT_EQ(list.items()[0], "MIDI Mapper");
    EXPECT_EQ(list.index(), 3);
    store.write("Devices", "40");
    engine.output.fillDeviceList(list);
    EXPECT_EQ(list.index(), 0);
    EXPECT_EQ(store.read("Devices"), "-1");
}

TEST_F(MidiOutputTest, WithoutADeviceTheUserIsTold) {
    port.setDevices(0);
    EXPECT_FALSE(engine.output.CheckMidiDevices());
    EXPECT_EQ(dialogs.takeBoxes(), (Lines{"box critical \"Melvane - Error\" \"Unable to detect any midi "
                                          "output devices.\n\nTerminating...\""}));
}

TEST_F(MidiOutputTest, ValuesOutOfRangeSpillOver) {
    EXPECT_EQ(message::noteOn(60, 127, 0), 0x7F3C90U);
    EXPECT_EQ(message::pan(-1, 0), 0xFFFF0AB0U);
    EXPECT_EQ(message::programChange(128, 0), 0x80C0U);
    engine.output.SendPan(-1, 0);
    EXPECT_EQ(sent(), (Lines{"0xFFFF0AB0"}));
}

TEST_F(MidiOutputTest, ThePanicReopensTheDeviceAndTheInstrument) {
    studio.player.Playing = true;
    engine.panic.Command32_Click();
    EXPECT_FALSE(studio.player.Playing);
    EXPECT_EQ(sent(), (Lines{"reset", "close", "open 0 0", "C9 00 00", "B0 00 00", "B0 20 00", "C0 18 00"}));
}

TEST_F(MidiOutputTest, AMelodyInstrumentGoesToTheSelectedNotesOnly) {
    write(0, 2, 60);
    studio.selection.SelStart = 1;
    studio.selection.SelEnd = 3;
    engine.instruments.Combo1_Click();
    EXPECT_EQ(studio.score.InstArray.get(0, 2, 0), 24);
    EXPECT_EQ(studio.score.InstArray.get(0, 1, 9), 0);
    EXPECT_EQ(studio.tracks.TrackInstrument[0], 24);
}

TEST(InstrumentNames, NumbersHaveTheirNames) {
    EXPECT_EQ(instrumentName(0), "Acoustic Grand Piano");
    EXPECT_EQ(instrumentName(127), "Gunshot");
    EXPECT_EQ(instrumentName(128), "Acoustic Bass Drum");
    EXPECT_EQ(instrumentName(174), "Open Triangle");
    EXPECT_EQ(instrumentName(175), "");
    EXPECT_EQ(instrumentName(-1), "");
    EXPECT_EQ(percussionKey(174), 81);
    EXPECT_EQ(ChordName(0), " Note");
    EXPECT_EQ(ChordName(10), " Octave");
    EXPECT_EQ(ChordName(11), "");
}

}  // namespace
}  // namespace melvane::test
