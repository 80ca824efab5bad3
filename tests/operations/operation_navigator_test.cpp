// UI0201500, the navigator of operations, in a session on a real book: its icons, the
// menu of a row by kind and rights, the clicks that need a group or a form, the list
// and the deletion through the business object.
#include "operations_book.h"

#include "operations/operation_navigator.h"
#include "test_forms.h"

namespace orvo::test {
namespace {

class OperationNavigatorTest : public OperationsBook {
protected:
    QStringList Captions(const MenuItems& menu) {
        QStringList out;
        for (const MenuItem& item : menu)
            out << item.Caption;
        return out;
    }
    std::shared_ptr<host::ScriptedMessages> Messages() { return session_->Messages(); }
};

TEST_P(OperationNavigatorTest, IconsTableMapsEveryOperationKindAndTheJournalRows) {
    const IconMappings expected = {
        {"C", "C0201500"},        {"O0201500", "C0201500"}, {"O0300100", "C0201500"},
        {"O0202000", "C0201500"}, {"O0201501", "C0201501"}, {"O0201502", "C0201502"},
        {"O0201503", "C0201503"}, {"O0201504", "C0201504"}, {"O0201505", "C0201505"},
        {"O0201506", "C0201506"}, {"TJ", "C0200500J"},      {"RJ", "C0200500J"},
        {"IJ", "C0200500J"},      {"PJ", "C0200500J"}};
    EXPECT_EQ(Navigator()->GetIconsTable(), expected);
}

TEST_P(OperationNavigatorTest, EveryOperationKindHasTheNavigatorUI0201500) {
    for (const char* kind :
         {"O0201500", "O0201501", "O0201502", "O0201503", "O0201504", "O0201505", "O0201506"}) {
        const OrvoObjectUIPtr ui = Navigator(QString::fromLatin1(kind));
        ASSERT_TRUE(ui) << kind;
        EXPECT_EQ(ui->ClassName(), QStringLiteral("UI0201500"));
    }
}

TEST_P(OperationNavigatorTest, OperationRowMenuForAFullRightUserInItsOrder) {
    const MenuItems menu =
        Navigator()->GetMenu(QStringLiteral("O020150012"), QStringLiteral("O0201500"), "7");
    EXPECT_EQ(Captions(menu), (QStringList{"Padėti ant darbo stalo", "Nauja operacija",
                                           "Panaikinti", "Atrinkti", "Paieška"}));
    for (const MenuItem& item : menu)
        EXPECT_EQ(item.Key, QStringLiteral("O020150012"));
}

TEST_P(OperationNavigatorTest, PaymentOrderRowOffersANewPaymentOrderAndTheBankExport) {
    const MenuItems menu =
        Navigator()->GetMenu(QStringLiteral("O020150012"), QStringLiteral("O0201501"), "7");
    EXPECT_EQ(Captions(menu),
              (QStringList{"Padėti ant darbo stalo", "Naujas mokėjimo nurodymas",
                           "Eksportas į banką", "Panaikinti", "Atrinkti", "Paieška"}));
}

TEST_P(OperationNavigatorTest, DocumentRowsOfferTheNewEntryOfTheirKind) {
    const QList<QPair<QString, QString>> kinds = {{"O0201502", "Naujas pinigų gavimas"},
                                                  {"O0201503", "Naujas kasos išlaidų orderis"},
                                                  {"O0201504", "Naujas kasos pajamų orderis"},
                                                  {"O0201505", "Nauja avanso apyskaita"},
                                                  {"O0201506", "Nauja operacija"}};
    for (const auto& kind : kinds) {
        const QStringList captions =
            Captions(Navigator()->GetMenu(QStringLiteral("O020150012"), kind.first, "7"));
        ASSERT_EQ(captions.size(), 5) << kind.first.toStdString();
        EXPECT_EQ(captions.at(1), kind.second) << kind.first.toStdString();
    }
}

TEST_P(OperationNavigatorTest, ContractRowsHaveNoNewEntryEvenWithTheCreateRight) {
    const MenuItems menu =
        Navigator()->GetMenu(QStringLiteral("O100010012"), QStringLiteral("O1000100"), "7");
    EXPECT_EQ(Captions(menu),
              (QStringList{"Padėti ant darbo stalo", "Panaikinti", "Atrinkti", "Paieška"}));
}

TEST_P(OperationNavigatorTest, TheNodeOfTheListItselfHasNoMenu) {
    EXPECT_TRUE(Navigator()
                    ->GetMenu(QStringLiteral("O0201500"), QStringLiteral("O0201500"), "7")
                    .isEmpty());
}

TEST_P(OperationNavigatorTest, RowOfAUserWithoutReadRightHasNoDesktopEntryButHasTheSearchEntries) {
    ASSERT_TRUE(session_->Db()
                    .Execute(QStringLiteral("INSERT INTO Users (Code, Name, UserPref, IsAdmin) "
                                            "VALUES ('jonas', 'Jonas', 'JO', 0)"))
                    .ok());
    const double id = session_->Db()
                          .Query(QStringLiteral("SELECT ID FROM Users WHERE Code = 'jonas'"))
                          .Scalar()
                          .toDouble();
    ASSERT_TRUE(session_->Db()
                    .Execute(QStringLiteral("INSERT INTO Rights (UserID, RightKey, ReadFlag, "
                                            "DeleteFlag, EditFlag, CreateFlag, FifthFlag) VALUES "
                                            "(?, 'CBROperRights7', 0, 0, 0, 1, 0)"),
                             {Value(id)})
                    .ok());
    session_.reset();
    host::SessionResult jonas =
        host::HostSession::Open(location_, host::OpenMode::Existing, QStringLiteral("jonas"));
    ASSERT_TRUE(jonas.ok()) << jonas.Text.toStdString();
    session_ = std::move(jonas.Session);
    const MenuItems menu =
        Navigator()->GetMenu(QStringLiteral("O020150012"), QStringLiteral("O0201500"), "7");
    EXPECT_EQ(Captions(menu), (QStringList{"Nauja operacija", "Atrinkti", "Paieška"}));
    // Another group: no right at all.
    EXPECT_EQ(Captions(Navigator()->GetMenu(QStringLiteral("O020150012"),
                                            QStringLiteral("O0201500"), "8")),
              (QStringList{"Atrinkti", "Paieška"}));
}

TEST_P(OperationNavigatorTest, DeletedGroupGivesGrupePanaikintaOnlyWhenANewOperationIsAsked) {
    const QString group = QStringLiteral("O020200099");
    Navigator()->GetMenu(group, QStringLiteral("O0201500"), "99");
    EXPECT_TRUE(Messages()->Shown().isEmpty());
    const ClickResult click =
        Navigator()->ClickMenu(group, QString(), QStringLiteral("Nauja operacija"), group);
    EXPECT_EQ(click.Action, ClickResult::Nothing);
    ASSERT_EQ(Messages()->Shown().size(), 1);
    EXPECT_EQ(Messages()->Shown().first().Kind, MessageKind::Error);
    EXPECT_EQ(Messages()->Shown().first().Text, QStringLiteral("Grupė panaikinta!"));
}

TEST_P(OperationNavigatorTest, BankExportWithoutItsWindowIsRefusedClearly) {
    const ClickResult click = Navigator()->ClickMenu(
        QStringLiteral("O020150012"), QString(), QStringLiteral("Eksportas į banką"), QString());
    EXPECT_EQ(click.Action, ClickResult::Nothing);
    ASSERT_EQ(Messages()->Shown().size(), 1);
    EXPECT_EQ(Messages()->Shown().first().Text, UI0201500::NoFormText("frmTelebank"));
}

TEST_P(OperationNavigatorTest, BankExportHandsTheWindowANewOperationObject) {
    session_->Forms()->Register(QStringLiteral("frmTelebank"), [] {
        return std::make_shared<PlainForm>(QStringLiteral("frmTelebank"));
    });
    const ClickResult click = Navigator()->ClickMenu(
        QStringLiteral("O020150012"), QString(), QStringLiteral("Eksportas į banką"), QString());
    ASSERT_EQ(click.Action, ClickResult::ShowForm);
    const auto form = std::dynamic_pointer_cast<OrvoForm>(click.Payload.toObject());
    ASSERT_TRUE(form);
    EXPECT_EQ(form->FormName(), QStringLiteral("frmTelebank"));
    ASSERT_TRUE(form->GetOrvoObjectUIO());
    EXPECT_LT(form->GetOrvoObjectUIO()->OIDR().size(), 9);
}

TEST_P(OperationNavigatorTest, ClickOnTheListNodeItselfDoesNothing) {
    const ClickResult click = Navigator()->ClickMenu(QStringLiteral("O0201500"), QString(),
                                                     QStringLiteral("Panaikinti"), QString());
    EXPECT_EQ(click.Action, ClickResult::Nothing);
    EXPECT_TRUE(Messages()->Shown().isEmpty());
}

TEST_P(OperationNavigatorTest, ListComesThroughTheBusinessObjectWhateverPositionsAreAsked) {
    for (int i = 0; i < 3; ++i) {
        OrvoObjectUIOPtr op = Object(QStringLiteral("O0201500"));
        op->SetField(QStringLiteral("DateD"), Value(QDate(2026, 6, i + 1)));
        op->SetField(QStringLiteral("Number"), QString::number(i + 1));
        ASSERT_EQ(
            AddBR(op, {QStringLiteral("2710"), QStringLiteral("5000"), 10.0, ValueArray{}}).Code,
            0);
        ASSERT_TRUE(op->Save().ok());
    }
    const RecordsetPtr rows = Navigator()->GetOrvoObjectList(
        QStringLiteral("O0201500"), QStringLiteral("1"), QStringLiteral("1"));
    ASSERT_TRUE(rows);
    EXPECT_EQ(rows->RecordCount(), 3);
    rows->MoveFirst();
    EXPECT_EQ(rows->Field(QStringLiteral("Preview")).toString(), QStringLiteral("2026.06.01 1"));
}

TEST_P(OperationNavigatorTest, DeleteNeedsTheDeleteRightOfTheOperationsGroup) {
    OrvoObjectUIOPtr op = Object(QStringLiteral("O0201500"));
    op->SetField(QStringLiteral("DateD"), Value(QDate(2026, 6, 1)));
    op->SetField(QStringLiteral("BROperGroupID"), Value(qint32(3)));
    ASSERT_EQ(AddBR(op, {QStringLiteral("2710"), QStringLiteral("5000"), 10.0, ValueArray{}}).Code,
              0);
    ASSERT_TRUE(op->Save().ok());
    const QString oidr = op->OIDR();

    ASSERT_TRUE(session_->Db()
                    .Execute(QStringLiteral("INSERT INTO Users (Code, Name, UserPref, IsAdmin) "
                                            "VALUES ('ona', 'Ona', 'ON', 0)"))
                    .ok());
    session_.reset();
    host::SessionResult ona =
        host::HostSession::Open(location_, host::OpenMode::Existing, QStringLiteral("ona"));
    ASSERT_TRUE(ona.ok()) << ona.Text.toStdString();
    session_ = std::move(ona.Session);
    EXPECT_FALSE(Navigator()->DeleteOrvoObject(oidr));
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BROpers")), 1);
}

ORVO_STORAGE_BACKENDS(OperationNavigatorTest);

} // namespace
} // namespace orvo::test
