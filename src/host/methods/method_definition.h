// MethodDefinition is the registration of one business-object method: its name, the
// parameters it reads from the parameter text (each with a name and a kind, required
// or optional), the syntax of that text, the fields of the recordset it returns, one
// paragraph of documentation, and the handler that does the work.
//
// Optional parameters come after the required ones and may be left out at the end of
// the text; a left-out one has its default (Null unless given). The last parameter
// may be repeated: it then takes every remaining value, at least one, as an array.
// A method that stores something finds what it stores in MethodArguments::Input().
#pragma once

#include "core/field_type.h"
#include "core/results.h"
#include "core/value.h"
#include "host/methods/parameter_kind.h"
#include "host/methods/parameter_text.h"

#include <QString>
#include <QVector>
#include <functional>

namespace orvo::host {

struct MethodContext;
class MethodArguments;

struct ParameterSpec {
    QString name;
    ParameterKind kind = ParameterKind::Text;
    bool optional = false;
    bool repeated = false;
    Value defaultValue; // given to the handler for an optional parameter left out

    static ParameterSpec Required(const QString& name, ParameterKind kind) {
        return {name, kind, false, false, Value()};
    }
    static ParameterSpec Optional(const QString& name, ParameterKind kind,
                                  const Value& defaultValue = Value()) {
        return {name, kind, true, false, defaultValue};
    }
    static ParameterSpec Repeated(const QString& name, ParameterKind kind) {
        return {name, kind, false, true, Value()};
    }
};

using MethodHandler = std::function<BOResult(MethodContext&, const MethodArguments&)>;

struct MethodDefinition {
    QString name;
    QVector<ParameterSpec> parameters;
    ParameterSyntax syntax = ParameterSyntax::Quoted;
    FieldDefs fields;
    QString doc;
    MethodHandler handler;

    int RequiredCount() const;
    // Most values the text may hold; -1 when the last parameter is repeated.
    int MaximumCount() const;
    // One line such as GetDebts1('Kind' integer, 'Account' text, ['Sign' integer]).
    QString Signature() const;
    // The fields as "Name type, Name type".
    QString FieldList() const;
};

} // namespace orvo::host
