// Currency revaluation on a stored book, on both backends: the figures of a row, the
// entries posted for debit and credit balances with their currency and addressee rows,
// the write-off of a base rest without a currency rest, the question before mixing the
// two variants, the refusal of a repeat while the window is open, and a posting stopped
// before any entry by a missing rate or a missing rate-change account.
#include "currency_revaluation_book.h"

#include "core/number_text.h"
#include "settlement/currency_revaluation.h"

using namespace orvo;
using namespace orvo::test;

namespace {

const QString kIncome = QStringLiteral("5803");
const QString kExpense = QStringLiteral("6803");

class CurrencyRevaluationTest : public CurrencyBook {
protected:
    // The window's logic on `op`, opened on `date` with the mode, account, side and
    // addressee chosen.
    std::unique_ptr<CurrencyRevaluation> Window(const OrvoObjectUIOPtr& op, const QDate& date,
                                                CurrencyRevaluation::Mode mode,
                                                const QString& account, const QString& side,
                                                const QPair<QString, QString>& addressee) {
        auto w = std::make_unique<CurrencyRevaluation>(op);
        w->Open(date);
        w->mode = mode;
        w->account = account;
        w->side = side;
        w->addressee = addressee.first;
        w->addresseeText = addressee.second;
        return w;
    }

    // An invoice of 250.00 GBP booked at 4.0 (1000.00 in base) on 2420 for the firm, and
    // the pound at 4.1 on the day of revaluation.
    QString DebitInvoice(const QPair<QString, QString>& firm) {
        const QString op =
            BookCurrencyEntry(Day(30), QStringLiteral("S-1"), QStringLiteral("2420"),
                              QStringLiteral("5000"), 250.0, QStringLiteral("GBP"), 4.0, 1,
                              {Value(qint16(1)), Value(firm.first), Value(firm.second)});
        SetRate(QStringLiteral("GBP"), Day(10), 4.1);
        return op;
    }

    // A stored operation revaluing the firm's debit balance on 2420 by the first row.
    void RevalueAndStore(CurrencyRevaluation::Mode mode, const QPair<QString, QString>& firm) {
        const OrvoObjectUIOPtr op = NewOperation(Day(10));
        auto w = Window(op, Day(10), mode, QStringLiteral("2420"), QStringLiteral("D"), firm);
        ASSERT_NO_FATAL_FAILURE(PostFirstRow(*w));
        ASSERT_TRUE(op->Save().ok());
    }

    // cmdGo, the first row checked, cmdOK.
    static void PostFirstRow(CurrencyRevaluation& w) {
        ASSERT_TRUE(w.Go());
        ASSERT_TRUE(w.SetChecked(0, true));
        ASSERT_EQ(w.Post(), CurrencyRevaluation::PostResult::Done);
    }

    const RecordsetPtr Debts(const QString& account, const QString& addressee, int sign,
                             const QDate& date) {
        const BOResult r = session_->BO()->Call(
            QStringLiteral("GetDebts1"),
            QStringLiteral("'0','%1','%2','%3',%4")
                .arg(account, DateParam(date), addressee, QString::number(sign)));
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        return r.Data.toRecordset();
    }
};

} // namespace

