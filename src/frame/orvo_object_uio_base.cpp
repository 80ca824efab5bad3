#include "frame/orvo_object_uio_base.h"

namespace orvo {

OrvoObjectUIOBase::OrvoObjectUIOBase(const QString& code, const QString& className,
                                     const QString& title, PropertiesConvention properties)
    : className_(className), core_(code, title), properties_(std::move(properties)) {}

ValueResult OrvoObjectUIOBase::Properties(const QString& name, const QString& parameters) {
    if (std::optional<ValueResult> own = OwnProperty(name, parameters))
        return *own;
    return properties_.Query(BO().get(), name, parameters);
}

ValueResult OrvoObjectUIOBase::Methods(const QString& name, const ValueArray& parameters) {
    return core_.Methods(name, parameters);
}

std::optional<ValueResult> OrvoObjectUIOBase::OwnProperty(const QString&, const QString&) {
    return std::nullopt;
}

} // namespace orvo
