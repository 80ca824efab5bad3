// PeriodService serves the host's two shell operations of the view period, without
// windows of its own: "GetOldPeriod" answers the period kept in the user's settings as
// "yyyy.MM.dd;yyyy.MM.dd" (an empty side for no bound); "GetNewPeriod" asks for a new
// one through the Ask function it was given (the desktop's period window), keeps it in
// the settings and tells OnChanged, so that the tree reads its opened dated lists again.
// A cancelled question changes nothing, and both operations then answer the period in
// force.
#pragma once

#include "core/results.h"
#include "frame/orvo_settings_service.h"
#include "ui/shell/view_period.h"

#include <functional>
#include <memory>
#include <optional>

namespace orvo::host {
class HostShellService;
}

namespace orvo::ui {

class PeriodService {
public:
    // Asks the user for a period, starting from the one in force; nothing on cancel.
    using Ask = std::function<std::optional<ViewPeriod>(const ViewPeriod& current)>;

    PeriodService(OrvoSettingsServicePtr settings, Ask ask)
        : settings_(std::move(settings)), ask_(std::move(ask)) {}

    // The period in force: the stored one, or none.
    ViewPeriod Current() const;
    ValueResult GetOldPeriod() const;
    ValueResult GetNewPeriod();

    // What follows a new period (the tree reads its dated lists again).
    std::function<void(const ViewPeriod&)> OnChanged;

    // Connects "GetOldPeriod" and "GetNewPeriod" of the shell to the service. The shell
    // holds it weakly: the service belongs to the desktop, which lets go of it first.
    static void Connect(const std::shared_ptr<PeriodService>& service,
                        host::HostShellService& shell);

private:
    OrvoSettingsServicePtr settings_;
    Ask ask_;
};

} // namespace orvo::ui
