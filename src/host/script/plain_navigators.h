// Faces without a tree (the command line, tests) still make data objects the way the
// host does: through the navigator of the object's kind. A kind whose navigator has not
// been registered yet gets a plain one here, which makes, reads and deletes its data
// objects and has no menu; a kind that has its own navigator keeps it.
#pragma once

#include "frame/object_registry.h"

namespace orvo::host {

// Registers a plain navigator for every data object code of `registry` that has none.
// Call it after every subsystem has registered its classes.
void RegisterPlainNavigators(ObjectRegistry& registry = ObjectRegistry::Component());

} // namespace orvo::host
