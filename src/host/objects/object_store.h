// ObjectStore reads and writes records of any ObjectKind: a stored record becomes one
// recordset row with its nested recordsets filled from the child tables, and a save
// writes back exactly what changed (new, modified and deleted rows, at every depth) in
// one transaction. A save that fails leaves storage as it was and the recordset as the
// caller had it; a save that succeeds gives every new row its record number and marks
// every row unchanged.
//
// How a save writes: the numbers of all new rows are drawn first, in one block per
// sequence or table, so that no row has to ask for its number back; updates and
// deletions run as the record is walked; the new rows are then inserted table by
// table, parents before children, with multi-row statements (Database::InsertRows).
//
// Record numbers: a record's reference (OIDR) is the kind's code followed by its ID.
// The first field of every record row is OIDR (Null for a record not yet stored).
#pragma once

#include "core/recordset.h"
#include "core/results.h"
#include "host/objects/object_kind.h"

#include <QHash>
#include <QPair>

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
    // One record of a batch: its number (0 for a new record) and its recordset.
    struct Item {
        qint64 Id = 0;
        RecordsetPtr Rs;
    };
    // Stores many records of one kind in one transaction (a savepoint when one is open),
    // each exactly as Save stores it, hooks included (the kind's BatchHooks when it has
    // them), in the order given, so that a record's hooks see the records before it. All or
    // nothing: when any record is refused or fails, nothing of the batch is stored, the result
    // carries that record's Code and Text with its position (0-based) in the Data of the failure,
    // and every recordset is left as the caller had it (as a failed Save leaves it). On success
    // each record learns its numbers as after Save; Data: one row per record, in order, with OIDR,
    // ID and the lock value.
    BOResult SaveMany(const ObjectKind& kind, const QVector<Item>& items,
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
    // The new rows of one table gathered by a save, all with the same columns.
    struct InsertBatch {
        const ObjectTable* table = nullptr;
        QStringList columns;
        QVector<ValueArray> rows;
    };
    // Numbers for one table's new rows: counted, then drawn, then handed out in the
    // order of the walk.
    struct IdBlock {
        // Numbers still to be drawn for the rows counted since the last draw.
        int need = 0;
        QVector<qint64> ids;
        int next = 0;
    };
    // The shown columns of a table and where a recordset of its rows holds each (-1: not
    // at all), with the names a new row is inserted under.
    struct ColumnMap {
        int fieldCount = -1;
        QVector<QPair<const ColumnDef*, int>> columns;
        QStringList insertNames;
        // insertNames and the parent link, made when first needed.
        mutable QStringList withParent;
    };
    // What one save (or one record of a batch) has to do, built while walking it.
    struct SavePlan {
        QHash<const ObjectTable*, ColumnMap> columnMaps;
        const ColumnMap& columnsFor(const ObjectTable& table, const Recordset& rs);
        // Values the recordsets learn after the commit (of the whole batch).
        QVector<PendingWrite> pending;
        // In the order the tables are met: a parent's table always before its child's.
        QVector<InsertBatch> inserts;
        QHash<const ObjectTable*, IdBlock> ids;
        QVector<const ObjectTable*> order;
        InsertBatch* batchFor(const ObjectTable& table, const QStringList& columns);
        void countNew(const ObjectTable& table);
    };
    // The result of writing one record inside an open transaction.
    struct Written {
        qint64 id = 0;
        QString lock;
        qint32 code = 1;
        QString error;
    };

    bool readRows(const ObjectTable& table, const QString& where, const Value& key, Recordset& into,
                  QString* error) const;
    bool fillRow(const ObjectTable& table, const QStringList& columns, const ValueArray& row,
                 Recordset& into, QString* error) const;
    // Writes one record inside the caller's transaction: hooks, numbers, rows, lock.
    bool writeRecord(const ObjectKind& kind, const ObjectSaveHooks& hooks, qint64 id,
                     const RecordsetPtr& rs, int row, const ObjectSaveActor& actor, SavePlan& plan,
                     Written& out);
    void countInserts(const ObjectTable& table, const Recordset& rs, int row, bool rowIsNew,
                      SavePlan& plan);
    bool drawIds(SavePlan& plan, QString* error);
    bool saveRow(const ObjectTable& table, Recordset& rs, int row, qint64 id, bool insert,
                 const QString& parentColumn, qint64 parentId, const RecordsetPtr& rsPtr,
                 SavePlan& plan, qint64* newId, QString* error);
    bool saveChildren(const ObjectTable& table, Recordset& rs, int row, qint64 id, bool parentIsNew,
                      SavePlan& plan, QString* error);
    bool flushInserts(SavePlan& plan, QString* error);
    static void applyPending(const SavePlan& plan);
    static RecordsetPtr savedRows(const ObjectKind& kind);

    Database& db_;
};

} // namespace orvo::host
