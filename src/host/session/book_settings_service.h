// BookSettingsService keeps each user's remembered choices in the book's Settings table,
// under a section (an object code or a name such as "Kontavo") and a key.
#pragma once

#include "frame/orvo_settings_service.h"

namespace orvo::host {

class Database;

class BookSettingsService : public OrvoSettingsService {
public:
    BookSettingsService(Database& db, qint32 userId) : db_(db), userId_(userId) {}

    QString GetSetting(const QString& section, const QString& key,
                       const QString& defaultValue = QString()) override;
    void SaveSetting(const QString& section, const QString& key, const QString& value) override;

private:
    Database& db_;
    qint32 userId_;
};

} // namespace orvo::host
