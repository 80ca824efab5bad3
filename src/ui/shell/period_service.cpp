#include "ui/shell/period_service.h"

#include "host/session/host_shell_service.h"

namespace orvo::ui {

ViewPeriod PeriodService::Current() const {
    if (!settings_)
        return {};
    return ViewPeriod::FromText(
        settings_->GetSetting(ViewPeriod::SettingsSection(), ViewPeriod::SettingsKey()));
}

ValueResult PeriodService::GetOldPeriod() const {
    return ValueResult::Of(Value(Current().Text()));
}

ValueResult PeriodService::GetNewPeriod() {
    const ViewPeriod current = Current();
    const std::optional<ViewPeriod> asked = ask_ ? ask_(current) : std::nullopt;
    if (!asked || *asked == current)
        return ValueResult::Of(Value(current.Text()));
    const QString refusal = asked->Refusal();
    if (!refusal.isEmpty())
        return ValueResult::Failure(codes::Refused, refusal);
    if (!settings_)
        return ValueResult::Failure(codes::Refused,
                                    QStringLiteral("Nustatymų išsaugoti negalima."));
    settings_->SaveSetting(ViewPeriod::SettingsSection(), ViewPeriod::SettingsKey(), asked->Text());
    if (OnChanged)
        OnChanged(*asked);
    return ValueResult::Of(Value(asked->Text()));
}

void PeriodService::Connect(const std::shared_ptr<PeriodService>& service,
                            host::HostShellService& shell) {
    const std::weak_ptr<PeriodService> weak = service;
    const auto gone = []() {
        return ValueResult::Failure(codes::Refused,
                                    QStringLiteral("Peržiūros laikotarpis neprieinamas."));
    };
    shell.Connect(QStringLiteral("GetOldPeriod"), [weak, gone](const ValueArray&) {
        const auto s = weak.lock();
        return s ? s->GetOldPeriod() : gone();
    });
    shell.Connect(QStringLiteral("GetNewPeriod"), [weak, gone](const ValueArray&) {
        const auto s = weak.lock();
        return s ? s->GetNewPeriod() : gone();
    });
}

} // namespace orvo::ui
