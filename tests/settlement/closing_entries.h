// The entries a book holds for one operation, read back as "debit|credit|sum|date" in
// the order they were stored, for the closing and deferred-cover tests to compare.
#pragma once

#include "host/storage/database.h"
#include "host/storage/money.h"

#include <QStringList>

namespace orvo::test {

inline QStringList StoredEntryLines(host::Database& db, const QString& operation) {
    const host::QueryResult q =
        db.Query(QStringLiteral("SELECT AccountD, AccountC, SumA, DateD FROM BR WHERE BROperID "
                                "= ? ORDER BY ID"),
                 {Value(operation.mid(8).toDouble())});
    QStringList rows;
    if (!q.ok())
        return {q.Text};
    for (int i = 0; i < q.RowCount(); ++i)
        rows << q.At(i, 0).toString() + QLatin1Char('|') + q.At(i, 1).toString() +
                    QLatin1Char('|') +
                    QString::number(host::Money::FromCents(host::Money::CentsFromValue(q.At(i, 2))),
                                    'f', 2) +
                    QLatin1Char('|') + q.At(i, 3).toDate().toString(QStringLiteral("yyyy.MM.dd"));
    return rows;
}

} // namespace orvo::test
