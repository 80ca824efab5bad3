// SchemaDdl turns the C++ description of a table, index or sequence into the statements
// of one backend, so that the two dialects come from one source of truth. Only names
// from the description and literal defaults written in the description enter the text;
// values (the starting row of a sequence counter) travel as parameters.
#pragma once

#include "host/storage/schema.h"

#include <QVector>

namespace orvo::host {

enum class Backend;

class SchemaDdl {
public:
    static QVector<Statement> CreateTable(const TableDef& table, Backend backend);
    static QVector<Statement> CreateIndex(const IndexDef& index, Backend backend);
    static QVector<Statement> CreateSequence(const SequenceDef& sequence, Backend backend);

    // The SQL type of a column kind in a backend (without constraints).
    static QString TypeName(ColumnType type, Backend backend);

    // SQLite keeps its sequences as rows of this table.
    static const QString& SqliteSequenceTable();
};

} // namespace orvo::host
