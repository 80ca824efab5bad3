// The demonstration book on both backends: what CreateDemoBook writes (currencies with two
// years of daily rates, firms with a branch, people, banks, IBAN accounts, two users with
// their rights), that the rates are found by plain SQL, that Lithuanian letters survive,
// and that a book which already holds data is refused without a single row written.
#include "frame/security_header.h"
#include "host/catalogues/catalogue_kinds.h"
#include "host/demo/demo_book.h"
#include "host/demo/demo_data.h"
#include "host/demo/demo_rate_series.h"
#include "storage_fixture.h"

#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <cmath>

namespace orvo::host {
namespace {

using testing::StorageTest;

// Two years back from this day hold no 29 February: 731 days.
const QDate kToday(2026, 6, 30);

const QStringList kTables = {
    QStringLiteral("Settings"),   QStringLiteral("Constants"),     QStringLiteral("Employees"),
    QStringLiteral("Users"),      QStringLiteral("Rights"),        QStringLiteral("Firms"),
    QStringLiteral("Persons"),    QStringLiteral("Banks"),         QStringLiteral("BankAccounts"),
    QStringLiteral("Currencies"), QStringLiteral("CurrencyRates"),
};

class DemoBookTest : public StorageTest {
protected:
    void SetUp() override {
        StorageTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        db_ = OpenBook();
        ASSERT_TRUE(db_);
    }

    void Create(const QDate& today = kToday) {
        const ResultRecord r = CreateDemoBook(*db_, today);
        ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    }

    QueryResult Rows(const QString& sql, const ValueArray& params = {},
                     const QStringList& dateColumns = {}) {
        QueryResult r = db_->Query(sql, params, dateColumns);
        EXPECT_TRUE(r.ok()) << r.Text.toStdString() << " in " << sql.toStdString();
        return r;
    }

    qint64 Count(const QString& sql, const ValueArray& params = {}) {
        return static_cast<qint64>(Rows(sql, params).Scalar().toDouble());
    }

    // A table name is the test's own text, not a value.
    qint64 CountOf(const QString& table) {
        return Count(QStringLiteral("SELECT COUNT(*) FROM %1").arg(table));
    }

    QMap<QString, qint64> CountAll() {
        QMap<QString, qint64> counts;
        for (const QString& table : kTables)
            counts.insert(table, CountOf(table));
        return counts;
    }

    // Rows of the accountant's right under `key`: ReadFlag, DeleteFlag, EditFlag,
    // CreateFlag, FifthFlag.
    QueryResult AccountantRight(const QString& key) {
        return Rows(QStringLiteral("SELECT r.ReadFlag, r.DeleteFlag, r.EditFlag, r.CreateFlag, "
                                   "r.FifthFlag FROM Rights r JOIN Users u ON u.ID = r.UserID "
                                   "WHERE u.Code = ? AND r.RightKey = ?"),
                    {Value(QStringLiteral("buhalteris")), Value(key)});
    }

