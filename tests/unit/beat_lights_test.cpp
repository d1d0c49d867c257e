#include "keyboard_fixture.h"

namespace melvane::test {
namespace {

constexpr Colour darkGreen{0, 0x80, 0}, darkRed{0x80, 0, 0}, green{0, 255, 0}, red{255, 0, 0};

class BeatLightsTest : public KeyboardTest {
 protected:
    void wait(std::int64_t milliseconds) {
        time.waitUntil(time.counter() + milliseconds * VirtualTime::ticksAMillisecond);
    }
    std::vector<Colour> lights() {
        std::vector<Colour> colours;
        for (const BoxControl& light : window().pctBeat) colours.push_back(light.backColour());
        return colours;
    }
    BeatLights& beats() { return synth().beats; }
};

TEST_F(BeatLightsTest, TheLightsGoRoundWithTheBeats) {
    EXPECT_EQ(lights(), (std::vector<Colour>{darkGreen, darkRed, darkRed, darkRed}));
    window().chkRunning.userPut(true);
    EXPECT_TRUE(window().Picmetro.visible());
    wait(500);
    EXPECT_EQ(lights(), (std::vector<Colour>{green, darkRed, darkRed, darkRed}));
    wait(500);
    EXPECT_EQ(lights(), (std::vector<Colour>{darkGreen, red, darkRed, darkRed}));
    wait(1000);
    EXPECT_EQ(lights(), (std::vector<Colour>{darkGreen, darkRed, darkRed, red}));
    EXPECT_TRUE(sent().empty()) << "they do not sound unless they are told to";
}

TEST_F(BeatLightsTest, StoppingHidesTheLightsAndLeavesTheLastOneOn) {
    window().chkRunning.userPut(true);
    wait(600);
    window().chkRunning.userPut(false);
    EXPECT_FALSE(window().Picmetro.visible());
    EXPECT_EQ(lights()[0], green) << "nobody tells of the stop";
    wait(5000);
    EXPECT_EQ(lights()[0], green);
    beats().onStop();
    EXPECT_EQ(lights()[0], darkGreen);
}

TEST_F(BeatLightsTest, ASoundingBeatEndsTheOneBeforeOnItsOwnChannel) {
    window().Check9.userPut(true);
    state().LiveChannel = 3;
    for (const int beat : {1, 2, 3, 4}) beats().onBeat(beat);
    EXPECT_EQ(sent(), (Lines{"8E 48 00", "9E 36 64", "8E 36 00", "9E 40 64", "8E 40 00", "9E 46 64",
                             "8E 46 00", "9E 48 64"}));
}

TEST_F(BeatLightsTest, TheOctaveMovesTheFourthBeatAlone) {
    window().Check9.userPut(true);
    state().OctaveShift = 12;
    beats().onBeat(1);
    EXPECT_EQ(state().NoteWord, (std::array<Int16, 5>{54 * 256, 64 * 256, 70 * 256, 84 * 256, 0}));
    EXPECT_EQ(sent(), (Lines{"8E 54 00", "9E 36 64"}));
}

TEST_F(BeatLightsTest, ASoundingBeatTakesTheWordsOfTheKeys) {
    window().Check9.userPut(true);
    synth().mouse.CmdKey_MouseDown(0, 1, 0, 5, 5);
    beats().onBeat(1);
    sent();
    synth().mouse.CmdKey_MouseUp(0, 1, 0, 5, 5);
    EXPECT_EQ(sent(), (Lines{"80 36 00"})) << "the release ends a note of the metronome's";
}

TEST_F(BeatLightsTest, AnOctaveThatDoesNotFitKeepsTheWord) {
    window().Check9.userPut(true);
    beats().onBeat(1);
    state().OctaveShift = 60;
    beats().onBeat(4);
    EXPECT_EQ(state().NoteWord[3], 72 * 256);
}

TEST_F(BeatLightsTest, ABeatWithoutALightDoesNoHarm) {
    window().Check9.userPut(true);
    for (const int beat : {0, 5, -1, 2147483647, -2147483647 - 1}) {
        beats().onBeat(beat);
        EXPECT_EQ(lights(), (std::vector<Colour>{darkGreen, darkRed, darkRed, darkRed})) << beat;
        EXPECT_TRUE(sent().empty()) << beat;
        EXPECT_EQ(state().NoteWord[0], 54 * 256) << "the words are set all the same";
    }
}

TEST_F(BeatLightsTest, ATempoButtonThatIsStoppedChangesNothingButTheTextAndThePointer) {
    window().Lblbeats.trackWidth = 310;
    window().Lblbeats.pointerWidth = 10;
    window().Optbeat[1].userPut(true);
    EXPECT_EQ(window().txtValue.text(), "60");
    EXPECT_EQ(window().Lblbeats.pointerLeft(), 60 * 310 / 300 - 5);
    EXPECT_EQ(state().cMetronome1.BeatsPerMinute, 120);
    EXPECT_FALSE(state().cMetronome1.WatchRunning);
    EXPECT_FALSE(window().Picmetro.visible());
}

TEST_F(BeatLightsTest, ATempoButtonStartsARunningMetronomeAnew) {
    window().chkRunning.userPut(true);
    wait(700);
    window().Optbeat[4].userPut(true);
    EXPECT_EQ(state().cMetronome1.CurrentBeat, 0);
    wait(249);
    EXPECT_EQ(state().cMetronome1.CurrentBeat, 0);
    wait(1);
    EXPECT_EQ(state().cMetronome1.CurrentBeat, 1);
    wait(250);
    EXPECT_EQ(state().cMetronome1.CurrentBeat, 2);
}

TEST_F(BeatLightsTest, OneTempoButtonIsOnAtATime) {
    const std::vector<std::string> tempos{"30", "60", "120", "180", "240"};
    for (std::size_t at = 0; at < tempos.size(); ++at) {
        window().Optbeat[at].userPut(true);
        EXPECT_EQ(window().txtValue.text(), tempos[at]);
        for (std::size_t other = 0; other < tempos.size(); ++other) {
            EXPECT_EQ(window().Optbeat[other].ticked(), other == at);
        }
    }
    window().Optbeat[4].userPut(false);
    EXPECT_TRUE(window().Optbeat[4].ticked()) << "an option is not let go of by a click on it";
    window().txtValue.set("77");
    beats().Optbeat_Click(1);
    beats().Optbeat_Click(9);
    EXPECT_EQ(window().txtValue.text(), "77") << "a button that is off does nothing";
}

TEST_F(BeatLightsTest, TheTempoIsTakenWhenItStartsAndNotBefore) {
    window().chkRunning.userPut(true);
    window().txtValue.set("60");
    wait(500);
    EXPECT_EQ(state().cMetronome1.CurrentBeat, 1);
    beats().chkRunning_Click();
    EXPECT_EQ(state().cMetronome1.BeatsPerMinute, 60);
    wait(999);
    EXPECT_EQ(state().cMetronome1.CurrentBeat, 0);
    wait(1);
    EXPECT_EQ(state().cMetronome1.CurrentBeat, 1);
}

TEST_F(BeatLightsTest, ATempoOfNoneStopsWhatRuns) {
    window().chkRunning.userPut(true);
    wait(700);
    for (const char* none : {"0", "", "slow"}) {
        window().txtValue.set(none);
        beats().chkRunning_Click();
        wait(10'000);
        EXPECT_EQ(state().cMetronome1.CurrentBeat, 0) << none;
    }
}

TEST_F(BeatLightsTest, TheButtonsTellTheirTempoButTheLastOne) {
    EXPECT_EQ(window().Optbeat[0].tip(), "30 beats per minute");
    EXPECT_EQ(window().Optbeat[3].tip(), "180 beats per minute");
    EXPECT_EQ(window().Optbeat[4].tip(), "");
    EXPECT_EQ(window().chkRunning.tip(), "Metronome On/Off");
}

TEST_F(BeatLightsTest, ABeatComesInsideTheWaitOfAStrum) {
    window().chkRunning.userPut(true);
    window().Check9.userPut(true);
    window().Check8.userPut(true);
    window().Chkstrum.userPut(true);
    window().Text4.set("1");
    window().Text1.set("11");
    wait(450);
    sent();
    synth().notes.NoteDown3(0);
    EXPECT_EQ(sent(),
              (Lines{"90 24 64", "90 30 64", "8E 48 00", "9E 36 64", "90 46 64", "90 40 64", "90 36 64"}))
        << "what is left of the strum sounds the metronome's notes";
}

}  // namespace
}  // namespace melvane::test
