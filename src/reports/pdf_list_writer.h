// Draws a ListReport on A4 pages of a PDF: the title and subtitle on the first page, the
// column captions on every page, rows wrapped within their columns and never split
// across pages, and a footer with the print date and "Puslapis N iš M". The font is
// embedded, so Lithuanian letters survive copying out of the file. Needs a
// QGuiApplication (offscreen is enough).
#pragma once

#include "core/results.h"
#include "reports/list_report.h"

#include <QByteArray>
#include <QDate>
#include <QString>

namespace orvo::reports {

class PdfListWriter {
public:
    // The PDF's bytes; empty with `error` set when the font cannot be had.
    static QByteArray Render(const ListReport& report, const QDate& printed,
                             QString* error = nullptr);
    // Writes the PDF to `path` whole or not at all.
    static ResultRecord Write(const ListReport& report, const QString& path, const QDate& printed);
    // How many pages the report takes.
    static int PageCount(const ListReport& report);
};

} // namespace orvo::reports
