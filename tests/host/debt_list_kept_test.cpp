// The list rows the database keeps of the debts (BRDebtList): one per kept debt side and
// addressee, holding every column a debt list shows. They follow the open items through
// covers, deletions and changes of addressees and currency sides, and they follow the
// columns the open items do not count (the entry's text, rate and operation, the
// operation's number and comment, the addressee's shown name, the currency rate), on both
// backends. Checked against rows assembled here from the stored tables, and through the
// whole-kind debt list that reads them.
#include "debts_fixture.h"

#include "host/storage/debt_list_schema.h"
#include "host/storage/money.h"

#include <QMap>
#include <QSet>

using namespace orvo;
using namespace orvo::host;
using namespace orvo::host::testing;

namespace {

const QDate kJan(2024, 1, 15);
const QDate kFeb(2024, 2, 10);
const QDate kMar(2024, 3, 5);
const QDate kApr(2024, 4, 30);

class DebtListKeptTest : public DebtsTest {
protected:
    Database& Db() { return session_->Db(); }

    void Run(const QString& sql, const ValueArray& params = {}) {
        const ExecResult r = Db().Execute(sql, params);
        ASSERT_TRUE(r.ok()) << sql.toStdString() << ": " << r.Text.toStdString();
    }

    QueryResult Read(const QString& sql) {
        const QueryResult q = Db().Query(sql);
        EXPECT_TRUE(q.ok()) << sql.toStdString() << ": " << q.Text.toStdString();
        return q;
    }

    // One stored value as text, the same whatever the backend gave.
    enum class As { Id, Money, Rate, Date, Text };
    static QString Cell(const Value& v, As as) {
        if (v.isNull())
            return QStringLiteral("-");
        switch (as) {
        case As::Id:
            return QString::number(static_cast<qint64>(v.toDouble()));
        case As::Money:
            return QString::number(Money::CentsFromValue(v));
        case As::Rate:
            return QString::number(v.toDouble(), 'g', 12);
        case As::Date:
            return v.toDate().toString(Qt::ISODate);
        case As::Text:
            break;
        }
        return v.toString();
    }

    static QString Line(const QueryResult& q, int row, const QVector<As>& kinds) {
        QStringList cells;
        for (int c = 0; c < kinds.size(); ++c)
            cells << Cell(q.At(row, c), kinds.at(c));
        return cells.join(QLatin1Char('|'));
    }

    static const QVector<As>& Kinds() {
        static const QVector<As> kinds{
            As::Id,   As::Id,   As::Id,    As::Text, As::Date,  As::Date,  As::Id,   As::Money,
            As::Text, As::Text, As::Text,  As::Rate, As::Text,  As::Text,  As::Text, As::Text,
            As::Id,   As::Text, As::Money, As::Rate, As::Money, As::Money, As::Date};
        return kinds;
    }

    // Every kept list row, by entry, side and addressee row.
    QStringList Listed() {
        const QueryResult q = Read(QStringLiteral(
            "SELECT BRID, Sign, AddresseeID, Account, ClosedOn, DateD, BROperID, SumA, AccountD, "
            "AccountC, Info, CurrencyRate, Number, Comment, FOIDR, ShowString, CurrencyID, "
            "FCurrencyCode, SumCurr, RateCurr, RestSum, RestSumCurr, LastCoverDate FROM "
            "BRDebtList ORDER BY BRID, Sign, AddresseeID"));
        QStringList out;
        for (int i = 0; i < q.RowCount(); ++i)
            out << Line(q, i, Kinds());
        return out;
    }