    DatabasePtr db_;
};

// Two years ending on `today`, both ends included.
qint64 DaysOfTwoYearsEndingOn(const QDate& today) {
    return today.addYears(-2).daysTo(today) + 1;
}

// The Lithuanian personal code's check digit: weights 1..9,1, and 3..9,1..3 when the
// first sum leaves 10.
bool PersonalCodeIsValid(const QString& code) {
    if (!QRegularExpression(QStringLiteral("^[1-6]\\d{10}$")).match(code).hasMatch())
        return false;
    const auto sum = [&](const int(&weights)[10]) {
        int s = 0;
        for (int i = 0; i < 10; ++i)
            s += code.at(i).digitValue() * weights[i];
        return s % 11;
    };
    constexpr int first[10] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 1};
    constexpr int second[10] = {3, 4, 5, 6, 7, 8, 9, 1, 2, 3};
    int check = sum(first);
    if (check == 10) {
        check = sum(second);
        if (check == 10)
            check = 0;
    }
    return check == code.at(10).digitValue();
}

// An IBAN is valid when, with its first four characters moved to the end and letters
// read as 10..35, it leaves 1 modulo 97.
bool IbanIsValid(const QString& iban) {
    const QString moved = iban.mid(4) + iban.left(4);
    int remainder = 0;
    for (const QChar c : moved) {
        const QString digits =
            c.isDigit() ? QString(c) : QString::number(c.toUpper().unicode() - 'A' + 10);
        for (const QChar d : digits)
            remainder = (remainder * 10 + d.digitValue()) % 97;
    }
    return remainder == 1;
}

TEST_P(DemoBookTest, HasExactlyOneOwnFirm) {
    Create();
    const QueryResult own =
        Rows(QStringLiteral("SELECT Name, Code, VATCode, City FROM Firms WHERE MyFirmFlag <> 0"));
    ASSERT_EQ(own.RowCount(), 1);
    EXPECT_EQ(own.At(0, "Name").toString(), QStringLiteral("UAB Orvo demonstracinė"));
    EXPECT_FALSE(own.At(0, "Code").toString().isEmpty());
    EXPECT_TRUE(own.At(0, "VATCode").toString().startsWith(QStringLiteral("LT")));
    EXPECT_EQ(own.At(0, "City").toString(), QStringLiteral("Vilnius"));
    EXPECT_GE(CountOf(QStringLiteral("Firms")), 11);
}

TEST_P(DemoBookTest, EuroIsTheOneBaseCurrencyAndTheBookConstant) {
    Create();
    const QueryResult base = Rows(QStringLiteral(
        "SELECT Code, Name, State, TwoCurr, TwoSmall FROM Currencies WHERE BaseCurrency <> 0"));
    ASSERT_EQ(base.RowCount(), 1);
    EXPECT_EQ(base.At(0, "Code").toString(), QStringLiteral("EUR"));
    EXPECT_EQ(base.At(0, "Name").toString(), QStringLiteral("Euras"));
    EXPECT_EQ(base.At(0, "State").toString(), QStringLiteral("ES"));
    EXPECT_EQ(base.At(0, "TwoCurr").toString(), QStringLiteral("eurai"));
    EXPECT_EQ(base.At(0, "TwoSmall").toString(), QStringLiteral("centai"));
    EXPECT_EQ(Rows(QStringLiteral("SELECT Value FROM Constants WHERE Name = ?"),
                   {Value(QStringLiteral("BaseCurrency"))})
                  .Scalar()
                  .toString(),
              QStringLiteral("EUR"));
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM CurrencyRates r JOIN Currencies c ON "
                                   "c.ID = r.CurrencyID WHERE c.Code = ?"),
                    {Value(QStringLiteral("EUR"))}),
              0)
        << "the base currency has no rate of its own";
    const QueryResult foreign = Rows(
        QStringLiteral("SELECT Code, Name FROM Currencies WHERE BaseCurrency = 0 ORDER BY Code"));
    ASSERT_EQ(foreign.RowCount(), 3);
    EXPECT_EQ(foreign.At(0, "Code").toString(), QStringLiteral("GBP"));
    EXPECT_EQ(foreign.At(0, "Name").toString(), QStringLiteral("Svaras sterlingų"));
    EXPECT_EQ(foreign.At(1, "Code").toString(), QStringLiteral("PLN"));
    EXPECT_EQ(foreign.At(1, "Name").toString(), QStringLiteral("Lenkijos zlotas"));
    EXPECT_EQ(foreign.At(2, "Code").toString(), QStringLiteral("USD"));
    EXPECT_EQ(foreign.At(2, "Name").toString(), QStringLiteral("JAV doleris"));
}

TEST_P(DemoBookTest, EachForeignCurrencyHasOneRateForEveryDayOfTwoYears) {
    Create();
    const qint64 days = DaysOfTwoYearsEndingOn(kToday);
    ASSERT_EQ(days, 731);
    for (const char* code : {"USD", "GBP", "PLN"}) {
        SCOPED_TRACE(code);
        const QueryResult r = Rows(
            QStringLiteral("SELECT COUNT(*), COUNT(DISTINCT r.DateD), MIN(r.DateD) AS \"First\", "
                           "MAX(r.DateD) AS \"Last\" FROM CurrencyRates r JOIN Currencies c ON "
                           "c.ID = r.CurrencyID WHERE c.Code = ?"),
            {Value(QString::fromLatin1(code))}, {QStringLiteral("First"), QStringLiteral("Last")});
        EXPECT_EQ(r.At(0, 0).toInt32(), days);
        EXPECT_EQ(r.At(0, 1).toInt32(), days);
        EXPECT_EQ(r.At(0, "First").toDate(), kToday.addYears(-2));
        EXPECT_EQ(r.At(0, "Last").toDate(), kToday);
    }
}

