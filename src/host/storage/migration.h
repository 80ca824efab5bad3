// One step of the book's structure: what a migration creates, described once for both
// backends. Migrations are numbered from 1 without gaps; the list lives in migrations.cpp
// and adding a step is adding one entry there. A migration is applied in one
// transaction together with the new version stamp, so a book is never half migrated.
#pragma once

#include "host/storage/schema.h"

#include "core/results.h"

#include <QString>
#include <QStringList>
#include <QVector>
#include <functional>

namespace orvo::host {

class Database;

struct Migration {
    int Version = 0;
    QString Title;
    QVector<SequenceDef> Sequences;
    QVector<TableDef> Tables;
    QVector<IndexDef> Indexes;
    // Rows the new structure starts with, as parameterised statements.
    QVector<Statement> Data;
    // Anything a description cannot say (reshaping data); runs last. May be empty.
    std::function<ResultRecord(Database&)> Apply;
};

// Runs the fixed statements of an Apply step (triggers, fills) in order, stopping at the
// first the book refuses.
ResultRecord ExecuteStatements(Database& db, const QStringList& statements);

} // namespace orvo::host
