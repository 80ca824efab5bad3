// What the database keeps of the debts (BROpenItems): it follows every insert, deletion
// and change of an entry, of its addressees and references and of its currency sides, however
// they are written, and a book that already holds entries is counted when the table is
// added. Checked against a count made here from the entries themselves, on both backends,
// and through the debt lists that read it.
#include "debts_fixture.h"

#include "host/storage/money.h"
#include "host/storage/open_items_schema.h"

#include <QHash>
#include <QMap>
#include <algorithm>
#include <chrono>
#include <thread>

using namespace orvo;
using namespace orvo::host;
using namespace orvo::host::testing;

namespace {

class OpenItemsKeptTest : public DebtsTest {
protected:
    Database& Db() { return session_->Db(); }

    static QString Day(const QDate& d) { return d.isValid() ? d.toString(Qt::ISODate) : QString(); }

    // "entry|sign|account|date|rest|currency rest|last cover|closed on" of every kept row,
    // in order.
    QStringList Kept() {
        const QueryResult q = Db().Query(QStringLiteral(
            "SELECT BRID, Sign, Account, DateD, RestSum, RestSumCurr, LastCoverDate, ClosedOn "
            "FROM BROpenItems ORDER BY BRID, Sign"));
        EXPECT_TRUE(q.ok()) << q.Text.toStdString();
        QStringList out;
        for (int i = 0; i < q.RowCount(); ++i)
            out << QStringLiteral("%1|%2|%3|%4|%5|%6|%7|%8")
                       .arg(static_cast<qint64>(q.At(i, 0).toDouble()))
                       .arg(q.At(i, 1).toInt32())
                       .arg(q.At(i, 2).toString(), Day(q.At(i, 3).toDate()))
                       .arg(Money::CentsFromValue(q.At(i, 4)))
                       .arg(Money::CentsFromValue(q.At(i, 5)))
                       .arg(q.At(i, 6).isNull() ? QString() : Day(q.At(i, 6).toDate()),
                            Day(q.At(i, 7).toDate()));
        return out;
    }

    // "rest|currency rest|last cover|closed on" of one side, or "none".
    QString KeptOf(qint64 entry, int sign = 1) {
        const QString key = QStringLiteral("%1|%2|").arg(entry).arg(sign);
        for (const QString& line : Kept())
            if (line.startsWith(key))
                return line.section(QLatin1Char('|'), 4);
        return QStringLiteral("none");
    }

