#include "host/methods/host_business_object.h"

#include "host/methods/method_arguments.h"
#include "host/methods/method_codes.h"

#include <exception>

namespace orvo::host {

HostBusinessObject::HostBusinessObject(std::shared_ptr<const MethodRegistry> registry,
                                       MethodContext context)
    : registry_(registry ? std::move(registry) : std::make_shared<const MethodRegistry>()),
      context_(std::move(context)) {}

void HostBusinessObject::Run(const QString& methodName, const QString& parameterText,
                             const QString& /*options*/, BOResult& result) {
    const Value input = result.Data;
    result = BOResult();
    const MethodDefinition* method = registry_->Find(methodName);
    if (!method) {
        result = BOResult::Failure(bo_codes::UnknownMethod,
                                   QStringLiteral("Nežinomas metodas: ") + methodName);
        return;
    }
    const QString prefix = QStringLiteral("Metodas ") + method->name + QStringLiteral(": ");
    try {
        MethodArguments args;
        const ResultRecord bound = MethodArguments::Bind(*method, parameterText, input, &args);
        if (!bound.ok()) {
            result = BOResult::Failure(bound.Code, bound.Text);
            return;
        }
        context_.registry = registry_.get();
        context_.businessObject = this;
        result = method->handler(context_, args);
        // A refusal without a text would leave the user with an empty warning box.
        if (!result.ok() && result.Text.isEmpty())
            result.Text =
                prefix + QStringLiteral("nepavyko (kodas %1)").arg(QString::number(result.Code));
    } catch (const std::exception& e) {
        result =
            BOResult::Failure(bo_codes::MethodFailed, prefix + QStringLiteral("vidinė klaida: ") +
                                                          QString::fromUtf8(e.what()));
    } catch (...) {
        result =
            BOResult::Failure(bo_codes::MethodFailed, prefix + QStringLiteral("vidinė klaida"));
    }
}

} // namespace orvo::host
