// ObjectKind describes how one kind of object (an object code such as "O0000100") is
// stored: its table, the tables of the recordsets nested in its row, how the record's
// title and list text are made, and whether saves are guarded by an optimistic lock.
// The generic store (ObjectStore) reads and writes any kind from this description, so a
// new catalogue is a description, not new storage code.
#pragma once

#include "core/field_type.h"
#include "host/storage/schema.h"

#include <QString>
#include <QStringList>
#include <QVector>
#include <functional>
#include <memory>

namespace orvo {
class Recordset;
}

namespace orvo::host {

struct ObjectTable;

// A recordset nested in every row of its parent: the Chapter field `Field` holds the rows
// of `Table` whose `ParentColumn` is the parent row's ID. A transient child is part of
// the record's structure but never stored (a list of demands computed on reading).
struct ObjectChild {
    QString Field;
    std::shared_ptr<ObjectTable> Table;
    QString ParentColumn;
    bool Transient = false;
};

struct ObjectTable {
    // The stored table; its ID column is the record number.
    TableDef Table;
    // Columns of the table that the record does not show (besides the parent link).
    QStringList Hidden;
    // Fields of the record that no column holds (kept in memory only), such as a GUID
    // of a row not yet stored; they come after the columns.
    FieldDefs Extra;
    QVector<ObjectChild> Children;
    // ORDER BY of the rows when read as a child; "ID" when empty.
    QString OrderBy;
};

struct ObjectKind {
    QString Code;
    // What OName gives for the kind, e.g. "Įmonės".
    QString Title;
    ObjectTable Root;
    // The record's text in lists (Preview), made from the current row.
    std::function<QString(const Recordset&)> Preview;
    // The expression (SQL over the root table) that lists show as Preview, e.g.
    // "Name" or "Code || ' ' || Name"; empty gives the record number.
    QString ListPreviewSql;
    // ORDER BY of the list; "ID" when empty.
    QString ListOrderBy;
    // A text column renewed on every save and checked against the value read: a save
    // from a copy read before someone else's save is refused.
    QString LockColumn;
};

// The recordset field type that holds a stored column's values.
FieldType FieldTypeForColumn(ColumnType type);

} // namespace orvo::host
