// frmBROperSelect on the desktop's demo book: opened by Debts and BROperSelect of an
// operation, driven by control name (rows checked and unchecked, a row's sum typed in
// frmTransferSum, a row's rate changed in frmBROperSelect_ChangeRate), and the chosen
// debts stored as the operation's entries.
#include "operations/forms/operation_forms_fixture.h"
#include "settlement/fixed_today.h"

#include "core/number_text.h"
#include "core/rounding.h"
#include "host/storage/database.h"
#include "settlement/forms/frm_br_oper_select_registration.h"
#include "settlement/selection_debts.h"
#include "ui/automation/form_driver.h"

#include <QGroupBox>
#include <QLabel>
#include <QListWidget>

namespace orvo::ui::testing {

namespace {

// An addressee of the tests that the demo book has no debts of.
const QString kClient = QStringLiteral("O000010090");
const QString kClientName = QStringLiteral("UAB „Bandymas“");
const QString kBlank = QStringLiteral("   ");

class SelectionFormsTest : public OperationFormsTest {
protected:
    void SetUp() override {
        OperationFormsTest::SetUp();
        if (HasFatalFailure())
            return;
        RegisterRecordSelectionForms(*session_->Forms());
    }

    // Stores a sale to the client dated 2024-03-01 on `debit` for `sum` (in `code` at
    // `rate` when a code is given).
    void BookSale(double sum, const QString& code = QString(), double rate = 0,
                  const QString& debit = QStringLiteral("2410"),
                  const QString& credit = QStringLiteral("5000")) {
        const OrvoObjectUIOPtr op = NewOperation();
        ASSERT_TRUE(op);
        op->SetField(QStringLiteral("DateD"), Value(QDate(2024, 3, 1)));
        op->SetField(QStringLiteral("Number"), QStringLiteral("SF-%1").arg(++sales_));
        // The client on both sides, as each side's account may demand it.
        const ValueArray client{qint16(1), kClient, kClientName, qint16(-1), kClient, kClientName};
        const ValueResult r = op->Methods(QStringLiteral("AddBR"),
                                          {Value(debit), Value(credit), Value(sum), Value(client),
                                           Value(qint16(code.isEmpty() ? 0 : 1)),
                                           Value(code.isEmpty() ? kBlank : code), Value(rate),
                                           Value(0.0), Value(kBlank), Value(0.0),
                                           Value(QStringLiteral("Prekės %1").arg(sales_))});
        ASSERT_EQ(r.Code, 0) << r.Text.toStdString();
        const ResultRecord saved = op->Save();
        ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    }

    // A new payment operation with one entry crediting 2410 for the client.
    OrvoObjectUIOPtr Payment(QString* guid, double sum = 100.0) {
        const OrvoObjectUIOPtr op = NewOperation();
        op->SetField(QStringLiteral("DateD"), Value(QDate(2024, 3, 15)));
        op->SetField(QStringLiteral("Number"), QStringLiteral("BI-1"));
        *guid = op->Methods(QStringLiteral("AddBR"),
                            {Value(QStringLiteral("2711")), Value(QStringLiteral("2410")),
                             Value(sum), Value(ValueArray{qint16(-1), kClient, kClientName})})
                    .Value.toString();
        return op;
    }

    static QTreeWidget* List(QDialog& dialog) { return Find<QTreeWidget>(&dialog, "lvwBROpers"); }
    static QStringList Row(QTreeWidget* list, int row) {
        QStringList cells;
        QTreeWidgetItem* item = list ? list->topLevelItem(row) : nullptr;
        for (int c = 0; item && c < list->columnCount(); ++c)
            cells << item->text(c);
        return cells;
    }

