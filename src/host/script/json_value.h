// The bridge between the system's values and JSON, for the `orvo script` interface and
// anything else that speaks JSON. Dates travel as "YYYY-MM-DD", date-times as
// "YYYY-MM-DDThh:mm:ss", Null as null, a recordset as {"fields":[...],"rows":[...]},
// a dictionary as an object, an array as an array.
#pragma once

#include "core/recordset.h"
#include "core/results.h"
#include "core/value.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>

namespace orvo::host {

// A value as JSON. Recordsets give their visible rows, nested recordsets included.
QJsonValue ValueToJson(const Value& value);
// A recordset as {"fields":[{"name","type","size"}...],"rows":[{...}...]}.
QJsonObject RecordsetToJson(const Recordset& rs);
// The current row of a recordset as one object, nested recordsets as {"fields","rows"}.
QJsonObject CurrentRowToJson(const Recordset& rs);
// JSON as a value: numbers that are whole and fit become 32-bit integers, others
// doubles; an object with "fields" becomes a recordset; any other object a dictionary.
Value JsonToValue(const QJsonValue& json);

// A recordset made from {"fields":[...],"rows":[...]}; field types by name: "text"
// (with "size"), "double", "int16", "int32", "bool", "date", "datetime", "variant",
// "decimal", "recordset" (with its own "fields"). A bad description is an error.
struct RecordsetFromJsonResult {
    RecordsetPtr rs;
    QString error;
};
RecordsetFromJsonResult RecordsetFromJson(const QJsonObject& json);

QString FieldTypeName(FieldType type);

} // namespace orvo::host
