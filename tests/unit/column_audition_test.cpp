#include "program_fixture.h"

namespace melvane::test {
namespace {

class ColumnAuditionTest : public ProgramTest {
 protected:
    void SetUp() override { start(); }
    Selection& selection = studio.selection;
};

TEST_F(ColumnAuditionTest, TheInstrumentInHandIsGivenToTheSelectedNotesOfTheTrack) {
    write(0, 2, 50, 2, 5);
    write(0, 6, 50, 1, 5);
    write(1, 2, 50, 2, 5);
    selection.SelStart = 2;
    selection.SelEnd = 5;
    studio.instruments.MelodyInstrument = 40;
    engine.instruments.Command9_Click();
    EXPECT_EQ(studio.score.InstArray.get(0, 3, 0), 40);
    EXPECT_EQ(studio.score.InstArray.get(0, 4, 9), 0) << "an empty cell keeps its own";
    EXPECT_EQ(studio.score.InstArray.get(0, 6, 0), 5);
    EXPECT_EQ(studio.score.InstArray.get(1, 2, 0), 5);
    EXPECT_EQ(studio.tracks.TrackInstrument[0], 40);
    EXPECT_EQ(sent().back(), "C0 28 00");
    studio.shell.Busy = true;
    engine.instruments.Command9_Click();
    const auto heard = sentWithMoments();
    const auto momentOf = [&](const std::string& message) {
        const auto line = std::ranges::find_if(
            heard, [&](const auto& sent) { return sent.find(message) != std::string::npos; });
        return line == heard.end() ? -1L : std::stol(*line);
    };
    EXPECT_GE(momentOf("90 3C"), 0);
    EXPECT_EQ(momentOf("80 3C"), momentOf("90 3C") + 250);
}

TEST_F(ColumnAuditionTest, StoppingAColumnEndsTheNotesOfTheOpenTracksThatAreShown) {
    studio.tracks.TrackActive[1] = studio.tracks.TrackActive[2] = true;
    for (const int track : {1, 2, 3}) write(track, 4, 50, 3, 9);
    write(0, 4, 0);
    studio.Form3.TrackHide[2].set(true);
    studio.drag.PressColumn = 5;
    engine.audition.StopColumnNotes();
    EXPECT_EQ(studio.tracks.LastTrack, 1);
    const auto heard = sent();
    EXPECT_EQ(std::ranges::count(heard, "C1 09 00"), 1);
    EXPECT_EQ(heard.back().substr(1, 4), "1 4D");
    EXPECT_EQ(std::ranges::count(heard, "reset"), 0) << "the gestures silence the rest";
}

TEST_F(ColumnAuditionTest, ThePressOnALaterPageStopsItsOwnColumn) {
    write(0, 105, 50, 1, 9);
    write(0, 5, 60, 1, 9);
    studio.page.FirstColumn = 100;
    studio.drag.PressColumn = 5;
    sent();
    engine.audition.StopColumnNotes();
    const auto heard = sent();
    ASSERT_FALSE(heard.empty());
    EXPECT_EQ(heard.back().substr(0, 5), "80 4D");
}

TEST_F(ColumnAuditionTest, ANoteOnRowZeroIsNotStopped) {
    write(0, 5, 0, 1, 9);
    studio.drag.PressColumn = 5;
    sent();
    engine.audition.StopColumnNotes();
    EXPECT_EQ(sent(), std::vector<std::string>{});
}

TEST_F(ColumnAuditionTest, TheLastSelectedColumnTakesTheInstrumentToo) {
    write(0, 2, 50, 4, 5);
    selection.SelStart = 2;
    selection.SelEnd = 4;
    studio.instruments.MelodyInstrument = 40;
    studio.tracks.LastTrack = 3;
    engine.instruments.Command9_Click();
    EXPECT_EQ(studio.score.InstArray.get(0, 4, 0), 40);
    EXPECT_EQ(studio.score.InstArray.get(0, 5, 0), 5);
    EXPECT_EQ(studio.tracks.LastTrack, 0);
}

TEST_F(ColumnAuditionTest, APercussionTrackTakesThePercussionInstrument) {
    write(8, 2, 50, 1, 130);
    studio.tracks.CurrentTrack = 8;
    selection.SelStart = selection.SelEnd = 2;
    studio.instruments.MelodyInstrument = 40;
    studio.instruments.PercussionInstrument = 140;
    engine.instruments.Command9_Click();
    EXPECT_EQ(studio.score.InstArray.get(8, 2, 0), 140);
    EXPECT_EQ(studio.tracks.TrackInstrument[8], 140);
}

TEST_F(ColumnAuditionTest, ChoosingATrackGivesItItsInstrument) {
    studio.instruments.MelodyInstrument = 41;
    engine.channels.TrackSel_Click(2);
    EXPECT_EQ(studio.tracks.TrackInstrument[2], 41);
}

}  // namespace
}  // namespace melvane::test
