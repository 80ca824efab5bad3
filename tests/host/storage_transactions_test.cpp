// Transactions and the record sequence on both backends: a save that fails part-way
// leaves nothing behind, nesting rolls back only the inner work, and record numbers
// are strictly increasing across connections to one book.
#include "storage_fixture.h"

#include "host/storage/transaction_guard.h"

namespace orvo::host {
namespace {

using testing::StorageTest;

class StorageTransactionsTest : public StorageTest {
protected:
    void SetUp() override {
        StorageTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        db_ = OpenBook();
        ASSERT_TRUE(db_);
    }

    ExecResult AddFirm(const QString& name) {
        return db_->Execute(QStringLiteral("INSERT INTO Firms (Name, Code) VALUES (?, ?)"),
                            {name.isNull() ? Value() : Value(name), Value(QStringLiteral("123"))});
    }
    int FirmCount() {
        QueryResult r = db_->Query(QStringLiteral("SELECT count(*) FROM Firms"));
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        return r.Scalar().toInt32();
    }

    DatabasePtr db_;
};

TEST_P(StorageTransactionsTest, SaveThatFailsHalfWayLeavesStorageUntouched) {
    ASSERT_TRUE(AddFirm(QStringLiteral("Jau buvusi")).ok());
    ASSERT_TRUE(db_->Begin().ok());
    ASSERT_TRUE(AddFirm(QStringLiteral("Pirma")).ok());
    ASSERT_TRUE(AddFirm(QStringLiteral("Antra")).ok());
    ASSERT_TRUE(db_->NextId().ok());
    // The forced failure: a firm without the name the table demands.
    EXPECT_FALSE(AddFirm(QString()).ok());
    ResultRecord committed = db_->Commit();
    EXPECT_FALSE(committed.ok());
    EXPECT_EQ(committed.Text,
              QStringLiteral("Transakcija atšaukta, nes vienas jos veiksmas nepavyko."));
    EXPECT_EQ(db_->TransactionDepth(), 0);
    EXPECT_EQ(FirmCount(), 1);
}

TEST_P(StorageTransactionsTest, ExplicitRollbackLeavesNothing) {
    ASSERT_TRUE(db_->Begin().ok());
    ASSERT_TRUE(AddFirm(QStringLiteral("Pirma")).ok());
    ASSERT_TRUE(db_->Rollback().ok());
    EXPECT_EQ(FirmCount(), 0);
}

TEST_P(StorageTransactionsTest, GuardRollsBackUnlessCommitted) {
    {
        TransactionGuard tx(*db_);
        ASSERT_TRUE(tx.ok());
        ASSERT_TRUE(AddFirm(QStringLiteral("Paliekama")).ok());
    }
    EXPECT_EQ(db_->TransactionDepth(), 0);
    EXPECT_EQ(FirmCount(), 0);
    {
        TransactionGuard tx(*db_);
        ASSERT_TRUE(AddFirm(QStringLiteral("Įrašoma")).ok());
        EXPECT_TRUE(tx.Commit().ok());
    }
    EXPECT_EQ(FirmCount(), 1);
}

TEST_P(StorageTransactionsTest, InnerRollbackUndoesOnlyTheInnerWork) {
    ASSERT_TRUE(db_->Begin().ok());
    ASSERT_TRUE(AddFirm(QStringLiteral("Išorinė")).ok());
    {
        TransactionGuard inner(*db_);
        ASSERT_TRUE(inner.ok());
        EXPECT_EQ(db_->TransactionDepth(), 2);
        ASSERT_TRUE(AddFirm(QStringLiteral("Vidinė")).ok());
        EXPECT_FALSE(AddFirm(QString()).ok());
    }
    EXPECT_EQ(db_->TransactionDepth(), 1);
    // The outer level is still usable after the inner failure was rolled back.
    ASSERT_TRUE(AddFirm(QStringLiteral("Dar viena")).ok());
    ASSERT_TRUE(db_->Commit().ok());
    QueryResult names = db_->Query(QStringLiteral("SELECT Name FROM Firms ORDER BY Name"));
    ASSERT_TRUE(names.ok());
    ASSERT_EQ(names.RowCount(), 2);
    EXPECT_EQ(names.At(0, 0).toString(), QStringLiteral("Dar viena"));
    EXPECT_EQ(names.At(1, 0).toString(), QStringLiteral("Išorinė"));
}

TEST_P(StorageTransactionsTest, InnerCommitIsKeptOnlyIfTheOuterCommits) {
    ASSERT_TRUE(db_->Begin().ok());
    ASSERT_TRUE(db_->Begin().ok());
    ASSERT_TRUE(AddFirm(QStringLiteral("Vidinė")).ok());
    ASSERT_TRUE(db_->Commit().ok());
    ASSERT_TRUE(db_->Rollback().ok());
    EXPECT_EQ(FirmCount(), 0);
}

TEST_P(StorageTransactionsTest, CommitOrRollbackWithoutBeginIsRefused) {
    ResultRecord c = db_->Commit();
    EXPECT_FALSE(c.ok());
    EXPECT_EQ(c.Text, QStringLiteral("Nėra pradėtos transakcijos."));
    EXPECT_FALSE(db_->Rollback().ok());
}

TEST_P(StorageTransactionsTest, BatchWithAFailingRowWritesNothing) {
    QVector<ValueArray> rows;
    for (int i = 0; i < 1200; ++i)
        rows << ValueArray{i == 900 ? Value() : Value(QStringLiteral("Firma %1").arg(i))};
    ExecResult r = db_->ExecuteMany(QStringLiteral("INSERT INTO Firms (Name) VALUES (?)"), rows);
    EXPECT_FALSE(r.ok());
    EXPECT_EQ(db_->TransactionDepth(), 0);
    EXPECT_EQ(FirmCount(), 0);
    rows[900] = ValueArray{Value(QStringLiteral("Pataisyta"))};
    r = db_->ExecuteMany(QStringLiteral("INSERT INTO Firms (Name) VALUES (?)"), rows);
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(r.RowsAffected, 1200);
    EXPECT_EQ(FirmCount(), 1200);
}

TEST_P(StorageTransactionsTest, FailedBatchInsideATransactionKeepsTheEarlierWork) {
    ASSERT_TRUE(db_->Begin().ok());
    ASSERT_TRUE(AddFirm(QStringLiteral("Prieš paketą")).ok());
    ExecResult r = db_->ExecuteMany(QStringLiteral("INSERT INTO Firms (Name) VALUES (?)"),
                                    {ValueArray{Value("A")}, ValueArray{Value()}});
    EXPECT_FALSE(r.ok());
    EXPECT_EQ(db_->TransactionDepth(), 1);
    ASSERT_TRUE(db_->Commit().ok());
    EXPECT_EQ(FirmCount(), 1);
}

TEST_P(StorageTransactionsTest, RecordNumbersAreStrictlyIncreasing) {
    qint64 last = 0;
    for (int i = 0; i < 50; ++i) {
        IdResult id = db_->NextId();
        ASSERT_TRUE(id.ok()) << id.Text.toStdString();
        EXPECT_GT(id.Id, last);
        last = id.Id;
    }
    IdsResult block = db_->NextIds(kRecordSequence, 25);
    ASSERT_TRUE(block.ok()) << block.Text.toStdString();
    ASSERT_EQ(block.Ids.size(), 25);
    for (qint64 id : block.Ids) {
        EXPECT_GT(id, last);
        last = id;
    }
}

TEST_P(StorageTransactionsTest, RecordSequenceIsSharedByEveryConnectionToTheBook) {
    DatabasePtr other = OpenBook();
    ASSERT_TRUE(other);
    qint64 last = 0;
    QSet<qint64> seen;
    for (int i = 0; i < 40; ++i) {
        Database& db = i % 2 ? *other : *db_;
        IdResult id = db.NextId(kRecordSequence);
        ASSERT_TRUE(id.ok()) << id.Text.toStdString();
        EXPECT_GT(id.Id, last);
        EXPECT_FALSE(seen.contains(id.Id));
        seen.insert(id.Id);
        last = id.Id;
    }
}

TEST_P(StorageTransactionsTest, NumbersDrawnInsideACommittedSaveAreNotGivenAgain) {
    ASSERT_TRUE(db_->Begin().ok());
    IdResult a = db_->NextId();
    ASSERT_TRUE(a.ok());
    ASSERT_TRUE(db_->Commit().ok());
    DatabasePtr reopened = OpenBook();
    ASSERT_TRUE(reopened);
    IdResult b = reopened->NextId();
    ASSERT_TRUE(b.ok());
    EXPECT_GT(b.Id, a.Id);
}

TEST_P(StorageTransactionsTest, UnknownSequenceIsRefused) {
    IdResult r = db_->NextId(QStringLiteral("nera_tokios"));
    EXPECT_FALSE(r.ok());
    EXPECT_TRUE(r.Text.startsWith(QStringLiteral("Nežinoma identifikatorių seka: nera_tokios")))
        << r.Text.toStdString();
}

ORVO_STORAGE_BACKENDS(StorageTransactionsTest);

} // namespace
} // namespace orvo::host
