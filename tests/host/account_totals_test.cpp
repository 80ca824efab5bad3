// Account balances at a date (GetAccountsTotal for the balance sheet and the closing,
// GetAccountTotal for the revaluation of one account's balance), on both backends.
#include "debts_fixture.h"

using namespace orvo;
using namespace orvo::host;
using namespace orvo::host::testing;

namespace {

class AccountTotalsTest : public DebtsTest {
protected:
    // A small book: capital paid in, a sale, its partial payment, a supplier's bill.
    void SmallBook() {
        Book(QDate(2024, 1, 2), QStringLiteral("1"),
             {{QStringLiteral("2710"), QStringLiteral("301"), 5000.00, {}, {}, {}, QString()}});
        const qint64 sale = Invoice(kCustomer, 1210.00, QDate(2024, 1, 15), QStringLiteral("2"));
        Payment(kCustomer, sale, 1000.00, QDate(2024, 2, 10), QStringLiteral("3"));
        Book(QDate(2024, 2, 20), QStringLiteral("4"),
             {{QStringLiteral("6000"),
               QStringLiteral("4430"),
               300.00,
               {{-1, kSupplier, QString()}},
               {},
               {},
               QString()}});
    }

    RecordsetPtr AccountsTotal(const QDate& date, const QString& addressee = QString()) {
        const BOResult r = Call(QStringLiteral("GetAccountsTotal"),
                                QStringLiteral("'%1','%2'")
                                    .arg(date.toString(QStringLiteral("yyyy.MM.dd")), addressee));
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        return r.Data.toRecordset();
    }
};

} // namespace

TEST_P(AccountTotalsTest, AccountsTotalOfASmallBookAtTwoDates) {
    SmallBook();
    EXPECT_EQ(
        Rows(AccountsTotal(QDate(2024, 1, 31)), {"Account", "SumD", "SumC", "SumA", "AccType"}),
        QStringList({"2410|1210|0|1210|D", "2710|5000|0|5000|D", "301|0|5000|5000|K",
                     "5000|0|1210|1210|K"}));
    EXPECT_EQ(
        Rows(AccountsTotal(QDate(2024, 2, 29)), {"Account", "SumD", "SumC", "SumA", "AccType"}),
        QStringList({"2410|1210|1000|210|D", "2710|6000|0|6000|D", "301|0|5000|5000|K",
                     "4430|0|300|300|K", "5000|0|1210|1210|K", "6000|300|0|300|D"}));
}

TEST_P(AccountTotalsTest, AccountsTotalOfAnAddresseeCountsOnlyItsSides) {
    SmallBook();
    EXPECT_EQ(Rows(AccountsTotal(QDate(2024, 2, 29), kCustomer), {"Account", "SumA", "AccType"}),
              QStringList({"2410|210|D"}));
}

TEST_P(AccountTotalsTest, AccountsTotalBeforeAnyEntryIsEmpty) {
    SmallBook();
    EXPECT_EQ(AccountsTotal(QDate(2023, 12, 31))->RecordCount(), 0);
}

TEST_P(AccountTotalsTest, AccountTotalGivesOneRowPerCurrency) {
    Book(QDate(2024, 1, 10), QStringLiteral("1"),
         {{QStringLiteral("2712"),
           QStringLiteral("2710"),
           92.00,
           {},
           {QStringLiteral("USD"), 100.00, 0.92},
           {},
           QString()},
          {QStringLiteral("2712"), QStringLiteral("2710"), 50.00, {}, {}, {}, QString()}});
    Book(QDate(2024, 1, 20), QStringLiteral("2"),
         {{QStringLiteral("6000"),
           QStringLiteral("2712"),
           19.00,
           {},
           {},
           {QStringLiteral("USD"), 20.00, 0.95},
           QString()}});

    const BOResult r =
        Call(QStringLiteral("GetAccountTotal"), QStringLiteral("'2712','','2024.01.31',1"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(Rows(r.Data.toRecordset(),
                   {"Account", "FCurrencyCode", "SumD", "SumC", "RestLt", "RestCurr"}),
              QStringList({"2712|   |50|0|50|0", "2712|USD|92|19|73|80"}));

    const BOResult credit =
        Call(QStringLiteral("GetAccountTotal"), QStringLiteral("'2712','','2024.01.31',-1"));
    ASSERT_TRUE(credit.ok());
    EXPECT_EQ(Rows(credit.Data.toRecordset(), {"FCurrencyCode", "RestLt", "RestCurr"}),
              QStringList({"   |-50|0", "USD|-73|-80"}));
}

ORVO_STORAGE_BACKENDS(AccountTotalsTest);