TEST_P(CurrencyRevaluationTest, DebitBalanceOf1000At4Point1GivesPlus25PostedToTheIncomeAccount) {
    const auto firm = Firm(0);
    const QString invoice = DebitInvoice(firm);
    const QString debt = EntryOf(invoice);
    const OrvoObjectUIOPtr op = NewOperation(Day(5));
    auto w = Window(op, Day(10), CurrencyRevaluation::Mode::ByOpers, QStringLiteral("2420"),
                    QStringLiteral("D"), firm);
    w->SetDate(Day(10));
    ASSERT_TRUE(w->Go());
    ASSERT_EQ(w->rows.size(), 2) << "the debt and the closing row";
    const CurrencyRevaluation::Row& row = w->rows.at(0);
    EXPECT_EQ(row.Tag, debt);
    EXPECT_DOUBLE_EQ(row.RestLt, 1000.00);
    EXPECT_DOUBLE_EQ(row.RestCurr, 250.00);
    EXPECT_EQ(row.CurrCode, QStringLiteral("GBP"));
    EXPECT_DOUBLE_EQ(row.Rate, 4.1);
    EXPECT_DOUBLE_EQ(row.SumLt, 1025.00);
    EXPECT_DOUBLE_EQ(row.SumInfluence, 25.00);
    EXPECT_EQ(row.Cells().at(6), FormatAmount(25.0));
    EXPECT_TRUE(w->rows.at(1).Total);
    EXPECT_DOUBLE_EQ(w->rows.at(1).SumLt, 1025.00);

    ASSERT_TRUE(w->SetChecked(0, true));
    ASSERT_EQ(w->Post(), CurrencyRevaluation::PostResult::Done);
    const QString text = DateParam(Day(30)) + QStringLiteral(" S-1 ");
    const QStringList expected = {
        QStringLiteral("2420|5803|25.00|") + DateParam(Day(10)), QStringLiteral("  C 1|GBP|0.00|0"),
        QStringLiteral("  A 1|") + debt + QLatin1Char('|') + text,
        QStringLiteral("  A 1|") + firm.first + QLatin1Char('|') + firm.second,
        QStringLiteral("  A -1|") + firm.first + QLatin1Char('|') + firm.second};
    EXPECT_EQ(EntriesOf(op), expected);
    EXPECT_EQ(NzString(op->Field(QStringLiteral("Comment"))),
              QStringLiteral("Valiutos perskaičiavimas"));
    EXPECT_EQ(NzDate(op->Field(QStringLiteral("DateD")), QDate()), Day(10));
    EXPECT_EQ(w->status, QStringLiteral("Perskaičiavimas atliktas..."));

    const ResultRecord saved = op->Save();
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    EXPECT_EQ(StoredEntries(op->OIDR()), expected);
    const RecordsetPtr debts = Debts(QStringLiteral("2420"), firm.first, 1, Day(10));
    ASSERT_TRUE(debts);
    ASSERT_EQ(debts->RecordCount(), 1);
    debts->MoveFirst();
    EXPECT_DOUBLE_EQ(NzDouble(debts->Field(QStringLiteral("LikutisLt"))), 1025.00)
        << "the debt is now worth its value at the day's rate";
    EXPECT_DOUBLE_EQ(NzDouble(debts->Field(QStringLiteral("LikutisCurr"))), 250.00);
}

TEST_P(CurrencyRevaluationTest,
       CreditBalanceOf1000At4Point1GivesMinus25PostedFromTheExpenseAccount) {
    const auto firm = Firm(0);
    const QString bill = BookCurrencyEntry(
        Day(30), QStringLiteral("P-7"), QStringLiteral("6100"), QStringLiteral("4480"), 250.0,
        QStringLiteral("GBP"), 4.0, -1, {Value(qint16(-1)), Value(firm.first), Value(firm.second)});
    SetRate(QStringLiteral("GBP"), Day(10), 4.1);
    const QString debt = EntryOf(bill);
    const OrvoObjectUIOPtr op = NewOperation(Day(10));
    auto w = Window(op, Day(10), CurrencyRevaluation::Mode::ByOpers, QStringLiteral("4480"),
                    QStringLiteral("K"), firm);
    ASSERT_TRUE(w->Go());
    ASSERT_EQ(w->rows.size(), 2);
    EXPECT_DOUBLE_EQ(w->rows.at(0).RestLt, 1000.00);
    EXPECT_DOUBLE_EQ(w->rows.at(0).SumLt, 1025.00);
    EXPECT_DOUBLE_EQ(w->rows.at(0).SumInfluence, -25.00);
    ASSERT_TRUE(w->SetChecked(0, true));
    ASSERT_EQ(w->Post(), CurrencyRevaluation::PostResult::Done);
    const QStringList expected = {
        QStringLiteral("6803|4480|25.00|") + DateParam(Day(10)),
        QStringLiteral("  C -1|GBP|0.00|0"),
        QStringLiteral("  A -1|") + debt + QLatin1Char('|') + DateParam(Day(30)) +
            QStringLiteral(" P-7 "),
        QStringLiteral("  A -1|") + firm.first + QLatin1Char('|') + firm.second,
        QStringLiteral("  A 1|") + firm.first + QLatin1Char('|') + firm.second};
    EXPECT_EQ(EntriesOf(op), expected);
    const ResultRecord saved = op->Save();
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    EXPECT_EQ(StoredEntries(op->OIDR()), expected);
    const RecordsetPtr debts = Debts(QStringLiteral("4480"), firm.first, -1, Day(10));
    ASSERT_TRUE(debts && debts->RecordCount() == 1);
    debts->MoveFirst();
    EXPECT_DOUBLE_EQ(NzDouble(debts->Field(QStringLiteral("LikutisLt"))), 1025.00);
}

