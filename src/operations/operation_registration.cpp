#include "operations/operation_registration.h"

#include "operations/operation_navigator.h"
#include "operations/operation_object.h"

namespace orvo {

void RegisterOperationClasses(ObjectRegistry& registry) {
    for (const QString& kind : UIO0201500::Kinds()) {
        registry.RegisterDataObject(
            kind, [](const QString& code) -> OrvoObjectUIOPtr { return UIO0201500::Create(code); });
        registry.RegisterNavigator(
            kind, [](const QString& code) -> OrvoObjectUIPtr { return UI0201500::Create(code); });
    }
}

} // namespace orvo
