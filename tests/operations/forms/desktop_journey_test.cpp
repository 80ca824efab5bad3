// The accountant's whole road through the desktop, started from the tree and checked
// against the stored book at every step: a new operations group, a new operation in it,
// entries by a template with a sum, the entry card with a currency and an addressee, the
// save, the operation opened again from the group's list, an entry copied over months,
// and the operation deleted from its row.
#include "operation_forms_fixture.h"

#include "core/number_text.h"
#include "host/session/host_session.h"
#include "ui/shell/widget_form.h"

#include <QLabel>
#include <QRadioButton>

namespace orvo::ui::testing {

namespace {

const QString kOperations = QStringLiteral("Finansinių operacijų apskaita");
const QString kGroupName = QStringLiteral("Nuomos operacijos");

QTreeWidgetItem* childWithOid(QTreeWidgetItem* parent, const QString& oid) {
    for (int i = 0; parent && i < parent->childCount(); ++i)
        if (parent->child(i)->data(0, HostTree::OidRole).toString() == oid)
            return parent->child(i);
    return nullptr;
}

} // namespace

class DesktopJourneyTest : public OperationFormsTest {
protected:
    // The form the last click put on the desktop.
    OrvoFormPtr NewestForm() const {
        const QList<OrvoFormPtr> forms = window_->Desk()->Forms();
        return forms.isEmpty() ? nullptr : forms.constLast();
    }

