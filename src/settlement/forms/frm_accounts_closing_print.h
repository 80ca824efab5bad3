// The printed closing: the title "SĄSKAITŲ UŽDARYMAS", the sums of class 5 and class 6,
// the heading "Perkėlimai" and the table of the closing's entries with the account
// names, closed by "Viso:" and the sum. Built as a printed list, so that it goes to a PDF
// page like every list of the program.
#pragma once

#include "reports/list_report.h"
#include "settlement/accounts_closing.h"

namespace orvo {

reports::ListReport AccountsClosingReport(const AccountsClosing& closing);

// The report as a PDF shown in the print preview; false with the reason shown when the
// PDF cannot be made.
bool PrintAccountsClosing(const AccountsClosing& closing);

} // namespace orvo
