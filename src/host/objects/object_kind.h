// ObjectKind describes how one kind of object (an object code such as "O0000100") is
// stored: its table, the tables of the recordsets nested in its row, how the record's
// title and list text are made, and whether saves are guarded by an optimistic lock.
// The generic store (ObjectStore) reads and writes any kind from this description, so a
// new catalogue is a description, not new storage code.
#pragma once

#include "core/field_type.h"
#include "core/results.h"
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

class Database;
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
    // A named sequence (Database::NextId) that new rows draw their ID from, instead of
    // the table's own numbering; empty for the table's own. Kinds whose rows must never
    // share a number with rows of another table draw from one sequence.
    QString IdSequence;
    // The record's fields exactly, when the record has a shape of its own that the
    // columns follow (a field whose name is a column is stored in it, any other field
    // is kept in memory only, and a Chapter field is a child). Empty: the fields come
    // from the columns (RecordFields).
    FieldDefs Shape;
};

// Who is saving, for hooks that stamp or log the change.
struct ObjectSaveActor {
    QString UserOIDR;
    QString UserName;
};

// Hooks a kind may set; each runs inside the save's transaction, so a refusal or a
// failure leaves the book as it was.
struct ObjectSaveHooks {
    // Before anything is written: a non-zero Code refuses the save with its Text. It may
    // stamp fields of the row (the record keeps the stamps only when the save commits).
    std::function<ResultRecord(Database&, Recordset& rs, int row, qint64 id,
                               const ObjectSaveActor&)>
        BeforeWrite;
    // After every row is written, before the commit: a change log, or stamps written
    // with their own statement (and then into the row with SetValueAt).
    std::function<ResultRecord(Database&, Recordset& rs, int row, qint64 storedId, bool isNew,
                               const ObjectSaveActor&)>
        AfterWrite;
    // After the record has been deleted, in the same transaction.
    std::function<ResultRecord(Database&, qint64 id, const ObjectSaveActor&)> AfterDelete;
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
    ObjectSaveHooks Hooks;
    // The hooks one ObjectStore::SaveMany runs for all its records, made afresh for each
    // batch, so that they may remember for the length of the batch what they read of
    // other tables (the chart of accounts, say); unset: the batch runs Hooks.
    std::function<ObjectSaveHooks()> BatchHooks;
    // A number that names a row nested in a record (an entry of an operation) gives the
    // number of the record that holds it; 0 when it names none. Unset: a number names
    // only a record.
    std::function<qint64(Database&, qint64 id)> OwnerOf;
    // Fills a blank record for the code or OID asked for (a document kind sharing the
    // kind's tables, say); runs on the one new row.
    std::function<void(Recordset& rs, const QString& oid)> PrepareBlank;
};

// The recordset field type that holds a stored column's values.
FieldType FieldTypeForColumn(ColumnType type);

} // namespace orvo::host
