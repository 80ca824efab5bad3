// The chart's record methods and the rules every stored account obeys.
//
//   DO0200401_GetOrvoObject('OIDR')     an account record (fields of the Accounts table,
//                                       Preview, and the nested recordsets
//                                       BRRequiredAddr and EnabledAddressee, rows ID,
//                                       Sign, FOID); a blank one for a code.
//   DO0200401_SaveOrvoObject('OIDR')    stores the record handed in (SaveAccountRecord).
//   DO0200401_DeleteOrvoObject('OIDR'), DO0200400_DeleteOrvoObject('OIDR')
//                                       removes an account without subaccounts and
//                                       without entries.
//   DO0200400_GetOrvoObjectList('OID','From','To'), and the same under DO0200401_:
//                                       the child rows of a node: under the root
//                                       O0200400 the classes, under O0200401<ID> that
//                                       record's children. Rows OIDR, OType ("Class" for
//                                       a class, "Group" for a grouping row, "Item" for
//                                       an account or subaccount), Preview, ID,
//                                       ParentID, Account, Name, Type, GroupFlag,
//                                       NewAccount (number of the NewID record, empty
//                                       when none) and Children (how many). From "FULL"
//                                       (the navigator's plan mode) shows NewAccount in
//                                       Preview as well; From "All" lists the whole
//                                       chart flat in number order (the printed list);
//                                       numbers are 1-based positions as in every list.
//   DO0200401_MoveAccountDown('ID')     makes a new subaccount under the account (the
//                                       account's number followed by the first free
//                                       digit, then two digits), gives it the name,
//                                       type, role, addressee kinds and lock of the
//                                       account, takes the role off the account and
//                                       moves the account's entries into it (see
//                                       MoveAccountEntries). Returns OIDR, ID, Account
//                                       of the new subaccount. Cannot be undone.
//
// Result numbers of saving, which the chart's editor reads by number:
//     1     the parent (ParentID) no longer exists: "Aukštesnio lygio sąskaita
//           nebeegzistuoja!"
//     32    the record being changed no longer exists: "Redaguojama sąskaita
//           nebeegzistuoja!"
//     547   the role (BRAPropertyID) no longer exists: "BRAProperty nebeegzistuoja!"
//     3604  another record has the same number: "Tokia sąskaita jau egzistuoja!"
//     777   a rule below is broken; the text says which
//     1005  storage failed; the text says why
#pragma once

#include "core/recordset.h"
#include "core/results.h"

namespace orvo::host {

class Database;
class MethodRegistry;

namespace account_codes {
inline constexpr qint32 ParentGone = 1;
inline constexpr qint32 RecordGone = 32;
inline constexpr qint32 RoleGone = 547;
inline constexpr qint32 Duplicate = 3604;
} // namespace account_codes

// Stores the account record in the first row of `rs` as record `id` (0: a new one) in
// one transaction, after these rules: Account is digits only and not "0" or "00"; Name
// and Type are trimmed and required, Type upper-cased and one of D, K, DK; a record
// with a parent has a number that begins with the parent's number and is longer; a
// record with subaccounts keeps a number its subaccounts still begin with, and a
// record with entries keeps its number. A record without a parent is a class and gets
// GroupFlag 1. OwnCode is the path of IDs from the class down to the record itself,
// each followed by "*" (renewed below a record that moved). On success the record's OIDR, ID,
// normalised fields and Preview are set in `rs`; Data is one row OIDR, ID.
BOResult SaveAccountRecord(Database& db, qint64 id, const RecordsetPtr& rs);

// A blank account record, as DO0200401_GetOrvoObject gives for the bare code.
RecordsetPtr BlankAccountRecord(Database& db, QString* error);

ResultRecord RegisterAccountRecordMethods(MethodRegistry& methods);

} // namespace orvo::host
