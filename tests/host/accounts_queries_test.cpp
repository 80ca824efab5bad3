// What other parts read of the chart: the account list, one account, its parent, the
// addressee kinds an entry's accounts demand and allow, the roles and their holders,
// the navigator's rows, deleting, and moving an account one level down.
#include "accounts_fixture.h"

#include "host/methods/account_entries_hook.h"

namespace orvo::host {
namespace {

using testing::AccountsTest;

class AccountsQueriesTest : public AccountsTest {
protected:
    void Demand(qint64 account, const char* table, int sign, const QString& foid) {
        const ExecResult r = session_->Db().Execute(
            QStringLiteral("INSERT INTO %1 (AccountID, Sign, FOID) VALUES (?, ?, ?)")
                .arg(QLatin1String(table)),
            {Value(double(account)), Value(qint32(sign)), Value(foid)});
        ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    }

    // Classes 2 and 4 with a few accounts.
    void SmallChart() {
        cls2_ = Add(0, QStringLiteral("2"), QStringLiteral("Trumpalaikis turtas"));
        acc27_ = Add(cls2_, QStringLiteral("27"), QStringLiteral("Pinigai"));
        acc2711_ = Add(acc27_, QStringLiteral("2711"), QStringLiteral("Sąskaitos bankuose"),
                       QStringLiteral("D"), RoleId(QStringLiteral("2710")));
        acc2712_ = Add(acc27_, QStringLiteral("2712"), QStringLiteral("Sąskaitos bankuose USD"),
                       QStringLiteral("D"), RoleId(QStringLiteral("2710")));
        acc2410_ = Add(cls2_, QStringLiteral("2410"), QStringLiteral("Pirkėjų įsiskolinimai"),
                       QStringLiteral("D"), RoleId(QStringLiteral("240")));
        cls4_ = Add(0, QStringLiteral("4"), QStringLiteral("Mokėtinos sumos"), QStringLiteral("K"));
        acc4430_ = Add(cls4_, QStringLiteral("4430"), QStringLiteral("Skolos tiekėjams"),
                       QStringLiteral("K"), RoleId(QStringLiteral("450")));
    }

    // Whether posting to the account on 2024-01-15 is refused by a lock.
    QString CheckAccountLockText(const QString& account) {
        const BOResult r = Call(QStringLiteral("DO0201300_CheckAccountLock"),
                                QStringLiteral("'%1','2024.01.15'").arg(account));
        return r.Code == 777 ? QStringLiteral("locked") : QStringLiteral("open");
    }

