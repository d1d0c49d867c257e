#include <algorithm>
#include <set>

#include "keyboard_fixture.h"
#include "platform/files.h"
#include "synth/key_characters.h"
#include "synth/key_search.h"

namespace melvane::test {
namespace {

class KeySchemesTest : public KeyboardTest {
 protected:
    /// A scheme whose first label is `first`.
    static std::string scheme(const std::string& first) {
        KeyLabels labels = defaultKeyLabels();
        labels[0] = first;
        return keySchemeText(labels);
    }
    std::string setting(const std::string& key) { return engine.settings.GetSetting(key, "(none)"); }
};

TEST_F(KeySchemesTest, WithoutASchemeTheDefaultLabelsStand) {
    synth().schemes.loadAtStart();
    EXPECT_EQ(label(0), "Z");
    EXPECT_EQ(label(43), "]");
    EXPECT_EQ(window().Label3.text(), "keyboard.key");
}

TEST_F(KeySchemesTest, TheFirstStartTakesTheSchemeBesideTheProgram) {
    folder.make("004.key", scheme("first"));
    synth().schemes.loadAtStart();
    EXPECT_EQ(label(0), "first");
    EXPECT_EQ(window().Label3.text(), "004.key");
}

TEST_F(KeySchemesTest, TheSettingNamesTheScheme) {
    folder.make("004.key", scheme("first"));
    engine.settings.SaveSetting("keyfile", folder.make("mine.key", scheme("mine")));
    synth().schemes.loadAtStart();
    EXPECT_EQ(label(0), "mine");
    EXPECT_EQ(window().Label3.text(), "mine.key");
}

TEST_F(KeySchemesTest, AFileWithAnotherEndingIsIgnoredAndSoIsTheOtherScheme) {
    folder.make("004.key", scheme("first"));
    for (const char* name : {"mine.txt", "mine.KEY"}) {
        engine.settings.SaveSetting("keyfile", folder.make(name, scheme("mine")));
        synth().schemes.loadAtStart();
        EXPECT_EQ(label(0), "Z") << name;
        EXPECT_EQ(window().Label3.text(), "keyboard.key");
    }
}

TEST_F(KeySchemesTest, ASchemeThatIsGoneGivesWayToTheFirst) {
    folder.make("004.key", scheme("first"));
    engine.settings.SaveSetting("keyfile", folder.file("gone.key"));
    synth().schemes.loadAtStart();
    EXPECT_EQ(label(0), "first");
}

TEST_F(KeySchemesTest, TheSettingForgetsWhereTheSchemeWasOpened) {
    synth().schemes.OpenKeyScheme(folder.make("elsewhere/mine.key", scheme("mine")));
    synth().schemes.storeAtEnd();
    EXPECT_EQ(setting("keyfile"), folder.file("mine.key"));
}

TEST_F(KeySchemesTest, AMissingFileEmptiesTheLabelsAndShowsItsName) {
    synth().schemes.OpenKeyScheme(folder.file("none.key"));
    for (int key = 0; key < Keyboard::keys; ++key) EXPECT_EQ(label(key), "") << key;
    EXPECT_EQ(window().Label3.text(), "none.key");
    synth().schemes.OpenKeyScheme("C:\\keys\\his.key");
    EXPECT_EQ(window().Label3.text(), "his.key");
}

TEST_F(KeySchemesTest, EventsAreServedAfterEachKey) {
    int served = 0;
    std::string lastLabel;
    time.serveToolkit = [&] {
        ++served;
        lastLabel = label(served - 1);
        EXPECT_EQ(lastLabel, std::to_string(served));
    };
    std::string lines;
    for (int line = 1; line <= Keyboard::keys; ++line) lines += std::to_string(line) + "\r\n";
    synth().schemes.OpenKeyScheme(folder.make("counted.key", lines));
    time.serveToolkit = nullptr;
    EXPECT_EQ(served, 44);
}

TEST_F(KeySchemesTest, SavingAndReopeningRestoresEveryLabelButTheBlanksAround) {
    window().Check1.userPut(true);
    window().NoteX[0].userPut(std::string(" ab "));
    window().NoteX[1].userPut(std::string("   "));
    window().NoteX[2].userPut(std::string("ö"));
    synth().schemes.SaveKeyScheme(folder.file("kept.key"));
    synth().schemes.showDefault();
    synth().schemes.OpenKeyScheme(folder.file("kept.key"));
    EXPECT_EQ(label(0), "ab");
    EXPECT_EQ(label(1), "");
    EXPECT_EQ(label(2), "ö");
    for (int key = 3; key < Keyboard::keys; ++key)
        EXPECT_EQ(label(key), defaultKeyLabels()[static_cast<std::size_t>(key)]);
}

TEST_F(KeySchemesTest, AnUnwritablePathFailsWithoutAWord) {
    synth().schemes.SaveKeyScheme(folder.file("no such folder/a.key"));
    synth().schemes.SaveKeyScheme("");
    EXPECT_TRUE(dialogs.takeBoxes().empty());
    EXPECT_FALSE(fileExists(folder.file("no such folder/a.key")));
}

TEST_F(KeySchemesTest, TheDialogsBearTheirTitlesAndACancelledOneDoesNothing) {
    window().Command1.userPut(true);
    window().Command6.userPut(true);
    EXPECT_EQ(dialogs.takeFileDialogs(),
              (Lines{"dialog open \"Open keyboard scheme\" \"Keys(*.key)|*.key\" \"\"",
                     "dialog save \"Save keyboard scheme\" \"Keys(*.key)|*.key\" \"\""}));
    EXPECT_EQ(label(0), "Z");
    EXPECT_FALSE(fileExists(folder.file(".key")));
}

TEST_F(KeySchemesTest, ABlankAnswerIsNone) {
    dialogs.queueChoice({"   ", 1});
    window().Command6.userPut(true);
    dialogs.queueChoice({"   ", 1});
    window().Command1.userPut(true);
    EXPECT_EQ(window().Label3.text(), "keyboard.key");
}

TEST_F(KeySchemesTest, AChosenFileIsOpenedWhenItExists) {
    std::string answer = " " + folder.make("mine.key", scheme("mine"));
    answer += '\0';
    dialogs.queueChoice({answer + "  ", 1});
    window().Command1.userPut(true);
    EXPECT_EQ(label(0), "mine");
    dialogs.queueChoice({folder.file("none.key"), 1});
    window().Command1.userPut(true);
    EXPECT_EQ(label(0), "mine") << "a file that is not there changes nothing";
    EXPECT_EQ(window().Label3.text(), "mine.key");
}

TEST_F(KeySchemesTest, ASavedFileGetsItsEndingUnlessItHasItInAnyCase) {
    for (const char* name : {"plain", "small.key", "LOUD.KEY", "other.txt"}) {
        dialogs.queueChoice({folder.file(name), 1});
        window().Command6.userPut(true);
    }
    for (const char* name : {"plain.key", "small.key", "LOUD.KEY", "other.txt.key"})
        EXPECT_TRUE(fileExists(folder.file(name))) << name;
    EXPECT_FALSE(fileExists(folder.file("LOUD.KEY.key")));
}

TEST_F(KeySchemesTest, EachDialogOpensWhereItsLastFileLay) {
    EXPECT_EQ(state().OpenFolder, folder.file("Songs"));
    EXPECT_EQ(state().SaveFolder, folder.file("Songs"));
    dialogs.queueChoice({folder.make("one/a.key"), 1});
    window().Command1.userPut(true);
    dialogs.queueChoice({folder.make("two/b.key"), 1});
    window().Command6.userPut(true);
    EXPECT_EQ(state().OpenFolder, folder.file("one"));
    EXPECT_EQ(state().SaveFolder, folder.file("two"));
}

TEST_F(KeySchemesTest, TheLabelsTakeTextInEditModeAlone) {
    window().NoteX[5].userPut(std::string("x"));
    EXPECT_EQ(label(5), "V");
    window().CmdEd.userPut(true);
    EXPECT_TRUE(window().Check1.ticked());
    for (const KeyLabel& field : window().NoteX) EXPECT_TRUE(field.enabled());
    window().NoteX[5].userPut(std::string("x"));
    EXPECT_EQ(label(5), "x");
    window().CmdEd.userPut(true);
    EXPECT_FALSE(window().Check1.ticked());
    for (const KeyLabel& field : window().NoteX) EXPECT_FALSE(field.enabled());
    window().Check1.userPut(true);
    EXPECT_TRUE(window().NoteX[5].enabled());
}

TEST_F(KeySchemesTest, AChangedLabelForgetsWhichKeysWereHeld) {
    press('Z');
    release('Z');
    press('X');
    state().HistoryText = {"1", "2", "3"};
    window().NoteX[40].set("x");
    EXPECT_EQ(
        state().PressedKeyText + state().HeldKeyText + state().ReleasedKeyText + state().ReleasedMarkText,
        "");
    for (const auto& text : state().HistoryText) EXPECT_EQ(text, "");
    sent();
    synth().keys.Form_KeyDown('X', 0);
    EXPECT_EQ(sent(), (Lines{"90 26 64"})) << "no press after an edit is a repeat";
}

TEST_F(KeySchemesTest, ASmallLetterIsReachedByItsCharacterAlone) {
    window().NoteX[0].set("z");
    press('Z');
    EXPECT_EQ(sent(), (Lines{"90 24 64"}));
    synth().keys.Form_KeyUp('Z', 0);
    sent();
    synth().keys.Form_KeyDown('Z', 0);
    synth().keys.Form_KeyPress('Z');
    EXPECT_TRUE(sent().empty()) << "not by the key, and not by the capital";
}

TEST_F(KeySchemesTest, TheSchemesAreLaidBesideTheProgramOnce) {
    folder.make("french.key", "mine\r\n");
    synth().schemes.installSchemes();
    for (const char* name : {"004.key", "german.key", "spanish.key"})
        EXPECT_TRUE(fileExists(folder.file(name))) << name;
    EXPECT_EQ(readFile(folder.file("french.key")), "mine\r\n");
}

/// What a keyboard types: letters and digits come with the code of their key as well.
class DeliveredSchemesTest : public KeySchemesTest, public testing::WithParamInterface<const char*> {};

TEST_P(DeliveredSchemesTest, EachOfItsLabelsIsOneKeyThatCanBeReached) {
    synth().schemes.installSchemes();
    synth().schemes.OpenKeyScheme(folder.file(GetParam()));
    std::set<std::string> labels;
    for (int key = 0; key < Keyboard::keys; ++key) {
        const std::string text = label(key);
        EXPECT_TRUE(labels.insert(text).second) << text << " stands twice";
        ASSERT_EQ(firstCharacters(text, 1), text);
        const auto eightBit = toEightBit(text);
        ASSERT_TRUE(eightBit.has_value()) << text;
        const int code = static_cast<unsigned char>(eightBit->front());
        synth().keys.forget();
        const bool named = (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z');
        if (named) {
            synth().keys.Form_KeyDown(code, 0);
        } else {
            synth().keys.Form_KeyPress(code);
        }
        EXPECT_EQ(state().LastDownKey, key) << text;
        EXPECT_EQ(state().PressedKeyText, std::to_string(key)) << text;
        synth().keys.Form_KeyUp(code, 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Layouts, DeliveredSchemesTest,
                         testing::Values("004.key", "german.key", "french.key", "spanish.key"),
                         [](const auto& file) { return "Layout" + std::string(file.param).substr(0, 3); });

}  // namespace
}  // namespace melvane::test
