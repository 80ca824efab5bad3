#include "accounts/group_registration.h"

#include "accounts/group_navigator.h"
#include "accounts/group_object.h"
#include "frame/object_registry.h"

namespace orvo {

void RegisterGroupClasses() {
    ObjectRegistry& registry = ObjectRegistry::Component();
    const QString code = QStringLiteral("O0201400");
    registry.RegisterNavigator(code, [](const QString&) { return UI0201400::Create(); });
    registry.RegisterDataObject(code, [](const QString&) { return UIO0201400::Create(); });
}

} // namespace orvo
