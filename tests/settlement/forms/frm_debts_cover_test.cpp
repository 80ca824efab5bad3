// frmDebtsCover offscreen on the demo book, opened from the operation editor's panel and
// driven by control name: its captions and controls, listing the firm that buys and
// sells, checking both lists, the save into the editor's operation and the stored
// result; and the printed act read back from its PDF.
#include "operations/forms/operation_forms_fixture.h"
#include "settlement/fixed_today.h"

#include "core/number_text.h"
#include "host/session/host_session.h"
#include "settlement/debts_cover_act.h"
#include "settlement/forms/debts_cover_act_page.h"
#include "settlement/forms/frm_debts_cover.h"
#include "settlement/forms/frm_debts_cover_registration.h"

#include <QLabel>
#include <QMenu>
#include <QProcess>
#include <QRadioButton>
#include <QTemporaryDir>

namespace orvo::ui::testing {

namespace {

const QString kCentras = QStringLiteral("UAB Įrankių centras");

class DebtsCoverFormTest : public OperationFormsTest {
protected:
    void SetUp() override {
        OperationFormsTest::SetUp();
        if (HasFatalFailure())
            return;
        RegisterDebtsCoverForms(*session_->Forms());
    }

    static QStringList Headers(QTreeWidget* list) {
        QStringList headers;
        for (int c = 0; list && c < list->columnCount(); ++c)
            headers.append(list->headerItem()->text(c));
        return headers;
    }
    static void ChooseAccount(QWidget* window, const char* name, const QString& account) {
        auto* combo = Find<QComboBox>(window, name);
        ASSERT_NE(combo, nullptr);
        Choose(combo, account + QLatin1Char(' '));
    }
    qint64 Count(const QString& sql, const ValueArray& params = {}) {
        const host::QueryResult q = session_->Db().Query(sql, params);
        EXPECT_TRUE(q.ok()) << q.Text.toStdString();
        return q.ok() ? static_cast<qint64>(q.Scalar().toDouble()) : -1;
    }
};

TEST_F(DebtsCoverFormTest, WindowFromEditorPanelCoversTheFirmThatBuysAndSellsIntoTheOperation) {
    const OrvoObjectUIOPtr op = NewOperation();
    const auto editor = OpenEditor(op);
    ASSERT_TRUE(editor);
    QWidget* root = editor->Widget();

    QStringList seen;
    Expect(QStringLiteral("frmDebtsCoverDialog"), [&](QDialog& window) {
        seen.append(window.windowTitle());
        auto* primary = Find<QTreeWidget>(&window, "lvwBRPrimary");
        auto* secondary = Find<QTreeWidget>(&window, "lvwBRSecondary");
        ASSERT_TRUE(primary && secondary);
        EXPECT_EQ(Headers(primary),
                  QStringList({"Data", "Nr", "Likutis, EUR", "Likutis valiuta", "Valiuta",
                               "Apm., EUR", "Apm. valiuta", "Valiuta", "Kursas", "Kurso įtaka"}));
        for (const char* name :
             {"txtAddrC", "cmdAddrC", "cmdCleanAddrC", "txtAddrD", "cmdAddrD", "cmdCleanAddrD",
              "cmbAddr", "lblFirms", "cmbVariants", "cmdVariants", "dtpDate", "lblStatus",
              "txtSumC", "txtSumD", "lblCurrCodeC", "lblCurrCodeD"})
            EXPECT_NE(window.findChild<QWidget*>(QString::fromLatin1(name)), nullptr) << name;
        EXPECT_EQ(Find<QAbstractButton>(&window, "optDebC")->text(), "Debetas");
        EXPECT_EQ(Find<QAbstractButton>(&window, "optCredD")->text(), "Kreditas");
        EXPECT_EQ(Find<QAbstractButton>(&window, "optAllC")->text(), "Parinkti viską");
        EXPECT_EQ(Find<QAbstractButton>(&window, "optDropD")->text(), "Atšaukti");
        EXPECT_EQ(Find<QAbstractButton>(&window, "optDateByBROper")->text(), "Operacijos data");
        EXPECT_EQ(Find<QAbstractButton>(&window, "optDateByCoveredOperations")->text(),
                  "Vėliausia sudengiamųjų operacijų data");
        EXPECT_EQ(Find<QAbstractButton>(&window, "cmdGo")->text(), "Užpildyti");
        EXPECT_EQ(Find<QAbstractButton>(&window, "cmdOK")->text(), "Išsaugoti");
        EXPECT_EQ(Find<QAbstractButton>(&window, "cmdPrint")->text(), "Spausdinti");
        EXPECT_EQ(Action(&window, "mnuAddVariant")->text(), "Išsaugoti sąskaitų korespondenciją");
        EXPECT_EQ(Action(&window, "mnuFirm")->text(), "Įmonės");
        EXPECT_EQ(Action(&window, "mnuPerson")->text(), "Fiziniai asmenys");
        EXPECT_EQ(Action(&window, "mnuPersonal")->text(), "Darbuotojai");
        EXPECT_FALSE(Find<QWidget>(&window, "cmdOK")->isEnabled());
        EXPECT_FALSE(Find<QWidget>(&window, "cmdPrint")->isEnabled());

        // Debit debts of 2410 against credit debts of 4430; the options are tied.
        ChooseAccount(&window, "cmbAccC", "2410");
        ChooseAccount(&window, "cmbAccD", "4430");
        QTest::mouseClick(Find<QRadioButton>(&window, "optDebC"), Qt::LeftButton);
        EXPECT_TRUE(Find<QRadioButton>(&window, "optCredD")->isChecked());
        Click(&window, "cmdGo");
        auto* firms = Find<QComboBox>(&window, "cmbAddr");
        ASSERT_EQ(firms->count(), 1);
        EXPECT_EQ(firms->itemText(0), kCentras);
        EXPECT_EQ(Find<QLineEdit>(&window, "txtAddrC")->text(), kCentras);
        EXPECT_EQ(Find<QLineEdit>(&window, "txtAddrD")->text(), kCentras);
        ASSERT_EQ(primary->topLevelItemCount(), 2);
        ASSERT_EQ(secondary->topLevelItemCount(), 2);
        EXPECT_EQ(Column(primary, 4), QStringList({"USD", ""}));

        QTest::mouseClick(Find<QRadioButton>(&window, "optAllC"), Qt::LeftButton);
        QTest::mouseClick(Find<QRadioButton>(&window, "optAllD"), Qt::LeftButton);
        EXPECT_EQ(primary->topLevelItem(0)->checkState(0), Qt::Checked);
        EXPECT_EQ(Column(secondary, 2), QStringList({" ", " "}));
        EXPECT_NE(Find<QLineEdit>(&window, "txtSumC")->text(), "0,00");
        ASSERT_TRUE(Find<QWidget>(&window, "cmdOK")->isEnabled());
        Click(&window, "cmdOK");
        EXPECT_EQ(Find<QAbstractButton>(&window, "cmdExit")->text(), "Užbaigti");
        EXPECT_FALSE(Find<QWidget>(&window, "dtpDate")->isEnabled());
        EXPECT_TRUE(firms->itemText(0).startsWith("*** "));
        EXPECT_EQ(primary->topLevelItemCount(), 0);
        Click(&window, "cmdExit");
    });
    Action(root, "mnuDebtsCover")->trigger();
    ASSERT_EQ(seen, QStringList({" Skolų dengimas"}));
    EXPECT_TRUE(AllAnswered());

    // The editor shows the cover's entries and comment, and stores them.
    auto* entries = Find<QTreeWidget>(root, "lvwBRRecords");
    ASSERT_GE(entries->topLevelItemCount(), 2);
    EXPECT_TRUE(Column(entries, 1).contains("4430"));
    EXPECT_TRUE(Column(entries, 2).contains("2410"));
    EXPECT_EQ(Find<QLineEdit>(root, "txtComment")->text(), "Skolų dengimas - " + kCentras);
    ASSERT_TRUE(Find<QWidget>(root, "cmdWrite")->isEnabled());
    Click(root, "cmdWrite");
    ASSERT_GE(op->OIDR().size(), 9) << Boxes().value(0).Text.toStdString();
    EXPECT_EQ(Count("SELECT COUNT(*) FROM BR WHERE BROperID = ? AND AccountD = '4430' AND "
                    "AccountC = '2410'",
                    {Value(double(op->OIDR().mid(8).toLongLong()))}),
              Column(entries, 1).count("4430"));
    EXPECT_TRUE(Unexpected().isEmpty()) << Unexpected().join(',').toStdString();
}

TEST_F(DebtsCoverFormTest, RowMenuNamesTheCurrencyAndOffersTheRateOnlyForCurrencyRows) {
    auto form = std::make_shared<FrmDebtsCover>();
    form->SetOrvoObjectUIO(NewOperation());
    ASSERT_TRUE(window_->Desk()->Present(form));
    QWidget* root = form->Widget();
    ChooseAccount(root, "cmbAccC", "2410");
    ChooseAccount(root, "cmbAccD", "4430");
    Click(root, "cmdGo");
    auto* primary = Find<QTreeWidget>(root, "lvwBRPrimary");
    ASSERT_EQ(primary->topLevelItemCount(), 2);
    auto* menu = Find<QMenu>(root, "mnuInput");
    QAction* sum = Action(root, "mnuSum");
    QAction* rates = Action(root, "mnuRates");
    const auto rightClick = [&](int row) {
        const QRect at = primary->visualItemRect(primary->topLevelItem(row));
        Q_EMIT primary->customContextMenuRequested(at.center());
        menu->hide();
    };
    rightClick(0);
    EXPECT_EQ(sum->text(), "USD sumos įvedimas");
    EXPECT_EQ(rates->text(), "USD kurso įvedimas");
    EXPECT_TRUE(rates->isEnabled());
    rightClick(1);
    EXPECT_EQ(sum->text(), "Sumos įvedimas");
    EXPECT_EQ(rates->text(), "Kurso įvedimas");
    EXPECT_FALSE(rates->isEnabled());

    // Checking a row by its box pays it; the sum box follows and the save waits for the
    // other list.
    primary->topLevelItem(1)->setCheckState(0, Qt::Checked);
    EXPECT_EQ(Find<QLineEdit>(root, "txtSumC")->text(), "2420,00");
    EXPECT_EQ(primary->topLevelItem(1)->text(5), "2 420,00");
    EXPECT_FALSE(Find<QWidget>(root, "cmdOK")->isEnabled());
    primary->topLevelItem(1)->setCheckState(0, Qt::Unchecked);
    EXPECT_EQ(Find<QLineEdit>(root, "txtSumC")->text(), "0,00");
    EXPECT_EQ(primary->topLevelItem(1)->text(2), "2 420,00");
    form->UnloadShowOrvoObject();
}

TEST_F(DebtsCoverFormTest, PrintedActNamesBothFirmsTheDocumentsAndTheSums) {
    // The cover of the demo firm, filled and checked without the window.
    DebtsCover cover(NewOperation());
    cover.Open();
    cover.SetAccounts("2410", "4430");
    ASSERT_TRUE(cover.ListAddressees("O0000100"));
    ASSERT_TRUE(cover.ChooseAddressee(0));
    cover.primary.CheckAll();
    cover.secondary.CheckAll();
    const DebtsCoverAct act = DebtsCoverAct::Make(cover, DebtsCoverAct::OwnFirm(),
                                                  DebtsCoverAct::FirmOf(cover.addrPrimary));
    EXPECT_EQ(act.MyFirm.Name, "UAB Orvo demonstracinė");
    EXPECT_EQ(act.Client.Name, kCentras);

    QTemporaryDir dir;
    const QString pdf = dir.filePath("aktas.pdf");
    ASSERT_TRUE(DebtsCoverActPage::Write(act, pdf).ok());
    QProcess text;
    text.start("pdftotext", {"-layout", pdf, "-"});
    ASSERT_TRUE(text.waitForFinished(20000));
    const QString page = QString::fromUtf8(text.readAllStandardOutput());
    EXPECT_TRUE(page.contains("TARPUSAVIO SKOLŲ UŽSKAITYMO AKTAS")) << page.toStdString();
    EXPECT_TRUE(page.contains("UAB Orvo demonstracinė"));
    EXPECT_TRUE(page.contains("Įmonės kodas: 304512867, tel. +370 5 219 0000"));
    EXPECT_TRUE(page.contains("Įmonės kodas: 304217593"));
    EXPECT_TRUE(page.contains("2024 m. kovo 15 d."));
    EXPECT_TRUE(page.contains("Mes, žemiau pasirašiusieji UAB Orvo demonstracinė ir " + kCentras));
    EXPECT_TRUE(page.contains("Dokumento numeris"));
    for (const QString& number : QStringList({"SF-1048", "SF-1049", "ĮC-118", "ĮC-121"}))
        EXPECT_TRUE(page.contains(number)) << number.toStdString();
    EXPECT_TRUE(page.contains("2 420,00"));
    EXPECT_TRUE(page.contains("1 500,00"));
    EXPECT_TRUE(page.contains("Viso:"));
    EXPECT_TRUE(page.contains(FormatNumberLt(act.TotalDebit, 2)));
    EXPECT_TRUE(page.contains(FormatNumberLt(act.TotalCredit, 2)));
    EXPECT_TRUE(page.contains("Skolos likutis datai 2024.03.15 po tarpusavio užskaitymų:"));
    EXPECT_TRUE(page.contains(FormatNumberLt(act.TotalDebit - act.TotalCredit, 2)));
    EXPECT_TRUE(page.contains("Prašome vieną pasirašytą egzempliorių grąžinti."));
    EXPECT_EQ(page.count("A.V."), 2);
}

} // namespace

} // namespace orvo::ui::testing
