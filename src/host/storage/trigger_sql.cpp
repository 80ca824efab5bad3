#include "host/storage/trigger_sql.h"

namespace orvo::host {

QString EntrySideSql(const char* alias) {
    return QStringLiteral("(CASE WHEN %1.Sign = 1 THEN 1 ELSE -1 END)").arg(QLatin1String(alias));
}

QString SqliteTriggerSql(const QString& name, const QString& event, const QString& when,
                         const QString& body) {
    return QStringLiteral("CREATE TRIGGER ") + name + QLatin1Char(' ') + event +
           (when.isEmpty() ? QString() : QStringLiteral(" WHEN ") + when) +
           QStringLiteral(" BEGIN ") + body + QStringLiteral(" END");
}

} // namespace orvo::host
