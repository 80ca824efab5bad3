// The closing windows offscreen on a demo book, driven by control name: the year-end
// closing prepares its entries, prepares them once however often cmdGo is pressed,
// prints and stores itself; the deferred-period window lists a deferred entry, takes a
// row's period through frmCoversInFutureParameters and makes the monthly operation.
#include "operations/forms/operation_forms_fixture.h"

#include "core/number_text.h"
#include "reports/pdf_list_writer.h"
#include "settlement/closing_entries.h"
#include "settlement/forms/frm_accounts_closing.h"
#include "settlement/forms/frm_accounts_closing_forms.h"
#include "settlement/forms/frm_accounts_closing_print.h"
#include "settlement/forms/frm_covers_in_future.h"

#include <QCheckBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>

using namespace orvo;
using namespace orvo::ui;
using namespace orvo::ui::testing;

namespace {

class ClosingFormsTest : public OperationFormsTest {
protected:
    void SetUp() override {
        OperationFormsTest::SetUp();
        if (HasFatalFailure())
            return;
        RegisterClosingForms(*session_->Forms());
        ASSERT_TRUE(
            session_->Db()
                .Execute(QStringLiteral("INSERT INTO Accounts (Account, Name) VALUES (?, ?)"),
                         {Value(QStringLiteral("2910")),
                          Value(QStringLiteral("Ateinančių laikotarpių sąnaudos"))})
                .ok());
    }

    qint32 Group(const QString& name) {
        const host::QueryResult q = session_->Db().Query(
            QStringLiteral("SELECT ID FROM BROperGroups WHERE Name = ?"), {Value(name)});
        EXPECT_TRUE(q.ok() && q.RowCount() == 1);
        return q.ok() && q.RowCount() > 0 ? static_cast<qint32>(q.Scalar().toDouble()) : 0;
    }

    // One stored operation of the first group with one entry.
    void Book(const QDate& date, const QString& debit, const QString& credit, double sum,
              const QString& number) {
        const OrvoObjectUIOPtr op = NewOperation();
        ASSERT_TRUE(op);
        op->SetField(QStringLiteral("DateD"), Value(date));
        op->SetField(QStringLiteral("Number"), Value(number));
        const ValueResult added =
            op->Methods(QStringLiteral("AddBR"),
                        {Value(debit), Value(credit), Value(sum), Value(ValueArray{})});
        ASSERT_EQ(added.Code, 0) << added.Text.toStdString();
        const ResultRecord saved = op->Save();
        ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    }

    QStringList Stored(const QString& oidr) {
        return orvo::test::StoredEntryLines(session_->Db(), oidr);
    }

    static void SetDate(QDateEdit* edit, const QDate& date) {
        ASSERT_NE(edit, nullptr);
        edit->setDate(date);
        Q_EMIT edit->editingFinished();
    }
};

} // namespace

