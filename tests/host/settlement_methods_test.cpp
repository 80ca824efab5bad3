// The other reads of the settling windows, on both backends: the addressees of a cover
// (GetCoverFirms), the addressee rows of an account (GetBRPropertiesByAcc), the test of
// mixed revaluation variants (GetCheckInfluenceType), deferred entries and their
// write-offs (GetCoversInFuture), clients by document number
// (DO0201500_GetBROpersByNumber) and the selection window's row shape
// (GetSelectParameters).
#include "debts_fixture.h"

using namespace orvo;
using namespace orvo::host;
using namespace orvo::host::testing;

namespace {

const QDate kJan10(2024, 1, 10);
const QDate kJan20(2024, 1, 20);

class SettlementMethodsTest : public DebtsTest {
protected:
    RecordsetPtr Read(const QString& method, const QString& text) {
        const BOResult r = Call(method, text);
        EXPECT_TRUE(r.ok()) << method.toStdString() << ": " << r.Text.toStdString();
        return r.Data.toRecordset();
    }
};

} // namespace

TEST_P(SettlementMethodsTest, CoverFirmsAreThoseOwingAndOwedAtOnce) {
    // The customer also supplies: a receivable on 2410 and a payable on 4430.
    Invoice(kCustomer, 500.00, kJan10, QStringLiteral("A"));
    Book(kJan20, QStringLiteral("T"),
         {{QStringLiteral("6000"),
           QStringLiteral("4430"),
           200.00,
           {{-1, kCustomer, QStringLiteral("UAB Ąžuolas")}},
           {},
           {},
           QString()}});
    // Another customer owes but is owed nothing.
    Invoice(kOtherCustomer, 70.00, kJan10, QStringLiteral("B"));

    const RecordsetPtr rs = Read(QStringLiteral("GetCoverFirms"),
                                 QStringLiteral("'2024.01.31','4430','2410','O0000100'"));
    EXPECT_EQ(Rows(rs, {"FOIDR"}), QStringList({kCustomer}));
    EXPECT_EQ(Read(QStringLiteral("GetCoverFirms"),
                   QStringLiteral("'2024.01.15','4430','2410','O0000100'"))
                  ->RecordCount(),
              0)
        << "the payable is not there yet";
}

TEST_P(SettlementMethodsTest, PropertiesByAccountPutTheAddresseeFirstWithItsCompanions) {
    Book(kJan10, QStringLiteral("1"),
         {{QStringLiteral("2710"),
           QStringLiteral("2410"),
           10.00,
           {{-1, QStringLiteral("O000050077"), QStringLiteral("LT12 7300")},
            {-1, kCustomer, QStringLiteral("UAB Ąžuolas")}},
           {},
           {},
           QString()}});

    EXPECT_EQ(Rows(Read(QStringLiteral("GetBRPropertiesByAcc"),
                        QStringLiteral("'2410','%1',-1").arg(kCustomer)),
                   {"FOIDR", "ShowString", "Sign"}),
              QStringList({kCustomer + "|UAB Ąžuolas|-1", "O000050077|LT12 7300|-1"}));
    EXPECT_EQ(Rows(Read(QStringLiteral("GetBRPropertiesByAcc"),
                        QStringLiteral("'2410','%1',1").arg(kOtherCustomer)),
                   {"FOIDR", "Sign"}),
              QStringList({kOtherCustomer + "|1"}))
        << "an addressee without entries gives its own row";
}

TEST_P(SettlementMethodsTest, CheckInfluenceTypeFindsTheOtherVariant) {
    const qint64 sale = Invoice(kCustomer, 92.00, kJan10, QStringLiteral("A"));
    // A revaluation of the balance: no reference to any entry.
    Book(QDate(2024, 1, 31), QStringLiteral("VB"),
         {{QStringLiteral("2410"), QStringLiteral("536"), 2.00, {}, {}, {}, QString()}});

    const QString byOpers = QStringLiteral("'2410','536','636',0");
    const QString byAddr = QStringLiteral("'2410','536','636',1");
    EXPECT_EQ(Rows(Read(QStringLiteral("GetCheckInfluenceType"), byOpers), {"Number", "SumA"}),
              QStringList({"VB|2"}));
    EXPECT_EQ(Read(QStringLiteral("GetCheckInfluenceType"), byAddr)->RecordCount(), 0);

    // A revaluation debt by debt refers to the debt.
    Book(QDate(2024, 2, 29), QStringLiteral("VO"),
         {{QStringLiteral("636"),
           QStringLiteral("2410"),
           1.00,
           {{-1, Ref(sale), QString()}},
           {},
           {},
           QString()}});
    EXPECT_EQ(Rows(Read(QStringLiteral("GetCheckInfluenceType"), byAddr), {"Number", "SumA"}),
              QStringList({"VO|1"}));
}