    // The same rows counted here from the entries: every side that could be a debt and
    // has an addressee or is covered by a dated entry through a reference on the side
    // where the debt's account stands; the opposite side reduces the rest, the same side
    // adds to it, and the currency rest moves only by a side in the debt's own currency.
    QStringList Recounted() {
        struct Side {
            QString code;
            qint64 sum = 0;
        };
        struct EntryRow {
            QDate date;
            qint64 sum = 0;
            QString account[2];
            QMap<qint64, Side> currency[2]; // by row ID, the first names the side's currency
            bool refers[2] = {false, false};
            bool addressed[2] = {false, false};
        };
        auto at = [](int sign) { return sign == 1 ? 0 : 1; };
        auto code = [](const Value& v) {
            const QString c = v.isNull() ? QString() : v.toString().trimmed();
            return c.isEmpty() ? QStringLiteral("   ") : c;
        };
        QMap<qint64, EntryRow> entries;
        const QueryResult b =
            Db().Query(QStringLiteral("SELECT ID, DateD, SumA, AccountD, AccountC FROM BR"));
        for (int i = 0; i < b.RowCount(); ++i) {
            EntryRow& e = entries[static_cast<qint64>(b.At(i, 0).toDouble())];
            e.date = b.At(i, 1).isNull() ? QDate() : b.At(i, 1).toDate();
            e.sum = Money::CentsFromValue(b.At(i, 2));
            e.account[0] = b.At(i, 3).toString();
            e.account[1] = b.At(i, 4).toString();
        }
        const QueryResult c = Db().Query(
            QStringLiteral("SELECT ID, BRID, Sign, SumCurr, FCurrencyCode FROM BRCurrency"));
        for (int i = 0; i < c.RowCount(); ++i)
            entries[static_cast<qint64>(c.At(i, 1).toDouble())]
                .currency[at(c.At(i, 2).toInt32() == 1 ? 1 : -1)]
                .insert(static_cast<qint64>(c.At(i, 0).toDouble()),
                        {code(c.At(i, 4)), Money::CentsFromValue(c.At(i, 3))});
        struct Reference {
            qint64 from;
            int sign;
        };
        QHash<QString, QVector<Reference>> byTarget;
        const QueryResult p =
            Db().Query(QStringLiteral("SELECT BRID, Sign, FOIDR FROM BRProperties"));
        for (int i = 0; i < p.RowCount(); ++i) {
            if (p.At(i, 2).isNull())
                continue;
            const QString foidr = p.At(i, 2).toString();
            const qint64 from = static_cast<qint64>(p.At(i, 0).toDouble());
            const int sign = p.At(i, 1).toInt32() == 1 ? 1 : -1;
            if (!foidr.startsWith(QLatin1String("O0201500"))) {
                entries[from].addressed[at(sign)] = true;
                continue;
            }
            entries[from].refers[at(sign)] = true;
            byTarget[foidr].append({from, sign});
        }
        QStringList out;
        for (auto it = entries.cbegin(); it != entries.cend(); ++it) {
            for (const int sign : {1, -1}) {
                const EntryRow& debt = it.value();
                const QString account = debt.account[at(sign)];
                if (account.isEmpty() || debt.refers[at(sign)])
                    continue;
                const Side own = debt.currency[at(sign)].isEmpty()
                                     ? Side{QStringLiteral("   "), 0}
                                     : debt.currency[at(sign)].first();
                qint64 rest = debt.sum;
                qint64 restCurr = own.code.trimmed().isEmpty() ? 0 : own.sum;
                QDate last;
                int covers = 0;
                for (const Reference& r :
                     byTarget.value(QStringLiteral("O0201500%1").arg(it.key()))) {
                    const EntryRow& cover = entries.value(r.from);
                    if (r.from == it.key() || !cover.date.isValid() ||
                        cover.account[at(r.sign)] != account)
                        continue;
                    const int direction = r.sign == sign ? 1 : -1;
                    rest += direction * cover.sum;
                    for (const Side& k : cover.currency[at(r.sign)])
                        if (!own.code.trimmed().isEmpty() && k.code == own.code)
                            restCurr += direction * k.sum;
                    last = last.isValid() && last > cover.date ? last : cover.date;
                    ++covers;
                }
                if (covers == 0 && !debt.addressed[at(sign)])
                    continue;
                const QDate closed = rest == 0 && restCurr == 0 && debt.date.isValid()
                                         ? std::max(debt.date, last.isValid() ? last : debt.date)
                                         : QDate(9999, 12, 31);
                out << QStringLiteral("%1|%2|%3|%4|%5|%6|%7|%8")
                           .arg(it.key())
                           .arg(sign)
                           .arg(account, Day(debt.date))
                           .arg(rest)
                           .arg(restCurr)
                           .arg(Day(last), Day(closed));
            }
        }
        return out;
    }

    qint64 OperationOf(qint64 entry) {
        const QueryResult q = Db().Query(QStringLiteral("SELECT BROperID FROM BR WHERE ID = ?"),
                                         {Value(static_cast<double>(entry))});
        return q.RowCount() == 1 ? static_cast<qint64>(q.At(0, 0).toDouble()) : 0;
    }

    void Run(const QString& sql, const ValueArray& params = {}) {
        const ExecResult r = Db().Execute(sql, params);
        ASSERT_TRUE(r.ok()) << sql.toStdString() << ": " << r.Text.toStdString();
    }

    // A sale in dollars: 920.00 in base, 1000.00 USD on the debit side.
    qint64 DollarInvoice(const QDate& date) {
        return Book(date, QStringLiteral("USD1"),
                    {{QStringLiteral("2410"),
                      QStringLiteral("5000"),
                      920.00,
                      {{1, kCustomer, QString()}},
                      {QStringLiteral("USD"), 1000.00, 0.92},
                      {},
                      QString()}})
            .value(0);
    }

