// The users of the book as a stored kind (O0000900): the login (Code), the name, the
// initials (UserPref), whether the user is an administrator, and the employee the user
// is. The rights travel with the record in the nested recordset "Rights", one row per
// right key with its five flags in the order of the rights record (read, delete,
// edit, create, fifth). The table of rights has no record numbers of its own, so the
// nested rows are not read by the store: the editor fills them from
// DO0000900_GetUserRights, and a save writes the rows that changed (new, changed or
// removed) in the same transaction as the user.
#pragma once

#include "host/objects/object_kind.h"

namespace orvo::host {

namespace kinds {
inline const QString User = QStringLiteral("O0000900");
} // namespace kinds

// The fields of a row of "Rights": RightKey, ParentKey, Title, Kind, ReadFlag,
// DeleteFlag, EditFlag, CreateFlag, FifthFlag.
FieldDefs UserRightFields();

ObjectKind UserKind();

} // namespace orvo::host
