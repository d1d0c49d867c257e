#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
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
    Spool spool(10, 3, spoolFolders());
    EXPECT_TRUE(spool.append("1234567"));
    EXPECT_FALSE(spool.append("89abc"));
    EXPECT_TRUE(spool.isFull());
    EXPECT_EQ(spool.failure(), std::nullopt);
    const std::string path = folder.file("a");
    FileDraft draft(path);
    const int source = spool.duplicate();
    ASSERT_TRUE(copySpool(source, spool.headSize(), 10, draft.open()));
    EXPECT_FALSE(copySpool(source, spool.headSize(), 2, -1));
    EXPECT_FALSE(copySpool(source, spool.headSize(), 11, source)) << "more than there is";
    close(source);
    EXPECT_EQ(draft.complete(), std::nullopt);
    EXPECT_EQ(bytesOf(path).substr(0, 10), "123456789a");
    spool.clear();
    EXPECT_EQ(spool.size(), 0U);
    EXPECT_TRUE(spool.append("xy"));
}

TEST(Spool, IsTheFileThatItIsNamed) {
    const TemporaryFolder folder;
    Spool spool(100, 4, {folder.path().string()});
    ASSERT_TRUE(spool.append("some bytes"));
    const std::string path = folder.make("a", "earlier");
    ASSERT_TRUE(spool.nameIt(path, "head", 9, "!"));
    EXPECT_EQ(bytesOf(path), "headsome byte!");
    EXPECT_EQ(spool.size(), 9U);
    EXPECT_FALSE(spool.nameIt(folder.file("b"), "head", 9, "!")) << "a second name would be the same file";
    ASSERT_TRUE(spool.append("S go on"));
    EXPECT_EQ(bytesOf(path), "headsome byte!");
    ASSERT_TRUE(spool.nameIt(folder.file("b"), "HEAD", 16, {}));
    EXPECT_EQ(bytesOf(folder.file("b")), "HEADsome byteS go on");
    spool.clear();
    ASSERT_TRUE(spool.append("new"));
    ASSERT_TRUE(spool.nameIt(folder.file("c"), "head", 3, {}));
    EXPECT_EQ(bytesOf(folder.file("c")), "headnew");
    EXPECT_EQ(bytesOf(folder.file("b")), "HEADsome byteS go on");
    EXPECT_EQ(folder.fileCount(), 3U);
}

TEST(Spool, IsNotNamedWhereThatIsNotPossible) {
    const TemporaryFolder folder;
    Spool spool(100, 4, {"", "/none", folder.path().string()});
    ASSERT_TRUE(spool.append("some bytes"));
    std::filesystem::create_directory(folder.file("a"));
    for (const std::string& path : {folder.file("none/a"), folder.file("a"), std::string("/proc/a")}) {
        EXPECT_FALSE(spool.nameIt(path, "head", 10, {})) << path;
    }
    EXPECT_EQ(folder.fileCount(), 1U);
    ASSERT_TRUE(spool.nameIt(folder.file("b"), "head", 10, {}));
    EXPECT_EQ(bytesOf(folder.file("b")), "headsome bytes");
}

}  // namespace
}  // namespace melvane
