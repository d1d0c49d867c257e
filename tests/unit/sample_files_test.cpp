#include <algorithm>
#include <array>
#include <filesystem>

#include "tutorial_fixture.h"

namespace melvane::test {
namespace {

using SampleFilesTest = TutorialTest;

constexpr std::array samplesOfTheProgram{"101.sng", "102.sng", "103.sng",  "104.sng",  "105.sng", "201.sng",
                                         "202.sng", "203.sng", "104a.sng", "104b.sng", "333.mid", "301.sng"};

TEST_F(SampleFilesTest, EachIsPutOutAndNoOther) {
    engine.fileOperations.InstallMediaFiles();
    for (const char* const name : samplesOfTheProgram) {
        const auto file = outside.directories.media() / name;
        ASSERT_TRUE(std::filesystem::exists(file)) << name;
        EXPECT_GT(std::filesystem::file_size(file), 0U) << name;
    }
    const std::filesystem::directory_iterator files(outside.directories.media());
    EXPECT_EQ(std::distance(begin(files), end(files)), std::ssize(samplesOfTheProgram));
}

TEST_F(SampleFilesTest, EachThatIsThereIsRemovedWithAWaitOfItsOwn) {
    engine.fileOperations.InstallMediaFiles();
    std::filesystem::remove(outside.directories.media() / "104b.sng");
    const auto before = time.tickCount();
    engine.fileOperations.RemoveMediaFiles();
    EXPECT_EQ(time.tickCount() - before, 11 * 200);
    engine.fileOperations.RemoveMediaFiles();
    EXPECT_EQ(time.tickCount() - before, 11 * 200) << "none is left";
}

TEST_F(SampleFilesTest, AFolderThatCannotBeMadeIsNotReported) {
    setTips(false);
    std::filesystem::remove_all(outside.directories.media());
    ASSERT_TRUE(engine.fileOperations.WriteBytesFile(outside.directories.media().string(), "in the way"));
    dialogs.takeBoxes();
    engine.fileOperations.InstallMediaFiles();
    engine.tutorial.Form_Load();
    setTips(false);
    engine.tutorial.click(lessonIndex("L1"), 1);
    EXPECT_EQ(dialogs.takeBoxes(), std::vector<std::string>{});
    EXPECT_FALSE(std::filesystem::is_directory(outside.directories.media()));
}

}  // namespace
}  // namespace melvane::test
