// The business-object method that the revaluation of an account's balance asks when the
// balance belongs to a bank account:
//   GetBankByAccount('<bank account reference>') one row: AccountNumber of the bank
//       account, OIDR and Name of its bank, AccOIDR (the reference asked), so that the
//       rate-change entry carries both the bank account and its bank as addressees
// An unknown reference gives no row.
#pragma once

#include "core/results.h"

namespace orvo::host {

class MethodRegistry;

ResultRecord RegisterCurrencyRevaluationMethods(MethodRegistry& methods);

} // namespace orvo::host
