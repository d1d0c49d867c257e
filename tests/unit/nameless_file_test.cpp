#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "platform/audio_file_draft.h"
#include "platform/descriptor.h"
#include "platform/files.h"
#include "platform/nameless_file.h"
#include "temporary_folder.h"

namespace melvane {
namespace {

using test::TemporaryFolder;

std::string content(const std::string& path) { return readFile(path).value_or("none"); }

TEST(NamelessFile, GetsItsNameWhenItIsComplete) {
    const TemporaryFolder folder;
    const int file = openNameless(folder.path().string());
    ASSERT_GE(file, 0);
    EXPECT_EQ(writeAt(file, "content", 0), 7U);
    EXPECT_EQ(folder.fileCount(), 0U);
    EXPECT_TRUE(nameFile(file, folder.file("a")));
    EXPECT_EQ(content(folder.file("a")), "content");
    close(file);
}

TEST(NamelessFile, TakesThePlaceOfAnOrdinaryFileAlone) {
    const TemporaryFolder folder;
    const std::string target = folder.make("a", "earlier");
    std::filesystem::create_directory(folder.file("b"));
    const int file = openNameless(folder.path().string());
    ASSERT_EQ(writeAt(file, "content", 0), 7U);
    EXPECT_FALSE(nameFile(file, folder.file("b")));
    EXPECT_FALSE(nameFile(file, folder.file("none/a")));
    EXPECT_FALSE(nameFile(file, "/dev/null"));
    EXPECT_EQ(content(target), "earlier");
    EXPECT_TRUE(nameFile(file, target));
    EXPECT_EQ(content(target), "content");
    EXPECT_EQ(folder.fileCount(), 2U);
    close(file);
}

TEST(NamelessFile, IsNotMadeWhereThereIsNoFolder) {
    EXPECT_EQ(openNameless("/none/at/all"), -1);
    EXPECT_EQ(openNameless("/proc"), -1);
}

TEST(FileDraft, LeavesNothingWhenTheProgramIsKilled) {
    const TemporaryFolder folder;
    const std::string target = folder.make("a", "earlier");
    EXPECT_EXIT(
        {
            FileDraft draft(target);
            if (writeAt(draft.open(), "half of it", 0) == 10) raise(SIGKILL);
        },
        testing::KilledBySignal(SIGKILL), "");
    EXPECT_EQ(content(target), "earlier");
    EXPECT_EQ(folder.fileCount(), 1U);
}

TEST(FileDraft, HasTheRightsOfAnOrdinaryNewFileEitherWay) {
    const TemporaryFolder folder;
    const mode_t mask = umask(0);
    umask(mask);
    std::string name;
    const int named = openDraft(folder.file("a"), name);
    const int nameless = openNameless(folder.path().string());
    for (const int file : {named, nameless}) {
        struct stat state {};
        ASSERT_EQ(fstat(file, &state), 0);
        EXPECT_EQ(state.st_mode & 0777U, 0666U & ~mask);
        close(file);
    }
}

}  // namespace
}  // namespace melvane
