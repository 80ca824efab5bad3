#include "host/objects/object_store.h"

#include "host/methods/method_helpers.h"
#include "host/storage/database.h"
#include "host/storage/money.h"

#include <QUuid>

namespace orvo::host {

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

bool ObjectStore::saveRow(const ObjectTable& table, Recordset& rs, int row, qint64 id, bool insert,
                          const QString& parentColumn, qint64 parentId, const RecordsetPtr& rsPtr,
                          QVector<PendingWrite>& pending, qint64* newId, QString* error) {
    const QVector<const ColumnDef*> cols = shownColumns(table);
    QStringList names;
    ValueArray params;
    for (const ColumnDef* c : cols) {
        const int f = rs.FieldIndex(c->Name);
        if (c->Type == ColumnType::Id || f < 0)
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
            // it after the commit, so that it holds what the book holds.
            const Value d = defaultOf(*c);
            pending.append({rsPtr, row, f, d});
            if (!c->NotNull || c->Type == ColumnType::Flag) {
                names.append(c->Name);
                params.append(toStored(*c, d));
            }
            continue;
        }
        names.append(c->Name);
        params.append(toStored(*c, v));
    }
    if (insert) {
        if (!table.IdSequence.isEmpty()) {
            const IdResult next = db_.NextId(table.IdSequence);
            if (!next.ok()) {
                *error = next.Text;
                return false;
            }
            names.append(kID);
            params.append(Value(double(next.Id)));
        }
        if (!parentColumn.isEmpty()) {
            names.append(parentColumn);
            params.append(Value(double(parentId)));
        }
        QString sql;
        if (names.isEmpty()) {
            sql =
                QStringLiteral("INSERT INTO %1 DEFAULT VALUES RETURNING ID").arg(table.Table.Name);
        } else {
            QStringList marks;
            for (int i = 0; i < names.size(); ++i)
                marks.append(QStringLiteral("?"));
            sql = QStringLiteral("INSERT INTO %1 (%2) VALUES (%3) RETURNING ID")
                      .arg(table.Table.Name, names.join(QStringLiteral(", ")),
                           marks.join(QStringLiteral(", ")));
        }
        const QueryResult q = db_.Query(sql, params);
        if (!q.ok()) {
            *error = q.Text;
            return false;
        }
        *newId = static_cast<qint64>(q.Scalar().toDouble());
        pending.append({rsPtr, row, rs.FieldIndex(kID), Value(double(*newId))});
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
                               bool parentIsNew, QVector<PendingWrite>& pending, QString* error) {
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
                             nested, pending, &storedId, error))
                    return false;
            }
            if (!saveChildren(*child.Table, *nested, i, storedId, insert, pending, error))
                return false;
        }
    }
    return true;
}

BOResult ObjectStore::Save(const ObjectKind& kind, qint64 id, const RecordsetPtr& rs,
                           const ObjectSaveActor& actor) {
    if (!rs)
        return BOResult::Failure(1, QStringLiteral("Nėra ką įrašyti: įrašo duomenys neperduoti."));
    const int row = firstLiveRow(*rs);
    if (row < 0)
        return BOResult::Failure(1, QStringLiteral("Nėra ką įrašyti: įraše nėra eilutės."));
    for (const ObjectChild& child : kind.Root.Children)
        if (rs->FieldIndex(child.Field) < 0)
            return BOResult::Failure(
                1, QStringLiteral("Įrašo struktūra netinka: nėra lauko „%1“.").arg(child.Field));

    const ResultRecord begun = db_.Begin();
    if (!begun.ok())
        return BOResult::Failure(begun.Code, begun.Text);

    QVector<PendingWrite> pending;
    QString error;
    qint64 storedId = id;
    QString lock;
    bool ok = true;
    if (kind.Hooks.BeforeWrite) {
        const ResultRecord r = kind.Hooks.BeforeWrite(db_, *rs, row, id, actor);
        if (!r.ok()) {
            db_.Rollback();
            return BOResult::Failure(r.Code, r.Text);
        }
    }
    if (!kind.LockColumn.isEmpty()) {
        lock = newLockValue();
        const int lf = rs->FieldIndex(kind.LockColumn);
        pending.append({rs, row, lf, Value(lock)});
    }
    if (id == 0) {
        // The lock value of a new record is written with the row itself.
        if (!kind.LockColumn.isEmpty())
            rs->SetField(kind.LockColumn, lock);
        ok = saveRow(kind.Root, *rs, row, 0, true, QString(), 0, rs, pending, &storedId, &error);
    } else {
        ok = saveRow(kind.Root, *rs, row, id, false, QString(), 0, rs, pending, &storedId, &error);
        if (ok && !kind.LockColumn.isEmpty()) {
            const int lf = rs->FieldIndex(kind.LockColumn);
            const QString readLock = rs->OriginalValueAt(row, lf).isNull()
                                         ? rs->ValueAt(row, lf).toString()
                                         : rs->OriginalValueAt(row, lf).toString();
            const ExecResult r = db_.Execute(
                QStringLiteral("UPDATE %1 SET %2 = ? WHERE ID = ? AND COALESCE(%2, '') = ?")
                    .arg(kind.Root.Table.Name, kind.LockColumn),
                {Value(lock), Value(double(id)), Value(readLock)});
            if (!r.ok()) {
                ok = false;
                error = r.Text;
            } else if (r.RowsAffected == 0) {
                ok = false;
                error =
                    QStringLiteral("Įrašo %1 įrašyti negalima: jį jau pakeitė kitas naudotojas. "
                                   "Atidarykite įrašą iš naujo ir pakeitimus pakartokite.")
                        .arg(OIDRFor(kind, id));
            }
        }
    }
    if (ok)
        ok = saveChildren(kind.Root, *rs, row, storedId, id == 0, pending, &error);
    qint32 failureCode = 1;
    if (ok && kind.Hooks.AfterWrite) {
        const ResultRecord r = kind.Hooks.AfterWrite(db_, *rs, row, storedId, id == 0, actor);
        if (!r.ok()) {
            ok = false;
            failureCode = r.Code;
            error = r.Text;
        }
    }
    if (!ok) {
        db_.Rollback();
        if (id == 0 && !kind.LockColumn.isEmpty())
            rs->SetField(kind.LockColumn, Value());
        return BOResult::Failure(failureCode, error);
    }
    const ResultRecord committed = db_.Commit();
    if (!committed.ok())
        return BOResult::Failure(committed.Code, committed.Text);

    // Only now, with the book changed for good, does the recordset learn its numbers.
    for (const PendingWrite& w : pending)
        if (w.field >= 0)
            w.rs->SetValueAt(w.row, w.field, w.value);
    rs->SetValueAt(row, rs->FieldIndex(kOIDR), OIDRFor(kind, storedId));
    if (rs->FieldIndex(kID) >= 0)
        rs->SetValueAt(row, rs->FieldIndex(kID), Value(double(storedId)));

    auto out = Recordset::Create(
        {FieldDef::Make(kOIDR, FieldType::VarWChar, 30), FieldDef::Make(kID, FieldType::Integer),
         FieldDef::Make(QStringLiteral("LockGUID"), FieldType::VarWChar, 40)});
    out->AddNew();
    out->SetField(kOIDR, OIDRFor(kind, storedId));
    out->SetField(kID, Value(double(storedId)));
    if (!lock.isEmpty())
        out->SetField(QStringLiteral("LockGUID"), lock);
    out->Update();
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
