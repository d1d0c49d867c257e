#include <gtest/gtest.h>

#include <thread>

#include "media_fixture.h"
#include "platform/media_spool.h"
#include "platform_sound_guard.h"

namespace melvane {
namespace {

using namespace sound_test;

TEST(CaptureTap, NeitherAllocatesNorLocks) {
    const auto ring = std::make_unique<CaptureRing>();
    CaptureTap tap;
    const std::vector<float> block(512);
    const CallbackGuard guard;
    tap.hear(block, 0);
    tap.setRing(ring.get());
    for (int turn = 0; turn < 2000; ++turn) tap.hear(block, 0);
    EXPECT_EQ(guard.allocations(), 0U);
    EXPECT_EQ(guard.locks(), 0U);
    EXPECT_EQ(ring->lostFrames, 2000U * 256 - CaptureRing::frames);
}

TEST(SoundRing, BringsEveryValueOnceAndInOrderFromThreadToThread) {
    SoundRing ring(1000);
    constexpr int count = 200'000;
    std::thread writer([&] {
        std::vector<float> piece;
        for (int next = 0; next < count;) {
            piece.clear();
            for (int at = next; at < std::min(next + 37, count); ++at)
                piece.push_back(static_cast<float>(at));
            next += static_cast<int>(ring.push(piece));
        }
    });
    std::vector<float> got(53);
    int expected = 0;
    bool inOrder = true;
    while (expected < count) {
        const std::size_t values = ring.pop(got);
        for (std::size_t at = 0; at < values; ++at)
            inOrder = inOrder && got[at] == static_cast<float>(expected++);
    }
    writer.join();
    EXPECT_TRUE(inOrder);
    EXPECT_EQ(ring.filled(), 0U);
    EXPECT_EQ(ring.room(), 1000U);
}

TEST(Spool, HoldsWhatItGotUpToItsBound) {
    const TemporaryFolder folder;
    Spool spool(10);
    EXPECT_TRUE(spool.append("1234567"));
    EXPECT_FALSE(spool.append("89abc"));
    EXPECT_TRUE(spool.isFull());
    EXPECT_EQ(spool.failure(), std::nullopt);
    const std::string path = folder.file("a");
    FileDraft draft(path);
    ASSERT_TRUE(spool.copyTo(draft.open(), 10));
    EXPECT_EQ(draft.complete(), std::nullopt);
    EXPECT_EQ(bytesOf(path), "123456789a");
    spool.clear();
    EXPECT_EQ(spool.size(), 0U);
    EXPECT_TRUE(spool.append("xy"));
    EXPECT_FALSE(spool.copyTo(-1, 2));
}

}  // namespace
}  // namespace melvane
