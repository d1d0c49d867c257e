#include "platform/qt_event_loop.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTimer>

#include <string>

namespace melvane {
namespace {

/// The loop on the real clock. Only what comes before what is asserted, and that nothing comes early: how
/// late something comes depends on the machine.
class QtEventLoopTest : public testing::Test {
 protected:
    std::int64_t in(std::int64_t milliseconds) const { return clock.counter() + milliseconds * 1'000'000; }
    void post(std::function<void()> call) {
        QMetaObject::invokeMethod(&owner, std::move(call), Qt::QueuedConnection);
    }
    void after(int milliseconds, std::function<void()> call) {
        QTimer::singleShot(milliseconds, &owner, std::move(call));
    }

    SteadyClock clock;
    QtEventLoop loop{clock};
    QObject owner;
    std::string order;
};

TEST_F(QtEventLoopTest, AWaitNeverEndsBeforeItsMoment) {
    for (const std::int64_t milliseconds : {0, 1, 2, 7, 20}) {
        const std::int64_t moment = in(milliseconds);
        loop.waitUntil(moment);
        EXPECT_GE(clock.counter(), moment);
    }
}

TEST_F(QtEventLoopTest, AWaitForAPastMomentStillLooksAtTheQueueOnce) {
    post([&] { order += "p"; });
    loop.waitUntil(in(-5));
    EXPECT_EQ(order, "p");
}

TEST_F(QtEventLoopTest, AWaitServesWhatIsPostedAndWhatFallsDue) {
    after(10, [&] { order += "t"; });
    post([&] { order += "p"; });
    loop.waitUntil(in(30));
    EXPECT_EQ(order, "pt");
}

TEST_F(QtEventLoopTest, AWaitForLessThanAMillisecondServesToo) {
    post([&] { order += "p"; });
    loop.waitUntil(clock.counter() + 400'000);
    EXPECT_EQ(order, "p");
}

TEST_F(QtEventLoopTest, IdleRunsWhatIsPendingAndReturns) {
    loop.Idle();
    post([&] { order += "a"; });
    post([&] { order += "b"; });
    loop.Idle();
    EXPECT_EQ(order, "ab");
}

TEST_F(QtEventLoopTest, AHandlerMayWaitInsideAWait) {
    post([&] {
        order += "<";
        loop.waitUntil(in(20));
        order += ">";
    });
    after(5, [&] { order += "t"; });
    loop.waitUntil(in(1));
    EXPECT_EQ(order, "<t>");
}

TEST_F(QtEventLoopTest, WaitingForAnAnswerAsksAfterEachEvent) {
    bool answered = false;
    after(2, [&] { order += "1"; });
    after(6, [&] { answered = true; });
    loop.waitFor([&] { return answered; });
    EXPECT_TRUE(answered);
    EXPECT_EQ(order, "1");
}

TEST_F(QtEventLoopTest, AnAnswerThatIsThereAlreadyIsNotWaitedFor) {
    post([&] { order += "p"; });
    loop.waitFor([] { return true; });
    EXPECT_EQ(order, "");
}

TEST_F(QtEventLoopTest, AnOuterAnswerThatComesFirstWaitsForTheInnerOne) {
    bool outer = false;
    bool inner = false;
    post([&] {
        loop.waitFor([&] { return inner; });
        order += "i";
    });
    after(5, [&] { outer = true; });
    after(15, [&] { inner = true; });
    loop.waitFor([&] { return outer; });
    order += "o";
    EXPECT_EQ(order, "io");
}

TEST_F(QtEventLoopTest, TheEndWakesEveryNestedWait) {
    post([&] {
        post([&] {
            after(5, [&] { loop.end(); });
            loop.waitUntil(in(3'600'000));
            order += "3";
        });
        loop.waitFor([] { return false; });
        order += "2";
    });
    loop.waitUntil(in(3'600'000));
    order += "1";
    EXPECT_EQ(order, "321");
    EXPECT_TRUE(loop.ended());
}

TEST_F(QtEventLoopTest, AfterTheEndNothingWaitsAndNothingIsServed) {
    loop.end();
    post([&] { order += "p"; });
    loop.waitUntil(in(3'600'000));
    loop.waitFor([] { return false; });
    loop.pause(3'600'000);
    loop.Idle();
    EXPECT_EQ(order, "");
    QCoreApplication::processEvents();
}

TEST_F(QtEventLoopTest, APauseServesNothing) {
    post([&] { order += "p"; });
    const std::int64_t moment = in(5);
    loop.pause(5);
    EXPECT_GE(clock.counter(), moment);
    EXPECT_EQ(order, "");
    loop.Idle();
    EXPECT_EQ(order, "p");
}

TEST_F(QtEventLoopTest, ATimerCallsUntilItIsStopped) {
    int calls = 0;
    const int id = loop.startTimer(1, [&] { ++calls; });
    EXPECT_GT(id, 0);
    // A busy machine may serve more than one call before the wait is asked whether it is over.
    loop.waitFor([&] { return calls >= 3; });
    loop.stopTimer(id);
    const int whenStopped = calls;
    EXPECT_GE(whenStopped, 3);
    loop.waitUntil(in(10));
    EXPECT_EQ(calls, whenStopped);
    loop.stopTimer(id);
    loop.stopTimer(12345);
}

TEST_F(QtEventLoopTest, ATimerMayStopItselfAndStartAnother) {
    int id = 0;
    bool second = false;
    id = loop.startTimer(1, [&] {
        order += "1";
        loop.stopTimer(id);
        loop.startTimer(1, [&] { second = true; });
    });
    loop.waitFor([&] { return second; });
    EXPECT_EQ(order, "1");
}

TEST_F(QtEventLoopTest, ATimerGoesOnWhileItsOwnHandlerWaits) {
    int depth = 0;
    int deepest = 0;
    loop.startTimer(2, [&] {
        deepest = std::max(deepest, ++depth);
        if (depth == 1) loop.waitFor([&] { return deepest > 1; });
        --depth;
    });
    loop.waitFor([&] { return deepest > 1 && depth == 0; });
    EXPECT_GT(deepest, 1);
}

TEST_F(QtEventLoopTest, ATimerDoesNotCallAfterTheEnd) {
    loop.startTimer(1, [&] { order += "t"; });
    loop.end();
    after(10, [&] { order += "x"; });
    while (order.empty()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(order, "x");
}

}  // namespace
}  // namespace melvane
