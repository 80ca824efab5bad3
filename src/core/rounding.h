// The rounding rules of the system. Several slightly different rules exist, each for
// its own use (rates, typed sums, base sums made from currency sums), and none may
// stand in for another: a sum rounded by the wrong rule differs by a cent now and then.
//
// Round is the runtime-style banker's rounding that the other rules build on. It works
// on the decimal a double stands for, not on its binary expansion: a double is read as
// the shortest decimal text that converts back to the same double (2.675 is "2.675",
// though its binary value lies a hair below), that decimal is rounded with ties going
// to the even neighbour, and the result is the double nearest to the rounded decimal
// (so Round(12.345 + 0.00001, 2) == 12.35 compares equal to the literal). A value that
// misses a tie by floating noise (1.0049999999999999) is not a tie; the addends that the
// callers put in front of rounding exist to push such values over the half.
#pragma once

#include <string>

namespace orvo {

// How a digit string that ends exactly on a half is settled.
enum class TieRule { ToEven, AwayFromZero };

// Banker's rounding of `value` to `places` decimals (0 when negative): Round(2.5, 0) == 2,
// Round(3.5, 0) == 4, Round(0.125, 2) == 0.12. NaN and infinities come back unchanged.
double Round(double value, int places = 0);

// Int(value * 10^places + 0.5) / 10^places in double precision, Int being the floor:
// RoundHalfUp(-2.5, 0) == -2. Used for rates and by the revaluation code.
double RoundHalfUp(double value, int places);

// The editors' comparison of typed sums: banker's rounding of value + 0.0000001 to four
// places when `fourPlaces` is true, else to two.
double RoundSum(double value, bool fourPlaces);

// Every base sum made from a currency sum: banker's rounding of value + 0.00001 to two
// places, so that 0.125 becomes 0.13 and 2.675 becomes 2.68.
double RoundBaseSum(double value);

// The addend of the base-sum rule, also used by callers that print a sum as a base sum.
inline constexpr double BaseSumAddend = 0.00001;

// The decimal text of `value` rounded to `places` decimals (0..40) under `tie`: an
// optional "-", the integer digits, and when places > 0 a "." and exactly `places`
// digits, no grouping ("-1234.50"). A result of zero carries no sign. Non-finite
// values give an empty text.
std::string RoundedDecimalText(double value, int places, TieRule tie);

} // namespace orvo