    // A dollar receipt for it: `base` in base, `dollars` USD on the credit side.
    qint64 DollarPayment(qint64 invoice, double base, double dollars, const QDate& date) {
        return Book(date, QStringLiteral("USD2"),
                    {{QStringLiteral("2710"),
                      QStringLiteral("2410"),
                      base,
                      {{-1, kCustomer, QString()}, {-1, Ref(invoice), QString()}},
                      {},
                      {QStringLiteral("USD"), dollars, base / dollars},
                      QString()}})
            .value(0);
    }
};

const QDate kJan(2024, 1, 15);
const QDate kFeb(2024, 2, 10);
const QDate kMar(2024, 3, 5);

} // namespace

TEST_P(OpenItemsKeptTest, AddressedOrCoveredDebtsAreKeptWithTheirRestsAndClosingDay) {
    const qint64 paidInPart = Invoice(kCustomer, 1210.00, kJan, QStringLiteral("1"));
    const qint64 paidInFull = Invoice(kCustomer, 500.00, kJan, QStringLiteral("2"));
    const qint64 unpaid = Invoice(kOtherCustomer, 300.00, kJan, QStringLiteral("3"));
    const qint64 payment = Payment(kCustomer, paidInPart, 1000.00, kFeb);
    Payment(kCustomer, paidInFull, 200.00, kFeb);
    Payment(kCustomer, paidInFull, 300.00, kMar);
    EXPECT_EQ(KeptOf(paidInPart), QStringLiteral("21000|0|2024-02-10|9999-12-31"));
    EXPECT_EQ(KeptOf(paidInFull), QStringLiteral("0|0|2024-03-05|2024-03-05"));
    EXPECT_EQ(KeptOf(unpaid), QStringLiteral("30000|0||9999-12-31"));
    // A payment's credit side refers to a debt; its debit side has no addressee.
    EXPECT_EQ(KeptOf(payment, -1), QStringLiteral("none"));
    EXPECT_EQ(KeptOf(payment, 1), QStringLiteral("none"));
    EXPECT_EQ(Kept().size(), 3);
    EXPECT_EQ(Kept(), Recounted());
}

TEST_P(OpenItemsKeptTest, DeletingThePaymentsOperationForgetsItsCover) {
    const qint64 sale = Invoice(kCustomer, 1210.00, kJan, QStringLiteral("1"));
    const qint64 first = Payment(kCustomer, sale, 1000.00, kFeb);
    Payment(kCustomer, sale, 10.00, kMar);
    const BOResult deleted = Call(QStringLiteral("DO0201500_DeleteOrvoObject"),
                                  QStringLiteral("'O0201500%1'").arg(OperationOf(first)));
    ASSERT_TRUE(deleted.ok()) << deleted.Text.toStdString();
    EXPECT_EQ(KeptOf(sale), QStringLiteral("120000|0|2024-03-05|9999-12-31"));
    EXPECT_EQ(Kept(), Recounted());
}

TEST_P(OpenItemsKeptTest, DeletingTheLastCoveringEntryLeavesTheDebtWhole) {
    const qint64 sale = Invoice(kCustomer, 1210.00, kJan, QStringLiteral("1"));
    const qint64 payment = Payment(kCustomer, sale, 1210.00, kFeb);
    ASSERT_EQ(KeptOf(sale), QStringLiteral("0|0|2024-02-10|2024-02-10"));
    Run(QStringLiteral("DELETE FROM BR WHERE ID = ?"), {Value(static_cast<double>(payment))});
    EXPECT_EQ(KeptOf(sale), QStringLiteral("121000|0||9999-12-31"));
    EXPECT_EQ(Kept(), Recounted());
}

TEST_P(OpenItemsKeptTest, ChangingThePaymentsSumDateOrAccountRecountsTheDebt) {
    const qint64 sale = Invoice(kCustomer, 1210.00, kJan, QStringLiteral("1"));
    const qint64 payment = Payment(kCustomer, sale, 1000.00, kFeb);
    Run(QStringLiteral("UPDATE BR SET SumA = ?, DateD = ? WHERE ID = ?"),
        {Value(qint32(121000)), Value(kMar), Value(static_cast<double>(payment))});
    EXPECT_EQ(KeptOf(sale), QStringLiteral("0|0|2024-03-05|2024-03-05"));
    EXPECT_EQ(Kept(), Recounted());
    // Booked on another account, the payment no longer covers the debt.
    Run(QStringLiteral("UPDATE BR SET AccountC = ? WHERE ID = ?"),
        {Value(QStringLiteral("2411")), Value(static_cast<double>(payment))});
    EXPECT_EQ(KeptOf(sale), QStringLiteral("121000|0||9999-12-31"));
    EXPECT_EQ(Kept(), Recounted());
}

