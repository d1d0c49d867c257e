#include "platform/directories.h"

#include <gtest/gtest.h>

#include "unit/temporary_folder.h"

namespace melvane {
namespace {

namespace fs = std::filesystem;

TEST(Directories, AnUnpackedProgramKeepsItsFilesBesideItself) {
    const test::TemporaryFolder folder;
    const Directories found = chooseDirectories(folder.path(), folder.path() / "user");
    EXPECT_EQ(found.program, folder.path());
    EXPECT_EQ(found.songs(), folder.path() / "Songs");
    EXPECT_EQ(found.resources, folder.path() / "resources");
    EXPECT_FALSE(fs::exists(folder.path() / "user"));
    EXPECT_TRUE(fs::is_empty(folder.path())) << "the trial file must not stay";
}

TEST(Directories, WhereNoFileCanBeMadeTheUserDataFolderIsMadeAndTaken) {
    const test::TemporaryFolder folder;
    const fs::path user = folder.path() / "some" / "user";
    const Directories found = chooseDirectories(folder.path() / "missing", user);
    EXPECT_EQ(found.program, user);
    EXPECT_TRUE(fs::is_directory(user));
}

TEST(Directories, AnInstalledProgramKeepsItsFilesWithTheUser) {
    const test::TemporaryFolder folder;
    fs::create_directories(folder.path() / "bin");
    fs::create_directories(folder.path() / "share" / "melvane");
    const Directories found = chooseDirectories(folder.path() / "bin", folder.path() / "user");
    EXPECT_EQ(found.program, folder.path() / "user");
    EXPECT_EQ(found.resources, folder.path() / "share" / "melvane");
}

}  // namespace
}  // namespace melvane
