#include "accounts/account_registration.h"

#include "accounts/account_plan_navigator.h"
#include "accounts/account_plan_object.h"
#include "accounts/group_registration.h"
#include "accounts/template_registration.h"
#include "frame/object_registry.h"

namespace orvo {

void RegisterAccountClasses() {
    ObjectRegistry& registry = ObjectRegistry::Component();
    for (const char* code : {"O0200400", "O0200401"}) {
        registry.RegisterNavigator(QString::fromLatin1(code),
                                   [](const QString&) { return std::make_shared<UI0200400>(); });
        registry.RegisterDataObject(QString::fromLatin1(code),
                                    [](const QString&) { return std::make_shared<UIO0200400>(); });
    }
    // Groups and templates belong to the same subsystem and come with the chart.
    RegisterGroupClasses();
    RegisterTemplateClasses();
}

} // namespace orvo
