#include "host/objects/operation_posting_rules.h"

#include "host/methods/account_locks.h"
#include "host/storage/database.h"

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
