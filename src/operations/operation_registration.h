// The registration of the operation classes in the component's object registry: the
// data object UIO0201500 for the plain operation O0201500 and for the document kinds
// O0201501 to O0201506 that share it, and their navigator UI0201500, through which the
// host's objects service makes data objects by code. The host calls
// RegisterOperationClasses once at start.
#pragma once

#include "frame/object_registry.h"

namespace orvo {

void RegisterOperationClasses(ObjectRegistry& registry = ObjectRegistry::Component());

} // namespace orvo