TEST_P(DemoBookTest, RateCountFollowsTheCalendarAcrossALeapDay) {
    const QDate today(2024, 3, 15);
    Create(today);
    // 2022-03-15 .. 2024-03-15 holds 29 February 2024.
    ASSERT_EQ(DaysOfTwoYearsEndingOn(today), 732);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM CurrencyRates r JOIN Currencies c ON "
                                   "c.ID = r.CurrencyID WHERE c.Code = ?"),
                    {Value(QStringLiteral("USD"))}),
              732);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM CurrencyRates WHERE DateD = ?"),
                    {Value(QDate(2024, 2, 29))}),
              3);
}

TEST_P(DemoBookTest, TodaysRateIsQuotedToFourDecimalsAndRateIsItsReciprocal) {
    Create();
    for (const char* code : {"USD", "GBP", "PLN"}) {
        SCOPED_TRACE(code);
        const QueryResult r = Rows(QStringLiteral("SELECT r.Rate, r.CurrencyRate FROM "
                                                  "CurrencyRates r JOIN Currencies c ON c.ID = "
                                                  "r.CurrencyID WHERE c.Code = ? AND r.DateD = ?"),
                                   {Value(QString::fromLatin1(code)), Value(kToday)});
        ASSERT_EQ(r.RowCount(), 1);
        const double rate = r.At(0, "Rate").toDouble();
        const double quoted = r.At(0, "CurrencyRate").toDouble();
        EXPECT_NEAR(rate * quoted, 1.0, 1e-9);
        EXPECT_NEAR(quoted * 10000, std::round(quoted * 10000), 1e-6) << quoted;
    }
}

TEST_P(DemoBookTest, QuotedRatesStayInTheirBandsAndDriftSmoothly) {
    Create();
    struct Band {
        const char* Code;
        double Low;
        double High;
    };
    for (const Band& band :
         {Band{"USD", 1.05, 1.12}, Band{"GBP", 0.83, 0.88}, Band{"PLN", 4.25, 4.45}}) {
        SCOPED_TRACE(band.Code);
        const QueryResult r = Rows(QStringLiteral("SELECT r.CurrencyRate, r.Rate FROM "
                                                  "CurrencyRates r JOIN Currencies c ON c.ID = "
                                                  "r.CurrencyID WHERE c.Code = ? ORDER BY r.DateD"),
                                   {Value(QString::fromLatin1(band.Code))});
        ASSERT_GT(r.RowCount(), 1);
        double lowest = band.High;
        double highest = band.Low;
        double previous = r.At(0, 0).toDouble();
        for (int i = 0; i < r.RowCount(); ++i) {
            const double quoted = r.At(i, 0).toDouble();
            ASSERT_GE(quoted, band.Low) << "day " << i;
            ASSERT_LE(quoted, band.High) << "day " << i;
            ASSERT_NEAR(r.At(i, 1).toDouble() * quoted, 1.0, 1e-9) << "day " << i;
            // A day moves the rate by well under one per cent.
            ASSERT_LT(std::abs(quoted - previous) / previous, 0.01) << "day " << i;
            lowest = std::min(lowest, quoted);
            highest = std::max(highest, quoted);
            previous = quoted;
        }
        // Over two years the rate really moves: at least a fifth of its band.
        EXPECT_GT(highest - lowest, (band.High - band.Low) / 5);
    }
}

