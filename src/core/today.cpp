#include "core/today.h"

#include <QByteArray>
#include <QString>

namespace orvo {

namespace {
QDate& fixedDate() {
    static QDate d;
    return d;
}
} // namespace

QDate Today() {
    if (fixedDate().isValid())
        return fixedDate();
    const QByteArray env = qgetenv("ORVO_TODAY");
    if (!env.isEmpty()) {
        const QDate d =
            QDate::fromString(QString::fromLatin1(env.trimmed()), QStringLiteral("yyyy-MM-dd"));
        if (d.isValid())
            return d;
    }
    return QDate::currentDate();
}

void SetToday(const QDate& date) {
    fixedDate() = date;
}

} // namespace orvo
