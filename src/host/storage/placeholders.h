// Rewriting of positional parameters for PostgreSQL: the system writes `?` for every
// parameter, as SQLite reads it; PostgreSQL wants $1..$n. A `?` inside a quoted text, a
// quoted name, a dollar-quoted body or a comment is left alone.
#pragma once

#include <QString>

namespace orvo::host {

// The SQL with each parameter mark numbered; `count` (when given) receives how many.
QString NumberPlaceholders(const QString& sql, int* count = nullptr);

} // namespace orvo::host
