// Currency purchase and sale on a stored book, on both backends: the movement at the
// smaller base value, the difference against the influence accounts, the bank accounts
// as addressees, the rate kept as the day's rate, the influence accounts remembered in
// the settings, and the refusal of a side in currency without a rate.
#include "currency_revaluation_book.h"

#include "frame/orvo_settings_service.h"
#include "settlement/currency_exchange.h"

using namespace orvo;
using namespace orvo::test;

namespace {

class CurrencyExchangeTest : public CurrencyBook {
protected:
    struct Bank {
        QString Account;
        QString Number;
        QString Bank;
        QString Name;
    };

    // The own firm's bank accounts, the main one first.
    QVector<Bank> Banks(const OrvoObjectUIOPtr& op) {
        QVector<Bank> list;
        const RecordsetPtr rs =
            op->Properties(QStringLiteral("MyFirmAccounts"), QString()).Value.toRecordset();
        for (rs ? rs->MoveFirst() : void(); rs && !rs->Eof(); rs->MoveNext())
            list.append({NzString(rs->Field(QStringLiteral("AccOIDR"))),
                         NzString(rs->Field(QStringLiteral("AccountNumber"))),
                         NzString(rs->Field(QStringLiteral("OIDR"))),
                         NzString(rs->Field(QStringLiteral("Name")))});
        return list;
    }

    static CurrencyExchange::Side Side(const QString& account, const QString& bankAccount,
                                       const QString& currency, const QString& rate,
                                       const QString& sum) {
        CurrencyExchange::Side s;
        s.Account = account;
        s.BankAccount = bankAccount;
        s.Currency = currency;
        s.RateText = rate;
        s.SumText = sum;
        return s;
    }

    // The quoted rate (units per euro) of a currency on a day, as the book keeps it.
    double QuotedRate(const QString& code, const QDate& date) {
        const BOResult r = session_->BO()->Call(QStringLiteral("GetCurrencyList"),
                                                QStringLiteral("'") + DateParam(date) + "'");
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        const RecordsetPtr rs = r.Data.toRecordset();
        for (rs ? rs->MoveFirst() : void(); rs && !rs->Eof(); rs->MoveNext())
            if (NzString(rs->Field(QStringLiteral("Code"))).trimmed() == code)
                return NzDouble(rs->Field(QStringLiteral("CurrencyRate")));
        return 0;
    }
};

} // namespace

TEST_P(CurrencyExchangeTest, BothCurrenciesBlankComparesTheSumsDirectlyWhenTheDebitSumIsLarger) {
    const OrvoObjectUIOPtr op = NewOperation(Day(10));
    CurrencyExchange w(op);
    w.Open();
    w.debit = Side(QStringLiteral("2711"), QString(), QStringLiteral("   "), QString(),
                   QStringLiteral("1000,00"));
    w.credit = Side(QStringLiteral("2720"), QString(), QStringLiteral("   "), QString(),
                    QStringLiteral("990,00"));
    ASSERT_TRUE(w.Post());
    EXPECT_DOUBLE_EQ(w.outcome.Difference, 10.00);
    const QString date = DateParam(Day(10));
    const QStringList expected = {QStringLiteral("2711|2720|990.00|") + date,
                                  QStringLiteral("2711|5803|10.00|") + date};
    EXPECT_EQ(EntriesOf(op), expected);
    EXPECT_EQ(NzString(op->Field(QStringLiteral("Comment"))), QStringLiteral("Valiutos pirkimas"));
    const ResultRecord saved = op->Save();
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    EXPECT_EQ(StoredEntries(op->OIDR()), expected);
}

TEST_P(CurrencyExchangeTest, BothCurrenciesBlankComparesTheSumsDirectlyWhenTheCreditSumIsLarger) {
    const OrvoObjectUIOPtr op = NewOperation(Day(10));
    CurrencyExchange w(op);
    w.Open();
    w.debit = Side(QStringLiteral("2711"), QString(), QStringLiteral("   "), QString(),
                   QStringLiteral("990"));
    w.credit = Side(QStringLiteral("2720"), QString(), QStringLiteral("   "), QString(),
                    QStringLiteral("1000"));
    ASSERT_TRUE(w.Post());
    const QString date = DateParam(Day(10));
    // The debit account gets what arrived, the credit account loses what left.
    const QStringList expected = {QStringLiteral("2711|2720|990.00|") + date,
                                  QStringLiteral("6803|2720|10.00|") + date};
    EXPECT_EQ(EntriesOf(op), expected);
    const ResultRecord saved = op->Save();
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    EXPECT_EQ(StoredEntries(op->OIDR()), expected);
}

