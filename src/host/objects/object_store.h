// ObjectStore reads and writes records of any ObjectKind: a stored record becomes one
// recordset row with its nested recordsets filled from the child tables, and a save
// writes back exactly what changed (new, modified and deleted rows, at every depth) in
// one transaction. A save that fails leaves storage as it was and the recordset as the
// caller had it; a save that succeeds gives every new row its record number and marks
// every row unchanged.
//
// Record numbers: a record's reference (OIDR) is the kind's code followed by its ID.
// The first field of every record row is OIDR (Null for a record not yet stored).
#pragma once

#include "core/recordset.h"
#include "core/results.h"
#include "host/objects/object_kind.h"

namespace orvo::host {

class Database;

class ObjectStore {
public:
    explicit ObjectStore(Database& db) : db_(db) {}

    // The fields of a record of this table: OIDR, the shown columns, the extra fields,
    // then one Chapter field per child.
    static FieldDefs RecordFields(const ObjectTable& table);

    // A blank record: one new row with the columns' defaults and empty nested recordsets.
    // `oid` is the code or OID asked for, handed to the kind's PrepareBlank.
    BOResult ReadBlank(const ObjectKind& kind, const QString& oid = QString()) const;
    // The stored record `id` with all its nested rows; a record that does not exist is
    // refused with a clear text. A number that names a nested row reads its record when
    // the kind says how to find it (OwnerOf).
    BOResult Read(const ObjectKind& kind, qint64 id) const;
    // Stores the record in `rs` (its first row) as record `id`, or as a new record when
    // `id` is 0. Data of the result: one row with OIDR, ID and the lock value.
    // The kind's hooks run inside the transaction; `actor` is who saves.
    BOResult Save(const ObjectKind& kind, qint64 id, const RecordsetPtr& rs,
                  const ObjectSaveActor& actor = {});
    // Removes the record (its nested rows go with it by the tables' cascades) and runs
    // the kind's AfterDelete in the same transaction.
    BOResult Delete(const ObjectKind& kind, qint64 id, const ObjectSaveActor& actor = {});
    // Rows OIDR, OType, Preview of the kind's records in list order; `from` and `to`
    // are 1-based positions in that order (0 means from the start / to the end).
    BOResult List(const ObjectKind& kind, int from, int to) const;

    // The record number in an OIDR of the kind, or 0 when it is not one.
    static qint64 IdFromOIDR(const ObjectKind& kind, const QString& oidr);
    static QString OIDRFor(const ObjectKind& kind, qint64 id);

private:
    struct PendingWrite {
        RecordsetPtr rs;
        int row;
        int field;
        Value value;
    };

    bool readRows(const ObjectTable& table, const QString& where, const Value& key, Recordset& into,
                  QString* error) const;
    bool fillRow(const ObjectTable& table, const QStringList& columns, const ValueArray& row,
                 Recordset& into, QString* error) const;
    bool saveRow(const ObjectTable& table, Recordset& rs, int row, qint64 id, bool insert,
                 const QString& parentColumn, qint64 parentId, const RecordsetPtr& rsPtr,
                 QVector<PendingWrite>& pending, qint64* newId, QString* error);
    bool saveChildren(const ObjectTable& table, Recordset& rs, int row, qint64 id, bool parentIsNew,
                      QVector<PendingWrite>& pending, QString* error);

    Database& db_;
};

} // namespace orvo::host
