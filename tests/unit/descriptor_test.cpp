#include "platform/descriptor.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>

#include "platform/files.h"
#include "unit/temporary_folder.h"

namespace melvane {
namespace {

using test::TemporaryFolder;

TEST(Descriptor, WritingAtAPlaceLeavesThePresentPlace) {
    const TemporaryFolder folder;
    const int file = openOrMake(folder.file("a"));
    EXPECT_TRUE(writeAll(file, "abc\n"));
    EXPECT_EQ(writeAt(file, "XY", 1), 2U);
    EXPECT_TRUE(writeAll(file, "d"));
    EXPECT_EQ(writeAt(file, "end", 7), 3U);
    close(file);
    EXPECT_EQ(readFile(folder.file("a")), std::string("aXY\nd\0\0end", 10));
}

TEST(Descriptor, StepsBackAndReadsToTheEnd) {
    const TemporaryFolder folder;
    const int file = openForReading(folder.make("a", "ab\r\n\x1a.c"));
    std::array<unsigned char, 4> bytes{};
    EXPECT_EQ(readSome(file, bytes), 4U);
    EXPECT_TRUE(stepBack(file, 1));
    EXPECT_EQ(readSome(file, bytes), 4U);
    EXPECT_EQ(bytes, (std::array<unsigned char, 4>{'\n', 0x1a, '.', 'c'}));
    EXPECT_EQ(readSome(file, bytes), 0U);
    EXPECT_FALSE(stepBack(file, 8));
    close(file);
    EXPECT_EQ(readSome(-1, bytes), std::nullopt);
}

TEST(Descriptor, ALengthCutsAFileOrFillsItWithZeros) {
    const TemporaryFolder folder;
    const std::string path = folder.make("a", "abcdef");
    const int file = openForWriting(path);
    EXPECT_TRUE(setLength(file, 2));
    EXPECT_EQ(readFile(path), "ab");
    EXPECT_TRUE(setLength(file, 4));
    EXPECT_TRUE(bringToDisk(file));
    close(file);
    EXPECT_EQ(readFile(path), std::string("ab\0\0", 4));
    EXPECT_FALSE(setLength(-1, 2));
    EXPECT_FALSE(bringToDisk(-1));
}

TEST(Descriptor, AFileIsInUseByOneUntilItIsClosedOrGivenFree) {
    const TemporaryFolder folder;
    const std::string path = folder.make("a", "content");
    const int first = openForReading(path), second = openForReading(path);
    EXPECT_TRUE(markInUse(first));
    EXPECT_FALSE(markInUse(second));
    EXPECT_EQ(readFile(path), "content");
    EXPECT_TRUE(giveFree(first));
    EXPECT_TRUE(markInUse(second));
    close(second);
    EXPECT_TRUE(markInUse(first));
    removeUnused(path);
    EXPECT_TRUE(fileExists(path));
    close(first);
    removeUnused(path);
    EXPECT_FALSE(fileExists(path));
}

TEST(Descriptor, AFileThatIsOpenedAloneIsReadByAnybody) {
    const TemporaryFolder folder;
    const std::string path = folder.make("a", "content");
    const int file = openAlone(path);
    ASSERT_GE(file, 0);
    EXPECT_EQ(openAlone(path), -1);
    EXPECT_EQ(readFile(path), "content");
    close(file);
    EXPECT_EQ(openAlone(folder.path().string()), -1);
}

TEST(Descriptor, EachUniqueFileIsAnother) {
    const TemporaryFolder folder;
    std::string first = folder.file("draft.XXXXXX"), second = first;
    close(openUnique(first));
    close(openUnique(second));
    EXPECT_NE(first, second);
    EXPECT_EQ(folder.fileCount(), 2U);
    std::string nowhere = folder.file("none/XXXXXX");
    errno = 0;
    EXPECT_EQ(openUnique(nowhere), -1);
    EXPECT_EQ(errno, ENOENT);
}

TEST(Descriptor, WhatIsThereIsToldFromWhatIsMade) {
    const TemporaryFolder folder;
    const std::string missing = folder.file("missing");
    EXPECT_EQ(openForReading(missing), -1);
    EXPECT_EQ(openForWriting(missing), -1);
    EXPECT_EQ(openForBoth(missing), -1);
    EXPECT_EQ(rightsOf(missing), std::nullopt);
    EXPECT_FALSE(mayBeWritten(missing));
    EXPECT_FALSE(isNoOrdinaryFile(missing));
    EXPECT_TRUE(isNoOrdinaryFile(folder.path().string()));
    close(openOrMake(missing));
    EXPECT_TRUE(rightsOf(missing).has_value());
    EXPECT_TRUE(mayBeWritten(missing));
    EXPECT_FALSE(isNoOrdinaryFile(missing));
}

#ifdef _WIN32

TEST(Descriptor, ADeviceOfTheSystemIsNoOrdinaryFile) {
    const TemporaryFolder folder;
    for (const std::string& name : {std::string("NUL"), std::string("CON"), folder.file("nul")}) {
        EXPECT_TRUE(isNoOrdinaryFile(name)) << name;
        EXPECT_EQ(openAlone(name), -1) << name;
    }
    EXPECT_EQ(writeFileWhole("NUL", "gone"), std::nullopt);
    EXPECT_EQ(readFile("NUL"), std::nullopt);
}

TEST(Descriptor, AFileThatIsOpenedAloneIsWrittenByNobodyElse) {
    const TemporaryFolder folder;
    const std::string path = folder.make("a", "content");
    const int file = openAlone(path);
    EXPECT_EQ(openForWriting(path), -1);
    EXPECT_FALSE(overwriteFile(path, "new"));
    close(file);
    EXPECT_TRUE(overwriteFile(path, "new"));
}

TEST(Descriptor, AFileThatAnotherHoldsOpenIsNotReplaced) {
    const TemporaryFolder folder;
    const std::string path = folder.make("a", "content");
    const int other = openForReading(path);
    EXPECT_TRUE(writeFileWhole(path, "new").has_value());
    EXPECT_EQ(errno, EACCES);
    close(other);
    EXPECT_EQ(readFile(path), "content");
    EXPECT_EQ(folder.fileCount(), 1U);
}

#endif

}  // namespace
}  // namespace melvane
