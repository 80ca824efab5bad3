// The currency windows offscreen on a demo book, driven by control name: the revaluation
// window fills its list, posts a checked row into the operation and refuses a second
// run; the exchange window posts a purchase and refuses a currency without a rate; the
// operation editor opens both by their panel captions once they are registered.
#include "operations/forms/operation_forms_fixture.h"

#include "core/dates.h"
#include "core/number_text.h"
#include "settlement/forms/currency_revaluation_forms.h"
#include "settlement/forms/frm_currency_exchange.h"
#include "settlement/forms/frm_currency_influence.h"

#include <QLabel>
#include <QRadioButton>

using namespace orvo;
using namespace orvo::ui::testing;

namespace {

class CurrencyFormsTest : public OperationFormsTest {
protected:
    void SetUp() override {
        OperationFormsTest::SetUp();
        if (HasFatalFailure())
            return;
        RegisterCurrencyForms(*session_->Forms());
    }

    // An invoice of 250.00 GBP at 4.0 on 2420 for the first customer firm, stored.
    void BookInvoice() {
        const host::QueryResult q = session_->Db().Query(
            QStringLiteral("SELECT ID, Name FROM Firms WHERE MyFirmFlag = 0 ORDER BY ID"));
        ASSERT_TRUE(q.ok() && q.RowCount() > 0);
        const QString firm =
            QStringLiteral("O0000100") + QString::number(qint64(q.At(0, 0).toDouble()));
        const OrvoObjectUIOPtr op = NewOperation();
        ASSERT_TRUE(op);
        op->SetField(QStringLiteral("DateD"), Value(Today().addDays(-30)));
        const ValueResult added =
            op->Methods(QStringLiteral("AddBR"),
                        {Value(QStringLiteral("2420")), Value(QStringLiteral("5000")), Value(250.0),
                         Value(ValueArray{Value(qint16(1)), Value(firm), q.At(0, 1)}),
                         Value(qint16(1)), Value(QStringLiteral("GBP")), Value(4.0), Value(0.0),
                         Value(QStringLiteral("   ")), Value(0.0)});
        ASSERT_EQ(added.Code, 0) << added.Text.toStdString();
        ASSERT_TRUE(op->Save().ok());
        const BOResult rate =
            session_->BO()->Call(QStringLiteral("SaveDayRate"),
                                 QStringLiteral("'GBP','%1',4.1").arg(DateParam(Today())));
        ASSERT_TRUE(rate.ok()) << rate.Text.toStdString();
    }

    static QStringList EntryLines(const OrvoObjectUIOPtr& op) {
        QStringList lines;
        const RecordsetPtr br = Entries(op);
        for (br->MoveFirst(); !br->Eof(); br->MoveNext())
            lines << NzString(br->Field(QStringLiteral("AccountD"))) + QLatin1Char('|') +
                         NzString(br->Field(QStringLiteral("AccountC"))) + QLatin1Char('|') +
                         QString::number(NzDouble(br->Field(QStringLiteral("SumA"))), 'f', 2);
        return lines;
    }
};

} // namespace

