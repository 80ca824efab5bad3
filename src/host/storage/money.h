// Money converts two-decimal amounts between the doubles that recordsets carry and the
// exact integer hundredths that storage keeps, so that a sum over any number of entries
// is exact (SUM over cents is integer arithmetic in both backends).
//
// Amounts reaching storage have already been rounded to two places by the system's own
// rules; a double only approximates such a decimal (0.29 is 0.28999999999999998). ToCents
// reads the double as the shortest decimal that converts back to it - the number a person
// typed or a rounding rule produced - and rounds that decimal to hundredths, half away
// from zero. So a double within 1e-6 of a two-place value gives exactly that value
// (0.29 -> 29, 1234567.89 -> 123456789, -0.01 -> -1), and a value with a real third
// decimal rounds as written (0.285 -> 29, -0.285 -> -29, 0.2849 -> 28), never as its
// binary approximation would.
#pragma once

#include "core/value.h"

#include <QtGlobal>

namespace orvo::host {

class Money {
public:
    // Hundredths of `amount`; `ok` is false (and the result 0) for NaN, infinity or an
    // amount whose hundredths exceed 64 bits.
    static qint64 ToCents(double amount, bool* ok = nullptr);
    // The double nearest to cents / 100: the same double as the decimal literal.
    static double FromCents(qint64 cents);

    // Hundredths as a parameter value: Int32 when they fit, else an exact Double.
    static Value CentsValue(qint64 cents);
    // Hundredths read back from a column (Int32 or Double); `ok` false for other kinds.
    static qint64 CentsFromValue(const Value& value, bool* ok = nullptr);
    // The amount of a column of hundredths; Null stays Null.
    static Value AmountFromValue(const Value& value);
};

} // namespace orvo::host
