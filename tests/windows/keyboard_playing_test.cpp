#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTabWidget>

#include "keyboard_window_fixture.h"
#include "synth/piano_view.h"
#include "synth/qt_key_codes.h"

namespace melvane::test {

using Lines = std::vector<std::string>;

/// What the computer's keys and the mouse play on the real window.
class KeyboardPlayingTest : public KeyboardWindowTest {
 protected:
    PianoView& piano() { return part<PianoView>("Picture5"); }
    QPoint middleOf(int key) {
        const QRect box = piano().keyRect(key);
        return {box.center().x(), box.top() + box.height() * 9 / 10};
    }
    QColor seen(int key) {
        const QRect box = piano().keyRect(key);
        return piano().grab().toImage().pixelColor(box.center().x(), box.top() + box.height() / 3);
    }
    void editing(bool on) { part<QCheckBox>("Check1").setChecked(on); }
};

TEST_F(KeyboardPlayingTest, ALetterPlaysOnceAndStopsAtItsRelease) {
    press(Qt::Key_Z, "z");
    EXPECT_EQ(sent(), Lines{"90 24 64"});
    release(Qt::Key_Z, "z");
    EXPECT_EQ(sent(), Lines{"80 24 00"});
    press(Qt::Key_Z, "z");
    EXPECT_EQ(sent(), Lines{"90 24 64"});
}

TEST_F(KeyboardPlayingTest, ADigitAndAPunctuationMarkPlay) {
    press(Qt::Key_2, "2");
    EXPECT_EQ(sent(), Lines{"90 36 64"});
    release(Qt::Key_2, "2");
    press(Qt::Key_Comma, ",");
    release(Qt::Key_Comma, ",");
    EXPECT_EQ(sent(), (Lines{"80 36 00", "90 30 64", "80 30 00"}));
}

TEST_F(KeyboardPlayingTest, AHeldKeySoundsOnceHoweverOftenItRepeats) {
    press(Qt::Key_Comma, ",");
    press(Qt::Key_Q, "q");
    for (int repeat = 0; repeat < 5; ++repeat) {
        release(Qt::Key_Q, "q", true);
        press(Qt::Key_Q, "q", true);
    }
    EXPECT_EQ(sent(), (Lines{"90 30 64", "90 35 64"}));
    release(Qt::Key_Q, "q");
    EXPECT_EQ(sent(), Lines{"80 35 00"});
}

TEST_F(KeyboardPlayingTest, TheKeysShowWhatSounds) {
    EXPECT_EQ(seen(0), QColor(255, 255, 255));
    press(Qt::Key_Z, "z");
    press(Qt::Key_S, "s");
    EXPECT_EQ(seen(0), QColor(255, 0, 0));
    EXPECT_GT(seen(1).red(), 200);
    EXPECT_EQ(seen(1).green(), 0);
    release(Qt::Key_Z, "z");
    release(Qt::Key_S, "s");
    EXPECT_EQ(seen(0), QColor(255, 255, 255));
    EXPECT_LT(seen(1).lightness(), 80);
}

TEST_F(KeyboardPlayingTest, WhateverHasTheFocusTheKeysPlay) {
    open(3);
    auto& box = part<QCheckBox>("Chkstrum");
    box.setFocus();
    press(Qt::Key_Z, "z");
    press(Qt::Key_Space, " ");
    EXPECT_EQ(sent(), Lines{"90 24 64"});
    EXPECT_EQ(studio.keyboard.SpaceKeyCode, 32);
    release(Qt::Key_Space, " ");
    EXPECT_FALSE(box.isChecked()) << "the Spacebar is a key of the keyboard";
    open(0);
    auto& list = part<QComboBox>("Combo1");
    list.setFocus();
    press(Qt::Key_M, "m");
    EXPECT_EQ(list.currentIndex(), controls().Combo1.index());
    EXPECT_EQ(sent().back(), "90 2F 64");
}

TEST_F(KeyboardPlayingTest, TheReturnKeyPressesWhatHasTheFocus) {
    open(3);
    auto& box = part<QCheckBox>("Chkstrum");
    box.setFocus();
    press(Qt::Key_Return, "\r");
    EXPECT_TRUE(box.isChecked());
    press(Qt::Key_Enter, "\r", true);
    EXPECT_TRUE(box.isChecked()) << "a repeat presses nothing";
    EXPECT_TRUE(sent().empty());
}

TEST_F(KeyboardPlayingTest, TheTabKeyMovesTheFocusAndPlaysNothing) {
    open(3);
    part("Check10").setFocus();
    press(Qt::Key_Tab, "\t");
    EXPECT_EQ(keyboard.focusWidget(), &part("Check8"));
    EXPECT_FALSE(studio.keyboard.KeyIsDown);
    EXPECT_TRUE(sent().empty());
}

TEST_F(KeyboardPlayingTest, CommandsAndKeysThatTypeNothingPlayNothing) {
    press(Qt::Key_Z, QString(QChar(26)), false, Qt::ControlModifier);
    press(Qt::Key_Z, "z", false, Qt::AltModifier);
    press(Qt::Key_Z, "z", false, Qt::MetaModifier);
    press(Qt::Key_Shift, {});
    press(Qt::Key_F5, {});
    press(Qt::Key_Delete, QString(QChar(127)));
    release(Qt::Key_Z);
    release(Qt::Key_Shift);
    EXPECT_TRUE(sent().empty());
    EXPECT_FALSE(studio.keyboard.KeyIsDown);
}

TEST_F(KeyboardPlayingTest, LosingTheFocusReleasesWhatIsHeld) {
    press(Qt::Key_Z, "z");
    press(Qt::Key_X, "x");
    sent();
    QEvent away(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(&keyboard, &away);
    EXPECT_EQ(sent(), (Lines{"80 24 00", "80 26 00"}));
    EXPECT_FALSE(studio.keyboard.KeyIsDown);
    release(Qt::Key_Z, "z");
    EXPECT_TRUE(sent().empty()) << "it was released already";
}

TEST_F(KeyboardPlayingTest, AModalWindowReleasesWhatIsHeld) {
    press(Qt::Key_Z, "z");
    sent();
    QEvent blocked(QEvent::WindowBlocked);
    QCoreApplication::sendEvent(&keyboard, &blocked);
    EXPECT_EQ(sent(), Lines{"80 24 00"});
}

TEST_F(KeyboardPlayingTest, WhileTheLabelsAreEditedTheyHaveWhatIsTyped) {
    editing(true);
    auto& label = part<QLineEdit>("NoteX(3)");
    EXPECT_TRUE(label.isEnabled());
    QTest::mouseClick(&label, Qt::LeftButton);
    EXPECT_EQ(label.selectedText(), "D");
    EXPECT_EQ(keyboard.focusWidget(), &label);
    press(Qt::Key_E, "e");
    press(Qt::Key_Space, " ");
    release(Qt::Key_E, "e");
    EXPECT_EQ(controls().NoteX[3].text(), "e ");
    EXPECT_TRUE(sent().empty());
    editing(false);
    EXPECT_FALSE(label.isEnabled());
}

TEST_F(KeyboardPlayingTest, AnUnsteadyMouseLeavesTheWholeLabelSelected) {
    editing(true);
    auto& label = part<QLineEdit>("NoteX(3)");
    QTest::mousePress(&label, Qt::LeftButton, {}, label.rect().center());
    moveMouse(label, QPoint(1, 1), Qt::LeftButton);
    QTest::mouseRelease(&label, Qt::LeftButton, {}, QPoint(1, 1));
    EXPECT_EQ(label.selectedText(), "D");
    press(Qt::Key_E, "e");
    release(Qt::Key_E, "e");
    EXPECT_EQ(controls().NoteX[3].text(), "e");
}

TEST_F(KeyboardPlayingTest, ASmallLetterAsALabelIsReachedByWhatIsTyped) {
    editing(true);
    auto& label = part<QLineEdit>("NoteX(3)");
    QTest::mouseClick(&label, Qt::LeftButton);
    press(Qt::Key_E, "e");
    release(Qt::Key_E, "e");
    editing(false);
    press(Qt::Key_E, "e");
    const auto notes = sent();
    EXPECT_EQ(notes.front(), "90 39 64") << "the capital's key, by its code";
    EXPECT_EQ(notes.back(), "90 27 64") << "and the small letter's, as it was typed";
}

TEST_F(KeyboardPlayingTest, LabelsAreClickableAsTheirKeysOutsideTheEditMode) {
    QTest::mousePress(&piano(), Qt::LeftButton, {}, part("NoteX(4)").geometry().center());
    EXPECT_EQ(sent(), Lines{"90 28 64"});
    EXPECT_FALSE(part("NoteX(4)").hasFocus());
    QTest::mouseRelease(&piano(), Qt::LeftButton, {}, part("NoteX(4)").geometry().center());
}

TEST_F(KeyboardPlayingTest, AClickedKeySoundsUntilTheButtonIsUpWhereverTheMouseIs) {
    QTest::mousePress(&piano(), Qt::LeftButton, {}, middleOf(7));
    EXPECT_EQ(sent(), Lines{"90 2B 64"});
    EXPECT_EQ(seen(7), QColor(255, 0, 0));
    moveMouse(piano(), middleOf(20), Qt::LeftButton);
    QTest::mouseRelease(&piano(), Qt::LeftButton, {}, middleOf(20));
    EXPECT_EQ(sent(), Lines{"80 2B 00"});
    EXPECT_EQ(seen(7), QColor(255, 255, 255));
    QTest::mousePress(&piano(), Qt::RightButton, {}, middleOf(7));
    QTest::mouseRelease(&piano(), Qt::RightButton, {}, middleOf(7));
    EXPECT_EQ(std::ranges::count(sent(), "90 2B 64"), 0) << "only the left button plays";
}

TEST_F(KeyboardPlayingTest, AReleaseThatWasLostElsewhereDoesNotHoldTheKey) {
    QTest::mousePress(&piano(), Qt::LeftButton, {}, middleOf(7));
    sent();
    // Another window had the mouse when the button came up.
    QTest::mousePress(&piano(), Qt::LeftButton, {}, middleOf(20));
    EXPECT_EQ(sent().front(), "90 38 64");
    QTest::mouseRelease(&piano(), Qt::LeftButton, {}, middleOf(20));
    EXPECT_EQ(sent().front(), "80 38 00");
}

TEST_F(KeyboardPlayingTest, ABlackKeyLiesOverTheWhiteOnes) {
    const QRect black = piano().keyRect(1);
    QTest::mouseClick(&piano(), Qt::LeftButton, {}, black.center());
    EXPECT_EQ(sent().front(), "90 25 64");
}

TEST_F(KeyboardPlayingTest, TheMouseOverTheGroundStopsAllSound) {
    moveMouse(piano(), middleOf(3));
    sent();
    moveMouse(piano(), QPoint(3, 3));
    EXPECT_EQ(sent(), Lines{"reset"});
}

TEST_F(KeyboardPlayingTest, ThePanicBarShowsItsTextAndStopsAllSound) {
    auto& bar = part("Label4");
    const QImage resting = bar.grab().toImage();
    moveMouse(bar, QPoint(200, 10));
    EXPECT_EQ(sent(), Lines{"reset"});
    EXPECT_NE(bar.grab().toImage(), resting);
    EXPECT_EQ(controls().Label4.textColour(), (Colour{0x80, 0xFF, 0xFF}));
    EXPECT_EQ(bar.toolTip(), "Move cursor over Panic Bar to stop sound");
    press(Qt::Key_Z, "z");
    QTest::mouseClick(&bar, Qt::LeftButton, {}, QPoint(200, 10));
    EXPECT_EQ(seen(0), QColor(255, 255, 255));
}

TEST_F(KeyboardPlayingTest, AStrumThatRunsDoesNotSoundAReleasedDigitAgain) {
    controls().Text4.set("1");
    controls().Check8.set(true);
    controls().Chkstrum.set(true);
    time.at(5, [this] { release(Qt::Key_2, "2"); });
    press(Qt::Key_2, "2");
    const auto lines = sent();
    EXPECT_EQ(std::ranges::count(lines, "90 36 64"), 2) << "once as the root and once at the strum's end";
}

TEST_F(KeyboardPlayingTest, AListThatIsOpenHasTheKeysForItself) {
    open(0);
    auto& list = part<QComboBox>("Combo1");
    list.setFocus();
    list.showPopup();
    QCoreApplication::processEvents();
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    press(Qt::Key_Z, "z");
    EXPECT_TRUE(sent().empty());
    list.hidePopup();
}

TEST_F(KeyboardPlayingTest, KeysOfOtherWindowsAreTheirs) {
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Z, {}, "z");
    QCoreApplication::sendEvent(window.windowHandle(), &event);
    EXPECT_TRUE(sent().empty());
}

// What a key event comes to

class KeyCodes : public testing::Test {
 protected:
    static QKeyEvent event(int key, const QString& text, quint32 place = 0,
                           Qt::KeyboardModifiers modifiers = {}) {
        return QKeyEvent(QEvent::KeyPress, key, modifiers, place, 0, 0, text);
    }
    static int code(const QKeyEvent& event) {
        const auto typed = typedKey(event);
        return typed ? typed->code : -1;
    }
    static constexpr int firstNameless = 0xE000;
};

TEST_F(KeyCodes, LettersDigitsAndTheSpacebarAreNamed) {
    EXPECT_EQ(code(event(Qt::Key_A, "a")), 65);
    EXPECT_EQ(code(event(Qt::Key_Z, "Z", 52, Qt::ShiftModifier)), 90);
    EXPECT_EQ(code(event(Qt::Key_0, "0")), 48);
    EXPECT_EQ(code(event(Qt::Key_9, "9", 18)), 57);
    EXPECT_EQ(code(event(Qt::Key_Space, " ", 65)), 32);
}

TEST_F(KeyCodes, ALetterIsItsOwnWhereverItsKeyStands) {
    EXPECT_EQ(code(event(Qt::Key_Y, "y", 52)), 89) << "where a US keyboard has Z";
    EXPECT_EQ(code(event(Qt::Key_M, "m", 47)), 77);
}

TEST_F(KeyCodes, TheRowOfDigitsHasTheirCodesWhateverItTypes) {
    EXPECT_EQ(code(event(Qt::Key_Eacute, "é", 11)), 50);
    EXPECT_EQ(code(event(Qt::Key_Exclam, "!", 10, Qt::ShiftModifier)), 49);
    EXPECT_EQ(code(event(Qt::Key_Agrave, "à", 19)), 48);
    EXPECT_GE(code(event(Qt::Key_Minus, "-", 20)), firstNameless);
}

TEST_F(KeyCodes, AnAlphabetBeyondLatinGoesByThePlaces) {
    EXPECT_EQ(code(event(0x0424, "ф", 38)), 65);
    EXPECT_EQ(code(event(0x042F, "я", 52)), 90);
    EXPECT_GE(code(event(Qt::Key_Udiaeresis, "ü", 34)), firstNameless);
}

TEST_F(KeyCodes, EveryOtherKeyHasACodeOfItsOwnThatIsNoLabel) {
    const int comma = code(event(Qt::Key_Comma, ",", 59)), point = code(event(Qt::Key_Period, ".", 60));
    EXPECT_GE(comma, firstNameless);
    EXPECT_NE(comma, point);
    EXPECT_EQ(comma, code(event(Qt::Key_Less, "<", 59, Qt::ShiftModifier))) << "the same key";
    EXPECT_GE(code(event(Qt::Key_1, "1", 87, Qt::KeypadModifier)), firstNameless);
}

TEST_F(KeyCodes, TheCharacterIsTheOneThatWasTyped) {
    EXPECT_EQ(typedKey(event(Qt::Key_A, "a"))->character, 'a');
    EXPECT_EQ(typedKey(event(Qt::Key_A, "A"))->character, 'A');
    EXPECT_EQ(typedKey(event(Qt::Key_Eacute, "é"))->character, 0xE9);
    EXPECT_EQ(typedKey(event(Qt::Key_unknown, "𝄞"))->character, 0x1D11E);
}

TEST_F(KeyCodes, WhatTypesNothingIsNoKeyOfTheKeyboard) {
    for (const auto& [key, text] : {std::pair{Qt::Key_Tab, "\t"},
                                    {Qt::Key_Return, "\r"},
                                    {Qt::Key_Left, ""},
                                    {Qt::Key_Escape, "\x1b"},
                                    {Qt::Key_Backspace, "\b"}}) {
        EXPECT_FALSE(typedKey(event(key, text))) << key;
    }
    EXPECT_FALSE(typedKey(event(Qt::Key_A, "a", 38, Qt::ControlModifier)));
    EXPECT_FALSE(typedKey(event(Qt::Key_A, "ab")));
    EXPECT_TRUE(typedKey(event(Qt::Key_Q, "@", 24, Qt::ControlModifier | Qt::AltModifier)))
        << "the key for third characters";
}

}  // namespace melvane::test