TEST_P(OpenItemsKeptTest, ChangingTheDebtsOwnSumDateOrAccountRecountsIt) {
    const qint64 sale = Invoice(kCustomer, 1210.00, kJan, QStringLiteral("1"));
    Payment(kCustomer, sale, 1000.00, kFeb);
    Run(QStringLiteral("UPDATE BR SET SumA = ? WHERE ID = ?"),
        {Value(qint32(100000)), Value(static_cast<double>(sale))});
    EXPECT_EQ(KeptOf(sale), QStringLiteral("0|0|2024-02-10|2024-02-10"));
    EXPECT_EQ(Kept(), Recounted());
    // Dated after its payment, the debt closes on its own date.
    Run(QStringLiteral("UPDATE BR SET DateD = ? WHERE ID = ?"),
        {Value(kMar), Value(static_cast<double>(sale))});
    EXPECT_EQ(KeptOf(sale), QStringLiteral("0|0|2024-02-10|2024-03-05"));
    Run(QStringLiteral("UPDATE BR SET AccountD = ? WHERE ID = ?"),
        {Value(QStringLiteral("2411")), Value(static_cast<double>(sale))});
    EXPECT_EQ(KeptOf(sale), QStringLiteral("100000|0||9999-12-31"));
    EXPECT_EQ(Kept(), Recounted());
}

TEST_P(OpenItemsKeptTest, ChangingAReferenceMovesTheCoverToTheOtherDebt) {
    const qint64 first = Invoice(kCustomer, 1210.00, kJan, QStringLiteral("1"));
    const qint64 second = Invoice(kCustomer, 800.00, kJan, QStringLiteral("2"));
    Payment(kCustomer, first, 800.00, kFeb);
    Run(QStringLiteral("UPDATE BRProperties SET FOIDR = ? WHERE FOIDR = ?"),
        {Value(Ref(second)), Value(Ref(first))});
    EXPECT_EQ(KeptOf(first), QStringLiteral("121000|0||9999-12-31"));
    EXPECT_EQ(KeptOf(second), QStringLiteral("0|0|2024-02-10|2024-02-10"));
    EXPECT_EQ(Kept(), Recounted());
    // A reference removed by hand takes its cover away too.
    Run(QStringLiteral("DELETE FROM BRProperties WHERE FOIDR = ?"), {Value(Ref(second))});
    EXPECT_EQ(KeptOf(second), QStringLiteral("80000|0||9999-12-31"));
    EXPECT_EQ(Kept(), Recounted());
}

TEST_P(OpenItemsKeptTest, AReferenceOnTheDebtsOwnSideMakesItNoDebt) {
    const qint64 sale = Invoice(kCustomer, 1210.00, kJan, QStringLiteral("1"));
    const qint64 other = Invoice(kCustomer, 10.00, kJan, QStringLiteral("2"));
    Payment(kCustomer, sale, 1000.00, kFeb);
    // The invoice now adds to another debit debt itself: it is no debt of its own.
    Run(QStringLiteral("INSERT INTO BRProperties (BRID, Sign, FOIDR) VALUES (?, 1, ?)"),
        {Value(static_cast<double>(sale)), Value(Ref(other))});
    EXPECT_EQ(KeptOf(sale), QStringLiteral("none"));
    EXPECT_EQ(KeptOf(other), QStringLiteral("122000|0|2024-01-15|9999-12-31"));
    EXPECT_EQ(Kept(), Recounted());
}

