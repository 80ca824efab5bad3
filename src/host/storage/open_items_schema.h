// The migration "Atviros skolos": the debts of the book with their rests, kept by the
// database itself so that the open debts of an account at a date are read from the debts
// still open then, without visiting the settled ones or the entries that settled them.
//
//   BROpenItems  one row per side of an entry (BRID, Sign 1 debit or -1 credit) that could
//                be a debt (it has an account and carries no reference to an entry on that
//                side) and that either has an addressee on that side or is covered by a
//                dated entry: one referring to it ("O0201500" + BRID) with the debt's
//                account on the side its reference names. Account and DateD are the
//                entry's. RestSum and RestSumCurr are the rests after every covering entry,
//                in exact hundredths, by the rule of covers (see DebtQuery); the currency
//                rest of a base debt is 0. LastCoverDate is the date of the latest covering
//                entry (Null: none). ClosedOn is the date from which both rests stay 0 (the
//                later of DateD and LastCoverDate), or 9999-12-31 while a rest remains, so
//                the debts open at a date D are those with DateD <= D and ClosedOn > D: one
//                index range. Their kept rests are the rests at D unless LastCoverDate lies
//                after D; only then are the covers counted from the entries. A side without
//                a row has no addressee and was never covered: its rests are its sums.
//
// Triggers on BR, BRProperties and BRCurrency count the rows of an entry again whenever
// the entry or anything that refers to it changes, in the writer's own transaction
// (SQLite triggers, PL/pgSQL functions on PostgreSQL), so the rows can never drift from
// the entries. Counting again rather than adding differences keeps one formula for
// everything. The migration also counts the entries a book already holds.
#pragma once

#include "host/storage/migration.h"

namespace orvo::host {

inline constexpr int kOpenItemsMigrationVersion = 8;

Migration OpenItemsMigration();

} // namespace orvo::host
