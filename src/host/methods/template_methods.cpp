#include "host/methods/template_methods.h"

#include "core/null_readers.h"
#include "core/number_text.h"
#include "core/recordset.h"
#include "host/catalogues/catalogue_kinds.h"
#include "host/methods/addressee_methods.h"
#include "host/methods/method_arguments.h"
#include "host/methods/method_codes.h"
#include "host/methods/method_context.h"
#include "host/methods/method_helpers.h"
#include "host/methods/method_registry.h"
#include "host/objects/object_store.h"
#include "host/objects/template_kind.h"
#include "host/storage/database.h"
#include "host/storage/transaction_guard.h"

#include <QHash>
#include <QSet>
#include <QUuid>

namespace orvo::host {

namespace {

QString newGuid() {
    return QUuid::createUuid().toString(QUuid::WithBraces).toUpper();
}

// A record named by its OIDR ("O0201600" + ID) or by its bare number; 0 for neither.
qint64 referenceId(const ObjectKind& kind, const QString& reference) {
    const QString t = reference.trimmed();
    if (t.startsWith(kind.Code))
        return ObjectStore::IdFromOIDR(kind, t);
    bool ok = false;
    const qint64 id = t.toLongLong(&ok);
    return ok && id > 0 ? id : 0;
}

BOResult notAReference(const QString& method, const QString& reference) {
    return BOResult::Failure(
        1, QStringLiteral("%1: „%2“ nėra šablono nuoroda.").arg(method, reference));
}

// The display text of a fixed addressee, read from its catalogue the way the catalogue
// lists it; the reference itself when the kind has no catalogue here or the record is
// gone, so that the entry still shows what it points at.
QString addresseeText(Database& db, const QString& foidr) {
    static const ObjectKindRegistry catalogues = [] {
        ObjectKindRegistry r;
        AddCatalogueKinds(r);
        return r;
    }();
    const ObjectKindPtr kind = catalogues.Find(foidr.left(8));
    if (!kind || kind->ListPreviewSql.isEmpty())
        return foidr;
    const qint64 id = ObjectStore::IdFromOIDR(*kind, foidr);
    if (id == 0)
        return foidr;
    const QueryResult q = db.Query(QStringLiteral("SELECT %1 FROM %2 WHERE ID = ?")
                                       .arg(kind->ListPreviewSql, kind->Root.Table.Name),
                                   {Value(double(id))});
    if (!q.ok() || q.RowCount() == 0)
        return foidr;
    const QString shown = q.Scalar().toString().trimmed();
    return shown.isEmpty() ? foidr : shown;
}

QString factorText(double factor) {
    QString t = FormatNumberLt(factor, 6, false);
    if (t.contains(QLatin1Char(','))) {
        while (t.endsWith(QLatin1Char('0')))
            t.chop(1);
        if (t.endsWith(QLatin1Char(',')))
            t.chop(1);
    }
    return t;
}

// ---- the tree ----------------------------------------------------------------------

FieldDefs listFields() {
    return {TextField("OIDR", 30),
            TextField("OType", 20),
            TextField("Preview"),
            TypedField("ID", FieldType::Integer),
            TypedField("ParentID", FieldType::Integer),
            TypedField("GroupFlag", FieldType::SmallInt),
            TextField("Name")};
}

BOResult childList(Database& db, const ObjectKind& kind, const QString& oid, int from, int to) {
    const qint64 parent = ObjectStore::IdFromOIDR(kind, oid);
    ValueArray params;
    QString where = QStringLiteral("(ParentID IS NULL OR ParentID = 0)");
    if (parent > 0) {
        where = QStringLiteral("ParentID = ?");
        params << Value(double(parent));
    }
    QString sql = QStringLiteral("SELECT ID, ParentID, GroupFlag, Name FROM BRTemplates WHERE %1 "
                                 "ORDER BY GroupFlag DESC, Name, ID")
                      .arg(where);
    sql += PagingClause(db, from, to, params);
    const QueryResult q = db.Query(sql, params);
    if (!q.ok())
        return MethodFailure(q.Text);
    auto rs = Recordset::Create(listFields());
    for (int i = 0; i < q.RowCount(); ++i) {
        const bool group = q.At(i, 2).toInt32() != 0;
        rs->AddNew();
        rs->SetField(QStringLiteral("OIDR"), ObjectStore::OIDRFor(kind, NzId(q.At(i, 0))));
        rs->SetField(QStringLiteral("OType"),
                     group ? QStringLiteral("Group") : QStringLiteral("Item"));
        rs->SetField(QStringLiteral("Preview"), q.At(i, 3).toString());
        rs->SetField(QStringLiteral("ID"), Value(double(NzId(q.At(i, 0)))));
        rs->SetField(QStringLiteral("ParentID"), Value(double(NzId(q.At(i, 1)))));
        rs->SetField(QStringLiteral("GroupFlag"), Value(qint16(group ? 1 : 0)));
        rs->SetField(QStringLiteral("Name"), q.At(i, 3).toString());
        rs->Update();
    }
    rs->AcceptChanges();
    rs->MoveFirst();
    return BOResult::Of(Value(rs));
}

FieldDefs templateListFields() {
    return {TypedField("ID", FieldType::Integer),
            TextField("ParentCode"),
            TextField("OwnCode"),
            TypedField("GroupFlag", FieldType::SmallInt),
            TextField("Preview"),
            TextField("AccPreview"),
            TextField("OIDR", 30),
            TextField("Name")};
}

BOResult templateList(Database& db, const ObjectKind& kind, qint64 groupId) {
    QVector<qint64> order;
    QString error;
    if (groupId > 0) {
        order = TemplateSubtree(db, groupId, &error);
    } else {
        const QueryResult top = db.Query(
            QStringLiteral("SELECT ID FROM BRTemplates WHERE ParentID IS NULL OR ParentID = 0 "
                           "ORDER BY GroupFlag DESC, Name, ID"));
        if (!top.ok())
            return MethodFailure(top.Text);
        for (int i = 0; i < top.RowCount() && error.isEmpty(); ++i)
            order += TemplateSubtree(db, NzId(top.At(i, 0)), &error);
    }
    if (!error.isEmpty())
        return MethodFailure(error);

    struct Row {
        QString parentCode, ownCode, name;
        bool group = false;
        QStringList debit, credit;
        QVector<double> factors;
    };
    QHash<qint64, Row> rows;
    const QueryResult t = db.Query(
        QStringLiteral("SELECT ID, ParentCode, OwnCode, GroupFlag, Name FROM BRTemplates"));
    if (!t.ok())
        return MethodFailure(t.Text);
    for (int i = 0; i < t.RowCount(); ++i) {
        Row& r = rows[NzId(t.At(i, 0))];
        r.parentCode = t.At(i, 1).toString();
        r.ownCode = t.At(i, 2).toString();
        r.group = t.At(i, 3).toInt32() != 0;
        r.name = t.At(i, 4).toString();
    }
    const QueryResult e = db.Query(QStringLiteral(
        "SELECT BRTemplateID, AccountD, AccountC, Factor FROM BRTemplateAcc ORDER BY ID"));
    if (!e.ok())
        return MethodFailure(e.Text);
    for (int i = 0; i < e.RowCount(); ++i) {
        auto it = rows.find(NzId(e.At(i, 0)));
        if (it == rows.end())
            continue;
        it->debit << e.At(i, 1).toString();
        it->credit << e.At(i, 2).toString();
        it->factors << (e.At(i, 3).isNull() ? 1.0 : e.At(i, 3).toDouble());
    }

    auto rs = Recordset::Create(templateListFields());
    for (qint64 id : order) {
        const auto it = rows.constFind(id);
        if (it == rows.constEnd())
            continue;
        rs->AddNew();
        rs->SetField(QStringLiteral("ID"), Value(double(id)));
        rs->SetField(QStringLiteral("ParentCode"), it->parentCode);
        rs->SetField(QStringLiteral("OwnCode"), it->ownCode);
        rs->SetField(QStringLiteral("GroupFlag"), Value(qint16(it->group ? 1 : 0)));
        rs->SetField(QStringLiteral("Preview"), it->name);
        rs->SetField(QStringLiteral("AccPreview"),
                     TemplateEntriesText(it->debit, it->credit, it->factors));
        rs->SetField(QStringLiteral("OIDR"), ObjectStore::OIDRFor(kind, id));
        rs->SetField(QStringLiteral("Name"), it->name);
        rs->Update();
    }
    rs->AcceptChanges();
    rs->MoveFirst();
    return BOResult::Of(Value(rs));
}

// ---- the lines of one template -------------------------------------------------------

FieldDefs demandFields() {
    return {TypedField("Sign", FieldType::SmallInt), TextField("FOID", 20), TextField("FOIDR", 50),
            TextField("ShowString", 800)};
}

FieldDefs linesFields() {
    return {TypedField("ID", FieldType::Integer),
            TextField("GUID", 38),
            TextField("AccountD", 20),
            TextField("AccountC", 20),
            TypedField("Factor", FieldType::Double),
            FieldDef::Chapter(QStringLiteral("RequiredAddr"), demandFields())};
}

BOResult templateLines(Database& db, qint64 id) {
    const QueryResult t = db.Query(QStringLiteral("SELECT GroupFlag FROM BRTemplates WHERE ID = ?"),
                                   {Value(double(id))});
    if (!t.ok())
        return MethodFailure(t.Text);
    if (t.RowCount() == 0)
        return MethodRefusal(QStringLiteral("Operacijos šablonas nerastas!"));
    const QueryResult lines = db.Query(
        QStringLiteral("SELECT ID, GUID, AccountD, AccountC, Factor FROM BRTemplateAcc WHERE "
                       "BRTemplateID = ? ORDER BY ID"),
        {Value(double(id))});
    if (!lines.ok())
        return MethodFailure(lines.Text);
    const QueryResult demands = db.Query(
        QStringLiteral("SELECT BRTemplateAccGUID, Sign, FOID, FOIDR FROM BRTemplateAddr WHERE "
                       "BRTemplateID = ? ORDER BY ID"),
        {Value(double(id))});
    if (!demands.ok())
        return MethodFailure(demands.Text);

    auto rs = Recordset::Create(linesFields());
    for (int i = 0; i < lines.RowCount(); ++i) {
        const QString guid = lines.At(i, 1).toString();
        rs->AddNew();
        rs->SetField(QStringLiteral("ID"), Value(double(NzId(lines.At(i, 0)))));
        rs->SetField(QStringLiteral("GUID"), guid);
        rs->SetField(QStringLiteral("AccountD"), lines.At(i, 2).toString());
        rs->SetField(QStringLiteral("AccountC"), lines.At(i, 3).toString());
        rs->SetField(QStringLiteral("Factor"),
                     Value(lines.At(i, 4).isNull() ? 1.0 : lines.At(i, 4).toDouble()));
        const RecordsetPtr required = rs->Field(QStringLiteral("RequiredAddr")).toRecordset();
        for (int d = 0; d < demands.RowCount(); ++d) {
            if (demands.At(d, 0).toString() != guid)
                continue;
            const QString foidr = demands.At(d, 3).toString().trimmed();
            required->AddNew();
            required->SetField(QStringLiteral("Sign"), Value(qint16(demands.At(d, 1).toInt32())));
            required->SetField(QStringLiteral("FOID"), demands.At(d, 2).toString().trimmed());
            required->SetField(QStringLiteral("FOIDR"), foidr);
            required->SetField(QStringLiteral("ShowString"),
                               foidr.isEmpty() ? QString() : addresseeText(db, foidr).left(800));
            required->Update();
        }
        required->AcceptChanges();
        required->MoveFirst();
        rs->Update();
    }
    rs->AcceptChanges();
    rs->MoveFirst();
    return BOResult::Of(Value(rs));
}

// ---- addressee kinds -----------------------------------------------------------------

BOResult enabledAddressee(MethodContext& ctx, const QString& account, int sign) {
    // The chart's rule of allowed kinds lives in GetEnabledAddressee alone; this only
    // names what it gives.
    const MethodDefinition* rule =
        ctx.registry ? ctx.registry->Find(QStringLiteral("GetEnabledAddressee")) : nullptr;
    if (!rule)
        return MethodFailure(QStringLiteral("GetEnabledAddressee: metodas neregistruotas."));
    MethodArguments args;
    QString quoted = account.trimmed();
    quoted.replace(QLatin1Char('\''), QStringLiteral("''"));
    const ResultRecord bound = MethodArguments::Bind(
        *rule, QStringLiteral("'") + quoted + QStringLiteral("'"), Value(), &args);
    if (!bound.ok())
        return BOResult::Failure(bound.Code, bound.Text);
    const BOResult kinds = rule->handler(ctx, args);
    if (!kinds.ok())
        return kinds;
    auto rs = Recordset::Create({TextField("FOID", 20), TextField("Name", 100)});
    QSet<QString> seen;
    if (const RecordsetPtr from = kinds.Data.toRecordset()) {
        for (from->MoveFirst(); !from->Eof(); from->MoveNext()) {
            const int s = from->Field(QStringLiteral("Sign")).toInt32();
            const QString foid = from->Field(QStringLiteral("FOID")).toString().trimmed();
            if ((sign != 0 && s != sign) || seen.contains(foid))
                continue;
            seen.insert(foid);
            rs->AddNew();
            rs->SetField(QStringLiteral("FOID"), foid);
            rs->SetField(QStringLiteral("Name"), AddresseeKindName(foid));
            rs->Update();
        }
    }
    rs->AcceptChanges();
    rs->MoveFirst();
    return BOResult::Of(Value(rs));
}

// ---- copying and deleting sets ---------------------------------------------------------

// Copies one stored template row, its entries and their addressees, under `parent`
// (0: the top level); the copy's ID.
qint64 copyRecord(Database& db, qint64 from, qint64 parent, QString* error) {
    const QueryResult src =
        db.Query(QStringLiteral("SELECT GroupFlag, Name, Comment FROM BRTemplates WHERE ID = ?"),
                 {Value(double(from))});
    if (!src.ok() || src.RowCount() == 0) {
        *error = src.ok() ? QStringLiteral("Šablonas %1 nerastas.").arg(from) : src.Text;
        return 0;
    }
    const QString guid = newGuid();
    const QueryResult ins = db.Query(
        QStringLiteral("INSERT INTO BRTemplates (ParentID, GroupFlag, Name, Comment, GUID, "
                       "LockGUID) VALUES (?, ?, ?, ?, ?, ?) RETURNING ID"),
        {parent > 0 ? Value(double(parent)) : Value(), Value(qint32(src.At(0, 0).toInt32())),
         src.At(0, 1), src.At(0, 2), Value(guid),
         Value(QUuid::createUuid().toString(QUuid::WithoutBraces))});
    if (!ins.ok()) {
        *error = ins.Text;
        return 0;
    }
    const qint64 copy = NzId(ins.Scalar());
    QHash<QString, QString> guids;
    const QueryResult acc =
        db.Query(QStringLiteral("SELECT GUID, AccountD, AccountC, Factor FROM BRTemplateAcc WHERE "
                                "BRTemplateID = ? ORDER BY ID"),
                 {Value(double(from))});
    if (!acc.ok()) {
        *error = acc.Text;
        return 0;
    }
    for (int i = 0; i < acc.RowCount(); ++i) {
        const QString lineGuid = newGuid();
        guids.insert(acc.At(i, 0).toString(), lineGuid);
        const ExecResult r = db.Execute(
            QStringLiteral("INSERT INTO BRTemplateAcc (BRTemplateID, GUID, BRTemplateGUID, "
                           "AccountD, AccountC, Factor) VALUES (?, ?, ?, ?, ?, ?)"),
            {Value(double(copy)), Value(lineGuid), Value(guid), acc.At(i, 1), acc.At(i, 2),
             Value(acc.At(i, 3).isNull() ? 1.0 : acc.At(i, 3).toDouble())});
        if (!r.ok()) {
            *error = r.Text;
            return 0;
        }
    }
    const QueryResult addr = db.Query(
        QStringLiteral("SELECT BRTemplateAccGUID, FOID, Sign, FOIDR FROM BRTemplateAddr WHERE "
                       "BRTemplateID = ? ORDER BY ID"),
        {Value(double(from))});
    if (!addr.ok()) {
        *error = addr.Text;
        return 0;
    }
    for (int i = 0; i < addr.RowCount(); ++i) {
        const QString line = addr.At(i, 0).toString();
        const ExecResult r = db.Execute(
            QStringLiteral("INSERT INTO BRTemplateAddr (BRTemplateID, BRTemplateAccGUID, FOID, "
                           "Sign, FOIDR) VALUES (?, ?, ?, ?, ?)"),
            {Value(double(copy)), Value(guids.value(line, line)), addr.At(i, 1),
             Value(qint32(addr.At(i, 2).toInt32())), addr.At(i, 3)});
        if (!r.ok()) {
            *error = r.Text;
            return 0;
        }
    }
    return copy;
}

BOResult addTemplateSet(Database& db, const ObjectKind& kind, const QString& object,
                        const QString& key, qint64 groupId) {
    if (object.trimmed() != kind.Code)
        return MethodRefusal(
            QStringLiteral("AddBRTemplateSet: „%1“ nėra šablonų objektas.").arg(object.trimmed()));
    const qint64 source = referenceId(kind, key);
    if (source == 0)
        return MethodRefusal(
            QStringLiteral("AddBRTemplateSet: „%1“ nėra šablono nuoroda.").arg(key));
    TransactionGuard tx(db);
    if (!tx.ok())
        return BOResult::Failure(tx.result().Code, tx.result().Text);
    QString error;
    const QVector<qint64> set = TemplateSubtree(db, source, &error);
    if (!error.isEmpty())
        return MethodFailure(error);
    QHash<qint64, qint64> copies;
    for (qint64 id : set) {
        qint64 parent = groupId;
        if (id != source) {
            const QueryResult p =
                db.Query(QStringLiteral("SELECT ParentID FROM BRTemplates WHERE ID = ?"),
                         {Value(double(id))});
            if (!p.ok())
                return MethodFailure(p.Text);
            parent = copies.value(NzId(p.Scalar()));
        }
        const qint64 copy = copyRecord(db, id, parent, &error);
        if (copy == 0)
            return error.startsWith(QStringLiteral("Šablonas")) ? MethodRefusal(error)
                                                                : MethodFailure(error);
        copies.insert(id, copy);
    }
    const qint64 root = copies.value(source);
    const ResultRecord codes = RenewTemplateCodes(db, root);
    if (!codes.ok())
        return BOResult::Failure(codes.Code, codes.Text);
    const ResultRecord committed = tx.Commit();
    if (!committed.ok())
        return BOResult::Failure(committed.Code, committed.Text);
    auto rs = Recordset::Create({TextField("OIDR", 30), TypedField("ID", FieldType::Integer)});
    rs->AddNew();
    rs->SetField(QStringLiteral("OIDR"), ObjectStore::OIDRFor(kind, root));
    rs->SetField(QStringLiteral("ID"), Value(double(root)));
    rs->Update();
    rs->AcceptChanges();
    rs->MoveFirst();
    return BOResult::Of(Value(rs));
}

BOResult deleteTemplateSet(Database& db, qint64 id) {
    TransactionGuard tx(db);
    if (!tx.ok())
        return BOResult::Failure(tx.result().Code, tx.result().Text);
    const QueryResult exists = db.Query(
        QStringLiteral("SELECT COUNT(*) FROM BRTemplates WHERE ID = ?"), {Value(double(id))});
    if (!exists.ok())
        return MethodFailure(exists.Text);
    if (exists.Scalar().toInt32() == 0)
        return BOResult::Failure(
            1, QStringLiteral("Įrašas %1%2 nerastas.").arg(kinds::Template).arg(id));
    QString error;
    const QVector<qint64> set = TemplateSubtree(db, id, &error);
    if (!error.isEmpty())
        return MethodFailure(error);
    // Children first, so that no row is ever left pointing at a parent already gone.
    for (auto it = set.crbegin(); it != set.crend(); ++it) {
        for (const char* table : {"BRTemplateAddr", "BRTemplateAcc"}) {
            const ExecResult r = db.Execute(QStringLiteral("DELETE FROM %1 WHERE BRTemplateID = ?")
                                                .arg(QString::fromLatin1(table)),
                                            {Value(double(*it))});
            if (!r.ok())
                return MethodFailure(r.Text);
        }
        const ExecResult r = db.Execute(QStringLiteral("DELETE FROM BRTemplates WHERE ID = ?"),
                                        {Value(double(*it))});
        if (!r.ok())
            return MethodFailure(r.Text);
    }
    const ResultRecord committed = tx.Commit();
    if (!committed.ok())
        return BOResult::Failure(committed.Code, committed.Text);
    return BOResult::Of(Value(qint32(set.size())));
}

ParameterSpec optionalText(const char* name) {
    return ParameterSpec::Optional(QString::fromLatin1(name), ParameterKind::Text,
                                   Value(QString()));
}

ParameterSpec requiredText(const char* name) {
    return ParameterSpec::Required(QString::fromLatin1(name), ParameterKind::Text);
}

} // namespace

QString TemplateEntriesText(const QStringList& debit, const QStringList& credit,
                            const QVector<double>& factors) {
    QStringList parts;
    for (int i = 0; i < debit.size() && i < credit.size() && i < factors.size(); ++i)
        parts << QStringLiteral("D%1 K%2 ×%3")
                     .arg(debit.at(i).trimmed(), credit.at(i).trimmed(), factorText(factors.at(i)));
    return parts.join(QStringLiteral("; "));
}

ResultRecord RegisterTemplateMethods(MethodRegistry& methods) {
    const auto kind = std::make_shared<const ObjectKind>(TemplateKind());
    const QString prefix = QStringLiteral("D") + kind->Code + QStringLiteral("_");
    QVector<MethodDefinition> list;

    list << BookMethod(
        prefix + QStringLiteral("GetOrvoObject"), {requiredText("OIDR")},
        ObjectStore::RecordFields(kind->Root),
        QStringLiteral("The template or template group with its entries (BRTemplateAcc) and "
                       "their addressees (BRTemplateAddr); the bare code gives a blank record."),
        [kind](MethodContext& ctx, const MethodArguments& a) {
            ObjectStore store(*ctx.database);
            const QString oidr = a.Text(QStringLiteral("OIDR")).trimmed();
            if (oidr.size() < 9)
                return store.ReadBlank(*kind, oidr);
            const qint64 id = ObjectStore::IdFromOIDR(*kind, oidr);
            if (id == 0)
                return notAReference(kind->Code, oidr);
            return store.Read(*kind, id);
        });
    list << BookMethod(
        prefix + QStringLiteral("SaveOrvoObject"), {optionalText("OIDR")},
        {TextField("OIDR", 30), TypedField("ID", FieldType::Integer), TextField("LockGUID", 40)},
        QStringLiteral("Stores the template handed in with its entries and addressees in one "
                       "transaction and renews the tree codes (OwnCode, ParentCode) of it and "
                       "of all below it. Refused: a parent that is gone or is not a group, a "
                       "group moved below itself, a copy older than the stored record."),
        [kind](MethodContext& ctx, const MethodArguments& a) {
            const QString oidr = a.Text(QStringLiteral("OIDR")).trimmed();
            qint64 id = 0;
            if (oidr.size() >= 9) {
                id = ObjectStore::IdFromOIDR(*kind, oidr);
                if (id == 0)
                    return notAReference(kind->Code, oidr);
            }
            ObjectStore store(*ctx.database);
            return store.Save(*kind, id, InputRecordset(a.Input()));
        });
    list << BookMethod(prefix + QStringLiteral("DeleteOrvoObject"), {requiredText("OIDR")},
                       {TypedField("Count", FieldType::Integer)},
                       QStringLiteral("Removes the template with its entries, or the group with "
                                      "everything below it (as DeleteTemplateSet)."),
                       [kind](MethodContext& ctx, const MethodArguments& a) {
                           const QString ref = a.Text(QStringLiteral("OIDR"));
                           const qint64 id = referenceId(*kind, ref);
                           if (id == 0)
                               return notAReference(kind->Code, ref);
                           return deleteTemplateSet(*ctx.database, id);
                       });
    list << BookMethod(
        prefix + QStringLiteral("GetOrvoObjectList"),
        {optionalText("OID"), optionalText("From"), optionalText("To")}, listFields(),
        QStringLiteral("The records under one node of the tree: the top level for the "
                       "bare code, a group's records for its OIDR; groups first, then "
                       "by name. From and To are 1-based positions."),
        [kind](MethodContext& ctx, const MethodArguments& a) {
            return childList(*ctx.database, *kind, a.Text(QStringLiteral("OID")),
                             ListPosition(a.Text(QStringLiteral("From"))),
                             ListPosition(a.Text(QStringLiteral("To"))));
        });
    list << BookMethod(
        QStringLiteral("GetTemplateList"), {optionalText("GroupID")}, templateListFields(),
        QStringLiteral("The rows a template chooser builds its tree from, each parent "
                       "before its children: every record, or (with a group's ID) "
                       "that group and all below it. AccPreview lists the entries."),
        [kind](MethodContext& ctx, const MethodArguments& a) {
            const QString group = a.Text(QStringLiteral("GroupID")).trimmed();
            return templateList(
                *ctx.database, *kind,
                group.isEmpty() || group == QLatin1String("None") ? 0 : referenceId(*kind, group));
        });
    list << BookMethod(QStringLiteral("GetTemplateAccAndAddr"), {requiredText("ID")}, linesFields(),
                       QStringLiteral("The entries of a template in stored order with their "
                                      "demanded addressees nested as RequiredAddr (Sign, FOID, and "
                                      "FOIDR with ShowString for a fixed one)."),
                       [kind](MethodContext& ctx, const MethodArguments& a) {
                           const QString ref = a.Text(QStringLiteral("ID"));
                           const qint64 id = referenceId(*kind, ref);
                           if (id == 0)
                               return MethodRefusal(
                                   QStringLiteral("Operacijos šablonas nerastas!"));
                           return templateLines(*ctx.database, id);
                       });
    list << BookMethod(
        prefix + QStringLiteral("GetEnabledAddressee"),
        {requiredText("Account"),
         ParameterSpec::Optional(QStringLiteral("Sign"), ParameterKind::Integer, Value(qint32(0)))},
        {TextField("FOID", 20), TextField("Name", 100)},
        QStringLiteral("The addressee kinds the account allows (the chart's "
                       "GetEnabledAddressee), each once, with its name; Sign 1 or -1 "
                       "keeps one side's."),
        [](MethodContext& ctx, const MethodArguments& a) {
            return enabledAddressee(ctx, a.Text(QStringLiteral("Account")),
                                    a.Integer(QStringLiteral("Sign")));
        });
    list << BookMethod(
        QStringLiteral("AddBRTemplateSet"),
        {requiredText("Object"), requiredText("Key"),
         ParameterSpec::Optional(QStringLiteral("ID"), ParameterKind::Integer, Value(qint32(0)))},
        {TextField("OIDR", 30), TypedField("ID", FieldType::Integer)},
        QStringLiteral("Copies a template set (a group with all it holds, or one "
                       "template) into the group ID (0: the top level) with new "
                       "GUIDs; the copy's OIDR and ID."),
        [kind](MethodContext& ctx, const MethodArguments& a) {
            return addTemplateSet(*ctx.database, *kind, a.Text(QStringLiteral("Object")),
                                  a.Text(QStringLiteral("Key")), a.Integer(QStringLiteral("ID")));
        });
    list << BookMethod(QStringLiteral("DeleteTemplateSet"), {requiredText("OIDR")},
                       {TypedField("Count", FieldType::Integer)},
                       QStringLiteral("Removes a template with its entries, or a group with every "
                                      "group and template below it; how many records went."),
                       [kind](MethodContext& ctx, const MethodArguments& a) {
                           const QString ref = a.Text(QStringLiteral("OIDR"));
                           const qint64 id = referenceId(*kind, ref);
                           if (id == 0)
                               return notAReference(QStringLiteral("DeleteTemplateSet"), ref);
                           return deleteTemplateSet(*ctx.database, id);
                       });

    return RegisterAll(methods, list);
}

} // namespace orvo::host