TEST_F(ClosingFormsTest, ClosingWindowPreparesItsEntriesOncePrintsAndStoresTheClosing) {
    Book(QDate(2023, 3, 1), QStringLiteral("2720"), QStringLiteral("5000"), 10000.00,
         QStringLiteral("P-1"));
    Book(QDate(2023, 5, 1), QStringLiteral("6000"), QStringLiteral("2720"), 7000.00,
         QStringLiteral("S-1"));
    const OrvoObjectUIOPtr op =
        session_->Services()->ObjectsService()->GetObjectUIO(QStringLiteral("O0201506"));
    ASSERT_TRUE(op);
    op->SetField(QStringLiteral("BROperGroupID"), Value(Group(QStringLiteral("Metų uždarymas"))));
    const OrvoFormPtr made = Catalogue::NewFormForKind(QStringLiteral("O0201506"));
    auto form = std::dynamic_pointer_cast<FrmAccountsClosing>(made);
    ASSERT_TRUE(form);
    form->SetOrvoObjectUIO(op);
    QWidget* root = form->Widget();
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->windowTitle(), QStringLiteral("Nauja operacija"));
    for (const char* name :
         {"txtAcc5",   "cmdAcc5",           "txtAcc59",     "cmdAcc59",   "SSClean59",
          "txtAcc6",   "cmdAcc6",           "txtAcc69",     "cmdAcc69",   "SSClean69",
          "cmbAcc39",  "lblAdvanceAccount", "SSClean340",   "SSClean341", "lblTotal5",
          "lblTotal6", "txtOperGroup",      "cmdOperGroup", "txtSerija",  "txtNumber",
          "dtpDate",   "lvwBRRecords",      "cmdGo",        "cmdWrite",   "cmdPrint",
          "SSCNew",    "SSCClose"})
        EXPECT_NE(root->findChild<QWidget*>(QString::fromLatin1(name)), nullptr) << name;
    EXPECT_EQ(Find<QLineEdit>(root, "txtOperGroup")->text(), QStringLiteral("Metų uždarymas"));
    EXPECT_EQ(Find<QDateEdit>(root, "dtpDate")->date(), QDate(Today().year() - 1, 12, 31));
    EXPECT_EQ(Find<QComboBox>(root, "cmbAcc39")->currentText(), QStringLiteral("391"));
    EXPECT_EQ(Find<QComboBox>(root, "cmbAcc340")->currentText(), QStringLiteral("340"));
    EXPECT_EQ(Find<QComboBox>(root, "cmbAcc341")->currentText(), QStringLiteral("341"));
    EXPECT_FALSE(Find<QPushButton>(root, "cmdWrite")->isEnabled());

    Type(Find<QLineEdit>(root, "txtAcc5"), QStringLiteral("5"));
    Type(Find<QLineEdit>(root, "txtAcc6"), QStringLiteral("6"));
    EXPECT_TRUE(Find<QPushButton>(root, "cmdWrite")->isEnabled());
    // A year-end before the demo book's own operations, which lie in the last weeks.
    SetDate(Find<QDateEdit>(root, "dtpDate"), QDate(2023, 12, 31));
    Click(root, "cmdGo");
    Click(root, "cmdGo");
    auto* list = Find<QTreeWidget>(root, "lvwBRRecords");
    ASSERT_EQ(list->topLevelItemCount(), 3);
    EXPECT_EQ(Column(list, 0), QStringList({"5000", "391", "391"}));
    EXPECT_EQ(Column(list, 1), QStringList({"391", "6000", "340"}));
    EXPECT_EQ(Column(list, 2),
              QStringList({FormatAmount(10000.0), FormatAmount(7000.0), FormatAmount(3000.0)}));
    EXPECT_EQ(Find<QLabel>(root, "lblTotal5")->text(),
              FormatNumberLt(10000.0, 2) + QStringLiteral(" EUR"));
    EXPECT_EQ(Find<QLabel>(root, "lblTotal6")->text(),
              FormatNumberLt(7000.0, 2) + QStringLiteral(" EUR"));

    const reports::ListReport report = AccountsClosingReport(*form->Closing());
    EXPECT_EQ(report.Title, QStringLiteral("SĄSKAITŲ UŽDARYMAS"));
    QStringList firstCells;
    for (const reports::ReportRow& row : report.Rows)
        firstCells << row.Cells.value(0);
    EXPECT_EQ(firstCells,
              QStringList({"5 kl. sumos", "6 kl. sumos", "Perkėlimai", "1", "2", "3", "Viso:"}));
    EXPECT_EQ(report.Rows.at(0).Cells.at(3), FormatNumberLt(10000.0, 2) + QStringLiteral(" EUR"));
    EXPECT_EQ(report.Rows.at(3).Cells.mid(1, 3),
              QStringList({"5000", "391", FormatAmount(10000.0)}));
    EXPECT_TRUE(
        report.Rows.at(3).Cells.at(4).startsWith(QStringLiteral("5000 Pardavimo pajamos / 391 ")))
        << report.Rows.at(3).Cells.at(4).toStdString();
    EXPECT_EQ(report.Rows.last().Cells.at(3), FormatAmount(20000.0));
    EXPECT_GE(reports::PdfListWriter::PageCount(report), 1);

    bool previewed = false;
    Expect(QStringLiteral("frmPrintPreview"), [&previewed](QDialog& preview) {
        previewed = true;
        EXPECT_EQ(preview.windowTitle().contains(QStringLiteral("SĄSKAITŲ UŽDARYMAS")), true)
            << preview.windowTitle().toStdString();
        preview.reject();
    });
    Click(root, "cmdPrint");
    EXPECT_TRUE(previewed);

    Click(root, "cmdWrite");
    ASSERT_GE(op->OIDR().size(), 9) << Boxes().value(0).Text.toStdString();
    EXPECT_EQ(Stored(op->OIDR()),
              QStringList({"5000|391|10000.00|2023.12.31", "391|6000|7000.00|2023.12.31",
                           "391|340|3000.00|2023.12.31"}));
    EXPECT_TRUE(root->windowTitle().endsWith(QStringLiteral("  Sąskaitų uždarymas")))
        << root->windowTitle().toStdString();
    EXPECT_EQ(NzString(op->Field(QStringLiteral("Parameters"))),
              QStringLiteral("5##6##391#340#341"));
    EXPECT_TRUE(Unexpected().isEmpty()) << Unexpected().join(',').toStdString();

    // Opened again from the book, the closing comes back in its own window with its
    // choices, number, date and entries.
    OrvoObjectUIOPtr stored;
    auto reopened = std::dynamic_pointer_cast<FrmAccountsClosing>(
        Catalogue::OpenOperationForm(op->OIDR(), stored));
    ASSERT_TRUE(reopened);
    QWidget* again = reopened->Widget();
    EXPECT_EQ(Find<QLineEdit>(again, "txtAcc5")->text(), QStringLiteral("5"));
    EXPECT_EQ(Find<QLineEdit>(again, "txtAcc6")->text(), QStringLiteral("6"));
    EXPECT_EQ(Find<QLineEdit>(again, "txtAcc59")->text(), QString());
    EXPECT_EQ(Find<QLineEdit>(again, "txtNumber")->text(),
              Find<QLineEdit>(root, "txtNumber")->text());
    EXPECT_EQ(Find<QDateEdit>(again, "dtpDate")->date(), QDate(2023, 12, 31));
    EXPECT_EQ(Find<QTreeWidget>(again, "lvwBRRecords")->topLevelItemCount(), 3);
    EXPECT_EQ(again->windowTitle(), root->windowTitle());
}

