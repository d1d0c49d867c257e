#include <gtest/gtest.h>

#include <fstream>

#include "platform/synthesizer.h"
#include "platform_sound_helpers.h"

namespace melvane {
namespace {

using namespace sound_test;

constexpr double noDelay = 0.0;
constexpr std::int64_t slowestAttack = 100;  // frames that a SoundFont's claves take to be heard

class PlayingSynthesizer : public testing::Test {
 protected:
    void SetUp() override { ASSERT_EQ(synthesizer.loadSoundFont(anySoundFont()), std::nullopt); }

    /// Frames from `moment` to the sound of a claves struck then, with rendering begun at 0.
    std::int64_t onsetAfter(std::int64_t moment, std::size_t block = 256) {
        Synthesizer fresh(clock, noDelay);
        fresh.loadSoundFont(anySoundFont());
        fresh.send(noteOn(drums, claves), moment);
        const auto sound = render(fresh, static_cast<std::size_t>(moment) + 4000, 0, block);
        return static_cast<std::int64_t>(firstSound(sound).value_or(0)) - moment;
    }

    FrameClock clock;
    Synthesizer synthesizer{clock, noDelay};
};

TEST_F(PlayingSynthesizer, PlacesANoteWithin16FramesWhereverItsMomentLies) {
    constexpr std::size_t apart = 128 * 64;  // long enough for a claves to end
    std::int64_t earliest = 1'000'000;
    std::int64_t latest = 0;
    for (std::int64_t shift = 0; shift < 70; ++shift) {
        const std::int64_t start = shift * static_cast<std::int64_t>(apart);
        synthesizer.reset(start);
        synthesizer.send(noteOn(drums, claves), start + 1000 + shift);
        const auto onset = firstSound(render(synthesizer, apart, start), 0.03F);
        ASSERT_TRUE(onset);
        earliest = std::min(earliest, static_cast<std::int64_t>(*onset) - 1000 - shift);
        latest = std::max(latest, static_cast<std::int64_t>(*onset) - 1000 - shift);
    }
    EXPECT_GE(earliest, 48);
    EXPECT_LE(latest, 48 + 16 + slowestAttack);
    EXPECT_LE(latest - earliest, 16);
}

TEST_F(PlayingSynthesizer, PlacesANoteAlikeInBlocksOfAnySize) {
    const std::int64_t onset = onsetAfter(3000, 256);
    for (const std::size_t block : {1U, 63U, 64U, 441U, 512U, 4096U})
        EXPECT_EQ(onsetAfter(3000, block), onset) << block;
}

TEST_F(PlayingSynthesizer, PlacesANoteOneDelayAfterItsStamp) {
    constexpr double delay = 0.02;
    Synthesizer delayed(clock, delay);
    ASSERT_EQ(delayed.loadSoundFont(anySoundFont()), std::nullopt);
    clock.now = 1000;
    delayed.send(noteOn(drums, claves));
    const auto onset = firstSound(render(delayed, 8000));
    ASSERT_TRUE(onset);
    EXPECT_EQ(static_cast<std::int64_t>(*onset), 1000 + 882 + onsetAfter(1000 + 882));
    EXPECT_EQ(delayed.lateMessages(), 0U);
}

TEST_F(PlayingSynthesizer, PlaysALateMessageAtTheFirstFrame) {
    synthesizer.send(noteOn(drums, claves), 100);
    const auto onset = firstSound(render(synthesizer, 4000, 5000));
    ASSERT_TRUE(onset);
    EXPECT_LT(*onset, static_cast<std::size_t>(64 + slowestAttack));
    EXPECT_EQ(synthesizer.lateMessages(), 1U);
}

TEST_F(PlayingSynthesizer, IgnoresWhatIsOutOfRange) {
    synthesizer.send(noteOn(0, 200), 0);
    synthesizer.send(0x0040'40F0, 0);
    synthesizer.send(0xFFFF'0AB0, 0);
    synthesizer.send(program(0, 130), 0);
    synthesizer.send(0, 0);
    EXPECT_LT(peak(render(synthesizer, 4000)), 1e-6F);
}

TEST_F(PlayingSynthesizer, EndsANoteInWhateverLaneItWasStruck) {
    synthesizer.send(program(0, squareLead), 0);
    for (std::int64_t i = 0; i < 16; ++i) {
        synthesizer.send(noteOn(0, 60), 1000 + i * 37);
        if (i % 2 == 0) synthesizer.send(noteOff(0, 60), 1000 + i * 37 + 20);
    }
    synthesizer.send(noteOff(0, 60), 3000);
    const auto sound = render(synthesizer, 3 * soundRate);
    EXPECT_GT(peak(std::span(sound).first(4000)), 0.05F);
    EXPECT_LT(peak(std::span(sound).last(2000)), 0.001F);
}

TEST_F(PlayingSynthesizer, ResetSilencesAtOnceWithSustainHeld) {
    synthesizer.send(program(0, squareLead), 0);
    synthesizer.send(controller(0, 64, 127), 0);
    for (std::uint32_t key = 48; key < 60; ++key) synthesizer.send(noteOn(0, key), 10);
    synthesizer.send(noteOff(0, 50), 20000);
    synthesizer.reset(soundRate);
    const auto sound = render(synthesizer, 2 * soundRate);
    const float before = peak(std::span(sound).subspan(soundRate, 20000));
    const float after = peak(std::span(sound).subspan(2 * (soundRate + 512), 20000));
    EXPECT_GT(before, 0.2F);
    EXPECT_LT(after, 0.01F * before);
}

TEST_F(PlayingSynthesizer, ResetMakesNoClick) {
    synthesizer.send(program(0, 73), 0);  // a flute, whose own steps are small
    synthesizer.send(noteOn(0, 60), 10);
    synthesizer.reset(soundRate + 17);
    const auto sound = render(synthesizer, 2 * soundRate);
    const auto largestStep = [&](std::size_t first, std::size_t frames) {
        float largest = 0.0F;
        for (std::size_t i = 2 * first + 2; i < 2 * (first + frames); ++i) {
            largest = std::max(largest, std::abs(sound[i] - sound[i - 2]));
        }
        return largest;
    };
    const float playing = largestStep(soundRate - 8000, 8000);
    EXPECT_LE(largestStep(soundRate, 1000), 1.5F * playing);
}

TEST_F(PlayingSynthesizer, ResetKeepsProgramsAndControllersButNotTheSustain) {
    Synthesizer untouched(clock, noDelay);
    ASSERT_EQ(untouched.loadSoundFont(anySoundFont()), std::nullopt);
    for (Synthesizer* each : {&synthesizer, &untouched}) {
        each->send(program(3, squareLead), 0);
        each->send(controller(3, 10, 0), 0);  // all to the left
    }
    synthesizer.send(controller(3, 64, 127), 5);
    synthesizer.reset(10);
    for (Synthesizer* each : {&synthesizer, &untouched}) {
        each->send(noteOn(3, 60), 1000);
        each->send(noteOff(3, 60), 10000);
    }
    EXPECT_EQ(render(synthesizer, 3 * soundRate), render(untouched, 3 * soundRate));
}

TEST_F(PlayingSynthesizer, SoundsANoteThatFollowsAResetAtTheSameMoment) {
    synthesizer.reset(1000);
    synthesizer.send(noteOn(drums, claves), 1000);
    EXPECT_EQ(firstSound(render(synthesizer, 4000)), 1000 + onsetAfter(1000));
}

TEST_F(PlayingSynthesizer, EndsEveryNoteWhenMessagesWereLost) {
    synthesizer.send(program(0, squareLead), 0);
    synthesizer.send(noteOn(0, 60), 0);
    EXPECT_GT(peak(render(synthesizer, 20000)), 0.05F);
    while (synthesizer.droppedMessages() == 0) synthesizer.send(controller(0, 1, 0), 20000);
    render(synthesizer, 1000, 20000);
    EXPECT_LT(peak(render(synthesizer, 20000, 21000)), 0.01F);
}

TEST(Synthesizer, SaysThatThereIsNoSoundFontAndGoesOnSilently) {
    FrameClock clock;
    Synthesizer synthesizer(clock, noDelay);
    const auto message = synthesizer.loadSoundFont({});
    ASSERT_TRUE(message);
    EXPECT_NE(message->find("There is no SoundFont"), std::string::npos);
    for (int i = 0; i < 20'000; ++i) {
        synthesizer.send(noteOn(0, 60), 0);
        if (i % 1000 == 0) {
            EXPECT_EQ(peak(render(synthesizer, 512)), 0.0F);
        }
    }
    EXPECT_EQ(synthesizer.droppedMessages(), 0U);
}

TEST(Synthesizer, SaysWhichSoundFontIsDamaged) {
    const TemporaryFolder folder;
    const std::string broken = folder.file("broken.sf2");
    std::ofstream(broken) << "RIFF....sfbkLIST, and nothing that belongs there";
    FrameClock clock;
    Synthesizer synthesizer(clock, noDelay);
    const auto message = synthesizer.loadSoundFont({broken});
    ASSERT_TRUE(message);
    EXPECT_NE(message->find(broken), std::string::npos);
    EXPECT_NE(message->find("cannot be read"), std::string::npos);
    synthesizer.send(noteOn(0, 60), 0);
    EXPECT_EQ(peak(render(synthesizer, 512)), 0.0F);
}

TEST(Synthesizer, TakesTheNextSoundFontWhenTheFirstIsDamaged) {
    const TemporaryFolder folder;
    std::vector<std::string> fonts = anySoundFont();
    ASSERT_FALSE(fonts.empty());
    fonts.insert(fonts.begin(), folder.file("missing.sf2"));
    FrameClock clock;
    Synthesizer synthesizer(clock, noDelay);
    EXPECT_EQ(synthesizer.loadSoundFont(fonts), std::nullopt);
    synthesizer.send(noteOn(drums, claves), 0);
    EXPECT_GT(peak(render(synthesizer, 4000)), 0.01F);
}

TEST(Synthesizer, KeepsWhatIsSentWhileItsSoundFontLoads) {
    FrameClock clock;
    Synthesizer synthesizer(clock, noDelay);
    synthesizer.expectSoundFont();
    synthesizer.send(noteOn(drums, claves), 0);
    EXPECT_EQ(peak(render(synthesizer, 4000)), 0.0F);
    ASSERT_EQ(synthesizer.loadSoundFont(anySoundFont()), std::nullopt);
    EXPECT_GT(peak(render(synthesizer, 4000, 4000)), 0.01F);
}

TEST(SoundFont, KeepsTheOrderAndLeavesOutWhatIsNotInstalled) {
    const TemporaryFolder folder;
    std::ofstream(folder.file("b.sf2")) << "b";
    std::ofstream(folder.file("a.sf2")) << "a";
    const std::vector<std::string> wanted = {folder.file("none.sf2"), folder.file("b.sf2"),
                                             folder.file("a.sf2")};
    EXPECT_EQ(installedSoundFonts(wanted), (std::vector{folder.file("b.sf2"), folder.file("a.sf2")}));
}

TEST(SoundFont, PrefersTheLargerFontToTheSmallOne) {
    const auto candidates = soundFontCandidates();
    const auto position = [&](const std::string& path) { return std::ranges::find(candidates, path); };
    const auto large = position("/usr/share/sounds/sf2/FluidR3_GM.sf2");
    const auto small = position("/usr/share/sounds/sf2/TimGM6mb.sf2");
    ASSERT_NE(small, candidates.end());
    EXPECT_LT(large, small);
    EXPECT_LT(small, position("/usr/share/sounds/sf2/default-GM.sf2"));
}

}  // namespace
}  // namespace melvane