TEST_F(CurrencyFormsTest, RevaluationWindowPostsTheCheckedDebtAndRefusesASecondRun) {
    BookInvoice();
    const OrvoObjectUIOPtr op = NewOperation();
    auto form = std::make_shared<FrmCurrencyInfluence>();
    form->SetOrvoObjectUIO(op);
    QWidget* root = form->Widget();
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->windowTitle(),
              QStringLiteral(" Valiutos kursų pasikeitimo įtakos paskaičiavimas"));
    for (const char* name : {"optByOpers", "optByTotals", "txtAddr", "cmdAddr", "cmdCleanAddr",
                             "optDeb", "optCred", "pickerDate", "cmbVariants", "cmdVariants",
                             "lvwBROper", "cmdGo", "cmdOK", "cmdCancel", "lblStatus"})
        EXPECT_NE(root->findChild<QWidget*>(QString::fromLatin1(name)), nullptr) << name;

    Choose(Find<QComboBox>(root, "cmbAcc"), QStringLiteral("2420"));
    Action(root, "mnuFirms")->trigger();
    EXPECT_EQ(Find<QLineEdit>(root, "txtAddr")->text(), QStringLiteral("Visi klientai"));
    Click(root, "cmdGo");
    auto* list = Find<QTreeWidget>(root, "lvwBROper");
    ASSERT_EQ(list->topLevelItemCount(), 2);
    EXPECT_EQ(list->headerItem()->text(5), QStringLiteral("Apsk. likutis EUR"));
    QTreeWidgetItem* debt = list->topLevelItem(0);
    EXPECT_EQ(debt->text(3), QStringLiteral("GBP"));
    EXPECT_EQ(debt->text(5), FormatAmount(1025.0));
    EXPECT_EQ(debt->text(6), FormatAmount(25.0));
    debt->setCheckState(0, Qt::Checked);
    EXPECT_EQ(debt->checkState(0), Qt::Checked);

    Click(root, "cmdOK");
    EXPECT_EQ(EntryLines(op), QStringList({QStringLiteral("2420|5803|25.00")}));
    EXPECT_EQ(NzString(op->Field(QStringLiteral("Comment"))),
              QStringLiteral("Valiutos perskaičiavimas"));
    EXPECT_EQ(Find<QLabel>(root, "lblStatus")->text(),
              QStringLiteral("Perskaičiavimas atliktas..."));
    EXPECT_EQ(list->topLevelItemCount(), 0);

    ExpectBox(QStringLiteral("cmdOK"));
    Click(root, "cmdGo");
    EXPECT_TRUE(AllAnswered()) << "the repeat is refused with a warning";
    const QList<ui::ShownMessage> boxes = Boxes();
    ASSERT_FALSE(boxes.isEmpty());
    EXPECT_EQ(boxes.last().Text,
              QStringLiteral("Pakartotinas sąskaitos likučių perskaičiavimas !"));
    EXPECT_EQ(list->topLevelItemCount(), 0);
    EXPECT_EQ(EntryLines(op).size(), 1);
    EXPECT_TRUE(Unexpected().isEmpty()) << Unexpected().join(", ").toStdString();
}

TEST_F(CurrencyFormsTest, ExchangeWindowPostsThePurchaseAndItsDifference) {
    const OrvoObjectUIOPtr op = NewOperation();
    auto form = std::make_shared<FrmCurrencyExchange>();
    form->SetOrvoObjectUIO(op);
    QWidget* root = form->Widget();
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->windowTitle(), QStringLiteral("Valiutos pirkimas / pardavimas"));
    root->show();
    for (const char* name : {"frameD", "frameC", "frameSettings", "cmbBankAccD", "cmbBankAccC",
                             "cmdClearBankAccD", "cmdClearBankAccC", "dtpDate", "cmdCancel"})
        EXPECT_NE(root->findChild<QWidget*>(QString::fromLatin1(name)), nullptr) << name;

    Choose(Find<QComboBox>(root, "cmbAccD"), QStringLiteral("2711"));
    Choose(Find<QComboBox>(root, "cmbAccC"), QStringLiteral("2720"));
    Click(root, "cmdClearBankAccD");
    Click(root, "cmdClearBankAccC");
    Type(Find<QLineEdit>(root, "txtSumD"), QStringLiteral("1000"));
    Type(Find<QLineEdit>(root, "txtSumC"), QStringLiteral("990"));
    Click(root, "cmdOK");
    EXPECT_EQ(EntryLines(op),
              QStringList({QStringLiteral("2711|2720|990.00"), QStringLiteral("2711|5803|10.00")}));
    EXPECT_EQ(NzString(op->Field(QStringLiteral("Comment"))), QStringLiteral("Valiutos pirkimas"));
    EXPECT_FALSE(root->isVisible()) << "a done exchange closes the window";
    EXPECT_TRUE(Unexpected().isEmpty()) << Unexpected().join(", ").toStdString();
}