TEST_P(OpenItemsKeptTest, AnAddresseeAddedToASideKeepsItAndItsRemovalForgetsIt) {
    const QVector<qint64> ids =
        Book(kJan, QStringLiteral("B"),
             {{QStringLiteral("6000"), QStringLiteral("4430"), 300.00, {}, {}, {}, QString()}});
    ASSERT_EQ(ids.size(), 1);
    const qint64 bill = ids.first();
    EXPECT_EQ(KeptOf(bill, -1), QStringLiteral("none"));
    Run(QStringLiteral("INSERT INTO BRProperties (BRID, Sign, FOIDR) VALUES (?, -1, ?)"),
        {Value(static_cast<double>(bill)), Value(kSupplier)});
    EXPECT_EQ(KeptOf(bill, -1), QStringLiteral("30000|0||9999-12-31"));
    EXPECT_EQ(KeptOf(bill, 1), QStringLiteral("none"));
    EXPECT_EQ(Kept(), Recounted());
    Run(QStringLiteral("DELETE FROM BRProperties WHERE BRID = ?"),
        {Value(static_cast<double>(bill))});
    EXPECT_EQ(KeptOf(bill, -1), QStringLiteral("none"));
}

TEST_P(OpenItemsKeptTest, ACurrencyDebtKeepsItsCurrencyRestAndFollowsTheCurrencySides) {
    const qint64 sale = DollarInvoice(kJan);
    const qint64 payment = DollarPayment(sale, 460.00, 500.00, kFeb);
    EXPECT_EQ(KeptOf(sale), QStringLiteral("46000|50000|2024-02-10|9999-12-31"));
    EXPECT_EQ(Kept(), Recounted());
    // Paid in euros after all: the dollar rest stays whole.
    Run(QStringLiteral("UPDATE BRCurrency SET FCurrencyCode = ? WHERE BRID = ?"),
        {Value(QStringLiteral("EUR")), Value(static_cast<double>(payment))});
    EXPECT_EQ(KeptOf(sale), QStringLiteral("46000|100000|2024-02-10|9999-12-31"));
    EXPECT_EQ(Kept(), Recounted());
    Run(QStringLiteral("DELETE FROM BRCurrency WHERE BRID = ?"),
        {Value(static_cast<double>(payment))});
    EXPECT_EQ(Kept(), Recounted());
    // The debt itself loses its currency: a base debt has no currency rest.
    Run(QStringLiteral("DELETE FROM BRCurrency WHERE BRID = ?"),
        {Value(static_cast<double>(sale))});
    EXPECT_EQ(KeptOf(sale), QStringLiteral("46000|0|2024-02-10|9999-12-31"));
    EXPECT_EQ(Kept(), Recounted());
}

TEST_P(OpenItemsKeptTest, AnEntryAddedAfterTheReferencesToItIsCountedWithThem) {
    // An import may write a reference before the entry it names.
    const qint64 sale = Invoice(kCustomer, 100.00, kJan, QStringLiteral("1"));
    const qint64 payment = Payment(kCustomer, sale, 40.00, kFeb);
    const qint64 future = payment + 1000;
    Run(QStringLiteral("INSERT INTO BRProperties (BRID, Sign, FOIDR) VALUES (?, -1, ?)"),
        {Value(static_cast<double>(payment)), Value(Ref(future))});
    Run(QStringLiteral("INSERT INTO BR (ID, BROperID, DateD, SumA, AccountD, AccountC) VALUES "
                       "(?, ?, ?, ?, ?, ?)"),
        {Value(static_cast<double>(future)), Value(static_cast<double>(OperationOf(sale))),
         Value(kJan), Value(qint32(9000)), Value(QStringLiteral("2410")),
         Value(QStringLiteral("5000"))});
    EXPECT_EQ(KeptOf(sale), QStringLiteral("6000|0|2024-02-10|9999-12-31"));
    EXPECT_EQ(KeptOf(future), QStringLiteral("5000|0|2024-02-10|9999-12-31"));
    EXPECT_EQ(Kept(), Recounted());
}

