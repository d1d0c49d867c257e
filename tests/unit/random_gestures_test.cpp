#include <random>

#include "note_entry_fixture.h"

namespace melvane::test {
namespace {

/// A continuation follows a start or a continuation of its own row, and only cells, instruments and chords
/// that there are stand in the grids. Plain comparisons: each gesture is followed by thousands of them.
bool isSound(int value, int before, int instrument, int chord, bool hasControl) {
    if (value < -1 || value >= 2000 || (!hasControl && value != -1)) return false;
    if (instrument < 0 || instrument >= 175 || chord < 0 || chord >= 8) return false;
    return !cell::isContinuation(value) || (!cell::isEmpty(before) && cell::row(value) == cell::row(before));
}

void expectSoundGrids(const Score& score) {
    for (int track = 0; track < Grid::tracks; ++track) {
        const auto notes = score.NoteArray.row(track), instruments = score.InstArray.row(track),
                   chords = score.PolyArray.row(track);
        ASSERT_EQ(notes.size(), static_cast<std::size_t>(score.NumNotes) + 1);
        ASSERT_EQ(instruments.size(), notes.size());
        ASSERT_EQ(chords.size(), notes.size());
        const bool hasControl = track <= lastTrackNumber && track != 9;
        int before = -1;
        for (std::size_t column = 0; column < notes.size(); ++column) {
            if (!isSound(notes[column], before, instruments[column], chords[column], hasControl)) {
                FAIL() << track << ' ' << column << ": " << notes[column] << " after " << before;
            }
            before = notes[column];
        }
    }
}

class RandomGesturesTest : public NoteEntryTest {
 protected:
    using Gesture = void (RandomGesturesTest::*)();

    int pick(int from, int to) { return std::uniform_int_distribution(from, to)(random_); }
    double anyX() { return pick(-40, 560); }
    double anyY() { return pick(-40, 700); }
    int oneButton() { return 1 << pick(0, 2); }
    int anyButtons() { return pick(0, 7); }
    static void flip(CheckControl& check) { check.userPut(Value(!check.ticked())); }

    void pressTablet() { engine.entry.MusicBox_MouseDown(oneButton(), 0, anyX(), anyY()); }
    void moveOnTablet() { engine.entry.MusicBox_MouseMove(anyButtons(), 0, anyX(), anyY()); }
    void releaseTablet() { engine.entry.MusicBox_MouseUp(oneButton(), 0, anyX(), anyY()); }
    void drawOnTablet() {
        const double Y = anyY();
        engine.entry.MusicBox_MouseDown(left, 0, anyX(), Y);
        engine.entry.MusicBox_MouseMove(left, 0, anyX(), Y);
        engine.entry.MusicBox_MouseUp(left, 0, anyX(), Y);
    }
    void pressTableau() { engine.tableau.Beatbox_MouseDown(oneButton(), 0, anyX(), anyY()); }
    void moveOnTableau() { engine.tableau.Beatbox_MouseMove(anyButtons(), 0, anyX(), anyY()); }
    void releaseTableau() { engine.tableau.Beatbox_MouseUp(oneButton(), 0, anyX(), anyY()); }
    void drawOnTableau() {
        const double Y = anyY();
        engine.tableau.Beatbox_MouseDown(left, 0, anyX(), Y);
        engine.tableau.Beatbox_MouseMove(left, 0, anyX(), Y);
        engine.tableau.Beatbox_MouseUp(left, 0, anyX(), Y);
    }
    void pressSelector() { engine.selector.Pic2a_MouseDown(oneButton(), 0, anyX(), 5); }
    void releaseSelector() { engine.selector.Pic2a_MouseUp(oneButton(), 0, anyX(), 5); }
    void sweepPolynotes() { engine.chords.Pic3_MouseMove(anyButtons(), 0, anyX(), 5); }
    void releasePolynotes() { engine.chords.Pic3_MouseUp(oneButton(), 0, anyX(), 5); }
    void moveFocus() {
        pick(0, 1) == 0 ? engine.tableau.Beatbox_GotFocus() : engine.tableau.MusicBox_GotFocus();
    }
    void clickLabel() { engine.channels.Label8_Click(pick(-1, 13)); }
    void scrollColumns() { studio.form1.HScroll1.set(pick(0, 120)); }
    void scrollRows() { studio.form1.VScroll1.set(pick(0, 127)); }
    /// Mostly the drawing tool.
    void changeTool() { studio.selection.EditMode = static_cast<Int16>(std::max(0, pick(-2, 2))); }
    void changeRightClick() { studio.selection.RightClickMode = static_cast<Int16>(pick(0, 2)); }
    void flipEffects() { flip(studio.form1.Check1); }
    // These two seldom on, so that most edits take place.
    void switchStaticTest() { studio.form1.Check4.set(pick(0, 3) == 0); }
    void switchPlaying() { studio.player.Playing = pick(0, 3) == 0; }
    void hideChannel() { flip(studio.Form3.TrackHide[static_cast<std::size_t>(pick(0, 12))]); }
    void chooseChord() { studio.form1.Combo3.set(pick(0, 7)); }
    void chooseNoteInstrument() { studio.instruments.NoteInstrument = static_cast<Int16>(pick(0, 174)); }
    void chooseInstruments() {
        studio.instruments.MelodyInstrument = static_cast<Int16>(pick(0, 174));
        studio.instruments.MelodyInstrumentName = "any";
        studio.instruments.PercussionInstrument = static_cast<Int16>(pick(120, 174));
        studio.instruments.PercussionInstrumentName = "any";
        engine.instruments.Command9_Click();
    }
    void changeRowHeight() {
        studio.Form3.Text3.set(std::to_string(pick(0, 20)));
        engine.page.Form_Resize();
    }

