// The migration "Operacijų grupės ir šablonai": the folders of operations with their
// settings, the counters of automatic numbers, and the templates of entries.
//
//   BROperGroups       one row per group (GroupFlag non-zero: a general group that only
//                      holds groups). FormOID is the document kind of its operations;
//                      Parameters that kind's settings, '#'-joined. The AN* columns are
//                      the numbering rule: ANGroupBy is the index of the scope (0 shared,
//                      1 by group, 2 by user, 3 by group and user, 4 by document kind,
//                      5 by document kind and user), ANCycle the index of the period
//                      (0 day, 1 month, 2 quarter, 3 year).
//   AccountSettings    the named account settings a group points at through AccountCode:
//                      rows of a setting Code, its CodeName and the Account.
//   AutoNumberCounters the last counter given out in one scope and period; Scope is
//                      unique, so two sessions drawing a number meet on one row.
//   BRTemplates        templates and template groups (GroupFlag non-zero); GUID is the
//                      key that the template's entries refer to.
//   BRTemplateAcc      the entries of a template in stored order (by ID): accounts and
//                      the Factor that turns the operation's sum into the entry's.
//   BRTemplateAddr     the addressees an entry of a template demands: kind (FOID), side
//                      (Sign 1 debit, -1 credit) and, when fixed, the addressee (FOIDR).
// Both entry tables hang on the template's row (BRTemplateID, deleted with it), so a
// template travels as one record with two nested recordsets.
#pragma once

#include "host/storage/migration.h"

namespace orvo::host {

inline constexpr int kGroupsMigrationVersion = 4;

Migration GroupsMigration();

} // namespace orvo::host
