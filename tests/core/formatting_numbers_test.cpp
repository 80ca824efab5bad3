#include "core/number_text.h"

#include <gtest/gtest.h>

#include <limits>

using namespace orvo;

TEST(FormattingNumbers, FormatNumberLtGroupsThousandsWithABlankAndUsesADecimalComma) {
    EXPECT_EQ(FormatNumberLt(1234567.5, 2), QStringLiteral("1 234 567,50"));
    EXPECT_EQ(FormatNumberLt(-1234, 2), QStringLiteral("-1 234,00"));
    EXPECT_EQ(FormatNumberLt(999, 2), QStringLiteral("999,00"));
    EXPECT_EQ(FormatNumberLt(1000, 0), QStringLiteral("1 000"));
    EXPECT_EQ(FormatNumberLt(123456, 1), QStringLiteral("123 456,0"));
    EXPECT_EQ(FormatNumberLt(0.5, 2), QStringLiteral("0,50"));
}

TEST(FormattingNumbers, FormatNumberLtSeparatorIsThePlainSpace) {
    const QString text = FormatNumberLt(1234, 2);
    ASSERT_EQ(text.size(), 8);
    EXPECT_EQ(text.at(1).unicode(), 0x0020);
}

TEST(FormattingNumbers, FormatNumberLtWithoutGrouping) {
    EXPECT_EQ(FormatNumberLt(1234567.5, 2, false), QStringLiteral("1234567,50"));
}

TEST(FormattingNumbers, FormatNumberLtRoundsAHalfAwayFromZero) {
    EXPECT_EQ(FormatNumberLt(0.125, 2), QStringLiteral("0,13"));
    EXPECT_EQ(FormatNumberLt(-0.125, 2), QStringLiteral("-0,13"));
    EXPECT_EQ(FormatNumberLt(999.995, 2), QStringLiteral("1 000,00"));
    EXPECT_EQ(FormatNumberLt(1.23456789, 6), QStringLiteral("1,234568"));
}

TEST(FormattingNumbers, FormatNumberLtOfZeroHasNoSign) {
    EXPECT_EQ(FormatNumberLt(-0.001, 2), QStringLiteral("0,00"));
    EXPECT_EQ(FormatNumberLt(-0.0, 2), QStringLiteral("0,00"));
}

TEST(FormattingNumbers, FormatNumberLtOfNaNIsEmpty) {
    EXPECT_TRUE(FormatNumberLt(std::numeric_limits<double>::quiet_NaN(), 2).isEmpty());
}

TEST(FormattingNumbers, FormatAmountOfHalfACentGivesSingleBlank) {
    EXPECT_EQ(FormatAmount(0.005), QStringLiteral(" "));
    EXPECT_EQ(FormatAmount(0.0), QStringLiteral(" "));
    EXPECT_EQ(FormatAmount(-0.0099), QStringLiteral(" "));
}

TEST(FormattingNumbers, FormatAmountOfMinusOneCentShowsAsNumber) {
    EXPECT_EQ(FormatAmount(-0.01), QStringLiteral("-0,01"));
    EXPECT_EQ(FormatAmount(0.01), QStringLiteral("0,01"));
}

TEST(FormattingNumbers, FormatAmountWithThousands) {
    EXPECT_EQ(FormatAmount(1234567.891), QStringLiteral("1 234 567,89"));
    EXPECT_EQ(FormatAmount(-25000), QStringLiteral("-25 000,00"));
    EXPECT_EQ(FormatAmount(1000000), QStringLiteral("1 000 000,00"));
}

TEST(FormattingNumbers, FormatAmountAddsTheBaseSumAddend) {
    EXPECT_EQ(FormatAmount(12.344999), QStringLiteral("12,35"));
    EXPECT_EQ(FormatAmount(12.34), QStringLiteral("12,34"));
    EXPECT_EQ(FormatAmount(-0.125), QStringLiteral("-0,12"));
}

TEST(FormattingNumbers, FormatTypedNumberFormatsWithThePlacesRequested) {
    EXPECT_EQ(FormatTypedNumber(QStringLiteral("12"), 2), QStringLiteral("12,00"));
    EXPECT_EQ(FormatTypedNumber(QStringLiteral("1234,5"), 2), QStringLiteral("1234,50"));
    EXPECT_EQ(FormatTypedNumber(QStringLiteral("3.4528"), 6), QStringLiteral("3,452800"));
    EXPECT_EQ(FormatTypedNumber(QStringLiteral("0,125"), 2), QStringLiteral("0,13"));
    EXPECT_EQ(FormatTypedNumber(QStringLiteral("7"), 0), QStringLiteral("7"));
}

TEST(FormattingNumbers, FormatTypedNumberLeavesUnfinishedOrForeignTextAlone) {
    EXPECT_EQ(FormatTypedNumber(QString(), 2), QString());
    EXPECT_EQ(FormatTypedNumber(QStringLiteral("12,"), 2), QStringLiteral("12,"));
    EXPECT_EQ(FormatTypedNumber(QStringLiteral("12 "), 2), QStringLiteral("12 "));
    EXPECT_EQ(FormatTypedNumber(QStringLiteral("abc"), 2), QStringLiteral("abc"));
    EXPECT_EQ(FormatTypedNumber(QStringLiteral("1,2,3"), 2), QStringLiteral("1,2,3"));
    EXPECT_EQ(FormatTypedNumber(QStringLiteral("12 Eur"), 2), QStringLiteral("12 Eur"));
}

TEST(FormattingNumbers, FormatTypedNumberLeavesFifteenCharactersAlone) {
    const QString fifteen = QStringLiteral("123456789012345");
    ASSERT_EQ(fifteen.size(), 15);
    EXPECT_EQ(FormatTypedNumber(fifteen, 2), fifteen);
    EXPECT_EQ(FormatTypedNumber(QStringLiteral("12345678901234"), 2),
              QStringLiteral("12345678901234,00"));
}

TEST(FormattingNumbers, FormatTypedNumberWithTheFlagOffGivesEmptyText) {
    EXPECT_EQ(FormatTypedNumber(QStringLiteral("12,5"), 2, false), QString());
    // Text that is left alone stays so with the flag off too.
    EXPECT_EQ(FormatTypedNumber(QStringLiteral("12,"), 2, false), QStringLiteral("12,"));
}