    void start(int lastColumn) {
        engine.score.resizeGrids(lastColumn);
        engine.score.ClearAll();
        engine.page.Form_Resize();
    }
    void gesture() {
        static constexpr Gesture gestures[]{
            &RandomGesturesTest::pressTablet,          &RandomGesturesTest::pressTablet,
            &RandomGesturesTest::moveOnTablet,         &RandomGesturesTest::moveOnTablet,
            &RandomGesturesTest::moveOnTablet,         &RandomGesturesTest::releaseTablet,
            &RandomGesturesTest::releaseTablet,        &RandomGesturesTest::drawOnTablet,
            &RandomGesturesTest::pressTableau,         &RandomGesturesTest::pressTableau,
            &RandomGesturesTest::moveOnTableau,        &RandomGesturesTest::moveOnTableau,
            &RandomGesturesTest::releaseTableau,       &RandomGesturesTest::drawOnTableau,
            &RandomGesturesTest::releaseTableau,       &RandomGesturesTest::pressSelector,
            &RandomGesturesTest::releaseSelector,      &RandomGesturesTest::sweepPolynotes,
            &RandomGesturesTest::releasePolynotes,     &RandomGesturesTest::moveFocus,
            &RandomGesturesTest::clickLabel,           &RandomGesturesTest::scrollColumns,
            &RandomGesturesTest::scrollRows,           &RandomGesturesTest::changeTool,
            &RandomGesturesTest::changeRightClick,     &RandomGesturesTest::flipEffects,
            &RandomGesturesTest::switchStaticTest,     &RandomGesturesTest::switchPlaying,
            &RandomGesturesTest::hideChannel,          &RandomGesturesTest::chooseChord,
            &RandomGesturesTest::chooseNoteInstrument, &RandomGesturesTest::chooseInstruments,
            &RandomGesturesTest::changeRowHeight};
        (this->*gestures[pick(0, std::size(gestures) - 1)])();
    }
    void expectInvariants() {
        expectSoundGrids(studio.score);
        const int track = studio.tracks.CurrentTrack;
        ASSERT_TRUE(track >= 0 && track <= lastTrackNumber && track != 9) << track;
        ASSERT_LE(studio.score.UsedTrackCount, lastTrackNumber + 1);
        ASSERT_LE(studio.score.TopPolyTrack, 8);
        ASSERT_TRUE(studio.score.PercussionCount >= 0 && studio.score.PercussionCount <= 4);
    }
    void run(int gestures) {
        for (int number = 0; number < gestures; ++number) {
            gesture();
            if (number % 100 == 0) {
                surfaces.calls.clear();
                port.log().take();
            }
            expectInvariants();
            if (HasFatalFailure()) FAIL() << "after gesture " << number;
        }
    }
    int notes() const {
        int found = 0;
        for (int track = 0; track <= lastTrackNumber; ++track) {
            const auto row = studio.score.NoteArray.row(track);
            found +=
                static_cast<int>(std::ranges::count_if(row, [](int value) { return !cell::isEmpty(value); }));
        }
        return found;
    }

 private:
    std::mt19937 random_{7};
};

TEST_F(RandomGesturesTest, AHundredThousandKeepTheInvariantsOfTheScore) {
    start(120);
    run(100000);
    EXPECT_GT(notes(), 0) << "they have drawn something";
}

TEST_F(RandomGesturesTest, TheyKeepThoseOfAScoreShorterThanThePage) {
    start(20);
    ASSERT_GT(studio.page.PageColumns, studio.score.NumNotes);
    run(40000);
    EXPECT_GT(notes(), 0);
}

}  // namespace
}  // namespace melvane::test
