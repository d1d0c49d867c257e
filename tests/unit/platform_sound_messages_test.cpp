#include <gtest/gtest.h>

#include <memory>
#include <thread>

#include "platform/sound_message_ring.h"
#include "platform/sound_short_message.h"

namespace melvane {
namespace {

TEST(ShortMessage, UnpacksThreeBytes) {
    const auto message = decodeShortMessage(0x0064'3C91);
    ASSERT_TRUE(message);
    EXPECT_EQ(*message, (ShortMessage{.kind = 0x90, .channel = 1, .first = 60, .second = 100, .length = 3}));
    EXPECT_EQ(message->status(), 0x91);
}

TEST(ShortMessage, UnpacksTwoBytesAndIgnoresWhatLiesAbove) {
    const auto message = decodeShortMessage(0xFFFF'18C2);
    ASSERT_TRUE(message);
    EXPECT_EQ(*message, (ShortMessage{.kind = 0xC0, .channel = 2, .first = 24, .second = 0, .length = 2}));
}

TEST(ShortMessage, IgnoresBitsAboveTheThirdByte) {
    EXPECT_EQ(decodeShortMessage(0xAB40'3C90), decodeShortMessage(0x0040'3C90));
}

TEST(ShortMessage, IsNoneWithADataByteAbove127) {
    EXPECT_FALSE(decodeShortMessage(0x0064'8090)) << "key 128";
    EXPECT_FALSE(decodeShortMessage(0x0080'3C90)) << "velocity 128";
    EXPECT_FALSE(decodeShortMessage(0x0000'80C0)) << "program 128";
    const auto negativePan = static_cast<std::uint32_t>(-1 * 65536 + 0x0AB0);
    EXPECT_FALSE(decodeShortMessage(negativePan));
}

TEST(ShortMessage, IsNoneWithAStatusThatIsNoChannelMessage) {
    for (const std::uint32_t status : {0x00U, 0x3CU, 0x7FU, 0xF0U, 0xF8U, 0xFFU}) {
        EXPECT_FALSE(decodeShortMessage(0x0040'4000 | status)) << status;
    }
}

TEST(MessageRing, GivesMessagesInTheirOrder) {
    const auto ring = std::make_unique<MessageRing>();
    EXPECT_EQ(ring->front(), nullptr);
    ASSERT_TRUE(ring->push({10, 1, false}));
    ASSERT_TRUE(ring->push({20, 2, true}));
    EXPECT_EQ(ring->front()->moment, 10);
    ring->pop();
    ASSERT_NE(ring->front(), nullptr);
    EXPECT_TRUE(ring->front()->isReset);
    ring->pop();
    EXPECT_EQ(ring->front(), nullptr);
}

TEST(MessageRing, RefusesWhatItCannotHold) {
    const auto ring = std::make_unique<MessageRing>();
    for (std::size_t i = 0; i < MessageRing::capacity; ++i) ASSERT_TRUE(ring->push({0, 0, false}));
    EXPECT_FALSE(ring->push({0, 0, false}));
    ring->pop();
    EXPECT_TRUE(ring->push({0, 0, false}));
}

TEST(MessageRing, LosesNothingBetweenTwoThreads) {
    constexpr std::uint32_t count = 100'000;
    const auto ring = std::make_unique<MessageRing>();
    std::thread sender([&] {
        for (std::uint32_t i = 0; i < count; ++i) {
            while (!ring->push({i, i, false})) std::this_thread::yield();
        }
    });
    std::uint32_t wrong = 0;
    for (std::uint32_t expected = 0; expected < count;) {
        const StampedMessage* message = ring->front();
        if (!message) {
            std::this_thread::yield();
            continue;
        }
        if (message->packed != expected || message->moment != expected) ++wrong;
        ring->pop();
        ++expected;
    }
    sender.join();
    EXPECT_EQ(wrong, 0U);
}

}  // namespace
}  // namespace melvane
