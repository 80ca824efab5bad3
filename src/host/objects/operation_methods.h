// The business-object methods of financial operations. The data object UIO0201500 reads
// and stores every operation kind (O0201500 to O0201506) through the first four, whose
// record reference is always "O0201500" + number:
//   DO0201500_GetOrvoObject('OIDR or OID')  the operation with its entries, or a blank
//                                           one for a kind code; an entry's reference
//                                           reads the operation that holds it
//   DO0201500_SaveOrvoObject('OIDR')        stores the record handed in, refusing what the
//                                           book must not hold (see OperationKind)
//   DO0201500_DeleteOrvoObject('OIDR')      removes the operation and its entries
//   DO0201500_GetOrvoObjectList('OID','From','To')  rows OIDR, OType, Preview by date;
//                                           an OID with a number lists that group only
//   DO0201500_GetOperationOfEntry('OIDR')   the operation an entry (or operation) belongs
//                                           to: OIDR, OType, Preview
//   GetBROperLog('OIDR')                    who changed the operation and when
//   GetRelatedBR('OIDR')                    entries of other operations that refer to
//                                           this one's entries
//   GetBROperMaxNumber('GroupID')           the highest counter of the group's operations
#pragma once

#include "core/results.h"
#include "frame/orvo_session_service.h"
#include "host/objects/object_kind_registry.h"
#include "host/objects/operation_posting_rules.h"

namespace orvo::host {

class MethodRegistry;

// Registers the methods for the session of `user`, whose saves `rules` judge.
ResultRecord RegisterOperationMethods(MethodRegistry& methods, const SessionUser& user,
                                      const OperationPostingRules& rules = BookPostingRules());

} // namespace orvo::host
