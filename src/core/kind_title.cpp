#include "core/kind_title.h"

namespace orvo {

QString KindTitle(const QString& code, const QString& defaultTitle) {
    if (code == QLatin1String("O0201501"))
        return QStringLiteral("Mokėjimo nurodymas");
    if (code == QLatin1String("O0201502"))
        return QStringLiteral("Pinigų gavimas");
    if (code == QLatin1String("O0201503"))
        return QStringLiteral("Kasos išlaidų orderis");
    if (code == QLatin1String("O0201504"))
        return QStringLiteral("Kasos pajamų orderis");
    return defaultTitle;
}

} // namespace orvo
