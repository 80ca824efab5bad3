#include "frame/orvo_s.h"

#include "frame/orvo_services.h"

namespace orvo {

namespace {

OrvoServicesPtr& storedServices() {
    static OrvoServicesPtr services;
    return services;
}

QString& storedTitle() {
    static QString title;
    return title;
}

QString readTitle(const OrvoServicesPtr& services) {
    if (!services)
        return QString();
    const OrvoConstantsServicePtr constants = services->Constants();
    return constants ? constants->Title() : QString();
}

} // namespace

OrvoServicesPtr OrvoS() {
    return storedServices();
}

void SetOrvoS(const OrvoServicesPtr& services) {
    if (storedServices() || !services)
        return;
    ReplaceOrvoS(services);
}

void ReplaceOrvoS(const OrvoServicesPtr& services) {
    storedServices() = services;
    storedTitle() = readTitle(services);
}

void ClearOrvoS() {
    storedServices().reset();
    storedTitle().clear();
}

QString MessageTitle() {
    const QString& t = storedTitle();
    return t.isEmpty() ? QStringLiteral("Orvo Apskaita") : t;
}

} // namespace orvo
