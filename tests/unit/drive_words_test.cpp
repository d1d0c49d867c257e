#include "drive/words.h"

#include <gtest/gtest.h>

#include "drive/path.h"
#include "drive/printing.h"

namespace melvane::drive {
namespace {

std::vector<std::string> texts(std::string_view line) {
    std::vector<std::string> result;
    for (const Word& word : splitWords(line, {}).words) result.push_back(word.text);
    return result;
}

std::optional<Value> value(std::string_view line) { return valueOf(splitWords(line, {}).words.at(0)); }

TEST(DriveWords, BlanksPartWordsOutsideQuotesAndParentheses) {
    EXPECT_EQ(texts("  print\tNoteArray(0, 5) "), (std::vector<std::string>{"print", "NoteArray(0, 5)"}));
    EXPECT_EQ(texts("put a \"b  c\""), (std::vector<std::string>{"put", "a", "b  c"}));
    EXPECT_EQ(texts("x \"\" y"), (std::vector<std::string>{"x", "", "y"}));
}

TEST(DriveWords, AnInnerQuoteIsDoubled) {
    EXPECT_EQ(texts("\"a\"\"b\"\r"), (std::vector<std::string>{"a\"b"}));
}

TEST(DriveWords, AQuoteThatIsNotClosedIsAnError) {
    EXPECT_FALSE(splitWords("print \"a", {}).error.empty());
    EXPECT_FALSE(splitWords("print \"a\"b", {}).error.empty());
}

TEST(DriveWords, NamesAreExpandedInQuotedTextOnly) {
    const Expansions expansions{{"$HERE", "/scripts"}};
    const auto words = splitWords("$HERE \"$HERE/a.sng\"", expansions).words;
    EXPECT_EQ(words[0].text, "$HERE");
    EXPECT_EQ(words[1].text, "/scripts/a.sng");
    EXPECT_EQ(words[1].given, "$HERE/a.sng");
}

TEST(DriveWords, ValuesAreWholeNumbersDecimalsTruthsAndTexts) {
    EXPECT_EQ(value("-12"), Value(-12LL));
    EXPECT_EQ(value("+3"), Value(3LL));
    EXPECT_EQ(value("0.25"), Value(0.25));
    EXPECT_EQ(value("true"), Value(true));
    EXPECT_EQ(value("false"), Value(false));
    EXPECT_EQ(value("\"12\""), Value(std::string("12")));
    EXPECT_EQ(value("twelve"), std::nullopt);
    EXPECT_EQ(value("nan"), std::nullopt);
    EXPECT_EQ(value("1x"), std::nullopt);
}

TEST(DrivePrinting, EachKindOfValueHasItsForm) {
    EXPECT_EQ(shownValue(Flag{true}), "-1");
    EXPECT_EQ(shownValue(Flag{false}), "0");
    EXPECT_EQ(shownValue(true), "true");
    EXPECT_EQ(shownValue(-5LL), "-5");
    EXPECT_EQ(shownValue(std::string("say \"hi\"")), "\"say \"\"hi\"\"\"");
}

TEST(DrivePrinting, DecimalsHaveTheShortestFormThatReadsBack) {
    EXPECT_EQ(shownValue(static_cast<double>(0.138F)), "0.138");
    EXPECT_EQ(shownValue(0.1), "0.1");
    EXPECT_EQ(shownValue(2.0), "2");
}

TEST(DrivePath, NamesAndIndicesArePartedByDots) {
    const auto path = parsePath("ChannelTable(3).Name");
    ASSERT_TRUE(path);
    EXPECT_EQ(path->joinedNames(), "ChannelTable.Name");
    EXPECT_EQ(path->joinedIndices(), std::vector<int>{3});
    EXPECT_EQ(parsePath("NoteArray(0, -5)")->joinedIndices(), (std::vector<int>{0, -5}));
}

TEST(DrivePath, WhatIsNoPathIsFoundOut) {
    for (const char* text : {"", ".", "a.", "a(", "a()", "a(x)", "a(1)b", "a b", "a(1,)"}) {
        EXPECT_FALSE(parsePath(text)) << text;
    }
}

TEST(DrivePath, AControlHasAWindowAnIndexAndAPart) {
    const auto control = asControl(*parsePath("Form3.TrackHide(2).Enabled"));
    ASSERT_TRUE(control);
    EXPECT_EQ(control->window, "Form3");
    EXPECT_EQ(control->name, "TrackHide");
    EXPECT_EQ(control->index, 2);
    EXPECT_EQ(control->part, ControlPart::enabled);
    EXPECT_FALSE(asControl(*parsePath("Tempo")));
    EXPECT_FALSE(asControl(*parsePath("Form3.TrackHide(2).colour")));
}

}  // namespace
}  // namespace melvane::drive
