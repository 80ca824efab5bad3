// UIO0201400, the data object of an operation group: the defaults of a new group, the
// group's number under the name operations know it by, Properties (Parent, the plain
// FormTypes and MyFirmAccounts, any other name as a DO0201400_Get method, the group's
// own account settings) and FillTemplatesTrw over a tree control.
#include "frame/memory_tree_control.h"
#include "group_fixture.h"

namespace orvo::accounts_testing {
namespace {

class GroupObjectTest : public GroupTest {};

TEST_P(GroupObjectTest, NewGroupDefaultsToFirstDayOfThisYearAndPlainOperations) {
    const OrvoObjectUIOPtr group = navigator_->GetOrvoObject(QString());
    ASSERT_TRUE(group);
    EXPECT_EQ(group->Field(QStringLiteral("ANDateFrom")).toDate(), QDate(2024, 1, 1));
    EXPECT_EQ(group->Field(QStringLiteral("FormOID")).toString(), QStringLiteral("O0201500"));
    SetToday(QDate(2026, 11, 15));
    EXPECT_EQ(navigator_->GetOrvoObject(QString())->Field(QStringLiteral("ANDateFrom")).toDate(),
              QDate(2026, 1, 1));
}

TEST_P(GroupObjectTest, StoredGroupKeepsItsDateFromAndCarriesItsNumber) {
    const qint64 id = AddGroup(QStringLiteral("Kasa"));
    SetToday(QDate(2025, 6, 1));
    const OrvoObjectUIOPtr group = navigator_->GetOrvoObject(GroupOID(id));
    ASSERT_TRUE(group);
    EXPECT_EQ(group->Field(QStringLiteral("ANDateFrom")).toDate(), QDate(2024, 1, 1));
    EXPECT_EQ(group->Field(QStringLiteral("BROperGroupID")).toInt32(), id);
    EXPECT_EQ(group->RsFields()->Status(), RowStatus::Unchanged);
}

TEST_P(GroupObjectTest, ParentIsTheGroupAbove) {
    const qint64 top = AddGroup(QStringLiteral("Bendra"), 0, true);
    const qint64 child = AddGroup(QStringLiteral("Kasa"), top);
    const OrvoObjectUIOPtr group = navigator_->GetOrvoObject(GroupOID(child));
    const ValueResult parent = group->Properties(QStringLiteral("Parent"), QString());
    ASSERT_TRUE(parent.ok());
    const OrvoObjectUIOPtr above =
        std::dynamic_pointer_cast<OrvoObjectUIO>(parent.Value.toObject());
    ASSERT_TRUE(above);
    EXPECT_EQ(above->Field(QStringLiteral("Name")).toString(), QStringLiteral("Bendra"));
    const ValueResult none =
        navigator_->GetOrvoObject(GroupOID(top))->Properties(QStringLiteral("Parent"), QString());
    EXPECT_TRUE(none.ok());
    EXPECT_TRUE(none.Value.isNull());
}

TEST_P(GroupObjectTest, FormTypesComeInOrderWithPlainOperationFirst) {
    const OrvoObjectUIOPtr group = navigator_->GetOrvoObject(QString());
    const ValueResult r = group->Properties(QStringLiteral("FormTypes"), QString());
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    const QStringList oids = Rows(r.Value.toRecordset(), QStringLiteral("OID"));
    ASSERT_EQ(oids.size(), 9);
    EXPECT_EQ(oids.first(), QStringLiteral("O0201500"));
    EXPECT_EQ(oids.mid(7), QStringList({QStringLiteral("O0202000"), QStringLiteral("O1000100")}));
    EXPECT_EQ(Rows(r.Value.toRecordset(), QStringLiteral("Name")).first(),
              QStringLiteral("Finansinė operacija"));
}

TEST_P(GroupObjectTest, MyFirmAccountsIsPlainAndOtherNamesGoAsGroupMethods) {
    const OrvoObjectUIOPtr group = navigator_->GetOrvoObject(QString());
    const ValueResult accounts = group->Properties(QStringLiteral("MyFirmAccounts"), QString());
    ASSERT_TRUE(accounts.ok()) << accounts.Text.toStdString();
    EXPECT_TRUE(accounts.Value.toRecordset()->HasField(QStringLiteral("MainAccountFlag")));
    // AccountSettings is DO0201400_GetAccountSettings.
    const ValueResult settings =
        group->Properties(QStringLiteral("AccountSettings"), QStringLiteral("''"));
    ASSERT_TRUE(settings.ok()) << settings.Text.toStdString();
    EXPECT_TRUE(settings.Value.toRecordset()->HasField(QStringLiteral("CodeName")));
    // A name the business object does not know is refused with a warning.
    const ValueResult unknown = group->Properties(QStringLiteral("NoSuchThing"), QString());
    EXPECT_NE(unknown.Code, 0);
    EXPECT_EQ(Shown().size(), 1);
}

TEST_P(GroupObjectTest, PresetAccountsOfGroupFollowItsAccountSettings) {
    host::Database& db = session_->Db();
    ASSERT_TRUE(db.Execute(QStringLiteral("INSERT INTO Accounts (OwnCode, Account, Name, Type, "
                                          "GroupFlag, BRAPropertyID) VALUES ('', '2720', 'Kasa', "
                                          "'D', 0, (SELECT ID FROM BRASettings WHERE Code = "
                                          "'2720'))"))
                    .ok());
    ASSERT_TRUE(db.Execute(QStringLiteral("INSERT INTO Accounts (OwnCode, Account, Name, Type, "
                                          "GroupFlag, BRAPropertyID) VALUES ('', '2730', 'Antra "
                                          "kasa', 'D', 0, 0)"))
                    .ok());
    ASSERT_TRUE(db.Execute(QStringLiteral("INSERT INTO AccountSettings (AccountCode, Code, "
                                          "CodeName, Account) VALUES ('FILIALAS', '2720', "
                                          "'Filialo kasa', '2730')"))
                    .ok());
    const OrvoObjectUIOPtr plain = navigator_->GetOrvoObject(QString());
    EXPECT_EQ(
        Rows(plain->Properties(QStringLiteral("PresetAccounts"), QString()).Value.toRecordset(),
             QStringLiteral("Account")),
        QStringList({QStringLiteral("2720")}));
    const OrvoObjectUIOPtr branch = navigator_->GetOrvoObject(QString());
    branch->SetField(QStringLiteral("AccountCode"), QStringLiteral("FILIALAS"));
    EXPECT_EQ(
        Rows(branch->Properties(QStringLiteral("PresetAccounts"), QString()).Value.toRecordset(),
             QStringLiteral("Account")),
        QStringList({QStringLiteral("2730")}));
    EXPECT_EQ(
        Rows(branch->Properties(QStringLiteral("AccountSettings"), QString()).Value.toRecordset(),
             QStringLiteral("AccountName")),
        QStringList({QStringLiteral("Antra kasa")}));
}

TEST_P(GroupObjectTest, FillTemplatesTrwWithoutTreeReportsWrongParameters) {
    const OrvoObjectUIOPtr group = navigator_->GetOrvoObject(QString());
    const ValueResult r = group->Methods(QStringLiteral("FillTemplatesTrw"), {});
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(r.Text, QStringLiteral("FillTemplatesTrw\nKlaida parametruose!"));
    EXPECT_EQ(Shown(), QStringList({r.Text}));
    EXPECT_EQ(group->Methods(QStringLiteral("FillTemplatesTrw"), {Value(QStringLiteral("x"))}).Code,
              777);
}

TEST_P(GroupObjectTest, FillTemplatesTrwOfGroupWithoutTemplatesShowsOnlyTheHeading) {
    const OrvoObjectUIOPtr group =
        navigator_->GetOrvoObject(GroupOID(AddGroup(QStringLiteral("K"))));
    auto tree = std::make_shared<MemoryTreeControl>();
    tree->AddNode(QStringLiteral("old"), QString(), QStringLiteral("senas"));
    const ValueResult r = group->Methods(QStringLiteral("FillTemplatesTrw"),
                                         {Value(std::static_pointer_cast<ObjectBase>(tree))});
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    ASSERT_EQ(tree->Count(), 1);
    EXPECT_EQ(tree->Text(0), QStringLiteral("Operacijų šablonai :"));
    EXPECT_TRUE(tree->Expanded(0));
}

TEST_P(GroupObjectTest, ContractFormTakesTemplateGroupFromParameters) {
    const OrvoObjectUIOPtr group = navigator_->GetOrvoObject(QString());
    auto* object = dynamic_cast<UIO0201400*>(group.get());
    ASSERT_TRUE(object);
    group->SetField(QStringLiteral("BRTemplateID"), Value(5));
    EXPECT_EQ(object->TemplateGroupID(), 5);
    group->SetField(QStringLiteral("FormOID"), QStringLiteral("O1000100"));
    group->SetField(QStringLiteral("Parameters"), QStringLiteral("3#12#4#13|PVM"));
    EXPECT_EQ(object->TemplateGroupID(), 12);
}

ORVO_STORAGE_BACKENDS(GroupObjectTest);

} // namespace
} // namespace orvo::accounts_testing
