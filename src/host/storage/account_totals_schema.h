// The migration "Sąskaitų apyvartos": the turnover of every account per day, kept by the
// database itself so that a balance at any date is read from a few thousand rows instead
// of every entry of the book.
//
//   BRAccountTotals  one row per account and day: SumD and SumC are the debit and credit
//                    turnover (exact hundredths) of the entries of that day on that
//                    account, Entries how many entry sides make them up. A row whose
//                    Entries falls to zero is removed.
//
// Triggers on BR keep it: every insert, delete and change of an entry's accounts, date or
// sum adds and takes away in the same statement's transaction, whoever writes the entry
// (the object store, a bulk import, a correction by hand), so the totals can never drift
// from the entries. An entry without a date or without an account on a side adds nothing
// for that side. The migration also counts the entries a book already holds.
#pragma once

#include "host/storage/migration.h"

namespace orvo::host {

inline constexpr int kAccountTotalsMigrationVersion = 5;

Migration AccountTotalsMigration();

} // namespace orvo::host
