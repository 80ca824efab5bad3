// HostBusinessObject is the host's business object: the one Run that the accounting
// component calls. It finds the method by its exact name in a MethodRegistry, reads
// the parameter text against the method's registration, and calls the handler with
// the session's MethodContext. Whatever happens, Run fills the result and returns:
// an unknown name, a malformed text, a wrong count or kind of value, and a handler
// that throws all become a non-zero Code with a Text saying what was wrong.
// The options text is always empty in this system and is not read.
#pragma once

#include "frame/business_object.h"
#include "host/methods/method_context.h"
#include "host/methods/method_registry.h"

#include <memory>

namespace orvo::host {

class HostBusinessObject : public BusinessObject {
public:
    HostBusinessObject(std::shared_ptr<const MethodRegistry> registry, MethodContext context);

    void Run(const QString& methodName, const QString& parameterText, const QString& options,
             BOResult& result) override;

    MethodContext& Context() { return context_; }
    const MethodContext& Context() const { return context_; }
    const MethodRegistry& Registry() const { return *registry_; }

private:
    std::shared_ptr<const MethodRegistry> registry_;
    MethodContext context_;
};

} // namespace orvo::host