TEST_P(DemoBookTest, LatestRateOnOrBeforeADateIsFoundByPlainSql) {
    Create();
    const QString latest = QStringLiteral(
        "SELECT r.DateD, r.Rate, r.CurrencyRate FROM CurrencyRates r JOIN Currencies c ON c.ID = "
        "r.CurrencyID WHERE c.Code = ? AND r.DateD <= ? ORDER BY r.DateD DESC LIMIT 1");
    const Value usd(QStringLiteral("USD"));

    // After the last rate: the last one, today's.
    QueryResult r = Rows(latest, {usd, Value(kToday.addDays(10))});
    ASSERT_EQ(r.RowCount(), 1);
    EXPECT_EQ(r.At(0, "DateD").toDate(), kToday);

    // A Sunday inside the range has its own rate.
    const QDate sunday(2025, 11, 9);
    ASSERT_EQ(sunday.dayOfWeek(), 7);
    r = Rows(latest, {usd, Value(sunday)});
    ASSERT_EQ(r.RowCount(), 1);
    EXPECT_EQ(r.At(0, "DateD").toDate(), sunday);
    EXPECT_NEAR(r.At(0, "Rate").toDouble() * r.At(0, "CurrencyRate").toDouble(), 1.0, 1e-9);

    // Once a day's rate is gone, the day before stands in for it.
    ASSERT_EQ(
        db_->Execute(QStringLiteral("DELETE FROM CurrencyRates WHERE DateD = ?"), {Value(sunday)})
            .RowsAffected,
        3);
    r = Rows(latest, {usd, Value(sunday)});
    ASSERT_EQ(r.RowCount(), 1);
    EXPECT_EQ(r.At(0, "DateD").toDate(), sunday.addDays(-1));

    // Before the first rate there is none.
    r = Rows(latest, {usd, Value(kToday.addYears(-2).addDays(-1))});
    EXPECT_EQ(r.RowCount(), 0);
}

TEST_P(DemoBookTest, FirmNamesKeepTheirLithuanianLetters) {
    Create();
    const QueryResult names =
        Rows(QStringLiteral("SELECT Name, LENGTH(Name) AS \"Letters\" FROM Firms ORDER BY ID"));
    ASSERT_EQ(names.RowCount(), demo::Firms().size());
    QString all;
    for (int i = 0; i < names.RowCount(); ++i) {
        const QString name = names.At(i, "Name").toString();
        EXPECT_EQ(name, QString::fromUtf8(demo::Firms().at(i).Name));
        // Counted in letters by the database, not in bytes.
        EXPECT_EQ(names.At(i, "Letters").toInt32(), name.size()) << name.toStdString();
        all += name;
    }
    for (const QChar letter : QStringLiteral("ąčęėįšųūžĄŠŽČŪĮ"))
        EXPECT_TRUE(all.contains(letter)) << QString(letter).toStdString();

    // An exact match by a parameter finds the firm with its letters as written.
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM Firms WHERE Name = ?"),
                    {Value(QStringLiteral("AB Ąžuolų baldai"))}),
              1);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM Firms WHERE Name = ?"),
                    {Value(QStringLiteral("AB Azuolu baldai"))}),
              0);
}

TEST_P(DemoBookTest, BranchPointsToItsHeadFirm) {
    Create();
    const QueryResult branches =
        Rows(QStringLiteral("SELECT b.Name, h.Name AS \"Head\", h.MyFirmFlag FROM Firms b "
                            "JOIN Firms h ON h.ID = b.ParentID"));
    ASSERT_GE(branches.RowCount(), 1);
    EXPECT_EQ(branches.At(0, "Name").toString(),
              QStringLiteral("UAB Žalgirio prekyba Vilniaus filialas"));
    EXPECT_EQ(branches.At(0, "Head").toString(), QStringLiteral("UAB Žalgirio prekyba"));
    EXPECT_EQ(branches.At(0, "MyFirmFlag").toInt32(), 0);
}

TEST_P(DemoBookTest, EveryBankAccountOwnerIsAnExistingRecord) {
    Create();
    const QMap<QString, QString> tableOfKind = {{kinds::Firm, QStringLiteral("Firms")},
                                                {kinds::Person, QStringLiteral("Persons")},
                                                {kinds::Employee, QStringLiteral("Employees")}};
    const QueryResult accounts = Rows(QStringLiteral("SELECT OwnerOIDR, BankID FROM BankAccounts"));
    ASSERT_GE(accounts.RowCount(), 15);
    QSet<QString> kindsSeen;
    for (int i = 0; i < accounts.RowCount(); ++i) {
        const QString owner = accounts.At(i, "OwnerOIDR").toString();
        SCOPED_TRACE(owner.toStdString());
        ASSERT_GT(owner.size(), 8);
        const QString kind = owner.left(8);
        ASSERT_TRUE(tableOfKind.contains(kind));
        bool ok = false;
        const qint32 ownerId = owner.mid(8).toInt(&ok);
        ASSERT_TRUE(ok);
        EXPECT_EQ(
            Count(
                QStringLiteral("SELECT COUNT(*) FROM %1 WHERE ID = ?").arg(tableOfKind.value(kind)),
                {Value(ownerId)}),
            1);
        EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM Banks WHERE ID = ?"),
                        {accounts.At(i, "BankID")}),
                  1);
        kindsSeen.insert(kind);
    }
    EXPECT_EQ(kindsSeen.size(), 3) << "firms, persons and employees all have accounts";
}

