// The registration of the operation classes in the component's object registry: the
// data object UIO0201500 for the plain operation O0201500 and for the document kinds
// O0201501 to O0201506 that share it. The host calls RegisterOperationClasses once at
// start; the navigator of these kinds registers itself beside it.
#pragma once

#include "frame/object_registry.h"

namespace orvo {

void RegisterOperationClasses(ObjectRegistry& registry = ObjectRegistry::Component());

} // namespace orvo
