// The finder of chords itself, on sounds that are made by arithmetic.
#include "chord_finder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace melvane::e2e {
namespace {

constexpr int rate = 44100;
constexpr double chordSeconds = 0.276, restSeconds = 0.138;

void addTones(std::vector<float>& sound, const Chord& chord) {
    const auto begin = sound.size();
    sound.resize(begin + static_cast<std::size_t>(chordSeconds * rate));
    for (std::size_t at = begin; at < sound.size(); ++at) {
        for (const int key : chord) {
            const double hertz = 440.0 * std::exp2((key - 69.0) / 12.0);
            const double turns = hertz * static_cast<double>(at - begin) / rate;
            sound[at] += static_cast<float>(0.3 * std::sin(2.0 * std::numbers::pi * turns));
        }
    }
    sound.resize(sound.size() + static_cast<std::size_t>(restSeconds * rate));
}

std::vector<float> soundOf(const std::vector<Chord>& chords) {
    std::vector<float> sound(rate / 10);
    for (const Chord& chord : chords) addTones(sound, chord);
    return sound;
}

TEST(ChordFinderTest, TheLevelOfASineIsItsAmplitude) {
    const auto sound = soundOf({{69}});
    const std::span<const float> tone = std::span(sound).subspan(rate / 10, rate / 5);
    EXPECT_NEAR(levelAt(tone, rate, 440), 0.3, 0.003);
    EXPECT_LT(levelAt(tone, rate, 466), 0.01);
}

TEST(ChordFinderTest, FindsTheChordsThatSound) {
    const std::vector<Chord> chords{{72, 69}, {79, 75}, {74, 69}};
    EXPECT_EQ(chordFaults(soundOf(chords), rate, chords), "");
}

TEST(ChordFinderTest, FindsASemitoneTooHighAMissingVoiceAndAMissingChord) {
    const std::vector<Chord> chords{{72, 69}, {79, 75}, {74, 69}};
    EXPECT_NE(chordFaults(soundOf({{72, 69}, {79, 76}, {74, 69}}), rate, chords), "");
    EXPECT_NE(chordFaults(soundOf({{72, 69}, {79}, {74, 69}}), rate, chords), "");
    EXPECT_NE(chordFaults(soundOf({{72, 69}, {79, 75}}), rate, chords), "");
    EXPECT_NE(chordFaults(soundOf({{79, 75}, {72, 69}, {74, 69}}), rate, chords), "");
}

TEST(ChordFinderTest, ASoundThatPlaysTooSlowlyIsFoundByItsOwnRate) {
    const int aSemitoneFaster = static_cast<int>(std::lround(rate * std::exp2(1 / 12.0)));
    const auto sound = soundOf({{71, 68}, {78, 74}});
    EXPECT_EQ(chordFaults(sound, aSemitoneFaster, {{72, 69}, {79, 75}}), "");
    EXPECT_NE(chordFaults(sound, rate, {{72, 69}, {79, 75}}), "");
}

TEST(ChordFinderTest, CountsTheChordsThatAreHeardInTheirOrder) {
    const std::vector<Chord> chords{{72, 69}, {79, 75}, {74, 69}};
    EXPECT_EQ(chordsInOrder(soundOf(chords), rate, chords), 3);
    EXPECT_EQ(chordsInOrder(soundOf({{72, 69}, {72, 69}, {79, 75}, {74, 69}}), rate, chords), 3);
    EXPECT_EQ(chordsInOrder(soundOf({{72, 69}, {74, 69}}), rate, chords), 2);
    EXPECT_EQ(chordsInOrder(soundOf({{74, 69}, {72, 69}}), rate, chords), 1);
    EXPECT_EQ(chordsInOrder(soundOf({{60, 65}}), rate, chords), 0);
}

TEST(ChordFinderTest, ADistanceThatIsNotTheOneExpectedIsTold) {
    const auto sound = soundOf({{72}, {74}, {76}});
    const double distance = chordSeconds + restSeconds;
    EXPECT_EQ(distanceFaults(sound, rate, {0, distance, 2 * distance}, 0.005), "");
    EXPECT_NE(distanceFaults(sound, rate, {0, distance, 2 * distance + 0.01}, 0.005), "");
    EXPECT_NE(distanceFaults(sound, rate, {0, distance}, 0.005), "");
    EXPECT_NEAR(meanDistance(sound, rate), distance, 0.005);
}

}  // namespace
}  // namespace melvane::e2e
