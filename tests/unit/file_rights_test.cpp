#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <iterator>

#include "platform/files.h"
#include "unit/ordinary_user.h"
#include "unit/temporary_folder.h"

namespace melvane {
namespace {

namespace fs = std::filesystem;

TEST(FileRights, AnEarlierFileIsReplacedWithItsRightsKept) {
    const test::TemporaryFolder folder;
    const std::string path = folder.make("score", "a longer text than the next");
    ASSERT_EQ(chmod(path.c_str(), 0600), 0);
    EXPECT_EQ(writeFileWhole(path, "short"), std::nullopt);
    EXPECT_EQ(readFile(path), "short");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 1);
}

TEST(FileRights, WhereTheFolderTakesNoNewFileAnEarlierOneIsChangedInItsPlace) {
    const test::TemporaryFolder folder;
    const std::string open = folder.make("open", "a longer text than the next");
    const std::string closed = folder.make("closed", "old");
    ASSERT_EQ(chmod(open.c_str(), 0666), 0);
    ASSERT_EQ(chmod(closed.c_str(), 0444), 0);
    ASSERT_EQ(chmod(folder.path().c_str(), 0555), 0);
    {
        const test::OrdinaryUser user;
        EXPECT_EQ(writeFileWhole(open, "short"), std::nullopt);
        EXPECT_NE(writeFileWhole(closed, "new"), std::nullopt);
        EXPECT_NE(writeFileWhole(folder.file("another"), "new"), std::nullopt);
    }
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
    EXPECT_EQ(readFile(open), "short");
    EXPECT_EQ(readFile(closed), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 2);
}

TEST(FileRights, APipeThatNobodyReadsHoldsNobodyUp) {
    const test::TemporaryFolder folder;
    const std::string pipe = folder.file("song.mid");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_FALSE(overwriteFile(pipe, "MThd"));
    EXPECT_TRUE(fs::is_fifo(pipe));
}

}  // namespace
}  // namespace melvane
