#include "program_fixture.h"

namespace melvane::test {
namespace {

constexpr int left = 1, right = 2;

class NoteTestTest : public ProgramTest {
 protected:
    void SetUp() override {
        start();
        studio.Form5.Pic2a.setWidth(20 * 12 + 5);
    }
    void load() { engine.noteTest.Form_Load(); }
    void inspect(int column) {
        engine.selector.Pic2a_MouseDown(left, 0, (column - studio.page.FirstColumn) * 12.0, 5);
    }
    std::string inspected() const { return studio.form1.LblNote.text(); }
};

TEST_F(NoteTestTest, ANoteIsShownOnlyWhileThePanelIsLoaded) {
    write(0, 4, 60, 1, 73);
    inspect(4);
    EXPECT_EQ(studio.Form5.LblNote.text(), "");
    load();
    EXPECT_EQ(studio.Form5.LblNote.text(), "5");
    EXPECT_EQ(studio.Form5.Text5.text(), "Flute");
    engine.noteTest.Form_Unload();
    inspect(7);
    EXPECT_EQ(studio.Form5.LblNote.text(), "5");
}

TEST_F(NoteTestTest, BeforeAnInspectionNoNoteIsShown) {
    load();
    EXPECT_EQ(studio.Form5.LblNote.text(), "");
    EXPECT_EQ(studio.Form5.LblNoteName.text(), "");
    EXPECT_EQ(studio.Form5.LblTrk.text(), "1");
}

TEST_F(NoteTestTest, AChannelsLabelBringsItsColour) {
    load();
    for (const int track : {3, 10, 0}) {
        engine.channels.Label8_Click(track);
        EXPECT_EQ(studio.Form5.LblTrk.backColour(),
                  studio.tracks.TrackColor[static_cast<std::size_t>(track)]);
        EXPECT_EQ(studio.Form5.LblTrk.text(), std::to_string(shownTrackNumber(track)));
    }
}

TEST_F(NoteTestTest, TheStripsMoveOnlyForAColumnThatTheyDoNotShow) {
    load();
    studio.page.FirstColumn = 100;
    inspect(119);
    EXPECT_EQ(studio.Form5.firstColumn, 109);
    for (const int column : {109, 128}) {
        inspect(column);
        EXPECT_EQ(studio.Form5.firstColumn, 109) << column;
    }
    inspect(129);
    EXPECT_EQ(studio.Form5.firstColumn, 119);
    inspect(3);
    EXPECT_EQ(studio.Form5.firstColumn, 0);
}

TEST_F(NoteTestTest, TheStripsPassOnTheColumnThatTheyShow) {
    load();
    inspect(30);  // columns 20 to 39
    auto& panel = engine.noteTest;
    for (const int page : {0, 25, 38, 300}) {
        studio.page.FirstColumn = static_cast<Int16>(page);
        for (const double X : {0.0, 11.0, 12.0, 130.0, 239.0}) {
            panel.Pic2a_MouseDown(left, 0, X, 5);
            EXPECT_EQ(inspected(), std::to_string(21 + static_cast<int>(X / 12))) << page << ' ' << X;
        }
    }
    EXPECT_EQ(studio.Form5.firstColumn, 20);
}

TEST_F(NoteTestTest, ASweepOutOfTheStripStopsAtItsEdge) {
    load();
    inspect(30);
    for (int move = 0; move < 3; ++move) engine.noteTest.Pic2a_MouseMove(left, 0, -900, 5);
    EXPECT_EQ(inspected(), "21");
    studio.Form5.Pic2a.setWidth(0);
    engine.noteTest.Pic2a_MouseMove(left, 0, 900, 5);
    EXPECT_EQ(inspected(), "21") << "a strip without an extent";
}

TEST_F(NoteTestTest, TheVolumeStaysThePanelsOwn) {
    load();
    auto& slider = studio.Form5.lblVolume;
    slider.trackWidth = 137;
    studio.tracks.TrackVolume[0] = 9;
    engine.noteTest.moveVolume(left, 105);
    EXPECT_EQ(studio.Form5.vol3.text(), "127") << "the mouse is not down on it";
    engine.noteTest.pressVolume();
    engine.noteTest.moveVolume(left, 105);
    EXPECT_EQ(studio.Form5.vol3.text(), "100");
    EXPECT_EQ(studio.tracks.TrackVolume[0], 9);
    engine.noteTest.moveVolume(right, 20);
    EXPECT_EQ(studio.Form5.vol3.text(), "127");
    EXPECT_EQ(studio.tracks.TrackVolume[0], 127);
    EXPECT_EQ(studio.form1.vol3.text(), "127");
    engine.noteTest.Form_Unload();
    load();
    engine.noteTest.moveVolume(left, 5);
    EXPECT_EQ(studio.Form5.vol3.text(), "127") << "a closed panel has let go of it";
}

TEST_F(NoteTestTest, OpeningAsksForTheWindow) {
    engine.noteTest.open();
    EXPECT_EQ(toolWindows.calls.back(), "load Form5");
}

TEST_F(NoteTestTest, ANoteDrawnIsMarkedWhileThePanelIsShown) {
    const auto draw = [this] {
        surfaces.calls.clear();
        engine.entry.MusicBox_MouseDown(left, 0, 30, 26);
        engine.entry.MusicBox_MouseUp(left, 0, 78, 90);
    };
    draw();
    EXPECT_EQ(surfaces.count("markTestedNote 18 16 88 38"), 0U);
    load();
    studio.Form5.window.setVisible(true);
    draw();
    EXPECT_EQ(surfaces.count("markTestedNote 18 16 88 38"), 1U);
    EXPECT_GT(std::ranges::find(surfaces.calls, "markTestedNote 18 16 88 38"),
              std::ranges::find(surfaces.calls, "DrawNoteArray"))
        << "the repaint would wipe it";
    studio.form1.Check4.set(true);
    draw();
    EXPECT_EQ(surfaces.count("markTestedNote 18 16 88 38"), 0U);
}

}  // namespace
}  // namespace melvane::test
