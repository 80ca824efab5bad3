// Bulk writing on both backends: row numbers reserved for a table before its rows are
// inserted, multi-row insertion of any number of rows, and prepared statements that stay
// right after the schema changes under them or a transaction is rolled back.
#include "storage_fixture.h"

#include <QSet>

namespace orvo::host {
namespace {

using testing::StorageTest;

class StorageBulkTest : public StorageTest {
protected:
    void SetUp() override {
        StorageTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        db_ = Connect();
        ASSERT_TRUE(db_);
        const ResultRecord r =
            db_->CreateTable({QStringLiteral("TBulk"),
                              {IdColumn(), Column(QStringLiteral("Name"), ColumnType::Text, true),
                               Column(QStringLiteral("Amount"), ColumnType::Money),
                               Column(QStringLiteral("DateD"), ColumnType::Date)},
                              {},
                              {}});
        ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    }

    qint64 Scalar(const QString& sql) {
        const QueryResult q = db_->Query(sql);
        EXPECT_TRUE(q.ok()) << q.Text.toStdString();
        return static_cast<qint64>(q.Scalar().toDouble());
    }

    static const QStringList& Columns() {
        static const QStringList columns = {QStringLiteral("ID"), QStringLiteral("Name"),
                                            QStringLiteral("Amount"), QStringLiteral("DateD")};
        return columns;
    }

    ExecResult AddUnnumbered(const QString& name) {
        return db_->Execute(QStringLiteral("INSERT INTO TBulk (Name) VALUES (?)"), {Value(name)});
    }

