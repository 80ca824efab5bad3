// The per-day turnover of every account that the database keeps beside the entries: it
// follows every insert, deletion and change of an entry, however the entry is written,
// and a book that already holds entries is counted when the totals are added. Checked
// against a count over the entries themselves, on both backends.
#include "debts_fixture.h"

#include "host/storage/account_totals_schema.h"

using namespace orvo;
using namespace orvo::host;
using namespace orvo::host::testing;

namespace {

class AccountTurnoverKeptTest : public DebtsTest {
protected:
    Database& Db() { return session_->Db(); }

    // "account|day|debit|credit" rows of a query, in order.
    QStringList Lines(const QString& sql) {
        const QueryResult q = Db().Query(sql);
        EXPECT_TRUE(q.ok()) << q.Text.toStdString();
        QStringList out;
        for (int i = 0; i < q.RowCount(); ++i)
            out << QStringLiteral("%1|%2|%3|%4")
                       .arg(q.At(i, 0).toString(), q.At(i, 1).toDate().toString(Qt::ISODate),
                            QString::number(q.At(i, 2).toDouble(), 'f', 0),
                            QString::number(q.At(i, 3).toDouble(), 'f', 0));
        return out;
    }

    QStringList Kept() {
        return Lines(QStringLiteral("SELECT Account, DateD, SumD, SumC FROM BRAccountTotals "
                                    "ORDER BY Account, DateD"));
    }

    // The same turnover counted from the entries, as it must always be.
    QStringList Counted() {
        return Lines(
            QStringLiteral("SELECT Account, DateD, SUM(SumD), SUM(SumC) FROM ("
                           "SELECT AccountD AS Account, DateD, SumA AS SumD, 0 AS SumC FROM BR "
                           "UNION ALL SELECT AccountC, DateD, 0, SumA FROM BR) AS sides "
                           "GROUP BY Account, DateD ORDER BY Account, DateD"));
    }

    void ThreeOperations() {
        const qint64 sale = Invoice(kCustomer, 1210.00, QDate(2024, 1, 15), QStringLiteral("1"));
        Payment(kCustomer, sale, 1000.00, QDate(2024, 2, 10), QStringLiteral("2"));
        Book(QDate(2024, 1, 15), QStringLiteral("3"),
             {{QStringLiteral("2410"), QStringLiteral("5000"), 0.01, {}, {}, {}, QString()},
              {QStringLiteral("6000"), QStringLiteral("4430"), 300.00, {}, {}, {}, QString()}});
    }

    qint64 OperationOf(qint64 entry) {
        const QueryResult q = Db().Query(QStringLiteral("SELECT BROperID FROM BR WHERE ID = ?"),
                                         {Value(static_cast<double>(entry))});
        return q.RowCount() == 1 ? static_cast<qint64>(q.At(0, 0).toDouble()) : 0;
    }
};

} // namespace

TEST_P(AccountTurnoverKeptTest, SavedOperationsAddTheirEntriesToTheDaysTurnoverToTheCent) {
    ThreeOperations();
    EXPECT_EQ(Kept(), QStringList({"2410|2024-01-15|121001|0", "2410|2024-02-10|0|100000",
                                   "2710|2024-02-10|100000|0", "4430|2024-01-15|0|30000",
                                   "5000|2024-01-15|0|121001", "6000|2024-01-15|30000|0"}));
    EXPECT_EQ(Kept(), Counted());
}

TEST_P(AccountTurnoverKeptTest, DeletingAnOperationTakesItsTurnoverAwayAndEmptyDaysVanish) {
    const qint64 sale = Invoice(kCustomer, 1210.00, QDate(2024, 1, 15), QStringLiteral("1"));
    const qint64 payment =
        Payment(kCustomer, sale, 1000.00, QDate(2024, 2, 10), QStringLiteral("2"));
    const BOResult deleted = Call(QStringLiteral("DO0201500_DeleteOrvoObject"),
                                  QStringLiteral("'O0201500%1'").arg(OperationOf(payment)));
    ASSERT_TRUE(deleted.ok()) << deleted.Text.toStdString();
    EXPECT_EQ(Kept(), QStringList({"2410|2024-01-15|121000|0", "5000|2024-01-15|0|121000"}));
    EXPECT_EQ(Kept(), Counted());
}

