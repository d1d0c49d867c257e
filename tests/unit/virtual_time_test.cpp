#include "platform/virtual_time.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace melvane {
namespace {

constexpr std::int64_t ms = VirtualTime::ticksAMillisecond;

TEST(VirtualTime, StandsStillOutsideWaits) {
    VirtualTime time;
    time.Idle();
    time.runQueue();
    EXPECT_EQ(time.counter(), 0);
}

TEST(VirtualTime, AWaitServesWhatFallsDueInTheOrderOfTheMoments) {
    VirtualTime time;
    std::vector<std::string> served;
    const auto note = [&](const std::string& what) {
        served.push_back(what + "@" + std::to_string(time.counter() / ms));
    };
    time.at(30, [&] { note("late"); });
    time.at(5, [&] { note("early"); });
    const int timer = time.startTimer(10, [&] { note("timer"); });
    time.waitUntil(25 * ms);
    time.stopTimer(timer);
    EXPECT_EQ(served, (std::vector<std::string>{"early@5", "timer@10", "timer@20"}));
    EXPECT_EQ(time.counter(), 25 * ms);
}

TEST(VirtualTime, AMomentAtTheVeryEndOfAWaitIsServedInIt) {
    VirtualTime time;
    bool served = false;
    time.at(10, [&] { served = true; });
    time.waitUntil(10 * ms);
    EXPECT_TRUE(served);
}

TEST(VirtualTime, AWaitInsideACallMayCarryTheClockPastTheEndOfTheWaitAroundIt) {
    VirtualTime time;
    time.at(5, [&] { time.waitUntil(50 * ms); });
    time.waitUntil(10 * ms);
    EXPECT_EQ(time.counter(), 50 * ms);
}

TEST(VirtualTime, APauseMovesTheClockAndServesNothing) {
    VirtualTime time;
    int calls = 0;
    time.startTimer(1, [&] { ++calls; });
    time.pause(20);
    EXPECT_EQ(time.counter(), 20 * ms);
    EXPECT_EQ(calls, 0);
}

TEST(VirtualTime, AMomentInThePastReturnsAfterOneLookAtTheQueue) {
    VirtualTime time;
    time.pause(20);
    int looks = 0;
    time.serveToolkit = [&] { ++looks; };
    time.waitUntil(3 * ms);
    EXPECT_EQ(looks, 1);
    EXPECT_EQ(time.counter(), 20 * ms);
}

TEST(VirtualTime, AWaitThatNothingCanEndIsToldAndEndsTheLoop) {
    VirtualTime time;
    int told = 0;
    time.onStuck = [&] { ++told; };
    time.waitFor([] { return false; });
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(time.ended());
}

TEST(VirtualTime, ATimerThatChangesNothingDoesNotKeepAWaitAlive) {
    VirtualTime time;
    int told = 0;
    time.onStuck = [&] { ++told; };
    time.startTimer(1, [] {});
    time.waitFor([] { return false; });
    EXPECT_EQ(told, 1);
}

TEST(VirtualTime, APendingCallEndsAWaitThatAsksForIt) {
    VirtualTime time;
    bool done = false;
    time.onStuck = [] { FAIL(); };
    time.at(700, [&] { done = true; });
    time.waitFor([&] { return done; });
    EXPECT_EQ(time.tickCount(), 700);
}

TEST(VirtualTime, NoWaitLastsAfterTheEnd) {
    VirtualTime time;
    time.at(5, [&] { time.end(); });
    time.waitUntil(10 * ms);
    EXPECT_EQ(time.counter(), 5 * ms);
    time.waitUntil(20 * ms);
    EXPECT_EQ(time.counter(), 5 * ms);
}

TEST(VirtualTime, SettingItToZeroKeepsTheDistanceOfWhatIsToCome) {
    VirtualTime time;
    std::vector<std::int64_t> moments;
    time.startTimer(10, [&] { moments.push_back(time.tickCount()); });
    time.pause(4);
    time.at(3, [&] { moments.push_back(time.tickCount()); });
    time.setToZero();
    EXPECT_EQ(time.counter(), 0);
    time.waitUntil(16 * ms);
    EXPECT_EQ(moments, (std::vector<std::int64_t>{3, 6, 16}));
}

TEST(VirtualTime, ARestartForgetsTimersAndKeepsTheClockAndThePendingCalls) {
    VirtualTime time;
    int timerCalls = 0, pendingCalls = 0;
    time.startTimer(10, [&] { ++timerCalls; });
    time.pause(5);
    time.at(10, [&] { ++pendingCalls; });
    time.end();
    time.restart();
    EXPECT_FALSE(time.ended());
    EXPECT_EQ(time.counter(), 5 * ms);
    time.waitUntil(100 * ms);
    EXPECT_EQ(timerCalls, 0);
    EXPECT_EQ(pendingCalls, 1);
}

TEST(VirtualTime, ATimerMayStopItself) {
    VirtualTime time;
    int calls = 0, id = 0;
    id = time.startTimer(1, [&] {
        ++calls;
        time.stopTimer(id);
    });
    time.waitUntil(10 * ms);
    EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace melvane