TEST_P(OpenItemsKeptTest, ABookThatAlreadyHoldsEntriesIsCountedWhenTheTableIsAdded) {
    const qint64 sale = Invoice(kCustomer, 1210.00, kJan, QStringLiteral("1"));
    Payment(kCustomer, sale, 1000.00, kFeb);
    const qint64 dollars = DollarInvoice(kJan);
    DollarPayment(dollars, 920.00, 1000.00, kMar);
    // Back to how a book stood before: no triggers and an empty table.
    const QStringList drops =
        Db().Kind() == Backend::PostgreSQL
            ? QStringList{QStringLiteral("DROP TRIGGER BROpenItemsKeepEntry ON BR"),
                          QStringLiteral("DROP TRIGGER BROpenItemsKeepCurrency ON BRCurrency"),
                          QStringLiteral("DROP TRIGGER BROpenItemsKeepProperty ON BRProperties"),
                          QStringLiteral("DROP FUNCTION BROpenItemsKeepEntry()"),
                          QStringLiteral("DROP FUNCTION BROpenItemsKeepCurrency()"),
                          QStringLiteral("DROP FUNCTION BROpenItemsKeepProperty()"),
                          QStringLiteral("DROP FUNCTION BROpenItemsRecount(bigint[])"),
                          QStringLiteral("DROP FUNCTION BROpenItemsTarget(text)")}
            : QStringList{QStringLiteral("DROP TRIGGER BROpenItemsEntryInsert"),
                          QStringLiteral("DROP TRIGGER BROpenItemsEntryDelete"),
                          QStringLiteral("DROP TRIGGER BROpenItemsEntryUpdate"),
                          QStringLiteral("DROP TRIGGER BROpenItemsPropertyInsert"),
                          QStringLiteral("DROP TRIGGER BROpenItemsPropertyDelete"),
                          QStringLiteral("DROP TRIGGER BROpenItemsPropertyUpdate"),
                          QStringLiteral("DROP TRIGGER BROpenItemsCurrencyInsert"),
                          QStringLiteral("DROP TRIGGER BROpenItemsCurrencyDelete"),
                          QStringLiteral("DROP TRIGGER BROpenItemsCurrencyUpdate")};
    for (const QString& sql : drops + QStringList{QStringLiteral("DELETE FROM BROpenItems")})
        Run(sql);
    ASSERT_TRUE(Kept().isEmpty());

    const ResultRecord applied = OpenItemsMigration().Apply(Db());
    ASSERT_TRUE(applied.ok()) << applied.Text.toStdString();
    EXPECT_EQ(KeptOf(sale), QStringLiteral("21000|0|2024-02-10|9999-12-31"));
    EXPECT_EQ(KeptOf(dollars), QStringLiteral("0|0|2024-03-05|2024-03-05"));
    EXPECT_EQ(Kept(), Recounted());

    // And the triggers keep counting afterwards.
    Payment(kCustomer, sale, 210.00, kMar);
    EXPECT_EQ(Kept(), Recounted());
    EXPECT_EQ(KeptOf(sale), QStringLiteral("0|0|2024-03-05|2024-03-05"));
}

TEST_P(OpenItemsKeptTest, ListsAtADateBeforeALaterCoverCountOnlyTheCoversUpToIt) {
    const qint64 sale = Invoice(kCustomer, 1000.00, kJan, QStringLiteral("1"));
    Payment(kCustomer, sale, 400.00, kFeb);
    Payment(kCustomer, sale, 600.00, kMar);
    ASSERT_EQ(KeptOf(sale), QStringLiteral("0|0|2024-03-05|2024-03-05"));
    const QStringList fields{QStringLiteral("OIDR"), QStringLiteral("LikutisLt")};
    for (const char* method : {"GetDebts1", "GetDebts2", "GetDebts3"}) {
        const QString who = QString::fromLatin1(method) == QLatin1String("GetDebts1")
                                ? kCustomer
                                : (QString::fromLatin1(method) == QLatin1String("GetDebts2")
                                       ? QStringLiteral("O0000100")
                                       : QString());
        EXPECT_EQ(
            Rows(Debts(QString::fromLatin1(method), QStringLiteral("2410"), kJan, who, 1), fields),
            QStringList({Ref(sale) + QStringLiteral("|1000")}))
            << method;
        EXPECT_EQ(Rows(Debts(QString::fromLatin1(method), QStringLiteral("2410"), kMar.addDays(-1),
                             who, 1),
                       fields),
                  QStringList({Ref(sale) + QStringLiteral("|600")}))
            << method;
        EXPECT_TRUE(
            Rows(Debts(QString::fromLatin1(method), QStringLiteral("2410"), kMar, who, 1), fields)
                .isEmpty())
            << method;
    }
}

