// Open debts as the settling windows read them (GetDebts1, GetDebts2, GetDebts3,
// GetDebtsByDebit, GetDebtsByCredit, GetDebts1New), on both backends: invoices, payments
// that refer to them, currency debts and their rate changes, suppliers, whole kinds,
// branches of a firm.
#include "debts_fixture.h"
#include "host/methods/debt_query.h"

using namespace orvo;
using namespace orvo::host;
using namespace orvo::host::testing;

namespace {

const QDate kJan10(2024, 1, 10);
const QDate kJan20(2024, 1, 20);
const QDate kMar31(2024, 3, 31);

class DebtListTest : public DebtsTest {};

} // namespace

TEST_P(DebtListTest, InvoicePartlyPaidLeavesTheRestOpen) {
    const qint64 invoice = Invoice(kCustomer, 1000.00, kJan10, QStringLiteral("PVM-15"));
    Payment(kCustomer, invoice, 400.00, kJan20);

    const RecordsetPtr rs = Debts(QStringLiteral("GetDebts1"), "2410", kMar31, kCustomer, 1);
    ASSERT_TRUE(rs);
    ASSERT_EQ(rs->RecordCount(), 1);
    rs->MoveFirst();
    EXPECT_EQ(Str(rs, "OIDR"), Ref(invoice));
    EXPECT_EQ(rs->Field(QStringLiteral("DateD")).toDate(), kJan10);
    EXPECT_EQ(Str(rs, "Number"), "PVM-15");
    EXPECT_EQ(Str(rs, "Comment"), "Sąskaita PVM-15");
    EXPECT_EQ(Str(rs, "FOIDR"), kCustomer);
    EXPECT_EQ(Str(rs, "AccountD"), "2410");
    EXPECT_EQ(Str(rs, "AccountC"), "5000");
    EXPECT_DOUBLE_EQ(Num(rs, "FullSum"), 1000.00);
    EXPECT_DOUBLE_EQ(Num(rs, "FullSumCurr"), 0.0);
    EXPECT_DOUBLE_EQ(Num(rs, "LikutisLt"), 600.00);
    EXPECT_DOUBLE_EQ(Num(rs, "LikutisCurr"), 0.0);
    EXPECT_EQ(Str(rs, "FCurrencyCode"), "   ");
    EXPECT_DOUBLE_EQ(Num(rs, "CurrentRate"), 0.0);
    EXPECT_DOUBLE_EQ(Num(rs, "CurrInfluence"), 0.0);
    EXPECT_EQ(rs->Field(QStringLiteral("InfluenceSign")).toInt32(), 1);
}

TEST_P(DebtListTest, FullyPaidInvoiceGivesNoRow) {
    const qint64 paid = Invoice(kCustomer, 1000.00, kJan10, QStringLiteral("PVM-15"));
    Payment(kCustomer, paid, 400.00, kJan20);
    Payment(kCustomer, paid, 600.00, QDate(2024, 2, 5));

    const RecordsetPtr rs = Debts(QStringLiteral("GetDebts1"), "2410", kMar31, kCustomer, 1);
    ASSERT_TRUE(rs);
    EXPECT_EQ(rs->RecordCount(), 0);
}

TEST_P(DebtListTest, PaymentsDoNotShowAsCreditDebtsOfTheirOwn) {
    const qint64 invoice = Invoice(kCustomer, 1000.00, kJan10, QStringLiteral("PVM-15"));
    Payment(kCustomer, invoice, 400.00, kJan20);

    const RecordsetPtr rs = Debts(QStringLiteral("GetDebts1"), "2410", kMar31, kCustomer, -1);
    ASSERT_TRUE(rs);
    EXPECT_EQ(rs->RecordCount(), 0);
}

