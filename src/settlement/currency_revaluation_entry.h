// The entries of currency rate change that the revaluation and the exchange windows add
// to an operation. Such an entry moves only the base value of a currency balance, so it
// carries no currency sum; it still belongs to that currency, and the balance of the
// account by currency must count it there. AddBR accepts a currency only together with
// its sum and rate, so the entry is added in base currency and then marked with a
// currency row of that code, no sum and no rate, on the side of the revalued account.
#pragma once

#include "core/results.h"
#include "core/value.h"
#include "frame/orvo_object_uio.h"

#include <QString>

namespace orvo {

struct RateChangeEntry {
    QString AccountD;
    QString AccountC;
    // The amount, above 0.
    double Amount = 0;
    // Flat triples of sign, reference and text, as AddBR takes them.
    ValueArray Addressees;
    // 1 when the revalued account stands on the debit side, -1 on the credit side.
    qint16 Sign = 1;
    // The currency of the revalued balance; three blanks (or empty) for none.
    QString CurrencyCode;
    // The entry's date; empty for the operation's.
    QString Date;
    QString Info;
};

// Adds the entry through the operation's AddBR and marks its currency. Value is the new
// entry's GUID; a refusal of AddBR comes back as it is.
ValueResult AddRateChangeEntry(const OrvoObjectUIOPtr& operation, const RateChangeEntry& entry);

} // namespace orvo
