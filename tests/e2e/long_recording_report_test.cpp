// What the comparison of a long recording sees, on renderings that were spoiled on purpose.
#include "long_recording_report.h"

#include <gtest/gtest.h>

#include "child_process.h"
#include "sound_files.h"
#include "tune.h"
#include "unit/temporary_folder.h"

namespace melvane::e2e {
namespace {

constexpr std::size_t block = 512;  // frames

class LongRecordingReportTest : public testing::Test {
 protected:
    void SetUp() override {
        const std::string rendered = folder.file("tune.wav");
        const std::string score = folder.make("tune.sng", tune.asScore());
        ASSERT_EQ(sound_test::ChildProcess::start({MELVANE_RENDER, score, rendered}).wait(), 0);
        const auto read = readPlainWav(rendered);
        ASSERT_TRUE(read);
        rate = read->rate;
        exact = spoiled = read->left;
    }

    /// Frames behind the onset of a chord, which begin one column after the start.
    std::ptrdiff_t inChord(int chord, double seconds) const {
        const double column = tune.playedSpacing() / Tune::columnsAChord;
        return static_cast<std::ptrdiff_t>((2 * column + chord * tune.playedSpacing() + seconds) * rate);
    }
    LongRecordingReport compare() const { return compareRecordings(spoiled, exact, rate); }
    bool passes() const { return isWhole(compare(), static_cast<int>(tune.chords.size())); }

    test::TemporaryFolder folder;
    const Tune tune = makeSteadyTune(8);
    int rate = 0;
    std::vector<float> exact, spoiled;
};

TEST_F(LongRecordingReportTest, AWholeRecordingPasses) {
    EXPECT_TRUE(passes());
    EXPECT_EQ(compare().compared, 8);
    EXPECT_EQ(compare().drift, 0.0);
}

TEST_F(LongRecordingReportTest, SoundLostBetweenChordsMakesADistanceTooShort) {
    const auto place = spoiled.begin() + inChord(3, 0.35);
    spoiled.erase(place, place + block);
    EXPECT_NEAR(compare().shortest, 1000.0 * block / rate, 0.1);
    EXPECT_FALSE(passes());
}

TEST_F(LongRecordingReportTest, SoundLostWithinAChordBreaksIt) {
    const auto place = spoiled.begin() + inChord(3, 0.1);
    spoiled.erase(place, place + block);
    EXPECT_EQ(compare().broken, 1);
    EXPECT_FALSE(passes());
}

TEST_F(LongRecordingReportTest, SoundDoubledWithinAChordBreaksIt) {
    const auto place = inChord(3, 0.1);
    const std::vector<float> doubled(spoiled.begin() + place, spoiled.begin() + place + block);
    spoiled.insert(spoiled.begin() + place, doubled.begin(), doubled.end());
    EXPECT_EQ(compare().broken, 1);
    EXPECT_FALSE(passes());
}

TEST_F(LongRecordingReportTest, AMissingChordIsMissed) {
    std::fill(spoiled.begin() + inChord(3, -0.02), spoiled.begin() + inChord(3, 0.38), 0.0F);
    EXPECT_EQ(compare().onsets, 7);
    EXPECT_FALSE(passes());
}

TEST_F(LongRecordingReportTest, ChordsThatComeLateAreNoFault) {
    spoiled.insert(spoiled.begin() + inChord(3, 0.35), 2 * block, 0.0F);
    EXPECT_NEAR(compare().longest, 2000.0 * block / rate, 0.1);
    EXPECT_NEAR(compare().drift, 2000.0 * block / rate, 0.1);
    EXPECT_TRUE(passes());
}

}  // namespace
}  // namespace melvane::e2e