TEST_P(DebtListTest, OverpaidInvoiceShowsTheOverpaymentAsANegativeRest) {
    const qint64 invoice = Invoice(kCustomer, 100.00, kJan10, QStringLiteral("PVM-15"));
    Payment(kCustomer, invoice, 100.00, kJan20);
    Payment(kCustomer, invoice, 100.00, kJan20);

    const RecordsetPtr rs = Debts(QStringLiteral("GetDebts1"), "2410", kMar31, kCustomer, 1);
    ASSERT_EQ(rs->RecordCount(), 1);
    rs->MoveFirst();
    EXPECT_DOUBLE_EQ(Num(rs, "LikutisLt"), -100.00);
}

TEST_P(DebtListTest, DollarInvoicePaidInPartKeepsCurrencyAndBaseRest) {
    // 100 USD at 0.92 is 92.00; 60 USD come in at 0.95, 57.00.
    const QVector<qint64> sale = Book(kJan10, QStringLiteral("USD-1"),
                                      {{QStringLiteral("2410"),
                                        QStringLiteral("5000"),
                                        92.00,
                                        {{1, kCustomer, QString()}},
                                        {QStringLiteral("USD"), 100.00, 0.92},
                                        {},
                                        QString()}});
    ASSERT_EQ(sale.size(), 1);
    Book(kJan20, QStringLiteral("MP-2"),
         {{QStringLiteral("2712"),
           QStringLiteral("2410"),
           57.00,
           {{-1, kCustomer, QString()}, {-1, Ref(sale.first()), QString()}},
           {QStringLiteral("USD"), 60.00, 0.95},
           {QStringLiteral("USD"), 60.00, 0.95},
           QString()}});

    const RecordsetPtr rs = Debts(QStringLiteral("GetDebts1"), "2410", kMar31, kCustomer, 1);
    ASSERT_EQ(rs->RecordCount(), 1);
    rs->MoveFirst();
    EXPECT_EQ(Str(rs, "FCurrencyCode"), "USD");
    EXPECT_DOUBLE_EQ(Num(rs, "FullSum"), 92.00);
    EXPECT_DOUBLE_EQ(Num(rs, "FullSumCurr"), 100.00);
    EXPECT_DOUBLE_EQ(Num(rs, "LikutisCurr"), 40.00);
    EXPECT_DOUBLE_EQ(Num(rs, "LikutisLt"), 35.00);
    EXPECT_DOUBLE_EQ(Num(rs, "RateCurr"), 0.92);
    EXPECT_GT(Num(rs, "CurrencyRate"), 0.0);
}

TEST_P(DebtListTest, PaymentInAnotherCurrencyReducesOnlyTheBaseRest) {
    const QVector<qint64> sale = Book(kJan10, QStringLiteral("USD-1"),
                                      {{QStringLiteral("2410"),
                                        QStringLiteral("5000"),
                                        92.00,
                                        {{1, kCustomer, QString()}},
                                        {QStringLiteral("USD"), 100.00, 0.92},
                                        {},
                                        QString()}});
    ASSERT_EQ(sale.size(), 1);
    Payment(kCustomer, sale.first(), 46.00, kJan20);

    const RecordsetPtr rs = Debts(QStringLiteral("GetDebts1"), "2410", kMar31, kCustomer, 1);
    ASSERT_EQ(rs->RecordCount(), 1);
    rs->MoveFirst();
    EXPECT_DOUBLE_EQ(Num(rs, "LikutisLt"), 46.00);
    EXPECT_DOUBLE_EQ(Num(rs, "LikutisCurr"), 100.00);
}

TEST_P(DebtListTest, PaymentDatedAfterTheAskedDateDoesNotCount) {
    const qint64 invoice = Invoice(kCustomer, 1000.00, kJan10, QStringLiteral("PVM-15"));
    Payment(kCustomer, invoice, 400.00, QDate(2024, 4, 5));

    RecordsetPtr rs = Debts(QStringLiteral("GetDebts1"), "2410", kMar31, kCustomer, 1);
    ASSERT_EQ(rs->RecordCount(), 1);
    rs->MoveFirst();
    EXPECT_DOUBLE_EQ(Num(rs, "LikutisLt"), 1000.00);

    rs = Debts(QStringLiteral("GetDebts1"), "2410", QDate(2024, 4, 30), kCustomer, 1);
    ASSERT_EQ(rs->RecordCount(), 1);
    rs->MoveFirst();
    EXPECT_DOUBLE_EQ(Num(rs, "LikutisLt"), 600.00);
}

