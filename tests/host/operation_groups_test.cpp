// Operation groups as the host stores them: the group record with its lock, deletion
// refused while a group holds anything, the form types, the own firm's bank accounts,
// the account settings and PresetAccounts read by one rule, and the nodes under a group.
#include "groups_fixture.h"

namespace orvo::host::testing {
namespace {

class OperationGroupsTest : public GroupsTest {};

TEST_P(OperationGroupsTest, BlankGroupHasPlainOperationFormTypeAndNoNumber) {
    const BOResult r =
        Call(QStringLiteral("DO0201400_GetOrvoObject"), QStringLiteral("'O0201400'"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    const RecordsetPtr rs = r.Data.toRecordset();
    ASSERT_TRUE(rs);
    rs->MoveFirst();
    EXPECT_EQ(rs->Field(QStringLiteral("FormOID")).toString(), QStringLiteral("O0201500"));
    EXPECT_TRUE(rs->HasField(QStringLiteral("BROperGroupID")));
    EXPECT_TRUE(rs->HasField(QStringLiteral("LockGUID")));
}

TEST_P(OperationGroupsTest, GroupIsStoredAndReadBack) {
    const qint64 id = AddGroup({{QStringLiteral("Name"), QStringLiteral("Banko operacijos")},
                                {QStringLiteral("FormOID"), QStringLiteral("O0201501")},
                                {QStringLiteral("Serija"), QStringLiteral("MN")},
                                {QStringLiteral("ANDateFrom"), Value(QDate(2024, 1, 1))}});
    ASSERT_GT(id, 0);
    const BOResult r =
        Call(QStringLiteral("DO0201400_GetOrvoObject"), QStringLiteral("'O0201400%1'").arg(id));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    const RecordsetPtr rs = r.Data.toRecordset();
    rs->MoveFirst();
    EXPECT_EQ(rs->Field(QStringLiteral("Name")).toString(), QStringLiteral("Banko operacijos"));
    EXPECT_EQ(rs->Field(QStringLiteral("FormOID")).toString(), QStringLiteral("O0201501"));
    EXPECT_EQ(rs->Field(QStringLiteral("Serija")).toString(), QStringLiteral("MN"));
    EXPECT_EQ(rs->Field(QStringLiteral("ANDateFrom")).toDate(), QDate(2024, 1, 1));
}

TEST_P(OperationGroupsTest, GroupWithoutNameIsRefused) {
    const BOResult r = SaveGroupOn(*session_, {{QStringLiteral("Name"), QStringLiteral("  ")}});
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(r.Text, QStringLiteral("Nenurodytas grupės pavadinimas!"));
}

TEST_P(OperationGroupsTest, DocumentGroupWithoutTemplateCannotBeSaved) {
    const BOResult none =
        SaveGroupOn(*session_, {{QStringLiteral("FormOID"), QStringLiteral("O1000100")},
                                {QStringLiteral("Parameters"), QStringLiteral("|PVM")}});
    EXPECT_EQ(none.Code, 777);
    EXPECT_EQ(none.Text, QStringLiteral("Nenurodyti šablonai !"));
    const BOResult typeOnly =
        SaveGroupOn(*session_, {{QStringLiteral("FormOID"), QStringLiteral("O1000100")},
                                {QStringLiteral("Parameters"), QStringLiteral("3#0|PVM")}});
    EXPECT_EQ(typeOnly.Code, 777);
    const BOResult withTemplate =
        SaveGroupOn(*session_, {{QStringLiteral("FormOID"), QStringLiteral("O1000100")},
                                {QStringLiteral("Parameters"), QStringLiteral("3#12|PVM")}});
    EXPECT_TRUE(withTemplate.ok()) << withTemplate.Text.toStdString();
    // Other form types keep no templates in their parameters.
    EXPECT_TRUE(
        SaveGroupOn(*session_, {{QStringLiteral("FormOID"), QStringLiteral("O0201501")}}).ok());
}

TEST_P(OperationGroupsTest, StaleCopyOfGroupIsRefusedByItsLock) {
    const qint64 id = AddGroup();
    const QString ref = QStringLiteral("'O0201400%1'").arg(id);
    const RecordsetPtr first =
        Call(QStringLiteral("DO0201400_GetOrvoObject"), ref).Data.toRecordset();
    const RecordsetPtr second =
        Call(QStringLiteral("DO0201400_GetOrvoObject"), ref).Data.toRecordset();
    first->MoveFirst();
    first->SetField(QStringLiteral("Name"), QStringLiteral("Pirma"));
    first->Update();
    ASSERT_TRUE(Call(QStringLiteral("DO0201400_SaveOrvoObject"), ref, Value(first)).ok());
    second->MoveFirst();
    second->SetField(QStringLiteral("Name"), QStringLiteral("Antra"));
    second->Update();
    const BOResult stale = Call(QStringLiteral("DO0201400_SaveOrvoObject"), ref, Value(second));
    EXPECT_NE(stale.Code, 0);
    EXPECT_TRUE(stale.Text.contains(QStringLiteral("pakeitė kitas naudotojas")))
        << stale.Text.toStdString();
}

TEST_P(OperationGroupsTest, DeletingGroupThatHoldsOperationsIsRefused) {
    const qint64 id = AddGroup();
    ASSERT_TRUE(SaveOperation(id, 0).ok());
    const BOResult r =
        Call(QStringLiteral("DO0201400_DeleteOrvoObject"), QStringLiteral("'O0201400%1'").arg(id));
    EXPECT_EQ(r.Code, 777);
    EXPECT_TRUE(r.Text.startsWith(QStringLiteral("Grupės panaikinti negalima: joje yra operacijų")))
        << r.Text.toStdString();
    EXPECT_TRUE(
        Call(QStringLiteral("DO0201400_GetOrvoObject"), QStringLiteral("'O0201400%1'").arg(id))
            .ok());
}

TEST_P(OperationGroupsTest, DeletingGroupThatHoldsGroupsIsRefused) {
    const qint64 parent = AddGroup({{QStringLiteral("GroupFlag"), Value(1)}});
    AddGroup({{QStringLiteral("ParentID"), Value(double(parent))}});
    const BOResult r = Call(QStringLiteral("DO0201400_DeleteOrvoObject"),
                            QStringLiteral("'O0201400%1'").arg(parent));
    EXPECT_EQ(r.Code, 777);
    EXPECT_TRUE(r.Text.contains(QStringLiteral("joje yra kitų grupių"))) << r.Text.toStdString();
}

TEST_P(OperationGroupsTest, EmptyGroupIsDeleted) {
    const qint64 id = AddGroup();
    const BOResult r =
        Call(QStringLiteral("DO0201400_DeleteOrvoObject"), QStringLiteral("'O0201400%1'").arg(id));
    EXPECT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_FALSE(
        Call(QStringLiteral("DO0201400_GetOrvoObject"), QStringLiteral("'O0201400%1'").arg(id))
            .ok());
}

TEST_P(OperationGroupsTest, FormTypesStartWithPlainOperationThenTheDocumentKinds) {
    const BOResult r = Call(QStringLiteral("GetFormTypes"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(Rows(r.Data.toRecordset(), {QStringLiteral("OID")}),
              QStringList({QStringLiteral("O0201500"), QStringLiteral("O0201501"),
                           QStringLiteral("O0201502"), QStringLiteral("O0201503"),
                           QStringLiteral("O0201504"), QStringLiteral("O0201505"),
                           QStringLiteral("O0201506"), QStringLiteral("O0202000"),
                           QStringLiteral("O1000100")}));
    const RecordsetPtr rs = r.Data.toRecordset();
    rs->MoveFirst();
    EXPECT_EQ(rs->Field(QStringLiteral("Name")).toString(), QStringLiteral("Finansinė operacija"));
    rs->MoveNext();
    EXPECT_EQ(rs->Field(QStringLiteral("Name")).toString(), QStringLiteral("Mokėjimo nurodymas"));
}

TEST_P(OperationGroupsTest, MyFirmAccountsAreTheOwnFirmsBankAccountsMainFirst) {
    Database& db = session_->Db();
    ASSERT_TRUE(db.Execute(QStringLiteral("INSERT INTO Firms (Name, MyFirmFlag) VALUES (?, 1)"),
                           {Value(QStringLiteral("UAB Mūsų"))})
                    .ok());
    ASSERT_TRUE(db.Execute(QStringLiteral("INSERT INTO Firms (Name, MyFirmFlag) VALUES (?, 0)"),
                           {Value(QStringLiteral("UAB Kita"))})
                    .ok());
    ASSERT_TRUE(db.Execute(QStringLiteral("INSERT INTO Banks (Name, Code) VALUES (?, ?)"),
                           {Value(QStringLiteral("Bankas")), Value(QStringLiteral("70440"))})
                    .ok());
    const qint64 mine =
        db.Query(QStringLiteral("SELECT ID FROM Firms WHERE MyFirmFlag = 1")).Scalar().toInt32();
    const qint64 other =
        db.Query(QStringLiteral("SELECT ID FROM Firms WHERE MyFirmFlag = 0")).Scalar().toInt32();
    const qint64 bank = db.Query(QStringLiteral("SELECT ID FROM Banks")).Scalar().toInt32();
    const QString insert = QStringLiteral("INSERT INTO BankAccounts (OwnerOIDR, AccountNumber, "
                                          "BankID, CurrencyCode, MainAccountFlag) VALUES (?, ?, "
                                          "?, ?, ?)");
    ASSERT_TRUE(db.Execute(insert, {Value(QStringLiteral("O0000100%1").arg(mine)),
                                    Value(QStringLiteral("LT01")), Value(double(bank)),
                                    Value(QStringLiteral("USD")), Value(0)})
                    .ok());
    ASSERT_TRUE(db.Execute(insert, {Value(QStringLiteral("O0000100%1").arg(mine)),
                                    Value(QStringLiteral("LT02")), Value(double(bank)),
                                    Value(QStringLiteral("   ")), Value(1)})
                    .ok());
    ASSERT_TRUE(db.Execute(insert, {Value(QStringLiteral("O0000100%1").arg(other)),
                                    Value(QStringLiteral("LT03")), Value(double(bank)),
                                    Value(QStringLiteral("   ")), Value(1)})
                    .ok());
    for (const QString& name :
         {QStringLiteral("GetMyFirmAccounts"), QStringLiteral("DO0201400_GetMyFirmAccounts")}) {
        const BOResult r = Call(name);
        ASSERT_TRUE(r.ok()) << r.Text.toStdString();
        EXPECT_EQ(
            Rows(r.Data.toRecordset(), {QStringLiteral("AccountNumber"), QStringLiteral("Name"),
                                        QStringLiteral("Preview"),
                                        QStringLiteral("MainAccountFlag"), QStringLiteral("OIDR")}),
            QStringList({QStringLiteral("LT02|Bankas|LT02 Bankas|1|O0000300%1").arg(bank),
                         QStringLiteral("LT01|Bankas|LT01 Bankas USD|0|O0000300%1").arg(bank)}));
        const RecordsetPtr rs = r.Data.toRecordset();
        rs->MoveFirst();
        EXPECT_TRUE(
            rs->Field(QStringLiteral("AccOIDR")).toString().startsWith(QStringLiteral("O0000500")));
    }
}

class AccountSettingsTest : public GroupsTest {
protected:
    void SetUp() override {
        GroupsTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        const qint64 cls = Add(0, QStringLiteral("2"), QStringLiteral("Trumpalaikis turtas"));
        Add(cls, QStringLiteral("2710"), QStringLiteral("Bankas LT"), QStringLiteral("D"),
            RoleId(QStringLiteral("2710")));
        Add(cls, QStringLiteral("2711"), QStringLiteral("Bankas USD"), QStringLiteral("D"),
            RoleId(QStringLiteral("2710")));
        Add(cls, QStringLiteral("2720"), QStringLiteral("Kasa"), QStringLiteral("D"),
            RoleId(QStringLiteral("2720")));
        Add(cls, QStringLiteral("2730"), QStringLiteral("Antra kasa"));
        const QString insert = QStringLiteral("INSERT INTO AccountSettings (AccountCode, Code, "
                                              "CodeName, Account) VALUES (?, ?, ?, ?)");
        for (const QStringList& row :
             {QStringList{QStringLiteral("FILIALAS"), QStringLiteral("2720"),
                          QStringLiteral("Filialo kasa"), QStringLiteral("2730")},
              QStringList{QStringLiteral("FILIALAS"), QStringLiteral("2710"), QString(),
                          QStringLiteral("2711")}})
            ASSERT_TRUE(
                session_->Db()
                    .Execute(insert, {Value(row[0]), Value(row[1]), Value(row[2]), Value(row[3])})
                    .ok());
    }
};

TEST_P(AccountSettingsTest, WithoutNamedSetTheSettingsAreTheChartsRoles) {
    const BOResult r = Call(QStringLiteral("DO0201400_GetAccountSettings"), QStringLiteral("''"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(
        Rows(r.Data.toRecordset(), {QStringLiteral("Code"), QStringLiteral("CodeName"),
                                    QStringLiteral("Account"), QStringLiteral("AccountName")}),
        QStringList({QStringLiteral("2710|Banko sąskaitos|2710|Bankas LT"),
                     QStringLiteral("2710|Banko sąskaitos|2711|Bankas USD"),
                     QStringLiteral("2720|Kasa|2720|Kasa")}));
}

TEST_P(AccountSettingsTest, NamedSetReplacesTheCodesItNames) {
    const BOResult r =
        Call(QStringLiteral("DO0201400_GetAccountSettings"), QStringLiteral("'FILIALAS'"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(
        Rows(r.Data.toRecordset(), {QStringLiteral("Code"), QStringLiteral("CodeName"),
                                    QStringLiteral("Account"), QStringLiteral("AccountName")}),
        QStringList({QStringLiteral("2710|Banko sąskaitos|2711|Bankas USD"),
                     QStringLiteral("2720|Filialo kasa|2730|Antra kasa")}));
}

TEST_P(AccountSettingsTest, PresetAccountsAreTheSettingsReadByCode) {
    for (const QString& set : {QString(), QStringLiteral("FILIALAS")}) {
        const RecordsetPtr settings =
            Call(QStringLiteral("DO0201400_GetAccountSettings"), QStringLiteral("'%1'").arg(set))
                .Data.toRecordset();
        const RecordsetPtr preset =
            Call(QStringLiteral("DO0201400_GetPresetAccounts"), QStringLiteral("'','%1'").arg(set))
                .Data.toRecordset();
        EXPECT_EQ(Rows(settings, {QStringLiteral("Code"), QStringLiteral("Account"),
                                  QStringLiteral("AccountName")}),
                  Rows(preset,
                       {QStringLiteral("Code"), QStringLiteral("Account"), QStringLiteral("Name")}))
            << set.toStdString();
    }
    // The book-wide reading through the chart's own method is the same rule.
    EXPECT_EQ(
        Rows(Call(QStringLiteral("GetPresetAccounts"), QStringLiteral("''")).Data.toRecordset(),
             {QStringLiteral("Code"), QStringLiteral("Account"), QStringLiteral("Name")}),
        Rows(Call(QStringLiteral("DO0201400_GetPresetAccounts"), QStringLiteral("''"))
                 .Data.toRecordset(),
             {QStringLiteral("Code"), QStringLiteral("Account"), QStringLiteral("Name")}));
    EXPECT_EQ(Rows(Call(QStringLiteral("DO0201400_GetPresetAccounts"), QStringLiteral("'2720'"))
                       .Data.toRecordset(),
                   {QStringLiteral("Code"), QStringLiteral("Account")}),
              QStringList({QStringLiteral("2720|2720")}));
}

TEST_P(OperationGroupsTest, GroupNodesAreSubgroupsThenOperationsOfThePeriod) {
    const qint64 parent = AddGroup({{QStringLiteral("Name"), QStringLiteral("Bendra")},
                                    {QStringLiteral("GroupFlag"), Value(1)}});
    const qint64 child = AddGroup({{QStringLiteral("Name"), QStringLiteral("Kasa")},
                                   {QStringLiteral("ParentID"), Value(double(parent))}});
    AddGroup({{QStringLiteral("Name"), QStringLiteral("Bankas")},
              {QStringLiteral("ParentID"), Value(double(parent))}});
    ASSERT_TRUE(SaveOperation(child, 0, QDate(2024, 1, 10)).ok());
    ASSERT_TRUE(SaveOperation(child, 0, QDate(2024, 2, 10)).ok());
    ASSERT_TRUE(SaveOperation(child, 0, QDate(2030, 5, 1)).ok());

    const BOResult top =
        Call(QStringLiteral("DO0201400_GetGroupNodes"), QStringLiteral("'O0201400','',''"));
    ASSERT_TRUE(top.ok()) << top.Text.toStdString();
    EXPECT_EQ(Rows(top.Data.toRecordset(), {QStringLiteral("Preview")}),
              QStringList({QStringLiteral("Bendra")}));
    EXPECT_EQ(Rows(Call(QStringLiteral("DO0201400_GetGroupNodes"),
                        QStringLiteral("'O0201400%1','',''").arg(parent))
                       .Data.toRecordset(),
                   {QStringLiteral("OType"), QStringLiteral("Preview")}),
              QStringList({QStringLiteral("O0201400|Bankas"), QStringLiteral("O0201400|Kasa")}));
    const BOResult period =
        Call(QStringLiteral("DO0201400_GetGroupNodes"),
             QStringLiteral("'O0201400%1','2024.02.01','9999.12.31'").arg(child));
    ASSERT_TRUE(period.ok()) << period.Text.toStdString();
    EXPECT_EQ(Rows(period.Data.toRecordset(), {QStringLiteral("OType"), QStringLiteral("Preview")}),
              QStringList({QStringLiteral("O0201500|2024.02.10 Nr 0"),
                           QStringLiteral("O0201500|2030.05.01 Nr 0")}));
    const BOResult closed =
        Call(QStringLiteral("DO0201400_GetGroupNodes"),
             QStringLiteral("'O0201400%1','2024.01.01','2024.01.31'").arg(child));
    EXPECT_EQ(Rows(closed.Data.toRecordset(), {QStringLiteral("Preview")}),
              QStringList({QStringLiteral("2024.01.10 Nr 0")}));
}

TEST_P(OperationGroupsTest, GroupNodesWindowReadsOnlyTheAskedRowsOfTheWholeList) {
    const qint64 group = AddGroup({{QStringLiteral("Name"), QStringLiteral("Kasa")}});
    AddGroup({{QStringLiteral("Name"), QStringLiteral("A poskyris")},
              {QStringLiteral("ParentID"), Value(double(group))}});
    AddGroup({{QStringLiteral("Name"), QStringLiteral("B poskyris")},
              {QStringLiteral("ParentID"), Value(double(group))}});
    for (int day = 1; day <= 4; ++day)
        ASSERT_TRUE(SaveOperation(group, 0, QDate(2024, 1, day)).ok());
    const auto window = [&](int first, int last) {
        const BOResult r =
            Call(QStringLiteral("DO0201400_GetGroupNodes"),
                 QStringLiteral("'O0201400%1','','',%2,%3").arg(group).arg(first).arg(last));
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        return Rows(r.Data.toRecordset(), {QStringLiteral("Preview")});
    };
    // Subgroups first, then the operations by date; a window may span both.
    EXPECT_EQ(window(2, 4),
              QStringList({QStringLiteral("B poskyris"), QStringLiteral("2024.01.01 Nr 0"),
                           QStringLiteral("2024.01.02 Nr 0")}));
    EXPECT_EQ(window(5, 5), QStringList({QStringLiteral("2024.01.03 Nr 0")}));
    EXPECT_EQ(window(6, 0), QStringList({QStringLiteral("2024.01.04 Nr 0")}));
    EXPECT_EQ(window(7, 100), QStringList());
    EXPECT_EQ(window(0, 0).size(), 6);
    const BOResult backwards = Call(QStringLiteral("DO0201400_GetGroupNodes"),
                                    QStringLiteral("'O0201400%1','','',5,2").arg(group));
    EXPECT_FALSE(backwards.ok());
}

ORVO_STORAGE_BACKENDS(OperationGroupsTest);
ORVO_STORAGE_BACKENDS(AccountSettingsTest);

} // namespace
} // namespace orvo::host::testing