TEST_P(AccountTurnoverKeptTest, ChangingAnEntrysAccountDateOrSumMovesItsTurnover) {
    ThreeOperations();
    const ExecResult changed = Db().Execute(
        QStringLiteral("UPDATE BR SET AccountD = ?, DateD = ?, SumA = ? WHERE SumA = ?"),
        {Value(QStringLiteral("2411")), Value(QDate(2024, 1, 16)), Value(qint32(250)),
         Value(qint32(1))});
    ASSERT_TRUE(changed.ok()) << changed.Text.toStdString();
    ASSERT_EQ(changed.RowsAffected, 1);
    EXPECT_EQ(Kept(), QStringList({"2410|2024-01-15|121000|0", "2410|2024-02-10|0|100000",
                                   "2411|2024-01-16|250|0", "2710|2024-02-10|100000|0",
                                   "4430|2024-01-15|0|30000", "5000|2024-01-15|0|121000",
                                   "5000|2024-01-16|0|250", "6000|2024-01-15|30000|0"}));
    EXPECT_EQ(Kept(), Counted());
}

TEST_P(AccountTurnoverKeptTest, AnEntryWithoutAnAccountOnASideAddsNothingForThatSide) {
    // The operation object never stores such an entry; an import writing rows may.
    const qint64 sale = Invoice(kCustomer, 1.00, QDate(2024, 3, 1), QStringLiteral("1"));
    const ExecResult put = Db().Execute(
        QStringLiteral("INSERT INTO BR (BROperID, DateD, SumA, AccountD) VALUES (?, ?, ?, ?)"),
        {Value(static_cast<double>(OperationOf(sale))), Value(QDate(2024, 3, 2)),
         Value(qint32(1000)), Value(QStringLiteral("2410"))});
    ASSERT_TRUE(put.ok()) << put.Text.toStdString();
    EXPECT_EQ(Kept(), QStringList({"2410|2024-03-01|100|0", "2410|2024-03-02|1000|0",
                                   "5000|2024-03-01|0|100"}));
}

TEST_P(AccountTurnoverKeptTest, ABookThatAlreadyHoldsEntriesIsCountedWhenTheTotalsAreAdded) {
    ThreeOperations();
    // Back to how a book stood before the totals: no triggers and an empty table.
    const QStringList drops =
        Db().Kind() == Backend::PostgreSQL
            ? QStringList{QStringLiteral("DROP TRIGGER BRAccountTotalsKeep ON BR"),
                          QStringLiteral("DROP FUNCTION BRAccountTotalsKeep()")}
            : QStringList{QStringLiteral("DROP TRIGGER BRAccountTotalsInsert"),
                          QStringLiteral("DROP TRIGGER BRAccountTotalsDelete"),
                          QStringLiteral("DROP TRIGGER BRAccountTotalsUpdate")};
    for (const QString& sql : drops + QStringList{QStringLiteral("DELETE FROM BRAccountTotals")})
        ASSERT_TRUE(Db().Execute(sql).ok()) << sql.toStdString();
    ASSERT_TRUE(Kept().isEmpty());

    const ResultRecord applied = AccountTotalsMigration().Apply(Db());
    ASSERT_TRUE(applied.ok()) << applied.Text.toStdString();
    EXPECT_EQ(Kept(), Counted());
    EXPECT_EQ(Kept().size(), 6);

    // And the triggers keep counting afterwards.
    Invoice(kOtherCustomer, 5.00, QDate(2024, 1, 15), QStringLiteral("4"));
    EXPECT_EQ(Kept(), Counted());
}

TEST_P(AccountTurnoverKeptTest, AccountsTotalReadFromTheTotalsAgreesWithTheEntries) {
    ThreeOperations();
    const BOResult r = Call(QStringLiteral("GetAccountsTotal"), QStringLiteral("'2024.01.31',''"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(Rows(r.Data.toRecordset(), {"Account", "SumD", "SumC", "SumA", "AccType"}),
              QStringList({"2410|1210.01|0|1210.01|D", "4430|0|300|300|K",
                           "5000|0|1210.01|1210.01|K", "6000|300|0|300|D"}));
}

ORVO_STORAGE_BACKENDS(AccountTurnoverKeptTest);
