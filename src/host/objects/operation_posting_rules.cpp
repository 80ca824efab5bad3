#include "host/objects/operation_posting_rules.h"

#include "host/methods/account_locks.h"
#include "host/storage/database.h"

#include <QHash>
#include <memory>

namespace orvo::host {

namespace {

// Whether the book has a table of that name (asked once per rule set and book).
bool hasTable(Database& db, const QString& name) {
    const QueryResult q =
        db.Kind() == Backend::SQLite
            ? db.Query(QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE type = 'table' "
                                      "AND lower(name) = lower(?)"),
                       {Value(name)})
            : db.Query(QStringLiteral("SELECT COUNT(*) FROM information_schema.tables WHERE "
                                      "table_schema = current_schema() AND table_name = lower(?)"),
                       {Value(name)});
    return q.ok() && q.Scalar().toInt32() > 0;
}

// Remembers, per book, whether the chart's tables are there.
class ChartPresence {
public:
    bool In(Database& db) {
        if (db_ != &db) {
            db_ = &db;
            present_ = hasTable(db, QStringLiteral("Accounts")) &&
                       hasTable(db, QStringLiteral("BRRequiredAddr")) &&
                       hasTable(db, QStringLiteral("AccountLocks"));
        }
        return present_;
    }

private:
    const Database* db_ = nullptr;
    bool present_ = false;
};

} // namespace

OperationPostingRules RememberedPostingRules(const OperationPostingRules& rules) {
    struct Answers {
        QHash<QString, bool> known;
        QHash<QString, QVector<AddresseeDemand>> demands;
        QHash<QString, QString> locks;
    };
    auto answers = std::make_shared<Answers>();
    OperationPostingRules out;
    if (rules.AccountKnown)
        out.AccountKnown = [answers, ask = rules.AccountKnown](Database& db,
                                                               const QString& account) {
            const auto found = answers->known.constFind(account);
            if (found != answers->known.constEnd())
                return found.value();
            const bool known = ask(db, account);
            answers->known.insert(account, known);
            return known;
        };
    if (rules.Demands)
        out.Demands = [answers, ask = rules.Demands](Database& db, const QString& account,
                                                     int sign) {
            const QString key = QString::number(sign) + QLatin1Char('|') + account;
            const auto found = answers->demands.constFind(key);
            if (found != answers->demands.constEnd())
                return found.value();
            const QVector<AddresseeDemand> demands = ask(db, account, sign);
            answers->demands.insert(key, demands);
            return demands;
        };
    if (rules.LockRefusal)
        out.LockRefusal = [answers, ask = rules.LockRefusal](Database& db, const QString& account,
                                                             const QDate& date) {
            const QString key = QString::number(date.isValid() ? date.toJulianDay() : 0) +
                                QLatin1Char('|') + account;
            const auto found = answers->locks.constFind(key);
            if (found != answers->locks.constEnd())
                return found.value();
            const QString refusal = ask(db, account, date);
            answers->locks.insert(key, refusal);
            return refusal;
        };
    return out;
}

OperationPostingRules BookPostingRules(bool manager) {
    auto chart = std::make_shared<ChartPresence>();
    OperationPostingRules rules;
    rules.AccountKnown = [chart](Database& db, const QString& account) {
        if (!chart->In(db))
            return true;
        const QueryResult q = db.Query(
            QStringLiteral("SELECT (SELECT COUNT(*) FROM Accounts WHERE Account = ?), "
                           "(SELECT COUNT(*) FROM (SELECT ID FROM Accounts LIMIT 1) AS anyone)"),
            {Value(account)});
        if (!q.ok() || q.RowCount() == 0)
            return false;
        return q.At(0, 0).toInt32() > 0 || q.At(0, 1).toInt32() == 0;
    };
    rules.Demands = [chart](Database& db, const QString& account, int sign) {
        QVector<AddresseeDemand> out;
        if (!chart->In(db))
            return out;
        const QueryResult q = db.Query(
            QStringLiteral("SELECT r.FOID FROM BRRequiredAddr r JOIN Accounts a ON a.ID = "
                           "r.AccountID WHERE a.Account = ? AND (r.Sign = ? OR r.Sign = 0) "
                           "ORDER BY r.ID"),
            {Value(account), Value(qint32(sign))});
        if (q.ok())
            for (int i = 0; i < q.RowCount(); ++i)
                out.append({sign, q.At(i, 0).toString()});
        return out;
    };
    rules.LockRefusal = [chart, manager](Database& db, const QString& account, const QDate& date) {
        if (!chart->In(db) || account.isEmpty() || !date.isValid())
            return QString();
        const ResultRecord r = CheckAccountLock(db, account, date, manager);
        return r.ok() ? QString() : r.Text;
    };
    return rules;
}

} // namespace orvo::host
