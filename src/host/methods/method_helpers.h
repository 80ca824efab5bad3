// Small pieces every group of business-object methods needs, kept in one place: the
// refusal of a method that needs a book when the session has none, a method definition
// that refuses so before its body runs, the recordset a storing method was handed, the
// paging of lists by 1-based positions, the fields of the rows methods answer with, and
// the registration of a group of methods.
#pragma once

#include "core/recordset.h"
#include "core/results.h"
#include "host/methods/method_definition.h"

#include <functional>

namespace orvo::host {

class Database;
class MethodRegistry;

// "<method>: knyga neatidaryta." with a non-zero code.
BOResult NoBookResult(const QString& method);
// A method whose body runs only when the session has a book; without one it answers
// NoBookResult under its own name.
using BookMethodBody = std::function<BOResult(MethodContext&, const MethodArguments&)>;
MethodDefinition BookMethod(const QString& name, QVector<ParameterSpec> parameters,
                            FieldDefs fields, const QString& doc, BookMethodBody body);
// The recordset handed in with a call: the value itself, or the first of an array (a
// data object's save may hand over its recordset with two more).
RecordsetPtr InputRecordset(const Value& input);
// A list position text ("", "0", "25") as a number; anything else is 0.
int ListPosition(const QString& text);
// " LIMIT ? OFFSET ?" (or its open-ended form) for positions `from`..`to`, 0 meaning
// from the start / to the end, in the book's dialect; appends the parameters.
QString PagingClause(const Database& db, int from, int to, ValueArray& params);
// A text field of a method's rows (size 0: unbounded), and a field of another type.
FieldDef TextField(const char* name, int size = 0);
FieldDef TypedField(const char* name, FieldType type);
// The failure of a method's own work (a statement the book refused), and the refusal of
// what the caller asked (code 777, a text for the user).
BOResult MethodFailure(const QString& text);
BOResult MethodRefusal(const QString& text);
// Registers every definition of a group, stopping at the first the registry refuses.
ResultRecord RegisterAll(MethodRegistry& methods, const QVector<MethodDefinition>& list);

} // namespace orvo::host
