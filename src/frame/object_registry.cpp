#include "frame/object_registry.h"

#include <algorithm>

namespace orvo {

ObjectRegistry& ObjectRegistry::Component() {
    static ObjectRegistry registry;
    return registry;
}

void ObjectRegistry::RegisterNavigator(const QString& code, NavigatorFactory factory) {
    navigators_.insert(code, std::move(factory));
}

void ObjectRegistry::RegisterDataObject(const QString& code, DataObjectFactory factory) {
    dataObjects_.insert(code, std::move(factory));
}

void ObjectRegistry::Clear() {
    navigators_.clear();
    dataObjects_.clear();
}

bool ObjectRegistry::HasNavigator(const QString& codeOrOidr) const {
    return navigators_.contains(KindOf(codeOrOidr));
}

bool ObjectRegistry::HasDataObject(const QString& codeOrOidr) const {
    return dataObjects_.contains(KindOf(codeOrOidr));
}

QStringList ObjectRegistry::NavigatorCodes() const {
    QStringList codes = navigators_.keys();
    std::sort(codes.begin(), codes.end());
    return codes;
}

QStringList ObjectRegistry::DataObjectCodes() const {
    QStringList codes = dataObjects_.keys();
    std::sort(codes.begin(), codes.end());
    return codes;
}

OrvoObjectUIPtr ObjectRegistry::MakeNavigator(const QString& codeOrOidr) const {
    const QString kind = KindOf(codeOrOidr);
    const auto it = navigators_.constFind(kind);
    if (it == navigators_.constEnd() || !*it)
        return nullptr;
    return (*it)(kind);
}

OrvoObjectUIOPtr ObjectRegistry::MakeDataObject(const QString& codeOrOidr) const {
    const QString kind = KindOf(codeOrOidr);
    const auto it = dataObjects_.constFind(kind);
    if (it == dataObjects_.constEnd() || !*it)
        return nullptr;
    return (*it)(kind);
}

OrvoObjectUIPtr ObjectRegistry::GetObjectUI(const QString& code, const BusinessObjectPtr& bo,
                                            const OrvoServicesPtr& services) const {
    OrvoObjectUIPtr ui = MakeNavigator(code);
    if (!ui)
        return nullptr;
    if (services)
        ui->SetOrvoS(services);
    ui->SetBO(bo);
    return ui;
}

OrvoObjectUIOPtr ObjectRegistry::GetObjectUIO(const QString& codeOrOidr,
                                              const BusinessObjectPtr& bo,
                                              const OrvoServicesPtr& services) const {
    if (!HasDataObject(codeOrOidr))
        return nullptr;
    const OrvoObjectUIPtr ui = GetObjectUI(KindOf(codeOrOidr), bo, services);
    if (!ui)
        return nullptr;
    return ui->GetOrvoObject(codeOrOidr);
}

} // namespace orvo
