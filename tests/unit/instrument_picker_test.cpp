#include "program_fixture.h"

namespace melvane::test {
namespace {

using Lines = std::vector<std::string>;

class InstrumentPickerTest : public ProgramTest {
 protected:
    void SetUp() override { start(); }
    /// Shows the picker and runs `act` 10 milliseconds later.
    void pick(std::function<void()> act) {
        time.at(10, std::move(act));
        engine.picker.showModal();
    }
};

TEST_F(InstrumentPickerTest, ItOpensOnTheInstrumentsInHand) {
    pick([this] {
        EXPECT_TRUE(studio.FrmInst.window.visible());
        EXPECT_EQ(studio.FrmInst.LstInstruments.items().size(), 128U);
        EXPECT_EQ(studio.FrmInst.LstInstruments2.items().size(), 47U);
        EXPECT_EQ(studio.FrmInst.LstInstruments.index(), 24);
        EXPECT_EQ(studio.FrmInst.LstInstruments2.index(), 0);
        engine.picker.CmdOk_Click();
    });
    EXPECT_EQ(studio.instruments.MelodyInstrument, 24);
    EXPECT_EQ(studio.instruments.MelodyInstrumentName, "Nylon Guitar");
    EXPECT_EQ(store.read("Intrumentval"), "24");
}

TEST_F(InstrumentPickerTest, OkTakesTheMelodyListWhateverThePercussionListShows) {
    pick([this] {
        studio.FrmInst.LstInstruments.set(40);
        studio.FrmInst.LstInstruments2.set(5);
        engine.picker.CmdOk_Click();
    });
    EXPECT_EQ(studio.instruments.MelodyInstrument, 40);
    EXPECT_EQ(studio.instruments.PercussionInstrument, 128);
    EXPECT_EQ(studio.Form3.LblInst1.text(), "Violin");
}

TEST_F(InstrumentPickerTest, OnlyADoubleClickTakesAPercussionSound) {
    pick([this] {
        studio.FrmInst.LstInstruments2.set(5);
        engine.picker.LstInstruments2_DblClick();
    });
    EXPECT_EQ(studio.instruments.PercussionInstrument, 133);
    EXPECT_EQ(studio.form1.Text5.text(), "Electric Snare");
    EXPECT_EQ(store.read("Intrumentval2"), "133");
}

TEST_F(InstrumentPickerTest, WithoutASelectionItStaysOpen) {
    pick([this] {
        studio.FrmInst.LstInstruments.set(-1);
        engine.picker.CmdOk_Click();
        EXPECT_TRUE(studio.FrmInst.window.visible());
        engine.picker.CmdCancel_Click();
    });
    EXPECT_EQ(dialogs.takeBoxes(), (Lines{"box plain \"Melvane\" \"Make a selection\""}));
}

TEST_F(InstrumentPickerTest, CancelEmptiesTheNameSoThatTheStoredInstrumentComesBack) {
    studio.instruments.MelodyInstrumentName = "Violin";
    studio.instruments.MelodyInstrument = 40;
    studio.instruments.NoteInstrument = 7;
    pick([this] { engine.picker.CmdCancel_Click(); });
    EXPECT_EQ(studio.instruments.NoteInstrument, 7);
    EXPECT_FALSE(studio.FrmInst.loaded);
    engine.instruments.Combo1_Click();
    EXPECT_EQ(studio.instruments.MelodyInstrument, 24);
}

TEST_F(InstrumentPickerTest, TheNameSelectsWhereTheNumberIsNoMelodyInstrument) {
    studio.instruments.MelodyInstrument = 200;
    studio.instruments.MelodyInstrumentName = "Flute";
    engine.picker.Form_Load();
    EXPECT_EQ(studio.FrmInst.LstInstruments.index(), 73);
}

TEST_F(InstrumentPickerTest, WithoutASelectedSoundNothingIsTaken) {
    engine.picker.Form_Load();
    studio.FrmInst.LstInstruments2.set(-1);
    engine.picker.LstInstruments2_DblClick();
    EXPECT_EQ(studio.instruments.PercussionInstrument, 128);
}

TEST_F(InstrumentPickerTest, OneNoteTakesTheInstrumentPickedForIt) {
    write(0, 4, 60, 2, 24);
    write(0, 6, 60);
    studio.form1.LblNote.set("5");
    studio.selection.SelStart = 6;
    studio.selection.SelEnd = 8;
    time.at(10, [this] {
        studio.FrmInst.LstInstruments.set(73);
        engine.picker.CmdOk_Click();
    });
    engine.noteInstrument.Text5_DblClick();
    EXPECT_EQ(studio.score.InstArray.get(0, 4, 0), 73);
    EXPECT_EQ(studio.score.InstArray.get(0, 5, 0), 24);
    EXPECT_EQ(studio.score.InstArray.get(0, 6, 0), 73);
    EXPECT_EQ(studio.score.InstArray.get(0, 7, 0), 0);
    EXPECT_EQ(studio.form1.Text5.text(), "Flute");
    EXPECT_EQ(studio.instruments.MelodyInstrument, 24);
    EXPECT_FALSE(studio.instruments.PickingNoteInstrument);
    EXPECT_EQ(sent(), (Lines{"C0 49 00", "reset"}));
}

TEST_F(InstrumentPickerTest, APercussionSoundIsRefusedForANote) {
    studio.instruments.NoteInstrument = 130;
    time.at(10, [this] { engine.picker.CmdCancel_Click(); });
    engine.noteInstrument.Text5_DblClick();
    EXPECT_EQ(dialogs.takeBoxes(), (Lines{"box plain \"Melvane\" \"This is a percussion instrument\""}));
    EXPECT_TRUE(sent().empty());
}

TEST_F(InstrumentPickerTest, WithoutAMelodyNameThePercussionSoundIsTaken) {
    studio.tracks.CurrentTrack = 8;
    studio.form1.LblNote.set("3");
    time.at(10, [this] {
        studio.FrmInst.LstInstruments2.set(2);
        engine.picker.LstInstruments2_DblClick();
    });
    engine.noteInstrument.Text5_DblClick();
    EXPECT_EQ(studio.score.InstArray.get(8, 2, 0), 130);
    EXPECT_EQ(sent(), (Lines{"C8 82 00", "reset"}));
}

}  // namespace
}  // namespace melvane::test
