// The book's structure on both backends: a new book gets every migration, opening it
// again changes nothing, the shared catalogues hold what documents read from them, and
// a book that is not ours or is newer than this program is refused untouched.
#include "storage_fixture.h"

#include "host/storage/migrations.h"
#include "host/storage/money.h"
#include "host/storage/schema_ddl.h"
#include "host/storage/storage_messages.h"

namespace orvo::host {
namespace {

using testing::StorageTest;

class StorageSchemaTest : public StorageTest {};

// Inserts a row and gives back its new ID.
Value Insert(Database& db, const QString& sql, const ValueArray& params) {
    QueryResult r = db.Query(sql + QStringLiteral(" RETURNING ID"), params);
    EXPECT_TRUE(r.ok()) << r.Text.toStdString();
    return r.Scalar();
}

TEST_P(StorageSchemaTest, NewBookStandsAtTheLatestMigration) {
    DatabasePtr db = OpenBook();
    ASSERT_TRUE(db);
    EXPECT_EQ(db->SchemaVersion(), LatestSchemaVersion());
    EXPECT_GE(LatestSchemaVersion(), 1);
    QueryResult base = db->Query(QStringLiteral("SELECT Value FROM Constants WHERE Name = ?"),
                                 {Value("BaseCurrency")});
    ASSERT_TRUE(base.ok()) << base.Text.toStdString();
    EXPECT_EQ(base.Scalar().toString(), QStringLiteral("EUR"));
}

// The names of the indexes on a table, in lower case as PostgreSQL keeps them.
QStringList IndexNames(Database& db, bool postgres, const QString& table) {
    const QueryResult q =
        postgres
            ? db.Query(QStringLiteral("SELECT indexname FROM pg_indexes WHERE tablename = ? "
                                      "ORDER BY indexname"),
                       {Value(table.toLower())})
            : db.Query(QStringLiteral("SELECT lower(name) FROM sqlite_schema WHERE type = "
                                      "'index' AND tbl_name = ? AND sql IS NOT NULL ORDER BY 1"),
                       {Value(table)});
    EXPECT_TRUE(q.ok()) << q.Text.toStdString();
    QStringList names;
    for (const ValueArray& row : q.Rows)
        names << row.at(0).toString();
    return names;
}

TEST_P(StorageSchemaTest, DebtListsReadWiderIndexesInPlaceOfTheNarrowerOnes) {
    DatabasePtr db = OpenBook();
    ASSERT_TRUE(db);
    const QStringList properties = IndexNames(*db, IsPostgres(), QStringLiteral("BRProperties"));
    EXPECT_TRUE(properties.contains(QStringLiteral("brpropertiesentryside")))
        << properties.join(u' ').toStdString();
    EXPECT_FALSE(properties.contains(QStringLiteral("brpropertiesentry")))
        << properties.join(u' ').toStdString();
    const QStringList openItems = IndexNames(*db, IsPostgres(), QStringLiteral("BROpenItems"));
    EXPECT_TRUE(openItems.contains(QStringLiteral("bropenitemsopen")))
        << openItems.join(u' ').toStdString();
    EXPECT_FALSE(openItems.contains(QStringLiteral("bropenitemsaccount")))
        << openItems.join(u' ').toStdString();
}

TEST_P(StorageSchemaTest, OpeningTwiceAppliesNothingAgainAndKeepsTheData) {
    {
        DatabasePtr db = OpenBook();
        ASSERT_TRUE(db);
        Insert(*db, QStringLiteral("INSERT INTO Firms (Name) VALUES (?)"), {Value("UAB Pirmoji")});
    }
    for (int i = 0; i < 2; ++i) {
        DatabasePtr db = OpenBook(OpenMode::Existing);
        ASSERT_TRUE(db);
        EXPECT_EQ(db->SchemaVersion(), LatestSchemaVersion());
        EXPECT_EQ(db->Query(QStringLiteral("SELECT count(*) FROM Firms")).Scalar().toInt32(), 1);
        EXPECT_EQ(db->Query(QStringLiteral("SELECT count(*) FROM Constants")).Scalar().toInt32(),
                  1);
    }
}

TEST_P(StorageSchemaTest, CataloguesHoldWhatDocumentsRead) {
    DatabasePtr db = OpenBook();
    ASSERT_TRUE(db);
    const Value parent = Insert(
        *db,
        QStringLiteral("INSERT INTO Firms (Name, Code, VATCode, SODRACode, Street, City, Country, "
                       "PostalCode, Phone, Fax, EMail, MyFirmFlag) "
                       "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
        {Value("UAB „Orvos“"), Value("123456789"), Value("LT123456789"), Value("S1"),
         Value("Gedimino pr. 1"), Value("Vilnius"), Value("Lietuva"), Value("LT-01103"),
         Value("+370 5 123"), Value("+370 5 124"), Value("info@orvo.lt"), Value(qint32(1))});
    const Value branch =
        Insert(*db, QStringLiteral("INSERT INTO Firms (Name, ParentID) VALUES (?, ?)"),
               {Value("Filialas"), parent});
    const Value person = Insert(
        *db, QStringLiteral("INSERT INTO Persons (Name, LastName, PersCode) VALUES (?, ?, ?)"),
        {Value("Ona"), Value("Onaitė"), Value("48001010000")});
    const Value employee =
        Insert(*db,
               QStringLiteral("INSERT INTO Employees (Name, LastName, UsrTitle, UsrPersCode) "
                              "VALUES (?, ?, ?, ?)"),
               {Value("Jonas"), Value("Jonaitis"), Value("Vyr. buhalteris"), Value("38001010000")});
    const Value bank = Insert(
        *db, QStringLiteral("INSERT INTO Banks (Name, Code, SWIFT, City) VALUES (?, ?, ?, ?)"),
        {Value("AB bankas"), Value("70440"), Value("CBVILT2X"), Value("Vilnius")});
    const Value intermediary = Insert(
        *db,
        QStringLiteral("INSERT INTO BankAccounts (OwnerOIDR, AccountNumber, BankID, CurrencyCode, "
                       "MainAccountFlag, IntermediaryBankName, IntermediaryBankSWIFT, "
                       "IntermediaryAccountNumber) VALUES (?, ?, ?, ?, ?, ?, ?, ?)"),
        {Value(QStringLiteral("O0000100") + parent.toString()), Value("LT121000011101001000"), bank,
         Value("USD"), Value(qint32(1)), Value("Korespondentas"), Value("CHASUS33"),
         Value("400000123")});
    const Value currency = Insert(
        *db,
        QStringLiteral("INSERT INTO Currencies (Code, Name, State, TwoCurr, TwoSmall, FixedRate) "
                       "VALUES (?, ?, ?, ?, ?, ?)"),
        {Value("USD"), Value("JAV doleris"), Value("JAV"), Value("doleriai"), Value("centai"),
         Value(0.0)});
    ASSERT_TRUE(
        db->Execute(QStringLiteral("INSERT INTO CurrencyRates (CurrencyID, DateD, Rate, "
                                   "CurrencyRate) VALUES (?, ?, ?, ?)"),
                    {currency, Value(QDate(2024, 3, 15)), Value(1.0 / 1.0875), Value(1.0875)})
            .ok());

    QueryResult firm = db->Query(QStringLiteral("SELECT * FROM Firms WHERE ID = ?"), {branch});
    ASSERT_TRUE(firm.ok()) << firm.Text.toStdString();
    EXPECT_EQ(firm.At(0, QStringLiteral("ParentID")), parent);
    EXPECT_EQ(firm.At(0, QStringLiteral("MyFirmFlag")).toInt32(), 0);
    QueryResult own =
        db->Query(QStringLiteral("SELECT VATCode, EMail FROM Firms WHERE MyFirmFlag <> 0"));
    ASSERT_EQ(own.RowCount(), 1);
    EXPECT_EQ(own.Columns, (QStringList{QStringLiteral("VATCode"), QStringLiteral("EMail")}));
    EXPECT_EQ(own.At(0, 0).toString(), QStringLiteral("LT123456789"));

    QueryResult addressees = db->Query(
        QStringLiteral("SELECT p.PersCode, e.UsrTitle, e.UsrPersCode FROM Persons p, Employees e "
                       "WHERE p.ID = ? AND e.ID = ?"),
        {person, employee});
    ASSERT_EQ(addressees.RowCount(), 1);
    EXPECT_EQ(addressees.At(0, QStringLiteral("PersCode")).toString(),
              QStringLiteral("48001010000"));
    EXPECT_EQ(addressees.At(0, QStringLiteral("UsrTitle")).toString(),
              QStringLiteral("Vyr. buhalteris"));

    QueryResult account =
        db->Query(QStringLiteral(
                      "SELECT a.AccountNumber, a.MainAccountFlag, a.IntermediaryBankSWIFT, "
                      "b.SWIFT FROM BankAccounts a JOIN Banks b ON b.ID = a.BankID WHERE a.ID = ?"),
                  {intermediary});
    ASSERT_EQ(account.RowCount(), 1);
    EXPECT_EQ(account.At(0, QStringLiteral("SWIFT")).toString(), QStringLiteral("CBVILT2X"));
    EXPECT_EQ(account.At(0, QStringLiteral("IntermediaryBankSWIFT")).toString(),
              QStringLiteral("CHASUS33"));
    EXPECT_NE(account.At(0, QStringLiteral("MainAccountFlag")).toInt32(), 0);

    QueryResult rate = db->Query(QStringLiteral(
        "SELECT c.Code, c.TwoCurr, c.TwoSmall, c.FixedRate, c.BaseCurrency, r.DateD, "
        "r.Rate, r.CurrencyRate FROM CurrencyRates r JOIN Currencies c "
        "ON c.ID = r.CurrencyID"));
    ASSERT_EQ(rate.RowCount(), 1);
    EXPECT_EQ(rate.At(0, QStringLiteral("DateD")).kind(), Value::Kind::Date);
    EXPECT_EQ(rate.At(0, QStringLiteral("DateD")).toDate(), QDate(2024, 3, 15));
    EXPECT_EQ(rate.At(0, QStringLiteral("CurrencyRate")).toDouble(), 1.0875);
    EXPECT_EQ(rate.At(0, QStringLiteral("Rate")).toDouble(), 1.0 / 1.0875);
    EXPECT_EQ(rate.At(0, QStringLiteral("BaseCurrency")).toInt32(), 0);
    EXPECT_EQ(rate.At(0, QStringLiteral("TwoSmall")).toString(), QStringLiteral("centai"));
}

TEST_P(StorageSchemaTest, OnlyOneFirmKeepsTheBooks) {
    DatabasePtr db = OpenBook();
    ASSERT_TRUE(db);
    const QString sql = QStringLiteral("INSERT INTO Firms (Name, MyFirmFlag) VALUES (?, ?)");
    ASSERT_TRUE(db->Execute(sql, {Value("Mūsų"), Value(qint32(1))}).ok());
    EXPECT_FALSE(db->Execute(sql, {Value("Kita"), Value(qint32(1))}).ok());
    EXPECT_TRUE(db->Execute(sql, {Value("Kita"), Value(qint32(0))}).ok());
}

TEST_P(StorageSchemaTest, OnlyOneMainAccountPerOwner) {
    DatabasePtr db = OpenBook();
    ASSERT_TRUE(db);
    const QString sql = QStringLiteral(
        "INSERT INTO BankAccounts (OwnerOIDR, AccountNumber, MainAccountFlag) VALUES (?, ?, ?)");
    ASSERT_TRUE(db->Execute(sql, {Value("O00001001"), Value("LT01"), Value(qint32(1))}).ok());
    EXPECT_FALSE(db->Execute(sql, {Value("O00001001"), Value("LT02"), Value(qint32(1))}).ok());
    EXPECT_TRUE(db->Execute(sql, {Value("O00001001"), Value("LT02"), Value(qint32(0))}).ok());
    EXPECT_TRUE(db->Execute(sql, {Value("O00014021"), Value("LT03"), Value(qint32(1))}).ok());
}

TEST_P(StorageSchemaTest, RateOfAnUnknownCurrencyIsRefused) {
    DatabasePtr db = OpenBook();
    ASSERT_TRUE(db);
    ExecResult r = db->Execute(
        QStringLiteral("INSERT INTO CurrencyRates (CurrencyID, DateD, Rate) VALUES (?, ?, ?)"),
        {Value(qint32(999)), Value(QDate(2024, 1, 1)), Value(1.5)});
    EXPECT_FALSE(r.ok());
}

TEST_P(StorageSchemaTest, EmptyDatabaseOpenedWithoutCreateIsNotABook) {
    if (!IsPostgres()) {
        // An empty SQLite file is what a zero-length file is.
        QFile f(location_);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.close();
    }
    OpenResult r = Database::Open(location_, OpenMode::Existing);
    EXPECT_FALSE(r.ok());
    EXPECT_EQ(r.Code, storage::codes::NotABook);
    EXPECT_EQ(r.Text, storage::messages::NotABook(Database::DisplayLocation(location_)));
}

TEST_P(StorageSchemaTest, ForeignDatabaseIsNotABook) {
    {
        DatabasePtr raw = Connect();
        ASSERT_TRUE(raw);
        ASSERT_TRUE(raw->Execute(QStringLiteral("CREATE TABLE Svetima (A INTEGER)")).ok());
    }
    for (OpenMode mode : {OpenMode::Existing, OpenMode::CreateIfMissing}) {
        OpenResult r = Database::Open(location_, mode);
        EXPECT_FALSE(r.ok());
        EXPECT_EQ(r.Code, storage::codes::NotABook);
        EXPECT_TRUE(r.Text.startsWith(QStringLiteral("Tai ne Orvo Apskaitos knyga: ")))
            << r.Text.toStdString();
    }
    DatabasePtr raw = Connect();
    ASSERT_TRUE(raw);
    // Nothing of ours was added to it.
    EXPECT_FALSE(raw->Query(QStringLiteral("SELECT count(*) FROM Firms")).ok());
}

TEST_P(StorageSchemaTest, BookWrittenByANewerProgramIsRefusedUntouched) {
    {
        DatabasePtr db = OpenBook();
        ASSERT_TRUE(db);
    }
    const int newer = LatestSchemaVersion() + 1;
    {
        DatabasePtr raw = Connect();
        ASSERT_TRUE(raw);
        if (IsPostgres()) {
            ASSERT_TRUE(raw->Execute(QStringLiteral("UPDATE schema_version SET Version = ?"),
                                     {Value(qint32(newer))})
                            .ok());
        } else {
            // PRAGMA takes no parameters; the number is the test's own.
            ASSERT_TRUE(raw->Execute(QStringLiteral("PRAGMA user_version = %1").arg(newer)).ok());
        }
    }
    OpenResult r = Database::Open(location_, OpenMode::Existing);
    EXPECT_FALSE(r.ok());
    EXPECT_EQ(r.Code, storage::codes::NewerBook);
    EXPECT_EQ(r.Text, storage::messages::NewerBook(Database::DisplayLocation(location_), newer,
                                                   LatestSchemaVersion()));
    EXPECT_NE(r.Text.indexOf(QStringLiteral("naujesnės programos versijos")), -1);
}

INSTANTIATE_TEST_SUITE_P(Storage, StorageSchemaTest,
                         ::testing::Values(Backend::SQLite, Backend::PostgreSQL),
                         testing::BackendLabel);

// ---- The description itself ----------------------------------------------------------

TEST(StorageSchemaDescription, EveryNameIsSpelledOneWay) {
    QHash<QString, QString> spelling;
    for (const Migration& m : Migrations()) {
        for (const TableDef& t : m.Tables) {
            QStringList names{t.Name};
            for (const ColumnDef& c : t.Columns)
                names << c.Name;
            for (const QString& n : names) {
                const QString seen = spelling.value(n.toLower(), n);
                EXPECT_EQ(seen, n) << "two spellings of " << n.toStdString();
                spelling.insert(n.toLower(), n);
            }
        }
    }
}

TEST(StorageSchemaDescription, MigrationsAreNumberedFromOneWithoutGaps) {
    int expected = 1;
    for (const Migration& m : Migrations())
        EXPECT_EQ(m.Version, expected++);
    EXPECT_EQ(LatestSchemaVersion(), Migrations().size());
}

TEST(StorageSchemaDescription, EachDialectGetsItsOwnTypes) {
    const TableDef t{QStringLiteral("T"),
                     {IdColumn(), Column(QStringLiteral("DateD"), ColumnType::Date, true),
                      Column(QStringLiteral("SumA"), ColumnType::Money),
                      Column(QStringLiteral("Rate"), ColumnType::Double)},
                     {},
                     {}};
    const QString lite = SchemaDdl::CreateTable(t, Backend::SQLite).constFirst().Sql;
    EXPECT_TRUE(lite.endsWith(QStringLiteral(") STRICT"))) << lite.toStdString();
    EXPECT_NE(lite.indexOf(QStringLiteral("ID INTEGER PRIMARY KEY")), -1);
    EXPECT_NE(lite.indexOf(QStringLiteral(
                  "DateD TEXT NOT NULL CHECK (DateD IS NULL OR date(DateD, '+0 days') IS DateD)")),
              -1)
        << lite.toStdString();
    EXPECT_NE(lite.indexOf(QStringLiteral("SumA INTEGER")), -1);
    EXPECT_NE(lite.indexOf(QStringLiteral("Rate REAL")), -1);
    const QString pg = SchemaDdl::CreateTable(t, Backend::PostgreSQL).constFirst().Sql;
    EXPECT_EQ(pg.indexOf(QStringLiteral("STRICT")), -1);
    EXPECT_NE(pg.indexOf(QStringLiteral("ID BIGINT GENERATED BY DEFAULT AS IDENTITY PRIMARY KEY")),
              -1);
    EXPECT_NE(pg.indexOf(QStringLiteral("DateD DATE NOT NULL")), -1) << pg.toStdString();
    EXPECT_NE(pg.indexOf(QStringLiteral("SumA BIGINT")), -1);
    EXPECT_NE(pg.indexOf(QStringLiteral("Rate DOUBLE PRECISION")), -1);
}

TEST(StorageSchemaDescription, AKeyOrderedTableHasNoRowNumberOfItsOwnInSqliteOnly) {
    TableDef t{QStringLiteral("T"),
               {Column(QStringLiteral("Account"), ColumnType::Text, true),
                Column(QStringLiteral("DateD"), ColumnType::Date, true),
                Column(QStringLiteral("Info"), ColumnType::Text)},
               {QStringLiteral("Account"), QStringLiteral("DateD")},
               {}};
    t.KeyOrdered = true;
    const QString lite = SchemaDdl::CreateTable(t, Backend::SQLite).constFirst().Sql;
    EXPECT_TRUE(lite.endsWith(QStringLiteral(") STRICT, WITHOUT ROWID"))) << lite.toStdString();
    const QString pg = SchemaDdl::CreateTable(t, Backend::PostgreSQL).constFirst().Sql;
    EXPECT_TRUE(pg.endsWith(QStringLiteral("PRIMARY KEY (Account, DateD)\n)"))) << pg.toStdString();
}

TEST(StorageSchemaDescription, SqliteSequenceStartsWithAParameterisedRow) {
    const QVector<Statement> s =
        SchemaDdl::CreateSequence(SequenceDef{kRecordSequence}, Backend::SQLite);
    ASSERT_EQ(s.size(), 2);
    EXPECT_EQ(s[1].Params, (ValueArray{Value(kRecordSequence)}));
    EXPECT_EQ(s[1].Sql.indexOf(kRecordSequence), -1);
}

} // namespace
} // namespace orvo::host