TEST_F(CurrencyFormsTest, ExchangeWindowRefusesACurrencyWithoutARate) {
    const OrvoObjectUIOPtr op = NewOperation();
    auto form = std::make_shared<FrmCurrencyExchange>();
    form->SetOrvoObjectUIO(op);
    QWidget* root = form->Widget();
    root->show();
    Choose(Find<QComboBox>(root, "cmbAccD"), QStringLiteral("2712"));
    Choose(Find<QComboBox>(root, "cmbAccC"), QStringLiteral("2711"));
    Choose(Find<QComboBox>(root, "cmbCurrD"), QStringLiteral("USD"));
    EXPECT_FALSE(Find<QLineEdit>(root, "txtRateD")->text().isEmpty()) << "the day's rate";
    Find<QLineEdit>(root, "txtRateD")->clear();
    Type(Find<QLineEdit>(root, "txtSumD"), QStringLiteral("100"));
    Type(Find<QLineEdit>(root, "txtSumC"), QStringLiteral("90"));
    ExpectBox(QStringLiteral("cmdOK"));
    Click(root, "cmdOK");
    EXPECT_TRUE(AllAnswered());
    const QList<ui::ShownMessage> boxes = Boxes();
    ASSERT_FALSE(boxes.isEmpty());
    EXPECT_EQ(boxes.last().Text, QStringLiteral("Nenurodytas valiutos kursas!"));
    EXPECT_EQ(Entries(op)->RecordCount(), 0);
    EXPECT_TRUE(root->isVisible()) << "the window stays open with what was typed";
    EXPECT_EQ(Find<QLineEdit>(root, "txtSumD")->text(), QStringLiteral("100,00"));
}

TEST_F(CurrencyFormsTest, OperationEditorOpensBothWindowsByTheirCaptions) {
    const OrvoObjectUIOPtr op = NewOperation();
    OperationEditor editor(op);
    Expect(QStringLiteral("frmCurrencyInfluenceDialog"),
           [](QDialog& dialog) { ui::DialogDriver::Click(dialog, QStringLiteral("cmdCancel")); });
    Expect(QStringLiteral("frmCurrencyExchangeDialog"),
           [](QDialog& dialog) { ui::DialogDriver::Click(dialog, QStringLiteral("cmdCancel")); });
    EXPECT_TRUE(editor.OpenSettlementForm(QStringLiteral("Valiutos perskaičiavimas")));
    EXPECT_TRUE(editor.OpenSettlementForm(QStringLiteral("Valiutos pirkimas / pardavimas")));
    EXPECT_TRUE(AllAnswered());
    EXPECT_TRUE(Unexpected().isEmpty()) << Unexpected().join(", ").toStdString();
}

TEST_F(CurrencyFormsTest, BalanceModeLeavesTheSideAndASavedVariantSetsTheWindowAgain) {
    const OrvoObjectUIOPtr op = NewOperation();
    auto form = std::make_shared<FrmCurrencyInfluence>();
    form->SetOrvoObjectUIO(op);
    QWidget* root = form->Widget();
    Find<QRadioButton>(root, "optByTotals")->setChecked(true);
    EXPECT_FALSE(Find<QRadioButton>(root, "optDeb")->isEnabled());
    EXPECT_FALSE(Find<QRadioButton>(root, "optCred")->isEnabled());
    Choose(Find<QComboBox>(root, "cmbAcc"), QStringLiteral("2712"));
    Action(root, "mnuFirms")->trigger();
    Action(root, "mnuAddVariant")->trigger();
    auto* variants = Find<QComboBox>(root, "cmbVariants");
    ASSERT_EQ(variants->count(), 1);
    EXPECT_EQ(variants->itemText(0), QStringLiteral("2712 * Visi klientai"));

    Find<QRadioButton>(root, "optByOpers")->setChecked(true);
    EXPECT_TRUE(Find<QRadioButton>(root, "optDeb")->isEnabled());
    Click(root, "cmdCleanAddr");
    EXPECT_TRUE(Find<QLineEdit>(root, "txtAddr")->text().isEmpty());
    variants->setCurrentIndex(0);
    Q_EMIT variants->activated(0);
    EXPECT_TRUE(Find<QRadioButton>(root, "optByTotals")->isChecked());
    EXPECT_FALSE(Find<QRadioButton>(root, "optDeb")->isEnabled());
    EXPECT_TRUE(Find<QComboBox>(root, "cmbAcc")->currentText().startsWith(QStringLiteral("2712")));
    EXPECT_EQ(Find<QLineEdit>(root, "txtAddr")->text(), QStringLiteral("Visi klientai"));
    EXPECT_EQ(form->Logic()->addressee, QStringLiteral("O0000100"));
    EXPECT_TRUE(Unexpected().isEmpty()) << Unexpected().join(", ").toStdString();
}
