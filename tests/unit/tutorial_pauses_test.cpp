#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <string_view>
#include <vector>

#include "tutorial_fixture.h"

namespace melvane::test {
namespace {

using TutorialPausesTest = TutorialTest;

/// With the note selector's strip the mouse is a call of an operation for each event.
bool isOfTheStrip(const LessonAction& action) { return std::string_view(action.name).starts_with("Pic2a_"); }

TEST_F(TutorialPausesTest, BetweenTwoEventsOfTheMouseOnTheStripHalfASecondPasses) {
    int pairs = 0;
    for (const Lesson* const lesson : lessons()) {
        for (const auto& step : lesson->steps) {
            const LessonAction* before = nullptr;
            for (const auto& action : step.actions) {
                if (before != nullptr && isOfTheStrip(*before)) {
                    EXPECT_FALSE(isOfTheStrip(action)) << lesson->labels << ' ' << step.caption;
                    pairs += action.kind == LessonAction::Kind::wait ? 1 : 0;
                }
                before = &action;
            }
        }
    }
    EXPECT_GE(pairs, 1 + 8 + 1);
}

/// What makes a step last.
struct Lasting {
    int pauses = 0;      ///< of half a second; a press and its release have one between them
    int more = 0;        ///< milliseconds, beside the pauses
    bool plays = false;  ///< the score, to its end
};
constexpr int pick = 20;         // until the user of these tests has picked an instrument
constexpr int removal = 200;     // of a sample's file
constexpr int recorded = 10000;  // the file that the device plays
constexpr Lasting atOnce{}, picks{0, pick}, opens{0, removal}, plays{0, 0, true};

struct LastingLesson {
    const char* labels;
    std::vector<Lasting> steps;
};
const std::vector<LastingLesson> lastingLessons{
    {"L1", {atOnce, opens, atOnce, opens, atOnce, opens, plays, atOnce}},
    {"L2", {atOnce, picks, opens, atOnce, atOnce, atOnce, plays, plays}},
    {"LP1", {atOnce, picks, {4 + 3}, atOnce, picks, {1}, atOnce, picks, {2 + 1}, {3}, plays}},
    {"L1E", {{4 + 3}, atOnce, {2 + 1}, {2 + 1}, {1 + 2, pick}, atOnce, atOnce, {1}, {2 + 3}, {2 + 3}, {3}}},
    {"L1M", {opens, atOnce, atOnce, atOnce, atOnce}},  // no file is chosen that could be played
    {"L1R", {atOnce, {2}, atOnce, opens, plays, atOnce, atOnce, atOnce, {0, recorded + removal}, atOnce}},
    {"L1S", {atOnce, {1}, atOnce, picks, picks, opens, plays}},
    {"LQ1", {atOnce, opens, opens, {1, pick}, atOnce, atOnce, {3}, {8}, plays}}};

class TutorialTimesTest : public TutorialTest, public testing::WithParamInterface<int> {
 protected:
    std::int64_t duration(const std::function<void()>& action) {
        const auto before = time.tickCount();
        action();
        return time.tickCount() - before;
    }
};

TEST_P(TutorialTimesTest, EachStepTakesItsPausesAndItsPlaying) {
    setTips(false);
    const auto& [labels, steps] = lastingLessons[static_cast<std::size_t>(GetParam())];
    const auto found = std::ranges::find(lessons(), std::string_view(labels),
                                         [](const Lesson* it) { return std::string_view(it->labels); });
    ASSERT_NE(found, lessons().end());
    const int lesson = static_cast<int>(found - lessons().begin());
    ASSERT_EQ(stepCount(lesson), static_cast<int>(steps.size()));
    for (int step = 0; step < stepCount(lesson); ++step) {
        const auto took = duration([&] { engine.tutorial.click(lesson, step); });
        const auto& wanted = steps[static_cast<std::size_t>(step)];
        const auto playing =
            wanted.plays ? duration([this] { engine.player.PlayAndStop_Click(0); }) : std::int64_t{0};
        EXPECT_EQ(playing > 0, wanted.plays) << step;
        const auto expected = wanted.pauses * 500 + wanted.more + playing;
        EXPECT_LE(std::abs(took - expected), 1) << step << " took " << took << ", not " << expected;
    }
}

INSTANTIATE_TEST_SUITE_P(Lessons, TutorialTimesTest,
                         testing::Range(0, static_cast<int>(lastingLessons.size())), [](const auto& lesson) {
                             return std::string(
                                 lastingLessons[static_cast<std::size_t>(lesson.param)].labels);
                         });

}  // namespace
}  // namespace melvane::test
