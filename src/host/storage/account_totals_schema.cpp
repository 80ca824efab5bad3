#include "host/storage/account_totals_schema.h"

#include "host/storage/database.h"

namespace orvo::host {

namespace {

using T = ColumnType;

TableDef BRAccountTotals() {
    return {QStringLiteral("BRAccountTotals"),
            {Column(QStringLiteral("Account"), T::Text, true),
             Column(QStringLiteral("DateD"), T::Date, true),
             Column(QStringLiteral("SumD"), T::Money, true, QStringLiteral("0")),
             Column(QStringLiteral("SumC"), T::Money, true, QStringLiteral("0")),
             Column(QStringLiteral("Entries"), T::Integer, true, QStringLiteral("0"))},
            {QStringLiteral("Account"), QStringLiteral("DateD")},
            {}};
}

// One side of an entry: its account column in BR and its turnover column in the totals.
struct Side {
    const char* account;
    const char* sum;
};
constexpr Side kSides[] = {{"AccountD", "SumD"}, {"AccountC", "SumC"}};

// SQLite: statements of a trigger body adding (NEW) or taking away (OLD) one entry.
QString sqliteAdd(const Side& s) {
    return QStringLiteral("INSERT INTO BRAccountTotals (Account, DateD, %2, Entries) "
                          "SELECT NEW.%1, NEW.DateD, NEW.SumA, 1 "
                          "WHERE NEW.%1 IS NOT NULL AND NEW.DateD IS NOT NULL "
                          "ON CONFLICT (Account, DateD) DO UPDATE SET %2 = %2 + excluded.%2, "
                          "Entries = Entries + 1;")
        .arg(QLatin1String(s.account), QLatin1String(s.sum));
}

QString sqliteTake(const Side& s) {
    return QStringLiteral("UPDATE BRAccountTotals SET %2 = %2 - OLD.SumA, Entries = Entries - 1 "
                          "WHERE Account = OLD.%1 AND DateD = OLD.DateD;"
                          "DELETE FROM BRAccountTotals WHERE Account = OLD.%1 AND "
                          "DateD = OLD.DateD AND Entries <= 0;")
        .arg(QLatin1String(s.account), QLatin1String(s.sum));
}

QStringList sqliteTriggers() {
    QString add;
    QString take;
    for (const Side& s : kSides) {
        add += sqliteAdd(s);
        take += sqliteTake(s);
    }
    return {QStringLiteral("CREATE TRIGGER BRAccountTotalsInsert AFTER INSERT ON BR BEGIN ") + add +
                QStringLiteral(" END"),
            QStringLiteral("CREATE TRIGGER BRAccountTotalsDelete AFTER DELETE ON BR BEGIN ") +
                take + QStringLiteral(" END"),
            QStringLiteral("CREATE TRIGGER BRAccountTotalsUpdate AFTER UPDATE OF AccountD, "
                           "AccountC, DateD, SumA ON BR BEGIN ") +
                take + add + QStringLiteral(" END")};
}

// PostgreSQL: one row-level trigger function for all three changes.
QStringList postgresTriggers() {
    QString add;
    QString take;
    for (const Side& s : kSides) {
        add += QStringLiteral("IF NEW.%1 IS NOT NULL AND NEW.DateD IS NOT NULL THEN "
                              "INSERT INTO BRAccountTotals AS t (Account, DateD, %2, Entries) "
                              "VALUES (NEW.%1, NEW.DateD, NEW.SumA, 1) "
                              "ON CONFLICT (Account, DateD) DO UPDATE SET %2 = t.%2 + excluded.%2, "
                              "Entries = t.Entries + 1; END IF; ")
                   .arg(QLatin1String(s.account), QLatin1String(s.sum));
        take +=
            QStringLiteral("UPDATE BRAccountTotals SET %2 = %2 - OLD.SumA, "
                           "Entries = Entries - 1 WHERE Account = OLD.%1 AND DateD = OLD.DateD; "
                           "DELETE FROM BRAccountTotals WHERE Account = OLD.%1 AND "
                           "DateD = OLD.DateD AND Entries <= 0; ")
                .arg(QLatin1String(s.account), QLatin1String(s.sum));
    }
    return {QStringLiteral("CREATE FUNCTION BRAccountTotalsKeep() RETURNS trigger "
                           "LANGUAGE plpgsql AS $body$ BEGIN "
                           "IF TG_OP <> 'INSERT' THEN ") +
                take + QStringLiteral("END IF; IF TG_OP <> 'DELETE' THEN ") + add +
                QStringLiteral("END IF; RETURN NULL; END $body$"),
            QStringLiteral("CREATE TRIGGER BRAccountTotalsKeep AFTER INSERT OR DELETE OR UPDATE "
                           "OF AccountD, AccountC, DateD, SumA ON BR FOR EACH ROW "
                           "EXECUTE FUNCTION BRAccountTotalsKeep()")};
}

// Counts the entries the book already holds, before the triggers take over.
QString fillFromEntries() {
    return QStringLiteral(
        "INSERT INTO BRAccountTotals (Account, DateD, SumD, SumC, Entries) "
        "SELECT Account, DateD, SUM(SumD), SUM(SumC), COUNT(*) FROM ("
        "SELECT AccountD AS Account, DateD, SumA AS SumD, 0 AS SumC FROM BR "
        "WHERE AccountD IS NOT NULL AND DateD IS NOT NULL UNION ALL "
        "SELECT AccountC, DateD, 0, SumA FROM BR "
        "WHERE AccountC IS NOT NULL AND DateD IS NOT NULL) AS sides GROUP BY Account, DateD");
}

} // namespace

Migration AccountTotalsMigration() {
    Migration m;
    m.Version = kAccountTotalsMigrationVersion;
    m.Title = QStringLiteral("Sąskaitų apyvartos");
    m.Tables = {BRAccountTotals()};
    m.Apply = [](Database& db) {
        QStringList statements{fillFromEntries()};
        statements += db.Kind() == Backend::PostgreSQL ? postgresTriggers() : sqliteTriggers();
        return ExecuteStatements(db, statements);
    };
    return m;
}

} // namespace orvo::host
