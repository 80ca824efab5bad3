// The business-object methods of operation groups and of automatic numbers. The group
// record itself is read, stored, deleted and listed by the generic DO0201400_ methods
// of its stored kind (group_kind.h).
//
//   GetFormTypes(['None'])        rows Name, OID: the document kinds a group's operations
//                                 may have; "Finansinė operacija" (O0201500) first, as
//                                 the default, then O0201501 to O0201506, O0202000 and
//                                 O1000100. The group editor offers them in this order.
//   GetMyFirmAccounts(['None'])   rows AccountNumber, Name, AccOIDR, Preview,
//   DO0201400_GetMyFirmAccounts   MainAccountFlag, OIDR: the bank accounts of the own
//                                 firm (Firms.MyFirmFlag), the main one first. Name and
//                                 OIDR are the bank's, AccOIDR the account's reference;
//                                 Preview is the number and the bank, and the currency
//                                 when it is not the base one. Payment documents and
//                                 bank journals pick the firm's account from these.
//   DO0201400_GetAccountSettings(['AccountCode'])  rows Code, CodeName, Account,
//                                 AccountName: the settings of the group's named set
//                                 (see account_settings.h for the one rule).
//   DO0201400_GetPresetAccounts(['Code'[,'AccountCode']])  rows Code, Account, Name:
//                                 the same settings read by Code, which is what
//                                 PresetAccounts is; GetPresetAccounts gives the
//                                 book-wide ones through the same rule.
//   DO0201400_GetGroupNodes('OID','From','To')  rows OIDR, OType, Preview: the groups
//                                 under a group (under none for the bare code) by name,
//                                 then the group's operations dated From..To (texts
//                                 yyyy.mm.dd; empty is no bound, 9999.12.31 none above).
//   GetAutoNumber(GroupID, UserID, 'OType', Flag, 'Text')  one row AutoNumber, ANMask,
//                                 ANPrefix, ANTemplate: the next counter of the group's
//                                 rule drawn for good (see auto_number_counters.h) with
//                                 the parts the component builds the number from. A
//                                 non-zero Flag with a Text numbers per that text (the
//                                 bank account of a group numbered per account). The
//                                 counter is 0 when the mask has no counter part, when
//                                 today is before ANDateFrom and for an unknown group
//                                 (whose row is empty, so the component shows "??").
#pragma once

#include "core/results.h"

#include <QStringList>

namespace orvo::host {

class MethodRegistry;

ResultRecord RegisterGroupMethods(MethodRegistry& methods);

// The form types in the order of GetFormTypes, as pairs of code and name.
QList<QPair<QString, QString>> GroupFormTypes();

} // namespace orvo::host
