#include "host/objects/auto_number_counters.h"

#include "core/null_readers.h"
#include "core/recordset.h"
#include "core/today.h"
#include "host/objects/object_kind.h"
#include "host/objects/operation_kind.h"
#include "host/storage/database.h"

#include <QHash>
#include <QStringList>

namespace orvo::host {

namespace {

Value fieldAt(const Recordset& rs, int row, const char* name) {
    return rs.ValueAt(row, rs.FieldIndex(QString::fromLatin1(name)));
}

// The record number of the user with login `code`; 0 when none.
qint32 userIdOf(Database& db, const QString& code) {
    if (code.trimmed().isEmpty())
        return 0;
    const QueryResult q =
        db.Query(QStringLiteral("SELECT ID FROM Users WHERE Code = ?"), {Value(code.trimmed())});
    return q.ok() && q.RowCount() > 0 ? q.Scalar().toInt32() : 0;
}

ResultRecord failure(const QString& text) {
    return ResultRecord::Failure(1, text);
}

// Makes sure the counter's row exists, so that the statements after it lock one row.
ResultRecord ensureCounter(Database& db, const QString& scope) {
    const ExecResult r = db.Execute(QStringLiteral("INSERT INTO AutoNumberCounters (Scope, "
                                                   "LastValue) VALUES (?, 0) ON CONFLICT "
                                                   "(Scope) DO NOTHING"),
                                    {Value(scope)});
    return r.ok() ? ResultRecord::Success() : failure(r.Text);
}

// Moves the counter up to `value` when it stands below it.
ResultRecord raiseCounter(Database& db, const QString& scope, qint32 value) {
    const ResultRecord ensured = ensureCounter(db, scope);
    if (!ensured.ok())
        return ensured;
    const ExecResult r = db.Execute(QStringLiteral("UPDATE AutoNumberCounters SET LastValue = ? "
                                                   "WHERE Scope = ? AND LastValue < ?"),
                                    {Value(value), Value(scope), Value(value)});
    return r.ok() ? ResultRecord::Success() : failure(r.Text);
}

// The parts of an operation that decide its counter, as stored or as about to be.
struct CounterOwner {
    qint64 GroupID = 0;
    QString OType;
    QDate Date;
    QString CreatorCode;
    qint32 AutoNumber = 0;
};

} // namespace

bool NumberingRule::HasCounter() const {
    return Mask.split(QLatin1Char('_')).contains(QStringLiteral("AutoNumber"));
}

bool NumberingRule::NumbersByAccount() const {
    if (FormOID != QLatin1String("O0201501") && FormOID != QLatin1String("O0201502"))
        return false;
    return Parameters.split(QLatin1Char('#')).value(5).trimmed().toInt() != 0;
}

bool ReadNumberingRule(Database& db, qint64 groupId, NumberingRule* rule, QString* error) {
    *rule = NumberingRule();
    rule->GroupID = groupId;
    const QueryResult q = db.Query(
        QStringLiteral("SELECT ANMask, ANPrefix, ANTemplate, ANGroupBy, ANCycle, ANMinimal, "
                       "ANDateFrom, FormOID, Parameters FROM BROperGroups WHERE ID = ?"),
        {Value(double(groupId))});
    if (!q.ok()) {
        if (error)
            *error = q.Text;
        return false;
    }
    if (q.RowCount() == 0)
        return true;
    rule->Found = true;
    rule->Mask = q.At(0, 0).toString().trimmed();
    rule->Prefix = q.At(0, 1).toString();
    rule->Template = q.At(0, 2).toString();
    rule->GroupBy = q.At(0, 3).isNull() ? 0 : q.At(0, 3).toInt32();
    rule->Cycle = q.At(0, 4).isNull() ? 3 : q.At(0, 4).toInt32();
    rule->Minimal = q.At(0, 5).isNull() ? 1 : q.At(0, 5).toInt32();
    rule->DateFrom = q.At(0, 6).isNull() ? QDate() : q.At(0, 6).toDate();
    rule->FormOID = q.At(0, 7).toString().trimmed();
    rule->Parameters = q.At(0, 8).toString();
    return true;
}

QString CounterPeriod(int cycle, const QDate& date) {
    switch (cycle) {
    case 0:
        return QStringLiteral("D") + date.toString(QStringLiteral("yyyy-MM-dd"));
    case 1:
        return QStringLiteral("M") + date.toString(QStringLiteral("yyyy-MM"));
    case 2:
        return QStringLiteral("Q%1-%2").arg(date.year()).arg((date.month() - 1) / 3 + 1);
    default:
        return QStringLiteral("Y%1").arg(date.year());
    }
}

QString CounterScope(const NumberingRule& rule, qint32 userId, const QString& oType,
                     const QDate& date, const QString& qualifier) {
    const QString group = QStringLiteral("G%1").arg(rule.GroupID);
    const QString user = QStringLiteral("U%1").arg(userId);
    const QString kind = QStringLiteral("T") + oType.trimmed();
    QStringList parts;
    switch (rule.GroupBy) {
    case 0:
        parts << QStringLiteral("A");
        break;
    case 2:
        parts << user;
        break;
    case 3:
        parts << group << user;
        break;
    case 4:
        parts << kind;
        break;
    case 5:
        parts << kind << user;
        break;
    default:
        // 1, and any value the editor never writes: the group's own counter, so that
        // a stray value never merges groups.
        parts << group;
        break;
    }
    parts << CounterPeriod(rule.Cycle, date);
    if (!qualifier.isEmpty())
        parts << QStringLiteral("X") + qualifier;
    return parts.join(QLatin1Char('|'));
}

qint32 LastCounter(Database& db, const QString& scope, QString* error) {
    const QueryResult q = db.Query(
        QStringLiteral("SELECT LastValue FROM AutoNumberCounters WHERE Scope = ?"), {Value(scope)});
    if (!q.ok()) {
        if (error)
            *error = q.Text;
        return 0;
    }
    return q.RowCount() > 0 ? q.Scalar().toInt32() : 0;
}

ResultRecord DrawCounter(Database& db, const QString& scope, qint32 minimal, qint32* value) {
    *value = 0;
    const ResultRecord begun = db.Begin();
    if (!begun.ok())
        return begun;
    ResultRecord r = ensureCounter(db, scope);
    if (r.ok()) {
        // One statement takes the row's lock and moves it on, so a second session waits
        // here and then sees the first one's value.
        const ExecResult moved = db.Execute(
            QStringLiteral("UPDATE AutoNumberCounters SET LastValue = CASE WHEN LastValue + 1 < "
                           "? THEN ? ELSE LastValue + 1 END WHERE Scope = ?"),
            {Value(minimal), Value(minimal), Value(scope)});
        if (!moved.ok())
            r = failure(moved.Text);
    }
    if (r.ok()) {
        QString error;
        *value = LastCounter(db, scope, &error);
        if (!error.isEmpty())
            r = failure(error);
    }
    if (!r.ok()) {
        db.Rollback();
        *value = 0;
        return r;
    }
    const ResultRecord committed = db.Commit();
    if (!committed.ok())
        *value = 0;
    return committed;
}

ResultRecord CheckOperationCounter(Database& db, Recordset& rs, int row, qint64 id,
                                   const ObjectSaveActor& actor) {
    CounterOwner mine;
    mine.AutoNumber = fieldAt(rs, row, "AutoNumber").toInt32();
    if (mine.AutoNumber <= 0)
        return ResultRecord::Success();
    mine.GroupID = NzId(fieldAt(rs, row, "BROperGroupID"));
    mine.OType = fieldAt(rs, row, "OType").toString().trimmed();
    if (mine.OType.isEmpty())
        mine.OType = kinds::Operation;
    const Value date = fieldAt(rs, row, "DateD");
    mine.Date = date.isNull() ? Today() : date.toDate();
    mine.CreatorCode = actor.UserOIDR;

    if (id > 0) {
        const QueryResult stored = db.Query(
            QStringLiteral("SELECT AutoNumber, BROperGroupID, DateD, OType, CreatedByUserOIDR "
                           "FROM BROpers WHERE ID = ?"),
            {Value(double(id))});
        if (!stored.ok())
            return failure(stored.Text);
        if (stored.RowCount() > 0) {
            // An operation keeps the user who made it; a change that leaves its counter,
            // group, date and kind as they were has nothing new to check.
            if (!stored.At(0, 4).toString().isEmpty())
                mine.CreatorCode = stored.At(0, 4).toString();
            if (stored.At(0, 0).toInt32() == mine.AutoNumber &&
                NzId(stored.At(0, 1)) == mine.GroupID && stored.At(0, 2).toDate() == mine.Date &&
                stored.At(0, 3).toString().trimmed() == mine.OType)
                return ResultRecord::Success();
        }
    }

    QHash<qint64, NumberingRule> rules;
    QString error;
    auto ruleOf = [&](qint64 groupId) -> const NumberingRule* {
        if (!rules.contains(groupId)) {
            NumberingRule rule;
            if (!ReadNumberingRule(db, groupId, &rule, &error))
                return nullptr;
            rules.insert(groupId, rule);
        }
        return &rules[groupId];
    };
    // The counter's key of an operation under its own group's rule; empty when the
    // group gives no counter the save could check.
    auto scopeOf = [&](const CounterOwner& op) -> QString {
        const NumberingRule* rule = ruleOf(op.GroupID);
        if (!rule || !rule->Found || !rule->HasCounter() || rule->NumbersByAccount())
            return QString();
        return CounterScope(*rule, userIdOf(db, op.CreatorCode), op.OType, op.Date);
    };

    const QString scope = scopeOf(mine);
    if (!error.isEmpty())
        return failure(error);
    if (scope.isEmpty())
        return ResultRecord::Success();

    const QueryResult others = db.Query(
        QStringLiteral("SELECT ID, BROperGroupID, OType, DateD, CreatedByUserOIDR, Number FROM "
                       "BROpers WHERE AutoNumber = ? AND ID <> ? ORDER BY ID"),
        {Value(mine.AutoNumber), Value(double(id))});
    if (!others.ok())
        return failure(others.Text);
    for (int i = 0; i < others.RowCount(); ++i) {
        CounterOwner other;
        other.AutoNumber = mine.AutoNumber;
        other.GroupID = NzId(others.At(i, 1));
        other.OType = others.At(i, 2).toString().trimmed();
        other.Date = others.At(i, 3).toDate();
        other.CreatorCode = others.At(i, 4).toString();
        const QString otherScope = scopeOf(other);
        if (!error.isEmpty())
            return failure(error);
        if (otherScope != scope)
            continue;
        const QString number = others.At(i, 5).toString().trimmed();
        return ResultRecord::Failure(
            777, QStringLiteral("Operacijos eilės numeris %1 jau suteiktas kitai operacijai%2 "
                                "(%3). Nurodykite kitą numerį.")
                     .arg(mine.AutoNumber)
                     .arg(number.isEmpty() ? QString() : QStringLiteral(" Nr. ") + number)
                     .arg(other.Date.toString(QStringLiteral("yyyy.MM.dd"))));
    }
    return raiseCounter(db, scope, mine.AutoNumber);
}

} // namespace orvo::host
