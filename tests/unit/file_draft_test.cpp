#include "platform/audio_file_draft.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>

#include "platform/descriptor.h"
#include "platform/files.h"
#include "platform/nameless_file.h"
#include "unit/temporary_folder.h"

namespace melvane {
namespace {

using test::TemporaryFolder;

/// As if it had been written so long ago.
void age(const std::string& path, std::chrono::seconds by) {
    std::filesystem::last_write_time(path, std::filesystem::file_time_type::clock::now() - by);
}

TEST(FileDraft, TakesTheNameOfAnEarlierFileWhenItIsComplete) {
    const TemporaryFolder folder;
    const std::string target = folder.make("a", "earlier");
    {
        FileDraft draft(target);
        ASSERT_TRUE(writeAll(draft.open(), "new"));
        EXPECT_EQ(readFile(target), "earlier");
        EXPECT_EQ(draft.complete(), std::nullopt);
    }
    EXPECT_EQ(readFile(target), "new");
    EXPECT_EQ(folder.fileCount(), 1U);
}

TEST(FileDraft, IsGoneWhenItWasNotCompleted) {
    const TemporaryFolder folder;
    const std::string target = folder.make("a", "earlier");
    {
        FileDraft draft(target);
        ASSERT_TRUE(writeAll(draft.open(), "new"));
    }
    EXPECT_EQ(readFile(target), "earlier");
    EXPECT_EQ(folder.fileCount(), 1U);
}

TEST(FileDraft, DoesNotTakeTheNameOfAFolder) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.file("a"));
    {
        FileDraft draft(folder.file("a"));
        EXPECT_LT(draft.open(), 0);
        EXPECT_NE(draft.complete(), std::nullopt);
    }
    {
        FileDraft draft(folder.file("b"));
        ASSERT_TRUE(writeAll(draft.open(), "new"));
        std::filesystem::create_directory(folder.file("b"));
        EXPECT_NE(draft.complete(), std::nullopt);
    }
    EXPECT_TRUE(std::filesystem::is_directory(folder.file("b")));
    EXPECT_EQ(folder.fileCount(), 2U);
}

TEST(FileDraft, RemovesWhatProgramsThatAreGoneHaveLeft) {
    const TemporaryFolder folder;
    for (const char* const name :
         {".melvane.abcdef", ".melvane.inwork", ".melvane.longer-name", ".other.abcdef", ".melvane.recent"})
        folder.make(name, "left");
    for (const auto& each : std::filesystem::directory_iterator(folder.path())) {
        if (!each.path().string().ends_with("recent")) age(each.path().string(), std::chrono::minutes(5));
    }
    const int inWork = openForReading(folder.file(".melvane.inwork"));
    ASSERT_TRUE(markInUse(inWork));
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

}  // namespace
}  // namespace melvane
