// The stored kind of operation groups (O0201400, table BROperGroups): the folders of
// financial operations with the settings their operations inherit. A record reads and
// saves through the generic store with LockGUID as its optimistic lock; besides its
// columns it carries BROperGroupID (the record's ID, filled by the data object), the
// name under which the operations' side knows a group. A group without a name is
// refused, so is a group of documents (O1000100) whose parameters name no template,
// and deleting a group that still holds operations or groups is refused, so
// that no operation is left in a group that is gone.
#pragma once

#include "host/objects/object_kind.h"

namespace orvo::host {

namespace kinds {
inline const QString OperationGroup = QStringLiteral("O0201400");
} // namespace kinds

ObjectKind GroupKind();

} // namespace orvo::host
