#include <set>

#include "keyboard_fixture.h"
#include "synth/key_colours.h"

namespace melvane::test {
namespace {

class KeyLayoutTest : public KeyboardTest {
 protected:
    const WindowPlace& key(int index) { return window().CmdKey[static_cast<std::size_t>(index)].place(); }
    const WindowPlace& labelAt(int index) { return window().NoteX[static_cast<std::size_t>(index)].place(); }
};

TEST_F(KeyLayoutTest, TheBlackKeysAreThoseOfAPianoThatBeginsOnC) {
    const std::set<int> black{1, 3, 6, 8, 10, 13, 15, 18, 20, 22, 25, 27, 30, 32, 34, 37, 39, 42};
    for (int index = 0; index < Keyboard::keys; ++index) {
        EXPECT_EQ(isBlackKey(index), black.contains(index)) << index;
        EXPECT_EQ(colourOf(index), black.contains(index) ? (Colour{0, 0, 0}) : (Colour{255, 255, 255}))
            << index;
    }
}

TEST_F(KeyLayoutTest, TheKeysLieAsTheDesignHasThem) {
    EXPECT_EQ(key(0), (WindowPlace{0, -15, 345, 1800}));
    EXPECT_EQ(key(1), (WindowPlace{120, -450, 210, 1200}));
    EXPECT_EQ(key(2), (WindowPlace{330, -15, 345, 1800})) << "from the right edge of the black key";
    EXPECT_EQ(key(4), (WindowPlace{660, -15, 345, 1800}));
    EXPECT_EQ(key(5), (WindowPlace{1005, -15, 345, 1800})) << "from the right edge of the white key";
    EXPECT_EQ(labelAt(0), (WindowPlace{15, 1125, 315, 240}));
    EXPECT_EQ(labelAt(1), (WindowPlace{120, 600, 210, 240}));
}

TEST_F(KeyLayoutTest, ThePanelsAreAsWideAsTheKeys) {
    const double width = key(43).left + key(43).width;
    EXPECT_EQ(width, 8700);
    EXPECT_EQ(window().Picture1.place().width, width);
    EXPECT_EQ(window().Picture5.place().width, width);
    EXPECT_EQ(window().Text14.text(), "8700");
}

TEST_F(KeyLayoutTest, AnotherWidthScalesTheKeysButNotTheStepToABlackOne) {
    synth().layout.ResizeKeys(2.14);
    EXPECT_EQ(key(0), (WindowPlace{0, -15, 690, 1800}));
    EXPECT_EQ(key(1), (WindowPlace{120, -450, 420, 1200}));
    EXPECT_EQ(key(2), (WindowPlace{120 + 420 - 15, -15, 690, 1800}));
    EXPECT_EQ(labelAt(0), (WindowPlace{15, 1125, 660, 240}));
    EXPECT_EQ(labelAt(1), (WindowPlace{120, 600, 660, 240}))
        << "as wide as the first key allows, black or white";
}

TEST_F(KeyLayoutTest, EvenTheFormerWidthMakesTheKeysNarrower) {
    synth().layout.ResizeKeys(1);
    EXPECT_DOUBLE_EQ(key(0).width, 345 * 0.86);
    EXPECT_DOUBLE_EQ(key(2).left, 120 + 210 * 0.86 - 15);
}

TEST_F(KeyLayoutTest, WhileTheKeysMoveTheirPanelIsHiddenAndTheLabelsEndDisabled) {
    window().Check1.userPut(true);
    std::vector<bool> shown;
    window().Picture1.changed = [&] { shown.push_back(window().Picture1.visible()); };
    bool served = false;
    time.serveToolkit = [&] { served = window().Picture1.visible(); };
    synth().layout.ResizeKeys(1.5);
    time.serveToolkit = nullptr;
    EXPECT_EQ(shown, (std::vector<bool>{false, true}));
    EXPECT_TRUE(served) << "events are served at the end";
    for (const KeyLabel& field : window().NoteX) EXPECT_FALSE(field.enabled());
}

TEST_F(KeyLayoutTest, AWidthThatIsNoneLeavesTheKeysWithoutHarm) {
    for (const double scale : {0.0, -3.0, 1e9}) {
        synth().layout.ResizeKeys(scale);
        EXPECT_GE(key(43).width, 0);
    }
    synth().layout.ResizeKeys(1.5);
    const WindowPlace before = key(7);
    synth().layout.ResizeKeys(1.0 / 0.0);
    EXPECT_EQ(key(7), before);
}

TEST_F(KeyLayoutTest, AKeyIsWhiteByWhereItsTopLies) {
    window().CmdKey[0].setPlace({0, -101, 345, 1800});
    paintResting(studio, 0);
    EXPECT_EQ(colourOf(0), (Colour{0, 0, 0}));
    window().CmdKey[1].setPlace({0, -99, 345, 1800});
    paintResting(studio, 1);
    EXPECT_EQ(colourOf(1), (Colour{255, 255, 255}));
    EXPECT_EQ(window().NoteX[1].backColour(), (Colour{255, 255, 255}));
}

}  // namespace
}  // namespace melvane::test
