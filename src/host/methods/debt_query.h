// DebtQuery finds the open debts of an account at a date: the one rule behind every
// debt list of the business object (Debts1, Debts2, Debts3, DebtsByDebit, DebtsByCredit,
// Debts1New, CoverFirms).
//
// A debt is an entry on the account with an addressee on the account's side: a
// BRProperties row of Sign 1 when the account is the entry's AccountD (a debit debt, such
// as a customer's invoice on 2410), of Sign -1 when it is the AccountC (a credit debt,
// such as a supplier's invoice on 4430). An entry that itself carries a reference to an
// entry ("O0201500" + its ID) on that side is not a debt of its own: it settles or
// adjusts the entry it names.
//
// A later entry refers to the debt by such a reference row, whose Sign tells the side on
// which the debt's account stands in the referring entry. On the side opposite to the
// debt (a payment crediting 2410 for an invoice debited there) its SumA reduces the
// debt's base rest; on the same side (the currency rate change of the debt, debiting
// 2410 against income 536) it adds to it. The currency rest moves likewise by the
// referring entry's currency sum of that side, but only when that side is in the debt's
// own currency. Only entries dated on or before the asked date count, the debt's own
// date included. Amounts are summed in exact hundredths.
//
// The database keeps every debt with an addressee or a cover, with its rests after all
// covers and the day from which it stays closed (BROpenItems, see open_items_schema.h), so
// a list of one addressee or of a whole kind reads only the debts not closed by the date
// and takes their kept rests; only a debt covered again after the date has its rests
// counted from the referring entries. A whole kind reads the kept list rows (BRDebtList,
// see debt_list_schema.h), which hold every column a list shows. A side with two currency
// rows is in the currency of the first, as its kept rests are.
#pragma once

#include "core/results.h"

#include <QDate>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

namespace orvo::host {

class Database;

// Whose debts are asked for.
struct DebtSelection {
    QString Account;
    QDate Date;
    // 1 debit debts, -1 credit debts, 0 both.
    int Sign = 0;
    // Shorter than 8 characters: every debt of the account, whatever its addressee (an
    // entry without one included); exactly 8: every addressee of that kind ("O0000100",
    // all firms); longer: that one addressee.
    QString Addressee;
    // With the branches of a firm: the firms whose ParentID is the addressee's firm.
    bool WithBranches = false;
};

// One open debt, amounts in hundredths.
struct DebtRow {
    qint64 EntryId = 0;
    qint64 OperationId = 0;
    QDate DateD;
    QString Number;
    QString Comment;
    QString FOIDR;
    QString ShowString;
    QString AccountD;
    QString AccountC;
    // 1 a debit debt, -1 a credit debt.
    int Sign = 1;
    qint64 FullCents = 0;
    qint64 FullCurrCents = 0;
    qint64 RestCents = 0;
    qint64 RestCurrCents = 0;
    // Three letters, or three blanks for the base currency.
    QString CurrencyCode;
    double RateCurr = 0;
    // The rate as the entry keeps it beside RateCurr (CurrencyRateD or CurrencyRateC):
    // foreign units per euro under a euro base; 0 when the entry has none.
    double StoredCurrencyRate = 0;
};

struct DebtList {
    qint32 Code = 0;
    QString Text;
    QVector<DebtRow> Rows;

    bool ok() const { return Code == 0; }
};

class DebtQuery {
public:
    // Up to `referenceLookupLimit` debts, the entries that refer to them are found by their
    // references through the FOIDR index; beyond it, by one pass over the account's
    // entries. Both give the same rests.
    static constexpr int kReferenceLookupLimit = 20000;
    explicit DebtQuery(Database& db, int referenceLookupLimit = kReferenceLookupLimit)
        : db_(db), referenceLookupLimit_(referenceLookupLimit) {}

    // The debts with a rest other than zero (in base or in currency) at the date, ordered
    // by date and then by entry. A rest below zero stays in the list: an invoice paid
    // twice shows what was overpaid.
    DebtList Open(const DebtSelection& selection);

    // The reference by which later entries name an entry.
    static QString EntryReference(qint64 entryId);
    // The first and the first-after-last text of a kind's references, for a range
    // condition the FOIDR index can serve: "O0000100" gives "O0000100" and "O0000101".
    static QPair<QString, QString> KindRange(const QString& kind);
    // The firm and its branches as references; only the addressee when it is no firm.
    static ResultRecord FirmAndBranches(Database& db, const QString& addressee, QStringList* out);

private:
    // A debt as read, before an entry named by two addressees of the kind becomes one debt.
    struct Candidate {
        DebtRow Row;
        // The addressee row that names it and the side's currency row; of two, the first
        // is kept.
        qint64 AddresseeRowId = 0;
        qint64 CurrencyRowId = 0;
        // Its kept rests do not hold at the date (something refers to it later): it carries
        // its whole sums, and its rests are counted from the covers.
        bool CountLater = false;
    };

    // Appends the debts of one side not closed for good by the date.
    ResultRecord readCandidates(const DebtSelection& s, int sign, QVector<Candidate>& found);
    // Counts the rests of the `uncounted` rows at the date from the entries that refer to
    // them.
    ResultRecord applyCovers(const DebtSelection& s, QVector<DebtRow>& rows,
                             const QVector<int>& uncounted);

    Database& db_;
    int referenceLookupLimit_;
};

} // namespace orvo::host
