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
    EXPECT_EQ(pairs, 1 + 8 + 1);
}

TEST_F(TutorialPausesTest, TheChangeOfEightColumnsTakesFourSeconds) {
    setTips(false);
    const auto before = time.tickCount();
    engine.tutorial.click(lessonIndex("LQ1"), 7);
    EXPECT_EQ(time.tickCount() - before, 8 * 500);
}

}  // namespace
}  // namespace melvane::test
