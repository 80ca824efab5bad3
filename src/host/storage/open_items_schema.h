// The migration "Atviros skolos": what has covered each debt that anything refers to, kept
// by the database itself so that the open debts of an account at a date are read without
// visiting every entry that refers to a debt of the account.
//
//   BROpenItems  one row per side of an entry (BRID, Sign 1 debit or -1 credit) that could
//                be a debt (it has an account and carries no reference to an entry on that
//                side) and that at least one dated entry covers: an entry referring to it
//                ("O0201500" + BRID) with the debt's account on the side its reference
//                names. RestSum and RestSumCurr are the rests after every such entry, in
//                exact hundredths, by the rule of covers (see DebtQuery); the currency
//                rest of a base debt is 0. LastCoverDate is the date of the latest of them.
//                A debt without a row has never been covered: its rests are its sums. At a
//                date on or after LastCoverDate the kept rests are the rests at that date,
//                so a debt whose rests are both 0 there is closed without reading anything
//                else; only at an earlier date are the covers counted from the entries.
//
// Triggers on BR, BRProperties (reference rows only) and BRCurrency count the rows of an
// entry again whenever the entry or anything that refers to it changes, in the writer's
// own transaction (SQLite triggers, PL/pgSQL functions on PostgreSQL), so the rows can
// never drift from the entries. Counting again rather than adding differences keeps one
// formula for everything. The migration also counts the entries a book already holds.
#pragma once

#include "host/storage/migration.h"

namespace orvo::host {

inline constexpr int kOpenItemsMigrationVersion = 8;

Migration OpenItemsMigration();

} // namespace orvo::host
