#include "platform/files.h"

#include <gtest/gtest.h>

#include "unit/temporary_folder.h"

namespace melvane {
namespace {

namespace fs = std::filesystem;

TEST(Files, BytesComeBackAsTheyWereWritten) {
    const test::TemporaryFolder folder;
    const std::string bytes("a\0b\r\n\xff", 6);
    EXPECT_EQ(writeFileWhole(folder.file("x"), bytes), std::nullopt);
    EXPECT_EQ(readFile(folder.file("x")), bytes);
}

TEST(Files, AnEmptyFileIsReadAsNoBytes) {
    const test::TemporaryFolder folder;
    EXPECT_EQ(readFile(folder.make("empty")), "");
}

TEST(Files, WhatIsNoOrdinaryFileIsNotRead) {
    const test::TemporaryFolder folder;
    EXPECT_EQ(readFile(folder.file("missing")), std::nullopt);
    EXPECT_EQ(readFile(folder.path().string()), std::nullopt);
    EXPECT_EQ(readFile("/dev/zero"), std::nullopt);
    EXPECT_EQ(readFile(""), std::nullopt);
    EXPECT_FALSE(fileExists(folder.path().string()));
}

TEST(Files, AnEarlierFileIsReplacedAsAWhole) {
    const test::TemporaryFolder folder;
    const std::string path = folder.make("score", "a longer text than the next");
    EXPECT_EQ(writeFileWhole(path, "short"), std::nullopt);
    EXPECT_EQ(readFile(path), "short");
    EXPECT_EQ(folder.fileCount(), 1U);
}

TEST(Files, ANameMayBeAsLongAsNamesCanBe) {
    const test::TemporaryFolder folder;
    const std::string path = folder.file(std::string(250, 'n') + ".sng");
    EXPECT_EQ(writeFileWhole(path, "new"), std::nullopt);
    EXPECT_EQ(readFile(path), "new");
}

TEST(Files, ANameMayHoldLettersOfAnyLanguage) {
    const test::TemporaryFolder folder;
    const std::string name = "\xc3\x9c\xd0\xb1\xe2\x99\xaa.sng";
    const std::string path = folder.path().string() + "/" + name;
    EXPECT_EQ(writeFileWhole(path, "new"), std::nullopt);
    EXPECT_EQ(readFile(path), "new");
    EXPECT_TRUE(overwriteFile(path, "N"));
    EXPECT_EQ(readFile(path), "New");
    EXPECT_EQ(fs::directory_iterator(folder.path())->path().filename().string(), name);
    EXPECT_EQ(folder.fileCount(), 1U);
}

TEST(Files, WritingThroughALinkKeepsTheLink) {
    const test::TemporaryFolder folder;
    const std::string real = folder.make("real", "old");
    fs::create_symlink("real", folder.path() / "link");
    EXPECT_EQ(writeFileWhole(folder.file("link"), "new"), std::nullopt);
    EXPECT_TRUE(fs::is_symlink(folder.path() / "link"));
    EXPECT_EQ(readFile(real), "new");
}

TEST(Files, AFailureNamesTheFileAndLeavesNothing) {
    const test::TemporaryFolder folder;
    const auto failure = writeFileWhole(folder.file("no/such/folder"), "x");
    ASSERT_TRUE(failure.has_value());
    EXPECT_NE(failure->find("no/such/folder"), std::string::npos);
    EXPECT_EQ(failure->find('\n'), std::string::npos);
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST(Files, AFullDiskIsAFailure) { EXPECT_TRUE(writeFileWhole("/dev/full", "x").has_value()); }

TEST(Files, ANameThatExistsIsTakenAsItIs) {
    const test::TemporaryFolder folder;
    folder.make("TUNE.SNG");
    folder.make("tune.sng");
    EXPECT_EQ(findNoCase(folder.file("tune.sng")), folder.file("tune.sng"));
    EXPECT_EQ(findNoCase(folder.file("TUNE.SNG")), folder.file("TUNE.SNG"));
}

TEST(Files, AMissingNameIsFoundInAnotherCaseAtEachLevel) {
    const test::TemporaryFolder folder;
    folder.make("Media/Deep/333.MID");
    EXPECT_EQ(findNoCase(folder.file("media/deep/333.mid")), folder.file("Media/Deep/333.MID"));
}

TEST(Files, OfSeveralCasesTheFirstOfTheAlphabetIsFound) {
    const test::TemporaryFolder folder;
    folder.make("tune.SNG");
    folder.make("Tune.sng");
    EXPECT_EQ(findNoCase(folder.file("TUNE.sng")), folder.file("Tune.sng"));
}

TEST(Files, ANameThatIsNowhereComesBackUnchanged) {
    const test::TemporaryFolder folder;
    EXPECT_EQ(findNoCase(folder.file("no/such.sng")), folder.file("no/such.sng"));
    EXPECT_EQ(findNoCase(""), "");
}

}  // namespace
}  // namespace melvane