TEST_P(SettlementMethodsTest, CoversInFutureListsWriteOffsOfADeferredEntry) {
    // A year's insurance paid in advance, written off monthly.
    const QVector<qint64> paid = Book(QDate(2024, 1, 5), QStringLiteral("D-1"),
                                      {{QStringLiteral("2910"),
                                        QStringLiteral("2710"),
                                        300.00,
                                        {},
                                        {},
                                        {},
                                        QStringLiteral("Draudimas")}},
                                      QStringLiteral("Draudimo įmoka"));
    ASSERT_EQ(paid.size(), 1);
    for (int month = 2; month <= 3; ++month)
        Book(QDate(2024, month, 1), QStringLiteral("N-%1").arg(month),
             {{QStringLiteral("6000"),
               QStringLiteral("2910"),
               100.00,
               {{-1, Ref(paid.first()), QString()}},
               {},
               {},
               QString()}});

    const QString text = QStringLiteral("'2024.01.01','2024.01.31','2910',1,%1");
    const RecordsetPtr rs = Read(QStringLiteral("GetCoversInFuture"), text.arg(1));
    EXPECT_EQ(
        Rows(rs, {"OIDR", "Number", "SumA", "Nr", "BRSumA", "MonthFrom", "MonthCount", "Comment",
                  "BRComment"}),
        QStringList({Ref(paid.first()) + "|D-1|300|N-2|100|2024.02|2|Draudimo įmoka|Draudimas",
                     Ref(paid.first()) + "|D-1|300|N-3|100|2024.02|2|Draudimo įmoka|Draudimas"}));

    Book(QDate(2024, 4, 1), QStringLiteral("N-4"),
         {{QStringLiteral("6000"),
           QStringLiteral("2910"),
           100.00,
           {{-1, Ref(paid.first()), QString()}},
           {},
           {},
           QString()}});
    EXPECT_EQ(Read(QStringLiteral("GetCoversInFuture"), text.arg(1))->RecordCount(), 0)
        << "written off in full";
    EXPECT_EQ(Read(QStringLiteral("GetCoversInFuture"), text.arg(0))->RecordCount(), 3);
}

TEST_P(SettlementMethodsTest, CoversInFutureShowsAnEntryNotYetWrittenOff) {
    Book(QDate(2024, 1, 5), QStringLiteral("D-2"),
         {{QStringLiteral("2710"), QStringLiteral("4910"), 120.00, {}, {}, {}, QString()}});
    const RecordsetPtr rs = Read(QStringLiteral("GetCoversInFuture"),
                                 QStringLiteral("'2024.01.01','2024.12.31','4910',0,1"));
    EXPECT_EQ(Rows(rs, {"Number", "RelatedOIDR", "MonthCount"}), QStringList({"D-2||0"}));
}

TEST_P(SettlementMethodsTest, OperationsByNumberNameEachClientOnce) {
    Database& db = session_->Db();
    ASSERT_TRUE(db.Execute(QStringLiteral("INSERT INTO Firms (Name) VALUES (?)"),
                           {Value(QStringLiteral("UAB Ąžuolas"))})
                    .ok());
    const QString firm =
        QStringLiteral("O0000100%1")
            .arg(static_cast<qint64>(
                db.Query(QStringLiteral("SELECT MAX(ID) FROM Firms")).Scalar().toDouble()));
    Book(kJan10, QStringLiteral("SF-9"),
         {{QStringLiteral("2410"),
           QStringLiteral("5000"),
           10.00,
           {{1, firm, QStringLiteral("senas pavadinimas")}, {-1, firm, QString()}},
           {},
           {},
           QString()},
          {QStringLiteral("2410"),
           QStringLiteral("4492"),
           2.10,
           {{1, firm, QString()}},
           {},
           {},
           QString()}});
    Book(kJan20, QStringLiteral("SF-9"),
         {{QStringLiteral("2410"),
           QStringLiteral("5000"),
           5.00,
           {{1, kPerson, QStringLiteral("Jonas")}},
           {},
           {},
           QString()}});
    Book(kJan20, QStringLiteral("SF-10"),
         {{QStringLiteral("2410"),
           QStringLiteral("5000"),
           5.00,
           {{1, kOtherCustomer, QString()}},
           {},
           {},
           QString()}});

    const RecordsetPtr rs =
        Read(QStringLiteral("DO0201500_GetBROpersByNumber"), QStringLiteral("'SF-9',0"));
    EXPECT_EQ(Rows(rs, {"ClientName", "FOIDR", "Number"}),
              QStringList({"UAB Ąžuolas|" + firm + "|SF-9", "Jonas|" + kPerson + "|SF-9"}));
}

TEST_P(SettlementMethodsTest, SelectParametersGiveAnEmptyRowShape) {
    const RecordsetPtr rs = Read(QStringLiteral("GetSelectParameters"), QStringLiteral("None"));
    ASSERT_TRUE(rs);
    EXPECT_EQ(rs->RecordCount(), 0);
    for (const char* f :
         {"OIDR", "FOIDR", "DateD", "Comment", "Info", "PaymentSum", "PaymentSumCurr",
          "PaymentCurrCode", "PaymentCurrRate", "AccountD", "AccountC"})
        EXPECT_TRUE(rs->HasField(QString::fromLatin1(f))) << f;
}

ORVO_STORAGE_BACKENDS(SettlementMethodsTest);
