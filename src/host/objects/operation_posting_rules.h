// What the chart of accounts tells the save of an operation: whether an account stands
// in the chart, which addressee kinds it demands on each side, and whether a date falls
// into a period locked for it. The book's own rules read the chart's tables when the
// book has them; a book without a chart refuses nothing on its account.
#pragma once

#include <QDate>
#include <QString>
#include <QVector>
#include <functional>

namespace orvo::host {

class Database;

// A kind of addressee that an account demands on one side of an entry.
struct AddresseeDemand {
    // 1 the account is debited, -1 credited.
    int Sign = 1;
    QString FOID;
};

// Each rule may be left unset: then nothing is refused on its account.
struct OperationPostingRules {
    // Whether the account stands in the chart.
    std::function<bool(Database&, const QString& account)> AccountKnown;
    // The addressee kinds that the account demands when it stands on `sign`'s side.
    std::function<QVector<AddresseeDemand>(Database&, const QString& account, int sign)> Demands;
    // A refusal text when posting to the account on `date` falls into a locked period;
    // empty when it may be posted.
    std::function<QString(Database&, const QString& account, const QDate& date)> LockRefusal;
};

// The same rules, each answer remembered for as long as the returned rules live: the
// checks of one save ask the chart once per account (per account and side for demands,
// per account and date for locks) however many entries post to it. Made afresh for each
// save, so a chart changed between saves is always read anew.
OperationPostingRules RememberedPostingRules(const OperationPostingRules& rules);

// The rules the book holds: read from the chart's tables (Accounts, BRRequiredAddr,
// AccountLocks) when the book has them. An empty chart accepts every account, so that a
// book can take operations before its chart is entered. The locks are the chart's own
// CheckAccountLock; a `manager` passes the ordinary user's date, not the manager's.
OperationPostingRules BookPostingRules(bool manager = false);

} // namespace orvo::host
