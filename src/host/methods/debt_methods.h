// The business-object methods behind the settling windows of the operation object
// (UIO0201500 forwards its Properties to them as "Get" + name):
//   GetDebts1, GetDebts2, GetDebts3, GetDebtsByDebit, GetDebtsByCredit, GetDebts1New
//       ('0','<account>','<yyyy.mm.dd>','<addressee>',<sign>[,1]) the open debts, one row
//       per debt entry with a rest at the date (see DebtQuery for the rule)
//   GetCoverFirms('<date>','<credit account>','<debit account>','<kind>') the addressees
//       with debts to set off against each other
//   GetBRPropertiesByAcc('<account>','<addressee>',<sign>) the addressee rows an entry of
//       that account and addressee carries on that side
//   GetCheckInfluenceType('<account>','<income>','<expense>',<n>) earlier rate-change
//       entries of the other revaluation variant
//   GetSelectParameters(None) the empty row shape that opens the selection window
//   DO0201500_GetBROpersByNumber('<number>',<group>) the clients of operations so numbered
// and, registered with them, the account totals (account_total_methods.h) and the
// deferred-period rows (covers_in_future_methods.h).
#pragma once

#include "core/results.h"

namespace orvo::host {

class MethodRegistry;

ResultRecord RegisterDebtMethods(MethodRegistry& methods);

} // namespace orvo::host
