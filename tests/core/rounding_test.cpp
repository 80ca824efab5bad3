#include "core/rounding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace orvo;

// Exact comparisons on purpose: a rounded amount must be the very double of its literal,
// or sums compared with == in the editors would disagree.

TEST(Rounding, RoundTiesGoToTheEvenNeighbour) {
    EXPECT_EQ(Round(2.5, 0), 2.0);
    EXPECT_EQ(Round(3.5, 0), 4.0);
    EXPECT_EQ(Round(0.5, 0), 0.0);
    EXPECT_EQ(Round(1.5, 0), 2.0);
    EXPECT_EQ(Round(0.125, 2), 0.12);
    EXPECT_EQ(Round(0.375, 2), 0.38);
    EXPECT_EQ(Round(-2.5, 0), -2.0);
    EXPECT_EQ(Round(-3.5, 0), -4.0);
}

TEST(Rounding, RoundDecidesTheTieOnTheDecimalTheValueStandsFor) {
    // 2.665 lies a hair above the half in binary and 2.675 a hair below; both are read
    // as the decimals typed, so each is a tie settled to the even cent.
    EXPECT_EQ(Round(2.665, 2), 2.66);
    EXPECT_EQ(Round(2.675, 2), 2.68);
    EXPECT_EQ(Round(4.45, 1), 4.4);
    EXPECT_EQ(Round(4.35, 1), 4.4);
}

TEST(Rounding, RoundOfFloatingNoiseNextToAHalfIsNoTie) {
    // One step of the double away from a decimal half: the value is no longer that half.
    EXPECT_EQ(Round(1.025, 2), 1.02);
    EXPECT_EQ(Round(std::nextafter(1.025, 2.0), 2), 1.03);
    EXPECT_EQ(Round(1.035, 2), 1.04);
    EXPECT_EQ(Round(std::nextafter(1.035, 0.0), 2), 1.03);
    EXPECT_EQ(Round(0.30000000000000004, 1), 0.3);
}

TEST(Rounding, RoundAwayFromATieGoesToTheNearer) {
    EXPECT_EQ(Round(2.4999, 0), 2.0);
    EXPECT_EQ(Round(2.5001, 0), 3.0);
    EXPECT_EQ(Round(-2.5001, 0), -3.0);
    EXPECT_EQ(Round(12.344, 2), 12.34);
    EXPECT_EQ(Round(12.346, 2), 12.35);
    EXPECT_EQ(Round(99.995001, 2), 100.0);
}

TEST(Rounding, RoundOfRatesToNinePlaces) {
    EXPECT_EQ(Round(1.0 / 3.0, 9), 0.333333333);
    EXPECT_EQ(Round(2.0 / 3.0, 9), 0.666666667);
    EXPECT_EQ(Round(1.0 / 3.4528, 6), 0.289620);
}

TEST(Rounding, RoundKeepsValuesThatHaveNoMorePlaces) {
    EXPECT_EQ(Round(12.34, 2), 12.34);
    EXPECT_EQ(Round(0.1 + 0.2, 20), 0.1 + 0.2);
    EXPECT_EQ(Round(123456789012.25, 2), 123456789012.25);
    EXPECT_EQ(Round(0.0, 2), 0.0);
}

TEST(Rounding, RoundOfLargeAmountsKeepsTheirDigits) {
    EXPECT_EQ(Round(123456789.125, 2), 123456789.12);
    EXPECT_EQ(Round(123456789.135, 2), 123456789.14);
    EXPECT_EQ(Round(4503599627370495.5, 0), 4503599627370496.0);
    EXPECT_EQ(Round(4503599627370494.5, 0), 4503599627370494.0);
}

TEST(Rounding, RoundOfTinyValuesGivesZero) {
    EXPECT_EQ(Round(0.004, 2), 0.0);
    EXPECT_EQ(Round(1e-300, 2), 0.0);
    EXPECT_EQ(Round(-0.004, 2), 0.0);
    EXPECT_EQ(Round(0.005, 2), 0.0);  // a tie, and 0 is even
    EXPECT_EQ(Round(0.015, 2), 0.02); // a tie, 2 is even
}

TEST(Rounding, RoundWithNegativePlacesRoundsToWholeNumbers) {
    EXPECT_EQ(Round(12.5, -1), 12.0);
    EXPECT_EQ(Round(13.5, -3), 14.0);
}

TEST(Rounding, RoundLeavesNaNAndInfinitiesAlone) {
    EXPECT_TRUE(std::isnan(Round(std::numeric_limits<double>::quiet_NaN(), 2)));
    EXPECT_EQ(Round(std::numeric_limits<double>::infinity(), 2),
              std::numeric_limits<double>::infinity());
}

