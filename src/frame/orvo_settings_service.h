// OrvoSettingsService keeps what a user's windows remember: a text under a section (an
// object code, or "Kontavo", "KontavoTotalSettings", "Contract") and a key, per user.
#pragma once

#include <QString>
#include <memory>

namespace orvo {

class OrvoSettingsService {
public:
    virtual ~OrvoSettingsService() = default;
    // The stored text, or `defaultValue` when nothing is stored under the key.
    virtual QString GetSetting(const QString& section, const QString& key,
                               const QString& defaultValue = QString()) = 0;
    virtual void SaveSetting(const QString& section, const QString& key, const QString& value) = 0;
};

using OrvoSettingsServicePtr = std::shared_ptr<OrvoSettingsService>;

} // namespace orvo
