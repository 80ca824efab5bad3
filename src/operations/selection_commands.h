// The commands of the operation object that open the selection window frmBROperSelect:
// BROperSelect (pick one open operation of an addressee) and Debts (settle an entry by
// the debts the user chooses), with the return path that turns the chosen debts into
// entries.
//
// Debts(GUID, Sign, FOIDR, DateD, PaymentSum, Comment [, PaymentCurrCode
// [, PaymentCurrRate [, PaymentSumCurr [, Info]]]]), six to ten parameters:
//   GUID      the entry being settled (a list row of the document)
//   Sign      the side of that entry on which the debt account stands: 1 debit, -1 credit
//   FOIDR     the addressee whose debts are offered; empty takes the entry's first
//             addressee of that side
//   DateD     the working date; PaymentSum the amount to spread (0: the whole balances)
//   Comment, PaymentCurrCode (three blanks: base), PaymentCurrRate, PaymentSumCurr
//   Info      a text for the new entries, such as the import key of a bank statement
// The window opens on a SelectParameters row (OIDR, FOIDR, DateD, Comment, Info,
// PaymentSum, PaymentSumCurr, PaymentCurrCode, PaymentCurrRate, and the debt account in
// AccountD or AccountC by Sign). Its result is posted by PostSelectedDebts.
#pragma once

#include "core/recordset.h"
#include "core/results.h"
#include "core/value.h"

#include <QString>

namespace orvo {

class UIO0201500;

// What the return path needs to know of the entry being settled.
struct DebtSettlement {
    // The entry the chosen debts replace; empty when none.
    QString GUID;
    // The side on which the debt account stands in the new entries: 1 debit, -1 credit.
    qint16 Sign = -1;
    QString DebtAccount;
    QString CounterAccount;
    // The text of the new entries; empty takes each debt's Comment.
    QString Info;
};

class SelectionCommands {
public:
    explicit SelectionCommands(UIO0201500& operation) : op_(operation) {}

    // BROperSelect(AccountD, AccountC, FOIDR, DateD): Value is OIDR of the chosen row,
    // empty when the window was cancelled.
    ValueResult BROperSelect(const ValueArray& parameters);

    // Debts(...) as told above: Value is the number of debts posted.
    ValueResult Debts(const ValueArray& parameters);

    // Posts the rows of the window's result: the settled entry goes, and for each row an
    // earlier entry paying the same debt on the debt account goes (DeleteBR of the
    // account, the side and the debt's OIDR); then, when the row has a currency
    // difference (ExtSum), an entry between the debt account and the account of rate
    // change (Acc536 for a gain, Acc636 for a loss) comes first, and the payment entry
    // (AddBR) follows: PaymentSum in base, or PaymentSumCurr at DebtCurrRate on the debt
    // side when the debt is in a foreign currency (DebtCurrCode). Both carry the
    // addressee (AddrOIDR, AddrName) and the reference to the debt (OIDR, Comment) on the
    // debt account's side. Value is the number of rows posted.
    ValueResult PostSelectedDebts(const DebtSettlement& settlement, const RecordsetPtr& result);

private:
    UIO0201500& op_;
};

} // namespace orvo