    // The stored entries of an operation: "AccountD AccountC SumA" in order.
    QStringList StoredEntries(const OrvoObjectUIOPtr& op) {
        const host::QueryResult q = session_->Db().Query(
            QStringLiteral(
                "SELECT AccountD, AccountC, SumA FROM BR WHERE BROperID = ? ORDER BY ID"),
            {Value(double(op->OIDR().mid(8).toLongLong()))});
        EXPECT_TRUE(q.ok()) << q.Text.toStdString();
        QStringList rows;
        for (int i = 0; i < q.RowCount(); ++i)
            rows << q.At(i, 0).toString() + QLatin1Char(' ') + q.At(i, 1).toString() +
                        QLatin1Char(' ') + FormatNumberLt(q.At(i, 2).toDouble() / 100, 2, false);
        return rows;
    }

    // The rate of the dollar stored for the day: as quoted, or in euros a dollar.
    double StoredQuote(const QDate& day, const char* column = "CurrencyRate") {
        const host::QueryResult q = session_->Db().Query(
            QStringLiteral("SELECT r.") + QString::fromLatin1(column) +
                QStringLiteral(" FROM CurrencyRates r JOIN Currencies c ON c.ID = r.CurrencyID "
                               "WHERE c.Code = ? AND r.DateD = ?"),
            {Value(QStringLiteral("USD")), Value(day)});
        EXPECT_TRUE(q.ok() && q.RowCount() == 1) << q.Text.toStdString();
        return q.ok() && q.RowCount() > 0 ? q.At(0, 0).toDouble() : 0.0;
    }

