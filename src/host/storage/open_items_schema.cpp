#include "host/storage/open_items_schema.h"

#include "host/storage/database.h"
#include "host/storage/trigger_sql.h"

namespace orvo::host {

namespace {

using T = ColumnType;

TableDef BROpenItems() {
    return {QStringLiteral("BROpenItems"),
            {Column(QStringLiteral("BRID"), T::Integer, true),
             Column(QStringLiteral("Sign"), T::Integer, true),
             Column(QStringLiteral("Account"), T::Text, true),
             Column(QStringLiteral("DateD"), T::Date),
             Column(QStringLiteral("RestSum"), T::Money, true, QStringLiteral("0")),
             Column(QStringLiteral("RestSumCurr"), T::Money, true, QStringLiteral("0")),
             Column(QStringLiteral("LastCoverDate"), T::Date),
             Column(QStringLiteral("ClosedOn"), T::Date, true)},
            {QStringLiteral("BRID"), QStringLiteral("Sign")},
            {}};
}

// The debts of an account not closed by a date are one range of this index.
IndexDef byAccount() {
    return {QStringLiteral("BROpenItemsAccount"),
            QStringLiteral("BROpenItems"),
            {QStringLiteral("Account"), QStringLiteral("Sign"), QStringLiteral("ClosedOn")},
            false,
            {}};
}

const QString kColumns =
    QStringLiteral("BRID, Sign, Account, DateD, RestSum, RestSumCurr, LastCoverDate, ClosedOn");

// The rows of the entries `b` that satisfy `entries`, counted from the entries
// themselves: the one formula behind the backfill and every trigger.
QString keptRows(const QString& entries) {
    const QString account =
        QStringLiteral("(CASE WHEN s.Sign = 1 THEN b.AccountD ELSE b.AccountC END)");
    const QString onSide = QStringLiteral(" WHERE x.BRID = b.ID AND ") + EntrySideSql("x") +
                           QStringLiteral(" = s.Sign AND ");
    const QString reference = QStringLiteral("x.FOIDR >= 'O0201500' AND x.FOIDR < 'O0201501'");
    // The side's first currency row names the debt's currency and its currency sum.
    const QString firstCurrency = QStringLiteral("(SELECT %1 FROM BRCurrency y WHERE y.BRID = "
                                                 "b.ID AND ") +
                                  EntrySideSql("y") +
                                  QStringLiteral(" = s.Sign ORDER BY y.ID LIMIT 1)");
    const QString debts =
        QStringLiteral("SELECT b.ID AS BRID, s.Sign AS Sign, ") + account +
        QStringLiteral(" AS Account, b.DateD AS DateD, b.SumA AS FullSum, "
                       "COALESCE(NULLIF(TRIM(") +
        firstCurrency.arg(QStringLiteral("y.FCurrencyCode")) +
        QStringLiteral("), ''), '   ') AS Code, COALESCE(") +
        firstCurrency.arg(QStringLiteral("CASE WHEN TRIM(COALESCE(y.FCurrencyCode, '')) = '' "
                                         "THEN 0 ELSE y.SumCurr END")) +
        QStringLiteral(", 0) AS FullCurr, CASE WHEN EXISTS (SELECT 1 FROM BRProperties x") +
        onSide + QStringLiteral("NOT (") + reference +
        QStringLiteral(")) THEN 1 ELSE 0 END AS Addressed FROM BR b CROSS JOIN (SELECT 1 AS "
                       "Sign UNION ALL SELECT -1) s WHERE (") +
        entries + QStringLiteral(") AND ") + account +
        QStringLiteral(" <> '' AND NOT EXISTS (SELECT 1 FROM BRProperties x") + onSide + reference +
        QLatin1Char(')');
    // A referring entry reduces the rest from the side opposite to the debt and adds to it
    // from the same side; its currency sum counts only in the debt's own currency.
    const QString direction = QStringLiteral("CASE WHEN ") + EntrySideSql("r") +
                              QStringLiteral(" = d.Sign THEN %1 ELSE -%1 END");
    const QString covered =
        QStringLiteral("SELECT d.BRID, d.Sign, d.Account, d.DateD, d.FullSum + COALESCE(SUM(") +
        direction.arg(QStringLiteral("c.SumA")) +
        QStringLiteral("), 0) AS RestSum, d.FullCurr + COALESCE(SUM(CASE WHEN d.Code <> '   ' "
                       "AND COALESCE(NULLIF(TRIM(k.FCurrencyCode), ''), '   ') = d.Code THEN ") +
        direction.arg(QStringLiteral("k.SumCurr")) +
        QStringLiteral(" END), 0) AS RestSumCurr, MAX(c.DateD) AS LastCover FROM (") + debts +
        QStringLiteral(") d LEFT JOIN BRProperties r ON r.FOIDR = 'O0201500' || d.BRID "
                       "LEFT JOIN BR c ON c.ID = r.BRID AND c.ID <> d.BRID AND c.DateD IS NOT "
                       "NULL AND (CASE WHEN r.Sign = 1 THEN c.AccountD ELSE c.AccountC END) = "
                       "d.Account LEFT JOIN BRCurrency k ON k.BRID = c.ID AND ") +
        EntrySideSql("k") + QStringLiteral(" = ") + EntrySideSql("r") +
        QStringLiteral(" GROUP BY d.BRID, d.Sign, d.Account, d.DateD, d.FullSum, d.FullCurr, "
                       "d.Code, d.Addressed HAVING d.Addressed = 1 OR COUNT(c.ID) > 0");
    return QStringLiteral("SELECT t.BRID, t.Sign, t.Account, t.DateD, t.RestSum, t.RestSumCurr, "
                          "t.LastCover, CASE WHEN t.RestSum = 0 AND t.RestSumCurr = 0 AND "
                          "t.DateD IS NOT NULL THEN (CASE WHEN t.LastCover IS NULL OR "
                          "t.LastCover < t.DateD THEN t.DateD ELSE t.LastCover END) ELSE "
                          "'9999-12-31' END FROM (") +
           covered + QStringLiteral(") t");
}

QString insertKept(const QString& entries) {
    return QStringLiteral("INSERT INTO BROpenItems (") + kColumns + QStringLiteral(") ") +
           keptRows(entries);
}

// ---- SQLite ------------------------------------------------------------------------

// The entries a reference row of `row` (NEW or OLD) names; a malformed reference names
// entry 0 or a wrong one, which only counts that entry again.
QString sqliteTarget(const char* row) {
    return QStringLiteral("CAST(substr(%1.FOIDR, 9) AS INTEGER)").arg(QLatin1String(row));
}

QString sqliteIsReference(const char* row) {
    return QStringLiteral("%1.FOIDR >= 'O0201500' AND %1.FOIDR < 'O0201501'")
        .arg(QLatin1String(row));
}

// The entries an entry refers to.
QString sqliteTargetsOf(const QString& entry) {
    return QStringLiteral("SELECT CAST(substr(x.FOIDR, 9) AS INTEGER) FROM BRProperties x "
                          "WHERE x.BRID = %1 AND x.FOIDR >= 'O0201500' AND x.FOIDR < "
                          "'O0201501'")
        .arg(entry);
}

// Trigger statements counting again the entries of the subquery `ids`.
QString sqliteRecount(const QString& ids) {
    return QStringLiteral("DELETE FROM BROpenItems WHERE BRID IN (") + ids + QStringLiteral("); ") +
           insertKept(QStringLiteral("b.ID IN (") + ids + QLatin1Char(')')) + QLatin1Char(';');
}

// An entry and the entries it refers to.
QString sqliteEntryAndTargets(const QStringList& entries) {
    QStringList parts;
    for (const QString& e : entries)
        parts << QStringLiteral("SELECT ") + e << sqliteTargetsOf(e);
    return parts.join(QStringLiteral(" UNION "));
}

// A trigger that counts again the entries of the subquery `ids`.
QString sqliteTrigger(const QString& name, const QString& event, const QString& ids) {
    return SqliteTriggerSql(name, event, {}, sqliteRecount(ids));
}

QStringList sqliteTriggers() {
    // An addressee row makes its side addressed; a reference row also covers the entry it
    // names.
    const QString newRow = QStringLiteral("SELECT NEW.BRID UNION SELECT ") + sqliteTarget("NEW") +
                           QStringLiteral(" WHERE ") + sqliteIsReference("NEW");
    const QString oldRow = QStringLiteral("SELECT OLD.BRID UNION SELECT ") + sqliteTarget("OLD") +
                           QStringLiteral(" WHERE ") + sqliteIsReference("OLD");
    return {
        sqliteTrigger(QStringLiteral("BROpenItemsEntryInsert"),
                      QStringLiteral("AFTER INSERT ON BR"),
                      sqliteEntryAndTargets({QStringLiteral("NEW.ID")})),
        sqliteTrigger(QStringLiteral("BROpenItemsEntryDelete"),
                      QStringLiteral("AFTER DELETE ON BR"),
                      sqliteEntryAndTargets({QStringLiteral("OLD.ID")})),
        sqliteTrigger(QStringLiteral("BROpenItemsEntryUpdate"),
                      QStringLiteral("AFTER UPDATE OF ID, AccountD, AccountC, DateD, SumA ON BR"),
                      sqliteEntryAndTargets({QStringLiteral("OLD.ID"), QStringLiteral("NEW.ID")})),
        sqliteTrigger(QStringLiteral("BROpenItemsPropertyInsert"),
                      QStringLiteral("AFTER INSERT ON BRProperties"), newRow),
        sqliteTrigger(QStringLiteral("BROpenItemsPropertyDelete"),
                      QStringLiteral("AFTER DELETE ON BRProperties"), oldRow),
        sqliteTrigger(QStringLiteral("BROpenItemsPropertyUpdate"),
                      QStringLiteral("AFTER UPDATE OF BRID, Sign, FOIDR ON BRProperties"),
                      newRow + QStringLiteral(" UNION ") + oldRow),
        sqliteTrigger(QStringLiteral("BROpenItemsCurrencyInsert"),
                      QStringLiteral("AFTER INSERT ON BRCurrency"),
                      sqliteEntryAndTargets({QStringLiteral("NEW.BRID")})),
        sqliteTrigger(QStringLiteral("BROpenItemsCurrencyDelete"),
                      QStringLiteral("AFTER DELETE ON BRCurrency"),
                      sqliteEntryAndTargets({QStringLiteral("OLD.BRID")})),
        sqliteTrigger(
            QStringLiteral("BROpenItemsCurrencyUpdate"),
            QStringLiteral("AFTER UPDATE OF BRID, Sign, SumCurr, FCurrencyCode ON BRCurrency"),
            sqliteEntryAndTargets({QStringLiteral("OLD.BRID"), QStringLiteral("NEW.BRID")})),
    };
}

// ---- PostgreSQL --------------------------------------------------------------------

QStringList postgresTriggers() {
    // A reference whose number does not fit names no entry.
    const QString target =
        QStringLiteral("CREATE FUNCTION BROpenItemsTarget(foidr text) RETURNS bigint "
                       "LANGUAGE sql IMMUTABLE AS $body$ SELECT CASE WHEN foidr ~ "
                       "'^O0201500[0-9]{1,18}$' THEN substr(foidr, 9)::bigint END $body$");
    const QString recount =
        QStringLiteral("CREATE FUNCTION BROpenItemsRecount(ids bigint[]) RETURNS void "
                       "LANGUAGE plpgsql AS $body$ BEGIN "
                       // Two writers covering one debt at once count it one after the
                       // other: the second waits for the first to commit, and its next
                       // statements see what the first wrote.
                       "PERFORM 1 FROM BR WHERE ID = ANY(ids) ORDER BY ID FOR NO KEY UPDATE; "
                       "DELETE FROM BROpenItems WHERE BRID = ANY(ids); ") +
        insertKept(QStringLiteral("b.ID = ANY(ids)")) + QStringLiteral("; END $body$");
    // The entries themselves and every entry they refer to.
    const QString withTargets =
        QStringLiteral("ids := ids || ARRAY(SELECT BROpenItemsTarget(x.FOIDR) FROM BRProperties "
                       "x WHERE x.BRID = ANY(ids) AND x.FOIDR >= 'O0201500' AND x.FOIDR < "
                       "'O0201501'); PERFORM BROpenItemsRecount(ids); RETURN NULL; END $body$");
    const QString entry =
        QStringLiteral("CREATE FUNCTION BROpenItemsKeepEntry() RETURNS trigger LANGUAGE plpgsql "
                       "AS $body$ DECLARE ids bigint[] := '{}'; BEGIN "
                       "IF TG_OP <> 'INSERT' THEN ids := ids || OLD.ID; END IF; "
                       "IF TG_OP <> 'DELETE' THEN ids := ids || NEW.ID; END IF; ") +
        withTargets;
    const QString currency =
        QStringLiteral("CREATE FUNCTION BROpenItemsKeepCurrency() RETURNS trigger LANGUAGE "
                       "plpgsql AS $body$ DECLARE ids bigint[] := '{}'; BEGIN "
                       "IF TG_OP <> 'INSERT' THEN ids := ids || OLD.BRID; END IF; "
                       "IF TG_OP <> 'DELETE' THEN ids := ids || NEW.BRID; END IF; ") +
        withTargets;
    // An addressee row makes its side addressed; a reference row also covers the entry it
    // names (BROpenItemsTarget gives Null for any other row).
    const QString property = QStringLiteral(
        "CREATE FUNCTION BROpenItemsKeepProperty() RETURNS trigger LANGUAGE plpgsql AS $body$ "
        "DECLARE ids bigint[] := '{}'; BEGIN "
        "IF TG_OP <> 'INSERT' THEN ids := ids || OLD.BRID || BROpenItemsTarget(OLD.FOIDR); "
        "END IF; "
        "IF TG_OP <> 'DELETE' THEN ids := ids || NEW.BRID || BROpenItemsTarget(NEW.FOIDR); "
        "END IF; "
        "PERFORM BROpenItemsRecount(ids); RETURN NULL; END $body$");
    return {target,
            recount,
            entry,
            currency,
            property,
            QStringLiteral("CREATE TRIGGER BROpenItemsKeepEntry AFTER INSERT OR DELETE OR UPDATE "
                           "OF ID, AccountD, AccountC, DateD, SumA ON BR FOR EACH ROW "
                           "EXECUTE FUNCTION BROpenItemsKeepEntry()"),
            QStringLiteral("CREATE TRIGGER BROpenItemsKeepCurrency AFTER INSERT OR DELETE OR "
                           "UPDATE OF BRID, Sign, SumCurr, FCurrencyCode ON BRCurrency FOR EACH "
                           "ROW EXECUTE FUNCTION BROpenItemsKeepCurrency()"),
            QStringLiteral("CREATE TRIGGER BROpenItemsKeepProperty AFTER INSERT OR DELETE OR "
                           "UPDATE OF BRID, Sign, FOIDR ON BRProperties FOR EACH ROW "
                           "EXECUTE FUNCTION BROpenItemsKeepProperty()")};
}

} // namespace

Migration OpenItemsMigration() {
    Migration m;
    m.Version = kOpenItemsMigrationVersion;
    m.Title = QStringLiteral("Atviros skolos");
    m.Tables = {BROpenItems()};
    m.Indexes = {byAccount()};
    m.Apply = [](Database& db) {
        // The entries the book already holds, before the triggers take over.
        QStringList statements{insertKept(QStringLiteral("1 = 1"))};
        statements += db.Kind() == Backend::PostgreSQL ? postgresTriggers() : sqliteTriggers();
        return ExecuteStatements(db, statements);
    };
    return m;
}

} // namespace orvo::host
