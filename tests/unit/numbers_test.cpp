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

TEST(Numbers, TheFirstValueBeyondAnyWidthIsNotAssigned) {
    const double behind32 = 2147483648.0, behind64 = 9223372036854775808.0;  // 2^31, 2^63
    EXPECT_EQ(narrowed<std::int32_t>(behind32 - 1), 2147483647);
    EXPECT_EQ(narrowed<std::int32_t>(behind32), std::nullopt);
    EXPECT_EQ(narrowed<std::int64_t>(behind64), std::nullopt);
    EXPECT_EQ(narrowed<std::int64_t>(-behind64), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(narrowed<std::int64_t>(-1e19), std::nullopt);
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
