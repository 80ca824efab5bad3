// What the chart of accounts refuses when an operation is stored, on both backends: an
// account outside the chart, a missing addressee that an account demands, a date on or
// before an account's lock. A refused save stores nothing and the operation keeps every
// row.
#include "operations_book.h"

#include "host/storage/database.h"

namespace orvo::test {
namespace {

class OperationChartRulesTest : public OperationsBook {
protected:
    void SetUp() override {
        OperationsBook::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        for (const char* account : {"2410", "2710", "5000"})
            ASSERT_TRUE(
                session_->Db()
                    .Execute(QStringLiteral("INSERT INTO Accounts (Account, Name) VALUES "
                                            "(?, ?)"),
                             {Value(QString::fromLatin1(account)),
                              Value(QStringLiteral("Sąskaita ") + QString::fromLatin1(account))})
                    .ok());
    }

    double AccountId(const char* account) {
        return session_->Db()
            .Query(QStringLiteral("SELECT ID FROM Accounts WHERE Account = ?"),
                   {Value(QString::fromLatin1(account))})
            .Scalar()
            .toDouble();
    }

    // An operation on `date` with one entry of 10 EUR and the addressees given.
    OrvoObjectUIOPtr Operation(const QDate& date, const QString& debit, const QString& credit,
                               const ValueArray& addressees = {}) {
        OrvoObjectUIOPtr op = Object(QStringLiteral("O0201500"));
        op->SetField(QStringLiteral("DateD"), Value(date));
        const ValueResult r = AddBR(op, {debit, credit, 10.0, addressees});
        EXPECT_EQ(r.Code, 0) << r.Text.toStdString();
        return op;
    }
};

TEST_P(OperationChartRulesTest, AccountOutsideTheChartIsRefusedAndNothingIsStored) {
    OrvoObjectUIOPtr op =
        Operation(QDate(2026, 4, 1), QStringLiteral("2410"), QStringLiteral("6000"));
    const ResultRecord refused = op->Save();
    EXPECT_EQ(refused.Code, 777);
    EXPECT_EQ(refused.Text,
              QStringLiteral("Klaidinga balansinės sąskaitos reikšmė!\n2410 6000 10.00"));
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BROpers")), 0);
    EXPECT_EQ(Entries(op)->RecordCount(), 1);

    OrvoObjectUIOPtr good =
        Operation(QDate(2026, 4, 1), QStringLiteral("2410"), QStringLiteral("5000"));
    EXPECT_TRUE(good->Save().ok());
}

TEST_P(OperationChartRulesTest, MissingDemandedAddresseeIsRefusedAndTheDemandIsReadBack) {
    ASSERT_TRUE(session_->Db()
                    .Execute(QStringLiteral("INSERT INTO BRRequiredAddr (AccountID, Sign, FOID) "
                                            "VALUES (?, 1, 'O0000100')"),
                             {Value(AccountId("2410"))})
                    .ok());
    OrvoObjectUIOPtr without =
        Operation(QDate(2026, 4, 1), QStringLiteral("2410"), QStringLiteral("5000"),
                  {qint16(-1), QStringLiteral("O000140277"), QStringLiteral("Jonas Jonaitis")});
    const ResultRecord refused = without->Save();
    EXPECT_EQ(refused.Code, 777);
    EXPECT_TRUE(refused.Text.startsWith(QStringLiteral("Nenurodyti būtini adresatai!\n")))
        << refused.Text.toStdString();
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BR")), 0);
    Entries(without)->MoveFirst();
    EXPECT_EQ(Nested(Entries(without), "BRProperties")->RecordCount(), 1);

    OrvoObjectUIOPtr with =
        Operation(QDate(2026, 4, 1), QStringLiteral("2410"), QStringLiteral("5000"),
                  {qint16(1), QStringLiteral("O000010042"), QStringLiteral("UAB Ąžuolas")});
    const ResultRecord saved = with->Save();
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();

    OrvoObjectUIOPtr again = Object(with->OIDR());
    ASSERT_TRUE(again);
    Entries(again)->MoveFirst();
    const RecordsetPtr demands = Nested(Entries(again), "RequiredAddr");
    ASSERT_EQ(demands->RecordCount(), 1);
    demands->MoveFirst();
    EXPECT_EQ(demands->Field(QStringLiteral("Sign")).toInt32(), 1);
    EXPECT_EQ(demands->Field(QStringLiteral("FOID")).toString(), QStringLiteral("O0000100"));
    // The demands are never stored: saving the read record again changes nothing.
    EXPECT_TRUE(again->Save().ok());
}

TEST_P(OperationChartRulesTest, DateOnOrBeforeTheLockIsRefusedAndTheOperationKeepsAllItsRows) {
    // The manager's date, which binds the book's administrator too.
    ASSERT_TRUE(session_->Db()
                    .Execute(QStringLiteral("INSERT INTO AccountLocks (AccountID, DateToHigh, "
                                            "DateToLow) VALUES (?, ?, ?)"),
                             {Value(AccountId("5000")), Value(QDate(2026, 3, 31)),
                              Value(QDate(1900, 1, 1))})
                    .ok());
    OrvoObjectUIOPtr op = Object(QStringLiteral("O0201500"));
    op->SetField(QStringLiteral("DateD"), Value(QDate(2026, 3, 31)));
    for (int i = 0; i < 3; ++i)
        ASSERT_EQ(AddBR(op, {QStringLiteral("2410"), QStringLiteral("5000"), 10.0 + i,
                             ValueArray{qint16(1), QStringLiteral("O000010042"),
                                        QStringLiteral("UAB Ąžuolas")}})
                      .Code,
                  0);
    const ResultRecord refused = op->Save();
    EXPECT_EQ(refused.Code, 777);
    EXPECT_FALSE(refused.Text.isEmpty());
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BROpers")), 0);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BRProperties")), 0);
    const RecordsetPtr kept = Entries(op);
    ASSERT_EQ(kept->RecordCount(), 3);
    for (kept->MoveFirst(); !kept->Eof(); kept->MoveNext())
        EXPECT_EQ(Nested(kept, "BRProperties")->RecordCount(), 1);

    // The day after the lock is open.
    op->SetField(QStringLiteral("DateD"), Value(QDate(2026, 4, 1)));
    for (kept->MoveFirst(); !kept->Eof(); kept->MoveNext()) {
        kept->SetField(QStringLiteral("DateD"), Value(QDate(2026, 4, 1)));
        kept->Update();
    }
    const ResultRecord saved = op->Save();
    EXPECT_TRUE(saved.ok()) << saved.Text.toStdString();
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BR")), 3);
}

ORVO_STORAGE_BACKENDS(OperationChartRulesTest);

} // namespace
} // namespace orvo::test
