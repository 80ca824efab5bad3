#include "host/objects/object_store.h"

#include "host/methods/method_helpers.h"
#include "host/storage/database.h"
#include "host/storage/money.h"
#include "host/storage/storage_messages.h"

#include <QUuid>

namespace orvo::host {

using namespace storage;

FieldType FieldTypeForColumn(ColumnType type) {
    switch (type) {
    case ColumnType::Id:
    case ColumnType::Integer:
        return FieldType::Integer;
    case ColumnType::Flag:
        return FieldType::Boolean;
    case ColumnType::Money:
    case ColumnType::Double:
        return FieldType::Double;
    case ColumnType::Text:
        return FieldType::VarWChar;
    case ColumnType::Date:
        return FieldType::Date;
    case ColumnType::DateTime:
        return FieldType::DBTimeStamp;
    }
    return FieldType::Variant;
}

namespace {

const QString kOIDR = QStringLiteral("OIDR");
const QString kID = QStringLiteral("ID");

QVector<const ColumnDef*> shownColumns(const ObjectTable& table) {
    QVector<const ColumnDef*> out;
    for (const ColumnDef& c : table.Table.Columns)
        if (!table.Hidden.contains(c.Name, Qt::CaseInsensitive))
            out.append(&c);
    return out;
}

// A recordset value as the parameter its column stores.
Value toStored(const ColumnDef& column, const Value& v) {
    switch (column.Type) {
    case ColumnType::Flag:
        return Value(qint32(!v.isNull() && v.toBool() ? 1 : 0));
    case ColumnType::Money:
        return v.isNull() ? Value() : Money::CentsValue(Money::ToCents(v.toDouble()));
    case ColumnType::Double:
        return v.isNull() ? Value() : Value(v.toDouble());
    case ColumnType::Id:
    case ColumnType::Integer:
        return v.isNull() ? Value() : Value(v.toInt32());
    case ColumnType::Text:
        return v.isNull() ? Value() : Value(v.toString());
    case ColumnType::Date:
        return v.isNull() ? Value() : Value(v.toDate());
    case ColumnType::DateTime:
        return v.isNull() ? Value() : Value(v.toDateTime());
    }
    return v;
}

// A stored value as the recordset holds it.
Value fromStored(ColumnType type, const Value& v) {
    if (v.isNull())
        return v;
    switch (type) {
    case ColumnType::Flag:
        return Value(v.toInt32() != 0);
    case ColumnType::Money:
        return Money::AmountFromValue(v);
    default:
        return v;
    }
}

// The value a column's literal default gives, as the recordset holds it.
Value defaultOf(const ColumnDef& c) {
    const QString d = c.Default;
    if (d.isEmpty())
        return c.Type == ColumnType::Flag ? Value(false) : Value();
    if (d.startsWith('\'') && d.endsWith('\'') && d.size() >= 2)
        return Value(d.mid(1, d.size() - 2).replace(QStringLiteral("''"), QStringLiteral("'")));
    return fromStored(c.Type,
                      c.Type == ColumnType::Double ? Value(d.toDouble()) : Value(d.toInt()));
}

int firstLiveRow(const Recordset& rs) {
    for (int i = 0; i < rs.RowCountAll(); ++i)
        if (rs.StatusAt(i) != RowStatus::Deleted)
            return i;
    return -1;
}

QString newLockValue() {
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

} // namespace

FieldDefs ObjectStore::RecordFields(const ObjectTable& table) {
    if (!table.Shape.isEmpty())
        return table.Shape;
    FieldDefs fields;
    fields.append(FieldDef::Make(kOIDR, FieldType::VarWChar, 30));
    for (const ColumnDef* c : shownColumns(table))
        fields.append(FieldDef::Make(c->Name, FieldTypeForColumn(c->Type)));
    for (const FieldDef& f : table.Extra)
        fields.append(f);
    for (const ObjectChild& child : table.Children)
        fields.append(FieldDef::Chapter(child.Field, RecordFields(*child.Table)));
    return fields;
}

qint64 ObjectStore::IdFromOIDR(const ObjectKind& kind, const QString& oidr) {
    const QString t = oidr.trimmed();
    if (t.size() < 9 || !t.startsWith(kind.Code))
        return 0;
    bool ok = false;
    const qint64 id = t.mid(kind.Code.size()).toLongLong(&ok);
    return ok && id > 0 ? id : 0;
}

QString ObjectStore::OIDRFor(const ObjectKind& kind, qint64 id) {
    return kind.Code + QString::number(id);
}

BOResult ObjectStore::ReadBlank(const ObjectKind& kind, const QString& oid) const {
    auto rs = Recordset::Create(RecordFields(kind.Root));
    rs->AddNew();
    for (const ColumnDef* c : shownColumns(kind.Root)) {
        if (c->Type == ColumnType::Id || !rs->HasField(c->Name))
            continue;
        const Value d = defaultOf(*c);
        if (!d.isNull())
            rs->SetField(c->Name, d);
    }
    if (kind.PrepareBlank)
        kind.PrepareBlank(*rs, oid.isEmpty() ? kind.Code : oid);
    rs->Update();
    return BOResult::Of(Value(rs));
}

bool ObjectStore::fillRow(const ObjectTable& table, const QStringList& columns,
                          const ValueArray& row, Recordset& into, QString* error) const {
    into.AddNew();
    qint64 id = 0;
    for (int i = 0; i < columns.size(); ++i) {
        const QString& name = columns.at(i);
        ColumnType type = ColumnType::Text;
        for (const ColumnDef& c : table.Table.Columns)
            if (c.Name.compare(name, Qt::CaseInsensitive) == 0)
                type = c.Type;
        if (name.compare(kID, Qt::CaseInsensitive) == 0)
            id = row.at(i).toDouble();
        if (into.FieldIndex(name) >= 0 && !into.SetField(name, fromStored(type, row.at(i)))) {
            *error =
                QStringLiteral("Lauko „%1“ reikšmė netinka: %2").arg(name, row.at(i).toString());
            return false;
        }
    }
    for (const ObjectChild& child : table.Children) {
        const RecordsetPtr nested = into.Field(child.Field).toRecordset();
        if (!nested || child.Transient)
            continue;
        if (!readRows(*child.Table, child.ParentColumn, Value(double(id)), *nested, error))
            return false;
    }
    into.Update();
    return true;
}

bool ObjectStore::readRows(const ObjectTable& table, const QString& where, const Value& key,
                           Recordset& into, QString* error) const {
    QStringList cols;
    for (const ColumnDef& c : table.Table.Columns)
        cols.append(c.Name);
    const QString order = table.OrderBy.isEmpty() ? kID : table.OrderBy;
    const QueryResult q =
        db_.Query(QStringLiteral("SELECT %1 FROM %2 WHERE %3 = ? ORDER BY %4")
                      .arg(cols.join(QStringLiteral(", ")), table.Table.Name, where, order),
                  {key});
    if (!q.ok()) {
        *error = q.Text;
        return false;
    }
    for (const ValueArray& row : q.Rows)
        if (!fillRow(table, q.Columns, row, into, error))
            return false;
    // OIDR of a nested row is its own table's reference only for the root; children
    // leave it Null.
    into.AcceptChanges();
    into.MoveFirst();
    return true;
}

BOResult ObjectStore::Read(const ObjectKind& kind, qint64 id) const {
    auto rs = Recordset::Create(RecordFields(kind.Root));
    QString error;
    if (!readRows(kind.Root, kID, Value(double(id)), *rs, &error))
        return BOResult::Failure(1, error);
    if (rs->RecordCount() == 0 && kind.OwnerOf) {
        // The number may name a row nested in a record: read the record that holds it.
        const qint64 owner = kind.OwnerOf(db_, id);
        if (owner > 0 && owner != id) {
            id = owner;
            if (!readRows(kind.Root, kID, Value(double(id)), *rs, &error))
                return BOResult::Failure(1, error);
        }
    }
    if (rs->RecordCount() == 0)
        return BOResult::Failure(1, QStringLiteral("Įrašas %1 nerastas.").arg(OIDRFor(kind, id)));
    rs->MoveFirst();
    rs->SetField(kOIDR, OIDRFor(kind, id));
    rs->AcceptChanges();
    rs->SetModifiedOnlyTransfer(true);
    return BOResult::Of(Value(rs));
}

ObjectStore::InsertBatch* ObjectStore::SavePlan::batchFor(const ObjectTable& table,
                                                          const QStringList& columns) {
    for (InsertBatch& b : inserts)
        if (b.table == &table && b.columns == columns)
            return &b;
    inserts.append(InsertBatch{&table, columns, {}});
    return &inserts.last();
}

void ObjectStore::countInserts(const ObjectTable& table, const Recordset& rs, int row,
                               bool rowIsNew, SavePlan& plan) {
    for (const ObjectChild& child : table.Children) {
        if (child.Transient)
            continue;
        const RecordsetPtr nested = rs.ValueAt(row, rs.FieldIndex(child.Field)).toRecordset();
        if (!nested)
            continue;
        const int idField = nested->FieldIndex(kID);
        for (int i = 0; i < nested->RowCountAll(); ++i) {
            const RowStatus st = nested->StatusAt(i);
            if (st == RowStatus::Deleted)
                continue;
            const qint64 childId =
                idField < 0 ? 0 : static_cast<qint64>(nested->ValueAt(i, idField).toDouble());
            const bool insert = rowIsNew || st == RowStatus::New || childId <= 0;
            if (insert)
                plan.countNew(*child.Table);
            countInserts(*child.Table, *nested, i, insert, plan);
        }
    }
}

void ObjectStore::SavePlan::countNew(const ObjectTable& table) {
    auto found = ids.find(&table);
    if (found == ids.end()) {
        order.append(&table);
        found = ids.insert(&table, IdBlock());
    }
    ++found->need;
}

bool ObjectStore::drawIds(SavePlan& plan, QString* error) {
    // What each table still lacks; tables sharing a sequence draw one block, handed out
    // in the order the tables were met, so that a record's number comes before its
    // rows' numbers.
    QHash<const ObjectTable*, int> lacking;
    QHash<QString, int> perSequence;
    for (const ObjectTable* t : std::as_const(plan.order)) {
        IdBlock& block = plan.ids[t];
        const int lack = block.need - (block.ids.size() - block.next);
        block.need = 0;
        if (lack <= 0)
            continue;
        lacking.insert(t, lack);
        if (!t->IdSequence.isEmpty())
            perSequence[t->IdSequence] += lack;
    }
    QHash<QString, QVector<qint64>> drawn;
    for (auto it = perSequence.cbegin(); it != perSequence.cend(); ++it) {
        const IdsResult r = db_.NextIds(it.key(), it.value());
        if (!r.ok() || r.Ids.size() != it.value()) {
            *error = r.ok() ? messages::UnknownSequence(it.key()) : r.Text;
            return false;
        }
        drawn.insert(it.key(), r.Ids);
    }
    QHash<QString, int> taken;
    for (const ObjectTable* t : std::as_const(plan.order)) {
        const int lack = lacking.value(t);
        if (lack <= 0)
            continue;
        IdBlock& block = plan.ids[t];
        if (!t->IdSequence.isEmpty()) {
            int& from = taken[t->IdSequence];
            block.ids.append(drawn.value(t->IdSequence).mid(from, lack));
            from += lack;
        } else {
            const IdsResult r = db_.ReserveRowIds(t->Table.Name, lack);
            if (!r.ok() || r.Ids.size() != lack) {
                *error = r.ok() ? t->Table.Name : r.Text;
                return false;
            }
            block.ids.append(r.Ids);
        }
    }
    return true;
}

const ObjectStore::ColumnMap& ObjectStore::SavePlan::columnsFor(const ObjectTable& table,
                                                                const Recordset& rs) {
    auto found = columnMaps.find(&table);
    if (found != columnMaps.end() && found->fieldCount == rs.FieldCount()) {
        // Rows of one table nearly always come in recordsets of one shape: checking the
        // names at their places is cheaper than looking every one up.
        const FieldDefs& fields = rs.FieldDefinitions();
        bool same = true;
        for (const auto& [column, field] : std::as_const(found->columns))
            if (field >= 0 ? fields.at(field).name != column->Name
                           : rs.FieldIndex(column->Name) >= 0) {
                same = false;
                break;
            }
        if (same)
            return *found;
    }
    ColumnMap map;
    map.fieldCount = rs.FieldCount();
    for (const ColumnDef* c : shownColumns(table)) {
        if (c->Type == ColumnType::Id)
            continue;
        const int f = rs.FieldIndex(c->Name);
        map.columns.append({c, f});
        if (f >= 0)
            map.insertNames.append(c->Name);
    }
    map.insertNames.append(kID);
    return *columnMaps.insert(&table, map);
}

bool ObjectStore::saveRow(const ObjectTable& table, Recordset& rs, int row, qint64 id, bool insert,
                          const QString& parentColumn, qint64 parentId, const RecordsetPtr& rsPtr,
                          SavePlan& plan, qint64* newId, QString* error) {
    const ColumnMap& map = plan.columnsFor(table, rs);
    QStringList names;
    ValueArray params;
    params.reserve(map.columns.size() + 2);
    for (const auto& [c, f] : std::as_const(map.columns)) {
        if (f < 0)
            continue;
        const Value v = rs.ValueAt(row, f);
        if (!insert && v == rs.OriginalValueAt(row, f) &&
            v.kind() == rs.OriginalValueAt(row, f).kind())
            continue;
        if (v.isNull() && c->NotNull && c->Default.isEmpty()) {
            *error = QStringLiteral("Neužpildytas privalomas laukas „%1“.").arg(c->Name);
            return false;
        }
        if (v.isNull() && (c->NotNull || c->Type == ColumnType::Flag)) {
            // The column's default stands in for an absent value, and the record learns
            // it after the commit, so that it holds what the book holds. A new row is
            // written with the default itself (defaults are literals), so that every
            // new row of a table has the same columns and goes into one statement.
            const Value d = defaultOf(*c);
            plan.pending.append({rsPtr, row, f, d});
            if (insert || !c->NotNull || c->Type == ColumnType::Flag) {
                if (!insert)
                    names.append(c->Name);
                params.append(toStored(*c, d));
            }
            continue;
        }
        if (!insert)
            names.append(c->Name);
        params.append(toStored(*c, v));
    }
    if (insert) {
        IdBlock& block = plan.ids[&table];
        if (block.next >= block.ids.size()) {
            *error = messages::UnknownSequence(table.Table.Name);
            return false;
        }
        *newId = block.ids.at(block.next++);
        params.append(Value(double(*newId)));
        if (!parentColumn.isEmpty()) {
            if (map.withParent.isEmpty())
                map.withParent = map.insertNames + QStringList{parentColumn};
            params.append(Value(double(parentId)));
        }
        plan.batchFor(table, parentColumn.isEmpty() ? map.insertNames : map.withParent)
            ->rows.append(params);
        plan.pending.append({rsPtr, row, rs.FieldIndex(kID), Value(double(*newId))});
        return true;
    }
    *newId = id;
    if (names.isEmpty())
        return true;
    QStringList sets;
    for (const QString& n : names)
        sets.append(n + QStringLiteral(" = ?"));
    params.append(Value(double(id)));
    QString sql = QStringLiteral("UPDATE %1 SET %2 WHERE ID = ?")
                      .arg(table.Table.Name, sets.join(QStringLiteral(", ")));
    if (!parentColumn.isEmpty()) {
        sql += QStringLiteral(" AND %1 = ?").arg(parentColumn);
        params.append(Value(double(parentId)));
    }
    const ExecResult r = db_.Execute(sql, params);
    if (!r.ok()) {
        *error = r.Text;
        return false;
    }
    if (r.RowsAffected == 0) {
        *error =
            QStringLiteral("Įrašo eilutė %1 lentelėje %2 nerasta: ją panaikino kitas naudotojas.")
                .arg(id)
                .arg(table.Table.Name);
        return false;
    }
    return true;
}

bool ObjectStore::saveChildren(const ObjectTable& table, Recordset& rs, int row, qint64 id,
                               bool parentIsNew, SavePlan& plan, QString* error) {
    for (const ObjectChild& child : table.Children) {
        if (child.Transient)
            continue;
        const RecordsetPtr nested = rs.ValueAt(row, rs.FieldIndex(child.Field)).toRecordset();
        if (!nested)
            continue;
        const int idField = nested->FieldIndex(kID);
        for (int i = 0; i < nested->RowCountAll(); ++i) {
            const RowStatus st = nested->StatusAt(i);
            const qint64 childId =
                idField < 0 ? 0 : static_cast<qint64>(nested->ValueAt(i, idField).toDouble());
            if (st == RowStatus::Deleted) {
                if (childId <= 0 || parentIsNew)
                    continue;
                const ExecResult r =
                    db_.Execute(QStringLiteral("DELETE FROM %1 WHERE ID = ? AND %2 = ?")
                                    .arg(child.Table->Table.Name, child.ParentColumn),
                                {Value(double(childId)), Value(double(id))});
                if (!r.ok()) {
                    *error = r.Text;
                    return false;
                }
                continue;
            }
            const bool insert = parentIsNew || st == RowStatus::New || childId <= 0;
            qint64 storedId = childId;
            if (insert || st == RowStatus::Modified) {
                if (!saveRow(*child.Table, *nested, i, childId, insert, child.ParentColumn, id,
                             nested, plan, &storedId, error))
                    return false;
            }
            if (!saveChildren(*child.Table, *nested, i, storedId, insert, plan, error))
                return false;
        }
    }
    return true;
}

bool ObjectStore::flushInserts(SavePlan& plan, QString* error) {
    for (InsertBatch& b : plan.inserts) {
        const ExecResult r = db_.InsertRows(b.table->Table.Name, b.columns, b.rows);
        if (!r.ok()) {
            *error = r.Text;
            return false;
        }
        b.rows.clear();
    }
    plan.inserts.clear();
    return true;
}

bool ObjectStore::writeRecord(const ObjectKind& kind, const ObjectSaveHooks& hooks, qint64 id,
                              const RecordsetPtr& rs, int row, const ObjectSaveActor& actor,
                              SavePlan& plan, Written& out) {
    out.id = id;
    if (hooks.BeforeWrite) {
        const ResultRecord r = hooks.BeforeWrite(db_, *rs, row, id, actor);
        if (!r.ok()) {
            out.code = r.Code;
            out.error = r.Text;
            return false;
        }
    }
    if (!kind.LockColumn.isEmpty()) {
        out.lock = newLockValue();
        plan.pending.append({rs, row, rs->FieldIndex(kind.LockColumn), Value(out.lock)});
    }
    // Every number this record's new rows need, drawn before anything is written (a
    // batch has drawn them all already, unless a hook added rows).
    if (id == 0)
        plan.countNew(kind.Root);
    countInserts(kind.Root, *rs, row, id == 0, plan);
    if (!drawIds(plan, &out.error))
        return false;

    bool ok = true;
    if (id == 0) {
        // The lock value of a new record is written with the row itself.
        if (!kind.LockColumn.isEmpty())
            rs->SetField(kind.LockColumn, out.lock);
        ok = saveRow(kind.Root, *rs, row, 0, true, QString(), 0, rs, plan, &out.id, &out.error);
    } else {
        ok = saveRow(kind.Root, *rs, row, id, false, QString(), 0, rs, plan, &out.id, &out.error);
        if (ok && !kind.LockColumn.isEmpty()) {
            const int lf = rs->FieldIndex(kind.LockColumn);
            const QString readLock = rs->OriginalValueAt(row, lf).isNull()
                                         ? rs->ValueAt(row, lf).toString()
                                         : rs->OriginalValueAt(row, lf).toString();
            const ExecResult r = db_.Execute(
                QStringLiteral("UPDATE %1 SET %2 = ? WHERE ID = ? AND COALESCE(%2, '') = ?")
                    .arg(kind.Root.Table.Name, kind.LockColumn),
                {Value(out.lock), Value(double(id)), Value(readLock)});
            if (!r.ok()) {
                ok = false;
                out.error = r.Text;
            } else if (r.RowsAffected == 0) {
                ok = false;
                out.error =
                    QStringLiteral("Įrašo %1 įrašyti negalima: jį jau pakeitė kitas naudotojas. "
                                   "Atidarykite įrašą iš naujo ir pakeitimus pakartokite.")
                        .arg(OIDRFor(kind, id));
            }
        }
    }
    if (ok)
        ok = saveChildren(kind.Root, *rs, row, out.id, id == 0, plan, &out.error);
    if (ok)
        ok = flushInserts(plan, &out.error);
    if (ok && hooks.AfterWrite) {
        const ResultRecord r = hooks.AfterWrite(db_, *rs, row, out.id, id == 0, actor);
        if (!r.ok()) {
            ok = false;
            out.code = r.Code;
            out.error = r.Text;
        }
    }
    return ok;
}

void ObjectStore::applyPending(const SavePlan& plan) {
    for (const PendingWrite& w : plan.pending)
        if (w.field >= 0)
            w.rs->SetValueAt(w.row, w.field, w.value);
}

RecordsetPtr ObjectStore::savedRows(const ObjectKind&) {
    return Recordset::Create({FieldDef::Make(kOIDR, FieldType::VarWChar, 30),
                              FieldDef::Make(kID, FieldType::Integer),
                              FieldDef::Make(QStringLiteral("LockGUID"), FieldType::VarWChar, 40)});
}

namespace {

// Why a record cannot be saved at all, before any transaction; empty when it can.
QString unsaveable(const ObjectKind& kind, const RecordsetPtr& rs, int row) {
    if (!rs)
        return QStringLiteral("Nėra ką įrašyti: įrašo duomenys neperduoti.");
    if (row < 0)
        return QStringLiteral("Nėra ką įrašyti: įraše nėra eilutės.");
    for (const ObjectChild& child : kind.Root.Children)
        if (rs->FieldIndex(child.Field) < 0)
            return QStringLiteral("Įrašo struktūra netinka: nėra lauko „%1“.").arg(child.Field);
    return QString();
}

} // namespace

BOResult ObjectStore::Save(const ObjectKind& kind, qint64 id, const RecordsetPtr& rs,
                           const ObjectSaveActor& actor) {
    const int row = rs ? firstLiveRow(*rs) : -1;
    const QString refused = unsaveable(kind, rs, row);
    if (!refused.isEmpty())
        return BOResult::Failure(1, refused);

    const ResultRecord begun = db_.Begin();
    if (!begun.ok())
        return BOResult::Failure(begun.Code, begun.Text);
    SavePlan plan;
    Written written;
    if (!writeRecord(kind, kind.Hooks, id, rs, row, actor, plan, written)) {
        db_.Rollback();
        if (id == 0 && !kind.LockColumn.isEmpty() && !written.lock.isEmpty())
            rs->SetField(kind.LockColumn, Value());
        return BOResult::Failure(written.code, written.error);
    }
    const ResultRecord committed = db_.Commit();
    if (!committed.ok())
        return BOResult::Failure(committed.Code, committed.Text);

    // Only now, with the book changed for good, does the recordset learn its numbers.
    applyPending(plan);
    rs->SetValueAt(row, rs->FieldIndex(kOIDR), OIDRFor(kind, written.id));
    if (rs->FieldIndex(kID) >= 0)
        rs->SetValueAt(row, rs->FieldIndex(kID), Value(double(written.id)));

    auto out = savedRows(kind);
    out->AddNew();
    out->SetField(kOIDR, OIDRFor(kind, written.id));
    out->SetField(kID, Value(double(written.id)));
    if (!written.lock.isEmpty())
        out->SetField(QStringLiteral("LockGUID"), written.lock);
    out->Update();
    return BOResult::Of(Value(out));
}

BOResult ObjectStore::SaveMany(const ObjectKind& kind, const QVector<Item>& items,
                               const ObjectSaveActor& actor) {
    QVector<int> rows(items.size());
    for (int i = 0; i < items.size(); ++i) {
        rows[i] = items[i].Rs ? firstLiveRow(*items[i].Rs) : -1;
        const QString refused = unsaveable(kind, items[i].Rs, rows[i]);
        if (!refused.isEmpty()) {
            BOResult failed = BOResult::Failure(1, refused);
            failed.Data = Value(qint32(i));
            return failed;
        }
    }
    const ResultRecord begun = db_.Begin();
    if (!begun.ok())
        return BOResult::Failure(begun.Code, begun.Text);
    SavePlan plan;
    QVector<Written> written(items.size());
    const ObjectSaveHooks hooks = kind.BatchHooks ? kind.BatchHooks() : kind.Hooks;
    // The numbers of the whole batch from each sequence in one block. Tables that number
    // their own rows reserve per record, just before its rows go in, so that a hook
    // inserting into such a table meanwhile cannot take a reserved number.
    for (int i = 0; i < items.size(); ++i) {
        if (items[i].Id == 0)
            plan.countNew(kind.Root);
        countInserts(kind.Root, *items[i].Rs, rows[i], items[i].Id == 0, plan);
    }
    for (const ObjectTable* t : std::as_const(plan.order))
        if (t->IdSequence.isEmpty())
            plan.ids[t].need = 0;
    QString drawError;
    if (!drawIds(plan, &drawError)) {
        db_.Rollback();
        BOResult failed = BOResult::Failure(1, drawError);
        failed.Data = Value(qint32(0));
        return failed;
    }
    for (int i = 0; i < items.size(); ++i) {
        if (writeRecord(kind, hooks, items[i].Id, items[i].Rs, rows[i], actor, plan, written[i]))
            continue;
        db_.Rollback();
        // Every new record of the batch written so far loses its lock value again, as a
        // failed Save leaves it.
        for (int j = 0; j <= i; ++j)
            if (items[j].Id == 0 && !kind.LockColumn.isEmpty() && !written[j].lock.isEmpty())
                items[j].Rs->SetField(kind.LockColumn, Value());
        BOResult failed = BOResult::Failure(written[i].code, written[i].error);
        failed.Data = Value(qint32(i));
        return failed;
    }
    const ResultRecord committed = db_.Commit();
    if (!committed.ok())
        return BOResult::Failure(committed.Code, committed.Text);

    applyPending(plan);
    auto out = savedRows(kind);
    for (int i = 0; i < items.size(); ++i) {
        const RecordsetPtr& rs = items[i].Rs;
        rs->SetValueAt(rows[i], rs->FieldIndex(kOIDR), OIDRFor(kind, written[i].id));
        if (rs->FieldIndex(kID) >= 0)
            rs->SetValueAt(rows[i], rs->FieldIndex(kID), Value(double(written[i].id)));
        out->AddNew();
        out->SetField(kOIDR, OIDRFor(kind, written[i].id));
        out->SetField(kID, Value(double(written[i].id)));
        if (!written[i].lock.isEmpty())
            out->SetField(QStringLiteral("LockGUID"), written[i].lock);
        out->Update();
    }
    out->AcceptChanges();
    out->MoveFirst();
    return BOResult::Of(Value(out));
}

BOResult ObjectStore::Delete(const ObjectKind& kind, qint64 id, const ObjectSaveActor& actor) {
    const ResultRecord begun = db_.Begin();
    if (!begun.ok())
        return BOResult::Failure(begun.Code, begun.Text);
    const ExecResult r =
        db_.Execute(QStringLiteral("DELETE FROM %1 WHERE ID = ?").arg(kind.Root.Table.Name),
                    {Value(double(id))});
    if (!r.ok()) {
        db_.Rollback();
        return BOResult::Failure(
            1, QStringLiteral("Įrašo %1 panaikinti negalima: %2").arg(OIDRFor(kind, id), r.Text));
    }
    if (r.RowsAffected == 0) {
        db_.Rollback();
        return BOResult::Failure(1, QStringLiteral("Įrašas %1 nerastas.").arg(OIDRFor(kind, id)));
    }
    if (kind.Hooks.AfterDelete) {
        const ResultRecord h = kind.Hooks.AfterDelete(db_, id, actor);
        if (!h.ok()) {
            db_.Rollback();
            return BOResult::Failure(h.Code, h.Text);
        }
    }
    const ResultRecord committed = db_.Commit();
    if (!committed.ok())
        return BOResult::Failure(committed.Code, committed.Text);
    return BOResult::Of(Value(true));
}

BOResult ObjectStore::List(const ObjectKind& kind, int from, int to) const {
    const QString preview =
        kind.ListPreviewSql.isEmpty() ? QStringLiteral("ID") : kind.ListPreviewSql;
    const QString order = kind.ListOrderBy.isEmpty() ? kID : kind.ListOrderBy;
    QString sql = QStringLiteral("SELECT ID, %1 AS \"Preview\" FROM %2 ORDER BY %3")
                      .arg(preview, kind.Root.Table.Name, order);
    ValueArray params;
    sql += PagingClause(db_, from, to, params);
    const QueryResult q = db_.Query(sql, params);
    if (!q.ok())
        return BOResult::Failure(1, q.Text);
    auto out = Recordset::Create({FieldDef::Make(kOIDR, FieldType::VarWChar, 30),
                                  FieldDef::Make(QStringLiteral("OType"), FieldType::VarWChar, 20),
                                  FieldDef::Make(QStringLiteral("Preview"), FieldType::VarWChar)});
    for (int i = 0; i < q.RowCount(); ++i) {
        out->AddNew();
        out->SetField(kOIDR, OIDRFor(kind, static_cast<qint64>(q.At(i, 0).toDouble())));
        out->SetField(QStringLiteral("OType"), kind.Code);
        out->SetField(QStringLiteral("Preview"), q.At(i, 1).toString());
        out->Update();
    }
    out->AcceptChanges();
    out->MoveFirst();
    return BOResult::Of(Value(out));
}

} // namespace orvo::host
