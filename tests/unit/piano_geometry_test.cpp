#include "synth/piano_geometry.h"

#include <gtest/gtest.h>

#include <vector>

#include "synth/key_colours.h"

namespace melvane::test {

class PianoGeometryTest : public testing::TestWithParam<std::pair<int, int>> {
 protected:
    PianoGeometry keys{GetParam().first, GetParam().second};
    static bool isRoomy() { return GetParam().first >= 300 && GetParam().second >= 50; }
    std::vector<int> ofColour(bool black) {
        std::vector<int> found;
        for (int index = 0; index < Keyboard::keys; ++index) {
            if (isBlackKey(index) == black) found.push_back(index);
        }
        return found;
    }
};

TEST_P(PianoGeometryTest, TheWhiteKeysFillTheWidthSideBySide) {
    const auto whites = ofColour(false);
    ASSERT_EQ(whites.size(), static_cast<std::size_t>(PianoGeometry::whiteKeys));
    int right = 0;
    for (const int index : whites) {
        const KeyBox box = keys.key(index);
        EXPECT_EQ(box.left, right) << index;
        EXPECT_EQ(box.top, 0);
        EXPECT_EQ(box.height, GetParam().second);
        right = box.left + box.width;
    }
    EXPECT_EQ(right, GetParam().first);
}

TEST_P(PianoGeometryTest, EachBlackKeyLiesOverTheJointOfItsNeighbours) {
    if (!isRoomy()) return;  // a key is no pixel wide there
    for (const int index : ofColour(true)) {
        const KeyBox box = keys.key(index), right = keys.key(index + 1), left = keys.key(index - 1);
        EXPECT_LE(box.left, right.left) << index;
        EXPECT_GE(box.left + box.width, right.left) << index;
        EXPECT_GE(box.left, left.left) << index;
        EXPECT_LE(box.left + box.width, right.left + right.width) << index;
        EXPECT_LE(box.height, left.height);
    }
}

TEST_P(PianoGeometryTest, APixelOfAKeyIsThatKeys) {
    for (int index = 0; isRoomy() && index < Keyboard::keys; ++index) {
        const KeyBox box = keys.key(index);
        EXPECT_EQ(keys.keyAt(box.left + box.width / 2, box.height - 1), index);
    }
    EXPECT_EQ(keys.keyAt(-1, 0), Keyboard::noKey);
    EXPECT_EQ(keys.keyAt(0, -1), Keyboard::noKey);
    EXPECT_EQ(keys.keyAt(GetParam().first, 0), Keyboard::noKey);
    EXPECT_EQ(keys.keyAt(0, GetParam().second), Keyboard::noKey);
}

TEST_P(PianoGeometryTest, ALabelStandsOnItsKey) {
    for (int index = 0; index < Keyboard::keys; ++index) {
        const KeyBox box = keys.key(index), label = keys.label(index);
        EXPECT_GE(label.left, box.left);
        EXPECT_GE(label.width, 0);
        EXPECT_LE(label.top + label.height, box.height);
        EXPECT_LE(label.width, box.width);
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, PianoGeometryTest,
                         testing::Values(std::pair{1050, 205}, std::pair{1051, 120}, std::pair{520, 60},
                                         std::pair{2000, 400}, std::pair{26, 10}, std::pair{0, 0}));

TEST(PianoGeometry, AnIndexThatIsNoKeyHasNoPlace) {
    const PianoGeometry keys(1000, 200);
    EXPECT_EQ(keys.key(-1), KeyBox());
    EXPECT_EQ(keys.key(Keyboard::noKey), KeyBox());
}

}  // namespace melvane::test
