// The chart of accounts as the host stores it, for every method that reads or changes
// accounts: the object codes, the stored kind of an account record (O0200401, with its
// demanded and allowed addressee kinds nested in it as the recordsets BRRequiredAddr and
// EnabledAddressee), and readers that give account rows in one shape.
//
// The account row (GetAccount, GetParent and the chart's own reads): OIDR, ID, ParentID,
// OwnCode, Account, Name, Type, GroupFlag, NewID, BRAPropertyID and Preview (the number,
// a blank and the name). The tables themselves are described in accounts_schema.h.
#pragma once

#include "core/recordset.h"
#include "host/objects/object_kind.h"

#include <QString>

namespace orvo::host {

class Database;

namespace kinds {
// The root of the chart (the navigator's node).
inline const QString AccountPlan = QStringLiteral("O0200400");
// One class, account or subaccount.
inline const QString Account = QStringLiteral("O0200401");
// A lock row of an account.
inline const QString AccountLock = QStringLiteral("O0201300");
} // namespace kinds

// The stored kind of an account record.
const ObjectKind& AccountKind();

// The fields of an account row, in order.
FieldDefs AccountRowFields();

// Account rows of the records that `where` (SQL over Accounts, with `?` parameters;
// empty for all) selects, ordered by number. Null with `error` set when reading fails.
RecordsetPtr ReadAccountRows(Database& db, const QString& where, const ValueArray& params,
                             QString* error);

// A record number read back from storage (whole numbers come as Int32 or Double).
qint64 RecordId(const Value& v);

// Whether `account` is a valid account number: one or more decimal digits.
bool IsAccountNumber(const QString& account);

} // namespace orvo::host
