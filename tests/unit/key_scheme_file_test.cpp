#include "synth/key_scheme_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

#include "platform/files.h"
#include "platform/text.h"
#include "temporary_folder.h"

namespace melvane::test {
namespace {

KeyLabels read(const std::string& bytes) {
    std::istringstream file(bytes);
    return readKeyScheme(file);
}

/// "0", "1" ... so many lines.
std::string numberedLines(int count, const char* lineEnd = "\r\n") {
    std::string text;
    for (int line = 0; line < count; ++line) text += std::to_string(line) + lineEnd;
    return text;
}

TEST(KeySchemeFileTest, TheLastLineOfAShortFileFillsTheOtherKeys) {
    const KeyLabels labels = read(numberedLines(10));
    for (std::size_t key = 0; key < labels.size(); ++key) {
        EXPECT_EQ(labels[key], std::to_string(std::min<std::size_t>(key, 9))) << key;
    }
}

TEST(KeySchemeFileTest, LinesBehindTheLastKeyAreIgnored) {
    const KeyLabels labels = read(numberedLines(400));
    EXPECT_EQ(labels[0], "0");
    EXPECT_EQ(labels[43], "43");
}

TEST(KeySchemeFileTest, AnEmptyFileAndAMissingOneEmptyAllLabels) {
    const TemporaryFolder folder;
    for (const KeyLabels& labels :
         {read(""), readKeySchemeFile(folder.file("none.key")), readKeySchemeFile(folder.path().string()),
          readKeySchemeFile("/dev/zero")}) {
        EXPECT_EQ(labels, KeyLabels());
    }
}

TEST(KeySchemeFileTest, AnEmptyLineIsAnEmptyLabelWhereverItStands) {
    const KeyLabels labels = read("a\r\n\r\nc\r\n\r\n");
    EXPECT_EQ(labels[0], "a");
    EXPECT_EQ(labels[1], "");
    EXPECT_EQ(labels[2], "c");
    EXPECT_EQ(labels[3], "");
    EXPECT_EQ(labels[43], "");
}

TEST(KeySchemeFileTest, ALineEndsInAnyOfTheThreeWays) {
    for (const char* lineEnd : {"\r\n", "\n", "\r"}) {
        const KeyLabels labels = read(numberedLines(44, lineEnd));
        EXPECT_EQ(labels[1], "1");
        EXPECT_EQ(labels[43], "43");
    }
    EXPECT_EQ(read("a\r\nb")[43], "b") << "the last line needs no end";
}

TEST(KeySchemeFileTest, ALabelIsTheWholeLineBlanksIncluded) {
    const KeyLabels labels = read("  a b \r\n" + std::string(500, 'x') + "\r\n");
    EXPECT_EQ(labels[0], "  a b ");
    EXPECT_EQ(labels[1], std::string(500, 'x'));
}

TEST(KeySchemeFileTest, ALineOf100MegabytesIsCut) {
    const TemporaryFolder folder;
    const std::string path = folder.make("long.key", "a\r\n" + std::string(100U << 20U, 'y'));
    const KeyLabels labels = readKeySchemeFile(path);
    EXPECT_EQ(labels[0], "a");
    EXPECT_EQ(labels[1], std::string(32767, 'y'));
    EXPECT_EQ(labels[43], labels[1]);
}

TEST(KeySchemeFileTest, ACutLineEndsWithAWholeCharacter) {
    std::string line = "x";
    while (line.size() < 140'000) line += "€";
    const KeyLabels labels = read(line + "\r\nä\r\n");
    EXPECT_EQ(labels[0].size(), 1 + 3 * 32766U) << "32767 characters";
    EXPECT_EQ(labels[1], "ä");
}

TEST(KeySchemeFileTest, EightBitCharactersAreRead) {
    const KeyLabels labels = read("\xD6\r\n\xE9\r\n\x80\r\n");
    EXPECT_EQ(labels[0], "Ö");
    EXPECT_EQ(labels[1], "é");
    EXPECT_EQ(labels[2], "€");
}

TEST(KeySchemeFileTest, AFileInUtf8IsReadTooWithOrWithoutItsMark) {
    EXPECT_EQ(read("ö\r\nЖ\r\n")[0], "ö");
    EXPECT_EQ(read("\xEF\xBB\xBFZ\r\nЖ\r\n")[0], "Z");
    EXPECT_EQ(read("\xEF\xBB\xBFZ\r\nЖ\r\n")[1], "Ж");
}

TEST(KeySchemeFileTest, TheFileHas44LinesAndNothingElse) {
    KeyLabels labels = defaultKeyLabels();
    labels[3] = "  ä ";
    labels[4] = "   ";
    const std::string text = keySchemeText(labels);
    EXPECT_EQ(text.substr(0, 3), "Z\r\n");
    EXPECT_EQ(std::ranges::count(text, '\n'), 44);
    EXPECT_EQ(std::ranges::count(text, '\r'), 44);
    EXPECT_TRUE(text.ends_with("\r\n]\r\n"));
    const KeyLabels again = read(text);
    EXPECT_EQ(again[3], "ä");
    EXPECT_EQ(again[4], "");
    EXPECT_NE(text.find("\xE4\r\n"), std::string::npos) << "one byte, as 8-bit text has it";
}

TEST(KeySchemeFileTest, LabelsComeBackWhateverTheyAre) {
    KeyLabels labels = defaultKeyLabels();
    for (const char* odd : {"Ж", "Ã¤", "Â©", "\x7F", "many letters", "a,b", "\t"}) {
        labels[7] = odd;
        EXPECT_EQ(read(keySchemeText(labels))[7], odd) << odd;
    }
    labels[0] = "\xEF\xBB\xBFZ";
    EXPECT_EQ(read(keySchemeText(labels))[0], labels[0]) << "a label that looks like the mark of a file";
    labels[7] = "a\r\nb";
    EXPECT_EQ(read(keySchemeText(labels))[8], labels[8]) << "a line end inside a label makes no line";
}

TEST(KeySchemeFileTest, TheDefaultLabelsStandAsTheyAreWithThreeTwice) {
    const KeyLabels& labels = defaultKeyLabels();
    EXPECT_EQ(labels[0], "Z");
    EXPECT_EQ(labels[12], ",");
    EXPECT_EQ(labels[19], ":");
    EXPECT_EQ(labels[20], "\"");
    EXPECT_EQ(labels[31], "{");
    EXPECT_EQ(labels[32], "}");
    EXPECT_EQ(labels[42], "0");
    EXPECT_EQ(labels[43], "]");
    EXPECT_EQ(labels[6] + labels[8] + labels[10], labels[14] + labels[15] + labels[16]);
    EXPECT_EQ(std::set<std::string>(labels.begin(), labels.end()).size(), 41U);
}

}  // namespace
}  // namespace melvane::test
