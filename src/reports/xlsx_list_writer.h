// Writes a ListReport as an .xlsx workbook of one sheet: the title in the first row,
// the column captions in bold under it, then the rows (a group's row bold). A cell of a
// right-aligned column that reads as a Lithuanian amount ("1 234,56") becomes a number
// with two places, so the accountant can sum it; every other cell stays text.
#pragma once

#include "core/results.h"
#include "reports/list_report.h"

#include <QByteArray>
#include <QString>

namespace orvo::reports {

class XlsxListWriter {
public:
    static QByteArray Render(const ListReport& report);
    // Writes the workbook to `path` whole or not at all.
    static ResultRecord Write(const ListReport& report, const QString& path);
    // The number an amount text stands for; false when it is not one.
    static bool AmountOf(const QString& text, double* value);
    // The sheet's name: the title without the characters a sheet name may not hold,
    // at most 31 characters, "Lapas1" when nothing is left.
    static QString SheetName(const QString& title);
};

} // namespace orvo::reports
