// AccountEntriesHook is where the storage of operations tells the chart of accounts
// about entries, which the chart itself does not know: entries live in the operations'
// tables, written by another part of the host. Two functions carry what the chart needs:
//
//   MoveEntries(db, fromAccount, toAccount)  called by DO0200401_MoveAccountDown inside
//       its transaction, after the new subaccount is stored: every entry side posted to
//       `fromAccount` (AccountD or AccountC) must be rewritten to `toAccount`. A
//       non-zero Code rolls the whole step back and is returned to the caller.
//   CountEntries(db, account)  how many entry sides use the account; an account in use
//       cannot be deleted and its number cannot be changed. A failure is a negative
//       count with `error` set.
//
// The operations storage may set either once when its methods are registered
// (SetAccountEntriesHook); a later call replaces the earlier one. A function left unset
// falls back to the entry table BR when the book has one (its columns AccountD and
// AccountC), and to a book without entries when it has none.
#pragma once

#include "core/results.h"

#include <QString>
#include <functional>

namespace orvo::host {

class Database;

struct AccountEntriesHook {
    std::function<ResultRecord(Database&, const QString& fromAccount, const QString& toAccount)>
        MoveEntries;
    std::function<qint64(Database&, const QString& account, QString* error)> CountEntries;
};

void SetAccountEntriesHook(const AccountEntriesHook& hook);
const AccountEntriesHook& CurrentAccountEntriesHook();

// What the chart calls: the hook's function when set, else the fallback above.
ResultRecord MoveAccountEntries(Database& db, const QString& fromAccount, const QString& toAccount);
qint64 CountAccountEntries(Database& db, const QString& account, QString* error);

} // namespace orvo::host