    // The same rows put together here, table by table: every dated open item, once per
    // addressee row of its side that is no reference, with the entry, its operation and
    // the side's first currency row.
    QStringList Assembled() {
        const auto id = [](const QueryResult& q, int row, int column) {
            return static_cast<qint64>(q.At(row, column).toDouble());
        };
        const auto side = [](const Value& sign) { return sign.toInt32() == 1 ? 1 : -1; };
        const QueryResult entries = Read(QStringLiteral(
            "SELECT ID, BROperID, SumA, AccountD, AccountC, Info, CurrencyRateD, CurrencyRateC "
            "FROM BR"));
        QMap<qint64, int> entryRow;
        for (int i = 0; i < entries.RowCount(); ++i)
            entryRow.insert(id(entries, i, 0), i);
        const QueryResult operations =
            Read(QStringLiteral("SELECT ID, Number, Comment FROM BROpers"));
        QMap<qint64, int> operationRow;
        for (int i = 0; i < operations.RowCount(); ++i)
            operationRow.insert(id(operations, i, 0), i);
        const QueryResult properties = Read(QStringLiteral(
            "SELECT ID, BRID, Sign, FOIDR, ShowString FROM BRProperties ORDER BY ID"));
        const QueryResult currencies = Read(QStringLiteral(
            "SELECT ID, BRID, Sign, FCurrencyCode, SumCurr, RateCurr FROM BRCurrency ORDER BY ID"));
        const QueryResult kept = Read(QStringLiteral(
            "SELECT BRID, Sign, Account, ClosedOn, DateD, RestSum, RestSumCurr, LastCoverDate FROM "
            "BROpenItems WHERE DateD IS NOT NULL ORDER BY BRID, Sign"));

        QStringList out;
        for (int k = 0; k < kept.RowCount(); ++k) {
            const qint64 entry = id(kept, k, 0);
            const int sign = side(kept.At(k, 1));
            const int e = entryRow.value(entry, -1);
            if (e < 0)
                continue;
            const int o = operationRow.value(id(entries, e, 1), -1);
            int currency = -1;
            for (int c = 0; c < currencies.RowCount() && currency < 0; ++c)
                if (id(currencies, c, 1) == entry && side(currencies.At(c, 2)) == sign)
                    currency = c;
            QMap<qint64, QString> rows;
            for (int p = 0; p < properties.RowCount(); ++p) {
                const Value foidr = properties.At(p, 3);
                if (id(properties, p, 1) != entry || side(properties.At(p, 2)) != sign ||
                    foidr.isNull() || foidr.toString().startsWith(QLatin1String("O0201500")))
                    continue;
                const Value none;
                const auto cur = [&](int column) {
                    return currency < 0 ? none : currencies.At(currency, column);
                };
                const ValueArray cells{kept.At(k, 0),
                                       kept.At(k, 1),
                                       properties.At(p, 0),
                                       kept.At(k, 2),
                                       kept.At(k, 3),
                                       kept.At(k, 4),
                                       entries.At(e, 1),
                                       entries.At(e, 2),
                                       entries.At(e, 3),
                                       entries.At(e, 4),
                                       entries.At(e, 5),
                                       entries.At(e, sign == 1 ? 6 : 7),
                                       operations.At(o, 1),
                                       operations.At(o, 2),
                                       foidr,
                                       properties.At(p, 4),
                                       cur(0),
                                       cur(3),
                                       cur(4),
                                       cur(5),
                                       kept.At(k, 5),
                                       kept.At(k, 6),
                                       kept.At(k, 7)};
                QStringList line;
                for (int c = 0; c < cells.size(); ++c)
                    line << Cell(cells.at(c), Kinds().at(c));
                rows.insert(id(properties, p, 0), line.join(QLatin1Char('|')));
            }
            for (const QString& row : rows)
                out << row;
        }
        return out;
    }

    // The column `column` (as named in Listed) of the rows of one entry, in order.
    QStringList Column(qint64 entry, int column) {
        QStringList out;
        for (const QString& line : Listed())
            if (line.section(QLatin1Char('|'), 0, 0) == QString::number(entry))
                out << line.section(QLatin1Char('|'), column, column);
        return out;
    }

    qint64 OperationOf(qint64 entry) {
        const QueryResult q = Db().Query(QStringLiteral("SELECT BROperID FROM BR WHERE ID = ?"),
                                         {Value(static_cast<double>(entry))});
        return q.RowCount() == 1 ? static_cast<qint64>(q.At(0, 0).toDouble()) : 0;
    }

