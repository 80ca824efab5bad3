// The counters behind the automatic numbers of operations. A group's numbering rule
// (the AN* columns of BROperGroups) says which operations share one counter (the scope,
// ANGroupBy) and how long a counter runs before it starts again (the period, ANCycle);
// each scope and period has one row in AutoNumberCounters with the last value given out.
//
//   ANGroupBy  0 one counter for the book, 1 by group, 2 by user, 3 by group and user,
//              4 by document kind (OType), 5 by document kind and user
//   ANCycle    0 a day, 1 a month, 2 a quarter, 3 a year
//   ANMinimal  the least value a counter gives
//   ANDateFrom before this date the group gives no counter (0)
//
// A value is drawn inside a transaction that locks the counter's row, so two sessions
// on one book never get the same value. An operation belongs to the period of its date
// (DateD) and, for the user scopes, to the user who created it. Saving an operation
// whose counter another operation of the same scope and period already holds is
// refused; a counter set by hand above the last value given out moves the counter up,
// so that the next value drawn follows it.
#pragma once

#include "core/results.h"

#include <QDate>
#include <QString>

namespace orvo {
class Recordset;
}

namespace orvo::host {

class Database;
struct ObjectSaveActor;

// A group's numbering rule as stored.
struct NumberingRule {
    bool Found = false;
    qint64 GroupID = 0;
    QString Mask;
    QString Prefix;
    QString Template;
    int GroupBy = 0;
    int Cycle = 3;
    qint32 Minimal = 1;
    QDate DateFrom;
    QString FormOID;
    QString Parameters;

    // Whether the mask has a counter part at all: without one nothing is drawn.
    bool HasCounter() const;
    // Whether the group numbers its payment documents per bank account: then the
    // counter's scope also holds the account, which the operation does not store.
    bool NumbersByAccount() const;
};

// The rule of group `groupId`; Found false when there is no such group. False with
// `error` set when reading fails.
bool ReadNumberingRule(Database& db, qint64 groupId, NumberingRule* rule, QString* error);

// The text naming the period of `date` under `cycle`: "D2024-03-15", "M2024-03",
// "Q2024-1", "Y2024". An unknown cycle counts by year, the column's default.
QString CounterPeriod(int cycle, const QDate& date);

// The counter's key: the scope's parts, the period and, when given, the qualifier (the
// bank account of a group numbered per account), joined by "|".
QString CounterScope(const NumberingRule& rule, qint32 userId, const QString& oType,
                     const QDate& date, const QString& qualifier = QString());

// Draws the next value of the counter `scope`: one above the last value, never below
// `minimal`. Runs in its own transaction (a savepoint inside an open one).
ResultRecord DrawCounter(Database& db, const QString& scope, qint32 minimal, qint32* value);

// The last value given out of the counter `scope`; 0 when none.
qint32 LastCounter(Database& db, const QString& scope, QString* error = nullptr);

// The save hook of the operation kinds: refuses (777) a counter that another operation
// of the same scope and period holds, and moves the counter up to a value set by hand.
ResultRecord CheckOperationCounter(Database& db, Recordset& rs, int row, qint64 id,
                                   const ObjectSaveActor& actor);

} // namespace orvo::host
