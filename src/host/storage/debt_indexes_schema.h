// The migration "Skolų paieškos rodyklės": two indexes that let the debt lists read an index
// alone where they read an index and then every row it named.
//
//   BRPropertiesEntrySide  BRProperties by BRID, Sign, FOIDR, in place of BRID alone:
//                          every debt list and every keeping of the open items asks for
//                          the addressee of a kind on one side of an entry.
//   BROpenItemsOpen        BROpenItems by Account, Sign, ClosedOn and then the DateD,
//                          BRID and rests a list takes, in place of the first three alone:
//                          the open debts of a whole kind are one range of it.
#pragma once

#include "host/storage/migration.h"

namespace orvo::host {

inline constexpr int kDebtIndexesMigrationVersion = 10;

Migration DebtIndexesMigration();

} // namespace orvo::host