TEST_P(CurrencyRevaluationTest, AccountBalanceOfABankAccountIsPostedWithTheBankAccountAndItsBank) {
    const OrvoObjectUIOPtr probe = NewOperation(Day(10));
    const RecordsetPtr banks =
        probe->Properties(QStringLiteral("MyFirmAccounts"), QString()).Value.toRecordset();
    ASSERT_TRUE(banks && banks->RecordCount() > 0);
    banks->MoveFirst();
    const QString bankAccount = NzString(banks->Field(QStringLiteral("AccOIDR")));
    const QString number = NzString(banks->Field(QStringLiteral("AccountNumber")));
    const QString bank = NzString(banks->Field(QStringLiteral("OIDR")));
    const QString bankName = NzString(banks->Field(QStringLiteral("Name")));
    ASSERT_GE(bank.size(), 9);
    BookCurrencyEntry(Day(30), QStringLiteral("B-1"), QStringLiteral("2730"),
                      QStringLiteral("3010"), 250.0, QStringLiteral("GBP"), 4.0, 1,
                      {Value(qint16(1)), Value(bankAccount), Value(number)});
    SetRate(QStringLiteral("GBP"), Day(10), 4.1);

    const OrvoObjectUIOPtr op = NewOperation(Day(10));
    auto w = Window(op, Day(10), CurrencyRevaluation::Mode::ByAddr, QStringLiteral("2730"),
                    QStringLiteral("D"), {bankAccount, number});
    ASSERT_TRUE(w->Go());
    ASSERT_EQ(w->rows.size(), 2);
    EXPECT_TRUE(w->rows.at(0).Tag.isEmpty());
    EXPECT_DOUBLE_EQ(w->rows.at(0).SumInfluence, 25.00);
    ASSERT_TRUE(w->SetChecked(0, true));
    ASSERT_EQ(w->Post(), CurrencyRevaluation::PostResult::Done);
    const QStringList expected = {QStringLiteral("2730|5803|25.00|") + DateParam(Day(10)),
                                  QStringLiteral("  C 1|GBP|0.00|0"),
                                  QStringLiteral("  A 1|") + bankAccount + '|' + number,
                                  QStringLiteral("  A 1|") + bank + '|' + bankName,
                                  QStringLiteral("  A -1|") + bankAccount + '|' + number,
                                  QStringLiteral("  A -1|") + bank + '|' + bankName};
    EXPECT_EQ(EntriesOf(op), expected);
    const ResultRecord saved = op->Save();
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    EXPECT_EQ(StoredEntries(op->OIDR()), expected);
}

