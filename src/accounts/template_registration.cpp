#include "accounts/template_registration.h"

#include "accounts/template_navigator.h"
#include "accounts/template_object.h"
#include "frame/object_registry.h"

namespace orvo {

void RegisterTemplateClasses() {
    ObjectRegistry& registry = ObjectRegistry::Component();
    registry.RegisterNavigator(UIO0201600::kCode,
                               [](const QString&) { return std::make_shared<UI0201600>(); });
    registry.RegisterDataObject(UIO0201600::kCode,
                                [](const QString&) { return std::make_shared<UIO0201600>(); });
}

} // namespace orvo
