#include "core/number_text.h"

#include <gtest/gtest.h>

using namespace orvo;

TEST(FormattingText, NumberFromTextOfNonNumericTextIsZero) {
    bool ok = true;
    EXPECT_EQ(NumberFromText(QStringLiteral("abc"), &ok), 0.0);
    EXPECT_FALSE(ok);
    EXPECT_EQ(NumberFromText(QString()), 0.0);
    EXPECT_EQ(NumberFromText(QStringLiteral("12 Eur")), 0.0);
    EXPECT_EQ(NumberFromText(QStringLiteral(",")), 0.0);
    EXPECT_EQ(NumberFromText(QStringLiteral("inf")), 0.0);
    EXPECT_EQ(NumberFromText(QStringLiteral("1.234,56")), 0.0);
}

TEST(FormattingText, NumberFromTextReadsBlankGroupedCommaNumber) {
    bool ok = false;
    EXPECT_EQ(NumberFromText(QStringLiteral("1 234,56"), &ok), 1234.56);
    EXPECT_TRUE(ok);
    EXPECT_EQ(NumberFromText(QString::fromUtf8("1\u00a0234,56")), 1234.56);
    EXPECT_EQ(NumberFromText(FormatNumberLt(-1234567.5, 2)), -1234567.5);
}

TEST(FormattingText, NumberFromTextAcceptsADotAsTheDecimalMark) {
    EXPECT_EQ(NumberFromText(QStringLiteral("12.5")), 12.5);
    EXPECT_EQ(NumberFromText(QStringLiteral(" -0,75 ")), -0.75);
    EXPECT_EQ(NumberFromText(QStringLiteral("+3")), 3.0);
    EXPECT_EQ(NumberFromText(QStringLiteral("5,")), 5.0);
    EXPECT_EQ(NumberFromText(QStringLiteral(",5")), 0.5);
    EXPECT_EQ(NumberFromText(QStringLiteral("1,5e3")), 1500.0);
}

TEST(FormattingText, IsNumericTextTellsNumbersFromOtherText) {
    EXPECT_TRUE(IsNumericText(QStringLiteral("0")));
    EXPECT_TRUE(IsNumericText(QStringLiteral("1 000,00")));
    EXPECT_FALSE(IsNumericText(QStringLiteral("")));
    EXPECT_FALSE(IsNumericText(QStringLiteral("  ")));
    EXPECT_FALSE(IsNumericText(QStringLiteral("-")));
    EXPECT_FALSE(IsNumericText(QStringLiteral("1e")));
    EXPECT_FALSE(IsNumericText(QStringLiteral("0x10")));
}

TEST(FormattingText, RateFromTextUnderEuroBaseGivesReciprocalOfPositiveRate) {
    EXPECT_DOUBLE_EQ(RateFromText(QStringLiteral("3,4528"), true), 1.0 / 3.4528);
    EXPECT_EQ(RateFromText(QStringLiteral("4"), true), 0.25);
}

TEST(FormattingText, RateFromTextUnderEuroBaseKeepsZeroAndNegativeAsTheyAre) {
    EXPECT_EQ(RateFromText(QStringLiteral("0"), true), 0.0);
    EXPECT_EQ(RateFromText(QStringLiteral("-2"), true), -2.0);
}

TEST(FormattingText, RateFromTextOfNonNumericTextIsZero) {
    EXPECT_EQ(RateFromText(QStringLiteral("kursas"), true), 0.0);
    EXPECT_EQ(RateFromText(QStringLiteral("kursas"), false), 0.0);
}

TEST(FormattingText, RateFromTextUnderOtherBaseKeepsTheRate) {
    EXPECT_EQ(RateFromText(QStringLiteral("3,4528"), false), 3.4528);
    EXPECT_EQ(RateFromText(QStringLiteral("-2"), false), -2.0);
}

TEST(FormattingText, ValDotOfCommaTextWithCurrencyGivesOnePointFive) {
    EXPECT_EQ(ValDot(QStringLiteral("1,5 Eur")), 1.5);
}

TEST(FormattingText, ValDotReadsTheNumberAtTheStartAndIgnoresTheRest) {
    EXPECT_EQ(ValDot(QStringLiteral("12.75abc")), 12.75);
    EXPECT_EQ(ValDot(QStringLiteral("  -3,25")), -3.25);
    EXPECT_EQ(ValDot(QStringLiteral("1 234,5")), 1234.5);
    EXPECT_EQ(ValDot(QStringLiteral("1,234.5")), 1.234);
    EXPECT_EQ(ValDot(QStringLiteral("2E3 Lt")), 2000.0);
    EXPECT_EQ(ValDot(QStringLiteral("7 Dol")), 7.0);
    EXPECT_EQ(ValDot(QStringLiteral("0,000123456")), 0.000123456);
}

TEST(FormattingText, ValDotOfTextWithoutLeadingNumberIsZero) {
    EXPECT_EQ(ValDot(QStringLiteral("Eur 5")), 0.0);
    EXPECT_EQ(ValDot(QString()), 0.0);
    EXPECT_EQ(ValDot(QStringLiteral("-")), 0.0);
    EXPECT_EQ(ValDot(QStringLiteral(",")), 0.0);
}

TEST(FormattingText, FirstWordOfAccountAndNameGivesTheAccount) {
    EXPECT_EQ(FirstWord(QString::fromUtf8("2410 Pirkėjų skolos")), QStringLiteral("2410"));
    EXPECT_EQ(FirstWord(QString::fromUtf8("  2410 Pirkėjų skolos ")), QStringLiteral("2410"));
}

TEST(FormattingText, FirstWordOfTextWithoutBlankIsTheWholeTrimmedText) {
    EXPECT_EQ(FirstWord(QStringLiteral("2410")), QStringLiteral("2410"));
    EXPECT_EQ(FirstWord(QStringLiteral("  6310  ")), QStringLiteral("6310"));
    EXPECT_EQ(FirstWord(QString()), QString());
    EXPECT_EQ(FirstWord(QStringLiteral("   ")), QString());
}

TEST(FormattingText, FilterNumericKeyTurnsDotIntoCommaAndRefusesSecondComma) {
    EXPECT_EQ(FilterNumericKey('.', QStringLiteral("12")), ',');
    EXPECT_EQ(FilterNumericKey(',', QStringLiteral("12")), ',');
    EXPECT_EQ(FilterNumericKey(',', QStringLiteral("12,5")), 0);
}

TEST(FormattingText, FilterNumericKeyPassesDigitsAndBackspace) {
    for (int key = '0'; key <= '9'; ++key)
        EXPECT_EQ(FilterNumericKey(key, QStringLiteral("1,5")), key);
    EXPECT_EQ(FilterNumericKey(8, QStringLiteral("1,5")), 8);
}

TEST(FormattingText, FilterNumericKeyRefusesOtherKeys) {
    EXPECT_EQ(FilterNumericKey('a', QString()), 0);
    EXPECT_EQ(FilterNumericKey('-', QString()), 0);
    EXPECT_EQ(FilterNumericKey(' ', QString()), 0);
    EXPECT_EQ(FilterNumericKey(13, QString()), 0);
    EXPECT_EQ(FilterNumericKey('/', QString()), 0);
    EXPECT_EQ(FilterNumericKey(':', QString()), 0);
}
