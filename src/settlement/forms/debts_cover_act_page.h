// DebtsCoverActPage lays the act of mutual set-off out on A4 pages of a PDF: the two
// firms' heads, the centred title and date, the statement, the table of documents with
// the debit and credit columns, the request and the signature block of both parties. The
// font is the reports' DejaVu, embedded, so the Lithuanian letters can be copied out of
// the file. Needs a QGuiApplication (offscreen is enough).
#pragma once

#include "core/results.h"
#include "settlement/debts_cover_act.h"

#include <QByteArray>
#include <QString>

namespace orvo {

class DebtsCoverActPage {
public:
    // The PDF's bytes; empty with `error` set when the font cannot be had.
    static QByteArray Render(const DebtsCoverAct& act, QString* error = nullptr);
    // Writes the PDF to `path` whole or not at all.
    static ResultRecord Write(const DebtsCoverAct& act, const QString& path);
};

} // namespace orvo