    // A sale in dollars, 920.00 in base and 1000.00 USD on the debit side, to a customer
    // and, on the same side, to a person as well.
    qint64 DollarInvoiceToTwo(const QDate& date) {
        return Book(date, QStringLiteral("USD1"),
                    {{QStringLiteral("2410"),
                      QStringLiteral("5000"),
                      920.00,
                      {{1, kCustomer, QStringLiteral("Klientas")},
                       {1, kPerson, QStringLiteral("Asmuo")}},
                      {QStringLiteral("USD"), 1000.00, 0.92},
                      {},
                      QStringLiteral("Doleriais")}},
                    QStringLiteral("Pardavimas"))
            .value(0);
    }

    static Value Id(qint64 id) { return Value(static_cast<double>(id)); }
};

} // namespace

TEST_P(DebtListKeptTest, EveryKeptDebtHasARowPerAddresseeWithTheColumnsAListShows) {
    const qint64 sale = Invoice(kCustomer, 1210.00, kJan, QStringLiteral("S-1"));
    const qint64 dollars = DollarInvoiceToTwo(kJan);
    const qint64 payment = Payment(kCustomer, sale, 1000.00, kFeb);
    const QStringList listed = Listed();
    EXPECT_EQ(listed, Assembled());
    // The invoice: one row; the dollar sale: one per addressee; the payment: none, since
    // its credit side refers to the invoice and its debit side has no addressee.
    EXPECT_EQ(Column(sale, 10), QStringList{QStringLiteral("Sąskaita S-1")});
    EXPECT_EQ(Column(sale, 12), QStringList{QStringLiteral("S-1")});
    EXPECT_EQ(Column(sale, 20), QStringList{QStringLiteral("21000")});
    EXPECT_EQ(Column(dollars, 14), (QStringList{kCustomer, kPerson}));
    EXPECT_EQ(Column(dollars, 17), (QStringList{QStringLiteral("USD"), QStringLiteral("USD")}));
    EXPECT_EQ(Column(dollars, 21),
              (QStringList{QStringLiteral("100000"), QStringLiteral("100000")}));
    EXPECT_TRUE(Column(payment, 0).isEmpty());
    EXPECT_EQ(listed.size(), 3);
}

TEST_P(DebtListKeptTest, CoversAndDeletionsReachTheRows) {
    const qint64 sale = Invoice(kCustomer, 1210.00, kJan, QStringLiteral("S-1"));
    const qint64 first = Payment(kCustomer, sale, 1000.00, kFeb);
    EXPECT_EQ(Column(sale, 20), QStringList{QStringLiteral("21000")});
    Payment(kCustomer, sale, 210.00, kMar);
    // Paid in full: the row stays, closed from the day of the last payment.
    EXPECT_EQ(Column(sale, 4), QStringList{QStringLiteral("2024-03-05")});
    EXPECT_EQ(Column(sale, 20), QStringList{QStringLiteral("0")});
    EXPECT_EQ(Listed(), Assembled());
    const BOResult deleted = Call(QStringLiteral("DO0201500_DeleteOrvoObject"),
                                  QStringLiteral("'O0201500%1'").arg(OperationOf(first)));
    ASSERT_TRUE(deleted.ok()) << deleted.Text.toStdString();
    EXPECT_EQ(Column(sale, 20), QStringList{QStringLiteral("100000")});
    EXPECT_EQ(Listed(), Assembled());
    Run(QStringLiteral("DELETE FROM BR WHERE ID = ?"), {Id(sale)});
    EXPECT_TRUE(Column(sale, 0).isEmpty());
    EXPECT_EQ(Listed(), Assembled());
}