    int sales_ = 0;
};

TEST_F(SelectionFormsTest, APaymentOfZeroOnACheckedRowMeansTheWholeBalance) {
    BookSale(121.0);
    BookSale(30.0);
    QString guid;
    const OrvoObjectUIOPtr op = Payment(&guid);
    QStringList captions, before, after, totals;
    QString title;
    Expect(QStringLiteral("frmBROperSelectDialog"), [&](QDialog& dialog) {
        title = dialog.windowTitle();
        FormDriver d(dialog);
        captions << Find<QGroupBox>(&dialog, "frameSettings")->title()
                 << Find<QAbstractButton>(&dialog, "chkByFirmChildrens")->text()
                 << Find<QAbstractButton>(&dialog, "optDebtOpers")->text()
                 << Find<QAbstractButton>(&dialog, "optTradeDocOpers")->text();
        EXPECT_TRUE(Find<QAbstractButton>(&dialog, "optCred")->isChecked());
        EXPECT_TRUE(Find<QComboBox>(&dialog, "cmbAcc")->currentText().startsWith("2410"));
        QTreeWidget* list = List(dialog);
        ASSERT_EQ(list->topLevelItemCount(), 2);
        before = Row(list, 0);
        ASSERT_TRUE(d.CheckRow(QStringLiteral("lvwBROpers"), 0, true).ok());
        after = Row(list, 0);
        totals << Find<QLineEdit>(&dialog, "txtSkolaLt")->text()
               << Find<QLineEdit>(&dialog, "txtPaymentLt")->text();
        ASSERT_TRUE(d.Click(QStringLiteral("cmdOK")).ok());
    });
    const ValueResult r =
        op->Methods(QStringLiteral("Debts"),
                    {Value(guid), Value(qint16(-1)), Value(QString()), Value(QDate(2024, 3, 15)),
                     Value(0.0), Value(QStringLiteral("Apmokėjimas"))});
    ASSERT_EQ(r.Code, 0) << r.Text.toStdString();
    EXPECT_TRUE(AllAnswered());
    // The accounts of rate change were found: no box came up.
    EXPECT_TRUE(Unexpected().isEmpty()) << Unexpected().join(',').toStdString();
    EXPECT_TRUE(Boxes().isEmpty());
    EXPECT_EQ(title, QStringLiteral(" Operacijų pasirinkimas"));
    EXPECT_EQ(captions,
              QStringList({"Nustatymai", "Su įmonės filialais", "Operacijos pagal nustatymus",
                           "Prekybos užsakymo ir pasiūlymo operacijos nuo datos"}));
    ASSERT_GE(before.size(), 6);
    EXPECT_EQ(before.at(0), QStringLiteral("2024.03.01"));
    EXPECT_EQ(before.at(1), QStringLiteral("SF-1 Prekės 1"));
    EXPECT_EQ(before.at(2), QStringLiteral("121,00"));
    EXPECT_EQ(before.at(5), QStringLiteral(" "));
    EXPECT_EQ(after.at(2), QStringLiteral(" "));
    EXPECT_EQ(after.at(5), QStringLiteral("121,00"));
    EXPECT_EQ(totals, QStringList({"30,00", "121,00"}));
    EXPECT_EQ(r.Value.toInt32(), 1);

    const ResultRecord saved = op->Save();
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    EXPECT_EQ(StoredEntries(op), QStringList({"2711 2410 121,00"}));
}

TEST_F(SelectionFormsTest,
       ABaseRowPaidInAForeignCurrencyLosesACentOfCoverWhenTheConvertedSumWouldExceedTheBalance) {
    BookSale(10.0);
    QString guid;
    const OrvoObjectUIOPtr op = Payment(&guid, 9.96);
    QStringList row;
    bool coverShown = false;
    Expect(QStringLiteral("frmBROperSelectDialog"), [&](QDialog& dialog) {
        FormDriver d(dialog);
        QTreeWidget* list = List(dialog);
        ASSERT_EQ(list->topLevelItemCount(), 1);
        coverShown = !list->isColumnHidden(10);
        ASSERT_TRUE(d.CheckRow(QStringLiteral("lvwBROpers"), 0, true).ok());
        row = Row(list, 0);
        ASSERT_TRUE(d.Click(QStringLiteral("cmdOK")).ok());
    });
    // 10,00 paid in dollars at 6 a dollar: 1,67 dollars would be 10,02.
    const ValueResult r =
        op->Methods(QStringLiteral("Debts"),
                    {Value(guid), Value(qint16(-1)), Value(QString()), Value(QDate(2024, 3, 15)),
                     Value(0.0), Value(QStringLiteral("Apmokėjimas")), Value(QStringLiteral("USD")),
                     Value(6.0), Value(0.0)});
    ASSERT_EQ(r.Code, 0) << r.Text.toStdString();
    EXPECT_TRUE(coverShown);
    ASSERT_GE(row.size(), 11);
    EXPECT_EQ(row.at(10), QStringLiteral("1,66"));
    EXPECT_EQ(row.at(5), QStringLiteral("9,96"));
    EXPECT_EQ(row.at(9), QStringLiteral("0,04"));
    EXPECT_EQ(row.at(2), QStringLiteral(" "));
    const ResultRecord saved = op->Save();
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    // The four cents left on the receivable go to the loss of rate change.
    EXPECT_EQ(StoredEntries(op), QStringList({"6803 2410 0,04", "2711 2410 9,96"}));
}

TEST_F(SelectionFormsTest, UncheckAfterCheckRestoresAllCellsApartFromAManualInfluencePart) {
    BookSale(25.50);
    QString guid;
    const OrvoObjectUIOPtr op = Payment(&guid);
    QStringList before, checked, unchecked, typed, typedUnchecked;
    Expect(QStringLiteral("frmBROperSelectDialog"), [&](QDialog& dialog) {
        FormDriver d(dialog);
        QTreeWidget* list = List(dialog);
        before = Row(list, 0);
        ASSERT_TRUE(d.CheckRow(QStringLiteral("lvwBROpers"), 0, true).ok());
        checked = Row(list, 0);
        ASSERT_TRUE(d.CheckRow(QStringLiteral("lvwBROpers"), 0, false).ok());
        unchecked = Row(list, 0);
        // 12,05 typed for a row paid in dollars at 6: 2,00 dollars, 12,00 paid, 0,05 over.
        Expect(QStringLiteral("frmTransferSumDialog"), [&](QDialog& sum) {
            EXPECT_EQ(sum.windowTitle(), QStringLiteral(" Sumos įvedimas"));
            EXPECT_EQ(Find<QLabel>(&sum, "lblLikutisLt")->text(), QStringLiteral("Likutis :"));
            Type(Find<QLineEdit>(&sum, "txtSum"), QStringLiteral("12,05"));
            Click(&sum, "cmdOK");
        });
        d.DoubleClickRow(QStringLiteral("lvwBROpers"), 0);
        typed = Row(list, 0);
        ASSERT_TRUE(d.CheckRow(QStringLiteral("lvwBROpers"), 0, false).ok());
        typedUnchecked = Row(list, 0);
        d.Click(QStringLiteral("cmdCancel"));
    });
    op->Methods(QStringLiteral("Debts"), {Value(guid), Value(qint16(-1)), Value(QString()),
                                          Value(QDate(2024, 3, 15)), Value(0.0), Value(QString()),
                                          Value(QStringLiteral("USD")), Value(6.0), Value(0.0)});
    EXPECT_TRUE(AllAnswered());
    ASSERT_GE(checked.size(), 11);
    EXPECT_NE(checked, before);
    EXPECT_EQ(unchecked, before);
    EXPECT_EQ(typed.at(5), QStringLiteral("12,00"));
    EXPECT_EQ(typed.at(10), QStringLiteral("2,00"));
    EXPECT_EQ(typed.at(9), QStringLiteral("0,05"));
    EXPECT_EQ(typedUnchecked.at(2), before.at(2));
    EXPECT_EQ(typedUnchecked.at(5), QStringLiteral(" "));
    EXPECT_EQ(typedUnchecked.at(9), QStringLiteral("0,05"));
    // Cancelled: the entry stays as it was.
    ASSERT_EQ(Entries(op)->RecordCount(), 1);
}

TEST_F(SelectionFormsTest, ARowWithARateChangeEntrysAccountsNeverReachesTheList) {
    // A rate-change loss booked on the expense account for the client, and a plain debit.
    BookSale(4.0, QString(), 0, QStringLiteral("6803"), QStringLiteral("2410"));
    BookSale(7.0, QString(), 0, QStringLiteral("6803"), QStringLiteral("4430"));
    DebtsRequest request;
    request.Account = QStringLiteral("6803");
    request.Date = QDate(2024, 3, 15);
    request.Addressee = kClient;
    request.Sign = 1;
    const ValueResult read = SelectionDebts::Read(NewOperation(), request);
    ASSERT_EQ(read.Code, 0);
    // The book has both as open debit balances of the account.
    EXPECT_EQ(read.Value.toRecordset()->RecordCount(), 2);
    int rows = -1;
    Expect(QStringLiteral("frmBROperSelectDialog"), [&](QDialog& dialog) {
        rows = List(dialog)->topLevelItemCount();
        Click(&dialog, "cmdCancel");
    });
    const OrvoObjectUIOPtr op = NewOperation();
    const ValueResult r = op->Methods(QStringLiteral("BROperSelect"),
                                      {Value(QString()), Value(QStringLiteral("6803")),
                                       Value(kClient), Value(QDate(2024, 3, 15))});
    EXPECT_TRUE(r.Value.isNull() || r.Value.toString().isEmpty());
    EXPECT_EQ(rows, 0);
}

TEST_F(SelectionFormsTest, AnAmountOf0004ShowsABlankAndReadsBackAs0) {
    BookSale(10.0);
    QString guid;
    const OrvoObjectUIOPtr op = Payment(&guid);
    QStringList row;
    QString total;
    Expect(QStringLiteral("frmBROperSelectDialog"), [&](QDialog& dialog) {
        FormDriver d(dialog);
        Expect(QStringLiteral("frmTransferSumDialog"), [&](QDialog& sum) {
            Type(Find<QLineEdit>(&sum, "txtSum"), QStringLiteral("0,004"));
            Click(&sum, "cmdOK");
        });
        d.DoubleClickRow(QStringLiteral("lvwBROpers"), 0);
        row = Row(List(dialog), 0);
        total = Find<QLineEdit>(&dialog, "txtPaymentLt")->text();
        EXPECT_EQ(List(dialog)->topLevelItem(0)->checkState(0), Qt::Unchecked);
        d.Click(QStringLiteral("cmdOK"));
    });
    const ValueResult r = op->Methods(QStringLiteral("Debts"),
                                      {Value(guid), Value(qint16(-1)), Value(QString()),
                                       Value(QDate(2024, 3, 15)), Value(0.0), Value(QString())});
    EXPECT_TRUE(AllAnswered());
    ASSERT_GE(row.size(), 6);
    EXPECT_EQ(row.at(5), QStringLiteral(" "));
    EXPECT_EQ(row.at(2), QStringLiteral("10,00"));
    EXPECT_EQ(total, QString());
    // No debt was chosen.
    EXPECT_EQ(r.Value.toInt32(), 0);
}

TEST_F(SelectionFormsTest, BROperSelectGivesTheOIDROfTheRowTheUserChose) {
    BookSale(10.0);
    BookSale(20.0);
    DebtsRequest request;
    request.Account = QStringLiteral("2410");
    request.Date = QDate(2024, 3, 15);
    request.Addressee = kClient;
    request.Sign = 1;
    const RecordsetPtr debts = SelectionDebts::Read(NewOperation(), request).Value.toRecordset();
    ASSERT_EQ(debts->RecordCount(), 2);
    debts->MoveLast();
    const QString second = debts->Field(QStringLiteral("OIDR")).toString();
    Expect(QStringLiteral("frmBROperSelectDialog"), [&](QDialog& dialog) {
        FormDriver d(dialog);
        ASSERT_TRUE(d.CheckRow(QStringLiteral("lvwBROpers"), 0, true).ok());
        ASSERT_TRUE(d.CheckRow(QStringLiteral("lvwBROpers"), 1, true).ok());
        ASSERT_TRUE(d.SelectRow(QStringLiteral("lvwBROpers"), 1).ok());
        d.Click(QStringLiteral("cmdOK"));
    });
    const OrvoObjectUIOPtr op = NewOperation();
    const ValueResult r = op->Methods(QStringLiteral("BROperSelect"),
                                      {Value(QString()), Value(QStringLiteral("2410")),
                                       Value(kClient), Value(QDate(2024, 3, 15))});
    EXPECT_EQ(r.Value.toString(), second);
}

TEST_F(SelectionFormsTest, AChangedRateIsLaidOverTheChosenRow) {
    // 100 dollars at 0,9 euro a dollar.
    BookSale(100.0, QStringLiteral("USD"), 0.9);
    QString guid;
    const OrvoObjectUIOPtr op = Payment(&guid);
    QStringList row, revalued;
    QString rateTitle, february;
    Expect(QStringLiteral("frmBROperSelectDialog"), [&](QDialog& dialog) {
        FormDriver d(dialog);
        revalued = Row(List(dialog), 0);
        ASSERT_TRUE(d.SelectRow(QStringLiteral("lvwBROpers"), 0).ok());
        Expect(QStringLiteral("frmBROperSelect_ChangeRateDialog"), [&](QDialog& rate) {
            rateTitle = rate.windowTitle();
            // Another date shows that day's rate.
            FormDriver r(rate);
            EXPECT_TRUE(r.SetDate(QStringLiteral("dtpDate"), QDate(2024, 2, 1)).ok());
            february = Find<QLineEdit>(&rate, "txtDayRate")->text();
            // Typed as dollars per euro under a euro base.
            Find<QLineEdit>(&rate, "txtDayRate")->setText(QStringLiteral("1,25"));
            Click(&rate, "cmdSelect");
        });
        ASSERT_TRUE(d.Click(QStringLiteral("mnuChangeCurrencyRate")).ok());
        row = Row(List(dialog), 0);
        d.Click(QStringLiteral("cmdCancel"));
    });
    op->Methods(QStringLiteral("Debts"), {Value(guid), Value(qint16(-1)), Value(QString()),
                                          Value(QDate(2024, 3, 15)), Value(0.0), Value(QString())});
    EXPECT_TRUE(AllAnswered());
    EXPECT_EQ(rateTitle, QStringLiteral("USD kursas"));
    // Under a euro base the rate cell shows the debt's rate as quoted, dollars per euro,
    // while the balance is revalued at the rate of the day.
    EXPECT_EQ(revalued.value(8), QStringLiteral("1,111111000"));
    EXPECT_EQ(revalued.value(2),
              FormatAmount(RoundBaseSum(100.0 * StoredQuote(QDate(2024, 3, 15), "Rate"))));
    EXPECT_EQ(february, FormatNumberLt(StoredQuote(QDate(2024, 2, 1)), 9, false));
    ASSERT_GE(row.size(), 10);
    // 100 dollars at 0,8 euro: the receivable of 90,00 fell to 80,00.
    EXPECT_EQ(row.at(2), QStringLiteral("80,00"));
    EXPECT_EQ(row.at(9), QStringLiteral("10,00"));
}

TEST_F(SelectionFormsTest,
       FindingByADocumentNumberOffersTheCompaniesThatShareItAndListsTheChosenOnesDebts) {
    BookSale(10.0);
    // Another client's sale under the same number.
    {
        const OrvoObjectUIOPtr other = NewOperation();
        other->SetField(QStringLiteral("DateD"), Value(QDate(2024, 3, 2)));
        other->SetField(QStringLiteral("Number"), QStringLiteral("SF-1"));
        const QString otherClient = QStringLiteral("O000010091");
        const ValueResult r = other->Methods(
            QStringLiteral("AddBR"),
            {Value(QStringLiteral("2410")), Value(QStringLiteral("5000")), Value(44.0),
             Value(ValueArray{qint16(1), otherClient, QStringLiteral("UAB „Kitas“"), qint16(-1),
                              otherClient, QStringLiteral("UAB „Kitas“")})});
        ASSERT_EQ(r.Code, 0);
        ASSERT_TRUE(other->Save().ok());
    }
    QString prompt, inputTitle, chosen;
    QStringList offered, rows;
    Expect(QStringLiteral("frmBROperSelectDialog"), [&](QDialog& dialog) {
        FormDriver d(dialog);
        Expect(QStringLiteral("frmInputBox"), [&](QDialog& input) {
            prompt = Find<QLabel>(&input, "lblPrompt")->text();
            inputTitle = input.windowTitle();
            Find<QLineEdit>(&input, "txtInput")->setText(QStringLiteral("SF-1"));
            Click(&input, "cmdOK");
        });
        Expect(QStringLiteral("OrvoGroupSelect"), [&](QDialog& choice) {
            auto* list = Find<QListWidget>(&choice, "lvwObjects");
            for (int i = 0; i < list->count(); ++i)
                offered << list->item(i)->text();
            list->setCurrentRow(1);
            Click(&choice, "cmdOK");
        });
        ASSERT_TRUE(d.Click(QStringLiteral("mnuFind")).ok());
        chosen = Find<QLineEdit>(&dialog, "txtAddr")->text();
        rows = Column(List(dialog), 2);
        Click(&dialog, "cmdCancel");
    });
    const OrvoObjectUIOPtr op = NewOperation();
    op->Methods(QStringLiteral("BROperSelect"), {Value(QString()), Value(QStringLiteral("2410")),
                                                 Value(QString()), Value(QDate(2024, 3, 15))});
    EXPECT_TRUE(AllAnswered());
    EXPECT_EQ(prompt, QStringLiteral("Dokumento numeris:"));
    EXPECT_EQ(inputTitle, QStringLiteral("Dokumento paieška"));
    EXPECT_EQ(offered, QStringList({kClientName, QStringLiteral("UAB „Kitas“")}));
    EXPECT_EQ(chosen, QStringLiteral("UAB „Kitas“"));
    EXPECT_EQ(rows, QStringList({"44,00"}));
}

TEST_F(SelectionFormsTest, APaymentSelectionListsDebtsOnlyAndNamesItsAddressee) {
    BookSale(10.0);
    const OrvoObjectUIOPtr op =
        session_->Services()->ObjectsService()->GetObjectUIO(QStringLiteral("O0201505"));
    ASSERT_TRUE(op);
    op->SetField(QStringLiteral("BROperGroupID"), Value(qint32(1)));
    bool tradeOffered = true;
    QString addressee;
    int rows = 0;
    Expect(QStringLiteral("frmBROperSelectDialog"), [&](QDialog& dialog) {
        tradeOffered = !Find<QWidget>(&dialog, "optTradeDocOpers")->isHidden();
        addressee = Find<QLineEdit>(&dialog, "txtAddr")->text();
        rows = List(dialog)->topLevelItemCount();
        Click(&dialog, "cmdCancel");
    });
    const ValueResult r = op->Methods(QStringLiteral("BROperSelect"),
                                      {Value(QString()), Value(QStringLiteral("2410")),
                                       Value(kClient), Value(QDate(2024, 3, 15))});
    EXPECT_TRUE(AllAnswered());
    EXPECT_FALSE(tradeOffered);
    EXPECT_EQ(addressee, kClientName);
    EXPECT_EQ(rows, 1);
    EXPECT_TRUE(r.Value.isNull() || r.Value.toString().isEmpty());
}

TEST_F(SelectionFormsTest, APaymentSumIsSpreadOverTheOldestDebtsWhenTheWindowOpens) {
    BookSale(100.0);
    BookSale(50.0);
    QString guid;
    const OrvoObjectUIOPtr op = Payment(&guid, 130.0);
    QList<bool> checks;
    QStringList payments;
    QString chosen;
    Expect(QStringLiteral("frmBROperSelectDialog"), [&](QDialog& dialog) {
        QTreeWidget* list = List(dialog);
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            checks << (list->topLevelItem(i)->checkState(0) == Qt::Checked);
        payments = Column(list, 5);
        chosen = Find<QLineEdit>(&dialog, "txtPaymentLt")->text();
        Click(&dialog, "cmdOK");
    });
    const ValueResult r =
        op->Methods(QStringLiteral("Debts"),
                    {Value(guid), Value(qint16(-1)), Value(QString()), Value(QDate(2024, 3, 15)),
                     Value(130.0), Value(QStringLiteral("Apmokėjimas"))});
    ASSERT_EQ(r.Code, 0) << r.Text.toStdString();
    EXPECT_EQ(checks, QList<bool>({true, true}));
    EXPECT_EQ(payments, QStringList({"100,00", "30,00"}));
    EXPECT_EQ(chosen, QStringLiteral("130,00"));
    ASSERT_TRUE(op->Save().ok());
    EXPECT_EQ(StoredEntries(op), QStringList({"2711 2410 100,00", "2711 2410 30,00"}));
}

TEST_F(SelectionFormsTest, TheTradeSourceShowsTheTradeColumns) {
    BookSale(10.0);
    QStringList headers;
    int rows = -1;
    Expect(QStringLiteral("frmBROperSelectDialog"), [&](QDialog& dialog) {
        FormDriver d(dialog);
        ASSERT_TRUE(d.SetChecked(QStringLiteral("optTradeDocOpers"), true).ok());
        QTreeWidget* list = List(dialog);
        for (int c = 0; c < list->columnCount(); ++c)
            headers << list->headerItem()->text(c);
        rows = list->topLevelItemCount();
        Click(&dialog, "cmdCancel");
    });
    const OrvoObjectUIOPtr op = NewOperation();
    op->Methods(QStringLiteral("BROperSelect"), {Value(QString()), Value(QStringLiteral("2410")),
                                                 Value(kClient), Value(QDate(2024, 3, 15))});
    EXPECT_EQ(headers, QStringList({"Data", "Nr", "Suma, EUR", "Suma valiuta", "Valiuta",
                                    "Likutis, EUR", "Likutis valiuta", "", "Kursas", "Kurso įtaka",
                                    "Apm., EUR", "Apm. valiuta", "Informacija"}));
    // This book keeps no trade orders or offers: the list stays empty.
    EXPECT_EQ(rows, 0);
}

} // namespace
} // namespace orvo::ui::testing