    qint64 EntriesOf(qint64 operation) {
        return CountOf(QStringLiteral("SELECT COUNT(*) FROM BR WHERE BROperID = ?"),
                       {Value(double(operation))});
    }
};

TEST_F(DesktopJourneyTest,
       AccountantGoesFromANewGroupInTheTreeToAnOperationCopiedOverMonthsAndDeleted) {
    // 1. A new operations group under the first general group, written in its editor.
    QTreeWidgetItem* groups = Node(kOperations);
    ASSERT_NE(groups, nullptr);
    groups->setExpanded(true);
    QTreeWidgetItem* general = groups->child(0);
    ASSERT_NE(general, nullptr);
    general->setExpanded(true);
    const qint64 groupsBefore = CountOf(QStringLiteral("SELECT COUNT(*) FROM BROperGroups"));
    ASSERT_EQ(Tree().Click(general, QStringLiteral("Naują operacijų grupė"), QString()).Action,
              ClickResult::ShowForm);
    const OrvoFormPtr groupForm = NewestForm();
    ASSERT_TRUE(groupForm);
    EXPECT_EQ(groupForm->FormName(), QStringLiteral("frmBROperGroup"));
    const auto groupWindow = std::dynamic_pointer_cast<WidgetForm>(groupForm);
    ASSERT_TRUE(groupWindow);
    QWidget* groupRoot = groupWindow->Widget();
    Type(Find<QLineEdit>(groupRoot, "txtName"), kGroupName);
    Click(groupRoot, "cmdWrite");
    ASSERT_EQ(CountOf(QStringLiteral("SELECT COUNT(*) FROM BROperGroups")), groupsBefore + 1)
        << Boxes().value(0).Text.toStdString();
    const qint64 groupId =
        CountOf(QStringLiteral("SELECT ID FROM BROperGroups WHERE Name = ?"), {Value(kGroupName)});
    ASSERT_GT(groupId, 0);
    EXPECT_EQ(
        CountOf(QStringLiteral("SELECT COUNT(*) FROM BROperGroups WHERE ID = ? AND GroupFlag = 0 "
                               "AND FormOID = 'O0201500' AND ParentID = ?"),
                {Value(double(groupId)),
                 Value(general->data(0, HostTree::OidRole).toString().mid(8).toDouble())}),
        1);
    // The saved group shows at once in the opened list of its parent.
    const QString groupOid = QStringLiteral("O0201400") + QString::number(groupId);
    QTreeWidgetItem* group = childWithOid(general, groupOid);
    ASSERT_NE(group, nullptr) << "the new group is missing from the tree";
    EXPECT_EQ(group->text(0), kGroupName);
    group->setExpanded(true);
    EXPECT_TRUE(Rows(group).isEmpty());

    // 2. "Nauja operacija" on the group's row opens the operation editor in that group.
    ASSERT_EQ(Tree().Click(group, QStringLiteral("Nauja operacija"), QString()).Action,
              ClickResult::ShowForm);
    const auto editor = std::dynamic_pointer_cast<FrmBROper>(NewestForm());
    ASSERT_TRUE(editor);
    const OrvoObjectUIOPtr op = editor->GetOrvoObjectUIO();
    ASSERT_TRUE(op);
    EXPECT_EQ(NzLong(op->Field(QStringLiteral("BROperGroupID"))), groupId);
    QWidget* root = editor->Widget();
    auto* entries = Find<QTreeWidget>(root, "lvwBRRecords");

    // 3. Entries by a template with a sum: a customer's payment into the bank.
    AddPaymentByTemplate(root, QStringLiteral("121"));
    ASSERT_EQ(entries->topLevelItemCount(), 1);
    EXPECT_EQ(Column(entries, 1), QStringList({"2711"}));
    EXPECT_EQ(Column(entries, 2), QStringList({"2410"}));
    EXPECT_EQ(Column(entries, 3), QStringList({"121,00"}));
    // Nothing is stored before the save.
    EXPECT_EQ(CountOf(QStringLiteral("SELECT COUNT(*) FROM BROpers WHERE BROperGroupID = ?"),
                      {Value(double(groupId))}),
              0);

    // 4. The entry card: euros on the debit side become dollars, the firm on the credit.
    ExpectCardInDollarsForTheFirstFirm(QStringLiteral("130"));
    entries->setFocus();
    entries->setCurrentItem(entries->topLevelItem(0));
    QTest::keyClick(entries, Qt::Key_Return);
    ASSERT_EQ(entries->topLevelItemCount(), 1);
    EXPECT_EQ(Column(entries, 4), QStringList({"USD"}));
    const QString baseSum = Column(entries, 3).first();

    // 5. The save: the header, the entry, its currency row and its addressee row.
    Type(Find<QLineEdit>(root, "txtComment"), QStringLiteral("Nuomos apmokėjimas"));
    Shortcut(entries, Qt::Key_S);
    ASSERT_GE(op->OIDR().size(), 9) << Boxes().value(0).Text.toStdString();
    const QString oidr = op->OIDR();
    const qint64 id = oidr.mid(8).toLongLong();
    EXPECT_EQ(
        CountOf(QStringLiteral("SELECT COUNT(*) FROM BROpers WHERE ID = ? AND BROperGroupID = ? "
                               "AND Comment = ?"),
                {Value(double(id)), Value(double(groupId)),
                 Value(QStringLiteral("Nuomos apmokėjimas"))}),
        1);
    EXPECT_EQ(EntriesOf(id), 1);
    EXPECT_EQ(
        CountOf(QStringLiteral("SELECT COUNT(*) FROM BRCurrency c JOIN BR b ON b.ID = c.BRID "
                               "WHERE b.BROperID = ? AND c.Sign = 1 AND c.FCurrencyCode = 'USD' "
                               "AND c.SumCurr = 13000"),
                {Value(double(id))}),
        1);
    EXPECT_EQ(CountOf(QStringLiteral("SELECT COUNT(*) FROM BRProperties p JOIN BR b ON b.ID = "
                                     "p.BRID WHERE b.BROperID = ? AND p.Sign = -1 AND p.FOIDR LIKE "
                                     "'O0000100%'"),
                      {Value(double(id))}),
              1);

    // 6. The editor is closed; the group's list shows the operation, and Enter on its row
    // opens it again.
    ASSERT_TRUE(window_->Desk()->Close(editor.get()));
    ASSERT_EQ(window_->Desk()->WindowOf(editor.get()), nullptr);
    QTreeWidgetItem* row = childWithOid(group, oidr);
    ASSERT_NE(row, nullptr) << "the saved operation is missing from its group's list";
    const int formsBefore = window_->Desk()->Forms().size();
    Tree().setCurrentItem(row);
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(&Tree(), &enter);
    ASSERT_EQ(window_->Desk()->Forms().size(), formsBefore + 1);
    const auto again = std::dynamic_pointer_cast<FrmBROper>(NewestForm());
    ASSERT_TRUE(again);
    ASSERT_NE(again, editor);
    QWidget* second = again->Widget();
    EXPECT_EQ(again->GetOrvoObjectUIO()->OIDR(), oidr);
    EXPECT_EQ(Find<QLineEdit>(second, "txtComment")->text(), QStringLiteral("Nuomos apmokėjimas"));
    auto* reread = Find<QTreeWidget>(second, "lvwBRRecords");
    EXPECT_EQ(Column(reread, 3), QStringList({baseSum}));
    EXPECT_EQ(Column(reread, 4), QStringList({"USD"}));

    // 7. The entry copied over three months, the whole sum spread over them, on the last
    // day of each month, and saved.
    Expect(QStringLiteral("frmBRCopyByMonthesDialog"), [](QDialog& copy) {
        Type(Find<QLineEdit>(&copy, "txtMonthCount"), QStringLiteral("3"));
        Find<QRadioButton>(&copy, "optPeriodSum")->setChecked(true);
        Find<QRadioButton>(&copy, "optLastDay")->setChecked(true);
        Click(&copy, "cmdOK");
    });
    reread->setCurrentItem(reread->topLevelItem(0));
    Action(second, "mnuBRCopy")->trigger();
    ASSERT_EQ(reread->topLevelItemCount(), 3);
    Click(second, "cmdWrite");
    EXPECT_EQ(EntriesOf(id), 3) << Boxes().value(0).Text.toStdString();
    // Three months, each its own last day, the entries adding up to the copied sum.
    EXPECT_EQ(CountOf(QStringLiteral("SELECT COUNT(DISTINCT DateD) FROM BR WHERE BROperID = ?"),
                      {Value(double(id))}),
              3);
    // Each month's euros are its dollars at the entry's rate, so the three months may
    // differ from the whole by the rounding of each, never by more than a cent a month.
    const qint64 spread =
        CountOf(QStringLiteral("SELECT SUM(SumA) FROM BR WHERE BROperID = ?"), {Value(double(id))});
    EXPECT_LE(qAbs(spread - qRound64(NumberFromText(baseSum) * 100)), 3);
    // The dollars went with the copies: each month keeps its currency row.
    EXPECT_EQ(CountOf(QStringLiteral("SELECT COUNT(*) FROM BRCurrency c JOIN BR b ON b.ID = c.BRID "
                                     "WHERE b.BROperID = ? AND c.FCurrencyCode = 'USD'"),
                      {Value(double(id))}),
              3);
    EXPECT_EQ(CountOf(QStringLiteral("SELECT SUM(c.SumCurr) FROM BRCurrency c JOIN BR b ON b.ID = "
                                     "c.BRID WHERE b.BROperID = ?"),
                      {Value(double(id))}),
              13000);
    // Every copy keeps the addressee of the entry it came from.
    EXPECT_EQ(CountOf(QStringLiteral("SELECT COUNT(*) FROM BRProperties p JOIN BR b ON b.ID = "
                                     "p.BRID WHERE b.BROperID = ? AND p.Sign = -1 AND p.FOIDR LIKE "
                                     "'O0000100%'"),
                      {Value(double(id))}),
              3);

    // 8. Deleted from its row in the tree: asked first, then the operation and its
    // entries are gone, and so is the row.
    ExpectBox(QStringLiteral("cmdYes"));
    Tree().Click(childWithOid(group, oidr), QStringLiteral("Panaikinti"), QString());
    EXPECT_EQ(
        CountOf(QStringLiteral("SELECT COUNT(*) FROM BROpers WHERE ID = ?"), {Value(double(id))}),
        0);
    EXPECT_EQ(EntriesOf(id), 0);
    EXPECT_EQ(CountOf(QStringLiteral("SELECT COUNT(*) FROM BRCurrency c LEFT JOIN BR b ON b.ID = "
                                     "c.BRID WHERE b.ID IS NULL")),
              0);
    EXPECT_EQ(childWithOid(group, oidr), nullptr);

    EXPECT_TRUE(AllAnswered());
    EXPECT_TRUE(Unexpected().isEmpty()) << Unexpected().join(',').toStdString();
}

} // namespace orvo::ui::testing