TEST(Rounding, RoundHalfUpAddsAHalfAndTakesTheFloor) {
    EXPECT_EQ(RoundHalfUp(2.5, 0), 3.0);
    EXPECT_EQ(RoundHalfUp(0.125, 2), 0.13);
    EXPECT_EQ(RoundHalfUp(1.23456789, 6), 1.234568);
    EXPECT_EQ(RoundHalfUp(0.1234565, 6), 0.123457);
}

TEST(Rounding, RoundHalfUpOfNegativeValuesTakesTheFloor) {
    // Int is the floor, so a negative half goes up towards zero.
    EXPECT_EQ(RoundHalfUp(-2.5, 0), -2.0);
    EXPECT_EQ(RoundHalfUp(-2.6, 0), -3.0);
    EXPECT_EQ(RoundHalfUp(-1.2345, 3), -1.234);
    EXPECT_EQ(RoundHalfUp(-0.125, 2), -0.12);
}

TEST(Rounding, RoundHalfUpIsComputedInDoublePrecision) {
    // 1.005 * 100 is 100.49999999999999 in binary, so the half does not reach 101.
    EXPECT_EQ(RoundHalfUp(1.005, 2), 1.0);
}

TEST(Rounding, RoundSumToTwoPlacesBringsTiesUp) {
    EXPECT_EQ(RoundSum(0.125, false), 0.13);
    EXPECT_EQ(RoundSum(2.345, false), 2.35);
    EXPECT_EQ(RoundSum(12.344, false), 12.34);
    EXPECT_EQ(RoundSum(-0.125, false), -0.12);
}

TEST(Rounding, RoundSumToFourPlaces) {
    EXPECT_EQ(RoundSum(1.00005, true), 1.0001);
    EXPECT_EQ(RoundSum(12.34567, true), 12.3457);
    EXPECT_EQ(RoundSum(12.34564, true), 12.3456);
    EXPECT_EQ(RoundSum(0.00015, true), 0.0002);
    // The same value keeps its third and fourth places only when asked.
    EXPECT_EQ(RoundSum(1.23456, false), 1.23);
}

TEST(Rounding, BaseSumOfCurrencySumAtRateOneRoundsUp) {
    const double sumCurr = 12.345;
    const double rate = 1.0;
    EXPECT_EQ(RoundBaseSum(sumCurr * rate), 12.35);
}

TEST(Rounding, BaseSumAddendTurnsTheTieOfAnEighthUp) {
    EXPECT_EQ(Round(0.125, 2), 0.12);
    EXPECT_EQ(RoundBaseSum(0.125), 0.13);
}

TEST(Rounding, BaseSumOfTwoPointSixSevenFiveIsTwoPointSixEight) {
    EXPECT_EQ(RoundBaseSum(2.675), 2.68);
    EXPECT_EQ(RoundBaseSum(2.665), 2.67);
}

TEST(Rounding, BaseSumOfHalfOfAnOddCentSumRoundsUp) {
    EXPECT_EQ(RoundBaseSum(100.01 * 0.5), 50.01);
    EXPECT_EQ(RoundBaseSum(-0.125), -0.12);
    EXPECT_EQ(RoundBaseSum(12.344), 12.34);
}

TEST(Rounding, RoundedDecimalTextHasExactlyThePlacesAsked) {
    EXPECT_EQ(RoundedDecimalText(1234.5, 2, TieRule::ToEven), "1234.50");
    EXPECT_EQ(RoundedDecimalText(-1234.5, 0, TieRule::ToEven), "-1234");
    EXPECT_EQ(RoundedDecimalText(-1234.5, 0, TieRule::AwayFromZero), "-1235");
    EXPECT_EQ(RoundedDecimalText(0.5, 0, TieRule::ToEven), "0");
    EXPECT_EQ(RoundedDecimalText(0.5, 0, TieRule::AwayFromZero), "1");
    EXPECT_EQ(RoundedDecimalText(99.995, 2, TieRule::AwayFromZero), "100.00");
    EXPECT_EQ(RoundedDecimalText(0.000001, 3, TieRule::ToEven), "0.000");
    EXPECT_EQ(RoundedDecimalText(-0.001, 2, TieRule::AwayFromZero), "0.00");
    EXPECT_EQ(RoundedDecimalText(1e20, 1, TieRule::ToEven), "100000000000000000000.0");
    EXPECT_EQ(RoundedDecimalText(std::numeric_limits<double>::quiet_NaN(), 2, TieRule::ToEven), "");
}