TEST_P(DemoBookTest, BankAccountsAreLithuanianIbansOfTheirOwnBank) {
    Create();
    const QueryResult accounts =
        Rows(QStringLiteral("SELECT a.AccountNumber, b.Code, b.SWIFT FROM BankAccounts a "
                            "JOIN Banks b ON b.ID = a.BankID"));
    ASSERT_EQ(accounts.RowCount(), CountOf(QStringLiteral("BankAccounts")));
    const QRegularExpression shape(QStringLiteral("^LT\\d{18}$"));
    QSet<QString> numbers;
    for (int i = 0; i < accounts.RowCount(); ++i) {
        const QString iban = accounts.At(i, "AccountNumber").toString();
        SCOPED_TRACE(iban.toStdString());
        EXPECT_TRUE(shape.match(iban).hasMatch());
        EXPECT_TRUE(IbanIsValid(iban));
        EXPECT_EQ(iban.mid(4, 5), accounts.At(i, "Code").toString());
        numbers.insert(iban);
    }
    EXPECT_EQ(numbers.size(), accounts.RowCount()) << "no account number twice";

    const QueryResult banks =
        Rows(QStringLiteral("SELECT Name, Code, SWIFT FROM Banks ORDER BY Code"));
    ASSERT_EQ(banks.RowCount(), 4);
    EXPECT_EQ(banks.At(0, "Code").toString(), QStringLiteral("40100"));
    EXPECT_EQ(banks.At(0, "SWIFT").toString(), QStringLiteral("AGBLLT2X"));
    EXPECT_EQ(banks.At(1, "Name").toString(), QStringLiteral("AB SEB bankas"));
    EXPECT_EQ(banks.At(1, "SWIFT").toString(), QStringLiteral("CBVILT2X"));
    EXPECT_EQ(banks.At(2, "Name").toString(), QStringLiteral("AB Šiaulių bankas"));
    EXPECT_EQ(banks.At(2, "SWIFT").toString(), QStringLiteral("CBSBLT26"));
    EXPECT_EQ(banks.At(3, "Name").toString(), QStringLiteral("Swedbank, AB"));
    EXPECT_EQ(banks.At(3, "SWIFT").toString(), QStringLiteral("HABALT22"));
}

TEST_P(DemoBookTest, OwnFirmHasAMainBaseCurrencyAccountAndADollarAccount) {
    Create();
    const QString own = kinds::Firm + Rows(QStringLiteral("SELECT ID FROM Firms WHERE "
                                                          "MyFirmFlag <> 0"))
                                          .Scalar()
                                          .toString();
    const QueryResult main = Rows(QStringLiteral("SELECT CurrencyCode FROM BankAccounts WHERE "
                                                 "OwnerOIDR = ? AND MainAccountFlag <> 0"),
                                  {Value(own)});
    ASSERT_EQ(main.RowCount(), 1);
    // Three blanks are the base currency, the euro.
    EXPECT_EQ(main.Scalar().toString(), QStringLiteral("   "));
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BankAccounts WHERE OwnerOIDR = ? AND "
                                   "CurrencyCode = ? AND MainAccountFlag = 0"),
                    {Value(own), Value(QStringLiteral("USD"))}),
              1);
}