TEST_P(DebtListKeptTest, ChangingTheEntrysTextRateOrOperationReachesTheRows) {
    const qint64 sale = DollarInvoiceToTwo(kJan);
    const qint64 other = Invoice(kOtherCustomer, 50.00, kJan, QStringLiteral("S-2"));
    Run(QStringLiteral("UPDATE BR SET Info = ?, CurrencyRateD = ? WHERE ID = ?"),
        {Value(QStringLiteral("Pataisyta")), Value(1.0869), Id(sale)});
    EXPECT_EQ(Column(sale, 10),
              (QStringList{QStringLiteral("Pataisyta"), QStringLiteral("Pataisyta")}));
    EXPECT_EQ(Column(sale, 11), (QStringList{QStringLiteral("1.0869"), QStringLiteral("1.0869")}));
    EXPECT_EQ(Listed(), Assembled());
    // The credit side's rate is not the debit debt's.
    Run(QStringLiteral("UPDATE BR SET CurrencyRateC = ? WHERE ID = ?"), {Value(2.5), Id(sale)});
    EXPECT_EQ(Column(sale, 11), (QStringList{QStringLiteral("1.0869"), QStringLiteral("1.0869")}));
    // Moved into another operation, the entry shows that operation's number.
    Run(QStringLiteral("UPDATE BR SET BROperID = ? WHERE ID = ?"),
        {Id(OperationOf(other)), Id(sale)});
    EXPECT_EQ(Column(sale, 12), (QStringList{QStringLiteral("S-2"), QStringLiteral("S-2")}));
    EXPECT_EQ(Listed(), Assembled());
}

TEST_P(DebtListKeptTest, ChangingTheOperationsNumberOrCommentReachesItsEntriesRows) {
    const qint64 sale = DollarInvoiceToTwo(kJan);
    const qint64 other = Invoice(kOtherCustomer, 50.00, kJan, QStringLiteral("S-2"));
    Run(QStringLiteral("UPDATE BROpers SET Number = ?, Comment = ? WHERE ID = ?"),
        {Value(QStringLiteral("USD-9")), Value(QStringLiteral("Eksportas")),
         Id(OperationOf(sale))});
    EXPECT_EQ(Column(sale, 12), (QStringList{QStringLiteral("USD-9"), QStringLiteral("USD-9")}));
    EXPECT_EQ(Column(sale, 13),
              (QStringList{QStringLiteral("Eksportas"), QStringLiteral("Eksportas")}));
    EXPECT_EQ(Column(other, 12), QStringList{QStringLiteral("S-2")});
    EXPECT_EQ(Listed(), Assembled());
}

TEST_P(DebtListKeptTest, ChangingAnAddresseeReachesItsRowOnly) {
    const qint64 sale = DollarInvoiceToTwo(kJan);
    Run(QStringLiteral("UPDATE BRProperties SET ShowString = ? WHERE BRID = ? AND FOIDR = ?"),
        {Value(QStringLiteral("UAB Naujas vardas")), Id(sale), Value(kCustomer)});
    EXPECT_EQ(Column(sale, 15),
              (QStringList{QStringLiteral("UAB Naujas vardas"), QStringLiteral("Asmuo")}));
    EXPECT_EQ(Listed(), Assembled());
    // Named to another firm, the row names it; removed, the row goes.
    Run(QStringLiteral("UPDATE BRProperties SET FOIDR = ? WHERE BRID = ? AND FOIDR = ?"),
        {Value(kOtherCustomer), Id(sale), Value(kCustomer)});
    EXPECT_EQ(Column(sale, 14), (QStringList{kOtherCustomer, kPerson}));
    Run(QStringLiteral("DELETE FROM BRProperties WHERE BRID = ? AND FOIDR = ?"),
        {Id(sale), Value(kPerson)});
    EXPECT_EQ(Column(sale, 14), QStringList{kOtherCustomer});
    EXPECT_EQ(Listed(), Assembled());
}

