// The pairing of covered rows into entries, on an operation of a stored book: amounts cut
// to the smaller rest, the currency of a row's last step corrected by what rounding left,
// a base rest without currency posted as rate change, and rows without a reference.
#include "debts_cover_fixture.h"

#include "settlement/debts_cover_posting.h"

namespace orvo::test {
namespace {

class DebtsCoverPostingTest : public DebtsCoverBook {
protected:
    static DebtsCoverRow Row(const QString& key, double paymentLt, const QString& code = "   ",
                             double paymentCurr = 0, double rate = 0) {
        DebtsCoverRow row;
        row.Key = key;
        row.Date = QDate(2024, 2, 1);
        row.Nr = key;
        row.CurrencyCode = code;
        row.PaymentLt = paymentLt;
        row.PaymentSumCurr = paymentCurr;
        row.Rate = rate;
        row.Checked = true;
        return row;
    }
    static DebtsCoverSide Side(const QString& account, const QVector<DebtsCoverRow>& rows) {
        DebtsCoverSide side;
        side.Account = account;
        side.Rows = rows;
        return side;
    }
    DebtsCoverPosting Posting(const OrvoObjectUIOPtr& op) {
        DebtsCoverPosting posting(op, true, QStringLiteral("5803"), QStringLiteral("6803"));
        posting.SetDates(QDate(2024, 3, 15), false);
        return posting;
    }
};

TEST_P(DebtsCoverPostingTest, CurrencyRowPaidInTwoStepsCorrectsItsLastStepWithTheRest) {
    const OrvoObjectUIOPtr op = NewOperation();
    DebtsCoverPosting posting = Posting(op);
    // 100 dollars at 0.87654321 are 87.65 euros, covered by 40.00 and then 47.65: the
    // second step's 54.36 dollars leave a cent, which goes into it.
    ASSERT_TRUE(posting.Run(Side("2410", {Row("A", 87.65, "USD", 100.00, 0.87654321)}),
                            Side("4430", {Row("B", 40.00), Row("C", 100.00)})));
    const QVector<EntryView> entries = View(op);
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(entries[0].debit, "4430");
    EXPECT_EQ(entries[0].credit, "2410");
    EXPECT_DOUBLE_EQ(entries[0].sumA, 40.00);
    EXPECT_EQ(entries[0].currencies, QStringList({"-1 USD 45.63 0.876543210"}));
    EXPECT_DOUBLE_EQ(entries[1].sumA, 47.65);
    EXPECT_EQ(entries[1].currencies, QStringList({"-1 USD 54.37 0.876402428"}));
}

TEST_P(DebtsCoverPostingTest, BaseRestWithNoCurrencyRestIsPostedAsRateChangeNotAsDebtEntry) {
    const OrvoObjectUIOPtr op = NewOperation();
    DebtsCoverPosting posting = Posting(op);
    // 100 dollars at 3 are 300.00 euros; two steps of 149.99 use all the dollars (50.00
    // each) and leave 0.02 euros, which is no debt any more but a gain of the rate.
    ASSERT_TRUE(posting.Run(Side("2410", {Row("A", 149.99), Row("B", 149.99)}),
                            Side("4430", {Row("C", 300.00, "USD", 100.00, 3.0)})));
    const QVector<EntryView> entries = View(op);
    ASSERT_EQ(entries.size(), 3);
    EXPECT_EQ(entries[0].debit + " " + entries[0].credit, "4430 2410");
    EXPECT_DOUBLE_EQ(entries[0].sumA, 149.99);
    EXPECT_EQ(entries[0].currencies, QStringList({"1 USD 50.00 2.999800000"}));
    EXPECT_EQ(entries[1].debit + " " + entries[1].credit, "4430 5803");
    EXPECT_DOUBLE_EQ(entries[1].sumA, 0.02);
    EXPECT_TRUE(entries[1].currencies.isEmpty());
    EXPECT_EQ(entries[2].debit + " " + entries[2].credit, "4430 2410");
    EXPECT_DOUBLE_EQ(entries[2].sumA, 149.99);
    EXPECT_EQ(entries[2].currencies, QStringList({"1 USD 50.00 2.999800000"}));
}

TEST_P(DebtsCoverPostingTest, RowWhoseTagIsShorterThanNineCharactersGivesEntryWithNoAddressee) {
    const OrvoObjectUIOPtr op = NewOperation();
    DebtsCoverPosting posting = Posting(op);
    ASSERT_TRUE(
        posting.Run(Side("2410", {Row("O020150", 25.00)}), Side("4430", {Row("12345678", 25.00)})));
    const QVector<EntryView> entries = View(op);
    ASSERT_EQ(entries.size(), 1);
    EXPECT_DOUBLE_EQ(entries[0].sumA, 25.00);
    EXPECT_TRUE(entries[0].addressees.isEmpty());
}

TEST_P(DebtsCoverPostingTest, EntriesNameTheDebtsOnTheirSidesAndTheAddresseeOnBoth) {
    const QString firm = Firm(QStringLiteral("UAB Rąstų prekyba"));
    const QString sale = Book(QDate(2024, 2, 1), "T-1", "2410", "5000", 100.00, firm, 1);
    const QString purchase = Book(QDate(2024, 2, 2), "T-2", "2040", "4430", 100.00, firm, -1);
    const OrvoObjectUIOPtr op = NewOperation();
    DebtsCoverPosting posting = Posting(op);
    DebtsCoverSide primary = Side("2410", {Row(sale, 100.00)});
    primary.Addressee = firm;
    DebtsCoverSide secondary = Side("4430", {Row(purchase, 100.00)});
    secondary.Addressee = firm;
    ASSERT_TRUE(posting.Run(primary, secondary));
    const QVector<EntryView> entries = View(op);
    ASSERT_EQ(entries.size(), 1);
    EXPECT_EQ(entries[0].debit + " " + entries[0].credit, "4430 2410");
    EXPECT_EQ(entries[0].addressees,
              QStringList({"-1 " + sale, "1 " + firm, "1 " + purchase, "-1 " + firm}));
}

TEST_P(DebtsCoverPostingTest, RateChangeOfLossCreditsTheDebtAgainstTheExpenseAccount) {
    const OrvoObjectUIOPtr op = NewOperation();
    DebtsCoverPosting posting = Posting(op);
    ASSERT_TRUE(posting.PostRateChange(-12.34, "2410", {}, -1, QDate(2024, 3, 15)));
    ASSERT_TRUE(posting.PostRateChange(5.00, "4430", {}, 1, QDate(2024, 3, 15)));
    ASSERT_TRUE(posting.PostRateChange(0, "4430", {}, 1, QDate(2024, 3, 15)));
    const QVector<EntryView> entries = View(op);
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(entries[0].debit + " " + entries[0].credit, "6803 2410");
    EXPECT_DOUBLE_EQ(entries[0].sumA, 12.34);
    EXPECT_EQ(entries[1].debit + " " + entries[1].credit, "4430 5803");
    EXPECT_DOUBLE_EQ(entries[1].sumA, 5.00);
}

ORVO_STORAGE_BACKENDS(DebtsCoverPostingTest);

} // namespace
} // namespace orvo::test