TEST_P(CurrencyExchangeTest, PurchaseOfDollarsPostsTheMovementAtTheSmallerValueAndTheGain) {
    const OrvoObjectUIOPtr op = NewOperation(Day(10));
    const QVector<Bank> banks = Banks(op);
    ASSERT_FALSE(banks.isEmpty());
    const Bank in = banks.value(1, banks.first());
    const Bank out = banks.first();
    CurrencyExchange w(op);
    w.Open();
    EXPECT_EQ(w.debit.BankAccount, out.Account) << "the main account is chosen first";
    // 1000 dollars at 1.1 per euro are worth 909.09; the bank took 905.00 euro.
    w.debit = Side(QStringLiteral("2712"), in.Account, QStringLiteral("USD"), QStringLiteral("1,1"),
                   QStringLiteral("1000"));
    w.credit = Side(QStringLiteral("2711"), out.Account, QStringLiteral("   "), QString(),
                    QStringLiteral("905"));
    ASSERT_TRUE(w.Post());
    EXPECT_DOUBLE_EQ(w.outcome.BaseD, 909.09);
    EXPECT_DOUBLE_EQ(w.outcome.BaseC, 905.00);
    EXPECT_DOUBLE_EQ(w.outcome.RateD, 0.905) << "the debit rate follows the smaller value";
    EXPECT_DOUBLE_EQ(w.outcome.Difference, 4.09);
    const QString date = DateParam(Day(10));
    const QStringList expected = {QStringLiteral("2712|2711|905.00|") + date,
                                  QStringLiteral("  C 1|USD|1000.00|0.905"),
                                  QStringLiteral("  A 1|") + in.Bank + '|' + in.Name,
                                  QStringLiteral("  A 1|") + in.Account + '|' + in.Number,
                                  QStringLiteral("  A -1|") + out.Bank + '|' + out.Name,
                                  QStringLiteral("  A -1|") + out.Account + '|' + out.Number,
                                  QStringLiteral("2712|5803|4.09|") + date,
                                  QStringLiteral("  C 1|USD|0.00|0"),
                                  QStringLiteral("  A 1|") + in.Bank + '|' + in.Name,
                                  QStringLiteral("  A 1|") + in.Account + '|' + in.Number};
    EXPECT_EQ(EntriesOf(op), expected);
    EXPECT_EQ(NzString(op->Field(QStringLiteral("Comment"))), QStringLiteral("Valiutos pirkimas"));
    const ResultRecord saved = op->Save();
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    EXPECT_EQ(StoredEntries(op->OIDR()), expected);

    const OrvoSettingsServicePtr settings = session_->Services()->SettingsService();
    EXPECT_EQ(settings->GetSetting(QStringLiteral("O0201500"), QStringLiteral("Clone536")),
              QStringLiteral("5803"));
    EXPECT_EQ(settings->GetSetting(QStringLiteral("O0201500"), QStringLiteral("Clone636")),
              QStringLiteral("6803"));
    EXPECT_DOUBLE_EQ(QuotedRate(QStringLiteral("USD"), Day(10)), 1.1)
        << "the typed rate became the day's rate";
}

