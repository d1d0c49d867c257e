#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <random>
#include <thread>

#include "platform/sound_card.h"
#include "platform/sound_mixer.h"
#include "platform/sound_output_watcher.h"
#include "platform/sound_puller.h"
#include "platform/sound_stream_clock.h"
#include "platform_sound_helpers.h"

namespace melvane {
namespace {

using namespace sound_test;

class ConstantSource final : public SoundSource {
 public:
    explicit ConstantSource(float value) : value_(value) {}
    void mix(std::span<float> interleaved, std::int64_t) noexcept override {
        for (float& each : interleaved) each += value_;
    }

 private:
    float value_;
};

/// Notes where each block begins and what it holds.
class NotingTap final : public SoundTap {
 public:
    void hear(std::span<const float> interleaved, std::int64_t moment) noexcept override {
        if (!moments.empty() && moment != end) ++gaps;
        moments.push_back(moment);
        end = moment + static_cast<std::int64_t>(interleaved.size() / soundChannels);
        frames += interleaved.size() / soundChannels;
        lastValue = interleaved.back();
    }
    std::vector<std::int64_t> moments;
    std::int64_t end = 0;
    std::size_t frames = 0;
    int gaps = 0;
    float lastValue = 0.0F;
};

auto at(std::int64_t moment) {
    return [moment] { return moment; };
}

TEST(SoundMixer, AddsItsSourcesAndHandsTheMixToItsTaps) {
    ConstantSource a(0.25F);
    ConstantSource b(0.5F);
    NotingTap tap;
    SoundMixer mixer({&a, &b}, {&tap}, soundRate);
    std::vector<float> block(20, 9.0F);
    EXPECT_TRUE(mixer.render(mixer.handOver(), block, at(100)));
    EXPECT_EQ(block, std::vector<float>(20, 0.75F));
    EXPECT_EQ(tap.lastValue, 0.75F);
    EXPECT_EQ(mixer.renderedUpTo(), 110);
}

TEST(SoundMixer, ServesOnlyTheLastToWhomItWasHandedOver) {
    ConstantSource source(0.5F);
    NotingTap tap;
    SoundMixer mixer({&source}, {&tap}, soundRate);
    const auto first = mixer.handOver();
    const auto second = mixer.handOver();
    std::vector<float> block(20, 9.0F);
    EXPECT_FALSE(mixer.render(first, block, at(0)));
    EXPECT_EQ(block, std::vector<float>(20, 0.0F));
    EXPECT_TRUE(mixer.render(second, block, at(0)));
    mixer.close();
    EXPECT_FALSE(mixer.render(second, block, at(0)));
    EXPECT_FALSE(mixer.render(mixer.handOver(), block, at(0)));
    EXPECT_EQ(tap.frames, 10U);
}

class Pulling : public testing::Test {
 protected:
    NotingTap tap;
    SoundMixer mixer{{}, {&tap}, soundRate};
    SoundPuller puller{mixer, soundRate};
};

TEST_F(Pulling, RendersEveryBlockThatIsDueAndNoneBefore) {
    puller.start(1000);
    EXPECT_EQ(puller.pull(1000), 1441);
    EXPECT_EQ(tap.frames, 441U);
    EXPECT_EQ(puller.pull(1440), 1441);
    EXPECT_EQ(tap.frames, 441U);
    EXPECT_EQ(puller.pull(1000 + 4410), 1000 + 11 * 441);
    EXPECT_EQ(tap.frames, 11U * 441U);
    EXPECT_EQ(tap.gaps, 0);
}

TEST_F(Pulling, KeepsRealTimeOverAMinuteOfUnevenCalls) {
    std::mt19937 random(1);
    std::int64_t now = 0;
    puller.start(now);
    while (now < 60 * soundRate) {
        now = puller.pull(now) + static_cast<std::int64_t>(random() % 900);
    }
    puller.pull(now);
    EXPECT_NEAR(static_cast<double>(tap.frames), static_cast<double>(now), 441.0);
    EXPECT_EQ(tap.gaps, 0);
}

TEST_F(Pulling, GoesOnWhereTheOutputEnded) {
    std::vector<float> block(2 * 256);
    mixer.render(mixer.handOver(), block, at(5000));
    puller.start(20'000);
    puller.pull(20'000);
    EXPECT_EQ(tap.gaps, 0);
    EXPECT_GT(tap.end, 20'000);
}

TEST_F(Pulling, DoesNotMakeUpForALongSleep) {
    puller.start(0);
    puller.pull(441);
    puller.pull(100 * soundRate);
    EXPECT_LT(tap.frames, 2000U);
}

/// The moments of `blocks` blocks of 256 frames, asked for with the given lateness in frames.
template <typename Lateness>
std::vector<std::int64_t> momentsOf(StreamClock& stream, int blocks, Lateness lateness) {
    std::vector<std::int64_t> moments;
    for (int block = 0; block < blocks; ++block)
        moments.push_back(stream.next(block * 256 + lateness(block), 256));
    return moments;
}

TEST(StreamClock, RunsEvenlyWhenBlocksAreAskedForInBursts) {
    StreamClock stream(soundRate);
    std::mt19937 random(2);
    const auto moments = momentsOf(stream, 4000, [&](int block) {
        return (3 - block % 4) * 256 + static_cast<std::int64_t>(random() % 200);
    });
    for (std::size_t block = 1000; block < moments.size(); ++block) {
        ASSERT_NEAR(static_cast<double>(moments[block] - moments[block - 1]), 256.0, 2.0) << block;
    }
}

TEST(StreamClock, FollowsAnOutputThatRunsFasterThanTheClock) {
    StreamClock stream(soundRate);
    constexpr double faster = 0.9998;
    std::int64_t last = 0;
    for (int block = 0; block < 20'000; ++block)
        last = stream.next(static_cast<std::int64_t>(block * 256 * faster), 256);
    EXPECT_NEAR(static_cast<double>(last), 19'999 * 256 * faster, 0.002 * soundRate);
}

TEST(StreamClock, IgnoresOneLateBlockAndFollowsALastingJump) {
    StreamClock stream(soundRate);
    momentsOf(stream, 1000, [](int) { return 0; });
    EXPECT_NEAR(static_cast<double>(stream.next(1000 * 256 + 5000, 256)), 1000.0 * 256, 2.0);
    for (int block = 1001; block < 1020; ++block) stream.next(block * 256 + 20'000, 256);
    EXPECT_NEAR(static_cast<double>(stream.next(1020 * 256 + 20'000, 256)), 1020.0 * 256 + 20'000, 300.0);
}

/// An output that the test drives: it fails, stands still or is missing as told.
struct ScriptedMachine {
    struct Output final : SoundOutput {
        Output(ScriptedMachine& owner, Fill filler) : machine(owner), fill(std::move(filler)) {
            machine.open = this;
        }
        ~Output() override { machine.open = nullptr; }
        bool isLost() const override { return lost; }
        std::uint64_t blocks() const override { return count; }
        void ask() {
            std::vector<float> block(2 * 256);
            fill(block);
            ++count;
            heard = block.back();
        }
        ScriptedMachine& machine;
        Fill fill;
        bool lost = false;
        std::uint64_t count = 0;
        float heard = 0.0F;
    };

    SoundOutput::Opener opener() {
        return [this](const SoundOutput::Fill& fill) -> std::unique_ptr<SoundOutput> {
            if (!isThere) return nullptr;
            return std::make_unique<Output>(*this, fill);
        };
    }
    bool isThere = true;
    Output* open = nullptr;
};

class Watching : public testing::Test {
 protected:
    std::optional<std::string> notice() {
        if (core->notices.empty()) return std::nullopt;
        const std::string text = core->notices.front();
        core->notices.pop_front();
        return text;
    }

    FrameClock clock;
    ConstantSource source{0.5F};
    NotingTap tap;
    std::shared_ptr<SoundCardCore> core = std::make_shared<SoundCardCore>(
        clock, std::vector<SoundSource*>{&source}, std::vector<SoundTap*>{&tap});
    ScriptedMachine machine;
    OutputWatcher watcher{core, machine.opener()};
};

TEST_F(Watching, GivesTheStreamToTheOutputAndSaysNothing) {
    core->puller.start(0);
    EXPECT_TRUE(watcher.look());
    machine.open->ask();
    EXPECT_EQ(machine.open->heard, 0.5F);
    EXPECT_TRUE(core->hasOutput);
    EXPECT_FALSE(core->puller.isPulling());
    EXPECT_EQ(notice(), std::nullopt);
}

TEST_F(Watching, TellsOnceThatThereIsNoOutput) {
    machine.isThere = false;
    EXPECT_FALSE(watcher.look());
    EXPECT_FALSE(watcher.look());
    EXPECT_TRUE(core->puller.isPulling());
    EXPECT_EQ(notice(), SoundCard::noOutputNotice);
    EXPECT_EQ(notice(), std::nullopt);
    machine.isThere = true;
    EXPECT_TRUE(watcher.look());
    EXPECT_EQ(notice(), SoundCard::backNotice);
}

TEST_F(Watching, LetsThePullerGoOnWhenTheOutputIsLostAndTakesANewOne) {
    EXPECT_TRUE(watcher.look());
    machine.open->ask();
    machine.open->lost = true;
    machine.isThere = false;
    EXPECT_FALSE(watcher.look());
    EXPECT_EQ(machine.open, nullptr);
    EXPECT_EQ(notice(), SoundCard::lostNotice);
    EXPECT_FALSE(watcher.look());
    EXPECT_EQ(notice(), std::nullopt);
    clock.now = 4410;
    core->puller.pull(clock.now);
    EXPECT_GE(tap.frames, 4410U);

    machine.isThere = true;
    EXPECT_TRUE(watcher.look());
    EXPECT_EQ(notice(), SoundCard::backNotice);
    machine.open->ask();
    EXPECT_EQ(machine.open->heard, 0.5F);
}

TEST_F(Watching, LetsThePullerGoOnWhileTheOutputStandsStill) {
    EXPECT_TRUE(watcher.look());
    machine.open->ask();
    for (int i = 0; i < 4; ++i) EXPECT_TRUE(watcher.look());
    EXPECT_TRUE(core->puller.isPulling());
    EXPECT_FALSE(core->hasOutput);

    machine.open->ask();
    EXPECT_EQ(machine.open->heard, 0.0F) << "the puller has the stream";
    EXPECT_TRUE(watcher.look());
    machine.open->ask();
    EXPECT_EQ(machine.open->heard, 0.5F);
    EXPECT_FALSE(core->puller.isPulling());
    EXPECT_EQ(notice(), std::nullopt) << "a server may take a second for its start";
}

TEST_F(Watching, TellsOnceThatTheOutputStandsStillForLong) {
    EXPECT_TRUE(watcher.look());
    machine.open->ask();
    EXPECT_TRUE(watcher.look());
    for (int i = 0; i < 14; ++i) EXPECT_TRUE(watcher.look());
    EXPECT_EQ(notice(), std::nullopt);
    for (int i = 0; i < 20; ++i) EXPECT_TRUE(watcher.look());
    EXPECT_EQ(notice(), SoundCard::lostNotice);
    EXPECT_EQ(notice(), std::nullopt);

    machine.open->ask();
    EXPECT_TRUE(watcher.look());
    EXPECT_EQ(notice(), SoundCard::backNotice);
}

/// Threads and all: the card must not wait for a machine that never answers.
TEST(SoundCard, ClosesAlthoughOpeningTheOutputHangs) {
    SteadyClock clock;
    auto hang = std::make_shared<std::atomic<bool>>(true);
    auto opened = std::make_shared<std::atomic<bool>>(false);
    {
        SoundCard card(clock, {}, {},
                       [hang, opened](const SoundOutput::Fill&) -> std::unique_ptr<SoundOutput> {
                           *opened = true;
                           opened->notify_all();
                           hang->wait(true);
                           return nullptr;
                       },
                       {});
        opened->wait(false);
        EXPECT_FALSE(card.hasOutput());
    }
    *hang = false;
    hang->notify_all();
}

TEST(SoundCard, LetsTimeGoOnWithoutAnOutput) {
    struct WaitingTap final : SoundTap {
        void hear(std::span<const float>, std::int64_t) noexcept override {
            ++blocks;
            blocks.notify_all();
        }
        std::atomic<int> blocks{0};
    };
    SteadyClock clock;
    WaitingTap tap;
    const SoundCard card(clock, {}, {&tap}, [](const SoundOutput::Fill&) { return nullptr; }, {});
    for (int heard = 0; heard < 5; heard = tap.blocks) tap.blocks.wait(heard);
    EXPECT_GE(tap.blocks, 5);
}

}  // namespace
}  // namespace melvane