TEST_P(CurrencyRevaluationTest, ZeroCurrencyBalanceWritesOffTheBaseRest) {
    const auto firm = Firm(1);
    BookCurrencyEntry(Day(40), QStringLiteral("S-2"), QStringLiteral("2420"),
                      QStringLiteral("5000"), 250.0, QStringLiteral("GBP"), 4.0, 1,
                      {Value(qint16(1)), Value(firm.first), Value(firm.second)});
    // Paid in full in pounds at 4.08: nothing is left in pounds, 20.00 too much in base.
    BookCurrencyEntry(Day(20), QStringLiteral("G-2"), QStringLiteral("2730"),
                      QStringLiteral("2420"), 250.0, QStringLiteral("GBP"), 4.08, -1,
                      {Value(qint16(-1)), Value(firm.first), Value(firm.second)});
    const OrvoObjectUIOPtr op = NewOperation(Day(10));
    auto w = Window(op, Day(10), CurrencyRevaluation::Mode::ByAddr, QStringLiteral("2420"),
                    QStringLiteral("D"), firm);
    ASSERT_TRUE(w->Go());
    ASSERT_EQ(w->rows.size(), 2);
    const CurrencyRevaluation::Row& row = w->rows.at(0);
    EXPECT_DOUBLE_EQ(row.RestLt, -20.00);
    EXPECT_DOUBLE_EQ(row.RestCurr, 0.0);
    EXPECT_FALSE(row.HasSumLt) << "no value at any rate";
    EXPECT_EQ(row.Cells().at(4), QStringLiteral(" "));
    EXPECT_DOUBLE_EQ(row.SumInfluence, 20.00);
    ASSERT_TRUE(w->SetChecked(0, true));
    ASSERT_EQ(w->Post(), CurrencyRevaluation::PostResult::Done);
    const QStringList expected = {QStringLiteral("2420|5803|20.00|") + DateParam(Day(10)),
                                  QStringLiteral("  C 1|GBP|0.00|0"),
                                  QStringLiteral("  A 1|") + firm.first + '|' + firm.second,
                                  QStringLiteral("  A -1|") + firm.first + '|' + firm.second};
    EXPECT_EQ(EntriesOf(op), expected);
    const ResultRecord saved = op->Save();
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    EXPECT_EQ(StoredEntries(op->OIDR()), expected);

    const BOResult total = session_->BO()->Call(
        QStringLiteral("GetAccountTotal"),
        QStringLiteral("'2420','%1','%2',1").arg(firm.first, DateParam(Day(10))));
    ASSERT_TRUE(total.ok()) << total.Text.toStdString();
    const RecordsetPtr rs = total.Data.toRecordset();
    ASSERT_TRUE(rs && rs->RecordCount() == 1);
    rs->MoveFirst();
    EXPECT_DOUBLE_EQ(NzDouble(rs->Field(QStringLiteral("RestLt"))), 0.0)
        << "the base rest is written off";
}

TEST_P(CurrencyRevaluationTest, OtherVariantOnARevaluedAccountAsksAndGoesOnOnlyAfterYes) {
    const auto firm = Firm(0);
    DebitInvoice(firm);
    ASSERT_NO_FATAL_FAILURE(RevalueAndStore(CurrencyRevaluation::Mode::ByOpers, firm));
    Boxes();
    const OrvoObjectUIOPtr op = NewOperation(Day(10));
    auto w = Window(op, Day(10), CurrencyRevaluation::Mode::ByAddr, QStringLiteral("2420"),
                    QStringLiteral("D"), firm);
    session_->Messages()->QueueAnswer(false);
    EXPECT_FALSE(w->Go());
    EXPECT_TRUE(w->rows.isEmpty()) << "No stops before reading";
    const QList<host::RecordedMessage> asked = session_->Messages()->Take();
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked.at(0).Kind, MessageKind::Question);
    EXPECT_EQ(asked.at(0).Text,
              QStringLiteral("Parinktas valiutos perskaičiavimo variantas (b/sąskaitos likučių "
                             "perskaičiavimas)\nskiriasi  nuo jau naudoto kito varianto "
                             "(operacijų likučių perskaičiavimai).\nTęsti veiksmą ?"));

    session_->Messages()->QueueAnswer(true);
    ASSERT_TRUE(w->Go());
    ASSERT_EQ(w->rows.size(), 2) << "Yes goes on to the reading";
    EXPECT_DOUBLE_EQ(w->rows.at(0).RestLt, 1025.00);
    EXPECT_DOUBLE_EQ(w->rows.at(0).SumInfluence, 0.00);
    EXPECT_EQ(Boxes().size(), 1);
}

TEST_P(CurrencyRevaluationTest, ByOperationsAfterABalanceRevaluationAsksToo) {
    const auto firm = Firm(0);
    DebitInvoice(firm);
    ASSERT_NO_FATAL_FAILURE(RevalueAndStore(CurrencyRevaluation::Mode::ByAddr, firm));
    Boxes();
    const OrvoObjectUIOPtr op = NewOperation(Day(10));
    auto w = Window(op, Day(10), CurrencyRevaluation::Mode::ByOpers, QStringLiteral("2420"),
                    QStringLiteral("D"), firm);
    EXPECT_FALSE(w->Go()) << "no answer queued is No";
    EXPECT_EQ(Boxes(), QStringList({QStringLiteral(
                           "Parinktas valiutos perskaičiavimo variantas (operacijų likučių "
                           "perskaičiavimai)\nskiriasi  nuo jau naudoto kito varianto "
                           "(b/sąskaitos likučių perskaičiavimas).\nTęsti veiksmą ?")}));
    EXPECT_TRUE(EntriesOf(op).isEmpty());
}

