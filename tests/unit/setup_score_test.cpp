#include "program_fixture.h"

namespace melvane::test {
namespace {

class SetupScoreTest : public ProgramTest {
 protected:
    SetupScoreTest() { start(); }
    SetupControls& setup() { return studio.Form3; }
    void type(TextControl& box, const std::string& text) { box.userPut(text); }
    void add(const std::string& count) {
        type(setup().Text2, count);
        engine.setup.size.Command1_Click();
    }
    void subtract(const std::string& count) {
        type(setup().Text2, count);
        engine.setup.size.Command4_Click();
    }
};

TEST_F(SetupScoreTest, ATypedTempoIsTakenAsItStands) {
    type(setup().TempoLabel, "137");
    EXPECT_EQ(studio.score.Tempo, 137);
    type(setup().TempoLabel, "-3.5 and more");
    EXPECT_EQ(studio.score.Tempo, -4);
    type(setup().TempoLabel, "fast");
    EXPECT_EQ(studio.score.Tempo, 0);
    type(setup().TempoLabel, "32767");
    type(setup().TempoLabel, std::string(400, '9'));
    EXPECT_EQ(studio.score.Tempo, 32767) << "a number that does not fit is not taken";
}

TEST_F(SetupScoreTest, OtherBeatsKeepTheLengthOfABar) {
    surfaces.calls.clear();
    type(setup().TxBeats, "8");
    EXPECT_EQ(studio.score.Tempo, 200);
    EXPECT_EQ(setup().TempoLabel.text(), "200");
    EXPECT_EQ(studio.score.BeatsPerMeasure, 8);
    EXPECT_EQ(surfaces.count("DrawNoteArray"), 1U);
    EXPECT_EQ(surfaces.count("DrawBeatArray"), 1U);
    type(setup().TxBeats, "3");
    EXPECT_EQ(studio.score.Tempo, 75);
}

TEST_F(SetupScoreTest, ATempoOfZeroStaysWhateverTheBeats) {
    type(setup().TempoLabel, "0");
    type(setup().TxBeats, "8");
    EXPECT_EQ(studio.score.Tempo, 0);
    EXPECT_EQ(studio.score.BeatsPerMeasure, 8);
}

TEST_F(SetupScoreTest, BeatsThatAreNoNumberAreZeroAndDivideNothing) {
    type(setup().TxBeats, "four");
    EXPECT_EQ(studio.score.BeatsPerMeasure, 0);
    EXPECT_EQ(studio.score.Tempo, 0);
    type(setup().TempoLabel, "100");
    type(setup().TxBeats, "6");
    EXPECT_EQ(studio.score.Tempo, 100);
    EXPECT_EQ(studio.score.BeatsPerMeasure, 6);
    type(setup().TxBeats, "30000");
    EXPECT_EQ(studio.score.Tempo, 100) << "500,000 does not fit";
    EXPECT_EQ(studio.score.BeatsPerMeasure, 30000);
    type(setup().TxBeats, std::string(300, '8'));
    EXPECT_EQ(studio.score.BeatsPerMeasure, 30000);
}

TEST_F(SetupScoreTest, AddedColumnsHoldZero) {
    write(0, 1000, 40);
    studio.clipboard.ClipPolyArray.set(3, 7, 2);
    add("500");
    EXPECT_EQ(studio.score.NumNotes, 1500);
    EXPECT_EQ(setup().Text1.text(), "1500");
    EXPECT_EQ(store.read("NumNotes"), "1500");
    const auto& score = studio.score;
    const auto& clip = studio.clipboard;
    for (const Grid* grid : {&score.NoteArray, &score.InstArray, &score.VolumeArray, &score.ModArray,
                             &score.PanArray, &score.ReverbArray, &score.ChorusArray, &score.PolyArray,
                             &clip.ClipNoteArray, &clip.ClipInstArray, &clip.ClipPolyArray}) {
        EXPECT_EQ(grid->lastColumn(), 1500);
        EXPECT_EQ(grid->get(5, 1500, -9), 0);
    }
    EXPECT_EQ(clip.ClipVolumeArray.lastColumn(), 1000) << "until the next copy";
    EXPECT_EQ(score.noteCell(0, 1000), 40);
    EXPECT_EQ(clip.ClipPolyArray.get(3, 7, 0), 2);
    EXPECT_EQ(studio.page.SharpRowFlags.size(), 1501U);
    EXPECT_EQ(studio.form1.HScroll1.maximum(),
              1499 - (studio.page.PageColumns - studio.page.HalfPageColumns));
}

TEST_F(SetupScoreTest, ColumnsTakenAwayLoseTheirNotes) {
    write(0, 900, 40);
    write(0, 100, 41);
    subtract("200");
    EXPECT_EQ(studio.score.NumNotes, 800);
    EXPECT_EQ(studio.score.NoteArray.lastColumn(), 800);
    add("200");
    EXPECT_EQ(studio.score.noteCell(0, 900), 0);
    EXPECT_EQ(studio.score.noteCell(0, 100), 41);
}

TEST_F(SetupScoreTest, ATotalBelowZeroIsStoredAndLeavesTheGrids) {
    write(0, 900, 40);
    subtract("1500");
    EXPECT_EQ(studio.score.NumNotes, -500);
    EXPECT_EQ(setup().Text1.text(), "-500");
    EXPECT_EQ(store.read("NumNotes"), "-500");
    EXPECT_EQ(studio.score.NoteArray.lastColumn(), 1000);
    add("1500");
    EXPECT_EQ(studio.score.noteCell(0, 900), 40);
}

TEST_F(SetupScoreTest, MoreColumnsThanAGridCanHaveChangeNothing) {
    for (const auto& count : {std::string("99000"), std::string("2000000"), std::string(400, '9')}) {
        add(count);
        EXPECT_EQ(studio.score.NumNotes, 1000) << count;
        EXPECT_EQ(setup().Text1.text(), "1000");
        EXPECT_EQ(studio.score.NoteArray.lastColumn(), 1000);
        EXPECT_EQ(studio.form1.StatusText.text(), "A score cannot have so many notes.");
    }
    EXPECT_EQ(store.read("NumNotes"), std::nullopt);
    add("98999");
    EXPECT_EQ(studio.score.NoteArray.lastColumn(), 99'999);
}

TEST_F(SetupScoreTest, OddCountsOfColumns) {
    add("");
    EXPECT_EQ(studio.score.NumNotes, 1000);
    add("ten");
    EXPECT_EQ(studio.score.NumNotes, 1000);
    add("-100");
    EXPECT_EQ(studio.score.NumNotes, 900);
    subtract("-100");
    EXPECT_EQ(studio.score.NumNotes, 1000);
    add("7.5 bars");
    EXPECT_EQ(studio.score.NumNotes, 1008) << "halves round to even";
    subtract("1008");
    EXPECT_EQ(studio.score.NoteArray.lastColumn(), 0);
    subtract(std::string(400, '9'));
    EXPECT_EQ(studio.score.NumNotes, 0) << "a number that does not fit is not taken";
}

TEST_F(SetupScoreTest, LineSpacingIsStoredAndDrawnAtOnce) {
    surfaces.calls.clear();
    type(setup().Text3, "12");
    EXPECT_EQ(studio.page.LineHeight, 12);
    EXPECT_EQ(store.read("Line_Height"), "12");
    EXPECT_EQ(setup().VScroll3.value(), 12);
    EXPECT_GE(surfaces.count("DrawSideBar"), 1U);
    EXPECT_GE(surfaces.count("DrawNoteArray"), 1U);
    setup().VScroll3.userPut(5LL);
    EXPECT_EQ(setup().Text3.text(), "5");
    EXPECT_EQ(studio.page.LineHeight, 5);
    EXPECT_EQ(store.read("Line_Height"), "5");
}

TEST_F(SetupScoreTest, TheBarLeavesTheTextThatHasMovedIt) {
    type(setup().Text3, "9 pixels");
    EXPECT_EQ(setup().VScroll3.value(), 9);
    EXPECT_EQ(setup().Text3.text(), "9 pixels");
    type(setup().Text3, "-40");
    EXPECT_EQ(studio.page.LineHeight, -40);
    EXPECT_EQ(setup().VScroll3.value(), 9) << "beyond its range";
}

TEST_F(SetupScoreTest, TheGuidesOfSharpRowsFollowTheirBox) {
    setup().Check1.userPut(false);
    EXPECT_EQ(studio.page.ShowSharpGuides, 0);
    EXPECT_EQ(store.read("Show_Sharp_guides"), "0");
    EXPECT_EQ(surfaces.count("DrawNoteArray"), 1U);
    setup().Check1.userPut(true);
    EXPECT_EQ(store.read("Show_Sharp_guides"), "1");
}

TEST_F(SetupScoreTest, AChannelsChordStandsAtEveryColumnOneTrackDown) {
    write(2, 10, 40);
    setup().Combo3.set(3);
    setup().Ch[2].userPut(true);
    for (const int column : {0, 10, 999, 1000}) EXPECT_EQ(studio.score.PolyArray.get(3, column, -1), 3);
    EXPECT_EQ(studio.score.PolyArray.get(2, 10, -1), 0);
    EXPECT_EQ(surfaces.count("DrawPolyStrip"), 0U);
    EXPECT_EQ(surfaces.count("DrawNoteArray"), 1U);
    setup().Ch[2].userPut(false);
    EXPECT_EQ(studio.score.PolyArray.get(3, 1000, -1), 0);
}

TEST_F(SetupScoreTest, TheChordOfTheCurrentChannelIsMarkedOnTheStrip) {
    setup().Ch[0].userPut(true);
    EXPECT_EQ(surfaces.count("DrawPolyStrip"), 1U);
    setup().Ch[0].userPut(false);
    EXPECT_EQ(surfaces.count("DrawPolyStrip"), 2U);
}

TEST_F(SetupScoreTest, TheEntryIsStoredWithoutASingleNoteSoThatMajorIsNone) {
    setup().Combo3.userPut(0LL);
    setup().Ch[1].userPut(true);
    EXPECT_EQ(studio.score.PolyArray.get(2, 4, -1), 0);
    setup().Combo3.userPut(1LL);
    EXPECT_EQ(studio.score.PolyArray.get(2, 4, -1), 1) << "\"Minor\" plays the main list's \"Major\"";
}

TEST_F(SetupScoreTest, EachEntryHasItsSteps) {
    const std::array<std::array<int, 3>, 7> steps{
        {{4, 7, 12}, {3, 7, 12}, {4, 7, 11}, {3, 7, 10}, {3, 6, 10}, {-12, 0, 0}, {-12, 12, 0}}};
    for (std::size_t entry = 0; entry < steps.size(); ++entry) {
        setup().Combo3.userPut(static_cast<long long>(entry));
        const auto& sounds = studio.sounds;
        EXPECT_EQ((std::array<int, 3>{sounds.ChordStep1, sounds.ChordStep2, sounds.ChordStep3}),
                  steps[entry]);
    }
}

TEST_F(SetupScoreTest, AnotherChordGoesToEveryTickedChannel) {
    setup().Ch[0].userPut(true);
    setup().Ch[7].userPut(true);
    setup().Combo3.userPut(6LL);
    EXPECT_EQ(studio.score.PolyArray.get(1, 50, -1), 6);
    EXPECT_EQ(studio.score.PolyArray.get(8, 50, -1), 6);
    EXPECT_EQ(studio.score.PolyArray.get(2, 50, -1), 0);
}

}  // namespace
}  // namespace melvane::test