TEST_F(ClosingFormsTest, ClosingWindowWithoutEntriesRefusesToSave) {
    const OrvoObjectUIOPtr op =
        session_->Services()->ObjectsService()->GetObjectUIO(QStringLiteral("O0201506"));
    op->SetField(QStringLiteral("BROperGroupID"), Value(Group(QStringLiteral("Metų uždarymas"))));
    auto form = std::make_shared<FrmAccountsClosing>();
    form->SetOrvoObjectUIO(op);
    QWidget* root = form->Widget();
    Type(Find<QLineEdit>(root, "txtAcc5"), QStringLiteral("5"));
    ExpectBox(QStringLiteral("cmdOK"));
    Click(root, "cmdWrite");
    const QList<ShownMessage> boxes = Boxes();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(boxes.first().Text, QStringLiteral("Neparuošti operacijos įrašai!"));
    EXPECT_LT(op->OIDR().size(), 9);
}

TEST_F(ClosingFormsTest, DeferredWindowMakesTheMonthlyOperationOfACheckedRow) {
    Book(QDate(2023, 12, 5), QStringLiteral("2910"), QStringLiteral("2720"), 100.00,
         QStringLiteral("D-1"));
    const OrvoObjectUIOPtr op = NewOperation();
    auto form = std::dynamic_pointer_cast<FrmCoversInFuture>(
        session_->Forms()->CreateForm(QStringLiteral("frmCoversInFuture")));
    ASSERT_TRUE(form);
    form->SetOrvoObjectUIO(op);
    QWidget* root = form->Widget();
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->windowTitle(), QStringLiteral(" Būsimų laikotarpių dengimai"));
    for (const char* name :
         {"frameSelectBR", "cmbAcc",      "optDebit",          "optCredit",
          "dtpDate1",      "dtpDate2",    "chkOnlyNotCovered", "chkDetailView",
          "frameSettings", "txtGroup",    "txtNumber",         "dtpOperDate",
          "cmbCoverAcc",   "dtpDateFrom", "txtMonthCount",     "txtCoverSum",
          "txtComment",    "txtAddresse", "cmdAddresse",       "cmdClearAddresse",
          "lvwRows",       "cmdFill",     "cmdSelectAll",      "cmdWrite"})
        EXPECT_NE(root->findChild<QWidget*>(QString::fromLatin1(name)), nullptr) << name;

    Find<QRadioButton>(root, "optCredit")->setChecked(true);
    EXPECT_EQ(Find<QCheckBox>(root, "chkOnlyNotCovered")->text(),
              QStringLiteral("Rodyti tik neužskaitytas"));
    Find<QRadioButton>(root, "optDebit")->setChecked(true);
    EXPECT_EQ(Find<QCheckBox>(root, "chkOnlyNotCovered")->text(),
              QStringLiteral("Rodyti tik nenurašytas"));
    auto* list = Find<QTreeWidget>(root, "lvwRows");
    EXPECT_EQ(list->headerItem()->text(6), QStringLiteral("Nurašymo operacija"));

    Choose(Find<QComboBox>(root, "cmbAcc"), QStringLiteral("2910"));
    Choose(Find<QComboBox>(root, "cmbCoverAcc"), QStringLiteral("6100"));
    SetDate(Find<QDateEdit>(root, "dtpDate1"), QDate(2023, 12, 1));
    SetDate(Find<QDateEdit>(root, "dtpDate2"), QDate(2023, 12, 31));
    SetDate(Find<QDateEdit>(root, "dtpOperDate"), QDate(2024, 1, 1));
    Type(Find<QLineEdit>(root, "txtComment"), QStringLiteral("Draudimo nurašymas"));
    // Entries already covered stay in the list, so that the cover made below shows.
    Find<QCheckBox>(root, "chkOnlyNotCovered")->setChecked(false);
    Click(root, "cmdFill");
    ASSERT_EQ(list->topLevelItemCount(), 2);
    EXPECT_EQ(list->topLevelItem(0)->text(1), QStringLiteral("D-1"));
    EXPECT_EQ(list->topLevelItem(1)->text(1), QStringLiteral("Viso:"));

    list->setCurrentItem(list->topLevelItem(0));
    Expect(QStringLiteral("frmCoversInFutureParametersDialog"), [](QDialog& dialog) {
        auto* from = dialog.findChild<QDateEdit*>(QStringLiteral("dtpDateFrom"));
        auto* count = dialog.findChild<QLineEdit*>(QStringLiteral("txtMonthCount"));
        ASSERT_TRUE(from && count);
        from->setDate(QDate(2024, 1, 1));
        count->setText(QStringLiteral("3"));
        DialogDriver::Click(dialog, QStringLiteral("cmdOK"));
    });
    Action(root, "mnuPeriod")->trigger();
    EXPECT_EQ(list->topLevelItem(0)->text(3), QStringLiteral("2024.01"));
    EXPECT_EQ(list->topLevelItem(0)->text(4), QStringLiteral("3"));

    list->topLevelItem(0)->setCheckState(0, Qt::Checked);
    Click(root, "cmdWrite");
    ASSERT_EQ(form->Covers()->Created.size(), 1) << Boxes().value(0).Text.toStdString();
    EXPECT_EQ(Stored(form->Covers()->Created.first()),
              QStringList({"6100|2910|33.33|2024.01.01", "6100|2910|33.33|2024.02.01",
                           "6100|2910|33.34|2024.03.01"}));
    // The list filled anew names the covering operation.
    ASSERT_EQ(list->topLevelItemCount(), 2);
    EXPECT_TRUE(list->topLevelItem(0)->text(6).startsWith(QStringLiteral("2024.01.01 Nr. ")))
        << list->topLevelItem(0)->text(6).toStdString();
    EXPECT_TRUE(Unexpected().isEmpty()) << Unexpected().join(',').toStdString();
}