TEST_P(CurrencyExchangeTest, SaleOfPoundsWithALossPostsItFromTheNegativeAccount) {
    const OrvoObjectUIOPtr op = NewOperation(Day(10));
    SetRate(QStringLiteral("GBP"), Day(10), 1.0 / 0.85);
    CurrencyExchange w(op);
    w.Open();
    w.debit.BankAccount.clear();
    w.credit.BankAccount.clear();
    EXPECT_EQ(w.DayRateText(QStringLiteral("GBP")), QStringLiteral("0,850000"));
    // 100 pounds at 0.85 per euro are worth 117.65; the bank paid 115.00 euro.
    w.debit = Side(QStringLiteral("2711"), QString(), QStringLiteral("   "), QString(),
                   QStringLiteral("115"));
    w.credit = Side(QStringLiteral("2712"), QString(), QStringLiteral("GBP"),
                    QStringLiteral("0,85"), QStringLiteral("100"));
    ASSERT_TRUE(w.Post());
    EXPECT_DOUBLE_EQ(w.outcome.BaseC, 117.65);
    EXPECT_DOUBLE_EQ(w.outcome.RateC, 1.15);
    const QString date = DateParam(Day(10));
    const QStringList expected = {
        QStringLiteral("2711|2712|115.00|") + date, QStringLiteral("  C -1|GBP|100.00|1.15"),
        QStringLiteral("6803|2712|2.65|") + date, QStringLiteral("  C -1|GBP|0.00|0")};
    EXPECT_EQ(EntriesOf(op), expected);
    EXPECT_EQ(NzString(op->Field(QStringLiteral("Comment"))),
              QStringLiteral("Valiutos pardavimas"));
    const ResultRecord saved = op->Save();
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    EXPECT_EQ(StoredEntries(op->OIDR()), expected);
    EXPECT_DOUBLE_EQ(QuotedRate(QStringLiteral("GBP"), Day(10)), 0.85)
        << "an unchanged rate is left as it was";
}

TEST_P(CurrencyExchangeTest, CurrencyWithoutARateIsRefusedAndNothingIsPosted) {
    const OrvoObjectUIOPtr op = NewOperation(Day(10));
    CurrencyExchange w(op);
    w.Open();
    Boxes();
    w.debit = Side(QStringLiteral("2712"), QString(), QStringLiteral("USD"), QString(),
                   QStringLiteral("1000"));
    w.credit = Side(QStringLiteral("2711"), QString(), QStringLiteral("   "), QString(),
                    QStringLiteral("905"));
    EXPECT_FALSE(w.Post());
    EXPECT_EQ(Boxes(), QStringList({QStringLiteral("Nenurodytas valiutos kursas!")}));
    EXPECT_TRUE(EntriesOf(op).isEmpty());
    EXPECT_TRUE(NzString(op->Field(QStringLiteral("Comment"))).isEmpty());
}

TEST_P(CurrencyExchangeTest, RememberedInfluenceAccountsWinOverTheRoles) {
    const OrvoSettingsServicePtr settings = session_->Services()->SettingsService();
    const OrvoObjectUIOPtr op = NewOperation(Day(10));
    {
        CurrencyExchange w(op);
        w.Open();
        EXPECT_EQ(w.accountPositive, QStringLiteral("5803"));
        EXPECT_EQ(w.accountNegative, QStringLiteral("6803"));
    }
    settings->SaveSetting(QStringLiteral("O0201500"), QStringLiteral("Clone536"),
                          QStringLiteral("5000"));
    settings->SaveSetting(QStringLiteral("O0201500"), QStringLiteral("Clone636"),
                          QStringLiteral("6100"));
    CurrencyExchange w(op);
    w.Open();
    EXPECT_EQ(w.accountPositive, QStringLiteral("5000"));
    EXPECT_EQ(w.accountNegative, QStringLiteral("6100"));
    EXPECT_TRUE(Boxes().isEmpty());
}

TEST_P(CurrencyExchangeTest, MissingRoleIsToldAtOpening) {
    ASSERT_TRUE(
        session_->Db()
            .Execute(QStringLiteral("UPDATE Accounts SET BRAPropertyID = 0 WHERE Account = '5803'"))
            .ok());
    CurrencyExchange w(NewOperation(Day(10)));
    w.Open();
    EXPECT_EQ(Boxes(), QStringList({QStringLiteral(
                           "Sąskaitų žinyne nepažymėta valiutos kursų pasikeitimo įtakos "
                           "sąskaita!")}));
    EXPECT_TRUE(w.accountPositive.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Backends, CurrencyExchangeTest,
                         ::testing::Values(host::Backend::SQLite, host::Backend::PostgreSQL),
                         host::testing::BackendLabel);