    qint64 cls2_ = 0, acc27_ = 0, acc2711_ = 0, acc2712_ = 0, acc2410_ = 0, cls4_ = 0, acc4430_ = 0;
};

TEST_P(AccountsQueriesTest, AccountListHoldsPostingAccountsAndLeavesOutClasses) {
    SmallChart();
    const BOResult r = Call(QStringLiteral("GetAccountList"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(Rows(r.Data.toRecordset(), {QStringLiteral("Account")}),
              (QStringList{"2410", "27", "2711", "2712", "4430"}));
    const BOResult all = Call(QStringLiteral("GetAccountList"), QStringLiteral("'All'"));
    EXPECT_EQ(
        Rows(all.Data.toRecordset(), {QStringLiteral("Account"), QStringLiteral("GroupFlag")}),
        (QStringList{"2|1", "2410|0", "27|0", "2711|0", "2712|0", "4|1", "4430|0"}));
}

TEST_P(AccountsQueriesTest, GetAccountGivesOneRowOrNoneForAnUnknownNumber) {
    SmallChart();
    BOResult r = Call(QStringLiteral("GetAccount"), QStringLiteral("'2410'"));
    ASSERT_TRUE(r.ok());
    EXPECT_EQ(Rows(r.Data.toRecordset(), {QStringLiteral("Account"), QStringLiteral("Name"),
                                          QStringLiteral("Type"), QStringLiteral("OIDR")}),
              QStringList{QStringLiteral("2410|Pirkėjų įsiskolinimai|D|O0200401%1").arg(acc2410_)});
    r = Call(QStringLiteral("GetAccount"), QStringLiteral("'9999'"));
    ASSERT_TRUE(r.ok());
    EXPECT_EQ(r.Data.toRecordset()->RecordCount(), 0);
}

TEST_P(AccountsQueriesTest, GetParentGivesTheParentAndNothingForAClass) {
    SmallChart();
    BOResult r = Call(QStringLiteral("GetParent"), QStringLiteral("'2711'"));
    EXPECT_EQ(Rows(r.Data.toRecordset(), {QStringLiteral("Account")}), QStringList{"27"});
    r = Call(QStringLiteral("GetParent"), QStringLiteral("'O0200401%1'").arg(acc27_));
    EXPECT_EQ(Rows(r.Data.toRecordset(), {QStringLiteral("Account")}), QStringList{"2"});
    r = Call(QStringLiteral("GetParent"), QStringLiteral("'2'"));
    ASSERT_TRUE(r.ok());
    EXPECT_EQ(r.Data.toRecordset()->RecordCount(), 0);
}

TEST_P(AccountsQueriesTest, RequiredAddresseesOfAPairTakeEachAccountsOwnSide) {
    SmallChart();
    Demand(acc2410_, "BRRequiredAddr", 1, QStringLiteral("O0000100"));
    Demand(acc4430_, "BRRequiredAddr", 0, QStringLiteral("O0000100"));
    Demand(acc2711_, "BRRequiredAddr", -1, QStringLiteral("O0000500"));
    // 2410 debited demands its firm; 2711 credited demands its bank account.
    BOResult r = Call(QStringLiteral("GetBRRequiredAddr"), QStringLiteral("'2410','2711'"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(Rows(r.Data.toRecordset(), {QStringLiteral("Sign"), QStringLiteral("FOID")}),
              (QStringList{"1|O0000100", "-1|O0000500"}));
    // 2711 debited demands nothing: its demand is on the credit side.
    r = Call(QStringLiteral("GetBRRequiredAddr"), QStringLiteral("'2711','4430'"));
    EXPECT_EQ(Rows(r.Data.toRecordset(), {QStringLiteral("Sign"), QStringLiteral("FOID")}),
              QStringList{"-1|O0000100"});
    // One account: every demand, a both-sides demand on both.
    r = Call(QStringLiteral("GetBRRequiredAddr"), QStringLiteral("'4430'"));
    EXPECT_EQ(Rows(r.Data.toRecordset(), {QStringLiteral("Sign"), QStringLiteral("FOID")}),
              (QStringList{"1|O0000100", "-1|O0000100"}));
    r = Call(QStringLiteral("GetBRRequiredAddr"), QStringLiteral("'9999','0'"));
    ASSERT_TRUE(r.ok());
    EXPECT_EQ(r.Data.toRecordset()->RecordCount(), 0);
}

TEST_P(AccountsQueriesTest, EnabledAddresseesIncludeTheDemandedKinds) {
    SmallChart();
    Demand(acc2410_, "BRRequiredAddr", 1, QStringLiteral("O0000100"));
    Demand(acc2410_, "EnabledAddressee", 1, QStringLiteral("O0001402"));
    const BOResult r = Call(QStringLiteral("GetEnabledAddressee"), QStringLiteral("'2410'"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(Rows(r.Data.toRecordset(), {QStringLiteral("Sign"), QStringLiteral("FOID")}),
              (QStringList{"1|O0000100", "1|O0001402"}));
}

TEST_P(AccountsQueriesTest, OneRolePerAccountAndSeveralAccountsPerRole) {
    SmallChart();
    BOResult r = Call(QStringLiteral("GetPresetAccounts"), QStringLiteral("'2710'"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(Rows(r.Data.toRecordset(),
                   {QStringLiteral("Code"), QStringLiteral("Account"), QStringLiteral("Name")}),
              (QStringList{"2710|2711|Sąskaitos bankuose", "2710|2712|Sąskaitos bankuose USD"}));
    // Giving 2711 another role takes the first one from it.
    RecordsetPtr rs = Read(acc2711_);
    rs->MoveFirst();
    rs->SetField(QStringLiteral("BRAPropertyID"), Value(double(RoleId(QStringLiteral("2720")))));
    rs->Update();
    ASSERT_TRUE(SaveRecord(rs, acc2711_).ok());
    r = Call(QStringLiteral("DO0200401_GetBRAProperties"),
             QStringLiteral("'O0200401%1'").arg(acc2711_));
    const QStringList holders =
        Rows(r.Data.toRecordset(), {QStringLiteral("Code"), QStringLiteral("Account")});
    EXPECT_EQ(holders.filter(QStringLiteral("|2711")), QStringList{"2720|2711"});
    EXPECT_TRUE(holders.contains(QStringLiteral("2710|2712")));
    EXPECT_TRUE(holders.contains(QStringLiteral("240|2410")));
}

TEST_P(AccountsQueriesTest, RolesHoldTheCodesTheProgramLooksUp) {
    const BOResult r = Call(QStringLiteral("DO0200401_GetBRASettings"), QStringLiteral("''"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    const QStringList codes = Rows(r.Data.toRecordset(), {QStringLiteral("Code")});
    for (const char* code : {"2710", "2720", "240", "220", "450", "460", "39", "536", "636"})
        EXPECT_TRUE(codes.contains(QString::fromLatin1(code))) << code;
    const RecordsetPtr rs = r.Data.toRecordset();
    EXPECT_TRUE(rs->HasField(QStringLiteral("Id")));
    EXPECT_TRUE(rs->HasField(QStringLiteral("Name")));
}

TEST_P(AccountsQueriesTest, ObjectListGivesClassesUnderTheRootAndChildrenUnderARecord) {
    SmallChart();
    BOResult r =
        Call(QStringLiteral("DO0200400_GetOrvoObjectList"), QStringLiteral("'O0200400','',''"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(Rows(r.Data.toRecordset(), {QStringLiteral("OType"), QStringLiteral("Preview")}),
              (QStringList{"Class|2 Trumpalaikis turtas", "Class|4 Mokėtinos sumos"}));
    r = Call(QStringLiteral("DO0200400_GetOrvoObjectList"),
             QStringLiteral("'O0200401%1','',''").arg(cls2_));
    EXPECT_EQ(Rows(r.Data.toRecordset(), {QStringLiteral("OType"), QStringLiteral("Account"),
                                          QStringLiteral("Children")}),
              (QStringList{"Item|2410|0", "Item|27|2"}));
}

TEST_P(AccountsQueriesTest, FullPlanModeShowsTheMatchingNewAccount) {
    SmallChart();
    RecordsetPtr rs = Read(acc2410_);
    rs->MoveFirst();
    rs->SetField(QStringLiteral("NewID"), Value(double(acc2711_)));
    rs->Update();
    ASSERT_TRUE(SaveRecord(rs, acc2410_).ok());
    const QString oid = QStringLiteral("'O0200401%1'").arg(cls2_);
    BOResult r =
        Call(QStringLiteral("DO0200400_GetOrvoObjectList"), oid + QStringLiteral(",'FULL',''"));
    EXPECT_EQ(Rows(r.Data.toRecordset(), {QStringLiteral("Preview")}).first(),
              QStringLiteral("2410 Pirkėjų įsiskolinimai → 2711"));
    r = Call(QStringLiteral("DO0200400_GetOrvoObjectList"), oid + QStringLiteral(",'',''"));
    EXPECT_EQ(Rows(r.Data.toRecordset(), {QStringLiteral("Preview"), QStringLiteral("NewAccount")})
                  .first(),
              QStringLiteral("2410 Pirkėjų įsiskolinimai|2711"));
}

TEST_P(AccountsQueriesTest, AccountWithSubaccountsCannotBeDeleted) {
    SmallChart();
    BOResult r = Call(QStringLiteral("DO0200401_DeleteOrvoObject"),
                      QStringLiteral("'O0200401%1'").arg(acc27_));
    EXPECT_EQ(r.Code, 777);
    r = Call(QStringLiteral("DO0200400_DeleteOrvoObject"),
             QStringLiteral("'O0200401%1'").arg(acc2712_));
    EXPECT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(Call(QStringLiteral("GetAccount"), QStringLiteral("'2712'"))
                  .Data.toRecordset()
                  ->RecordCount(),
              0);
}

TEST_P(AccountsQueriesTest, MoveAccountDownMakesASubaccountThatTakesRoleDemandsAndLock) {
    SmallChart();
    Demand(acc2410_, "BRRequiredAddr", 1, QStringLiteral("O0000100"));
    ASSERT_TRUE(Call(QStringLiteral("DO0201300_SaveAccountLock"),
                     QStringLiteral("'2410','2024.01.31','2024.02.29'"))
                    .ok());
    const BOResult r =
        Call(QStringLiteral("DO0200401_MoveAccountDown"), QStringLiteral("'%1'").arg(acc2410_));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(Rows(r.Data.toRecordset(), {QStringLiteral("Account")}), QStringList{"24101"});
    const BOResult sub = Call(QStringLiteral("GetAccount"), QStringLiteral("'24101'"));
    const RecordsetPtr row = sub.Data.toRecordset();
    ASSERT_EQ(row->RecordCount(), 1);
    EXPECT_EQ(static_cast<qint64>(row->Field(QStringLiteral("ParentID")).toDouble()), acc2410_);
    EXPECT_EQ(row->Field(QStringLiteral("Name")).toString(),
              QStringLiteral("Pirkėjų įsiskolinimai"));
    EXPECT_EQ(
        Rows(Call(QStringLiteral("GetPresetAccounts"), QStringLiteral("'240'")).Data.toRecordset(),
             {QStringLiteral("Account")}),
        QStringList{"24101"});
    EXPECT_EQ(Rows(Call(QStringLiteral("GetBRRequiredAddr"), QStringLiteral("'24101','2711'"))
                       .Data.toRecordset(),
                   {QStringLiteral("Sign"), QStringLiteral("FOID")}),
              QStringList{"1|O0000100"});
    EXPECT_EQ(CheckAccountLockText(QStringLiteral("24101")), QStringLiteral("locked"));
    // A second move takes the next free number.
    const BOResult again =
        Call(QStringLiteral("DO0200401_MoveAccountDown"), QStringLiteral("'%1'").arg(acc2410_));
    EXPECT_EQ(Rows(again.Data.toRecordset(), {QStringLiteral("Account")}), QStringList{"24102"});
}

TEST_P(AccountsQueriesTest, ClassCannotBeMovedDown) {
    SmallChart();
    EXPECT_EQ(
        Call(QStringLiteral("DO0200401_MoveAccountDown"), QStringLiteral("'%1'").arg(cls2_)).Code,
        777);
    EXPECT_EQ(Call(QStringLiteral("DO0200401_MoveAccountDown"), QStringLiteral("'999999'")).Code,
              32);
}

// Restores the book-without-entries behaviour however the test ends.
struct HookReset {
    ~HookReset() { SetAccountEntriesHook({}); }
};

TEST_P(AccountsQueriesTest, MoveAccountDownHandsTheEntriesToTheirStorageAndUndoesAllOnRefusal) {
    SmallChart();
    HookReset reset;
    QStringList moves;
    AccountEntriesHook hook;
    hook.MoveEntries = [&moves](Database&, const QString& from, const QString& to) {
        moves << from + QStringLiteral("->") + to;
        return ResultRecord::Failure(777, QStringLiteral("Įrašų perkelti nepavyko."));
    };
    SetAccountEntriesHook(hook);
    const BOResult r =
        Call(QStringLiteral("DO0200401_MoveAccountDown"), QStringLiteral("'%1'").arg(acc2410_));
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(moves, QStringList{QStringLiteral("2410->24101")});
    EXPECT_EQ(Call(QStringLiteral("GetAccount"), QStringLiteral("'24101'"))
                  .Data.toRecordset()
                  ->RecordCount(),
              0);
    EXPECT_EQ(
        Rows(Call(QStringLiteral("GetPresetAccounts"), QStringLiteral("'240'")).Data.toRecordset(),
             {QStringLiteral("Account")}),
        QStringList{"2410"});
}

TEST_P(AccountsQueriesTest, AccountWithEntriesCannotBeDeletedNorRenumbered) {
    SmallChart();
    HookReset reset;
    AccountEntriesHook hook;
    hook.CountEntries = [](Database&, const QString& account, QString*) -> qint64 {
        return account == QLatin1String("2712") ? 3 : 0;
    };
    SetAccountEntriesHook(hook);
    EXPECT_EQ(Call(QStringLiteral("DO0200401_DeleteOrvoObject"),
                   QStringLiteral("'O0200401%1'").arg(acc2712_))
                  .Code,
              777);
    RecordsetPtr rs = Read(acc2712_);
    rs->MoveFirst();
    rs->SetField(QStringLiteral("Account"), QStringLiteral("2719"));
    rs->Update();
    EXPECT_EQ(SaveRecord(rs, acc2712_).Code, 777);
    EXPECT_TRUE(Call(QStringLiteral("DO0200401_DeleteOrvoObject"),
                     QStringLiteral("'O0200401%1'").arg(acc2711_))
                    .ok());
}

ORVO_STORAGE_BACKENDS(AccountsQueriesTest);

} // namespace
} // namespace orvo::host
