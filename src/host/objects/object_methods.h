// The business-object methods through which data objects read and store records of
// every stored kind. For a kind with code C they are:
//   DC_GetOrvoObject('OIDR or OID')       the stored record, or a blank one for a code
//   DC_SaveOrvoObject('OIDR')             stores the recordset handed in (a blank or
//                                         short OIDR stores a new record); returns OIDR,
//                                         ID, LockGUID
//   DC_DeleteOrvoObject('OIDR')           removes the record and its nested rows
//   DC_GetOrvoObjectList('OID','From','To')  rows OIDR, OType, Preview
// so "DO0000100_GetOrvoObject" reads a firm.
#pragma once

#include "core/results.h"
#include "host/objects/object_kind_registry.h"

namespace orvo::host {

class MethodRegistry;

ResultRecord RegisterObjectMethods(MethodRegistry& methods, const ObjectKindRegistry& kinds);

} // namespace orvo::host
