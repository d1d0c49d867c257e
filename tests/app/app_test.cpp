#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/files.h"
#include "unit/temporary_folder.h"

namespace melvane {
namespace {

namespace fs = std::filesystem;

class AppTest : public testing::Test {
 protected:
    /// Runs the program with a home of its own and no display; its exit status.
    int run(const std::string& arguments) {
        const std::string command =
            "cd " + folder.path().string() +
            " && env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM -u XDG_CONFIG_HOME"
            " -u XDG_DATA_HOME HOME=" +
            home + " " MELVANE_PROGRAM " " + arguments + " >out.txt 2>err.txt </dev/null";
        const int status = std::system(command.c_str());
        said = readFile(folder.file("out.txt")).value_or("");
        complained = readFile(folder.file("err.txt")).value_or("");
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    test::TemporaryFolder folder;
    std::string home = fs::path(folder.make("home/.keep")).parent_path().string();
    std::string said, complained;
};

constexpr const char* demo = MELVANE_RESOURCES "/scores/demo.sng";

TEST_F(AppTest, HelpAndVersionNeedNoDisplay) {
    EXPECT_EQ(run("--help"), 0);
    EXPECT_NE(said.find("Usage: melvane"), std::string::npos);
    EXPECT_EQ(run("--version"), 0);
    EXPECT_EQ(said, "Melvane 2.3.1\n");
}

TEST_F(AppTest, WrongUseIsOneLineAndStatusTwo) {
    for (const char* arguments : {"--nonsense", "--picture", "a.sng b.sng", "''"}) {
        EXPECT_EQ(run(arguments), 2) << arguments;
        EXPECT_TRUE(complained.starts_with("melvane: ")) << complained;
        EXPECT_EQ(complained.find('\n'), complained.size() - 1) << complained;
    }
}

TEST_F(AppTest, WithoutADisplayTheStudioSaysSo) {
    EXPECT_EQ(run(""), 1);
    EXPECT_NE(complained.find("there is no display"), std::string::npos) << complained;
}

TEST_F(AppTest, APictureShowsTheScoreThatIsNamed) {
    ASSERT_EQ(run("--picture empty.png"), 0) << complained;
    ASSERT_EQ(run("--picture demo.png " + std::string(demo)), 0) << complained;
    const auto empty = readFile(folder.file("empty.png")).value_or("");
    const auto shown = readFile(folder.file("demo.png")).value_or("");
    EXPECT_EQ(empty.substr(1, 3), "PNG");
    EXPECT_EQ(shown.substr(1, 3), "PNG");
    EXPECT_NE(empty, shown);
}

TEST_F(AppTest, APictureLeavesNoTraceOfTheUsers) {
    ASSERT_EQ(run("--picture x.png"), 0) << complained;
    EXPECT_FALSE(fs::exists(home + "/.config"));
    EXPECT_FALSE(fs::exists(home + "/.local"));
}

TEST_F(AppTest, APictureThatCannotBeMadeIsStatusOne) {
    EXPECT_EQ(run("--picture no/such/folder.png"), 1);
    EXPECT_NE(complained.find("cannot be written"), std::string::npos) << complained;
    EXPECT_EQ(run("--picture x.png missing.sng"), 1);
    EXPECT_NE(complained.find("cannot be read"), std::string::npos) << complained;
    EXPECT_FALSE(fs::exists(folder.file("x.png")));
}

}  // namespace
}  // namespace melvane
