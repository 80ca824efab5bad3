// DebtsCoverPosting turns the checked rows of the two cover lists into entries of the
// open operation. It walks both lists with two pointers in step, and for each pair adds
// one entry whose amount is the smaller of the two rests; a row in foreign currency
// posts its rate influence first, once, as an entry against the account of rate change,
// and the currency of its last step is corrected by what rounding left over, so that a
// covered debt is closed in base and in currency at once. Entries are made through the
// operation's AddBR; nothing is stored until the operation is saved.
#pragma once

#include "core/value.h"
#include "frame/orvo_object_uio.h"
#include "settlement/debts_cover_list.h"

#include <QDate>
#include <QString>
#include <QVector>

namespace orvo {

// One list of a cover as the posting sees it.
struct DebtsCoverSide {
    QString Account;
    // The addressee chosen for the side, whose other references the entries carry.
    QString Addressee;
    // The checked rows, in list order.
    QVector<DebtsCoverRow> Rows;
};

class DebtsCoverPosting {
public:
    // `primaryDebit`: the primary list holds debit debts (optDebC), so the entries
    // credit its account and debit the secondary one; otherwise the other way round.
    DebtsCoverPosting(OrvoObjectUIOPtr operation, bool primaryDebit, QString accountRateIncome,
                      QString accountRateExpense);

    // The entries' date is the later date of the two rows of each pair when
    // `byCoveredDates`, else `coverDate`.
    void SetDates(const QDate& coverDate, bool byCoveredDates);

    // Posts the pairs; false when AddBR refused one (what was added stays).
    bool Run(const DebtsCoverSide& primary, const DebtsCoverSide& secondary);

    // The GUIDs of the entries added by Run, in order.
    const QStringList& Added() const { return added_; }

    QString DebitAccount(const DebtsCoverSide& primary, const DebtsCoverSide& secondary) const;
    QString CreditAccount(const DebtsCoverSide& primary, const DebtsCoverSide& secondary) const;
    // The side of the entry on which each list's account stands: 1 debit, -1 credit.
    int PrimarySign() const { return primaryDebit_ ? -1 : 1; }
    int SecondarySign() const { return -PrimarySign(); }

    // The addressee triples of a row: the reference to the debt (when the row has one)
    // and the addressees that entries of the account carry with the side's addressee.
    ValueArray Addressees(const DebtsCoverSide& side, const DebtsCoverRow& row, int sign);

    // The entry of rate change: `amount` above 0 is a gain (the debt account debited
    // against the income account), below 0 a loss (the expense account debited, the
    // debt account credited), 0 nothing. False when AddBR refused it.
    bool PostRateChange(double amount, const QString& debtAccount, const ValueArray& addressees,
                        int sideSign, const QDate& date);

private:
    struct Leg {
        QString key;
        QString docText;
        double sumBase = 0;
        double sumCurr = 0;
        QString currCode;
        double rate = 0;
        int sign = 1;
    };

    static Leg legOf(const DebtsCoverRow& row, int sign, double step, double rest, double done);
    static void foldCurrencyRest(Leg& leg, double restCurr, double step);
    bool addEntry(const QString& debit, const QString& credit, const Leg& primary,
                  const Leg& secondary, double step, const ValueArray& addressees,
                  const QDate& date);

    OrvoObjectUIOPtr op_;
    bool primaryDebit_;
    QString accountRateIncome_;
    QString accountRateExpense_;
    QDate coverDate_;
    bool byCoveredDates_ = false;
    QStringList added_;
};

} // namespace orvo
