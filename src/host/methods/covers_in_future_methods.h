// The business-object method behind the spreading of deferred income and expense over
// later months:
//   GetCoversInFuture('<from>','<to>','<account>',<side>,<only not covered>)
// the entries of a deferred account dated in the period, each with the entries of later
// operations that write it off month by month (entries that refer to it by "O0201500" and
// its ID).
#pragma once

#include "core/results.h"

namespace orvo::host {

class MethodRegistry;

ResultRecord RegisterCoversInFutureMethods(MethodRegistry& methods);

} // namespace orvo::host
