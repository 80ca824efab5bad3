#include "host/methods/group_reference.h"

#include "core/null_readers.h"
#include "core/recordset.h"
#include "host/objects/group_kind.h"
#include "host/storage/database.h"

#include <QSet>
#include <QStringList>

namespace orvo::host {

namespace {

FieldDef text(const char* name, int size = 255) {
    return FieldDef::Make(QString::fromLatin1(name), FieldType::VarWChar, size);
}

FieldDef integer(const char* name) {
    return FieldDef::Make(QString::fromLatin1(name), FieldType::Integer);
}

FieldDefs groupFields() {
    return {text("OIDR", 30),
            text("Preview"),
            text("PreviewPath", 1000),
            text("Name"),
            integer("ParentID"),
            integer("GroupFlag"),
            text("FormOID", 20),
            text("Parameters", 1000),
            integer("BRTemplateID"),
            integer("DefaultTemplateID"),
            integer("SerijaIndication"),
            text("Serija", 50),
            text("AccountCode", 50),
            text("ANMask"),
            text("ANPrefix"),
            text("ANTemplate")};
}

} // namespace

bool IsGroupReference(const QString& reference) {
    const QString ref = reference.trimmed();
    if (!ref.startsWith(kinds::OperationGroup) || ref.size() <= kinds::OperationGroup.size())
        return false;
    bool ok = false;
    ref.mid(kinds::OperationGroup.size()).toLongLong(&ok);
    return ok;
}

BOResult GroupByReference(Database& db, const QString& reference) {
    RecordsetPtr out = Recordset::Create(groupFields());
    const qint64 id = reference.trimmed().mid(kinds::OperationGroup.size()).toLongLong();
    const QueryResult q = db.Query(
        QStringLiteral("SELECT ID, Name, ParentID, GroupFlag, FormOID, Parameters, BRTemplateID, "
                       "DefaultTemplateID, SerijaIndication, Serija, AccountCode, ANMask, "
                       "ANPrefix, ANTemplate FROM BROperGroups WHERE ID = ?"),
        {Value(double(id))});
    if (!q.ok())
        return BOResult::Failure(q.Code, q.Text);
    if (q.RowCount() == 1) {
        // The path of names from the top down; a loop in the parents stops the walk.
        QStringList path{q.At(0, 1).toString()};
        QSet<qint64> seen{id};
        for (qint64 parent = NzId(q.At(0, 2)); parent > 0 && !seen.contains(parent);) {
            seen.insert(parent);
            const QueryResult up =
                db.Query(QStringLiteral("SELECT Name, ParentID FROM BROperGroups WHERE ID = ?"),
                         {Value(double(parent))});
            if (!up.ok())
                return BOResult::Failure(up.Code, up.Text);
            if (up.RowCount() == 0)
                break;
            path.prepend(up.At(0, 0).toString());
            parent = NzId(up.At(0, 1));
        }
        out->AddNew();
        out->SetField(QStringLiteral("OIDR"), QString(kinds::OperationGroup + QString::number(id)));
        out->SetField(QStringLiteral("Preview"), q.At(0, 1));
        out->SetField(QStringLiteral("PreviewPath"), path.join(QLatin1Char('\\')));
        // Columns 1.. of the query, each to its field as text or as a whole number.
        const QStringList texts = {QStringLiteral("Name"),        QStringLiteral("FormOID"),
                                   QStringLiteral("Parameters"),  QStringLiteral("Serija"),
                                   QStringLiteral("AccountCode"), QStringLiteral("ANMask"),
                                   QStringLiteral("ANPrefix"),    QStringLiteral("ANTemplate")};
        const QStringList order = {QStringLiteral("Name"),
                                   QStringLiteral("ParentID"),
                                   QStringLiteral("GroupFlag"),
                                   QStringLiteral("FormOID"),
                                   QStringLiteral("Parameters"),
                                   QStringLiteral("BRTemplateID"),
                                   QStringLiteral("DefaultTemplateID"),
                                   QStringLiteral("SerijaIndication"),
                                   QStringLiteral("Serija"),
                                   QStringLiteral("AccountCode"),
                                   QStringLiteral("ANMask"),
                                   QStringLiteral("ANPrefix"),
                                   QStringLiteral("ANTemplate")};
        for (int c = 0; c < order.size(); ++c) {
            const Value v = q.At(0, c + 1);
            if (v.isNull())
                continue;
            out->SetField(order[c], texts.contains(order[c]) ? Value(v.toString())
                                                             : Value(qint32(v.toDouble())));
        }
        out->Update();
    }
    out->AcceptChanges();
    out->MoveFirst();
    return BOResult::Of(Value(out));
}

} // namespace orvo::host