TEST_P(DemoBookTest, FivePersonsAndFiveEmployeesWithPlausiblePersonalCodes) {
    Create();
    const QueryResult persons =
        Rows(QStringLiteral("SELECT Name, LastName, PersCode FROM Persons"));
    const QueryResult employees =
        Rows(QStringLiteral("SELECT Name, LastName, UsrPersCode, UsrTitle FROM Employees"));
    ASSERT_EQ(persons.RowCount(), 5);
    ASSERT_EQ(employees.RowCount(), 5);
    QSet<QString> codes;
    for (int i = 0; i < 5; ++i) {
        EXPECT_FALSE(persons.At(i, "LastName").toString().isEmpty());
        EXPECT_FALSE(employees.At(i, "UsrTitle").toString().isEmpty());
        const QString personCode = persons.At(i, "PersCode").toString();
        const QString employeeCode = employees.At(i, "UsrPersCode").toString();
        EXPECT_TRUE(PersonalCodeIsValid(personCode)) << personCode.toStdString();
        EXPECT_TRUE(PersonalCodeIsValid(employeeCode)) << employeeCode.toStdString();
        codes << personCode << employeeCode;
    }
    EXPECT_EQ(codes.size(), 10);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM Employees WHERE UsrTitle = ?"),
                    {Value(QStringLiteral("Buhalterė"))}),
              1);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM Employees WHERE UsrTitle = ?"),
                    {Value(QStringLiteral("Vadybininkas"))}),
              1);
}

TEST_P(DemoBookTest, AdminIsAdminAndTheAccountantCannotDelete) {
    Create();
    const QueryResult admin = Rows(QStringLiteral("SELECT Name, IsAdmin FROM Users WHERE Code = ?"),
                                   {Value(QStringLiteral("admin"))});
    ASSERT_EQ(admin.RowCount(), 1);
    EXPECT_EQ(admin.At(0, "Name").toString(), QStringLiteral("Administratorius"));
    EXPECT_NE(admin.At(0, "IsAdmin").toInt32(), 0);

    const QueryResult accountant =
        Rows(QStringLiteral("SELECT u.Name, u.UserPref, u.IsAdmin, e.LastName FROM Users u "
                            "LEFT JOIN Employees e ON e.ID = u.EmployeeID WHERE u.Code = ?"),
             {Value(QStringLiteral("buhalteris"))});
    ASSERT_EQ(accountant.RowCount(), 1);
    EXPECT_EQ(accountant.At(0, "Name").toString(), QStringLiteral("Buhalterė Rūta Petrauskienė"));
    EXPECT_EQ(accountant.At(0, "UserPref").toString(), QStringLiteral("RP"));
    EXPECT_EQ(accountant.At(0, "IsAdmin").toInt32(), 0);
    EXPECT_EQ(accountant.At(0, "LastName").toString(), QStringLiteral("Petrauskienė"));

    // The operation rights, overall and per group: read, edit and create, never delete.
    QStringList operationKeys = {QStringLiteral("CBROperRights")};
    for (int group = 1; group <= 6; ++group)
        operationKeys << QStringLiteral("CBROperRights%1").arg(group);
    for (const QString& key : operationKeys) {
        SCOPED_TRACE(key.toStdString());
        const QueryResult r = AccountantRight(key);
        ASSERT_EQ(r.RowCount(), 1);
        EXPECT_NE(r.At(0, "ReadFlag").toInt32(), 0);
        EXPECT_EQ(r.At(0, "DeleteFlag").toInt32(), 0);
        EXPECT_NE(r.At(0, "EditFlag").toInt32(), 0);
        EXPECT_NE(r.At(0, "CreateFlag").toInt32(), 0);
    }

    // Every right the component lists has a row; the on/off ones are withheld.
    const QList<ComponentRight> listed = SecurityHeader().GetComponentList();
    ASSERT_EQ(listed.size(), 16);
    for (const ComponentRight& right : listed) {
        SCOPED_TRACE(right.Key.toStdString());
        const QueryResult r = AccountantRight(right.Key);
        ASSERT_EQ(r.RowCount(), 1);
        EXPECT_EQ(r.At(0, "DeleteFlag").toInt32(), 0);
        const bool withheld = right.Key == QStringLiteral("CAccountPlanRights") ||
                              right.Key == QStringLiteral("CAllAccLock");
        EXPECT_EQ(r.At(0, "ReadFlag").toInt32() != 0, !withheld);
        EXPECT_EQ(r.At(0, "EditFlag").toInt32() != 0, !withheld);
        EXPECT_EQ(r.At(0, "CreateFlag").toInt32() != 0, !withheld);
    }
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM Rights r JOIN Users u ON u.ID = "
                                   "r.UserID WHERE u.Code = ? AND r.DeleteFlag <> 0"),
                    {Value(QStringLiteral("buhalteris"))}),
              0);
}

