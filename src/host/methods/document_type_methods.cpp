#include "host/methods/document_type_methods.h"

#include "core/recordset.h"
#include "host/methods/method_arguments.h"
#include "host/methods/method_codes.h"
#include "host/methods/method_context.h"
#include "host/methods/method_helpers.h"
#include "host/methods/method_registry.h"
#include "host/storage/database.h"

namespace orvo::host {

namespace {

FieldDefs documentTypeFields() {
    return {TextField("Code", 50), TextField("Name", 255)};
}

FieldDefs templateTypeFields() {
    return {FieldDef::Make(QStringLiteral("ID"), FieldType::Integer), TextField("Preview", 255),
            TextField("DocumentTypeCodes", 255)};
}

RecordsetPtr finished(const RecordsetPtr& rs) {
    rs->AcceptChanges();
    rs->MoveFirst();
    return rs;
}

BOResult documentTypes(Database& db, const QString& code) {
    ValueArray params;
    QString sql = QStringLiteral("SELECT Code, Name FROM DocumentTypes");
    if (!code.isEmpty()) {
        sql += QStringLiteral(" WHERE Code = ?");
        params << Value(code);
    }
    const QueryResult q = db.Query(sql + QStringLiteral(" ORDER BY Name, Code"), params);
    if (!q.ok())
        return MethodFailure(q.Text);
    auto rs = Recordset::Create(documentTypeFields());
    for (int i = 0; i < q.RowCount(); ++i) {
        rs->AddNew();
        rs->SetField(QStringLiteral("Code"), q.At(i, 0).toString());
        rs->SetField(QStringLiteral("Name"), q.At(i, 1).toString());
        rs->Update();
    }
    return BOResult::Of(Value(finished(rs)));
}

BOResult templateTypes(Database& db) {
    const QueryResult q = db.Query(
        QStringLiteral("SELECT ID, Name, DocumentTypeCodes FROM TemplateTypes ORDER BY Name, ID"));
    if (!q.ok())
        return MethodFailure(q.Text);
    auto rs = Recordset::Create(templateTypeFields());
    for (int i = 0; i < q.RowCount(); ++i) {
        rs->AddNew();
        rs->SetField(QStringLiteral("ID"), Value(qint32(q.At(i, 0).toDouble())));
        rs->SetField(QStringLiteral("Preview"), q.At(i, 1).toString());
        rs->SetField(QStringLiteral("DocumentTypeCodes"), q.At(i, 2).toString());
        rs->Update();
    }
    return BOResult::Of(Value(finished(rs)));
}

BOResult relatedDocumentGroup(Database& db, qint64 groupId) {
    const QueryResult q =
        db.Query(QStringLiteral("SELECT Parameters FROM BROperGroups WHERE ID = ?"),
                 {Value(double(groupId))});
    if (!q.ok())
        return MethodFailure(q.Text);
    const QString parameters = q.RowCount() > 0 ? q.At(0, 0).toString() : QString();
    const QString key = parameters.contains(QLatin1Char('|'))
                            ? parameters.section(QLatin1Char('|'), 1).trimmed()
                            : QString();
    if (key.isEmpty())
        return BOResult::Of(Value(finished(Recordset::Create(documentTypeFields()))));
    return documentTypes(db, key);
}

} // namespace

ResultRecord RegisterDocumentTypeMethods(MethodRegistry& methods) {
    const ParameterSpec filter =
        ParameterSpec::Optional(QStringLiteral("Filter"), ParameterKind::Text, Value(QString()));
    const QVector<MethodDefinition> list = {
        BookMethod(QStringLiteral("DO0001602_GetDocumentTypes"), {filter}, documentTypeFields(),
                   QStringLiteral("The document types, rows Code, Name, by name."),
                   [](MethodContext& ctx, const MethodArguments&) {
                       return documentTypes(*ctx.database, QString());
                   }),
        BookMethod(QStringLiteral("DO0001612_GetTemplateTypes"), {filter}, templateTypeFields(),
                   QStringLiteral("The template types, rows ID, Preview, DocumentTypeCodes (the "
                                  "document types served, \";\"-joined), by name."),
                   [](MethodContext& ctx, const MethodArguments&) {
                       return templateTypes(*ctx.database);
                   }),
        BookMethod(QStringLiteral("DO0201400_GetRelatedDocumentGroup"),
                   {ParameterSpec::Required(QStringLiteral("GroupID"), ParameterKind::Integer)},
                   documentTypeFields(),
                   QStringLiteral("The document type the group's Parameters name after \"|\", "
                                  "rows Code, Name; none when it names no stored type."),
                   [](MethodContext& ctx, const MethodArguments& a) {
                       return relatedDocumentGroup(*ctx.database,
                                                   a.Integer(QStringLiteral("GroupID")));
                   }),
    };
    return RegisterAll(methods, list);
}

} // namespace orvo::host
