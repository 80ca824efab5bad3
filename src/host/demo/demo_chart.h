// The demo chart of accounts: a small chart in the manner of the Lithuanian model chart,
// classes 1 to 6 with the accounts a demo firm posts to, every role the program looks
// accounts up by ("2710" bank, "2720" cash, "240", "220", "450", "460", "39", "536",
// "636") held by an account, and the addressees the accounts demand: the receivable
// 2410 and the payable 4430 demand a firm (O0000100) on both sides, 2420 and 4480 allow
// a firm, a natural person or an employee, and the bank accounts allow a bank account
// (O0000500). Year-end closing finds its defaults in it: the transit account 391 and the
// retained profit 340 and loss 341.
#pragma once

#include "core/results.h"

namespace orvo::host {

class Database;

// Fills the empty chart of the book in one transaction; a book whose chart already has
// records is refused and left as it was.
ResultRecord CreateDemoChart(Database& db);

} // namespace orvo::host
