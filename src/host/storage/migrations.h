// The numbered list of migrations that builds a book's structure, oldest first. The
// last one's number is the structure this build writes; a book stamped with a higher
// number was written by a newer program and is refused.
#pragma once

#include "host/storage/migration.h"

#include <QVector>

namespace orvo::host {

const QVector<Migration>& Migrations();
int LatestSchemaVersion();

// The number that marks a book as ours: SQLite's PRAGMA application_id and the
// ApplicationID of PostgreSQL's schema_version row ("ORVO" in ASCII).
inline constexpr qint32 kApplicationId = 0x4F52564F;

} // namespace orvo::host
