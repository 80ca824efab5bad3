#include "host/storage/debt_list_schema.h"

#include "host/storage/database.h"
#include "host/storage/trigger_sql.h"

namespace orvo::host {

namespace {

using T = ColumnType;

TableDef BRDebtList() {
    return {QStringLiteral("BRDebtList"),
            {Column(QStringLiteral("BRID"), T::Integer, true),
             Column(QStringLiteral("Sign"), T::Integer, true),
             Column(QStringLiteral("AddresseeID"), T::Integer, true),
             Column(QStringLiteral("Account"), T::Text, true),
             Column(QStringLiteral("ClosedOn"), T::Date, true),
             Column(QStringLiteral("DateD"), T::Date, true),
             Column(QStringLiteral("BROperID"), T::Integer, true),
             Column(QStringLiteral("SumA"), T::Money, true, QStringLiteral("0")),
             Column(QStringLiteral("AccountD"), T::Text),
             Column(QStringLiteral("AccountC"), T::Text),
             Column(QStringLiteral("Info"), T::Text),
             Column(QStringLiteral("CurrencyRate"), T::Double),
             Column(QStringLiteral("Number"), T::Text),
             Column(QStringLiteral("Comment"), T::Text),
             Column(QStringLiteral("FOIDR"), T::Text),
             Column(QStringLiteral("ShowString"), T::Text),
             Column(QStringLiteral("CurrencyID"), T::Integer),
             Column(QStringLiteral("FCurrencyCode"), T::Text),
             Column(QStringLiteral("SumCurr"), T::Money),
             Column(QStringLiteral("RateCurr"), T::Double),
             Column(QStringLiteral("RestSum"), T::Money, true, QStringLiteral("0")),
             Column(QStringLiteral("RestSumCurr"), T::Money, true, QStringLiteral("0")),
             Column(QStringLiteral("LastCoverDate"), T::Date)},
            {QStringLiteral("BRID"), QStringLiteral("Sign"), QStringLiteral("AddresseeID")},
            {}};
}

// The list rows kept in list order: the primary key has the columns of the index
// BRDebtListOpen below, which it replaces.
TableDef BRDebtListInListOrder() {
    TableDef t = BRDebtList();
    t.PrimaryKey = {QStringLiteral("Account"),  QStringLiteral("Sign"),
                    QStringLiteral("ClosedOn"), QStringLiteral("DateD"),
                    QStringLiteral("BRID"),     QStringLiteral("AddresseeID")};
    t.KeyOrdered = true;
    return t;
}

// A debt side's rows, as the triggers find them to make them again.
IndexDef byDebt() {
    return {QStringLiteral("BRDebtListDebt"),
            QStringLiteral("BRDebtList"),
            {QStringLiteral("BRID"), QStringLiteral("Sign"), QStringLiteral("AddresseeID")},
            true,
            {}};
}

// The rows of the debts still open at a date are one range of this index, as in the open
// items; within it they come by date, entry and addressee, the order of a list, so a list
// of debts that all stay open need not be sorted again.
IndexDef byAccount() {
    return {QStringLiteral("BRDebtListOpen"),
            QStringLiteral("BRDebtList"),
            {QStringLiteral("Account"), QStringLiteral("Sign"), QStringLiteral("ClosedOn"),
             QStringLiteral("DateD"), QStringLiteral("BRID"), QStringLiteral("AddresseeID")},
            false,
            {}};
}

const QString kColumns = QStringLiteral(
    "BRID, Sign, AddresseeID, Account, ClosedOn, DateD, BROperID, SumA, AccountD, AccountC, "
    "Info, CurrencyRate, Number, Comment, FOIDR, ShowString, CurrencyID, FCurrencyCode, SumCurr, "
    "RateCurr, RestSum, RestSumCurr, LastCoverDate");

// The list rows of the open items `k` that satisfy `kept`, made from the open items and
// the entries themselves: the one formula behind the fill and every trigger.
QString insertRows(const QString& kept) {
    return QStringLiteral("INSERT INTO BRDebtList (") + kColumns +
           QStringLiteral(") SELECT k.BRID, k.Sign, p.ID, k.Account, k.ClosedOn, k.DateD, "
                          "b.BROperID, b.SumA, b.AccountD, b.AccountC, b.Info, CASE WHEN "
                          "k.Sign = 1 THEN b.CurrencyRateD ELSE b.CurrencyRateC END, o.Number, "
                          "o.Comment, p.FOIDR, p.ShowString, c.ID, c.FCurrencyCode, c.SumCurr, "
                          "c.RateCurr, k.RestSum, k.RestSumCurr, k.LastCoverDate FROM "
                          "BROpenItems k JOIN BR b ON b.ID = k.BRID JOIN BROpers o ON o.ID = "
                          "b.BROperID JOIN BRProperties p ON p.BRID = k.BRID AND ") +
           EntrySideSql("p") +
           QStringLiteral(" = k.Sign AND NOT (p.FOIDR >= 'O0201500' AND p.FOIDR < 'O0201501') "
                          "LEFT JOIN BRCurrency c ON c.ID = (SELECT y.ID FROM BRCurrency y "
                          "WHERE y.BRID = k.BRID AND ") +
           EntrySideSql("y") +
           QStringLiteral(" = k.Sign ORDER BY y.ID LIMIT 1) WHERE k.DateD IS NOT NULL AND (") +
           kept + QLatin1Char(')');
}

// The rows of one entry made again, for a change the open items do not follow.
QString remakeEntry(const char* entry) {
    const QString id = QLatin1String(entry);
    return QStringLiteral("DELETE FROM BRDebtList WHERE BRID = ") + id + QStringLiteral("; ") +
           insertRows(QStringLiteral("k.BRID = ") + id) + QLatin1Char(';');
}

// A change of any of these columns of a row; `distinct` is the backend's null-safe
// inequality.
QString changed(const QStringList& columns, const QString& distinct) {
    QStringList parts;
    for (const QString& c : columns)
        parts << QStringLiteral("OLD.%1 %2 NEW.%1").arg(c, distinct);
    return parts.join(QStringLiteral(" OR "));
}

const QStringList kEntryColumns{QStringLiteral("BROperID"), QStringLiteral("Info"),
                                QStringLiteral("CurrencyRateD"), QStringLiteral("CurrencyRateC")};
const QStringList kOperationColumns{QStringLiteral("Number"), QStringLiteral("Comment")};

const QString kSetShown = QStringLiteral(
    "UPDATE BRDebtList SET ShowString = NEW.ShowString WHERE BRID = NEW.BRID AND AddresseeID = "
    "NEW.ID;");
const QString kSetRate = QStringLiteral(
    "UPDATE BRDebtList SET RateCurr = NEW.RateCurr WHERE BRID = NEW.BRID AND CurrencyID = "
    "NEW.ID;");
const QString kSetOperation = QStringLiteral(
    "UPDATE BRDebtList SET Number = NEW.Number, Comment = NEW.Comment WHERE BRID IN (SELECT ID "
    "FROM BR WHERE BROperID = NEW.ID);");
const QString kForgetOld =
    QStringLiteral("DELETE FROM BRDebtList WHERE BRID = OLD.BRID AND Sign = OLD.Sign;");
const QString kMakeNew = insertRows(QStringLiteral("k.BRID = NEW.BRID AND k.Sign = NEW.Sign"));

// ---- SQLite ------------------------------------------------------------------------

QStringList sqliteTriggers() {
    const QString distinct = QStringLiteral("IS NOT");
    return {
        SqliteTriggerSql(QStringLiteral("BRDebtListKeptInsert"),
                         QStringLiteral("AFTER INSERT ON BROpenItems"), {},
                         kMakeNew + QLatin1Char(';')),
        SqliteTriggerSql(QStringLiteral("BRDebtListKeptDelete"),
                         QStringLiteral("AFTER DELETE ON BROpenItems"), {}, kForgetOld),
        SqliteTriggerSql(QStringLiteral("BRDebtListKeptUpdate"),
                         QStringLiteral("AFTER UPDATE ON BROpenItems"), {},
                         kForgetOld + QLatin1Char(' ') + kMakeNew + QLatin1Char(';')),
        SqliteTriggerSql(QStringLiteral("BRDebtListEntryUpdate"),
                         QStringLiteral("AFTER UPDATE OF ") +
                             kEntryColumns.join(QStringLiteral(", ")) + QStringLiteral(" ON BR"),
                         changed(kEntryColumns, distinct), remakeEntry("NEW.ID")),
        SqliteTriggerSql(QStringLiteral("BRDebtListOperationUpdate"),
                         QStringLiteral("AFTER UPDATE OF Number, Comment ON BROpers"),
                         changed(kOperationColumns, distinct), kSetOperation),
        SqliteTriggerSql(QStringLiteral("BRDebtListPropertyUpdate"),
                         QStringLiteral("AFTER UPDATE OF ShowString ON BRProperties"),
                         changed({QStringLiteral("ShowString")}, distinct), kSetShown),
        SqliteTriggerSql(QStringLiteral("BRDebtListCurrencyUpdate"),
                         QStringLiteral("AFTER UPDATE OF RateCurr ON BRCurrency"),
                         changed({QStringLiteral("RateCurr")}, distinct), kSetRate),
    };
}

// ---- PostgreSQL --------------------------------------------------------------------

QString postgresFunction(const QString& name, const QString& body) {
    return QStringLiteral("CREATE FUNCTION ") + name +
           QStringLiteral("() RETURNS trigger LANGUAGE plpgsql AS $body$ BEGIN ") + body +
           QStringLiteral(" RETURN NULL; END $body$");
}

QString postgresTrigger(const QString& name, const QString& event, const QString& when) {
    return QStringLiteral("CREATE TRIGGER ") + name + QLatin1Char(' ') + event +
           QStringLiteral(" FOR EACH ROW") +
           (when.isEmpty() ? QString() : QStringLiteral(" WHEN (") + when + QLatin1Char(')')) +
           QStringLiteral(" EXECUTE FUNCTION ") + name + QStringLiteral("()");
}

QStringList postgresTriggers() {
    const QString distinct = QStringLiteral("IS DISTINCT FROM");
    return {
        postgresFunction(QStringLiteral("BRDebtListKeep"),
                         QStringLiteral("IF TG_OP <> 'INSERT' THEN ") + kForgetOld +
                             QStringLiteral(" END IF; IF TG_OP <> 'DELETE' THEN ") + kMakeNew +
                             QStringLiteral("; END IF;")),
        postgresTrigger(QStringLiteral("BRDebtListKeep"),
                        QStringLiteral("AFTER INSERT OR DELETE OR UPDATE ON BROpenItems"), {}),
        postgresFunction(QStringLiteral("BRDebtListEntry"), remakeEntry("NEW.ID")),
        postgresTrigger(QStringLiteral("BRDebtListEntry"),
                        QStringLiteral("AFTER UPDATE OF ") +
                            kEntryColumns.join(QStringLiteral(", ")) + QStringLiteral(" ON BR"),
                        changed(kEntryColumns, distinct)),
        postgresFunction(QStringLiteral("BRDebtListOperation"), kSetOperation),
        postgresTrigger(QStringLiteral("BRDebtListOperation"),
                        QStringLiteral("AFTER UPDATE OF Number, Comment ON BROpers"),
                        changed(kOperationColumns, distinct)),
        postgresFunction(QStringLiteral("BRDebtListProperty"), kSetShown),
        postgresTrigger(QStringLiteral("BRDebtListProperty"),
                        QStringLiteral("AFTER UPDATE OF ShowString ON BRProperties"),
                        changed({QStringLiteral("ShowString")}, distinct)),
        postgresFunction(QStringLiteral("BRDebtListCurrency"), kSetRate),
        postgresTrigger(QStringLiteral("BRDebtListCurrency"),
                        QStringLiteral("AFTER UPDATE OF RateCurr ON BRCurrency"),
                        changed({QStringLiteral("RateCurr")}, distinct)),
    };
}

} // namespace

Migration DebtListMigration() {
    Migration m;
    m.Version = kDebtListMigrationVersion;
    m.Title = QStringLiteral("Skolų sąrašo eilutės");
    m.Tables = {BRDebtList()};
    m.Indexes = {byAccount()};
    m.Apply = [](Database& db) {
        // The debts the book already keeps, before the triggers take over.
        QStringList statements{insertRows(QStringLiteral("1 = 1"))};
        statements += db.Kind() == Backend::PostgreSQL ? postgresTriggers() : sqliteTriggers();
        return ExecuteStatements(db, statements);
    };
    return m;
}

Migration DebtListOrderMigration() {
    Migration m;
    m.Version = kDebtListOrderMigrationVersion;
    m.Title = QStringLiteral("Skolų sąrašo eilutės sąrašo tvarka");
    m.Apply = [](Database& db) {
        // The table is made anew: SQLite can change neither a table's primary key nor
        // its keeping of row numbers. The triggers find it again by its name.
        const ExecResult dropped = db.Execute(QStringLiteral("DROP TABLE BRDebtList"));
        if (!dropped.ok())
            return ResultRecord::Failure(dropped.Code, dropped.Text);
        ResultRecord r = db.CreateTable(BRDebtListInListOrder());
        if (r.ok())
            r = db.CreateIndex(byDebt());
        if (!r.ok())
            return r;
        return ExecuteStatements(db, {insertRows(QStringLiteral("1 = 1"))});
    };
    return m;
}

} // namespace orvo::host
