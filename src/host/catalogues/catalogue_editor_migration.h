// The step of the book's structure that lets the catalogue editors save under the
// optimistic lock: a LockGUID column on every catalogue table that an editor stores
// (firms, persons, employees, banks, bank accounts, currencies and users). The column
// is renewed by every save through the object store; rows written before it existed
// hold Null, which a first save accepts as the empty token.
#pragma once

#include "host/storage/migration.h"

#include <QStringList>

namespace orvo::host {

inline constexpr int kCatalogueLockMigrationVersion = 6;

// The tables that gain the column, in the order they are altered.
QStringList CatalogueLockedTables();
// The name of the lock column.
QString CatalogueLockColumn();

Migration CatalogueLockMigration();

} // namespace orvo::host
