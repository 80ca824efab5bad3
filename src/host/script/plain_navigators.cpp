#include "host/script/plain_navigators.h"

#include "frame/orvo_object_ui_base.h"

namespace orvo::host {

void RegisterPlainNavigators(ObjectRegistry& registry) {
    for (const QString& code : registry.DataObjectCodes()) {
        if (registry.HasNavigator(code))
            continue;
        const OrvoObjectUIOPtr sample = registry.MakeDataObject(code);
        const QString title = sample ? sample->OName() : code;
        registry.RegisterNavigator(code, [title](const QString& c) {
            return std::make_shared<OrvoObjectUIBase>(c.left(8), QStringLiteral("UI") + c.mid(1, 7),
                                                      title);
        });
    }
}

} // namespace orvo::host
