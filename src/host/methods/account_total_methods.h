// The business-object methods that give account balances at a date, counted from every
// entry dated on or before it:
//   GetAccountTotal('<account>','<addressee>','<yyyy.mm.dd>',<sign>) one account, one row
//       per currency of its entries, for the revaluation of an account's balance
//   GetAccountsTotal('<yyyy.mm.dd>','<addressee>') every account with entries, one row
//       each, for the balance sheet and the closing of accounts
// An addressee narrows both to the entries that carry it on the account's side (a bare
// kind of 8 characters to any addressee of that kind); an empty one counts every entry.
#pragma once

#include "core/results.h"

namespace orvo::host {

class MethodRegistry;

ResultRecord RegisterAccountTotalMethods(MethodRegistry& methods);

} // namespace orvo::host
