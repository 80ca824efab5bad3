#include "host/script/json_value.h"

#include "core/dictionary.h"

#include <cmath>

namespace orvo::host {

namespace {

struct TypeName {
    const char* name;
    FieldType type;
};

// The first name of a type is the one written back; the others are accepted on input.
constexpr TypeName kTypeNames[] = {
    {"text", FieldType::VarWChar},        {"double", FieldType::Double},
    {"int32", FieldType::Integer},        {"int16", FieldType::SmallInt},
    {"bool", FieldType::Boolean},         {"date", FieldType::Date},
    {"datetime", FieldType::DBTimeStamp}, {"variant", FieldType::Variant},
    {"decimal", FieldType::Numeric},      {"recordset", FieldType::Chapter},
    {"int", FieldType::Integer},          {"integer", FieldType::Integer},
    {"smallint", FieldType::SmallInt},    {"boolean", FieldType::Boolean},
    {"string", FieldType::VarWChar},      {"number", FieldType::Double},
};

bool typeFromName(const QString& name, FieldType* out) {
    for (const auto& t : kTypeNames) {
        if (name.compare(QLatin1String(t.name), Qt::CaseInsensitive) == 0) {
            *out = t.type;
            return true;
        }
    }
    return false;
}

QJsonArray fieldsToJson(const FieldDefs& fields) {
    QJsonArray out;
    for (const FieldDef& f : fields) {
        QJsonObject o{{"name", f.name}, {"type", FieldTypeName(f.type)}};
        if (f.definedSize > 0)
            o.insert("size", f.definedSize);
        if (f.type == FieldType::Chapter && f.children)
            o.insert("fields", fieldsToJson(*f.children));
        out.append(o);
    }
    return out;
}

bool fieldsFromJson(const QJsonArray& arr, FieldDefs* out, QString* error) {
    for (const QJsonValue& v : arr) {
        const QJsonObject o = v.toObject();
        const QString name = o.value("name").toString();
        if (name.isEmpty()) {
            *error = QStringLiteral("Laukas be vardo (\"name\")");
            return false;
        }
        FieldType type = FieldType::Variant;
        if (o.contains("type") && !typeFromName(o.value("type").toString(), &type)) {
            *error = QStringLiteral("Nežinomas lauko \"%1\" tipas: %2")
                         .arg(name, o.value("type").toString());
            return false;
        }
        if (type == FieldType::Chapter) {
            FieldDefs children;
            if (!fieldsFromJson(o.value("fields").toArray(), &children, error))
                return false;
            out->append(FieldDef::Chapter(name, children));
        } else {
            out->append(FieldDef::Make(name, type, o.value("size").toInt(0)));
        }
    }
    return true;
}

QJsonObject rowToJson(const Recordset& rs) {
    QJsonObject row;
    const FieldDefs& fields = rs.FieldDefinitions();
    for (int i = 0; i < fields.size(); ++i)
        row.insert(fields[i].name, ValueToJson(rs.Field(i)));
    return row;
}

} // namespace

QString FieldTypeName(FieldType type) {
    for (const auto& t : kTypeNames)
        if (t.type == type)
            return QLatin1String(t.name);
    if (IsTextType(type))
        return QStringLiteral("text");
    if (IsIntegerType(type))
        return QStringLiteral("int32");
    if (IsFractionalType(type))
        return QStringLiteral("double");
    if (IsDateType(type))
        return QStringLiteral("date");
    return QStringLiteral("variant");
}

QJsonValue ValueToJson(const Value& value) {
    switch (value.kind()) {
    case Value::Kind::Null:
        return QJsonValue(QJsonValue::Null);
    case Value::Kind::Bool:
        return value.toBool();
    case Value::Kind::Int16:
    case Value::Kind::Int32:
        return value.toInt32();
    case Value::Kind::Double:
        return value.toDouble();
    case Value::Kind::Text:
    case Value::Kind::Date:
    case Value::Kind::DateTime:
        return value.toString();
    case Value::Kind::Array: {
        QJsonArray arr;
        for (const Value& v : value.toArray())
            arr.append(ValueToJson(v));
        return arr;
    }
    case Value::Kind::Recordset:
        return RecordsetToJson(*value.toRecordset());
    case Value::Kind::Dictionary: {
        QJsonObject o;
        const DictionaryPtr d = value.toDictionary();
        for (const QString& k : d->Keys())
            o.insert(k, ValueToJson(d->Item(k)));
        return o;
    }
    case Value::Kind::Object:
        return QJsonObject{{"object", value.toObject()->ClassName()}};
    }
    return QJsonValue(QJsonValue::Null);
}

QJsonObject RecordsetToJson(const Recordset& source) {
    // Walk a copy so the caller's current row stays where it was.
    const RecordsetPtr rs = source.Clone();
    if (!source.Filter().isEmpty())
        rs->SetFilter(source.Filter());
    if (!source.Sort().isEmpty())
        rs->SetSort(source.Sort());
    QJsonArray rows;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
        rows.append(rowToJson(*rs));
    return QJsonObject{{"fields", fieldsToJson(rs->FieldDefinitions())}, {"rows", rows}};
}

QJsonObject CurrentRowToJson(const Recordset& rs) {
    if (rs.Bof() || rs.Eof())
        return QJsonObject();
    return rowToJson(rs);
}

Value JsonToValue(const QJsonValue& json) {
    switch (json.type()) {
    case QJsonValue::Null:
    case QJsonValue::Undefined:
        return Value();
    case QJsonValue::Bool:
        return Value(json.toBool());
    case QJsonValue::Double: {
        const double d = json.toDouble();
        if (std::floor(d) == d && std::fabs(d) <= 2147483647.0)
            return Value(static_cast<qint32>(d));
        return Value(d);
    }
    case QJsonValue::String:
        return Value(json.toString());
    case QJsonValue::Array: {
        ValueArray arr;
        for (const QJsonValue& v : json.toArray())
            arr.append(JsonToValue(v));
        return Value(arr);
    }
    case QJsonValue::Object: {
        const QJsonObject o = json.toObject();
        if (o.contains("fields")) {
            RecordsetFromJsonResult r = RecordsetFromJson(o);
            return r.rs ? Value(r.rs) : Value();
        }
        auto d = Dictionary::Create();
        for (auto it = o.begin(); it != o.end(); ++it)
            d->SetItem(it.key(), JsonToValue(it.value()));
        return Value(d);
    }
    }
    return Value();
}

namespace {
bool fillRows(Recordset& rs, const QJsonArray& rows, QString* error) {
    for (const QJsonValue& rv : rows) {
        const QJsonObject row = rv.toObject();
        rs.AddNew();
        for (auto it = row.begin(); it != row.end(); ++it) {
            const int idx = rs.FieldIndex(it.key());
            if (idx < 0) {
                *error = QStringLiteral("Nėra lauko \"%1\"").arg(it.key());
                return false;
            }
            const FieldDef& f = rs.FieldDefinitions().at(idx);
            if (f.type == FieldType::Chapter) {
                const RecordsetPtr child = rs.Field(idx).toRecordset();
                if (child &&
                    !fillRows(*child, it.value().toObject().value("rows").toArray(), error))
                    return false;
                continue;
            }
            if (!rs.SetField(idx, JsonToValue(it.value()))) {
                *error = QStringLiteral("Netinkama lauko \"%1\" reikšmė").arg(it.key());
                return false;
            }
        }
        rs.Update();
    }
    return true;
}
} // namespace

RecordsetFromJsonResult RecordsetFromJson(const QJsonObject& json) {
    FieldDefs fields;
    QString error;
    if (!json.value("fields").isArray())
        return {nullptr, QStringLiteral("Rinkinyje nėra laukų sąrašo (\"fields\")")};
    if (!fieldsFromJson(json.value("fields").toArray(), &fields, &error))
        return {nullptr, error};
    auto rs = Recordset::Create(fields);
    if (!fillRows(*rs, json.value("rows").toArray(), &error))
        return {nullptr, error};
    rs->MoveFirst();
    return {rs, QString()};
}

} // namespace orvo::host
