// SelectionResult is what a selection window hands back when the user presses OK: one
// row for each checked debt, with the debt as read, what is paid on it in base and in
// currency, the rate-change influence that the payment leaves (ExtSum, as a rise of the
// debt's balance: positive adds to a debit balance and takes from a credit one), the
// addressee, and the two accounts of rate change. A payment selection (kind O0201505)
// also carries the debt's date, balances and client.
#pragma once

#include "core/recordset.h"
#include "settlement/selection_list.h"

#include <QString>

namespace orvo {

struct SelectionResultContext {
    // The caller's kind; O0201505 is the payment selection.
    QString CallerKind;
    // The window's addressee and its text.
    QString Addressee;
    QString AddresseeName;
};

class SelectionResult {
public:
    static const QString PaymentKind;

    // The fields of the result, for `callerKind`.
    static FieldDefs Fields(const QString& callerKind);

    // The result; it stands on the row of `currentIndex` when that row is checked, else
    // on its first row.
    static RecordsetPtr Build(const SelectionList& list, const SelectionResultContext& context,
                              int currentIndex = -1);

    // ExtSum of one row of the list, its debt standing current in the list's recordset.
    static double ExtSum(const SelectionList& list, int index);
};

} // namespace orvo
