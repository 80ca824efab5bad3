#include "ui/shell/desktop_services.h"

#include "frame/orvo_s.h"
#include "host/session/host_objects_service.h"
#include "host/session/host_session.h"
#include "host/session/host_shell_service.h"
#include "ui/shell/period_dialog.h"

#include <QPointer>

namespace orvo::ui {

QString DesktopServices::SelectionPrompt() {
    return QStringLiteral("Įveskite tekstą, pagal kurį atrinkti sąrašą:");
}

DesktopServices DesktopServices::Install(host::HostSession& session, QWidget* window,
                                         DeskTop* desk) {
    DesktopServices s;
    const OrvoServicesPtr services = session.Services();
    s.Messages = std::make_shared<QtMessages>(window);
    s.Pickers = std::make_shared<QtPickers>(services->ObjectsService(), window);
    s.Inputs = std::make_shared<QtInputs>(window);
    s.FileDialogs = std::make_shared<QtFileDialogs>(window);
    s.PrintPreview = std::make_shared<QtPrintPreview>(s.FileDialogs, window);
    s.Forms = std::make_shared<DeskTopForms>(session.Forms(), s.Messages);
    s.DeskTopService = std::make_shared<QtDeskTopService>(desk);

    services->SetMessagesService(s.Messages);
    services->SetPickersService(s.Pickers);
    services->SetInputsService(s.Inputs);
    services->SetFileDialogsService(s.FileDialogs);
    services->SetPrintPreviewService(s.PrintPreview);
    services->SetFormsService(s.Forms);
    services->SetDeskTopService(s.DeskTopService);

    // The services hold the session's objects; the callbacks below must not hold the
    // services in turn, or neither would ever be let go.
    std::weak_ptr<QtInputs> inputs = s.Inputs;
    std::weak_ptr<QtMessages> messages = s.Messages;
    if (const auto shell = session.Shell())
        shell->Connect(QStringLiteral("SelectionDialog"), [inputs](const ValueArray&) {
            const auto box = inputs.lock();
            const std::optional<QString> text =
                box ? box->InputBox(SelectionPrompt(), MessageTitle()) : std::nullopt;
            return ValueResult::Of(Value(text.value_or(QString()).trimmed()));
        });
    QPointer<QWidget> parent = window;
    s.Period = std::make_shared<PeriodService>(
        services->SettingsService(), [parent, messages](const ViewPeriod& current) {
            return PeriodDialog::Ask(parent, current, messages.lock());
        });
    if (const auto shell = session.Shell())
        PeriodService::Connect(s.Period, *shell);
    if (const auto objects = session.ObjectsService()) {
        objects->OnShowObject = [messages](const QString& oidr) {
            if (const auto box = messages.lock())
                box->Information(
                    QStringLiteral("Objekto %1 langas šioje programoje neprieinamas.").arg(oidr));
        };
        objects->OnShowHelp = [messages](const QString& title, const QString& path) {
            if (const auto box = messages.lock())
                box->Show(MessageKind::Information,
                          QStringLiteral("Pagalbos puslapis: %1").arg(path), title);
        };
    }
    ReplaceOrvoS(services);
    return s;
}

} // namespace orvo::ui
