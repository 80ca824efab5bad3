#include "core/dates.h"

#include <gtest/gtest.h>

using namespace orvo;

TEST(Dates, FirstOfMonthIsDayOne) {
    EXPECT_EQ(FirstOfMonth(QDate(2024, 3, 15)), QDate(2024, 3, 1));
    EXPECT_EQ(FirstOfMonth(QDate(2024, 3, 1)), QDate(2024, 3, 1));
    EXPECT_EQ(FirstOfMonth(QDate(2023, 12, 31)), QDate(2023, 12, 1));
    EXPECT_FALSE(FirstOfMonth(QDate()).isValid());
}

TEST(Dates, LastOfMonthOfLeapFebruaryIsTheTwentyNinth) {
    EXPECT_EQ(LastOfMonth(QDate(2024, 2, 10)), QDate(2024, 2, 29));
}

TEST(Dates, LastOfMonthOfOtherMonths) {
    EXPECT_EQ(LastOfMonth(QDate(2023, 2, 10)), QDate(2023, 2, 28));
    EXPECT_EQ(LastOfMonth(QDate(1900, 2, 1)), QDate(1900, 2, 28));
    EXPECT_EQ(LastOfMonth(QDate(2000, 2, 1)), QDate(2000, 2, 29));
    EXPECT_EQ(LastOfMonth(QDate(2024, 4, 30)), QDate(2024, 4, 30));
    EXPECT_EQ(LastOfMonth(QDate(2024, 12, 1)), QDate(2024, 12, 31));
    EXPECT_FALSE(LastOfMonth(QDate()).isValid());
}

TEST(Dates, AddMonthsClampsToTheLastDayOfAShortMonth) {
    EXPECT_EQ(AddMonths(QDate(2023, 1, 31), 1), QDate(2023, 2, 28));
    EXPECT_EQ(AddMonths(QDate(2024, 1, 31), 1), QDate(2024, 2, 29));
    EXPECT_EQ(AddMonths(QDate(2024, 3, 31), -1), QDate(2024, 2, 29));
    EXPECT_EQ(AddMonths(QDate(2024, 5, 31), 1), QDate(2024, 6, 30));
}

TEST(Dates, AddMonthsAcrossYears) {
    EXPECT_EQ(AddMonths(QDate(2023, 12, 15), 1), QDate(2024, 1, 15));
    EXPECT_EQ(AddMonths(QDate(2024, 1, 15), -1), QDate(2023, 12, 15));
    EXPECT_EQ(AddMonths(QDate(2024, 2, 29), 12), QDate(2025, 2, 28));
    EXPECT_EQ(AddMonths(QDate(2024, 2, 29), -48), QDate(2020, 2, 29));
    EXPECT_EQ(AddMonths(QDate(2024, 3, 10), 0), QDate(2024, 3, 10));
    EXPECT_EQ(AddMonths(QDate(2024, 3, 10), 25), QDate(2026, 4, 10));
    EXPECT_FALSE(AddMonths(QDate(), 1).isValid());
}

TEST(Dates, DateParamIsYearMonthDayWithDots) {
    EXPECT_EQ(DateParam(QDate(2024, 3, 1)), QStringLiteral("2024.03.01"));
    EXPECT_EQ(DateParam(QDate(2024, 12, 31)), QStringLiteral("2024.12.31"));
    EXPECT_EQ(DateParam(QDate()), QString());
}

TEST(Dates, DateFromParamReadsTheParamTextBack) {
    EXPECT_EQ(DateFromParam(QStringLiteral("2024.03.01")), QDate(2024, 3, 1));
    EXPECT_EQ(DateFromParam(QStringLiteral(" 2024.02.29 ")), QDate(2024, 2, 29));
    EXPECT_EQ(DateFromParam(DateParam(QDate(1999, 7, 4))), QDate(1999, 7, 4));
    EXPECT_FALSE(DateFromParam(QStringLiteral("2023.02.29")).isValid());
    EXPECT_FALSE(DateFromParam(QStringLiteral("2024-03-01")).isValid());
    EXPECT_FALSE(DateFromParam(QStringLiteral("2024.3.1")).isValid());
    EXPECT_FALSE(DateFromParam(QString()).isValid());
}

TEST(Dates, FixedDatesOfTheSystem) {
    EXPECT_STREQ(EarliestDateText, "1990.01.01");
    EXPECT_STREQ(LatestDateText, "9999.12.31");
    EXPECT_STREQ(NoLockDateText, "1900.01.01");
    EXPECT_EQ(DateParam(EarliestDate()), QLatin1String(EarliestDateText));
    EXPECT_EQ(DateParam(LatestDate()), QLatin1String(LatestDateText));
    EXPECT_EQ(DateParam(NoLockDate()), QLatin1String(NoLockDateText));
    EXPECT_EQ(DateFromParam(QLatin1String(LatestDateText)), QDate(9999, 12, 31));
}

TEST(Dates, MonthGenitiveNamesAllTwelveMonths) {
    const char* const expected[] = {"sausio",  "vasario",  "kovo",      "balandžio",
                                    "gegužės", "birželio", "liepos",    "rugpjūčio",
                                    "rugsėjo", "spalio",   "lapkričio", "gruodžio"};
    for (int m = 1; m <= 12; ++m)
        EXPECT_EQ(MonthGenitive(m), QString::fromUtf8(expected[m - 1])) << m;
    EXPECT_EQ(MonthGenitive(0), QString());
    EXPECT_EQ(MonthGenitive(13), QString());
}

TEST(Dates, FormatLongDateOfMonthIsTheGenitiveName) {
    EXPECT_EQ(FormatLongDate(QStringLiteral("m"), QDate(2024, 3, 15)), QStringLiteral("kovo"));
    EXPECT_EQ(FormatLongDate(QStringLiteral("m"), QDate(2024, 8, 1)),
              QString::fromUtf8("rugpjūčio"));
}

TEST(Dates, FormatLongDateOfDayAndYearAreDigits) {
    EXPECT_EQ(FormatLongDate(QStringLiteral("d"), QDate(2024, 3, 15)), QStringLiteral("15"));
    EXPECT_EQ(FormatLongDate(QStringLiteral("d"), QDate(2024, 3, 5)), QStringLiteral("5"));
    EXPECT_EQ(FormatLongDate(QStringLiteral("yyyy"), QDate(2024, 3, 15)), QStringLiteral("2024"));
}

TEST(Dates, FormatLongDateLongForm) {
    EXPECT_EQ(FormatLongDate(QString(), QDate(2024, 3, 15)), QStringLiteral("2024 m. kovo 15 d."));
    EXPECT_EQ(FormatLongDate(QStringLiteral("long"), QDate(2023, 1, 5)),
              QStringLiteral("2023 m. sausio 5 d."));
    EXPECT_EQ(FormatLongDate(QStringLiteral("M"), QDate(2024, 12, 31)),
              QString::fromUtf8("2024 m. gruodžio 31 d."));
}

TEST(Dates, FormatLongDateOfInvalidDateIsEmpty) {
    EXPECT_EQ(FormatLongDate(QStringLiteral("m"), QDate()), QString());
    EXPECT_EQ(FormatLongDate(QString(), QDate()), QString());
}
