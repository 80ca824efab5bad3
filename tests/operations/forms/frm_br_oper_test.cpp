// frmBROper on the desktop, driven by control name with real keys and clicks on a demo
// book: its captions, lists and menus, the whole road of an operation (a template with
// a sum, the entry card with a currency and an addressee, the save, the stored record
// opened again, deleting), and its shortcuts.
#include "operation_forms_fixture.h"

#include "host/session/host_session.h"
#include "operations/forms/frm_br_oper_record.h"

#include <QLabel>
#include <QMdiSubWindow>
#include <QMenu>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTimer>

namespace orvo::ui::testing {

TEST_F(OperationFormsTest, EditorOfANewOperationShowsItsCaptionsColumnsAndMenus) {
    const auto form = OpenEditor(NewOperation());
    ASSERT_TRUE(form);
    QWidget* root = form->Widget();
    EXPECT_EQ(root->windowTitle(), QStringLiteral(" Nauja finansinė operacija"));
    auto* entries = Find<QTreeWidget>(root, "lvwBRRecords");
    ASSERT_NE(entries, nullptr);
    QStringList headers;
    for (int c = 0; c < entries->columnCount(); ++c)
        headers.append(entries->headerItem()->text(c));
    EXPECT_EQ(headers, QStringList({"Data", "Debeto b/s", "Kredito b/s", "Suma, Lt", "Valiuta D",
                                    "Valiuta K", "Nuorodos"}));
    auto* related = Find<QTreeWidget>(root, "lvwRelatedBR");
    ASSERT_NE(related, nullptr);
    headers.clear();
    for (int c = 0; c < related->columnCount(); ++c)
        headers.append(related->headerItem()->text(c));
    EXPECT_EQ(headers, QStringList({"Data", "Debetas", "Kreditas", "Suma, Lt", "Debeto valiuta",
                                    "Kredito valiuta", "Operacija/Dokumentas"}));
    auto* menu = Find<QMenu>(root, "mnuMainBR");
    ASSERT_NE(menu, nullptr);
    QStringList captions;
    for (QAction* a : menu->actions())
        captions.append(a->text());
    EXPECT_EQ(captions,
              QStringList({"Pridėti įrašus pagal šabloną", "Pakeisti šabloną",
                           "Pridėti įrašą be šablono", "Įrašo kortelė", "Debeto nuorodos operacija",
                           "Kredito nuorodos operacija", "Panaikinti pažymėtus įrašus",
                           "Panaikinti visus įrašus", "Įrašo kopijavimas", "Protokolas"}));
    captions.clear();
    for (QAction* a : Find<QMenu>(root, "mnuSOPanel")->actions())
        captions.append(a->text());
    EXPECT_EQ(captions, QStringList({"Skolų dengimas", "Valiutos perskaičiavimas",
                                     "Valiutos pirkimas / pardavimas",
                                     "Skolų dengimas po kovertavimo", "Operacijos eilės numeris"}));
    EXPECT_EQ(Action(root, "mnuOperToDesktop")->text(), QStringLiteral("Padėti ant darbo stalo"));
    EXPECT_EQ(Find<QAbstractButton>(root, "cmdPrint")->text(), QStringLiteral("Spausdinti"));
    EXPECT_EQ(Find<QAbstractButton>(root, "cmdWrite")->text(), QStringLiteral("Įrašyti"));
    EXPECT_EQ(Find<QAbstractButton>(root, "cmdCancel")->text(), QStringLiteral("Atšaukti"));
    EXPECT_EQ(Find<QAbstractButton>(root, "optBRBalance")->text(),
              QStringLiteral("Operacijos balansas"));
    EXPECT_EQ(Find<QAbstractButton>(root, "optRelatedBRList")->text(),
              QStringLiteral("Nuorodos iš kitų operacijų"));
    // A new operation: nothing to print, write, undo; no protocol and no views yet.
    EXPECT_FALSE(Find<QWidget>(root, "cmdPrint")->isEnabled());
    EXPECT_FALSE(Find<QWidget>(root, "cmdWrite")->isEnabled());
    EXPECT_FALSE(Find<QWidget>(root, "cmdCancel")->isEnabled());
    EXPECT_FALSE(Action(root, "mnuProtocol")->isEnabled());
    EXPECT_FALSE(Find<QWidget>(root, "optRelatedBRList")->isEnabled());
    EXPECT_TRUE(Find<QRadioButton>(root, "optBRBalance")->isChecked());
    EXPECT_EQ(Find<QDateEdit>(root, "dtpDate")->date(), Today());
    EXPECT_TRUE(Unexpected().isEmpty()) << Unexpected().join(',').toStdString();
}

TEST_F(OperationFormsTest, OperationGoesTheWholeWayFromTemplateToCardToStoreAndBack) {
    const OrvoObjectUIOPtr op = NewOperation();
    const auto form = OpenEditor(op);
    ASSERT_TRUE(form);
    QWidget* root = form->Widget();
    auto* entries = Find<QTreeWidget>(root, "lvwBRRecords");

    // A template with a sum; the firm it asks for is left for the card.
    AddPaymentByTemplate(root, QStringLiteral("121"));
    ASSERT_EQ(entries->topLevelItemCount(), 1);
    EXPECT_EQ(Column(entries, 1), QStringList({"2711"}));
    EXPECT_EQ(Column(entries, 2), QStringList({"2410"}));
    EXPECT_EQ(Column(entries, 3), QStringList({"121,00"}));
    // The firm the credit account demands is missing: the row is marked, no write.
    EXPECT_EQ(entries->topLevelItem(0)->foreground(1).color(), QColor(0, 0, 255));
    EXPECT_TRUE(entries->topLevelItem(0)->font(1).bold());
    EXPECT_FALSE(Find<QWidget>(root, "cmdWrite")->isEnabled());

    // Enter on the row opens the card: dollars on the debit side, the firm on the credit.
    QString seenLabel;
    ExpectCardInDollarsForTheFirstFirm(QStringLiteral("130"), [&seenLabel](QDialog& card) {
        seenLabel = Find<QLabel>(&card, "lblSuma")->text();
    });
    entries->setFocus();
    entries->setCurrentItem(entries->topLevelItem(0));
    QTest::keyClick(entries, Qt::Key_Return);
    EXPECT_EQ(seenLabel, QStringLiteral("Suma EUR"));
    ASSERT_EQ(entries->topLevelItemCount(), 1);
    EXPECT_EQ(Column(entries, 4), QStringList({"USD"}));
    EXPECT_NE(Column(entries, 6).first().trimmed(), QString());
    const QString baseSum = Column(entries, 3).first();
    EXPECT_NE(baseSum, QStringLiteral("121,00"));
    ASSERT_TRUE(Find<QWidget>(root, "cmdWrite")->isEnabled());

    Type(Find<QLineEdit>(root, "txtComment"), QStringLiteral("Apmokėjimas doleriais"));
    Shortcut(entries, Qt::Key_S);
    ASSERT_GE(op->OIDR().size(), 9) << Boxes().value(0).Text.toStdString();
    EXPECT_EQ(root->windowTitle(), QStringLiteral(" Finansinė operacija"));
    EXPECT_FALSE(Find<QWidget>(root, "cmdWrite")->isEnabled());
    EXPECT_TRUE(Find<QWidget>(root, "cmdPrint")->isEnabled());
    const qint64 id = op->OIDR().mid(8).toLongLong();
    EXPECT_EQ(
        CountOf(QStringLiteral("SELECT COUNT(*) FROM BR WHERE BROperID = ?"), {Value(double(id))}),
        1);
    EXPECT_EQ(
        CountOf(QStringLiteral("SELECT COUNT(*) FROM BRCurrency c JOIN BR b ON b.ID = c.BRID "
                               "WHERE b.BROperID = ? AND c.Sign = 1 AND c.FCurrencyCode = 'USD'"),
                {Value(double(id))}),
        1);
    EXPECT_EQ(CountOf(QStringLiteral("SELECT COUNT(*) FROM BRCurrency c JOIN BR b ON b.ID = c.BRID "
                                     "WHERE b.BROperID = ?"),
                      {Value(double(id))}),
              1);
    EXPECT_EQ(CountOf(QStringLiteral("SELECT COUNT(*) FROM BRProperties p JOIN BR b ON b.ID = "
                                     "p.BRID WHERE b.BROperID = ? AND p.Sign = -1 AND p.FOIDR LIKE "
                                     "'O0000100%'"),
                      {Value(double(id))}),
              1);

    // The stored record, opened again in a new editor.
    const QString oidr = op->OIDR();
    const auto again = OpenEditor(Stored(oidr));
    ASSERT_TRUE(again);
    QWidget* second = again->Widget();
    EXPECT_EQ(second->windowTitle(), QStringLiteral(" Finansinė operacija"));
    EXPECT_EQ(Find<QLineEdit>(second, "txtComment")->text(),
              QStringLiteral("Apmokėjimas doleriais"));
    auto* reread = Find<QTreeWidget>(second, "lvwBRRecords");
    EXPECT_EQ(Column(reread, 3), QStringList({baseSum}));
    EXPECT_EQ(Column(reread, 4), QStringList({"USD"}));
    const RecordsetPtr storedEntries = Entries(again->GetOrvoObjectUIO());
    storedEntries->MoveFirst();
    const RecordsetPtr storedCurrency =
        storedEntries->Field(QStringLiteral("BRCurrency")).toRecordset();
    ASSERT_EQ(storedCurrency->RecordCount(), 1);
    storedCurrency->MoveFirst();
    EXPECT_DOUBLE_EQ(storedCurrency->Field(QStringLiteral("SumCurr")).toDouble(), 130.0);
    EXPECT_TRUE(Find<QWidget>(second, "optRelatedBRList")->isEnabled());

    // Deleting every entry asks first; the operation itself goes through its navigator.
    ExpectBox(QStringLiteral("cmdYes"));
    Action(second, "mnuDeleteAll")->trigger();
    EXPECT_EQ(reread->topLevelItemCount(), 0);
    EXPECT_TRUE(Find<QWidget>(second, "cmdCancel")->isEnabled());
    Click(second, "cmdCancel");
    EXPECT_EQ(reread->topLevelItemCount(), 1);
    const OrvoObjectUIPtr navigator =
        session_->Services()->ObjectsService()->GetObjectUI(QStringLiteral("O0201500"));
    ASSERT_TRUE(navigator->DeleteOrvoObject(oidr));
    EXPECT_EQ(
        CountOf(QStringLiteral("SELECT COUNT(*) FROM BR WHERE BROperID = ?"), {Value(double(id))}),
        0);
    EXPECT_TRUE(AllAnswered());
    EXPECT_TRUE(Unexpected().isEmpty()) << Unexpected().join(',').toStdString();
}

TEST_F(OperationFormsTest, FreeEntryCancelledInItsCardLeavesNoRow) {
    const auto form = OpenEditor(NewOperation());
    ASSERT_TRUE(form);
    QWidget* root = form->Widget();
    Expect(QStringLiteral("frmBROperRecordDialog"), [](QDialog& card) { Click(&card, "cmdExit"); });
    Action(root, "mnuFreeTemplate")->trigger();
    EXPECT_EQ(Find<QTreeWidget>(root, "lvwBRRecords")->topLevelItemCount(), 0);
    EXPECT_TRUE(AllAnswered());
}

TEST_F(OperationFormsTest, FreeEntryWrittenWithSaveOperationWritesTheWholeOperation) {
    const OrvoObjectUIOPtr op = NewOperation();
    const auto form = OpenEditor(op);
    ASSERT_TRUE(form);
    QWidget* root = form->Widget();
    Expect(QStringLiteral("frmBROperRecordDialog"), [this](QDialog& card) {
        Choose(Find<QComboBox>(&card, "cmbAccountD"), QStringLiteral("6100"));
        Choose(Find<QComboBox>(&card, "cmbAccountC"), QStringLiteral("2720"));
        Type(Find<QLineEdit>(&card, "txtSuma"), QStringLiteral("45,5"));
        // Ctrl+S in the card: the entry, then the whole operation.
        Shortcut(Find<QLineEdit>(&card, "txtComment"), Qt::Key_S);
    });
    Action(root, "mnuFreeTemplate")->trigger();
    ASSERT_GE(op->OIDR().size(), 9) << Boxes().value(0).Text.toStdString();
    EXPECT_EQ(CountOf(QStringLiteral("SELECT COUNT(*) FROM BR WHERE BROperID = ? AND AccountD = "
                                     "'6100' AND AccountC = '2720'"),
                      {Value(double(op->OIDR().mid(8).toLongLong()))}),
              1);
    const RecordsetPtr stored = Entries(Stored(op->OIDR()));
    ASSERT_EQ(stored->RecordCount(), 1);
    stored->MoveFirst();
    EXPECT_DOUBLE_EQ(stored->Field(QStringLiteral("SumA")).toDouble(), 45.5);
    EXPECT_TRUE(AllAnswered());
}

TEST_F(OperationFormsTest, CtrlZInTheDateAddsTemplateEntriesAndOpensTheCardOfTheFirst) {
    const auto form = OpenEditor(NewOperation());
    ASSERT_TRUE(form);
    QWidget* root = form->Widget();
    Expect(QStringLiteral("frmBROperTemplateSelectDialog"), [](QDialog& dialog) {
        ChooseTemplate(dialog, QStringLiteral("Grynųjų įnešimas į banką"), QStringLiteral("50"));
    });
    QString cardAccount;
    Expect(QStringLiteral("frmBROperRecordDialog"), [&cardAccount](QDialog& card) {
        cardAccount = card.findChild<QComboBox*>(QStringLiteral("cmbAccountD"))->currentText();
        Click(&card, "cmdWrite");
    });
    QTest::keyClick(Find<QDateEdit>(root, "dtpDate"), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(cardAccount.startsWith(QStringLiteral("2711"))) << cardAccount.toStdString();
    auto* entries = Find<QTreeWidget>(root, "lvwBRRecords");
    EXPECT_EQ(Column(entries, 3), QStringList({"50,00"}));
    EXPECT_TRUE(Find<QWidget>(root, "cmdWrite")->isEnabled());
    EXPECT_TRUE(AllAnswered());
}

TEST_F(OperationFormsTest, ClosingAChangedOperationAsksAndNoKeepsTheForm) {
    const auto form = OpenEditor(NewOperation());
    ASSERT_TRUE(form);
    QWidget* root = form->Widget();
    ExpectBox(QStringLiteral("cmdNo"));
    Click(root, "SSCClose");
    const QList<ShownMessage> boxes = Boxes();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(boxes.first().Text, QStringLiteral("\nAr tikrai norite panaikinti?"));
    EXPECT_NE(window_->Desk()->WindowOf(form.get()), nullptr);
    ExpectBox(QStringLiteral("cmdYes"));
    Click(root, "SSCClose");
    QApplication::processEvents();
    EXPECT_EQ(window_->Desk()->WindowOf(form.get()), nullptr);
}

TEST_F(OperationFormsTest, CommentOf1001CharactersIsCutTo1000OnScreenAndInTheBook) {
    const OrvoObjectUIOPtr op = NewOperation();
    op->Methods(QStringLiteral("AddBR"),
                {Value(QStringLiteral("6100")), Value(QStringLiteral("2720")), Value(12.0),
                 Value(ValueArray())});
    const auto form = OpenEditor(op);
    ASSERT_TRUE(form);
    QWidget* root = form->Widget();
    auto* comment = Find<QLineEdit>(root, "txtComment");
    comment->setText(QString(1001, QLatin1Char('a')));
    Q_EMIT comment->textEdited(comment->text());
    Click(root, "cmdWrite");
    ASSERT_GE(op->OIDR().size(), 9) << Boxes().value(0).Text.toStdString();
    EXPECT_EQ(comment->text().size(), 1000);
    const host::QueryResult q =
        session_->Db().Query(QStringLiteral("SELECT Comment FROM BROpers WHERE ID = ?"),
                             {Value(double(op->OIDR().mid(8).toLongLong()))});
    ASSERT_TRUE(q.ok()) << q.Text.toStdString();
    EXPECT_EQ(q.Scalar().toString().size(), 1000);
}

} // namespace orvo::ui::testing

namespace orvo::ui::testing {

TEST_F(OperationFormsTest, CtrlNAfterASaveStartsANewOperationInTheSameGroup) {
    const OrvoObjectUIOPtr op = NewOperationWithAnEntry();
    const auto form = OpenEditor(op);
    ASSERT_TRUE(form);
    QWidget* root = form->Widget();
    auto* entries = Find<QTreeWidget>(root, "lvwBRRecords");
    Type(Find<QLineEdit>(root, "txtNumber"), QStringLiteral("N-1"));
    Click(root, "cmdWrite");
    ASSERT_GE(op->OIDR().size(), 9) << Boxes().value(0).Text.toStdString();
    EXPECT_TRUE(Find<QWidget>(root, "SSCNew")->isEnabled());
    Shortcut(entries, Qt::Key_N);
    EXPECT_EQ(root->windowTitle(), QStringLiteral(" Nauja finansinė operacija"));
    EXPECT_LT(op->OIDR().size(), 9);
    EXPECT_EQ(op->Field(QStringLiteral("BROperGroupID")).toInt32(), 2);
    EXPECT_EQ(entries->topLevelItemCount(), 0);
    // The demo group numbers by its mask: the new operation takes the group's next
    // number, not the one typed for the saved operation.
    const QString number = Find<QLineEdit>(root, "txtNumber")->text();
    EXPECT_NE(number, QStringLiteral("N-1"));
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^\\d{6}-BO-\\d{4}$")).match(number).hasMatch())
        << number.toStdString();
    EXPECT_FALSE(Find<QWidget>(root, "cmdPrint")->isEnabled());
}

} // namespace orvo::ui::testing

namespace orvo::ui::testing {

TEST_F(OperationFormsTest, SavedOperationAppearsInItsGroupsOpenedListInTheTree) {
    QTreeWidgetItem* groups = Node(QStringLiteral("Finansinių operacijų apskaita"));
    groups->setExpanded(true);
    QTreeWidgetItem* general = groups->child(0);
    general->setExpanded(true);
    QTreeWidgetItem* group = nullptr;
    for (int i = 0; i < general->childCount(); ++i)
        if (general->child(i)->data(0, HostTree::OidRole).toString() == QStringLiteral("O02014002"))
            group = general->child(i);
    ASSERT_NE(group, nullptr);
    group->setExpanded(true);
    const int before = Rows(group).size();

    const OrvoObjectUIOPtr op = NewOperationWithAnEntry();
    const auto form = OpenEditor(op);
    ASSERT_TRUE(form);
    Type(Find<QLineEdit>(form->Widget(), "txtNumber"), QStringLiteral("T-1"));
    Click(form->Widget(), "cmdWrite");
    ASSERT_GE(op->OIDR().size(), 9) << Boxes().value(0).Text.toStdString();

    QStringList shown;
    for (QTreeWidgetItem* row : Rows(group))
        shown << row->data(0, HostTree::OidRole).toString();
    EXPECT_EQ(shown.size(), before + 1);
    EXPECT_TRUE(shown.contains(op->OIDR())) << shown.join(QLatin1Char('|')).toStdString();
}

} // namespace orvo::ui::testing
