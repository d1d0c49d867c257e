#include <gtest/gtest.h>

#include <vector>

#include "platform/midi_channel_state.h"

namespace melvane {
namespace {

ShortMessage message(std::uint32_t packed) { return decodeShortMessage(packed).value_or(ShortMessage{}); }

/// What the replay gives after these messages, packed.
std::vector<std::uint32_t> replayed(const std::vector<std::uint32_t>& heard) {
    MidiChannelState state;
    for (const std::uint32_t packed : heard) state.hear(message(packed));
    std::vector<std::uint32_t> played;
    state.replay([&](const ShortMessage& each) {
        EXPECT_EQ(message(static_cast<std::uint32_t>(each.status() | each.first << 8 | each.second << 16)),
                  each);
        played.push_back(static_cast<std::uint32_t>(each.status() | each.first << 8 | each.second << 16));
    });
    return played;
}

using Messages = std::vector<std::uint32_t>;

TEST(MidiChannelState, IsNothingAtTheStartAndLeavesNotesOut) {
    EXPECT_EQ(replayed({}), Messages{});
    EXPECT_EQ(replayed({0x643C90, 0x003C80, 0x053CA0}), Messages{});
}

TEST(MidiChannelState, KeepsTheLastOfEachOnEachChannel) {
    EXPECT_EQ(replayed({0x6407B0, 0x3207B0, 0x05C0, 0x06C0, 0x07D0, 0x4001E0, 0x6407BF, 0x7FCF}),
              (Messages{0x3207B0, 0x06C0, 0x07D0, 0x4001E0, 0x6407BF, 0x7FCF}));
}

TEST(MidiChannelState, SendsTheBankBeforeTheProgram) {
    EXPECT_EQ(replayed({0x08C3, 0x2020B3, 0x0100B3}), (Messages{0x0100B3, 0x2020B3, 0x08C3}));
}

TEST(MidiChannelState, KeepsTheRangeOfTheBendAndTheParameterThatWasChosenLast) {
    EXPECT_EQ(replayed({0x0065B0, 0x0064B0, 0x0C06B0, 0x0526B0, 0x7F65B0, 0x7F64B0}),
              (Messages{0x0065B0, 0x0064B0, 0x0C06B0, 0x0526B0, 0x7F65B0, 0x7F64B0}));
    EXPECT_EQ(replayed({0x0065B0, 0x0064B0, 0x0C06B0}),
              (Messages{0x0065B0, 0x0064B0, 0x0C06B0, 0x0065B0, 0x0064B0}));
}

TEST(MidiChannelState, TakesDataForNothingThatIsNotChosen) {
    EXPECT_EQ(replayed({0x0C06B0}), Messages{});
    EXPECT_EQ(replayed({0x0065B0, 0x0064B0, 0x0163B0, 0x0862B0, 0x0C06B0}), Messages{})
        << "an unregistered one";
    EXPECT_EQ(replayed({0x0165B0, 0x0064B0, 0x0C06B0}), (Messages{0x0165B0, 0x0064B0}));
    EXPECT_EQ(replayed({0x0065B0, 0x0564B0, 0x0C06B0}), (Messages{0x0065B0, 0x0564B0}));
}

TEST(MidiChannelState, ForgetsWhatAResetOfTheControllersEnds) {
    EXPECT_EQ(replayed({0x6407B0, 0x6401B0, 0x7F40B0, 0x05C0, 0x4001E0, 0x07D0, 0x0079B0}),
              (Messages{0x6407B0, 0x05C0}));
}

TEST(MidiChannelState, LeavesOutTheModesOfAChannel) {
    EXPECT_EQ(replayed({0x0078B0, 0x007AB0, 0x007BB0, 0x007CB0, 0x007EB0}), Messages{});
}

}  // namespace
}  // namespace melvane