TEST_P(DebtListTest, InvoiceDatedAfterTheAskedDateIsNotYetADebt) {
    Invoice(kCustomer, 1000.00, QDate(2024, 4, 2), QStringLiteral("PVM-16"));
    const RecordsetPtr rs = Debts(QStringLiteral("GetDebts1"), "2410", kMar31, kCustomer, 1);
    EXPECT_EQ(rs->RecordCount(), 0);
}

TEST_P(DebtListTest, RateChangeEntryReferringOnTheSameSideAddsToTheBaseRest) {
    const QVector<qint64> sale = Book(kJan10, QStringLiteral("USD-1"),
                                      {{QStringLiteral("2410"),
                                        QStringLiteral("5000"),
                                        92.00,
                                        {{1, kCustomer, QString()}},
                                        {QStringLiteral("USD"), 100.00, 0.92},
                                        {},
                                        QString()}});
    ASSERT_EQ(sale.size(), 1);
    // The dollar rose to 0.95: 3.00 more receivable, debit 2410 against income 536; the
    // entry bears the debt's currency with no currency amount.
    Book(QDate(2024, 1, 31), QStringLiteral("VK-1"),
         {{QStringLiteral("2410"),
           QStringLiteral("536"),
           3.00,
           {{1, Ref(sale.first()), QString()},
            {1, kCustomer, QString()},
            {-1, kCustomer, QString()}},
           {QStringLiteral("USD"), 0, 0},
           {},
           QString()}});

    const RecordsetPtr rs = Debts(QStringLiteral("GetDebts1"), "2410", kMar31, kCustomer, 1);
    ASSERT_EQ(rs->RecordCount(), 1) << "the rate change is no debt of its own";
    rs->MoveFirst();
    EXPECT_EQ(Str(rs, "OIDR"), Ref(sale.first()));
    EXPECT_DOUBLE_EQ(Num(rs, "LikutisLt"), 95.00);
    EXPECT_DOUBLE_EQ(Num(rs, "LikutisCurr"), 100.00);
}

TEST_P(DebtListTest, SupplierCreditDebtHasInfluenceSignMinusOne) {
    const QVector<qint64> bill = Book(kJan10, QStringLiteral("T-7"),
                                      {{QStringLiteral("6000"),
                                        QStringLiteral("4430"),
                                        800.00,
                                        {{-1, kSupplier, QStringLiteral("UAB Tiekėjas")}},
                                        {},
                                        {},
                                        QString()}});
    ASSERT_EQ(bill.size(), 1);
    Book(kJan20, QStringLiteral("MP-3"),
         {{QStringLiteral("4430"),
           QStringLiteral("2710"),
           300.00,
           {{1, kSupplier, QString()}, {1, Ref(bill.first()), QString()}},
           {},
           {},
           QString()}});

    const RecordsetPtr rs = Debts(QStringLiteral("GetDebts1"), "4430", kMar31, kSupplier, -1);
    ASSERT_EQ(rs->RecordCount(), 1);
    rs->MoveFirst();
    EXPECT_EQ(rs->Field(QStringLiteral("InfluenceSign")).toInt32(), -1);
    EXPECT_DOUBLE_EQ(Num(rs, "LikutisLt"), 500.00);
    EXPECT_EQ(Str(rs, "AccountC"), "4430");
    EXPECT_EQ(Debts(QStringLiteral("GetDebts1"), "4430", kMar31, kSupplier, 1)->RecordCount(), 0);
}

