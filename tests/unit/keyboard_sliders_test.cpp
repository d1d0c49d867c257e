#include <random>

#include "keyboard_fixture.h"

namespace melvane::test {

class KeyboardSlidersTest : public KeyboardTest {
 protected:
    using Sliders = KeyboardSliders;
    Sliders& sliders() { return synth().sliders; }
    /// A press at `place` (0 to 1) of the way, and the release.
    void click(Sliders::Slider slider, double place, int button = 1) {
        const auto& control = sliders().control(slider);
        const double X = (control.trackWidth - control.pointerWidth) * place + control.pointerWidth / 2.0;
        sliders().press(slider, button, X);
        sliders().release(slider);
    }
    double placeOf(Sliders::Slider slider) { return sliders().control(slider).place(); }
};

TEST_F(KeyboardSlidersTest, APressCountsAsAMove) {
    click(Sliders::reverb, 0.5);
    EXPECT_EQ(window().LReverb.text(), "63");
    EXPECT_EQ(state().ChannelTable[0].Reverb, 63);
    EXPECT_EQ(sent(), Lines{"B0 5B 3F"});
}

TEST_F(KeyboardSlidersTest, NumbersAreCutToWholeOnesWhereTheScaleIsWhole) {
    const struct {
        Sliders::Slider slider;
        TextControl& number;
        const char *below, *at;
    } cases[] = {
        {Sliders::volume, window().Label11, "63", "127"}, {Sliders::pan, window().LPan, "63", "128"},
        {Sliders::channel, window().ChNumber, "3", "8"},  {Sliders::octave, window().OctNumber, "4", "10"},
        {Sliders::chord, window().Text4, "4", "10"},      {Sliders::strum, window().Text1, "5", "11"},
        {Sliders::tempo, window().Text8, "248", "500"},   {Sliders::beats, window().txtValue, "149", "300"}};
    for (const auto& entry : cases) {
        sliders().control(entry.slider).trackWidth = 1010;
        click(entry.slider, 0.4999);
        EXPECT_EQ(entry.number.text(), entry.below) << Sliders::name(entry.slider);
        click(entry.slider, 1);
        EXPECT_EQ(entry.number.text(), entry.at) << Sliders::name(entry.slider);
    }
}

TEST_F(KeyboardSlidersTest, SpeedPausesAndCompressionHaveFractions) {
    for (const auto slider : {Sliders::speed, Sliders::pauses, Sliders::fileSpeed})
        sliders().control(slider).trackWidth = 1010;
    click(Sliders::speed, 0.25);
    EXPECT_EQ(window().Text2.text(), "10");
    click(Sliders::speed, 0.333);
    EXPECT_EQ(window().Text2.text(), "9.004");
    click(Sliders::pauses, 0.1);
    EXPECT_EQ(window().Text11.text(), "11.8");
    click(Sliders::fileSpeed, 0.3);
    EXPECT_EQ(window().Text12.text(), "2.8");
}

TEST_F(KeyboardSlidersTest, TheRightButtonBringsTheDefaultAndItsPlace) {
    const struct {
        Sliders::Slider slider;
        TextControl& number;
        const char* resting;
        double place;
    } cases[] = {{Sliders::volume, window().Label11, "127", 1},
                 {Sliders::modulation, window().LMod, "0", 0},
                 {Sliders::pan, window().LPan, "0", 0.5},
                 {Sliders::reverb, window().LReverb, "0", 0},
                 {Sliders::chorus, window().LChorus, "0", 0},
                 {Sliders::channel, window().ChNumber, "0", 0},
                 {Sliders::octave, window().OctNumber, "0", 0.5},
                 {Sliders::chord, window().Text4, "0", 0},
                 {Sliders::strum, window().Text1, "1", 0},
                 {Sliders::speed, window().Text2, "9", 1.0 / 3},
                 {Sliders::pauses, window().Text11, "1", 1},
                 {Sliders::tempo, window().Text8, "200", 0.4},
                 {Sliders::fileSpeed, window().Text12, "2.5", 0.25},
                 {Sliders::beats, window().txtValue, "120", 0.4}};
    EXPECT_EQ(std::size(cases), static_cast<std::size_t>(Sliders::count));
    for (const auto& entry : cases) {
        click(entry.slider, 0.7);
        click(entry.slider, 0.7, 2);
        EXPECT_EQ(entry.number.text(), entry.resting) << Sliders::name(entry.slider);
        EXPECT_NEAR(placeOf(entry.slider), entry.place, 1e-9) << Sliders::name(entry.slider);
    }
    EXPECT_EQ(state().OctaveShift, 0);
    EXPECT_EQ(window().LblOctave.text(), "0");
}

TEST_F(KeyboardSlidersTest, ThePanAtRestStaysInTheMiddleWhenItIsLetGo) {
    click(Sliders::pan, 0.9);
    click(Sliders::pan, 0.9, 2);
    EXPECT_EQ(window().LPan.text(), "0");
    EXPECT_DOUBLE_EQ(placeOf(Sliders::pan), 0.5);
    click(Sliders::pan, 0);
    EXPECT_DOUBLE_EQ(placeOf(Sliders::pan), 0);
}

TEST_F(KeyboardSlidersTest, AnotherChannelMovesThePointersOfItsEffects) {
    click(Sliders::reverb, 1);
    click(Sliders::channel, 1);
    EXPECT_EQ(state().LiveChannel, 8);
    EXPECT_DOUBLE_EQ(placeOf(Sliders::reverb), 0);
    click(Sliders::channel, 0);
    EXPECT_DOUBLE_EQ(placeOf(Sliders::reverb), 1);
}

TEST_F(KeyboardSlidersTest, AStepMovesByOneNumberInsideTheRange) {
    sliders().step(Sliders::volume, 1);
    EXPECT_EQ(window().Label11.text(), "127");
    sliders().step(Sliders::volume, -1);
    EXPECT_EQ(window().Label11.text(), "126");
    EXPECT_EQ(sent(), (Lines{"B0 07 7F", "B0 07 7E"}));
    sliders().step(Sliders::tempo, 1);
    EXPECT_EQ(studio.score.Tempo, 204);
    sliders().step(Sliders::speed, 1);
    EXPECT_EQ(window().Text2.text(), "9") << "to the right it falls";
    sliders().step(Sliders::speed, -9);
    EXPECT_EQ(window().Text2.text(), "13");
    sliders().step(Sliders::fileSpeed, 1);
    EXPECT_EQ(window().Text12.text(), "3.5");
    sliders().step(Sliders::fileSpeed, 9);
    EXPECT_EQ(window().Text12.text(), "7");
    sliders().step(Sliders::octave, 1);
    EXPECT_EQ(state().OctaveShift, 1);
    EXPECT_DOUBLE_EQ(placeOf(Sliders::octave), 0.1);
}

TEST_F(KeyboardSlidersTest, TheReleaseShowsTheRecordAndStartsARunningMetronomeAnew) {
    state().ChannelTable[0].Chorus = 12;
    sliders().release(Sliders::volume);
    EXPECT_EQ(window().LChorus.text(), "0");
    sliders().release(Sliders::pan);
    EXPECT_EQ(window().LChorus.text(), "12");
    window().chkRunning.userPut(true);
    click(Sliders::beats, 0.2);
    EXPECT_EQ(state().cMetronome1.BeatsPerMinute, 60);
}

TEST_F(KeyboardSlidersTest, AChannelThatIsNoneKeepsNothingAndBreaksNothing) {
    for (const std::int16_t channel : {std::int16_t{-1}, std::int16_t{16}, std::int16_t{32767}}) {
        state().LiveChannel = channel;
        click(Sliders::reverb, 1);
        sliders().release(Sliders::reverb);
        synth().channels.UpdateControls();
        EXPECT_EQ(synth().channels.record(), nullptr);
    }
}

TEST_F(KeyboardSlidersTest, HoweverFarASliderIsDraggedItsNumberStaysInside) {
    std::mt19937 random(7);
    const double far[] = {-1e300, -1e9, -70000, -1, 0, 3.5, 40, 75.9, 76, 1e5, 1e9, 1e300};
    for (int round = 0; round < 20000; ++round) {
        const auto slider = static_cast<Sliders::Slider>(random() % Sliders::count);
        const double X = far[random() % std::size(far)];
        switch (random() % 4) {
            case 0:
                sliders().press(slider, static_cast<int>(random() % 4), X);
                break;
            case 1:
                sliders().move(slider, static_cast<int>(random() % 8), X);
                break;
            case 2:
                sliders().release(slider);
                break;
            default:
                sliders().step(slider, static_cast<int>(random() % 400) - 200);
        }
        const auto& control = sliders().control(slider);
        ASSERT_GE(control.value(), control.lowest()) << Sliders::name(slider);
        ASSERT_LE(control.value(), control.highest()) << Sliders::name(slider);
        ASSERT_GE(control.place(), 0);
        ASSERT_LE(control.place(), 1);
    }
}

}  // namespace melvane::test
