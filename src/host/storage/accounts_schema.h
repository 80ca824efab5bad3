// Migration 2: the chart of accounts and what hangs on an account.
//
//   Accounts          one row per class, account and subaccount (object code O0200401,
//                     the record's OIDR is "O0200401" + ID). ParentID is null on a class.
//                     OwnCode is the path of IDs from the class down to the record
//                     itself, each followed by "*": "5*" on class 5, "5*12*" on its
//                     account 12, so the text before the first "*" is always the class
//                     (empty only on a record not yet stored). Account holds digits
//                     only and is unique in the book; a child's number begins with its
//                     parent's and is longer. Type is D, K or DK. GroupFlag is non-zero
//                     on a class or grouping row (never posted to). NewID names the
//                     matching account of a new chart (no foreign key: a deleted target
//                     is forgotten when next read). BRAPropertyID is the role the
//                     account holds (BRASettings.ID), 0 for none, so an account holds at
//                     most one role while a role can be held by many accounts.
//   BRASettings       the roles the program looks accounts up by: ID, Name, Code
//                     ("2710" bank, "2720" cash, "536"/"636" currency-rate income and
//                     expense ...). The relation BRAProperties (Code, Account) is not a
//                     table of its own: it is Accounts joined to BRASettings.
//   BRRequiredAddr    addressee kinds an account demands: AccountID, Sign (1 when the
//                     account is debited, -1 when credited, 0 on both sides), FOID.
//   EnabledAddressee  addressee kinds an account allows, in the same shape; a demanded
//                     kind is allowed without a row here.
//   AccountLocks      one row per locked account: DateToHigh (the manager's date, which
//                     an ordinary user cannot pass), DateToLow (the ordinary date),
//                     UserOIDR (login of who set it), ComponentID. 1900-01-01 means no
//                     lock.
#pragma once

#include "host/storage/migration.h"

namespace orvo::host {

Migration AccountsMigration();

} // namespace orvo::host
