// SelectionList is the list of a settling window without its widget: it fills its rows
// from a revalued debt recordset (leaving out the rate-change entries themselves and
// spreading the caller's payment over the rows in order), and carries out what the user
// does to a row: check it (the payment that remains goes on it), uncheck it (its
// balances come back), or type its payment in the sum dialog. The widgets of a window
// mirror Rows() after each of these.
#pragma once

#include "core/dictionary.h"
#include "core/recordset.h"
#include "settlement/selection_row.h"

#include <QVector>

namespace orvo {

// What the caller pays with.
struct SelectionPayment {
    // Three blanks for the base currency.
    QString Code = QStringLiteral("   ");
    double Rate = 0;
    // The sum in the payment's currency (0: each checked row takes its whole balance).
    double Sum = 0;
    // A sum in the rows' currency, for a base payment.
    double SumCurr = 0;
};

// What the sum dialog is given for a row.
struct SumEntryInput {
    QString Code;
    // The rate that turns the typed currency sum into base: the row's rate for a currency
    // row, the payment's rate for a base row.
    double PaymentRate = 0;
    double RowRate = 0;
    double BaseBalance = 0;
    double CurrencyBalance = 0;
    double OldPayment = 0;
    double OldPaymentCurr = 0;
    // The rate as the currency is quoted (CurrencyRate of the row).
    double BookRate = 0;
};

class SelectionList {
public:
    void SetPayment(const SelectionPayment& payment) { payment_ = payment; }
    const SelectionPayment& Payment() const { return payment_; }
    // The income (536) and expense (636) accounts of rate change.
    void SetRoleAccounts(const QString& acc536, const QString& acc636);
    QString Acc536() const { return acc536_; }
    QString Acc636() const { return acc636_; }
    // Under a euro base cell 8 shows the rate as quoted.
    void SetBaseIsEuro(bool euro) { baseIsEuro_ = euro; }
    void SetBaseCurrency(const QString& code) { baseCurrency_ = code; }
    // The side of the entry being made: 1 debit ("D"), -1 credit.
    void SetSide(int sign) { side_ = sign; }
    int Side() const { return side_; }

    // Fills the rows from the debts (which it keeps); an empty or null recordset clears
    // the list.
    void Fill(const RecordsetPtr& debts);
    void Clear();

    QVector<SelectionRow>& Rows() { return rows_; }
    const QVector<SelectionRow>& Rows() const { return rows_; }
    RecordsetPtr Debts() const { return debts_; }
    // Whether cell 10 is shown: a payment in a currency other than the base.
    bool HasCoverCell() const;

    // The debt row of the recordset for a list row: the recordset stands on it, filtered
    // to nothing else. False when none is.
    bool GoToDebt(int index) const;

    // Checks a row; false (and the row unchecked) when it fails validation or nothing
    // was allocated. `reported` keeps the currencies already reported as having no rate.
    bool Check(int index, const DictionaryPtr& reported = nullptr);
    void Uncheck(int index);
    // The row's validation; shows the failure.
    bool Validate(int index, const DictionaryPtr& reported = nullptr) const;

    SumEntryInput SumEntry(int index) const;
    // What the sum dialog gave back.
    void EnterSum(int index, double newBase, double newCurr);

    // A new rate of the working date for one row: the debt's CurrentRate, its influence
    // and cell 8, 9 by the revaluing rule.
    void ChangeRate(int index, double rate);

    // What remains of the payment (0 when the payment was 0 or is spent).
    double Remaining() const;
    // The totals of the window: the balances, the checked payments in base, and in the
    // payment's currency (cell 10 when present, else cell 6).
    double TotalBalance() const;
    double TotalPayment() const;
    double TotalPaymentCurr() const;

    // The text of the box that names a row: its date and Nr, a line break, the message.
    static QString RowMessage(const SelectionRow& row, const QString& message);

private:
    // Whether the row is a rate-change entry of role 536 or 636.
    bool isRateChangeEntry() const;
    SelectionRow rowFromDebt() const;
    double remainingExcept(int index) const;
    // The sum of a cell over the rows (the checked ones only), or of the cover in the
    // payment's currency where a row has one.
    double total(bool checkedOnly, bool inPaymentCurrency, int cell) const;
    void writeAllocation(SelectionRow& row, const struct AllocationResult& a) const;

    SelectionPayment payment_;
    QString acc536_;
    QString acc636_;
    bool baseIsEuro_ = false;
    QString baseCurrency_;
    int side_ = 1;
    RecordsetPtr debts_;
    QVector<SelectionRow> rows_;
};

} // namespace orvo