TEST_P(DebtListKeptTest, ChangingTheCurrencyRowReachesTheRowsAndASecondRowDoesNotReplaceTheFirst) {
    const qint64 sale = DollarInvoiceToTwo(kJan);
    Run(QStringLiteral("UPDATE BRCurrency SET RateCurr = ? WHERE BRID = ?"),
        {Value(0.95), Id(sale)});
    EXPECT_EQ(Column(sale, 19), (QStringList{QStringLiteral("0.95"), QStringLiteral("0.95")}));
    EXPECT_EQ(Listed(), Assembled());
    Run(QStringLiteral("INSERT INTO BRCurrency (BRID, Sign, RateCurr, SumCurr, FCurrencyCode) "
                       "VALUES (?, 1, ?, ?, ?)"),
        {Id(sale), Value(25.0), Money::CentsValue(3680000), Value(QStringLiteral("CZK"))});
    EXPECT_EQ(Column(sale, 17), (QStringList{QStringLiteral("USD"), QStringLiteral("USD")}));
    EXPECT_EQ(Listed(), Assembled());
    Run(QStringLiteral("UPDATE BRCurrency SET SumCurr = ? WHERE BRID = ? AND FCurrencyCode = ?"),
        {Money::CentsValue(90000), Id(sale), Value(QStringLiteral("USD"))});
    EXPECT_EQ(Column(sale, 18), (QStringList{QStringLiteral("90000"), QStringLiteral("90000")}));
    EXPECT_EQ(Column(sale, 21), (QStringList{QStringLiteral("90000"), QStringLiteral("90000")}));
    EXPECT_EQ(Listed(), Assembled());
}

TEST_P(DebtListKeptTest, ABookThatAlreadyKeepsDebtsGetsItsRowsWhenTheTableIsAdded) {
    const qint64 sale = Invoice(kCustomer, 1210.00, kJan, QStringLiteral("S-1"));
    Payment(kCustomer, sale, 1000.00, kFeb);
    DollarInvoiceToTwo(kMar);
    // Back to how a book stood before: no triggers and an empty table.
    const QStringList drops =
        Db().Kind() == Backend::PostgreSQL
            ? QStringList{QStringLiteral("DROP TRIGGER BRDebtListKeep ON BROpenItems"),
                          QStringLiteral("DROP TRIGGER BRDebtListEntry ON BR"),
                          QStringLiteral("DROP TRIGGER BRDebtListOperation ON BROpers"),
                          QStringLiteral("DROP TRIGGER BRDebtListProperty ON BRProperties"),
                          QStringLiteral("DROP TRIGGER BRDebtListCurrency ON BRCurrency"),
                          QStringLiteral("DROP FUNCTION BRDebtListKeep()"),
                          QStringLiteral("DROP FUNCTION BRDebtListEntry()"),
                          QStringLiteral("DROP FUNCTION BRDebtListOperation()"),
                          QStringLiteral("DROP FUNCTION BRDebtListProperty()"),
                          QStringLiteral("DROP FUNCTION BRDebtListCurrency()")}
            : QStringList{QStringLiteral("DROP TRIGGER BRDebtListKeptInsert"),
                          QStringLiteral("DROP TRIGGER BRDebtListKeptDelete"),
                          QStringLiteral("DROP TRIGGER BRDebtListKeptUpdate"),
                          QStringLiteral("DROP TRIGGER BRDebtListEntryUpdate"),
                          QStringLiteral("DROP TRIGGER BRDebtListOperationUpdate"),
                          QStringLiteral("DROP TRIGGER BRDebtListPropertyUpdate"),
                          QStringLiteral("DROP TRIGGER BRDebtListCurrencyUpdate")};
    for (const QString& sql : drops + QStringList{QStringLiteral("DELETE FROM BRDebtList")})
        Run(sql);
    ASSERT_TRUE(Listed().isEmpty());

    const ResultRecord applied = DebtListMigration().Apply(Db());
    ASSERT_TRUE(applied.ok()) << applied.Text.toStdString();
    EXPECT_EQ(Listed().size(), 3);
    EXPECT_EQ(Listed(), Assembled());
    // And the triggers keep the rows afterwards.
    Payment(kCustomer, sale, 210.00, kApr);
    EXPECT_EQ(Column(sale, 20), QStringList{QStringLiteral("0")});
    EXPECT_EQ(Listed(), Assembled());
}