    DatabasePtr db_;
};

TEST_P(StorageBulkTest, ReservedRowNumbersLieAboveEveryRowAndEveryEarlierReservation) {
    ASSERT_TRUE(AddUnnumbered(QStringLiteral("pirma")).ok());
    ASSERT_TRUE(db_->Begin().ok());
    ASSERT_TRUE(AddUnnumbered(QStringLiteral("antra")).ok());
    const qint64 largest = Scalar(QStringLiteral("SELECT MAX(ID) FROM TBulk"));
    const IdsResult first = db_->ReserveRowIds(QStringLiteral("TBulk"), 3);
    const IdsResult second = db_->ReserveRowIds(QStringLiteral("TBulk"), 2);
    ASSERT_TRUE(first.ok()) << first.Text.toStdString();
    ASSERT_TRUE(second.ok()) << second.Text.toStdString();
    ASSERT_EQ(first.Ids.size(), 3);
    ASSERT_EQ(second.Ids.size(), 2);
    QSet<qint64> seen;
    qint64 last = largest;
    for (const qint64 id : first.Ids + second.Ids) {
        EXPECT_GT(id, last);
        EXPECT_FALSE(seen.contains(id));
        seen.insert(id);
        last = id;
    }
    // The reserved numbers are taken as given, and a row without a number afterwards
    // takes one that none of them holds.
    QVector<ValueArray> rows;
    for (const qint64 id : first.Ids + second.Ids)
        rows.append({Value(double(id)), Value(QStringLiteral("rezervuota")), Value(), Value()});
    const ExecResult inserted = db_->InsertRows(QStringLiteral("TBulk"), Columns(), rows);
    ASSERT_TRUE(inserted.ok()) << inserted.Text.toStdString();
    EXPECT_EQ(inserted.RowsAffected, 5);
    ASSERT_TRUE(AddUnnumbered(QStringLiteral("po jų")).ok());
    ASSERT_TRUE(db_->Commit().ok());
    EXPECT_EQ(Scalar(QStringLiteral("SELECT COUNT(*) FROM TBulk")), 8);
    EXPECT_EQ(Scalar(QStringLiteral("SELECT COUNT(DISTINCT ID) FROM TBulk")), 8);
    EXPECT_GT(Scalar(QStringLiteral("SELECT ID FROM TBulk WHERE Name = 'po jų'")), last);
}

TEST_P(StorageBulkTest, ReservationsOfARolledBackTransactionAreNotStored) {
    ASSERT_TRUE(db_->Begin().ok());
    const IdsResult drawn = db_->ReserveRowIds(QStringLiteral("TBulk"), 4);
    ASSERT_TRUE(drawn.ok()) << drawn.Text.toStdString();
    QVector<ValueArray> rows;
    for (const qint64 id : drawn.Ids)
        rows.append({Value(double(id)), Value(QStringLiteral("x")), Value(), Value()});
    ASSERT_TRUE(db_->InsertRows(QStringLiteral("TBulk"), Columns(), rows).ok());
    ASSERT_TRUE(db_->Rollback().ok());
    EXPECT_EQ(Scalar(QStringLiteral("SELECT COUNT(*) FROM TBulk")), 0);
    // The next transaction reserves afresh and its rows go in.
    ASSERT_TRUE(db_->Begin().ok());
    const IdsResult again = db_->ReserveRowIds(QStringLiteral("TBulk"), 4);
    ASSERT_TRUE(again.ok()) << again.Text.toStdString();
    rows.clear();
    for (const qint64 id : again.Ids)
        rows.append({Value(double(id)), Value(QStringLiteral("y")), Value(), Value()});
    ASSERT_TRUE(db_->InsertRows(QStringLiteral("TBulk"), Columns(), rows).ok());
    ASSERT_TRUE(db_->Commit().ok());
    EXPECT_EQ(Scalar(QStringLiteral("SELECT COUNT(*) FROM TBulk WHERE Name = 'y'")), 4);
}

TEST_P(StorageBulkTest, ReservingRowNumbersOutsideATransactionIsRefusedOnSQLite) {
    const IdsResult r = db_->ReserveRowIds(QStringLiteral("TBulk"), 2);
    if (IsPostgres()) {
        // The identity sequence is safe to draw from anywhere.
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        EXPECT_EQ(r.Ids.size(), 2);
    } else {
        EXPECT_NE(r.Code, 0);
        EXPECT_TRUE(r.Ids.isEmpty());
    }
}

TEST_P(StorageBulkTest, InsertRowsWritesEveryRowWhateverTheirNumber) {
    qint64 next = 1;
    qint64 expectedRows = 0;
    qint64 expectedCents = 0;
    qint64 expectedNulls = 0;
    for (const int count : {0, 1, 2, 3, 7, 63, 64, 65, 130}) {
        QVector<ValueArray> rows;
        for (int i = 0; i < count; ++i) {
            // Texts with quotes and marks, a Null amount every fifth row, dates.
            rows.append({Value(double(next++)), Value(QStringLiteral("Įmonė „%1“ 'x' ?").arg(i)),
                         i % 5 == 0 ? Value() : Value(qint32(i)),
                         Value(QDate(2026, 1, 1).addDays(i))});
            if (i % 5 != 0)
                expectedCents += i;
            else
                ++expectedNulls;
        }
        ASSERT_TRUE(db_->Begin().ok());
        const ExecResult r = db_->InsertRows(QStringLiteral("TBulk"), Columns(), rows);
        ASSERT_TRUE(r.ok()) << count << ": " << r.Text.toStdString();
        EXPECT_EQ(r.RowsAffected, count);
        ASSERT_TRUE(db_->Commit().ok());
        expectedRows += count;
        EXPECT_EQ(Scalar(QStringLiteral("SELECT COUNT(*) FROM TBulk")), expectedRows);
    }
    EXPECT_EQ(Scalar(QStringLiteral("SELECT SUM(Amount) FROM TBulk")), expectedCents);
    EXPECT_EQ(Scalar(QStringLiteral("SELECT COUNT(*) FROM TBulk WHERE Amount IS NULL")),
              expectedNulls);
    const QueryResult row = db_->Query(QStringLiteral("SELECT Name, DateD FROM TBulk WHERE ID = ?"),
                                       {Value(double(next - 1))});
    ASSERT_TRUE(row.ok()) << row.Text.toStdString();
    EXPECT_EQ(row.At(0, 0).toString(), QStringLiteral("Įmonė „129“ 'x' ?"));
    EXPECT_EQ(row.At(0, 1).toDate(), QDate(2026, 1, 1).addDays(129));
}

TEST_P(StorageBulkTest, InsertRowsThatFailsLeavesItsTransactionOnlyToBeRolledBack) {
    ASSERT_TRUE(db_->Begin().ok());
    QVector<ValueArray> rows;
    for (int i = 1; i <= 20; ++i)
        rows.append({Value(double(i)), Value(QStringLiteral("a")), Value(), Value()});
    // The last row repeats a number.
    rows.append({Value(double(3)), Value(QStringLiteral("b")), Value(), Value()});
    const ExecResult r = db_->InsertRows(QStringLiteral("TBulk"), Columns(), rows);
    EXPECT_NE(r.Code, 0);
    EXPECT_NE(db_->Commit().Code, 0);
    EXPECT_EQ(db_->TransactionDepth(), 0);
    EXPECT_EQ(Scalar(QStringLiteral("SELECT COUNT(*) FROM TBulk")), 0);
}

TEST_P(StorageBulkTest, InsertRowsRefusesARowOfTheWrongWidth) {
    ASSERT_TRUE(db_->Begin().ok());
    const ExecResult r =
        db_->InsertRows(QStringLiteral("TBulk"), Columns(),
                        {{Value(double(1)), Value(QStringLiteral("a")), Value(), Value()},
                         {Value(double(2)), Value(QStringLiteral("b"))}});
    EXPECT_NE(r.Code, 0);
    db_->Rollback();
    EXPECT_EQ(Scalar(QStringLiteral("SELECT COUNT(*) FROM TBulk")), 0);
}

TEST_P(StorageBulkTest, CachedStatementStaysRightAfterTheTableChanges) {
    const QString insert = QStringLiteral("INSERT INTO TCache (Name) VALUES (?)");
    const QString select = QStringLiteral("SELECT Name FROM TCache");
    ASSERT_TRUE(db_->Execute(QStringLiteral("CREATE TABLE TCache (Name TEXT)")).ok());
    ASSERT_TRUE(db_->Execute(insert, {Value(QStringLiteral("pirma"))}).ok());
    EXPECT_EQ(db_->Query(select).RowCount(), 1);
    // A column added under the prepared statements.
    ASSERT_TRUE(db_->Execute(QStringLiteral("ALTER TABLE TCache ADD COLUMN Note TEXT")).ok());
    ASSERT_TRUE(db_->Execute(insert, {Value(QStringLiteral("antra"))}).ok());
    QueryResult q = db_->Query(select);
    ASSERT_TRUE(q.ok()) << q.Text.toStdString();
    EXPECT_EQ(q.RowCount(), 2);
    // The table dropped and made again with its columns in another order.
    ASSERT_TRUE(db_->Execute(QStringLiteral("DROP TABLE TCache")).ok());
    ASSERT_TRUE(db_->Execute(QStringLiteral("CREATE TABLE TCache (Note TEXT, Name TEXT)")).ok());
    ASSERT_TRUE(db_->Execute(insert, {Value(QStringLiteral("trečia"))}).ok());
    q = db_->Query(select);
    ASSERT_TRUE(q.ok()) << q.Text.toStdString();
    ASSERT_EQ(q.RowCount(), 1);
    EXPECT_EQ(q.At(0, 0).toString(), QStringLiteral("trečia"));
}

TEST_P(StorageBulkTest, CachedStatementStaysRightAfterARollback) {
    const QString insert = QStringLiteral("INSERT INTO TGone (Name) VALUES (?)");
    ASSERT_TRUE(db_->Begin().ok());
    ASSERT_TRUE(db_->Execute(QStringLiteral("CREATE TABLE TGone (Name TEXT)")).ok());
    ASSERT_TRUE(db_->Execute(insert, {Value(QStringLiteral("x"))}).ok());
    ASSERT_TRUE(db_->Rollback().ok());
    // The table went with the rollback: the statement fails cleanly, outside any
    // transaction, and works again once the table is back.
    EXPECT_NE(db_->Execute(insert, {Value(QStringLiteral("y"))}).Code, 0);
    EXPECT_EQ(db_->TransactionDepth(), 0);
    ASSERT_TRUE(db_->Execute(QStringLiteral("CREATE TABLE TGone (Name TEXT)")).ok());
    ASSERT_TRUE(db_->Execute(insert, {Value(QStringLiteral("z"))}).ok());
    EXPECT_EQ(Scalar(QStringLiteral("SELECT COUNT(*) FROM TGone")), 1);
    // Savepoints opened and closed many times over reuse their statements.
    for (int i = 0; i < 5; ++i) {
        ASSERT_TRUE(db_->Begin().ok());
        ASSERT_TRUE(db_->Begin().ok());
        ASSERT_TRUE(db_->Execute(insert, {Value(QStringLiteral("v"))}).ok());
        ASSERT_TRUE(db_->Rollback().ok());
        ASSERT_TRUE(db_->Begin().ok());
        ASSERT_TRUE(db_->Execute(insert, {Value(QStringLiteral("w"))}).ok());
        ASSERT_TRUE(db_->Commit().ok());
        ASSERT_TRUE(db_->Commit().ok());
    }
    EXPECT_EQ(Scalar(QStringLiteral("SELECT COUNT(*) FROM TGone WHERE Name = 'v'")), 0);
    EXPECT_EQ(Scalar(QStringLiteral("SELECT COUNT(*) FROM TGone WHERE Name = 'w'")), 5);
}

ORVO_STORAGE_BACKENDS(StorageBulkTest);

} // namespace
} // namespace orvo::host
