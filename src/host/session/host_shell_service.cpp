#include "host/session/host_shell_service.h"

#include "frame/orvo_form.h"
#include "frame/orvo_object_uio.h"

namespace orvo::host {

ValueResult HostShellService::Methods(const QString& name, const ValueArray& parameters) {
    if (name == QLatin1String("ShowOrvoObjectModal")) {
        if (parameters.size() != 1)
            return ValueResult::Failure(
                codes::Refused, QStringLiteral("ShowOrvoObjectModal: reikia vieno parametro."));
        return showOrvoObjectModal(parameters.first().toString());
    }
    const auto it = callbacks_.constFind(name);
    if (it != callbacks_.constEnd())
        return (*it)(parameters);
    return ValueResult::Failure(
        codes::Refused,
        QStringLiteral("Operacija „%1“ šioje programos dalyje negalima.").arg(name));
}

ValueResult HostShellService::showOrvoObjectModal(const QString& text) {
    // Code;GroupID;ClickedParameters — the clicked parameters keep any further ";".
    const QString code = text.section(QLatin1Char(';'), 0, 0);
    const QString groupId = text.section(QLatin1Char(';'), 1, 1);
    QString clicked = text.section(QLatin1Char(';'), 2);
    const OrvoObjectUIOPtr uio = objects_ ? objects_->GetObjectUIO(code) : nullptr;
    if (!uio)
        return ValueResult::Failure(codes::Refused,
                                    QStringLiteral("Nežinoma objekto rūšis: %1").arg(code));
    clicked.replace(QLatin1Char(';'), QStringLiteral("@|@"));
    const ValueResult formResult =
        uio->Properties(QStringLiteral("GetObjectForm"), groupId + QLatin1Char(';') + clicked);
    const auto form = std::dynamic_pointer_cast<OrvoForm>(formResult.Value.toObject());
    if (!form)
        return ValueResult::Failure(formResult.Code ? formResult.Code : codes::Refused,
                                    formResult.Text.isEmpty()
                                        ? QStringLiteral("Objekto langas neatidarytas.")
                                        : formResult.Text);
    form->Show(true);
    return ValueResult::Of(Value(uio->RsFields()));
}

} // namespace orvo::host