TEST_P(DebtListKeptTest, TheTableMadeAgainInListOrderHoldsTheSameRowsAndIsKeptAfterwards) {
    const qint64 sale = Invoice(kCustomer, 1210.00, kJan, QStringLiteral("S-1"));
    Payment(kCustomer, sale, 1000.00, kFeb);
    DollarInvoiceToTwo(kMar);
    const QStringList before = Listed();
    ASSERT_EQ(before.size(), 3);

    const ResultRecord applied = DebtListOrderMigration().Apply(Db());
    ASSERT_TRUE(applied.ok()) << applied.Text.toStdString();
    EXPECT_EQ(Listed(), before);
    // The triggers find the new table by its name.
    Payment(kCustomer, sale, 210.00, kApr);
    EXPECT_EQ(Column(sale, 20), QStringList{QStringLiteral("0")});
    EXPECT_EQ(Listed(), Assembled());
    // A debt side's row under one addressee row is there once, whatever its closing day.
    const ExecResult twice = Db().Execute(
        QStringLiteral("INSERT INTO BRDebtList (BRID, Sign, AddresseeID, Account, ClosedOn, "
                       "DateD, BROperID, SumA, RestSum, RestSumCurr) SELECT BRID, Sign, "
                       "AddresseeID, Account, ?, DateD, BROperID, SumA, RestSum, RestSumCurr "
                       "FROM BRDebtList WHERE BRID = ?"),
        {Value(kMar), Id(sale)});
    EXPECT_FALSE(twice.ok());
}

TEST_P(DebtListKeptTest, AWholeKindListShowsWhatEachAddresseesListShows) {
    const qint64 sale = Invoice(kCustomer, 1210.00, kJan, QStringLiteral("S-1"));
    Payment(kCustomer, sale, 1000.00, kFeb);
    Invoice(kOtherCustomer, 300.00, kFeb, QStringLiteral("S-2"));
    DollarInvoiceToTwo(kMar);
    Run(QStringLiteral("UPDATE BROpers SET Comment = ? WHERE ID = ?"),
        {Value(QStringLiteral("Pakeista")), Id(OperationOf(sale))});
    Run(QStringLiteral("UPDATE BR SET Info = '' WHERE ID = ?"), {Id(sale)});
    const auto lines = [](const RecordsetPtr& rs) {
        QStringList out;
        if (!rs)
            return out;
        const int fields = rs->FieldCount();
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
            QStringList cells;
            for (int f = 0; f < fields; ++f)
                cells << rs->Field(f).toString();
            out << cells.join(QLatin1Char('|'));
        }
        return out;
    };
    const QStringList whole = lines(Debts(QStringLiteral("GetDebts2"), QStringLiteral("2410"), kApr,
                                          QStringLiteral("O0000100"), 1));
    QStringList each =
        lines(Debts(QStringLiteral("GetDebts1"), QStringLiteral("2410"), kApr, kCustomer, 1)) +
        lines(Debts(QStringLiteral("GetDebts1"), QStringLiteral("2410"), kApr, kOtherCustomer, 1));
    ASSERT_EQ(whole.size(), 3);
    // In date order; the firm's own lists give the same rows.
    EXPECT_EQ(QSet<QString>(whole.cbegin(), whole.cend()),
              QSet<QString>(each.cbegin(), each.cend()));
    // An entry without its own text shows the operation's comment, changed after saving.
    EXPECT_EQ(whole.first().section(QLatin1Char('|'), 3, 3), QStringLiteral("Pakeista"));
    // Before the debt's date nothing of it shows; the payment covers only from its date.
    const RecordsetPtr early = Debts(QStringLiteral("GetDebts2"), QStringLiteral("2410"), kJan,
                                     QStringLiteral("O0000100"), 1);
    ASSERT_TRUE(early);
    EXPECT_EQ(early->RecordCount(), 1);
    EXPECT_DOUBLE_EQ(Num(early, "LikutisLt"), 1210.00);
}

ORVO_STORAGE_BACKENDS(DebtListKeptTest);
