#include "host/session/host_objects_service.h"

#include "frame/object_registry.h"
#include "frame/orvo_object_ui.h"
#include "frame/orvo_object_uio.h"
#include "frame/orvo_services.h"

namespace orvo::host {

std::shared_ptr<OrvoObjectUIO> HostObjectsService::GetObjectUIO(const QString& codeOrOidr) {
    return ObjectRegistry::Component().GetObjectUIO(codeOrOidr, bo_, services_.lock());
}

std::shared_ptr<OrvoObjectUI> HostObjectsService::GetObjectUI(const QString& code) {
    return ObjectRegistry::Component().GetObjectUI(code, bo_, services_.lock());
}

void HostObjectsService::ShowObject(const QString& oidr) {
    Requests.append(QStringLiteral("ShowObject ") + oidr);
    if (OnShowObject)
        OnShowObject(oidr);
}

ValueResult HostObjectsService::Methods(const QString& name, const ValueArray& parameters) {
    if (name == QLatin1String("ShowHelp")) {
        if (parameters.size() != 2)
            return ValueResult::Failure(codes::Refused,
                                        QStringLiteral("ShowHelp: reikia pavadinimo ir kelio."));
        const QString title = parameters.at(0).toString();
        const QString path = parameters.at(1).toString();
        if (!path.startsWith(QStringLiteral("help\\")) || !path.endsWith(QStringLiteral(".htm")))
            return ValueResult::Failure(
                codes::Refused,
                QStringLiteral("ShowHelp: netinkamas pagalbos puslapio kelias „%1“.").arg(path));
        Requests.append(QStringLiteral("ShowHelp ") + title + QLatin1Char(' ') + path);
        if (OnShowHelp)
            OnShowHelp(title, path);
        return ValueResult::Of(Value(true));
    }
    return ValueResult::Failure(
        codes::Refused, QStringLiteral("Nežinoma objektų tarnybos operacija: %1").arg(name));
}

} // namespace orvo::host
