// The business-object methods behind a group's computed debts: what the entries of the
// group's operations still owe, or are owed, at a date, kept as a snapshot so that the
// debt recognition of documents in the group reads it instead of the whole book.
//
//   DO0201400_CreateFullSum(GroupID, 'Date')  with a date (yyyy.mm.dd): the open debts
//                                 (the one debt rule, debt_query.h) of the entries of
//                                 the group's operations dated on or before it replace
//                                 the group's earlier snapshot in BROperGroupDebts; with
//                                 an empty text the group's snapshot is deleted. One row
//                                 Count: the rows stored (or deleted).
//   DO0201400_GetGroupDebts(GroupID)  the snapshot: rows BRID, BROperID, DateAt, DateD,
//                                 Account, Sign, FOIDR, CurrencyCode, RestA, RestCurr, by
//                                 date and entry.
#pragma once

#include "core/results.h"

namespace orvo::host {

class MethodRegistry;

ResultRecord RegisterGroupDebtMethods(MethodRegistry& methods);

} // namespace orvo::host
