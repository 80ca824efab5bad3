// SelectionAllocation puts what remains of a payment on one debt row: how much of the
// row's base and currency balance the payment covers, the cover in the payment's own
// currency, and, for a base row paid in a foreign currency, the rounding influence that
// closes the row. The payment may be in the base currency (three blanks) or in any
// currency at its own rate; the row may be a base row or a currency row at its rate.
#pragma once

#include <QString>

namespace orvo {

struct AllocationInput {
    // The row's balances.
    double BaseBalance = 0;
    double CurrencyBalance = 0;
    // The row's currency (three blanks for base) and rate (the tag of cell 8).
    QString RowCode = QStringLiteral("   ");
    double RowRate = 0;
    // The payment's currency (three blanks for base) and rate.
    QString PayCode = QStringLiteral("   ");
    double PayRate = 0;
    // What remains of the payment, in the payment's currency; 0 means the whole balance.
    double RemainingBase = 0;
    // What remains of a payment in the row's currency; 0 means the whole balance.
    double RemainingCurrency = 0;
};

struct AllocationResult {
    double PaymentLt = 0;
    double PaymentSumCurr = 0;
    double CoverSumCurr = 0;
    double InfluenceSum = 0;
    // The balances left on the row.
    double BaseBalance = 0;
    double CurrencyBalance = 0;
    // What the payment gave up: the cover for a foreign payment, PaymentLt for a base
    // one; 0 when nothing was allocated.
    double Result = 0;
    // The row is in a currency without a rate: nothing was allocated.
    bool MissingRate = false;
};

class SelectionAllocation {
public:
    static AllocationResult Allocate(const AllocationInput& in);

    // Whether a currency code is blank (the base currency).
    static bool IsBase(const QString& code) { return code.trimmed().isEmpty(); }
};

} // namespace orvo