TEST_P(DemoBookTest, SecondRunIsRefusedAndChangesNothing) {
    Create();
    const QMap<QString, qint64> before = CountAll();
    const ResultRecord again = CreateDemoBook(*db_, kToday.addDays(1));
    EXPECT_EQ(again.Code, codes::Refused);
    EXPECT_EQ(again.Text, DemoBookNotEmptyText());
    EXPECT_EQ(CountAll(), before);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM CurrencyRates WHERE DateD = ?"),
                    {Value(kToday.addDays(1))}),
              0);
    EXPECT_EQ(db_->TransactionDepth(), 0);
}

TEST_P(DemoBookTest, BookWithAFirmOfItsOwnIsRefusedUntouched) {
    ASSERT_TRUE(db_->Execute(QStringLiteral("INSERT INTO Firms (Name) VALUES (?)"),
                             {Value(QStringLiteral("UAB Mūsų tikra įmonė"))})
                    .ok());
    const QMap<QString, qint64> before = CountAll();
    const ResultRecord r = CreateDemoBook(*db_, kToday);
    EXPECT_EQ(r.Code, codes::Refused);
    EXPECT_EQ(r.Text, DemoBookNotEmptyText());
    EXPECT_EQ(CountAll(), before);
    EXPECT_EQ(CountOf(QStringLiteral("Currencies")), 0);
}

TEST_P(DemoBookTest, FailureHalfwayLeavesTheBookEmpty) {
    // The users are written last: refusing them makes everything before roll back.
    if (IsPostgres()) {
        ASSERT_TRUE(db_->Execute(QStringLiteral("CREATE FUNCTION refuse_users() RETURNS trigger "
                                                "LANGUAGE plpgsql AS $$ BEGIN RAISE EXCEPTION "
                                                "'no users'; END $$"))
                        .ok());
        ASSERT_TRUE(db_->Execute(QStringLiteral("CREATE TRIGGER RefuseUsers BEFORE INSERT ON "
                                                "Users FOR EACH ROW EXECUTE FUNCTION "
                                                "refuse_users()"))
                        .ok());
    } else {
        ASSERT_TRUE(db_->Execute(QStringLiteral("CREATE TRIGGER RefuseUsers BEFORE INSERT ON "
                                                "Users BEGIN SELECT RAISE(ABORT, 'no users'); "
                                                "END"))
                        .ok());
    }
    const QMap<QString, qint64> before = CountAll();
    const ResultRecord r = CreateDemoBook(*db_, kToday);
    EXPECT_NE(r.Code, 0);
    EXPECT_TRUE(r.Text.contains(QStringLiteral("admin"))) << r.Text.toStdString();
    EXPECT_EQ(CountAll(), before);
    EXPECT_EQ(CountOf(QStringLiteral("CurrencyRates")), 0);
    EXPECT_EQ(db_->TransactionDepth(), 0);
}

TEST_P(DemoBookTest, InvalidDateIsRefused) {
    const QMap<QString, qint64> before = CountAll();
    const ResultRecord r = CreateDemoBook(*db_, QDate());
    EXPECT_NE(r.Code, 0);
    EXPECT_FALSE(r.Text.isEmpty());
    EXPECT_EQ(CountAll(), before);
}

