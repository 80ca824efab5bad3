#include "host/session/book_settings_service.h"

#include "host/storage/database.h"

namespace orvo::host {

QString BookSettingsService::GetSetting(const QString& section, const QString& key,
                                        const QString& defaultValue) {
    const QueryResult q = db_.Query(
        QStringLiteral("SELECT Value FROM Settings WHERE UserID = ? AND Section = ? AND Key = ?"),
        {Value(userId_), Value(section), Value(key)});
    if (!q.ok() || q.RowCount() == 0 || q.Scalar().isNull())
        return defaultValue;
    return q.Scalar().toString();
}

void BookSettingsService::SaveSetting(const QString& section, const QString& key,
                                      const QString& value) {
    db_.Execute(
        QStringLiteral("INSERT INTO Settings (UserID, Section, Key, Value) VALUES (?, ?, ?, ?) "
                       "ON CONFLICT (UserID, Section, Key) DO UPDATE SET Value = excluded.Value"),
        {Value(userId_), Value(section), Value(key), Value(value)});
}

} // namespace orvo::host
