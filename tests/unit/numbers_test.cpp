#include "core/numbers.h"

#include <gtest/gtest.h>

namespace melvane {
namespace {

TEST(Numbers, TiesRoundToTheEvenNeighbour) {
    EXPECT_EQ(roundTiesToEven(0.5), 0);
    EXPECT_EQ(roundTiesToEven(1.5), 2);
    EXPECT_EQ(roundTiesToEven(2.5), 2);
    EXPECT_EQ(roundTiesToEven(-0.5), 0);
    EXPECT_EQ(roundTiesToEven(-1.5), -2);
    EXPECT_EQ(roundTiesToEven(81.6), 82);
}

TEST(Numbers, AValueBeyondSixteenBitsIsNotAssigned) {
    std::int16_t held = 7;
    EXPECT_FALSE(assign(held, 32768));
    EXPECT_EQ(held, 7);
    EXPECT_FALSE(assign(held, -32768.6));
    EXPECT_TRUE(assign(held, 32767.4));
    EXPECT_EQ(held, 32767);
    EXPECT_FALSE(assign(held, std::nan("")));
}

TEST(Numbers, TheLeadingNumberOfATextIsRead) {
    EXPECT_EQ(leadingNumber(" 70 "), 70);
    EXPECT_EQ(leadingNumber("-12abc"), -12);
    EXPECT_EQ(leadingNumber("2.5x"), 2.5);
    EXPECT_EQ(leadingNumber(".5"), 0.5);
    EXPECT_EQ(leadingNumber("+3"), 3);
    EXPECT_EQ(leadingNumber("x3"), 0);
    EXPECT_EQ(leadingNumber("-"), 0);
    EXPECT_EQ(leadingNumber(""), 0);
    EXPECT_EQ(leadingNumber(std::string(400, '9')), HUGE_VAL);
}

TEST(Numbers, OnlyAWholeTextCountsAsANumberOfASetting) {
    EXPECT_EQ(wholeNumberText(" 12 "), 12);
    EXPECT_EQ(wholeNumberText("12x"), std::nullopt);
    EXPECT_EQ(wholeNumberText(""), std::nullopt);
    EXPECT_EQ(booleanText("TRUE"), true);
    EXPECT_EQ(booleanText("False"), false);
    EXPECT_EQ(booleanText("-1"), true);
    EXPECT_EQ(booleanText("maybe"), std::nullopt);
}

}  // namespace
}  // namespace melvane