TEST_P(DemoBookTest, DemoTemplatesPostToTheDemoChartAndDemandTheFirm) {
    Create();
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BRTemplates WHERE GroupFlag <> 0")), 2);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BRTemplates WHERE GroupFlag = 0")), 7);
    // Every account of every line stands in the chart, the opening balances' 0 aside.
    EXPECT_EQ(Count(QStringLiteral(
                  "SELECT COUNT(*) FROM BRTemplateAcc t WHERE (t.AccountD <> '0' AND NOT EXISTS "
                  "(SELECT 1 FROM Accounts a WHERE a.Account = t.AccountD AND a.GroupFlag = 0)) "
                  "OR (t.AccountC <> '0' AND NOT EXISTS (SELECT 1 FROM Accounts a WHERE "
                  "a.Account = t.AccountC AND a.GroupFlag = 0))")),
              0);
    // The sale: the net sum to sales, 21 % of it to VAT payable, the customer on the debit.
    const QueryResult sale = Rows(
        QStringLiteral("SELECT a.AccountD, a.AccountC, a.Factor, d.FOID, d.Sign FROM BRTemplates t "
                       "JOIN BRTemplateAcc a ON a.BRTemplateID = t.ID JOIN BRTemplateAddr d ON "
                       "d.BRTemplateAccGUID = a.GUID WHERE t.Name = ? ORDER BY a.ID"),
        {Value(QStringLiteral("Prekių pardavimas su PVM"))});
    ASSERT_EQ(sale.RowCount(), 2);
    EXPECT_EQ(sale.At(0, 0).toString(), QStringLiteral("2410"));
    EXPECT_EQ(sale.At(0, 1).toString(), QStringLiteral("5000"));
    EXPECT_EQ(sale.At(0, 2).toDouble(), 1.0);
    EXPECT_EQ(sale.At(1, 1).toString(), QStringLiteral("4492"));
    EXPECT_EQ(sale.At(1, 2).toDouble(), 0.21);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(sale.At(i, 3).toString(), QStringLiteral("O0000100"));
        EXPECT_EQ(sale.At(i, 4).toInt32(), 1);
    }
    // The tree codes the chooser reads: a template's ParentCode is its group's OwnCode.
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BRTemplates t JOIN BRTemplates g ON "
                                   "g.ID = t.ParentID WHERE t.ParentCode = g.OwnCode AND "
                                   "t.OwnCode = g.OwnCode || CAST(t.ID AS TEXT) || '*'")),
              7);
}

INSTANTIATE_TEST_SUITE_P(DemoBook, DemoBookTest,
                         ::testing::Values(Backend::SQLite, Backend::PostgreSQL),
                         testing::BackendLabel);

// The rate series alone: a day's rate is fixed by the currency and the day.
TEST(DemoBookRates, ADayHasTheSameRateWhateverTheRange) {
    const DemoRateSeries series(QStringLiteral("USD"), 1.05, 1.12);
    const QVector<double> longer = series.Quotes(QDate(2023, 1, 1), QDate(2025, 6, 30));
    const QVector<double> shorter = series.Quotes(QDate(2024, 5, 1), QDate(2024, 5, 31));
    ASSERT_EQ(shorter.size(), 31);
    const int offset = static_cast<int>(QDate(2023, 1, 1).daysTo(QDate(2024, 5, 1)));
    for (int i = 0; i < shorter.size(); ++i)
        EXPECT_EQ(shorter[i], longer[offset + i]) << "day " << i;
    EXPECT_EQ(DemoRateSeries(QStringLiteral("USD"), 1.05, 1.12)
                  .Quotes(QDate(2024, 5, 1), QDate(2024, 5, 31)),
              shorter);
}

TEST(DemoBookRates, CurrenciesWalkTheirOwnWays) {
    const QDate first(2024, 1, 1);
    const QDate last(2024, 12, 31);
    const QVector<double> usd = DemoRateSeries(QStringLiteral("USD"), 1.0, 2.0).Quotes(first, last);
    const QVector<double> gbp = DemoRateSeries(QStringLiteral("GBP"), 1.0, 2.0).Quotes(first, last);
    ASSERT_EQ(usd.size(), 366);
    EXPECT_NE(usd, gbp);
}

TEST(DemoBookRates, EmptyOrInvalidRangeGivesNoRates) {
    const DemoRateSeries series(QStringLiteral("PLN"), 4.25, 4.45);
    EXPECT_TRUE(series.Quotes(QDate(2024, 2, 2), QDate(2024, 2, 1)).isEmpty());
    EXPECT_TRUE(series.Quotes(QDate(), QDate(2024, 2, 1)).isEmpty());
    EXPECT_EQ(series.Quotes(QDate(2024, 2, 1), QDate(2024, 2, 1)).size(), 1);
}

} // namespace
} // namespace orvo::host
