#include "reports/report_fonts.h"

#include <QFile>
#include <QFontDatabase>
#include <QStringList>

namespace orvo::reports {

namespace {

const char* const kDirectory = "/usr/share/fonts/truetype/dejavu/";

struct Loaded {
    QString Family;
    QString Problem;
};

const Loaded& loaded() {
    static const Loaded result = [] {
        Loaded l;
        for (const char* file : {"DejaVuSans.ttf", "DejaVuSans-Bold.ttf"}) {
            const QString path = QString::fromLatin1(kDirectory) + QString::fromLatin1(file);
            if (!QFile::exists(path)) {
                l.Problem = QStringLiteral("Nerastas šrifto failas %1 (paketas "
                                           "fonts-dejavu-core).")
                                .arg(path);
                l.Family.clear();
                return l;
            }
            const int id = QFontDatabase::addApplicationFont(path);
            const QStringList families = QFontDatabase::applicationFontFamilies(id);
            if (id < 0 || families.isEmpty()) {
                l.Problem = QStringLiteral("Nepavyko įkelti šrifto %1.").arg(path);
                l.Family.clear();
                return l;
            }
            l.Family = families.first();
        }
        return l;
    }();
    return result;
}

} // namespace

QString ReportFonts::Family() {
    return loaded().Family;
}

QString ReportFonts::Problem() {
    return loaded().Problem;
}

QFont ReportFonts::Font(double pointSize, bool bold) {
    QFont f(Family().isEmpty() ? QStringLiteral("DejaVu Sans") : Family());
    f.setPointSizeF(pointSize);
    f.setBold(bold);
    // Kerning and hinting off: the same text takes the same width on screen and paper.
    f.setKerning(false);
    f.setHintingPreference(QFont::PreferNoHinting);
    return f;
}

} // namespace orvo::reports
