#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
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

/// As if it had been written so long ago.
void age(const std::string& path, std::chrono::seconds by) {
    std::filesystem::last_write_time(path, std::filesystem::file_time_type::clock::now() - by);
}

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

TEST(FileDraft, RemovesWhatProgramsThatAreGoneHaveLeft) {
    const TemporaryFolder folder;
    for (const char* const name :
         {".melvane.abcdef", ".melvane.inwork", ".melvane.longer-name", ".other.abcdef", ".melvane.recent"})
        folder.make(name, "left");
    for (const auto& each : std::filesystem::directory_iterator(folder.path())) {
        if (!each.path().string().ends_with("recent")) age(each.path().string(), std::chrono::minutes(5));
    }
    const int inWork = open(folder.file(".melvane.inwork").c_str(), O_RDONLY);
    ASSERT_EQ(flock(inWork, LOCK_EX | LOCK_NB), 0);
    std::string name;
    const int draft = openDraft(folder.file("a"), name);
    ASSERT_GE(draft, 0);
    EXPECT_TRUE(std::filesystem::exists(name));
    EXPECT_FALSE(std::filesystem::exists(folder.file(".melvane.abcdef")));
    EXPECT_EQ(folder.fileCount(), 5U) << "the others are in work, recent, or no drafts";
    age(name, std::chrono::minutes(5));
    std::string second;
    close(openDraft(folder.file("a"), second));
    EXPECT_TRUE(std::filesystem::exists(name)) << "while it is written";
    close(draft);
    close(inWork);
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
