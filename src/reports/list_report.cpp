#include "reports/list_report.h"

namespace orvo::reports {

void ListReport::AddColumn(const QString& caption, double width, bool alignRight) {
    Columns.append({caption, width, alignRight});
}

void ListReport::AddRow(const QStringList& cells, bool bold, int indent) {
    Rows.append({cells, bold, indent});
}

} // namespace orvo::reports
