// The business-object methods of the chart of accounts that other parts read:
//
//   GetAccountList(['Filter'])     rows Account, Name (then ID, ParentID, Type, GroupFlag)
//                                  of every account that can be posted to: records with
//                                  GroupFlag 0, which leaves out classes and grouping
//                                  rows; an account with subaccounts stays in (its
//                                  entries are moved down by MoveAccountDown, not
//                                  forbidden). The operation object builds its account
//                                  dictionary from this with the text "None". 'All' gives
//                                  every record, classes included, as the printed chart
//                                  needs.
//   GetAccount('2410')             one account row (see account_chart.h) of that number;
//                                  no row when the number is unknown.
//   GetParent('2410' or 'O0200401<ID>')  the account row of the parent; no row for a
//                                  class or an unknown account.
//   GetBRRequiredAddr('AccountD'[,'AccountC'])  rows Sign, FOID: the addressee kinds an
//                                  entry must carry. With two accounts, the debit
//                                  account's demands on its debit side come as Sign 1
//                                  and the credit account's on its credit side as
//                                  Sign -1. With one account, all its demands, each side
//                                  as stored (a demand on both sides gives two rows).
//   GetEnabledAddressee('AccountD'[,'AccountC'])  the same shape for the kinds allowed
//                                  (the demanded ones included).
//   GetPresetAccounts(['Code'])    rows Code, Account, Name: which accounts hold which
//                                  role, by Code then Account; with a code only its rows.
//   DO0200401_GetBRASettings(['OIDR'])   rows Id, Name, Code: the roles.
//   DO0200401_GetBRAProperties(['OIDR']) rows Code, Account: the holders of every role.
//
// RegisterAccountMethods registers these together with the record methods
// (account_record_methods.h) and the lock methods (account_locks.h).
#pragma once

#include "core/results.h"

namespace orvo::host {

class MethodRegistry;

ResultRecord RegisterAccountMethods(MethodRegistry& methods);

} // namespace orvo::host