TEST_P(CurrencyRevaluationTest, SecondRunOnTheSameAccountSideAndAddresseeIsRefusedByOperations) {
    const auto firm = Firm(0);
    DebitInvoice(firm);
    const OrvoObjectUIOPtr op = NewOperation(Day(10));
    auto w = Window(op, Day(10), CurrencyRevaluation::Mode::ByOpers, QStringLiteral("2420"),
                    QStringLiteral("D"), firm);
    ASSERT_NO_FATAL_FAILURE(PostFirstRow(*w));
    ASSERT_EQ(EntriesOf(op).size(), 5);
    Boxes();

    EXPECT_FALSE(w->Go());
    EXPECT_EQ(Boxes(),
              QStringList({QStringLiteral("Pakartotinas sąskaitos likučių perskaičiavimas !")}));
    EXPECT_TRUE(w->rows.isEmpty());
    EXPECT_EQ(EntriesOf(op).size(), 5) << "nothing more is posted";

    // The same account of all addressees counts as a repeat too.
    w->addressee = QStringLiteral("O0000100");
    EXPECT_FALSE(w->Go());
    EXPECT_EQ(Boxes().size(), 1);
    // Another addressee is another balance.
    const auto other = Firm(1);
    w->addressee = other.first;
    w->addresseeText = other.second;
    EXPECT_TRUE(w->Go());
    EXPECT_TRUE(Boxes().isEmpty());
}

TEST_P(CurrencyRevaluationTest, SecondRunOnTheSameAccountSideAndAddresseeIsRefusedByBalance) {
    const auto firm = Firm(0);
    DebitInvoice(firm);
    const OrvoObjectUIOPtr op = NewOperation(Day(10));
    auto w = Window(op, Day(10), CurrencyRevaluation::Mode::ByAddr, QStringLiteral("2420"),
                    QStringLiteral("D"), firm);
    ASSERT_TRUE(w->SaveVariant());
    EXPECT_EQ(w->VariantCaptions(), QStringList({QStringLiteral("2420 * ") + firm.second}));
    ASSERT_NO_FATAL_FAILURE(PostFirstRow(*w));
    ASSERT_EQ(EntriesOf(op).size(), 4);
    EXPECT_EQ(w->VariantCaptions(),
              QStringList({QStringLiteral("Perskaičiuota: 2420 * ") + firm.second}));
    Boxes();

    EXPECT_FALSE(w->Go());
    EXPECT_EQ(Boxes(),
              QStringList({QStringLiteral("Pakartotinas sąskaitos likučių perskaičiavimas !")}));
    EXPECT_EQ(EntriesOf(op).size(), 4);
}

TEST_P(CurrencyRevaluationTest, MissingRateLeavesTheRowUncheckableAndPostsNothing) {
    const auto firm = Firm(0);
    // Long before the first rate of the book.
    BookCurrencyEntry(Day(1200), QStringLiteral("S-9"), QStringLiteral("2420"),
                      QStringLiteral("5000"), 250.0, QStringLiteral("GBP"), 4.0, 1,
                      {Value(qint16(1)), Value(firm.first), Value(firm.second)});
    const OrvoObjectUIOPtr op = NewOperation(Day(1100));
    auto w = Window(op, Day(1100), CurrencyRevaluation::Mode::ByOpers, QStringLiteral("2420"),
                    QStringLiteral("D"), firm);
    w->SetDate(Day(1100));
    ASSERT_TRUE(w->Go());
    ASSERT_EQ(w->rows.size(), 2);
    EXPECT_FALSE(w->rows.at(0).HasInfluence);
    EXPECT_EQ(w->rows.at(0).Cells().at(6), QStringLiteral(" "));
    EXPECT_FALSE(w->SetChecked(0, true));
    // A row checked past the window still stops the posting before any entry.
    w->rows[0].Checked = true;
    EXPECT_EQ(w->Post(), CurrencyRevaluation::PostResult::Failed);
    EXPECT_TRUE(EntriesOf(op).isEmpty());
    EXPECT_EQ(Boxes(), QStringList({DateParam(Day(1200)) + QStringLiteral(" S-9 \nNenurodytas GBP "
                                                                          "kursas!")}));
}