TEST_P(OpenItemsKeptTest, AClosedDebtOpenedAgainByALaterRateChangeIsListed) {
    // A rate-change entry on the debt's own side adds to its rest after it was paid.
    const qint64 sale = Invoice(kCustomer, 1000.00, kJan, QStringLiteral("1"));
    Payment(kCustomer, sale, 1000.00, kFeb);
    Book(kMar, QStringLiteral("RC"),
         {{QStringLiteral("2410"),
           QStringLiteral("5360"),
           12.50,
           {{1, kCustomer, QString()}, {1, Ref(sale), QString()}},
           {},
           {},
           QString()}});
    EXPECT_EQ(KeptOf(sale), QStringLiteral("1250|0|2024-03-05|9999-12-31"));
    EXPECT_EQ(Kept(), Recounted());
    const QStringList fields{QStringLiteral("OIDR"), QStringLiteral("LikutisLt")};
    EXPECT_TRUE(Rows(Debts(QStringLiteral("GetDebts2"), QStringLiteral("2410"), kFeb,
                           QStringLiteral("O0000100"), 1),
                     fields)
                    .isEmpty());
    EXPECT_EQ(Rows(Debts(QStringLiteral("GetDebts2"), QStringLiteral("2410"), kMar,
                         QStringLiteral("O0000100"), 1),
                   fields),
              QStringList({Ref(sale) + QStringLiteral("|12.5")}));
}

TEST_P(OpenItemsKeptTest, TwoWritersCoveringOneDebtAtOnceBothCount) {
    if (!IsPostgres())
        GTEST_SKIP() << "SQLite lets one writer in at a time";
    const qint64 sale = Invoice(kCustomer, 1000.00, kJan, QStringLiteral("1"));
    const qint64 operation = OperationOf(sale);
    // One payment of `cents` for the sale through its own connection, left uncommitted. The
    // two are dated apart, so that nothing else the database keeps makes them wait.
    auto pay = [&](Database& db, qint32 cents, const QDate& date) {
        const IdResult id = db.NextId();
        if (!id.ok())
            return id.Text;
        const Value entry(static_cast<double>(id.Id));
        const ExecResult stored = db.Execute(
            QStringLiteral("INSERT INTO BR (ID, BROperID, DateD, SumA, AccountD, AccountC) "
                           "VALUES (?, ?, ?, ?, ?, ?)"),
            {entry, Value(static_cast<double>(operation)), Value(date), Value(cents),
             Value(QStringLiteral("2710")), Value(QStringLiteral("2410"))});
        if (!stored.ok())
            return stored.Text;
        const ExecResult reference =
            db.Execute(QStringLiteral("INSERT INTO BRProperties (BRID, Sign, FOIDR) VALUES (?, "
                                      "-1, ?)"),
                       {entry, Value(Ref(sale))});
        return reference.ok() ? QString() : reference.Text;
    };
    DatabasePtr first = OpenBook(OpenMode::Existing);
    DatabasePtr second = OpenBook(OpenMode::Existing);
    ASSERT_TRUE(first && second);
    ASSERT_TRUE(first->Begin().ok());
    ASSERT_EQ(pay(*first, 30000, kFeb), QString());
    QString secondError = QStringLiteral("not run");
    std::thread other([&] {
        // Waits for the first writer, then counts the debt with its payment in.
        if (!second->Begin().ok())
            return;
        secondError = pay(*second, 40000, kMar);
        if (secondError.isEmpty() && !second->Commit().ok())
            secondError = QStringLiteral("commit failed");
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    const bool committed = first->Commit().ok();
    other.join();
    ASSERT_TRUE(committed);
    EXPECT_TRUE(secondError.isEmpty()) << secondError.toStdString();
    EXPECT_EQ(KeptOf(sale), QStringLiteral("30000|0|2024-03-05|9999-12-31"));
    EXPECT_EQ(Kept(), Recounted());
}

ORVO_STORAGE_BACKENDS(OpenItemsKeptTest);
