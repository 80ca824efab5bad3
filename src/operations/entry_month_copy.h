// EntryMonthCopy spreads one entry of an operation over months, as frmBRCopyByMonthes
// chose: the entry itself becomes the first month, and each later month is added by
// AddBR with the same accounts and addressees, on the pointed day or the month's last
// day. A sum for the whole period is divided so that the months add up to it exactly:
// the last month takes what the earlier ones left.
//
// An entry in a foreign currency stays in its currency. The currency amount is what is
// spread, and each month's base sum is that amount at the entry's rate, since a stored
// entry's base sum must be its currency sum at its rate to the cent. An entry whose two
// sides carry two different currencies keeps the debit one on the copies.
#pragma once

#include "frame/orvo_object_uio.h"
#include "operations/copy_by_months_form.h"

#include <QString>

namespace orvo {

class EntryMonthCopy {
public:
    explicit EntryMonthCopy(OrvoObjectUIOPtr operation) : op_(std::move(operation)) {}

    // Spreads the entry with that GUID; false when it is not there or an AddBR failed
    // (the months made until then stay, for the user to see).
    bool Run(const QString& guid, const CopyByMonthsChoice& choice);

private:
    OrvoObjectUIOPtr op_;
};

} // namespace orvo
