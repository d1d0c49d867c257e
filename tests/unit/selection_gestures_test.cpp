#include "program_fixture.h"

namespace melvane::test {
namespace {

using Lines = std::vector<std::string>;

constexpr int left = 1, right = 2, middle = 4;
constexpr int draw = 0, position = 1, select = 2;

class SelectionGesturesTest : public ProgramTest {
 protected:
    void SetUp() override {
        start();
        studio.form1.MusicBox.setWidth(12 * 42);
        selection.EditMode = select;
        surfaces.calls.clear();
    }
    static double x(int column) { return column * 12 + 6; }
    void press(int column, int button = left) { engine.entry.MusicBox_MouseDown(button, 0, x(column), 20); }
    void move(int column, int button = left) { engine.entry.MusicBox_MouseMove(button, 0, x(column), 20); }
    void release(int column, int button = left) { engine.entry.MusicBox_MouseUp(button, 0, x(column), 20); }
    void drag(int from, int to) {
        press(from);
        move(to);
        release(to);
    }
    void pressTableau(int column, int button = left) {
        engine.tableau.Beatbox_MouseDown(button, 0, x(column), 14);
    }
    void moveOnTableau(int column, int button = left) {
        engine.tableau.Beatbox_MouseMove(button, 0, x(column), 14);
    }
    void releaseTableau(int column, int button = left) {
        engine.tableau.Beatbox_MouseUp(button, 0, x(column), 14);
    }
    void dragOnTableau(int from, int to) {
        pressTableau(from);
        moveOnTableau(to);
        releaseTableau(to);
    }
    std::vector<int> state() const {
        return {selection.SelStart, selection.SelEnd, selection.InsertPosition};
    }
    Lines taken() { return std::exchange(surfaces.calls, {}); }

