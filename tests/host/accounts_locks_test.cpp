// Account and date locks on both backends: CheckAccountLock refuses on and before the
// lock date and passes after it, the manager's date binds an ordinary user, and the
// list of locks can hide the accounts without one.
#include "accounts_fixture.h"

#include "host/methods/account_locks.h"

namespace orvo::host {
namespace {

using testing::AccountsTest;

class AccountsLocksTest : public AccountsTest {
protected:
    void SetUp() override {
        AccountsTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        const qint64 cls = Add(0, QStringLiteral("2"), QStringLiteral("Trumpalaikis turtas"));
        Add(cls, QStringLiteral("2720"), QStringLiteral("Kasa"));
        Add(cls, QStringLiteral("2711"), QStringLiteral("Sąskaitos bankuose"));
    }

    BOResult Lock(const QString& account, const QString& high, const QString& low) {
        return Call(QStringLiteral("DO0201300_SaveAccountLock"),
                    QStringLiteral("'%1','%2','%3'").arg(account, high, low));
    }

    // A second session of the book for an ordinary user.
    std::unique_ptr<HostSession> OrdinaryUser() {
        const ExecResult r = session_->Db().Execute(
            QStringLiteral("INSERT INTO Users (Code, Name, IsAdmin) VALUES ('jonas', 'Jonas', 0)"));
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        SessionResult s = HostSession::Open(location_, OpenMode::Existing, QStringLiteral("jonas"));
        EXPECT_TRUE(s.ok()) << s.Text.toStdString();
        return std::move(s.Session);
    }
};

TEST_P(AccountsLocksTest, CheckAccountLockRefusesOnTheLockDate) {
    ASSERT_TRUE(Lock(QStringLiteral("2720"), QString(), QStringLiteral("2024.03.31")).ok());
    const ResultRecord r =
        CheckAccountLock(session_->Db(), QStringLiteral("2720"), QDate(2024, 3, 31));
    EXPECT_EQ(r.Code, 777);
    EXPECT_TRUE(r.Text.contains(QStringLiteral("2720"))) << r.Text.toStdString();
    EXPECT_TRUE(r.Text.contains(QStringLiteral("2024.03.31"))) << r.Text.toStdString();
}

TEST_P(AccountsLocksTest, CheckAccountLockRefusesBeforeTheLockDate) {
    ASSERT_TRUE(Lock(QStringLiteral("2720"), QString(), QStringLiteral("2024.03.31")).ok());
    const ResultRecord r =
        CheckAccountLock(session_->Db(), QStringLiteral("2720"), QDate(2024, 1, 2));
    EXPECT_EQ(r.Code, 777);
    EXPECT_TRUE(r.Text.contains(QStringLiteral("2024.01.02"))) << r.Text.toStdString();
}

TEST_P(AccountsLocksTest, CheckAccountLockPassesAfterTheLockDate) {
    ASSERT_TRUE(Lock(QStringLiteral("2720"), QString(), QStringLiteral("2024.03.31")).ok());
    EXPECT_TRUE(CheckAccountLock(session_->Db(), QStringLiteral("2720"), QDate(2024, 4, 1)).ok());
    // Another account is not locked at all.
    EXPECT_TRUE(CheckAccountLock(session_->Db(), QStringLiteral("2711"), QDate(2024, 1, 2)).ok());
}

TEST_P(AccountsLocksTest, ManagersDateBindsEveryoneAndTheOrdinaryDateOnlyOrdinaryUsers) {
    ASSERT_TRUE(
        Lock(QStringLiteral("2720"), QStringLiteral("2024.01.31"), QStringLiteral("2024.03.31"))
            .ok());
    Database& db = session_->Db();
    EXPECT_EQ(CheckAccountLock(db, QStringLiteral("2720"), QDate(2024, 2, 15)).Code, 777);
    EXPECT_TRUE(CheckAccountLock(db, QStringLiteral("2720"), QDate(2024, 2, 15), true).ok());
    EXPECT_EQ(CheckAccountLock(db, QStringLiteral("2720"), QDate(2024, 1, 31), true).Code, 777);
}

TEST_P(AccountsLocksTest, OrdinaryUserCannotChangeTheManagersDate) {
    ASSERT_TRUE(Lock(QStringLiteral("2720"), QStringLiteral("2024.01.31"), QString()).ok());
    std::unique_ptr<HostSession> jonas = OrdinaryUser();
    ASSERT_TRUE(jonas);
    BOResult r = jonas->BO()->Call(QStringLiteral("DO0201300_SaveAccountLock"),
                                   QStringLiteral("'2720','',''"));
    EXPECT_EQ(r.Code, 777);
    // Keeping the manager's date and setting the ordinary one is allowed.
    r = jonas->BO()->Call(QStringLiteral("DO0201300_SaveAccountLock"),
                          QStringLiteral("'2720','2024.01.31','2024.02.29'"));
    EXPECT_TRUE(r.ok()) << r.Text.toStdString();
    r = jonas->BO()->Call(QStringLiteral("DO0201300_CheckAccountLock"),
                          QStringLiteral("'2720','2024.02.29'"));
    EXPECT_EQ(r.Code, 777);
}

TEST_P(AccountsLocksTest, UnlockingClearsTheDates) {
    ASSERT_TRUE(
        Lock(QStringLiteral("2720"), QStringLiteral("2024.01.31"), QStringLiteral("2024.03.31"))
            .ok());
    ASSERT_TRUE(Lock(QStringLiteral("2720"), QString(), QString()).ok());
    EXPECT_TRUE(CheckAccountLock(session_->Db(), QStringLiteral("2720"), QDate(2020, 1, 1)).ok());
}

TEST_P(AccountsLocksTest, LockForAllAccountsLocksEveryPostingAccount) {
    ASSERT_TRUE(Lock(QStringLiteral("All"), QString(), QStringLiteral("2023.12.31")).ok());
    EXPECT_EQ(CheckAccountLock(session_->Db(), QStringLiteral("2711"), QDate(2023, 12, 31)).Code,
              777);
    EXPECT_EQ(CheckAccountLock(session_->Db(), QStringLiteral("2720"), QDate(2023, 6, 1)).Code,
              777);
}

TEST_P(AccountsLocksTest, OnlyLockedHidesRowsWithNoLock) {
    ASSERT_TRUE(Lock(QStringLiteral("2720"), QString(), QStringLiteral("2024.03.31")).ok());
    BOResult r = Call(QStringLiteral("DO0201300_GetAccountLocks"), QStringLiteral("'False'"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(Rows(r.Data.toRecordset(), {QStringLiteral("Account"), QStringLiteral("DateToLow")}),
              (QStringList{QStringLiteral("2711|") + QDate(1900, 1, 1).toString(Qt::ISODate),
                           QStringLiteral("2720|") + QDate(2024, 3, 31).toString(Qt::ISODate)}));
    r = Call(QStringLiteral("DO0201300_GetAccountLocks"), QStringLiteral("'True'"));
    const RecordsetPtr rs = r.Data.toRecordset();
    EXPECT_EQ(Rows(rs, {QStringLiteral("Account")}), QStringList{"2720"});
    rs->MoveFirst();
    EXPECT_TRUE(
        rs->Field(QStringLiteral("BLOIDR")).toString().startsWith(QStringLiteral("O0201300")));
    EXPECT_EQ(rs->Field(QStringLiteral("UserOIDR")).toString(), QStringLiteral("admin"));
}

TEST_P(AccountsLocksTest, LockOfAnUnknownAccountIsRefused) {
    EXPECT_EQ(Lock(QStringLiteral("9999"), QString(), QStringLiteral("2024.03.31")).Code, 777);
    EXPECT_EQ(Lock(QStringLiteral("2720"), QString(), QStringLiteral("2024.02.30")).Code, 777);
}

ORVO_STORAGE_BACKENDS(AccountsLocksTest);

} // namespace
} // namespace orvo::host
