#include <gtest/gtest.h>

#include <iterator>

#include "layering/include_rules.h"
#include "layers.h"

namespace melvane::layering {
namespace {

using Lines = std::vector<std::string>;

Layers realLayers() {
    return {{std::begin(rooms), std::end(rooms)},
            {std::begin(windowFiles), std::end(windowFiles)},
            {std::begin(outerFolders), std::end(outerFolders)}};
}

class TheSources : public testing::Test {
 protected:
    static SourceTree readAll() {
        Lines folders = realLayers().outerFolders;
        folders.emplace_back("src");
        return readTree(projectFolder, folders);
    }
    SourceTree tree = readAll();
    Layers layers = realLayers();
};

TEST_F(TheSources, AreReadAsAWhole) {
    EXPECT_TRUE(tree.contains("src/platform/clock.h"));
    EXPECT_TRUE(tree.contains("tests/layering/layering_test.cpp"));
    EXPECT_EQ(tree.at("src/platform/clock.cpp").own, Lines{"platform/clock.h"});
    EXPECT_GE(layers.rooms.size(), 7U);
}
TEST_F(TheSources, StandEachInARoom) { EXPECT_EQ(filesWithoutARoom(tree, layers), Lines()); }
TEST_F(TheSources, IncludeTheirOwnRoomAndLowerOnes) { EXPECT_EQ(includesThatPointUp(tree, layers), Lines()); }
TEST_F(TheSources, IncludeEachOtherInNoLoop) { EXPECT_EQ(includeLoops(tree), Lines()); }
TEST_F(TheSources, IncludeOnlyWhatThereIs) { EXPECT_EQ(includesOfNothing(tree), Lines()); }
TEST_F(TheSources, UseQtInWindowFilesOnly) { EXPECT_EQ(qtInTheEngine(tree, layers), Lines()); }

// The rules themselves, on small trees that break them.

const Layers house{{"platform", "core", "synth|recorder", "shell"}, {"_window$", "^qt_"}, {"tests"}};

TEST(IncludeRules, AnIncludePointsDownOrStays) {
    const SourceTree tree{{"src/platform/a.h", {}},
                          {"src/core/b.h", {{"platform/a.h"}, {"vector"}}},
                          {"src/core/c.h", {{"core/b.h"}, {}}}};
    EXPECT_EQ(includesThatPointUp(tree, house), Lines());
}

TEST(IncludeRules, AnIncludeThatPointsUpIsFound) {
    const SourceTree tree{{"src/platform/a.h", {{"core/b.h"}, {}}}, {"src/core/b.h", {}}};
    EXPECT_EQ(includesThatPointUp(tree, house), Lines{"src/platform/a.h includes core/b.h"});
}

TEST(IncludeRules, AnIncludeUpByARelativePathIsFound) {
    const SourceTree tree{{"src/platform/a.h", {{"../core/b.h"}, {}}}, {"src/core/b.h", {}}};
    EXPECT_EQ(includesThatPointUp(tree, house), Lines{"src/platform/a.h includes ../core/b.h"});
}

TEST(IncludeRules, ARoomDoesNotIncludeTheOneBesideIt) {
    const SourceTree tree{{"src/synth/a.h", {}}, {"src/recorder/b.h", {{"synth/a.h"}, {}}}};
    EXPECT_EQ(includesThatPointUp(tree, house), Lines{"src/recorder/b.h includes synth/a.h"});
}

TEST(IncludeRules, NothingUnderTheSourcesIncludesATest) {
    const SourceTree tree{{"src/core/a.h", {{"../../tests/b.h"}, {}}}, {"tests/b.h", {{"core/a.h"}, {}}}};
    EXPECT_EQ(includesThatPointUp(tree, house), Lines{"src/core/a.h includes ../../tests/b.h"});
}

TEST(IncludeRules, ALoopIsFoundWhereverItBegins) {
    const SourceTree tree{{"src/core/a.h", {{"core/b.h"}, {}}},
                          {"src/core/b.h", {{"core/c.h"}, {}}},
                          {"src/core/c.h", {{"core/b.h"}, {}}}};
    EXPECT_EQ(includeLoops(tree), Lines{"src/core/b.h -> src/core/c.h -> src/core/b.h"});
}

TEST(IncludeRules, AFileThatIncludesItselfIsALoop) {
    const SourceTree tree{{"src/core/a.h", {{"core/a.h"}, {}}}};
    EXPECT_EQ(includeLoops(tree), Lines{"src/core/a.h -> src/core/a.h"});
}

TEST(IncludeRules, TwoWaysToOneFileAreNoLoop) {
    const SourceTree tree{{"src/core/a.h", {{"core/b.h", "core/c.h"}, {}}},
                          {"src/core/b.h", {{"core/c.h"}, {}}},
                          {"src/core/c.h", {}}};
    EXPECT_EQ(includeLoops(tree), Lines());
}

TEST(IncludeRules, QtInTheEngineIsFoundDirectlyAndThroughAFile) {
    const SourceTree tree{{"src/core/a.cpp", {{"core/main_window.h"}, {"vector"}}},
                          {"src/core/main_window.h", {{}, {"QWidget"}}},
                          {"src/core/b.h", {{}, {"QString", "QtCore/QObject", "qglobal.h", "queue"}}},
                          {"src/core/qt_c.h", {{}, {"QObject"}}}};
    EXPECT_EQ(qtInTheEngine(tree, house),
              (Lines{"src/core/a.cpp includes core/main_window.h", "src/core/b.h includes QString",
                     "src/core/b.h includes QtCore/QObject", "src/core/b.h includes qglobal.h"}));
}

TEST(IncludeRules, AnIncludeOfAFileThatIsNotThereIsFound) {
    const SourceTree tree{{"src/core/a.h", {{"core/gone.h"}, {}}}};
    EXPECT_EQ(includesOfNothing(tree), Lines{"src/core/a.h includes core/gone.h"});
}

TEST(IncludeRules, AFileOutsideTheRoomsIsFound) {
    const SourceTree tree{{"src/a.h", {}}, {"src/attic/b.h", {}}, {"src/core/c.h", {}}};
    EXPECT_EQ(filesWithoutARoom(tree, house),
              (Lines{"src/a.h is in no room", "src/attic/b.h is in no room"}));
}

TEST(IncludesOf, ReadsBothKindsAndPassesOverComments) {
    EXPECT_EQ(
        includesOf(
            "#pragma once\n#include <vector>\n  # include \"core/a.h\"  // why\n// #include \"core/b.h\"\n"),
        (Includes{{"core/a.h"}, {"vector"}}));
}

}  // namespace
}  // namespace melvane::layering
