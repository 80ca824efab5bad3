// The business-object methods that need no book: the server's date and the list of
// methods itself. They prove the whole road from the parameter text to a recordset
// and serve scripts that want to know what the host offers.
#pragma once

#include "core/results.h"

namespace orvo::host {

class MethodRegistry;

// Registers GetServerDate and GetMethodList; fails only if a name is taken.
ResultRecord RegisterSystemMethods(MethodRegistry& registry);

} // namespace orvo::host
