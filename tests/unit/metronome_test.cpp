#include "synth/metronome.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "platform/virtual_time.h"

namespace melvane::test {
namespace {

constexpr std::int64_t aMillisecond = VirtualTime::ticksAMillisecond;

class MetronomeTest : public testing::Test {
 protected:
    struct Told {
        std::int64_t moment;  // milliseconds
        int number;
        bool operator==(const Told&) const = default;
    };
    MetronomeTest() {
        metronome.onBeat = [this](std::int32_t& Beat) { beats.push_back({time.tickCount(), Beat}); };
    }
    void wait(std::int64_t milliseconds) { time.waitUntil(time.counter() + milliseconds * aMillisecond); }
    std::vector<Told> taken() { return std::exchange(beats, {}); }

    VirtualTime time;
    MetronomeState state;
    Metronome metronome{state, time, time};
    std::vector<Told> beats;
};

TEST_F(MetronomeTest, TheFirstBeatFallsOneIntervalAfterTheStartAndTheFifthIsOneAgain) {
    metronome.StartMetronome();
    wait(499);
    EXPECT_TRUE(beats.empty());
    EXPECT_EQ(state.CurrentBeat, 0);
    wait(2001);
    EXPECT_EQ(taken(), (std::vector<Told>{{500, 1}, {1000, 2}, {1500, 3}, {2000, 4}, {2500, 1}}));
}

TEST_F(MetronomeTest, AfterAStopTheNextBeatIsTheFirstAgain) {
    metronome.StartMetronome();
    wait(1100);
    taken();
    metronome.StopMetronome();
    EXPECT_EQ(state.CurrentBeat, 0);
    EXPECT_FALSE(state.WatchRunning);
    wait(5000);
    EXPECT_TRUE(beats.empty());
    metronome.StartMetronome();
    wait(600);
    EXPECT_EQ(taken(), (std::vector<Told>{{6600, 1}}));
}

TEST_F(MetronomeTest, At240TheBeatStaysEvenForTwoMinutes) {
    state.BeatsPerMinute = 240;
    metronome.StartMetronome();
    wait(120'000);
    const auto all = taken();
    ASSERT_EQ(all.size(), 480U);
    for (std::size_t at = 0; at < all.size(); ++at) {
        EXPECT_EQ(all[at].moment, 250 * (static_cast<std::int64_t>(at) + 1));
        EXPECT_EQ(all[at].number, static_cast<int>(at % 4) + 1);
    }
}

TEST_F(MetronomeTest, AnUnevenIntervalIsHeldWithinOnePollWithoutDrift) {
    state.BeatsPerMinute = 181;
    metronome.StartMetronome();
    wait(120'100);
    const auto all = taken();
    ASSERT_EQ(all.size(), 362U);
    for (std::size_t at = 0; at < all.size(); ++at) {
        const double due = 60'000.0 / 181 * (static_cast<double>(at) + 1);
        const double late = static_cast<double>(all[at].moment) - due;
        EXPECT_GE(late, -1e-6) << at;
        EXPECT_LE(late, 25) << at;
    }
}

TEST_F(MetronomeTest, AHandlerThatTakesLongerThanABeatSilencesIt) {
    metronome.onBeat = [this](std::int32_t& Beat) {
        beats.push_back({time.tickCount(), Beat});
        time.pause(600);
    };
    metronome.StartMetronome();
    wait(2000);
    EXPECT_EQ(taken(), (std::vector<Told>{{500, 1}}));
}

TEST_F(MetronomeTest, NothingStartsWithoutBeats) {
    state.BeatsPerMinute = 0;
    metronome.StartMetronome();
    EXPECT_FALSE(state.WatchRunning);
    wait(10'000);
    EXPECT_TRUE(beats.empty());
}

TEST_F(MetronomeTest, BelowNoBeatsNoneIsEverDue) {
    state.BeatsPerMinute = -120;
    metronome.StartMetronome();
    wait(10'000);
    EXPECT_TRUE(beats.empty());
}

TEST_F(MetronomeTest, AnIntervalShorterThanAPollFallsSilentAndStaysSo) {
    state.BeatsPerMinute = 3000;
    metronome.StartMetronome();
    wait(1000);
    const auto first = taken();
    EXPECT_EQ(first, (std::vector<Told>{{25, 1}, {50, 2}, {75, 3}, {100, 4}}))
        << "one beat a tick, until the due time lies at the tick before";
    EXPECT_LE(state.NextBeatTime, state.LastCheckTime);
    wait(60'000);
    EXPECT_TRUE(beats.empty());
}

TEST_F(MetronomeTest, ATickThatComesLaterThanAnIntervalSilencesIt) {
    metronome.StartMetronome();
    wait(500);
    taken();
    time.pause(1200);
    wait(100);
    EXPECT_EQ(taken().size(), 1U);
    wait(10'000);
    EXPECT_TRUE(beats.empty());
    EXPECT_TRUE(state.WatchRunning) << "its timer goes on";
}

TEST_F(MetronomeTest, ASecondStartWithoutAStopKeepsTheWatchAndFallsSilent) {
    metronome.StartMetronome();
    wait(2000);
    taken();
    metronome.StartMetronome();
    wait(5000);
    EXPECT_TRUE(beats.empty());
    metronome.StopMetronome();
    metronome.StartMetronome();
    wait(500);
    EXPECT_EQ(taken().size(), 1U);
}

TEST_F(MetronomeTest, TheMeasureMayHaveAnotherLength) {
    state.BeatsPerMeasure = 3;
    metronome.StartMetronome();
    wait(2000);
    std::vector<int> numbers;
    for (const Told& beat : taken()) numbers.push_back(beat.number);
    EXPECT_EQ(numbers, (std::vector<int>{1, 2, 3, 1}));
}

TEST_F(MetronomeTest, TheHandlerMayChangeTheBeatItIsGiven) {
    metronome.onBeat = [this](std::int32_t& Beat) {
        beats.push_back({time.tickCount(), Beat});
        if (Beat == 2) Beat = 3;
    };
    metronome.StartMetronome();
    wait(2000);
    std::vector<int> numbers;
    for (const Told& beat : taken()) numbers.push_back(beat.number);
    EXPECT_EQ(numbers, (std::vector<int>{1, 2, 4, 1}));
}

TEST_F(MetronomeTest, TheHandlerMayStopIt) {
    metronome.onBeat = [this](std::int32_t& Beat) {
        beats.push_back({time.tickCount(), Beat});
        metronome.StopMetronome();
    };
    metronome.StartMetronome();
    wait(5000);
    EXPECT_EQ(taken().size(), 1U);
}

TEST_F(MetronomeTest, OnlyBeatsAreTold) {
    bool told = false;
    metronome.onStart = metronome.onStop = [&told] { told = true; };
    metronome.StartMetronome();
    wait(1000);
    metronome.StopMetronome();
    EXPECT_FALSE(told);
}

TEST_F(MetronomeTest, TheWatchGoesOnWhereItWasStopped) {
    metronome.StartWatch();
    wait(300);
    EXPECT_DOUBLE_EQ(metronome.StopWatch(), 0.3);
    wait(1000);
    EXPECT_DOUBLE_EQ(metronome.ElapsedSeconds(), 0.3);
    metronome.StartWatch();
    wait(200);
    EXPECT_DOUBLE_EQ(metronome.ElapsedSeconds(), 0.5);
    metronome.StartWatch();
    EXPECT_DOUBLE_EQ(metronome.ElapsedSeconds(), 0.5) << "it runs already";
    metronome.ResetWatch();
    EXPECT_DOUBLE_EQ(metronome.ElapsedSeconds(), 0);
    metronome.StartWatch();
    wait(100);
    EXPECT_DOUBLE_EQ(metronome.ElapsedSeconds(), 0.1);
    EXPECT_EQ(state.CounterFrequency, VirtualTime::ticksASecond);
}

}  // namespace
}  // namespace melvane::test
