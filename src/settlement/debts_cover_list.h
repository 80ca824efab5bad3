// DebtsCoverList is one of the two row lists of the debts cover window, kept apart from
// its widget: the open debts of one account and addressee at the cover date, each row
// with the cells the user sees (balance, currency balance, payment, rate, influence of
// the rate change), its reference and whether it is checked. Filling revalues the debt
// rows at the cover rates and leaves out the rate-change entries themselves; checking a
// row pays its whole balance in the base currency, unchecking gives it back, and a sum
// typed by the user pays part of it. The widget paints Cells() of each row.
#pragma once

#include "core/dictionary.h"
#include "core/recordset.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <QVector>

namespace orvo {

// One row of the list. Amounts hold what their cells show: rounded to two places, and 0
// for a cell shown blank.
struct DebtsCoverRow {
    // The debt entry's reference (the item's tag).
    QString Key;
    QDate Date;
    // Number, a blank and the comment.
    QString Nr;
    QString Comment;
    // The base balance at the cover rate that is still open.
    double LikutisLt = 0;
    double LikutisCurr = 0;
    // The debt's currency, three blanks for the base currency.
    QString CurrencyCode;
    // Paid by this cover, in base and in the debt's currency.
    double PaymentLt = 0;
    double PaymentSumCurr = 0;
    // The rate of the cover date, base currency per unit; 0 when none.
    double Rate = 0;
    // The rate as the cell shows it (foreign units per euro under a euro base).
    double RateShown = 0;
    // The influence of the rate change: the booked balance less its value at the cover
    // rate, a loss counted positive; the row posts it before its first cover entry.
    double InfluenceSum = 0;
    // The debit (1) or credit (-1) side of the balance.
    int InfluenceSign = 1;
    bool Checked = false;

    bool HasCurrency() const;
    // The item's text: the date as yyyy.mm.dd.
    QString DateText() const;
    // The date, a blank and Nr: how an entry names the debt it covers.
    QString DocText() const;
    // The code cell turns red: a currency debt with no currency left but money on it.
    bool CodeRed() const;
};

class DebtsCoverList {
public:
    // Column keys, in order after the item's text.
    static QStringList Keys();
    // The captions: "Data", "Nr", "Likutis, " + base, ... "Kurso įtaka".
    static QStringList Captions(const QString& baseCurrency);

    // Fills from the debt rows of the business object: a disconnected copy of `debts`
    // is revalued at `rates` (code to base currency per unit) and kept in Recordset();
    // the rows whose accounts are those of a rate-change entry (`accountRateIncome`,
    // `accountRateExpense`) are left out. Under a euro base the rate cell shows the rate
    // as the debt quotes it (foreign units per euro).
    void Fill(const RecordsetPtr& debts, const DictionaryPtr& rates,
              const QString& accountRateIncome, const QString& accountRateExpense, bool baseIsEuro);
    void Clear();

    const RecordsetPtr& Recordset() const { return rs_; }
    const QVector<DebtsCoverRow>& Rows() const { return rows_; }
    DebtsCoverRow& Row(int i) { return rows_[i]; }
    int Count() const { return rows_.size(); }
    int CheckedCount() const;

    // The cells of a row after the item's text, in the order of Keys().
    static QStringList Cells(const DebtsCoverRow& row);

    // A row that cannot be paid: "Klaidingas likutis !" for a currency balance below
    // zero, "Nenurodytas " + code + " kursas!" for a currency without a rate; empty
    // when it can.
    static QString Fault(const DebtsCoverRow& row);
    // The box of a fault: the row's date and Nr, a line break and the fault.
    static QString FaultText(const DebtsCoverRow& row, const QString& fault);

    // Checks row `i`: its whole balance is paid in the base currency. False, and the row
    // unchecked, when it has a fault (told through Messages, each missing rate once when
    // `reported` is given) or nothing to pay.
    bool Check(int i, const DictionaryPtr& reported = nullptr);
    // Unchecks row `i`: the payment goes back to the balance.
    void Uncheck(int i);
    // Every row checked (faulty rows stay unchecked) or every row unchecked.
    void CheckAll();
    void DropAll();
    // A typed payment of `newBase` (and `newCurr` for a currency row); 0 unchecks.
    void EnterSum(int i, double newBase, double newCurr);
    // The currency sum that a base payment of a currency row stands for.
    static double CurrencyOf(const DebtsCoverRow& row, double base);

    // The sum of PaymentLt over the rows.
    double PaymentSum() const;
    // The row whose key that is; -1 when none.
    int IndexOf(const QString& key) const;

private:
    RecordsetPtr rs_;
    QVector<DebtsCoverRow> rows_;
};

// A list cell's value as it reads back: two places, 0 when it shows a blank.
double CoverCellValue(double value);

} // namespace orvo
