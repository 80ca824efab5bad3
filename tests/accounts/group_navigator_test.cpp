// UI0201400, the navigator of operation groups: the nodes under a group within the
// period, the menu of the root, of a general group and of an operations group by the
// rights, the new group in its editor, the new operation handed to the operations
// navigator, a missing window refused clearly, and deletion asked, refused while the
// group holds operations, and reported as "Grupė panaikinta!".
#include "group_fixture.h"
#include "operations/operation_registration.h"

namespace orvo::accounts_testing {
namespace {

class GroupNavigatorTest : public GroupTest {
protected:
    void SetUp() override {
        GroupTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        RegisterOperationClasses();
    }
};

TEST_P(GroupNavigatorTest, ListIsSubgroupsThenOperationsOfThePeriod) {
    const qint64 top = AddGroup(QStringLiteral("Bendra"), 0, true);
    const qint64 cash = AddGroup(QStringLiteral("Kasa"), top);
    AddOperation(cash, QDate(2023, 12, 31), QStringLiteral("A1"));
    AddOperation(cash, QDate(2024, 3, 1), QStringLiteral("A2"));
    AddOperation(cash, QDate(2031, 1, 1), QStringLiteral("A3"));
    EXPECT_EQ(Rows(navigator_->GetOrvoObjectList(QStringLiteral("O0201400"), QString(), QString()),
                   QStringLiteral("OIDR")),
              QStringList({GroupOID(top)}));
    EXPECT_EQ(Rows(navigator_->GetOrvoObjectList(GroupOID(top), QString(), QString()),
                   QStringLiteral("Preview")),
              QStringList({QStringLiteral("Kasa")}));
    // No upper bound: 9999.12.31.
    EXPECT_EQ(
        Rows(navigator_->GetOrvoObjectList(GroupOID(cash), QStringLiteral("2024.01.01"), QString()),
             QStringLiteral("Preview")),
        QStringList({QStringLiteral("2024.03.01 A2"), QStringLiteral("2031.01.01 A3")}));
    EXPECT_EQ(Rows(navigator_->GetOrvoObjectList(GroupOID(cash), QStringLiteral("2023.01.01"),
                                                 QStringLiteral("2024.12.31")),
                   QStringLiteral("Preview")),
              QStringList({QStringLiteral("2023.12.31 A1"), QStringLiteral("2024.03.01 A2")}));
}

TEST_P(GroupNavigatorTest, RootMenuOffersNewGroupsAndBookWideWork) {
    const QStringList menu = Captions(QStringLiteral("O0201400"));
    EXPECT_EQ(menu.mid(0, 2), QStringList({QStringLiteral("Naują bendra grupė"),
                                           QStringLiteral("Naują operacijų grupė")}));
    EXPECT_TRUE(menu.contains(QStringLiteral("Sąskaitų likučiai")));
    EXPECT_TRUE(menu.contains(QStringLiteral("Peržiūros nustatymai")));
    EXPECT_TRUE(menu.contains(QStringLiteral("Skolų dengimas po konvertavimo")));
    EXPECT_FALSE(menu.contains(QStringLiteral("Panaikinti")));
    EXPECT_EQ(menu.mid(menu.size() - 2),
              QStringList({QStringLiteral("Atrinkti"), QStringLiteral("Paieška")}));
}

TEST_P(GroupNavigatorTest, GeneralGroupMenuMakesGroupsNotOperations) {
    const qint64 top = AddGroup(QStringLiteral("Bendra"), 0, true);
    const QStringList menu = Captions(GroupOID(top));
    EXPECT_EQ(
        menu,
        QStringList({QStringLiteral("Padėti ant darbo stalo"), QStringLiteral("Naują bendra grupė"),
                     QStringLiteral("Naują operacijų grupė"), QStringLiteral("Panaikinti"),
                     QStringLiteral("Atrinkti"), QStringLiteral("Paieška")}));
}

TEST_P(GroupNavigatorTest, OperationGroupMenuFollowsItsFormType) {
    const qint64 cash = AddGroup(QStringLiteral("Kasa"), 0, false, QStringLiteral("O0201504"));
    const QStringList menu = Captions(GroupOID(cash));
    EXPECT_TRUE(menu.contains(QStringLiteral("Naujas kasos pajamų orderis")));
    EXPECT_FALSE(menu.contains(QStringLiteral("Nauja operacija")));
    EXPECT_TRUE(menu.contains(QStringLiteral("Skolų dengimas")));
    EXPECT_TRUE(menu.contains(QStringLiteral("Valiutos perskaičiavimas")));
    EXPECT_FALSE(menu.contains(QStringLiteral("Naują operacijų grupė")));
    const qint64 bank = AddGroup(QStringLiteral("Bankas"), 0, false, QStringLiteral("O0201501"));
    const QStringList bankMenu = Captions(GroupOID(bank));
    EXPECT_TRUE(bankMenu.contains(QStringLiteral("Naujas mokėjimo nurodymas")));
    EXPECT_TRUE(bankMenu.contains(QStringLiteral("Eksportas į banką")));
    EXPECT_TRUE(bankMenu.contains(QStringLiteral("Banko įrašų apie pinigų gavimą importas")));
    EXPECT_TRUE(Captions(GroupOID(AddGroup(QStringLiteral("Paprasta"))))
                    .contains(QStringLiteral("Nauja operacija")));
}

TEST_P(GroupNavigatorTest, UserWithoutRightsSeesOnlySelectionAndSearch) {
    const qint64 cash = AddGroup(QStringLiteral("Kasa"));
    ASSERT_TRUE(session_->Db()
                    .Execute(QStringLiteral("INSERT INTO Users (Code, Name, IsAdmin) VALUES "
                                            "('svecias', 'Svečias', 0)"))
                    .ok());
    navigator_.reset();
    session_.reset();
    host::SessionResult r =
        host::HostSession::Open(location_, host::OpenMode::Existing, QStringLiteral("svecias"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    session_ = std::move(r.Session);
    navigator_ = std::dynamic_pointer_cast<UI0201400>(
        session_->Services()->ObjectsService()->GetObjectUI(QStringLiteral("O0201400")));
    ASSERT_TRUE(navigator_);
    EXPECT_EQ(Captions(GroupOID(cash)),
              QStringList({QStringLiteral("Atrinkti"), QStringLiteral("Paieška")}));
    EXPECT_FALSE(navigator_->DragOK(GroupOID(cash)));
}

TEST_P(GroupNavigatorTest, NewGroupOpensItsEditorUnderTheClickedGroup) {
    RegisterForm(QStringLiteral("frmBROperGroup"));
    const qint64 top = AddGroup(QStringLiteral("Bendra"), 0, true);
    const ClickResult r = navigator_->ClickMenu(
        GroupOID(top), QString(), QStringLiteral("Naują operacijų grupė"), GroupOID(top));
    ASSERT_EQ(r.Action, ClickResult::ShowForm);
    const auto form = std::dynamic_pointer_cast<OrvoForm>(r.Payload.toObject());
    ASSERT_TRUE(form);
    const OrvoObjectUIOPtr group = form->GetOrvoObjectUIO();
    ASSERT_TRUE(group);
    EXPECT_EQ(group->Field(QStringLiteral("ParentID")).toInt32(), top);
    EXPECT_EQ(group->Field(QStringLiteral("GroupFlag")).toInt32(), 0);
    EXPECT_EQ(group->Field(QStringLiteral("ANDateFrom")).toDate(), QDate(2024, 1, 1));
}

TEST_P(GroupNavigatorTest, MissingWindowIsRefusedClearly) {
    const qint64 cash = AddGroup(QStringLiteral("Kasa"));
    const ClickResult r = navigator_->ClickMenu(GroupOID(cash), QString(),
                                                QStringLiteral("Skolų dengimas"), QString());
    EXPECT_EQ(r.Action, ClickResult::Nothing);
    EXPECT_EQ(Shown(), QStringList({QStringLiteral(
                           "Langas „frmDebtsCover“ neprieinamas: veiksmo atlikti negalima.")}));
}

TEST_P(GroupNavigatorTest, NewOperationStartsInTheClickedGroup) {
    RegisterForm(QStringLiteral("frmCashPayment"));
    const qint64 cash = AddGroup(QStringLiteral("Kasa"), 0, false, QStringLiteral("O0201504"));
    const ClickResult r = navigator_->ClickMenu(
        GroupOID(cash), QString(), QStringLiteral("Naujas kasos pajamų orderis"), QString());
    ASSERT_EQ(r.Action, ClickResult::ShowForm) << Shown().join(QLatin1Char('\n')).toStdString();
    const auto form = std::dynamic_pointer_cast<OrvoForm>(r.Payload.toObject());
    ASSERT_TRUE(form);
    EXPECT_EQ(form->FormName(), QStringLiteral("frmCashPayment"));
    EXPECT_EQ(form->GetOrvoObjectUIO()->Field(QStringLiteral("BROperGroupID")).toInt32(), cash);
    EXPECT_EQ(form->GetOrvoObjectUIO()->OType(), QStringLiteral("O0201504"));
}

TEST_P(GroupNavigatorTest, DeletingAsksThenReportsGroupDeleted) {
    const qint64 cash = AddGroup(QStringLiteral("Kasa"));
    session_->Messages()->QueueAnswer(false);
    navigator_->ClickMenu(GroupOID(cash), QString(), QStringLiteral("Panaikinti"), QString());
    EXPECT_TRUE(navigator_->GetOrvoObject(GroupOID(cash)));
    EXPECT_EQ(Shown(), QStringList({QStringLiteral("Ar tikrai norite panaikinti?")}));
    session_->Messages()->QueueAnswer(true);
    navigator_->ClickMenu(GroupOID(cash), QString(), QStringLiteral("Panaikinti"), QString());
    EXPECT_EQ(Shown(), QStringList({QStringLiteral("Ar tikrai norite panaikinti?"),
                                    QStringLiteral("Grupė panaikinta!")}));
    EXPECT_FALSE(navigator_->GetOrvoObject(GroupOID(cash)));
}

TEST_P(GroupNavigatorTest, DeletingGroupWithOperationsShowsTheRefusal) {
    const qint64 cash = AddGroup(QStringLiteral("Kasa"));
    AddOperation(cash, QDate(2024, 3, 1), QStringLiteral("A1"));
    session_->Messages()->QueueAnswer(true);
    navigator_->ClickMenu(GroupOID(cash), QString(), QStringLiteral("Panaikinti"), QString());
    const QStringList shown = Shown();
    ASSERT_EQ(shown.size(), 2);
    EXPECT_TRUE(shown.at(1).startsWith(QStringLiteral("Grupės panaikinti negalima")))
        << shown.at(1).toStdString();
    EXPECT_TRUE(navigator_->GetOrvoObject(GroupOID(cash)));
}

ORVO_STORAGE_BACKENDS(GroupNavigatorTest);

} // namespace
} // namespace orvo::accounts_testing
