// Shows a printed list (ListReport) in the report window: its PDF pages, with the
// exports "Eksportas į RTF", "Eksportas į EXCEL" and "Eksportas į PDF" (buttons
// cmdExportRTF, cmdExportExcel, cmdExportPDF), each file named from the report's base
// name. A report whose PDF cannot be made says why in an error box.
#pragma once

#include "reports/list_report.h"

#include <QStringList>

namespace orvo::accounts_forms {

// The paths the user exported to while the window was open.
QStringList ShowListReport(const reports::ListReport& report);

} // namespace orvo::accounts_forms
