#include "platform/scripted_dialogs.h"

#include <gtest/gtest.h>

namespace melvane {
namespace {

using Lines = std::vector<std::string>;

class ScriptedDialogsTest : public testing::Test {
 protected:
    BoxAnswer ask(BoxButtons buttons) {
        return dialogs.messageBox(BoxKind::question, "Melvane", "Sure?", buttons);
    }

    VirtualTime time;
    ScriptedDialogs dialogs{time};
};

TEST_F(ScriptedDialogsTest, AnEmptyQueueAnswersOkOrYes) {
    EXPECT_EQ(ask(BoxButtons::ok), BoxAnswer::ok);
    EXPECT_EQ(ask(BoxButtons::okCancel), BoxAnswer::ok);
    EXPECT_EQ(ask(BoxButtons::yesNo), BoxAnswer::yes);
    EXPECT_EQ(time.counter(), 0);
}

TEST_F(ScriptedDialogsTest, QueuedAnswersAreTakenInOrder) {
    dialogs.queueAnswer(BoxAnswer::no);
    dialogs.queueAnswer(BoxAnswer::cancel);
    EXPECT_EQ(ask(BoxButtons::yesNo), BoxAnswer::no);
    EXPECT_EQ(ask(BoxButtons::okCancel), BoxAnswer::cancel);
}

TEST_F(ScriptedDialogsTest, ABoxWithoutAnAnswerWaitsForPendingCalls) {
    time.at(40, [this] { dialogs.queueAnswer(BoxAnswer::no); });
    time.at(90, [] {});
    EXPECT_EQ(ask(BoxButtons::yesNo), BoxAnswer::no);
    EXPECT_EQ(time.tickCount(), 40);
    EXPECT_EQ(ask(BoxButtons::yesNo), BoxAnswer::yes);
    EXPECT_EQ(time.tickCount(), 90);
}

TEST_F(ScriptedDialogsTest, BoxesAreWrittenDownWithKindTitleAndText) {
    dialogs.messageBox(BoxKind::critical, "A \"B\"", "C", BoxButtons::ok);
    dialogs.messageBox(BoxKind::plain, "", "D", BoxButtons::ok);
    EXPECT_EQ(dialogs.takeBoxes(), (Lines{"box critical \"A \"\"B\"\"\" \"C\"", "box plain \"\" \"D\""}));
    EXPECT_TRUE(dialogs.takeBoxes().empty());
}

TEST_F(ScriptedDialogsTest, AFileDialogTakesTheNextChoiceAndIsCancelledWithoutOne) {
    dialogs.queueChoice({"/a.sng", 2});
    const FileChoice chosen = dialogs.openFile({"Open", "All|*", "", ""});
    EXPECT_EQ(chosen.path, "/a.sng");
    EXPECT_EQ(chosen.filterIndex, 2);
    EXPECT_EQ(dialogs.saveFile({"Save", "All|*", "", "b.sng"}).path, "");
    EXPECT_EQ(dialogs.takeFileDialogs(),
              (Lines{"dialog open \"Open\" \"All|*\" \"\"", "dialog save \"Save\" \"All|*\" \"b.sng\""}));
}

}  // namespace
}  // namespace melvane
