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

/// What Text5_DblClick makes of the values that the picker leaves.
class NoteInstrumentTest : public InstrumentPickerTest {
 protected:
    void SetUp() override {
        InstrumentPickerTest::SetUp();
        write(0, 4, 60, 1, 24);
        write(8, 4, 50, 1, 128);
        studio.form1.LblNote.set("5");
        studio.form1.Text5.set("before");
        studio.Form5.Text5.set("before");
        in.PercussionInstrument = 140;
        in.PercussionInstrumentName = "Open Hi-Hat";
    }
    /// Cancelled, so that only what was there before counts; it empties the melody name alone.
    void doubleClick() {
        time.at(10, [this] { engine.picker.CmdCancel_Click(); });
        engine.noteInstrument.Text5_DblClick();
    }
    int instrument(int track) const { return studio.score.InstArray.get(track, 4, -1); }

    Instruments& in = studio.instruments;
};

TEST_F(NoteInstrumentTest, AMelodyInstrumentAboveTheListLeavesItToThePercussion) {
    in.NoteInstrument = 40;
    in.NoteInstrumentName = "Violin";
    in.MelodyInstrument = 130;
    doubleClick();
    EXPECT_EQ(instrument(0), 140);
    EXPECT_EQ(studio.form1.Text5.text(), "Open Hi-Hat");
    EXPECT_EQ(studio.Form5.Text5.text(), "Open Hi-Hat");
    EXPECT_EQ(sent(), (Lines{"C0 8C 00", "reset"})) << "the number is sent as it is";
}

TEST_F(NoteInstrumentTest, WithoutANoteNameThePercussionSoundIsTakenAndItsListFollows) {
    studio.tracks.CurrentTrack = 8;
    in.NoteInstrumentName.clear();
    doubleClick();
    EXPECT_EQ(instrument(8), 140);
    EXPECT_EQ(studio.tracks.TrackInstrument[8], 140) << "Combo5_Click";
    EXPECT_EQ(studio.tracks.PercussionKey[8], 140 - 93);
    EXPECT_EQ(sent(), (Lines{"C8 8C 00", "reset"}));
}

TEST_F(NoteInstrumentTest, ThePercussionSoundGoesToTheSelectedNotesToo) {
    studio.tracks.CurrentTrack = 8;
    write(8, 7, 50, 2, 128);
    studio.selection.SelStart = 6;
    studio.selection.SelEnd = 7;
    doubleClick();
    EXPECT_EQ(studio.score.InstArray.get(8, 7, 0), 140);
    EXPECT_EQ(studio.score.InstArray.get(8, 8, 0), 128) << "behind the selection";
    EXPECT_EQ(studio.score.InstArray.get(8, 6, -1), 0) << "a blank";
}

TEST_F(NoteInstrumentTest, WithNeitherNameNothingHappens) {
    in.PercussionInstrumentName.clear();
    doubleClick();
    EXPECT_EQ(instrument(0), 24);
    EXPECT_EQ(studio.form1.Text5.text(), "before");
    EXPECT_EQ(studio.Form5.Text5.text(), "before");
    EXPECT_TRUE(sent().empty());
    EXPECT_TRUE(dialogs.takeBoxes().empty());
}

TEST_F(NoteInstrumentTest, APercussionNumberBelowTheListIsNotTaken) {
    in.PercussionInstrument = 127;
    doubleClick();
    EXPECT_EQ(instrument(0), 24);
    EXPECT_TRUE(sent().empty());
}

TEST_F(NoteInstrumentTest, AColumnThatIsNoneChangesNoCell) {
    for (const char* const column : {"", "0", "-3", "99999999999", "none"}) {
        studio.form1.LblNote.set(column);
        doubleClick();
    }
    EXPECT_EQ(instrument(0), 24);
    for (const int column : {0, 1, 2}) EXPECT_EQ(studio.score.InstArray.get(0, column, -1), 0) << column;
}

using InstrumentChoiceTest = InstrumentPickerTest;

TEST_F(InstrumentChoiceTest, ThePercussionListGivesItsSoundToTheSelectionOfItsTrack) {
    auto& in = studio.instruments;
    studio.tracks.CurrentTrack = 10;
    write(10, 3, 50, 2, 128);
    write(10, 8, 50, 1, 128);
    write(0, 3, 50, 2, 24);
    studio.selection.SelStart = 2;
    studio.selection.SelEnd = 6;
    in.PercussionInstrument = 150;
    in.PercussionInstrumentName = "any";
    engine.instruments.Combo5_Click();
    for (const int column : {3, 4}) EXPECT_EQ(studio.score.InstArray.get(10, column, 0), 150) << column;
    EXPECT_EQ(studio.score.InstArray.get(10, 2, -1), 0) << "a blank";
    EXPECT_EQ(studio.score.InstArray.get(10, 8, 0), 128) << "outside the selection";
    EXPECT_EQ(studio.score.InstArray.get(0, 3, 0), 24) << "another track";
    EXPECT_EQ(studio.tracks.TrackInstrument[10], 150);
    EXPECT_EQ(studio.tracks.LastTrack, 10);
    EXPECT_TRUE(studio.tracks.TrackIsPercussion[10]);
    EXPECT_EQ(studio.tracks.PercussionKey[10], 57);
    EXPECT_TRUE(sent().empty()) << "a percussion sound needs no message";
}

TEST_F(InstrumentChoiceTest, ThePercussionListLeavesAMelodyTrackAlone) {
    write(0, 3, 50, 1, 24);
    studio.selection.SelStart = 0;
    studio.selection.SelEnd = 9;
    store.write("Intrumentval2", "133");
    studio.instruments.PercussionInstrumentName.clear();
    engine.instruments.Combo5_Click();
    EXPECT_EQ(studio.instruments.PercussionInstrument, 133) << "read all the same";
    EXPECT_EQ(studio.score.InstArray.get(0, 3, 0), 24);
    EXPECT_EQ(studio.tracks.TrackInstrument[0], 24);
}

TEST_F(InstrumentChoiceTest, TheInstrumentInHandIsThatOfTheTracksKind) {
    auto& in = studio.instruments;
    in.MelodyInstrument = 40;
    in.PercussionInstrument = 150;
    write(12, 3, 50, 1, 128);
    write(1, 3, 50, 1, 24);
    studio.selection.SelStart = studio.selection.SelEnd = 3;
    studio.tracks.CurrentTrack = 12;
    engine.instruments.Command9_Click();
    EXPECT_EQ(studio.score.InstArray.get(12, 3, 0), 150);
    studio.tracks.CurrentTrack = 1;
    engine.instruments.Command9_Click();
    EXPECT_EQ(studio.score.InstArray.get(1, 3, 0), 40);
    EXPECT_EQ(sent().back(), "C1 28 00");
}

}  // namespace
}  // namespace melvane::test
