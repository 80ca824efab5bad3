// The migration "Skolų sąrašo eilutės": every column a debt list shows, kept beside the
// open items, so that the open debts of a whole kind of addressee (every customer of 2410)
// are one index range of one table instead of five look-ups per debt.
//
//   BRDebtList  one row per kept debt side (BROpenItems with a date) and addressee row of
//               that side that is no reference (BRID, Sign, AddresseeID = BRProperties.ID):
//               the open item's Account, DateD, ClosedOn, rests and LastCoverDate; the
//               entry's BROperID, SumA, AccountD, AccountC, Info and the rate it keeps for
//               the side (CurrencyRateD or CurrencyRateC as CurrencyRate); the operation's
//               Number and Comment; the addressee's FOIDR and ShowString; the side's first
//               currency row (CurrencyID, FCurrencyCode, SumCurr, RateCurr; Null without
//               one). Indexed by Account, Sign, ClosedOn like the open items, and then by
//               DateD, BRID and AddresseeID, the order of a list.
//
// The rows of a debt side are made again whenever its open item is (triggers on
// BROpenItems, whose own triggers follow every change of an entry, its addressees,
// references and currency sides); triggers on the columns the open items do not follow
// (the entry's text, rates and operation, the operation's number and comment, the
// addressee's shown name, the currency rate) bring the copies up to date in the writer's
// own transaction, on SQLite and on PostgreSQL alike. The migration fills the rows of the
// debts a book already keeps.
//
// The migration "Skolų sąrašo eilutės sąrašo tvarka" makes the same rows again in a table
// whose primary key is the order of a list (Account, Sign, ClosedOn, DateD, BRID,
// AddresseeID) and which SQLite keeps in that order (KeyOrdered): a whole kind's list then
// reads its rows where they lie, one after the other, instead of looking each one up from
// the index. A unique index on BRID, Sign and AddresseeID serves the triggers, which name
// the table and stay as they were.
#pragma once

#include "host/storage/migration.h"

namespace orvo::host {

inline constexpr int kDebtListMigrationVersion = 11;
inline constexpr int kDebtListOrderMigrationVersion = 12;

Migration DebtListMigration();
Migration DebtListOrderMigration();

} // namespace orvo::host
