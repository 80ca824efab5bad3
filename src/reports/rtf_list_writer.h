// Writes a ListReport as an RTF document that word processors open as a table: the
// title centred and bold, the column captions in bold, a group's row bold, amounts at
// the right of their cells. Every letter beyond ASCII goes as a Unicode escape, so the
// Lithuanian letters survive whatever code page the reader assumes.
#pragma once

#include "core/results.h"
#include "reports/list_report.h"

#include <QByteArray>
#include <QString>

namespace orvo::reports {

class RtfListWriter {
public:
    static QByteArray Render(const ListReport& report);
    // Writes the document to `path` whole or not at all.
    static ResultRecord Write(const ListReport& report, const QString& path);
    // A text as RTF: braces and backslashes escaped, line breaks as \line, every
    // character above 127 as \uN? (N signed 16-bit, as RTF wants it).
    static QByteArray Escaped(const QString& text);
};

} // namespace orvo::reports