    Selection& selection = studio.selection;
};

using State = std::vector<int>;

TEST_F(SelectionGesturesTest, ADragOnTheTabletSelectsColumnsAndMovesThePosition) {
    press(4);
    EXPECT_EQ(state(), (State{4, -1, 4}));
    EXPECT_EQ(taken(), (Lines{"GetBox", "drawSelectionLine 4"}));
    move(9);
    EXPECT_EQ(taken(), (Lines{"PutBox", "band 4 9"}));
    move(9);
    EXPECT_TRUE(taken().empty()) << "the same column is not painted again";
    release(9);
    EXPECT_EQ(state(), (State{4, 9, 4}));
    EXPECT_EQ(taken(), Lines{"DrawNoteArray"});
    drag(20, 22);
    EXPECT_EQ(state(), (State{20, 22, 20})) << "a new press begins anew";
}

TEST_F(SelectionGesturesTest, ColumnsCountFromTheScoresStart) {
    studio.page.FirstColumn = 100;
    drag(4, 9);
    EXPECT_EQ(state(), (State{104, 109, 104}));
}

TEST_F(SelectionGesturesTest, TheBandStaysBetweenThePressAndThePagesEnd) {
    press(4);
    move(2);
    EXPECT_EQ(taken().back(), "band 4 4");
    release(2);
    EXPECT_EQ(state(), (State{4, 4, 4}));
    press(4);
    taken();
    release(300);
    EXPECT_EQ(selection.SelEnd, studio.page.PageColumns);
}

TEST_F(SelectionGesturesTest, InTheMarginEachMoveScrollsAndTheBandIsShownOnTheNewPage) {
    press(30);
    auto& bar = studio.form1.HScroll1;
    const int before = bar.value();
    taken();
    move(41);
    EXPECT_EQ(bar.value(), before + 1);
    auto calls = taken();
    ASSERT_GE(calls.size(), 2U);
    EXPECT_EQ(calls[calls.size() - 2], "GetBox") << "the page under the band is another one";
    EXPECT_EQ(calls.back(), "band 30 " + std::to_string(studio.page.PageColumns));
    move(41);
    EXPECT_EQ(bar.value(), before + 2);
    EXPECT_EQ(taken().back(), "band 30 " + std::to_string(studio.page.PageColumns));
    release(41);
    EXPECT_EQ(state(), (State{30, 2 + studio.page.PageColumns, 30}));
}

TEST_F(SelectionGesturesTest, AtTheScoresEndTheMarginScrollsNoFurther) {
    auto& bar = studio.form1.HScroll1;
    bar.set(bar.maximum());
    press(30);
    move(41);
    taken();
    move(41);
    EXPECT_EQ(bar.value(), bar.maximum());
    EXPECT_TRUE(taken().empty());
}

TEST_F(SelectionGesturesTest, TheRightButtonOpensTheMenuBeforeItClears) {
    drag(4, 9);
    taken();
    State during;
    engine.entry.openMenu = [&](auto closed) {
        during = state();
        closed();
    };
    press(6, right);
    EXPECT_EQ(during, (State{4, 9, 4})) << "the menu's entries work on the selection";
    EXPECT_EQ(state(), (State{-1, -1, 0}));
    EXPECT_EQ(taken(), Lines{"DrawNoteArray"});
}

TEST_F(SelectionGesturesTest, TheRightButtonOnTheTableauClearsTheSelectionAlone) {
    drag(4, 9);
    int menus = 0;
    engine.entry.openMenu = engine.tableau.openMenu = [&](auto) { ++menus; };
    taken();
    pressTableau(6, right);
    EXPECT_EQ(state(), (State{-1, -1, 4}));
    EXPECT_EQ(menus, 0);
    EXPECT_EQ(taken(), Lines{"DrawBeatArray"});
}

TEST_F(SelectionGesturesTest, ThePressOnTheTableauKeepsAnEarlierStart) {
    selection.InsertPosition = 3;
    dragOnTableau(6, 8);
    EXPECT_EQ(state(), (State{6, 8, 3}));
    taken();
    dragOnTableau(10, 12);
    EXPECT_EQ(state(), (State{6, 12, 3})) << "right of the start";
    EXPECT_EQ(taken(), (Lines{"DrawBeatArray", "GetBox", "PutBox", "DrawBeatArray"}));
    dragOnTableau(6, 7);
    EXPECT_EQ(state(), (State{6, 7, 3})) << "at the start";
    dragOnTableau(2, 5);
    EXPECT_EQ(state(), (State{2, 5, 3})) << "left of the start";
}

TEST_F(SelectionGesturesTest, ThePositionToolKeepsTheSelection) {
    drag(4, 9);
    selection.EditMode = position;
    taken();
    press(15);
    release(15);
    EXPECT_EQ(state(), (State{4, 9, 15}));
    EXPECT_EQ(taken(), Lines{"DrawNoteArray"});
    int menus = 0;
    engine.entry.openMenu = [&](auto closed) {
        ++menus;
        if (closed) closed();
    };
    press(20, right);
    EXPECT_EQ(menus, 1);
    EXPECT_EQ(state(), (State{4, 9, 15}));
    press(22, middle);
    EXPECT_EQ(state(), (State{4, 9, 15}));
}

TEST_F(SelectionGesturesTest, ThePositionCountsFromTheScoresStart) {
    selection.EditMode = position;
    studio.page.FirstColumn = 100;
    press(4);
    release(4);
    EXPECT_EQ(selection.InsertPosition, 104);
    pressTableau(6);
    EXPECT_EQ(selection.InsertPosition, 106);
}

TEST_F(SelectionGesturesTest, ASelectionOnTheTableauIsWholeWithTheStaticTestToo) {
    studio.tracks.CurrentTrack = 8;
    studio.form1.Check4.set(true);
    dragOnTableau(6, 8);
    EXPECT_EQ(selection.SelStart, 6);
    EXPECT_EQ(selection.SelEnd, 8);
    EXPECT_EQ(studio.score.noteCell(8, 6), -1);
}

TEST_F(SelectionGesturesTest, AnyButtonPlacesThePositionOnTheTableau) {
    selection.EditMode = position;
    for (const int button : {left, right, middle}) {
        taken();
        pressTableau(10 + button, button);
        EXPECT_EQ(selection.InsertPosition, 10 + button);
        EXPECT_EQ(taken(), Lines{"DrawBeatArray"});
    }
}

TEST_F(SelectionGesturesTest, DrawingForgetsSelectionAndPosition) {
    for (const int button : {left, right, middle}) {
        selection.EditMode = select;
        drag(4, 9);
        selection.EditMode = draw;
        press(20, button);
        EXPECT_EQ(state(), (State{-1, -1, 0})) << button;
        selection.SelStart = selection.SelEnd = selection.InsertPosition = 5;
        release(20, button);
        EXPECT_EQ(state(), (State{-1, -1, 0})) << button;
    }
}

TEST_F(SelectionGesturesTest, TheStaticTestKeepsThem) {
    drag(4, 9);
    selection.EditMode = draw;
    studio.form1.Check4.set(true);
    press(20);
    release(20);
    EXPECT_EQ(state(), (State{4, 9, 4}));
}

TEST_F(SelectionGesturesTest, NothingIsSelectedDuringAPlayback) {
    studio.player.Playing = true;
    drag(4, 9);
    dragOnTableau(4, 9);
    EXPECT_EQ(state(), (State{-1, -1, 0}));
}

TEST_F(SelectionGesturesTest, ASelectionIsCopiedAndPastedWithTheMouseAlone) {
    write(0, 4, 50, 2);
    drag(4, 5);
    engine.blocks.copyIt();
    press(12);
    release(12);
    engine.blocks.PasteBut_Click();
    EXPECT_EQ(studio.score.noteCell(0, 12), 50);
    EXPECT_EQ(studio.score.noteCell(0, 13), 1050);
    EXPECT_EQ(studio.score.noteCell(0, 14), -1);
}

}  // namespace
}  // namespace melvane::test