TEST_P(DebtListTest, WholeKindListsEveryFirmByDate) {
    Invoice(kOtherCustomer, 200.00, kJan20, QStringLiteral("B"));
    Invoice(kCustomer, 100.00, kJan10, QStringLiteral("A"));
    Invoice(kPerson, 50.00, kJan10, QStringLiteral("P"));

    const RecordsetPtr rs =
        Debts(QStringLiteral("GetDebts2"), "2410", kMar31, QStringLiteral("O0000100"), 1);
    EXPECT_EQ(Rows(rs, {"Number", "FOIDR", "LikutisLt"}),
              QStringList({"A|" + kCustomer + "|100", "B|" + kOtherCustomer + "|200"}));
}

TEST_P(DebtListTest, NoAddresseeListsEveryDebtOfTheAccount) {
    Invoice(kCustomer, 100.00, kJan10, QStringLiteral("A"));
    Invoice(kPerson, 50.00, kJan20, QStringLiteral("P"));
    Book(QDate(2024, 2, 1), QStringLiteral("N"),
         {{QStringLiteral("2410"), QStringLiteral("5000"), 25.00, {}, {}, {}, QString()}});

    const RecordsetPtr rs = Debts(QStringLiteral("GetDebts3"), "2410", kMar31, QString(), 1);
    EXPECT_EQ(Rows(rs, {"Number", "FOIDR", "LikutisLt"}),
              QStringList({"A|" + kCustomer + "|100", "P|" + kPerson + "|50", "N||25"}));
}

TEST_P(DebtListTest, DebitAndCreditVariantsTakeOneSideEach) {
    Invoice(kCustomer, 100.00, kJan10, QStringLiteral("A"));
    // An advance received without naming an invoice is a credit debt of the customer.
    Book(kJan20, QStringLiteral("AV"),
         {{QStringLiteral("2710"),
           QStringLiteral("2410"),
           30.00,
           {{-1, kCustomer, QString()}},
           {},
           {},
           QString()}});

    EXPECT_EQ(Rows(Debts(QStringLiteral("GetDebtsByDebit"), "2410", kMar31, kCustomer, 0),
                   {"Number", "InfluenceSign"}),
              QStringList({"A|1"}));
    EXPECT_EQ(Rows(Debts(QStringLiteral("GetDebtsByCredit"), "2410", kMar31, kCustomer, 0),
                   {"Number", "InfluenceSign"}),
              QStringList({"AV|-1"}));
    EXPECT_EQ(Rows(Debts(QStringLiteral("GetDebts1New"), "2410", kMar31, kCustomer, 0),
                   {"Number", "InfluenceSign"}),
              QStringList({"A|1", "AV|-1"}));
}

TEST_P(DebtListTest, BranchesAreIncludedOnlyWithTheFlag) {
    Database& db = session_->Db();
    ASSERT_TRUE(db.Execute(QStringLiteral("INSERT INTO Firms (Name) VALUES (?)"),
                           {Value(QStringLiteral("UAB Centras"))})
                    .ok());
    const qint64 parent = static_cast<qint64>(
        db.Query(QStringLiteral("SELECT MAX(ID) FROM Firms")).Scalar().toDouble());
    ASSERT_TRUE(
        db.Execute(QStringLiteral("INSERT INTO Firms (Name, ParentID) VALUES (?, ?)"),
                   {Value(QStringLiteral("UAB Centras, Kauno filialas")), Value(double(parent))})
            .ok());
    const qint64 branch = static_cast<qint64>(
        db.Query(QStringLiteral("SELECT MAX(ID) FROM Firms")).Scalar().toDouble());
    const QString parentRef = QStringLiteral("O0000100%1").arg(parent);
    const QString branchRef = QStringLiteral("O0000100%1").arg(branch);
    Invoice(parentRef, 100.00, kJan10, QStringLiteral("C"));
    Invoice(branchRef, 40.00, kJan20, QStringLiteral("K"));

    EXPECT_EQ(
        Rows(Debts(QStringLiteral("GetDebts1"), "2410", kMar31, parentRef, 1), {"Number", "FOIDR"}),
        QStringList({"C|" + parentRef}));
    EXPECT_EQ(Rows(Debts(QStringLiteral("GetDebts1"), "2410", kMar31, parentRef, 1, true),
                   {"Number", "FOIDR"}),
              QStringList({"C|" + parentRef, "K|" + branchRef}));
}

