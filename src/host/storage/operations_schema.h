// The migration "Finansinės operacijos": where operations and their entries are kept.
//
//   BROpers      one row per operation of every kind (OType O0201500 to O0201506); its ID
//                is drawn from the record sequence, so the record's OIDR is "O0201500" +
//                ID whatever the document kind. LockGUID is renewed on every save.
//   BR           one row per entry, linked to its operation (BROperID, deleted with it).
//                Its ID comes from the same record sequence as the operation's, so
//                "O0201500" + number names an operation or an entry, never both. SumA is
//                exact hundredths.
//   BRCurrency   the foreign-currency sides of an entry (at most one per side): SumCurr in
//                hundredths, RateCurr a double.
//   BRProperties addressees and references of an entry; ShowString is cut to 800
//                characters before it is written.
//   BROperLog    who changed an operation and when: one row per save or deletion.
// The journals look entries up by account and date and addressees by reference; the
// indexes are for them and for the list of a group's operations by date.
#pragma once

#include "host/storage/migration.h"

namespace orvo::host {

// The migration's number in the book's history.
inline constexpr int kOperationsMigrationVersion = 3;

Migration OperationsMigration();

} // namespace orvo::host
