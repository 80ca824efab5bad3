#include "frame/catalogue_data_access.h"

#include "core/number_text.h"
#include "frame/orvo_object_ui.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"

namespace orvo::Catalogue {

namespace {

OrvoObjectUIOPtr objectOfClass(const OrvoObjectUIOPtr& caller, const QString& code) {
    if (caller && caller->OID() == code)
        return caller;
    const OrvoServicesPtr services = OrvoS();
    const OrvoObjectsServicePtr objects = services ? services->ObjectsService() : nullptr;
    if (!objects)
        return nullptr;
    const OrvoObjectUIPtr ui = objects->GetObjectUI(code);
    return ui ? ui->GetOrvoObject(QString()) : nullptr;
}

} // namespace

OrvoObjectUIOPtr GetOperationUIO(const OrvoObjectUIOPtr& caller) {
    return objectOfClass(caller, QStringLiteral("O0201500"));
}

OrvoObjectUIOPtr GetGroupUIO(const OrvoObjectUIOPtr& caller) {
    return objectOfClass(caller, QStringLiteral("O0201400"));
}

Value GetBaseCurrency() {
    const OrvoServicesPtr services = OrvoS();
    const OrvoConstantsServicePtr constants = services ? services->Constants() : nullptr;
    return constants ? constants->GetConstant(QStringLiteral("BaseCurrency")) : Value();
}

bool BaseIsEuro() {
    return GetBaseCurrency().toString() == QLatin1String("EUR");
}

double RateToBase(double rate) {
    if (!BaseIsEuro() || rate == 0.0)
        return rate;
    return 1.0 / rate;
}

double RateFromText(const QString& text) {
    return orvo::RateFromText(text, BaseIsEuro());
}

} // namespace orvo::Catalogue