TEST_P(CurrencyRevaluationTest, MissingRateChangeAccountStopsThePostingBeforeAnyEntry) {
    const auto firm = Firm(0);
    DebitInvoice(firm);
    ASSERT_TRUE(
        session_->Db()
            .Execute(QStringLiteral("UPDATE Accounts SET BRAPropertyID = 0 WHERE Account = '6803'"))
            .ok());
    const OrvoObjectUIOPtr op = NewOperation(Day(10));
    auto w = Window(op, Day(10), CurrencyRevaluation::Mode::ByOpers, QStringLiteral("2420"),
                    QStringLiteral("D"), firm);
    const QString missing =
        QStringLiteral("Sąskaitų žinyne nepažymėta valiutos kursų pasikeitimo įtakos sąskaita!");
    EXPECT_EQ(Boxes(), QStringList({missing})) << "told at opening";
    EXPECT_TRUE(w->accountRateExpense.isEmpty());
    EXPECT_EQ(w->accountRateIncome, kIncome);
    ASSERT_TRUE(w->Go());
    ASSERT_TRUE(w->SetChecked(0, true));
    EXPECT_EQ(w->Post(), CurrencyRevaluation::PostResult::Failed);
    EXPECT_TRUE(EntriesOf(op).isEmpty());
    EXPECT_EQ(Boxes(), QStringList({missing}));
    EXPECT_TRUE(NzString(op->Field(QStringLiteral("Comment"))).isEmpty());
}

TEST_P(CurrencyRevaluationTest, VariantsAreKeptInTheSettingsAndRefusedTwice) {
    const OrvoObjectUIOPtr op = NewOperation(Day(10));
    auto w =
        Window(op, Day(10), CurrencyRevaluation::Mode::ByOpers, QString(), QStringLiteral("K"), {});
    EXPECT_FALSE(w->SaveVariant());
    EXPECT_EQ(Boxes(), QStringList({QStringLiteral("Neužduota sąskaita !")}));
    w->account = QStringLiteral("4480");
    w->addressee = QStringLiteral("O0000100");
    w->addresseeText = QStringLiteral("Visi klientai");
    ASSERT_TRUE(w->SaveVariant());
    EXPECT_FALSE(w->SaveVariant());
    EXPECT_EQ(Boxes(), QStringList({QStringLiteral("Toks variantas jau išsaugotas !")}));
    EXPECT_EQ(session_->Services()->SettingsService()->GetSetting(
                  QStringLiteral("O0201500"), QStringLiteral("CurrencyRecalculateParameters")),
              QStringLiteral("ByOpers_4480_K_O0000100_Visi klientai"));

    auto again = Window(op, Day(10), CurrencyRevaluation::Mode::ByAddr, QStringLiteral("2420"),
                        QStringLiteral("D"), {});
    EXPECT_EQ(again->VariantCaptions(), QStringList({QStringLiteral("4480 K * Visi klientai")}));
    again->ChooseVariant(0);
    EXPECT_EQ(again->mode, CurrencyRevaluation::Mode::ByOpers);
    EXPECT_EQ(again->account, QStringLiteral("4480"));
    EXPECT_EQ(again->side, QStringLiteral("K"));
    EXPECT_EQ(again->addressee, QStringLiteral("O0000100"));
    ASSERT_TRUE(again->DeleteVariant(0));
    EXPECT_TRUE(again->VariantCaptions().isEmpty());
}

TEST(CurrencyRevaluationRates, DayValueIsTurnedOverToABookRateUnderAEuroBaseOnly) {
    const CurrencyRevaluation::RatePair euro = CurrencyRevaluation::RatesOf(0.243902439, true);
    EXPECT_DOUBLE_EQ(euro.Rate, 4.1);
    EXPECT_DOUBLE_EQ(euro.Inverse, 0.243902439);
    const CurrencyRevaluation::RatePair litas = CurrencyRevaluation::RatesOf(3.4528, false);
    EXPECT_DOUBLE_EQ(litas.Rate, 3.4528);
    EXPECT_DOUBLE_EQ(litas.Inverse, 0.289620);
    EXPECT_DOUBLE_EQ(CurrencyRevaluation::RatesOf(0, true).Rate, 0);
    EXPECT_DOUBLE_EQ(CurrencyRevaluation::RatesOf(-1, false).Inverse, 0);
}

INSTANTIATE_TEST_SUITE_P(Backends, CurrencyRevaluationTest,
                         ::testing::Values(host::Backend::SQLite, host::Backend::PostgreSQL),
                         host::testing::BackendLabel);
