// The typeface every printed page uses: DejaVu Sans from Debian's fonts-dejavu-core,
// loaded from its file so that a page looks the same on every machine and the PDF
// embeds a font that has every Lithuanian letter. Needs a QGuiApplication.
#pragma once

#include <QFont>
#include <QString>

namespace orvo::reports {

class ReportFonts {
public:
    // The family name to use; empty when the font files are missing, and then
    // `Problem()` tells which file.
    static QString Family();
    static QString Problem();
    static QFont Font(double pointSize, bool bold = false);
};

} // namespace orvo::reports
