#include "note_entry_fixture.h"

namespace melvane::test {
namespace {

using Cells = std::vector<int>;

constexpr int page = 100;  // its first column

/// The right button's walks on a page that is not the first: some indices count the page's columns there.
class LaterPagesTest : public NoteEntryTest {
 protected:
    void SetUp() override {
        NoteEntryTest::SetUp();
        studio.page.FirstColumn = page;
        studio.page.LastColumn = static_cast<Int16>(page + studio.page.PageColumns);
        write(0, page + 3, 60, 4, 24);
    }
    int chord(int column) const { return studio.score.chordOf(0, column); }
    int modulation(int column) const { return studio.score.ModArray.get(0, column, -1); }
};

TEST_F(LaterPagesTest, ErasingFromTheTailTakesTheFirstPagesChords) {
    for (const int column : {3, 4, 5, 6, 103, 104, 105}) studio.score.PolyArray.set(1, column, 2);
    for (int column = 103; column <= 108; ++column) studio.score.ModArray.set(0, column, 9);
    press(5, 3, right);
    EXPECT_EQ(cells(0, 102, 107), (Cells{-1, -1, -1, -1, -1, -1}));
    EXPECT_EQ((Cells{chord(3), chord(4), chord(5), chord(6)}), (Cells{2, 0, 0, 2}))
        << "the columns passed are cleared by the page's count";
    EXPECT_EQ((Cells{chord(103), chord(104), chord(105)}), (Cells{0, 0, 0}))
        << "and the note's own by the score's";
    EXPECT_EQ((Cells{modulation(103), modulation(104), modulation(105), modulation(106), modulation(107)}),
              (Cells{9, 0, 0, 0, 9}));
    EXPECT_EQ(studio.drag.DragColumn, 3);
}

TEST_F(LaterPagesTest, AChordSetOnTheTailStaysThereToo) {
    studio.selection.RightClickMode = 2;
    studio.form1.Combo3.set(3);
    studio.score.PolyArray.set(1, 5, 2);
    press(5, 3, right);
    EXPECT_EQ(chord(103), 3);
    EXPECT_EQ(chord(105), 3) << "what clears it on the first page clears column 5 here";
    EXPECT_EQ(chord(5), 0);
    EXPECT_EQ(cells(0, 103, 106), (Cells{60, 1060, 1060, 1060}));
}

TEST_F(LaterPagesTest, AChordDecidesByTheScoresColumn) {
    studio.score.PolyArray.set(1, 20, 2);
    studio.score.ModArray.set(0, 121, 9);
    press(20, 3, right);
    EXPECT_EQ(modulation(121), 9) << "a blank without a chord, whatever the first page has";
    studio.score.PolyArray.set(1, 120, 2);
    press(20, 3, right);
    EXPECT_EQ(chord(120), 0);
    EXPECT_EQ(modulation(121), 0);
    EXPECT_EQ(chord(20), 2);
}

TEST_F(LaterPagesTest, EffectsReachTheStartAndMissTheTail) {
    write(0, 204, 60, 1, 5);
    write(0, 205, 1060, 1, 5);  // where the walk looks, by twice the first column
    studio.score.NoteArray.set(0, 204, 1060);
    studio.score.NoteArray.set(0, 203, 60);
    studio.form1.Check1.set(true);
    studio.instruments.NoteInstrument = 40;
    studio.form1.Combo3.set(2);
    studio.form1.vol3.set("90");
    press(5, 3, right);
    const auto instruments = [this](int from) {
        Cells found;
        for (int column = from; column < from + 4; ++column)
            found.push_back(studio.score.InstArray.get(0, column, -1));
        return found;
    };
    EXPECT_EQ(instruments(103), (Cells{40, 24, 24, 24}));
    EXPECT_EQ(studio.score.VolumeArray.get(0, 104, 0), 90);
    EXPECT_EQ((Cells{chord(103), chord(104), chord(105)}), (Cells{2, 2, 2}));
    EXPECT_EQ(instruments(204), (Cells{40, 40, 0, 0})) << "the walk is 100 columns too far";
}

TEST_F(LaterPagesTest, ADragOfTheRightButtonErasesEachNoteOnce) {
    write(0, page + 9, 55, 2, 24);
    press(6, 3, right);
    move(7, 3, right);
    move(10, 3, right);
    release(10, 3, right);
    EXPECT_EQ(cells(0, 102, 111), Cells(10, -1));
}

TEST_F(LaterPagesTest, TheStaticTestSoundsTheFirstPage) {
    studio.form1.Check4.set(true);
    write(0, 5, 70);
    press(5, 3);
    const auto heard = sent();
    EXPECT_EQ(std::ranges::count(heard, "90 39 7F"), 1) << "row 70 of column 5, not row 60 of column 105";
}

TEST_F(LaterPagesTest, ABeatIsErasedByTheScoresColumns) {
    engine.channels.Label8_Click(8);
    write(8, 103, 50, 3, 130);
    write(8, 3, 50, 3, 130);
    engine.tableau.Beatbox_MouseDown(right, 0, 5 * 12 + 6, 14);
    EXPECT_EQ(cells(8, 103, 105), (Cells{-1, -1, -1}));
    EXPECT_EQ(cells(8, 3, 5), (Cells{50, 1050, 1050}));
}

}  // namespace
}  // namespace melvane::test
