// Account and date locks: an account is closed for posting up to a date. Each account
// has two dates: DateToLow, set by an ordinary user, and DateToHigh, set by the manager
// (an administrator of the book), which an ordinary user cannot pass. 1900-01-01 means
// no lock. The rows live in AccountLocks, one per locked account.
//
//   DO0201300_GetAccountLocks(['OnlyLocked'])  one row per posting account: OIDR (of the
//       account), Account, Preview, DateToHigh, DateToLow, UserOIDR, ComponentID,
//       BLOIDR ("O0201300" + lock row ID, empty when the account has no row); dates
//       1900-01-01 when not locked. With a true parameter only rows with DateToLow or
//       DateToHigh after 1900-01-01.
//   DO0201300_SaveAccountLock('Account or All','DateToHigh','DateToLow')  sets both
//       dates of the account, or of every posting account for "All"; an empty date is
//       1900.01.01 (no lock). Only the manager may change DateToHigh. UserOIDR takes the
//       login of the session's user.
//   DO0201300_CheckAccountLock('Account','Date')  CheckAccountLock for the session's user.
#pragma once

#include "core/results.h"

#include <QDate>
#include <QString>

namespace orvo::host {

class Database;
class MethodRegistry;

// Refuses (Code 777) posting to `account` on `date` when the date is on or before a lock
// date of the account: for an ordinary user the later of DateToLow and DateToHigh, for
// the manager DateToHigh alone. The text names the account and the date. An account
// without a lock row, or a date after its lock, passes.
ResultRecord CheckAccountLock(Database& db, const QString& account, const QDate& date,
                              bool manager = false);

ResultRecord RegisterAccountLockMethods(MethodRegistry& methods);

} // namespace orvo::host
