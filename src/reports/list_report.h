// A printed list as data: a title, the columns with their captions and shares of the
// page width, and the rows of cell texts, a row printed bold when it heads a group (a
// class of the chart, a group of templates). The editors build one from their records
// and hand it to a writer; nothing here knows how a page is drawn, so the same list can
// go to a PDF page or a spreadsheet.
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace orvo::reports {

struct ReportColumn {
    QString Caption;
    // The column's share of the printable width, relative to the other columns.
    double Width = 1.0;
    // Amounts and numbers stand at the right edge of their column.
    bool AlignRight = false;
};

struct ReportRow {
    QStringList Cells;
    bool Bold = false;
    // Left indent of the first cell in levels, for rows nested under a group.
    int Indent = 0;
};

class ListReport {
public:
    QString Title;
    // A line under the title (a period, a firm); empty for none.
    QString Subtitle;
    // The base name an export file takes ("Saskaita" for the chart of accounts).
    QString BaseName;
    QVector<ReportColumn> Columns;
    QVector<ReportRow> Rows;

    void AddColumn(const QString& caption, double width, bool alignRight = false);
    void AddRow(const QStringList& cells, bool bold = false, int indent = 0);
};

} // namespace orvo::reports
