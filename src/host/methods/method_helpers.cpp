#include "host/methods/method_helpers.h"

#include "host/methods/method_codes.h"
#include "host/methods/method_context.h"
#include "host/methods/method_registry.h"
#include "host/storage/database.h"

namespace orvo::host {

BOResult NoBookResult(const QString& method) {
    return BOResult::Failure(1, QStringLiteral("%1: knyga neatidaryta.").arg(method));
}

MethodDefinition BookMethod(const QString& name, QVector<ParameterSpec> parameters,
                            FieldDefs fields, const QString& doc, BookMethodBody body) {
    MethodDefinition m;
    m.name = name;
    m.parameters = std::move(parameters);
    m.fields = std::move(fields);
    m.doc = doc;
    m.handler = [name, body = std::move(body)](MethodContext& ctx, const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        return body(ctx, args);
    };
    return m;
}

RecordsetPtr InputRecordset(const Value& input) {
    if (RecordsetPtr rs = input.toRecordset())
        return rs;
    const ValueArray& arr = input.toArray();
    return arr.isEmpty() ? nullptr : arr.first().toRecordset();
}

int ListPosition(const QString& text) {
    bool ok = false;
    const int n = text.trimmed().toInt(&ok);
    return ok && n > 0 ? n : 0;
}

QString PagingClause(const Database& db, int from, int to, ValueArray& params) {
    const int offset = from > 1 ? from - 1 : 0;
    if (to > 0) {
        params << Value(qint32(qMax(0, to - offset))) << Value(qint32(offset));
        return QStringLiteral(" LIMIT ? OFFSET ?");
    }
    if (offset == 0)
        return QString();
    params << Value(qint32(offset));
    // SQLite wants a LIMIT before an OFFSET; PostgreSQL takes OFFSET alone.
    return db.Kind() == Backend::PostgreSQL ? QStringLiteral(" OFFSET ?")
                                            : QStringLiteral(" LIMIT -1 OFFSET ?");
}

FieldDef TextField(const char* name, int size) {
    return FieldDef::Make(QString::fromLatin1(name), FieldType::VarWChar, size);
}

FieldDef TypedField(const char* name, FieldType type) {
    return FieldDef::Make(QString::fromLatin1(name), type);
}

BOResult MethodFailure(const QString& text) {
    return BOResult::Failure(bo_codes::MethodFailed, text);
}

BOResult MethodRefusal(const QString& text) {
    return BOResult::Failure(777, text);
}

ResultRecord RegisterAll(MethodRegistry& methods, const QVector<MethodDefinition>& list) {
    for (const MethodDefinition& m : list) {
        const ResultRecord r = methods.Register(m);
        if (!r.ok())
            return r;
    }
    return ResultRecord::Success();
}

} // namespace orvo::host
