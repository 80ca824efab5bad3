// The group a reference names, as the operation's side reads it through
// Properties("Parent", 'O0201400<ID>'): one row of the group's settings, with Preview
// (its name) and PreviewPath (the names from the top group down, joined by "\"), so
// that an editor can take the series, the number mask and the templates an operation
// inherits. An unknown group gives no row; a reference of another kind is not this
// function's to answer.
#pragma once

#include "core/results.h"

#include <QString>

namespace orvo::host {

class Database;

// Whether `reference` names an operation group ("O0201400" followed by a number).
bool IsGroupReference(const QString& reference);

BOResult GroupByReference(Database& db, const QString& reference);

} // namespace orvo::host
