#include "host/methods/comment_list_methods.h"

#include "core/recordset.h"
#include "host/methods/method_arguments.h"
#include "host/methods/method_context.h"
#include "host/methods/method_helpers.h"
#include "host/methods/method_registry.h"
#include "host/storage/database.h"

namespace orvo::host {

namespace {

FieldDefs listFields() {
    return {FieldDef::Make(QStringLiteral("ID"), FieldType::Integer),
            FieldDef::Make(QStringLiteral("Name"), FieldType::VarWChar, 1000)};
}

BOResult refusal(const QString& text) {
    return BOResult::Failure(1, text);
}

BOResult list(Database& db) {
    const QueryResult q =
        db.Query(QStringLiteral("SELECT ID, Name FROM BRCommentTemplates ORDER BY Name, ID"));
    if (!q.ok())
        return BOResult::Failure(q.Code, q.Text);
    RecordsetPtr rows = Recordset::Create(listFields());
    for (int i = 0; i < q.RowCount(); ++i) {
        rows->AddNew();
        rows->SetField(QStringLiteral("ID"), Value(qint32(q.At(i, 0).toDouble())));
        rows->SetField(QStringLiteral("Name"), q.At(i, 1));
        rows->Update();
    }
    rows->AcceptChanges();
    if (rows->RecordCount() > 0)
        rows->MoveFirst();
    return BOResult::Of(Value(rows));
}

// Carries out one action; empty on success, the refusal otherwise.
QString apply(Database& db, const QString& action, qint64 id, const QString& text) {
    if (action.isEmpty() || action.compare(QLatin1String("List"), Qt::CaseInsensitive) == 0)
        return QString();
    const bool add = action.compare(QLatin1String("Add"), Qt::CaseInsensitive) == 0;
    const bool change = action.compare(QLatin1String("Change"), Qt::CaseInsensitive) == 0;
    const bool remove = action.compare(QLatin1String("Delete"), Qt::CaseInsensitive) == 0;
    if (!add && !change && !remove)
        return QStringLiteral("Nežinomas komentarų sąrašo veiksmas „%1“.").arg(action);
    if ((add || change) && text.trimmed().isEmpty())
        return QStringLiteral("Neįvestas komentaras !");
    ExecResult r;
    if (add)
        r = db.Execute(QStringLiteral("INSERT INTO BRCommentTemplates (Name) VALUES (?)"),
                       {Value(text.trimmed())});
    else if (change)
        r = db.Execute(QStringLiteral("UPDATE BRCommentTemplates SET Name = ? WHERE ID = ?"),
                       {Value(text.trimmed()), Value(double(id))});
    else
        r = db.Execute(QStringLiteral("DELETE FROM BRCommentTemplates WHERE ID = ?"),
                       {Value(double(id))});
    if (!r.ok())
        return r.Text;
    if (!add && r.RowsAffected == 0)
        return QStringLiteral("Komentaras nerastas: jis jau panaikintas.");
    return QString();
}

MethodDefinition commentList() {
    MethodDefinition m;
    m.name = QStringLiteral("GetCommentList");
    m.parameters = {
        ParameterSpec::Optional(QStringLiteral("Action"), ParameterKind::Text, Value(QString())),
        ParameterSpec::Optional(QStringLiteral("ID"), ParameterKind::Integer, Value(0)),
        ParameterSpec::Optional(QStringLiteral("Text"), ParameterKind::Text, Value(QString()))};
    m.fields = listFields();
    m.doc = QStringLiteral(
        "The ready comments of operations after an action: Action '' or 'List' reads, 'Add' "
        "stores Text as a new comment, 'Change' gives comment ID the Text, 'Delete' removes "
        "comment ID. Rows ID, Name, by name.");
    m.handler = [name = m.name](MethodContext& ctx, const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        const QString refused =
            apply(*ctx.database, args.Text(QStringLiteral("Action")).trimmed(),
                  args.Integer(QStringLiteral("ID")), args.Text(QStringLiteral("Text")));
        if (!refused.isEmpty())
            return refusal(refused);
        return list(*ctx.database);
    };
    return m;
}

} // namespace

ResultRecord RegisterCommentListMethods(MethodRegistry& methods) {
    return methods.Register(commentList());
}

} // namespace orvo::host