TEST_P(DebtListTest, PaymentBookedOnAnotherAccountDoesNotCoverTheDebt) {
    const qint64 invoice = Invoice(kCustomer, 100.00, kJan10, QStringLiteral("A"));
    Book(kJan20, QStringLiteral("X"),
         {{QStringLiteral("2710"),
           QStringLiteral("2420"),
           100.00,
           {{-1, kCustomer, QString()}, {-1, Ref(invoice), QString()}},
           {},
           {},
           QString()}});
    const RecordsetPtr rs = Debts(QStringLiteral("GetDebts1"), "2410", kMar31, kCustomer, 1);
    ASSERT_EQ(rs->RecordCount(), 1);
    rs->MoveFirst();
    EXPECT_DOUBLE_EQ(Num(rs, "LikutisLt"), 100.00);
}

TEST_P(DebtListTest, CoversFoundByReferenceOrByAccountGiveTheSameRests) {
    // A long list reads the covers account-wide instead of debt by debt: both roads agree.
    QVector<qint64> invoices;
    for (int i = 0; i < 12; ++i)
        invoices << Invoice(i % 2 ? kCustomer : kOtherCustomer, 10.00 + i, kJan10,
                            QStringLiteral("S%1").arg(i));
    for (int i = 0; i < 12; i += 3)
        Payment(i % 2 ? kCustomer : kOtherCustomer, invoices.at(i), 5.00, kJan20);
    Payment(kCustomer, invoices.at(1), 11.00, kJan20);

    DebtSelection s;
    s.Account = QStringLiteral("2410");
    s.Date = kMar31;
    s.Addressee = QStringLiteral("O0000100");
    s.Sign = 1;
    const DebtList byReference = DebtQuery(session_->Db(), 1000).Open(s);
    const DebtList byAccount = DebtQuery(session_->Db(), 0).Open(s);
    ASSERT_TRUE(byReference.ok() && byAccount.ok());
    auto rests = [](const DebtList& l) {
        QStringList out;
        for (const DebtRow& d : l.Rows)
            out << QStringLiteral("%1|%2").arg(d.EntryId).arg(d.RestCents);
        return out;
    };
    EXPECT_EQ(byReference.Rows.size(), 11);
    EXPECT_EQ(rests(byReference), rests(byAccount));
}

TEST_P(DebtListTest, EntryNamingTwoFirmsIsOneDebtUnderTheFirst) {
    Invoice(kCustomer, 30.00, kJan20, QStringLiteral("L"));
    Book(kJan10, QStringLiteral("D"),
         {{QStringLiteral("2410"),
           QStringLiteral("5000"),
           80.00,
           {{1, kOtherCustomer, QString()}, {1, kCustomer, QString()}},
           {},
           {},
           QString()}});

    const QStringList expected{"D|" + kOtherCustomer + "|80", "L|" + kCustomer + "|30"};
    EXPECT_EQ(
        Rows(Debts(QStringLiteral("GetDebts2"), "2410", kMar31, QStringLiteral("O0000100"), 1),
             {"Number", "FOIDR", "LikutisLt"}),
        expected);
    EXPECT_EQ(Rows(Debts(QStringLiteral("GetDebts3"), "2410", kMar31, QString(), 1),
                   {"Number", "FOIDR", "LikutisLt"}),
              expected);
}

TEST_P(DebtListTest, MissingDateIsRefused) {
    const BOResult r = Call(QStringLiteral("GetDebts1"), QStringLiteral("'0','2410'"));
    EXPECT_FALSE(r.ok());
}

ORVO_STORAGE_BACKENDS(DebtListTest);