TEST_F(ClosingFormsTest, DeferredWindowRefusesAnOperationDateAfterTheFirstMonth) {
    Book(QDate(2023, 12, 5), QStringLiteral("2910"), QStringLiteral("2720"), 100.00,
         QStringLiteral("D-1"));
    auto form = std::make_shared<FrmCoversInFuture>();
    form->SetOrvoObjectUIO(NewOperation());
    QWidget* root = form->Widget();
    Choose(Find<QComboBox>(root, "cmbAcc"), QStringLiteral("2910"));
    Choose(Find<QComboBox>(root, "cmbCoverAcc"), QStringLiteral("6100"));
    SetDate(Find<QDateEdit>(root, "dtpDate1"), QDate(2023, 12, 1));
    SetDate(Find<QDateEdit>(root, "dtpDateFrom"), QDate(2024, 1, 1));
    SetDate(Find<QDateEdit>(root, "dtpOperDate"), QDate(2024, 2, 1));
    Type(Find<QLineEdit>(root, "txtMonthCount"), QStringLiteral("2"));
    Click(root, "cmdFill");
    auto* list = Find<QTreeWidget>(root, "lvwRows");
    ASSERT_EQ(list->topLevelItemCount(), 2);
    list->topLevelItem(0)->setCheckState(0, Qt::Checked);
    Action(root, "mnuFillPeriod")->trigger();
    EXPECT_EQ(list->topLevelItem(0)->text(3), QStringLiteral("2024.01"));
    const qint64 before =
        session_->Db().Query(QStringLiteral("SELECT COUNT(*) FROM BROpers")).Scalar().toDouble();
    ExpectBox(QStringLiteral("cmdOK"));
    Click(root, "cmdWrite");
    const QList<ShownMessage> boxes = Boxes();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(boxes.first().Text,
              QStringLiteral(" Nr. D-1\nOperacijos data negali būti didesnė dengimo datos!"));
    EXPECT_EQ(qint64(session_->Db()
                         .Query(QStringLiteral("SELECT COUNT(*) FROM BROpers"))
                         .Scalar()
                         .toDouble()),
              before);
}
