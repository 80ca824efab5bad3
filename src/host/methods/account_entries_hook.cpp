#include "host/methods/account_entries_hook.h"

#include "host/methods/method_codes.h"
#include "host/storage/database.h"

namespace orvo::host {

namespace {

AccountEntriesHook& storedHook() {
    static AccountEntriesHook hook;
    return hook;
}

// Whether the book holds the entry table BR, asked of the catalogue of each backend so
// that no statement fails inside the caller's transaction.
bool hasEntryTable(Database& db, QString* error) {
    const QueryResult q =
        db.Kind() == Backend::SQLite
            ? db.Query(QStringLiteral(
                  "SELECT COUNT(*) FROM sqlite_master WHERE type = 'table' AND lower(name) = 'br'"))
            : db.Query(QStringLiteral("SELECT COUNT(*) FROM information_schema.tables WHERE "
                                      "table_schema = current_schema() AND table_name = 'br'"));
    if (!q.ok()) {
        if (error)
            *error = q.Text;
        return false;
    }
    return q.Scalar().toInt32() > 0;
}

} // namespace

void SetAccountEntriesHook(const AccountEntriesHook& hook) {
    storedHook() = hook;
}

const AccountEntriesHook& CurrentAccountEntriesHook() {
    return storedHook();
}

ResultRecord MoveAccountEntries(Database& db, const QString& fromAccount,
                                const QString& toAccount) {
    if (storedHook().MoveEntries)
        return storedHook().MoveEntries(db, fromAccount, toAccount);
    QString error;
    if (!hasEntryTable(db, &error))
        return error.isEmpty() ? ResultRecord::Success()
                               : ResultRecord::Failure(bo_codes::MethodFailed, error);
    for (const char* column : {"AccountD", "AccountC"}) {
        const ExecResult r = db.Execute(
            QStringLiteral("UPDATE BR SET %1 = ? WHERE %1 = ?").arg(QLatin1String(column)),
            {Value(toAccount), Value(fromAccount)});
        if (!r.ok())
            return ResultRecord::Failure(bo_codes::MethodFailed, r.Text);
    }
    return ResultRecord::Success();
}

qint64 CountAccountEntries(Database& db, const QString& account, QString* error) {
    if (storedHook().CountEntries)
        return storedHook().CountEntries(db, account, error);
    QString failure;
    if (!hasEntryTable(db, &failure)) {
        if (failure.isEmpty())
            return 0;
        if (error)
            *error = failure;
        return -1;
    }
    const QueryResult q =
        db.Query(QStringLiteral("SELECT COUNT(*) FROM BR WHERE AccountD = ? OR AccountC = ?"),
                 {Value(account), Value(account)});
    if (!q.ok()) {
        if (error)
            *error = q.Text;
        return -1;
    }
    return static_cast<qint64>(q.Scalar().toDouble());
}

} // namespace orvo::host
